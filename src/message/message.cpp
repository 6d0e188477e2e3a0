/*
 * A message on its way through the library: its contents, its texts and its slides. receiving.cpp
 * and encoding.cpp have the ways in and out.
 */
#include "message/message.h"

#include "base/no_memory.h"
#include "message/message_times.h"
#include "multipart/media_types.h"
#include "multipart/multipart_result.h"
#include "presentation/media_params.h"
#include "presentation/smil_result.h"
#include "scan/charset_text.h"
#include "smil/smil_parser.h"
#include "smil/smil_part.h"
#include "wire/wire_result.h"

#include <QScopeGuard>

#include <array>
#include <tuple>
#include <vector>

using Layer = QvlMessage::Result::Layer;
using Part = MMS_COMP_SMILMultipartBodypart;
using Slide = MMS_COMP_SMILTimingContainer;

namespace {

struct LayerInfo
{
    const char *name;
    const char *(*meaning)(int code);
};

constexpr std::array layers{
    LayerInfo{"header", [](int code) { return WireResult::meaning(quint8(code)); }},
    LayerInfo{"body", MultipartResult::meaning},
    LayerInfo{"presentation", SmilResult::meaning},
};
static_assert(layers.size() == Layer::Presentation + 1, "a row stands at its layer");

// Writing slides gives them the root layout's color. As that is none, every object loses its first
// param with a page color. So there is a second one, after the other params, where it also is when
// the text is read again.
void keepPageColor(Slide *slide)
{
    if (!slide->getPageColor().isUsable())
        return;
    const QString param = QvlParamName::pageColor();
    const QString color = slide->getPageColor().color.name();
    slide->updateTextColorToElem();
    slide->updateTextSizeToElem();
    for (unsigned int i = 0; i < slide->getMediaObjectCount(); ++i) {
        std::ignore = slide->getMediaObject(i)->updateParamByName(param, color);
        std::ignore = slide->getMediaObject(i)->appendParamElem(param, color, SMIL_PARAM_VALUE_DATA,
                                                                QString());
    }
}

// The text of a root layout with a color cannot be read back. As page colors the slides look the
// same, and the root layout's color would replace their own anyway.
void moveRootColorToSlides(MMS_COMP_SMILData *slides)
{
    MMS_COMP_SMILRootLayout *root = slides->getRootLayout();
    if (!root || !root->getBackgroundColor()->isUsable())
        return;
    for (unsigned int i = 0; i < slides->getTotalSlidesNum(); ++i)
        slides->getSlide(i)->setPageColor(*root->getBackgroundColor());
    *root->getBackgroundColor() = MMS_COMP_COLOR();
}

// False when there was no memory for the root layout, or for watching the parts, as the slides were
// created.
bool areWhole(const MMS_COMP_SMILData &slides)
{
    return slides.getRootLayout() && slides.getMultiPart();
}

} // namespace

const char *QvlMessage::Result::layerName() const
{
    return layers[layer].name;
}

const char *QvlMessage::Result::meaning() const
{
    return isOk() ? "done" : layers[layer].meaning(code);
}

QvlMessage::Content::Content() = default;

QvlMessage::QvlMessage() : m_content(std::in_place) { }

QvlMessage::~QvlMessage() = default;

// Slides give back the uses of their parts, and look up each part among all that exist.
QvlMessage::Content::~Content()
{
    parts.clear();
}

bool QvlMessage::isMultipart() const
{
    return MediaTypes::isMultipart(header().getContentType(), header().getContentSubType());
}

// False when memory ran out. The content then exists, too, but is empty.
bool QvlMessage::renewContent()
{
    const bool isWhole = unlessOutOfMemory(false, [this]() -> bool {
        m_content.emplace();
        return true;
    });
    if (!isWhole)
        m_content.emplace(); // throws nothing: its members do without what they do not get
    return isWhole;
}

qsizetype QvlMessage::sentBodyOffset() const
{
    return m_content->readable ? m_content->readable->bodyOffset()
                               : m_pdu.size() - header().getBodyLength();
}

int QvlMessage::charset(const Part &part) const
{
    for (const DeclaredText &text : m_content->texts) {
        if (text.octets.constData() == part.getBodyData().constData())
            return text.charset;
    }
    return 0;
}

QString QvlMessage::text(const Part &part) const
{
    return qvlDecodeText(part.getBodyData(), charset(part));
}

QvlMessage::Result QvlMessage::present()
{
    if (m_content->presented)
        return *m_content->presented;
    // Also after a lack of memory: a second reading would append the same slides again.
    const Result outOfMemory{Layer::Presentation, SmilResult::OutOfMemory};
    const bool hasParts = parts().getPartCount() > 0;
    if (hasParts)
        m_content->presented = outOfMemory;
    const Result result = unlessOutOfMemory(outOfMemory, [this] { return readSlides(); });
    if (hasParts)
        m_content->presented = result;
    return result;
}

QvlMessage::Result QvlMessage::readSlides()
{
    if (!areWhole(slides()))
        return {Layer::Presentation, SmilResult::OutOfMemory};
    if (const MMS_COMP_SMILMultipartBodypart *smil = parts().getSmilPart())
        return {Layer::Presentation,
                MMS_COMP_SMILParser().parse(smil->getBodyData(), &parts(), &slides())};
    const unsigned int slidesBefore = slides().getTotalSlidesNum();
    const auto noteSlides = qScopeGuard(
        [&] { m_content->slidesGenerated = slides().getTotalSlidesNum() > slidesBefore; });
    MMS_COMP_SMILParser::updateToCorvaneRegion(&slides());
    // Fails only with an exception.
    std::ignore = MMS_COMP_SMILParser::makeSmilForMixed(&parts(), &slides(), false);
    return {Layer::Presentation, SmilResult::Ok};
}

QByteArray QvlMessage::smilText()
{
    return unlessOutOfMemory(QByteArray(), [&] {
        if (!areWhole(slides()))
            return QByteArray();
        moveRootColorToSlides(&slides());
        std::vector<MMS_COMP_COLOR> pageColors;
        for (unsigned int i = 0; i < slides().getTotalSlidesNum(); ++i)
            pageColors.push_back(slides().getSlide(i)->getPageColor());
        const auto restoreColors = qScopeGuard([&] {
            for (unsigned int i = 0; i < slides().getTotalSlidesNum(); ++i)
                slides().getSlide(i)->setPageColor(pageColors[i]);
        });
        for (unsigned int i = 0; i < slides().getTotalSlidesNum(); ++i)
            keepPageColor(slides().getSlide(i));
        return MMS_COMP_SMILParser::convertToSMILLang(&slides()).toUtf8();
    });
}

bool QvlMessage::storeSlides(const QString &location)
{
    return unlessOutOfMemory(false, [&]() -> bool {
        // A presentation that was not read, or cannot be, is not replaced by slides without it.
        const bool wasRead = m_content->presented || slides().getTotalSlidesNum() == 0;
        if (parts().getSmilPart() && wasRead && !present().isOk())
            return false;
        const QByteArray smil = smilText();
        if (smil.isNull())
            return false;
        SmilPart::store(&parts(), smil, location);
        return true;
    });
}
