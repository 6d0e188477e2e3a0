/*
 * Writes the messages in fixtures/messages: a notification, a related message with a presentation,
 * and a mixed message with attachments.
 *
 *     make_messages PICTURE DIR
 */
#include <qvlsmilparser.h>

#include <QDir>
#include <QFile>
#include <QTextStream>

#include <memory>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

void addFields(MMS_UA_UAMsg *msg, std::initializer_list<unsigned char> codes)
{
    for (unsigned char code : codes)
        msg->addFieldsPresent(headerFieldMask(code));
}

void startHeader(MMS_UA_UAMsg *msg, unsigned char type, const QString &transactionId)
{
    msg->setMessageType(type);
    msg->setTransactionId(transactionId);
    msg->setMMSVersion(QvlMmsVersion::Version10);
    addFields(msg,
              {HeaderFieldCode::MessageType, HeaderFieldCode::TransactionId,
               HeaderFieldCode::MmsVersion});
}

void addPart(MMS_COMP_SMILMultipart *multipart, const QString &type, const QString &subtype,
             const QString &location, const QByteArray &data)
{
    auto part = std::make_unique<Part>();
    part->setContentType(type);
    part->setContentSubType(subtype);
    part->setContentLocation(location);
    part->setContentID(QLatin1Char('<') + location + QLatin1Char('>'));
    part->setBodyData(data);
    multipart->appendBodypart(part.release()); // the message owns it from here on
}

QByteArray encodedHeader(MMS_UA_UAMsg *msg)
{
    QByteArray octets;
    return MMS_UA_Encoder().encodeHeader(msg, &octets) == WireResult::Written ? octets
                                                                              : QByteArray();
}

QByteArray notification()
{
    MMS_UA_UAMsg msg;
    startHeader(&msg, 130, QStringLiteral("T-1"));
    msg.setFrom(MMS_UTIL_Entry(QString(), MMS_UTIL_Entry::Plmn, QStringLiteral("+4915112345678")));
    msg.setSubject(QStringLiteral("Photos"));
    msg.setMessageClass(QvlMessageClass::Personal);
    msg.setMessageSize(30720);
    msg.setExpiry(7 * 24 * 60 * 60);
    msg.setContentLocation(QStringLiteral("http://mmsc.example/m/1"));
    addFields(&msg,
              {HeaderFieldCode::Subject, HeaderFieldCode::MessageClass,
               HeaderFieldCode::MessageSize, HeaderFieldCode::Expiry,
               HeaderFieldCode::ContentLocation});
    return encodedHeader(&msg);
}

QByteArray sendRequest(const QString &transactionId, const QString &subject,
                       MMS_COMP_SMILMultipart *multipart)
{
    MMS_UA_UAMsg msg;
    startHeader(&msg, 128, transactionId);
    msg.setDate(QDateTime::fromSecsSinceEpoch(1'090'000'000));
    msg.addToRecipient(
        MMS_UTIL_Entry(QString(), MMS_UTIL_Entry::Plmn, QStringLiteral("+4915187654321")));
    msg.addCcRecipient(
        MMS_UTIL_Entry(QString(), MMS_UTIL_Entry::Email, QStringLiteral("anna@example.org")));
    msg.setSubject(subject);
    msg.setPriority(QvlPriority::High);
    msg.setDeliveryReport(true);
    addFields(&msg,
              {HeaderFieldCode::Date, HeaderFieldCode::To, HeaderFieldCode::Cc,
               HeaderFieldCode::Subject, HeaderFieldCode::Priority, HeaderFieldCode::DeliveryReport,
               HeaderFieldCode::ContentType});
    const QByteArray body = MMS_COMP_SMILMultipartParser::assembleBody(multipart, &msg);
    return encodedHeader(&msg) + body;
}

QByteArray related(const QByteArray &picture)
{
    const QByteArray smil =
        "<smil><head><layout><root-layout width=\"120\" height=\"160\"/>"
        "<region id=\"Text\" left=\"0\" top=\"0\" width=\"120\" height=\"80\"/>"
        "<region id=\"Image\" left=\"0\" top=\"80\" width=\"120\" height=\"80\"/></layout></head>"
        "<body><par dur=\"4s\"><img src=\"harbour.jpg\" region=\"Image\"/>"
        "<text src=\"hello.txt\" region=\"Text\"/></par>"
        "<par dur=\"2500ms\"><text src=\"cid:soon.txt\" region=\"Text\"/></par></body></smil>";
    MMS_COMP_SMILMultipart multipart;
    addPart(&multipart, QStringLiteral("application"), QStringLiteral("smil"),
            QStringLiteral("slides.smil"), smil);
    addPart(&multipart, QStringLiteral("image"), QStringLiteral("jpeg"),
            QStringLiteral("harbour.jpg"), picture);
    addPart(&multipart, QStringLiteral("text"), QStringLiteral("plain"),
            QStringLiteral("hello.txt"), QStringLiteral("Grüße aus dem Hafen – 港口 ⚓").toUtf8());
    addPart(&multipart, QStringLiteral("text"), QStringLiteral("plain"), QStringLiteral("soon.txt"),
            "See you soon");
    multipart.setStart(QStringLiteral("<slides.smil>"));
    return sendRequest(QStringLiteral("T-2"), QStringLiteral("Grüße aus Küstrin"), &multipart);
}

QByteArray mixed(const QByteArray &picture)
{
    MMS_COMP_SMILMultipart multipart;
    multipart.setSubType(QStringLiteral("vnd.wap.multipart.mixed"));
    addPart(&multipart, QStringLiteral("text"), QStringLiteral("plain"),
            QStringLiteral("notes.txt"), "Two files for you.");
    addPart(&multipart, QStringLiteral("image"), QStringLiteral("jpeg"),
            QStringLiteral("harbour.jpg"), picture);
    addPart(&multipart, QStringLiteral("text"), QStringLiteral("x-vCard"),
            QStringLiteral("anna.vcf"),
            "BEGIN:VCARD\r\nVERSION:2.1\r\nN:Example;Anna\r\nEND:VCARD\r\n");
    return sendRequest(QStringLiteral("T-3"), QStringLiteral("Files"), &multipart);
}

} // namespace

int main(int argc, char **argv)
{
    QTextStream out(stdout);
    if (argc != 3) {
        out << "usage: make_messages PICTURE DIR\n";
        return 2;
    }
    QFile pictureFile(QString::fromLocal8Bit(argv[1]));
    if (!pictureFile.open(QIODevice::ReadOnly)) {
        out << "cannot read the picture: " << pictureFile.errorString() << '\n';
        return 2;
    }
    const QByteArray picture = pictureFile.readAll();
    const QDir directory(QString::fromLocal8Bit(argv[2]));
    const std::pair<QString, QByteArray> messages[] = {
        {QStringLiteral("notification.mms"), notification()},
        {QStringLiteral("related.mms"), related(picture)},
        {QStringLiteral("mixed.mms"), mixed(picture)},
    };
    for (const auto &[name, pdu] : messages) {
        QFile file(directory.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(pdu) != pdu.size()) {
            out << "cannot write " << file.fileName() << ": " << file.errorString() << '\n';
            return 2;
        }
        out << "wrote " << file.fileName() << ", " << pdu.size() << " octets\n";
    }
    return 0;
}
