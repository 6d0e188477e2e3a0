/*
 * A message on its way through the library: header, parts, slides, and back.
 */
#include "message/message.h"

#include "base/no_memory.h"
#include "message/message_times.h"
#include "message/multipart_parser.h"
#include "multipart/media_types.h"
#include "multipart/multipart_result.h"
#include "presentation/media_params.h"
#include "presentation/smil_result.h"
#include "readable/transfer_encoding.h"
#include "scan/charset_text.h"
#include "scan/header_scanner.h"
#include "scan/part_scanner.h"
#include "smil/smil_parser.h"
#include "smil/smil_part.h"
#include "wire/header_decoder.h"
#include "wire/header_encoder.h"
#include "wire/header_field_codes.h"
#include "wire/message_types.h"
#include "wire/multipart_codec.h"
#include "wire/octets.h"
#include "wire/wire_result.h"

#include <QScopeGuard>

#include <algorithm>
#include <array>
#include <tuple>
#include <vector>

using namespace Qt::StringLiterals;

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

// Names in forms that the codec passes over, such as those in letters.
void receiveNames(Part *part, const QvlScannedPart &scanned)
{
    if (part->getContentID().isEmpty())
        part->setContentID(scanned.id());
    if (!part->getContentLocation().isEmpty())
        return;
    const auto contentType = scanned.contentType();
    const QString location = scanned.location();
    part->setContentLocation(location.isEmpty() && contentType ? contentType->name() : location);
    if (part->getContentLocation().isEmpty())
        part->setDispFileName(scanned.fileName());
}

// Other decoders refuse a Content-ID without brackets. The start parameter keeps referring to it.
void putIdsIntoBrackets(MMS_COMP_SMILMultipart *parts)
{
    const auto isBare = [](const QString &id) { return !id.isEmpty() && !id.startsWith(u'<'); };
    for (int i = 0; i < parts->getPartCount(); ++i) {
        Part *part = parts->getBodypartByIndex(i);
        const QString id = part->getContentID();
        if (!isBare(id))
            continue;
        if (parts->getStart() == id)
            parts->setStart(u'<' + id + u'>');
        part->setContentID(u'<' + id + u'>');
    }
}

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

QvlMessage::Content::~Content() = default;

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

QvlMessage::Result QvlMessage::receive(const QByteArray &pdu, Reading reading)
{
    m_pdu = pdu;
    if (!renewContent())
        return {Layer::Header, WireResult::BadArgument};
    return unlessOutOfMemory(Result{Layer::Body, MultipartResult::OutOfMemory}, [&]() -> Result {
        if (const unsigned char code = receiveHeader(reading))
            return {Layer::Header, code};
        return header().getBodyLength() > 0 ? receiveBody(reading) : Result{};
    });
}

unsigned char QvlMessage::receiveHeader(Reading reading)
{
    if (reading == Strict)
        return MMS_UA_Decoder().decodeHeader(m_pdu, &header());
    const QvlReadablePdu &readable = m_content->readable.emplace(m_pdu);
    m_content->changes = readable.changes();
    const unsigned char code = readable.decodeHeader(&header());
    m_content->times = std::make_unique<MessageTimes>(MessageTimes::of(header()));
    return code;
}

QvlMessage::Result QvlMessage::receiveBody(Reading reading)
{
    parts().setMimeType(header().getContentType());
    parts().setSubType(header().getContentSubType());
    if (!isMultipart()) {
        if (reading != Strict)
            receiveSingleBody();
        return {Layer::Body, MultipartResult::Ok};
    }
    const QByteArray body = header().getBodyOctets();
    return {Layer::Body,
            reading == Strict ? MMS_COMP_SMILMultipartParser::parse(body, &header(), &parts())
                              : receiveParts(body)};
}

// As the parser does, with what the codec drops.
int QvlMessage::receiveParts(const QByteArray &body)
{
    const auto *octets = reinterpret_cast<const unsigned char *>(body.constData());
    const unsigned char result =
        MMS_UA_MultiPart_CODEC::decodeMultipart(true, octets, unsigned(body.size()), &parts());
    receiveDeclarations();
    if (result != WireResult::Read)
        return MMS_COMP_SMILMultipartParser::handleErr(result);
    MMS_COMP_SMILMultipartParser::checkLocation(&parts());
    receiveRoot();
    return MultipartResult::Ok;
}

// A body that is no multipart, such as a single text.
void QvlMessage::receiveSingleBody()
{
    auto part = std::make_unique<Part>();
    part->setContentType(header().getContentType());
    part->setContentSubType(header().getContentSubType());
    part->setBodyData(reinterpret_cast<const char *>(header().getBody()), header().getBodyLength());
    if (const auto contentType = sentContentType();
        contentType && !contentType->mediaType.isEmpty()) {
        part->setContentType(Part::getTypePartFromFormat(contentType->mediaType));
        part->setContentSubType(Part::getSubTypePartFromFormat(contentType->mediaType));
        part->setContentLocation(contentType->name());
        keepCharset(*part, contentType->charset());
    }
    parts().appendBodypart(part.release());
    MMS_COMP_SMILMultipartParser::checkLocation(&parts());
}

// Content-Type as it came, unless the scanner ends the header elsewhere than the decoder.
std::optional<QvlContentType> QvlMessage::sentContentType() const
{
    QvlHeaderScanner scanner(m_pdu);
    QvlScannedField field;
    while (scanner.next(&field)) { }
    return scanner.result() == QvlHeaderScanner::ContentTypeRead
            && scanner.position() == sentBodyOffset()
        ? qvlReadContentType(field.value)
        : std::nullopt;
}

// The decoder passes over Start and Type in letters, and those of other multiparts than related.
void QvlMessage::receiveRoot()
{
    const QString params = header().getContentTypeParams();
    QString start = MMS_COMP_SMILMultipartParser::parseStart(params);
    QString type = MMS_COMP_SMILMultipartParser::parseExtType(params);
    if (const auto contentType = sentContentType()) {
        start = start.isEmpty() ? contentType->start() : start;
        type = type.isEmpty() ? contentType->type() : type;
    }
    parts().setStart(start);
    parts().setExtType(type);
}

// What the body codec drops: charsets, transfer encodings, and names in forms that it passes over.
void QvlMessage::receiveDeclarations()
{
    QvlPartScanner scanner(QByteArrayView(m_pdu).sliced(sentBodyOffset()));
    QvlScannedPart scanned;
    for (int i = 0; i < parts().getPartCount() && scanner.next(&scanned); ++i) {
        Part *part = parts().getBodypartByIndex(i);
        const bool isDecoded = decodeTransfer(part, i, scanned);
        if (isDecoded || part->getCharset() != "UCS2"_L1) // which the codec converts itself
            keepCharset(*part, scanned.charset());
        receiveNames(part, scanned);
    }
}

bool QvlMessage::decodeTransfer(Part *part, int index, const QvlScannedPart &scanned)
{
    const auto octets =
        TransferEncoding::decode(scanned.data, scanned.transferEncoding().toLatin1());
    if (!octets)
        return false;
    part->setBodyData(*octets);
    m_content->changes.push_back({.kind = QvlChange::Rewritten,
                                  .place = QvlChange::PartBody,
                                  .part = index,
                                  .octets = scanned.data,
                                  .offset = scanned.data.data() - m_pdu.constData(),
                                  .reason = "the part came in a transfer encoding"});
    return true;
}

void QvlMessage::keepCharset(const Part &part, int charset)
{
    if (charset != 0 && charset != Charset::Utf8 && charset != Charset::UsAscii)
        m_content->texts.push_back({part.getBodyData(), charset});
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

// Texts in UTF-8 are declared as such: the writer declares every named charset as US-ASCII.
void QvlMessage::prepareTexts()
{
    for (int i = 0; i < parts().getPartCount(); ++i) {
        Part *part = parts().getBodypartByIndex(i);
        if (part->getMimeFormat() != "text/plain"_L1)
            continue;
        const QByteArray octets = part->getBodyData();
        if (charset(*part) != 0 || !QByteArrayView(octets).isValidUtf8())
            part->setBodyData(text(*part).toUtf8());
        if (std::ranges::any_of(octets, WireOctet::hasHighBit))
            part->setCharset(QString());
    }
}

QvlMessage::Result QvlMessage::encodeBody(QByteArray *body)
{
    if (parts().getPartCount() == 0) {
        if (!isMultipart())
            *body = header().getBodyOctets(); // received with Strict
        return {Layer::Body, MultipartResult::Ok};
    }
    if (parts().getPartCount() > MostParts)
        return {Layer::Body, MultipartResult::CannotEncode};
    prepareTexts();
    putIdsIntoBrackets(&parts());
    *body = MMS_COMP_SMILMultipartParser::assembleBody(&parts(), &header());
    header().addFieldsPresent(headerFieldMask(HeaderFieldCode::ContentType));
    return {Layer::Body, body->isEmpty() ? MultipartResult::CannotEncode : MultipartResult::Ok};
}

unsigned char QvlMessage::encodeHeader(QByteArray *octets)
{
    const MessageTimes times = MessageTimes::of(header());
    const auto restoreTimes = qScopeGuard([&] { times.storeIn(&header()); });
    if (const auto &decoded = m_content->times)
        times.replaced(*decoded, decoded->asSent(sentTimes())).storeIn(&header());
    return MMS_UA_Encoder().encodeHeader(&header(), octets);
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
        if (messageTypeHasBody(header().getMessageType())) {
            if (const Result result = encodeBody(&body); !result.isOk())
                return result;
        } else if (parts().getPartCount() > 0) {
            return {Layer::Body, MultipartResult::CannotEncode};
        }
        QByteArray octets;
        const unsigned char code = encodeHeader(&octets);
        if (code != WireResult::Written)
            return {Layer::Header, code};
        *pdu = octets + body;
        return {Layer::Body, MultipartResult::Ok};
    });
}
