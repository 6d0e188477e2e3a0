/*
 * A message on its way through the library: header, parts, slides, and back.
 */
#include "message/message.h"

#include "base/no_memory.h"
#include "message/multipart_parser.h"
#include "multipart/multipart_result.h"
#include "presentation/media_params.h"
#include "presentation/smil_result.h"
#include "smil/smil_parser.h"
#include "smil/smil_part.h"
#include "wire/header_decoder.h"
#include "wire/header_encoder.h"
#include "wire/header_fields.h"
#include "wire/wire_result.h"

#include <array>
#include <vector>

using namespace Qt::StringLiterals;

using Layer = QvlMessage::Result::Layer;
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
        slide->getMediaObject(i)->updateParamByName(param, color);
        slide->getMediaObject(i)->appendParamElem(param, color, SMIL_PARAM_VALUE_DATA, QString());
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

} // namespace

const char *QvlMessage::Result::layerName() const
{
    return layers[layer].name;
}

const char *QvlMessage::Result::meaning() const
{
    return layers[layer].meaning(code);
}

QvlMessage::Content::Content() = default;

QvlMessage::QvlMessage() : m_content(std::in_place) { }

QvlMessage::~QvlMessage() = default;

bool QvlMessage::isMultipart() const
{
    return header().getContentSubType().startsWith("vnd.wap.multipart."_L1, Qt::CaseInsensitive);
}

// False when memory ran out. The content then exists, too, but is empty.
bool QvlMessage::renewContent()
{
    const bool isWhole = unlessOutOfMemory(false, [this]() -> bool {
        m_content.emplace();
        return true;
    });
    if (!isWhole)
        m_content.emplace();
    return isWhole;
}

QvlMessage::Result QvlMessage::receive(const QByteArray &pdu)
{
    m_pdu = pdu;
    if (!renewContent())
        return {Layer::Header, WireResult::BadArgument};
    if (const unsigned char code = MMS_UA_Decoder().decodeHeader(m_pdu, &header()))
        return {Layer::Header, code};
    return header().getBodyLength() > 0 && isMultipart() ? receiveBody() : Result{};
}

QvlMessage::Result QvlMessage::receiveBody()
{
    parts().setMimeType(header().getContentType());
    parts().setSubType(header().getContentSubType());
    return {Layer::Body,
            MMS_COMP_SMILMultipartParser::parse(header().getBodyOctets(), &header(), &parts())};
}

QvlMessage::Result QvlMessage::present()
{
    if (!m_content->presented)
        m_content->presented = readSlides();
    return *m_content->presented;
}

QvlMessage::Result QvlMessage::readSlides()
{
    if (const MMS_COMP_SMILMultipartBodypart *smil = parts().getSmilPart())
        return {Layer::Presentation,
                MMS_COMP_SMILParser().parse(smil->getBodyData(), &parts(), &slides())};
    MMS_COMP_SMILParser::updateToCorvaneRegion(&slides());
    const bool generated = MMS_COMP_SMILParser::makeSmilForMixed(&parts(), &slides(), false);
    m_content->slidesGenerated = slides().getTotalSlidesNum() > 0;
    return {Layer::Presentation, generated ? SmilResult::Ok : SmilResult::OutOfMemory};
}

QByteArray QvlMessage::smilText()
{
    return unlessOutOfMemory(QByteArray(), [&] {
        moveRootColorToSlides(&slides());
        std::vector<MMS_COMP_COLOR> pageColors;
        for (unsigned int i = 0; i < slides().getTotalSlidesNum(); ++i) {
            pageColors.push_back(slides().getSlide(i)->getPageColor());
            keepPageColor(slides().getSlide(i));
        }
        const QByteArray smil = MMS_COMP_SMILParser::convertToSMILLang(&slides()).toUtf8();
        for (unsigned int i = 0; i < slides().getTotalSlidesNum(); ++i)
            slides().getSlide(i)->setPageColor(pageColors[i]);
        return smil;
    });
}

bool QvlMessage::storeSlides(const QString &location)
{
    return unlessOutOfMemory(false, [&]() -> bool {
        SmilPart::store(&parts(), smilText(), location);
        return true;
    });
}

QvlMessage::Result QvlMessage::encode(QByteArray *pdu)
{
    return unlessOutOfMemory(Result{Layer::Body, MultipartResult::OutOfMemory}, [&]() -> Result {
        if (!pdu)
            return {Layer::Header, WireResult::BadArgument};
        QByteArray body;
        if (parts().getPartCount() > 0) {
            // Determines the content type, so it comes before the header.
            body = MMS_COMP_SMILMultipartParser::assembleBody(&parts(), &header());
            if (body.isEmpty())
                return {Layer::Body, MultipartResult::CannotEncode};
            header().addFieldsPresent(headerFieldMask(HeaderFieldCode::ContentType));
        }
        QByteArray octets;
        const unsigned char code = MMS_UA_Encoder().encodeHeader(&header(), &octets);
        if (code != WireResult::Written)
            return {Layer::Header, code};
        *pdu = octets + body;
        return {};
    });
}
