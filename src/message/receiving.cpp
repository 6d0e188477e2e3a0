/*
 * Receiving a message: the header as the decoder reads it, the parts as the codec reads them, and
 * what both of them drop.
 */
#include "base/no_memory.h"
#include "message/header_texts.h"
#include "message/message.h"
#include "message/message_times.h"
#include "message/multipart_parser.h"
#include "multipart/multipart_result.h"
#include "readable/transfer_encoding.h"
#include "scan/header_scanner.h"
#include "scan/part_scanner.h"
#include "wire/header_decoder.h"
#include "wire/multipart_codec.h"
#include "wire/octets.h"
#include "wire/wire_result.h"

using namespace Qt::StringLiterals;

using Layer = QvlMessage::Result::Layer;
using Part = MMS_COMP_SMILMultipartBodypart;

namespace {

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

} // namespace

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
    storeDeclaredTexts(m_pdu, &header());
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
