#include "support/messages.h"

#include <memory>

namespace {

QByteArray bodyOf(int octets)
{
    QByteArray body(octets, Qt::Uninitialized);
    for (int i = 0; i < octets; ++i)
        body[i] = static_cast<char>(i * 7);
    return body;
}

MMS_UTIL_Entry phone()
{
    return MMS_UTIL_Entry(QString(), MMS_UTIL_Entry::Plmn, QStringLiteral("+4915187654321"));
}

void setFields(MMS_UA_UAMsg *header, unsigned char type)
{
    header->setMessageType(type);
    header->setMMSVersion(0x10);
    for (unsigned char code : messageTypeInfo(type)->writeOrder)
        header->addFieldsPresent(headerFieldMask(code));
}

} // namespace

void addPictures(MMS_COMP_SMILMultipart *message, int count, int octets, Names names)
{
    for (int i = 0; i < count; ++i) {
        auto part = std::make_unique<MMS_COMP_SMILMultipartBodypart>();
        part->setContentType(QStringLiteral("image"));
        part->setContentSubType(QStringLiteral("jpeg"));
        if (names == Names::Given) {
            const QString location = QStringLiteral("picture%1.jpg").arg(i);
            part->setContentLocation(location);
            part->setContentID(QLatin1Char('<') + location + QLatin1Char('>'));
        }
        part->setBodyData(bodyOf(octets / count));
        message->appendBodypart(part.release());
    }
}

void fillHeader(MMS_UA_UAMsg *header, unsigned char type)
{
    setFields(header, type);
    header->setTransactionId(QStringLiteral("T-20041116-0001"));
    header->setMessageId(QStringLiteral("20041116.0001@mmsc.example"));
    header->setFrom(phone());
    header->addToRecipient(phone());
    header->addCcRecipient(
        MMS_UTIL_Entry(QString(), MMS_UTIL_Entry::Email, QStringLiteral("anna@example.org")));
    header->addBccRecipient(phone());
    header->setDate(QDateTime::fromSecsSinceEpoch(1'090'000'000));
    header->setDeliveryTime(QDateTime::fromSecsSinceEpoch(1'090'003'600));
    header->setSubject(QStringLiteral("Grüße aus Küstrin"));
    header->setResponseText(QStringLiteral("Accepted"));
    header->setMessageSize(30720);
    header->setExpiry(7 * 24 * 60 * 60);
    header->setContentLocation(QStringLiteral("http://mmsc.example/m/1"));
    header->setContentType(QStringLiteral("application"));
    header->setContentSubType(QStringLiteral("vnd.wap.multipart.related"));
    header->setContentTypeParams(QStringLiteral("start=<slides.smil>;type=application/smil"));
}

void fillNotification(MMS_UA_UAMsg *header, int octets)
{
    fillHeader(header, QvlMessageType::NotificationInd);
    header->setSubject(QStringLiteral("Photos"));
    const qsizetype left = octets - encodedHeader(header).size();
    header->setContentLocation(header->getContentLocation() + QString(left, QLatin1Char('1')));
}

QByteArray encodedHeader(MMS_UA_UAMsg *header)
{
    QByteArray octets;
    return MMS_UA_Encoder().encodeHeader(header, &octets) == WireResult::Written ? octets
                                                                                 : QByteArray();
}

QByteArray assembled(MMS_COMP_SMILMultipart *message)
{
    MMS_UA_UAMsg header;
    return MMS_COMP_SMILMultipartParser::assembleBody(message, &header);
}

bool decodeHeader(const QByteArray &pdu, MMS_UA_UAMsg *header)
{
    return MMS_UA_Decoder().decodeHeader(pdu, header) == WireResult::Read;
}

bool parseBody(const QByteArray &body, MMS_UA_UAMsg *header, MMS_COMP_SMILMultipart *message)
{
    message->setMimeType(header->getContentType());
    message->setSubType(header->getContentSubType());
    return MMS_COMP_SMILMultipartParser::parse(body, header, message) == MultipartResult::Ok;
}
