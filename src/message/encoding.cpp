/*
 * Encoding a message so that everyone reads it.
 */
#include "base/no_memory.h"
#include "message/message.h"
#include "message/message_times.h"
#include "message/multipart_parser.h"
#include "multipart/multipart_result.h"
#include "wire/header_encoder.h"
#include "wire/header_field_codes.h"
#include "wire/message_types.h"
#include "wire/octets.h"
#include "wire/wire_result.h"

#include <QScopeGuard>

#include <algorithm>

using namespace Qt::StringLiterals;

using Layer = QvlMessage::Result::Layer;
using Part = MMS_COMP_SMILMultipartBodypart;

namespace {

// The writer drops what exceeds the octets for content type and headers of a part: the media type,
// the location twice, the Content-ID, and some octets between them.
bool haveShortNames(const MMS_COMP_SMILMultipart &parts)
{
    constexpr qsizetype most = 1024 - 16;
    for (int i = 0; i < parts.getPartCount(); ++i) {
        const Part &part = *parts.getBodypartByIndex(i);
        const qsizetype octets = part.getMimeFormat().toUtf8().size()
            + 2 * part.getContentLocation().toUtf8().size() + part.getContentID().toUtf8().size();
        if (octets > most)
            return false;
    }
    return true;
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

// A control character at the beginning would be a length.
bool canBeWritten(const QString &text)
{
    return text.isEmpty() || text.front() >= u' ';
}

bool canBeWritten(const MMS_UTIL_Entry &entry)
{
    return (entry.getType() == MMS_UTIL_Entry::Email || entry.getType() == MMS_UTIL_Entry::Plmn)
        && canBeWritten(entry.getAddress());
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
        && !WireOctet::hasHighBit(header.getMMSVersion()) && canBeWritten(header.getTransactionId())
        && canBeWritten(header.getMessageId()) && canBeWritten(header.getContentLocation())
        && (from.getAddress().isEmpty() || canBeWritten(from))
        && canBeWritten(header.getToRecipients()) && canBeWritten(header.getCcRecipients())
        && canBeWritten(header.getBccRecipients());
}

} // namespace

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
        if (std::ranges::any_of(part->getBodyData(), WireOctet::hasHighBit))
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
    if (parts().getPartCount() > MostParts || !haveShortNames(parts()))
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
