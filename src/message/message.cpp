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
#include "wire/header_field_codes.h"
#include "wire/message_types.h"
#include "wire/octets.h"
#include "wire/wire_result.h"

#include <QScopeGuard>

#include <algorithm>
#include <array>
#include <tuple>
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

bool hasBody(unsigned char type)
{
    const MessageTypeInfo *info = messageTypeInfo(type);
    return info
        && std::ranges::find(info->writeOrder, HeaderFieldCode::ContentType)
        != info->writeOrder.end();
}

bool canBeWritten(const MMS_UTIL_Entry &entry)
{
    return entry.getType() == MMS_UTIL_Entry::Email || entry.getType() == MMS_UTIL_Entry::Plmn;
}

bool canBeWritten(const QPtrList<MMS_UTIL_Entry> &entries)
{
    return std::ranges::all_of(
        entries, [](const MMS_UTIL_Entry *entry) { return !entry || canBeWritten(*entry); });
}

// The encoder returns the result of the last field alone, and takes a version with the high bit for
// one of two octets.
bool canBeWritten(const MMS_UA_UAMsg &header)
{
    const MMS_UTIL_Entry from = header.getFrom();
    return messageTypeInfo(header.getMessageType())
        && !WireOctet::hasHighBit(header.getMMSVersion())
        && (from.getAddress().isEmpty() || canBeWritten(from))
        && canBeWritten(header.getToRecipients()) && canBeWritten(header.getCcRecipients())
        && canBeWritten(header.getBccRecipients());
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
        m_content.emplace(); // throws nothing: its members do without what they do not get
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
    if (m_content->presented)
        return *m_content->presented;
    const bool hasParts = parts().getPartCount() > 0;
    const Result result = readSlides();
    // Also after a lack of memory: a second reading would append the same slides again.
    if (hasParts)
        m_content->presented = result;
    return result;
}

QvlMessage::Result QvlMessage::readSlides()
{
    if (const MMS_COMP_SMILMultipartBodypart *smil = parts().getSmilPart())
        return {Layer::Presentation,
                MMS_COMP_SMILParser().parse(smil->getBodyData(), &parts(), &slides())};
    MMS_COMP_SMILParser::updateToCorvaneRegion(&slides());
    const unsigned int slidesBefore = slides().getTotalSlidesNum();
    const bool generated = MMS_COMP_SMILParser::makeSmilForMixed(&parts(), &slides(), false);
    m_content->slidesGenerated = slides().getTotalSlidesNum() > slidesBefore;
    return {Layer::Presentation, generated ? SmilResult::Ok : SmilResult::OutOfMemory};
}

QByteArray QvlMessage::smilText()
{
    return unlessOutOfMemory(QByteArray(), [&] {
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
    // A presentation that was not read, or cannot be, is not replaced by slides without it.
    const bool wasRead = m_content->presented || slides().getTotalSlidesNum() == 0;
    if (parts().getSmilPart() && wasRead && !present().isOk())
        return false;
    return unlessOutOfMemory(false, [&]() -> bool {
        SmilPart::store(&parts(), smilText(), location);
        return true;
    });
}

QvlMessage::Result QvlMessage::encodeBody(QByteArray *body)
{
    if (parts().getPartCount() == 0) {
        if (!isMultipart())
            *body = header().getBodyOctets(); // such as a single text
        return {Layer::Body, MultipartResult::Ok};
    }
    if (parts().getPartCount() > MostParts)
        return {Layer::Body, MultipartResult::CannotEncode};
    *body = MMS_COMP_SMILMultipartParser::assembleBody(&parts(), &header());
    header().addFieldsPresent(headerFieldMask(HeaderFieldCode::ContentType));
    return {Layer::Body, body->isEmpty() ? MultipartResult::CannotEncode : MultipartResult::Ok};
}

QvlMessage::Result QvlMessage::encode(QByteArray *pdu)
{
    return unlessOutOfMemory(Result{Layer::Body, MultipartResult::OutOfMemory}, [&]() -> Result {
        if (!pdu)
            return {Layer::Header, WireResult::BadArgument};
        if (!canBeWritten(header()))
            return {Layer::Header, WireResult::CannotWrite};
        QByteArray body;
        // Settles the content type, so it comes before the header.
        if (hasBody(header().getMessageType())) {
            if (const Result result = encodeBody(&body); !result.isOk())
                return result;
        } else if (parts().getPartCount() > 0) {
            return {Layer::Body, MultipartResult::CannotEncode};
        }
        QByteArray octets;
        const unsigned char code = MMS_UA_Encoder().encodeHeader(&header(), &octets);
        if (code != WireResult::Written)
            return {Layer::Header, code};
        *pdu = octets + body;
        return {Layer::Body, MultipartResult::Ok};
    });
}
