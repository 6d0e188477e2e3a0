/*
 * Messages of real phones and gateways, if their folder exists: every field of the record, the
 * checks, and every part with its octets, compared with an independent decoding.
 */
#include <qvlsmilparser.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

QJsonArray toJson(const MMS_UTIL_Entry &entry)
{
    return {entry.getName(), entry.getType(), entry.getAddress()};
}

QJsonArray toJson(const QPtrList<MMS_UTIL_Entry> &entries)
{
    QJsonArray array;
    for (const MMS_UTIL_Entry *entry : entries)
        array += toJson(*entry);
    return array;
}

QJsonObject toJson(const MMS_COMP_SMILMultipartBodypart &part)
{
    const QByteArray hash =
        QCryptographicHash::hash(part.getBodyData(), QCryptographicHash::Sha256).toHex();
    return {{"bodyLength", part.getBodyDataLen()},   {"bodySha256", QString::fromLatin1(hash)},
            {"charset", part.getCharset()},          {"contentId", part.getContentID()},
            {"contentType", part.getContentType()},  {"displayFileType", part.getDispFileType()},
            {"displayName", part.getDispFileName()}, {"location", part.getContentLocation()},
            {"refCount", part.getRefCount()},        {"subType", part.getSubType()}};
}

// A value that is null in the expectation if its field is absent.
QJsonValue ifPresent(const MMS_UA_UAMsg &msg, unsigned char code, const QJsonValue &value)
{
    return msg.fieldsPresent(headerFieldMask(code)) ? value : QJsonValue();
}

QJsonObject toJson(const MMS_UA_UAMsg &msg)
{
    QJsonArray positions;
    for (const HeaderFieldInfo &field : headerFields())
        positions += msg.getFieldPosition(field.code);
    const bool dateIsNow = qAbs(msg.getDate().secsTo(QDateTime::currentDateTime())) < 60;
    const auto deliveryTime = msg.getDeliveryTime().toSecsSinceEpoch();
    return {
        {"bcc", toJson(msg.getBccRecipients())},
        {"bodyLength", msg.getBodyLength()},
        {"cc", toJson(msg.getCcRecipients())},
        {"contentLocation", msg.getContentLocation()},
        {"contentSubType", msg.getContentSubType()},
        {"contentType", msg.getContentType()},
        {"contentTypeParams", msg.getContentTypeParams()},
        {"dateIsNow", ifPresent(msg, HeaderFieldCode::Date, dateIsNow)},
        {"datePresent", msg.fieldsPresent(headerFieldMask(HeaderFieldCode::Date))},
        {"deliveryReport", msg.getDeliveryReport()},
        {"deliveryTime", ifPresent(msg, HeaderFieldCode::DeliveryTime, deliveryTime)},
        {"expiry", ifPresent(msg, HeaderFieldCode::Expiry, msg.getExpiry())},
        {"fieldsPresent", qint64(msg.getFieldsPresent())},
        {"from", ifPresent(msg, HeaderFieldCode::From, toJson(msg.getFrom()))},
        {"mandatory", msg.mandatoryFldsPresentInPDU()},
        {"messageClass", msg.getMessageClass()},
        {"messageId", msg.getMessageId()},
        {"messageSize", ifPresent(msg, HeaderFieldCode::MessageSize, msg.getMessageSize())},
        {"messageType", msg.getMessageType()},
        {"minorVersionCorrect", msg.isMMSMinorVersionCorrect()},
        {"mmsVersion", msg.getMMSVersion()},
        {"order", msg.pduOrderCheck()},
        {"positions", positions},
        {"priority", msg.getPriority()},
        {"readReply", msg.getReadReply()},
        {"reportAllowed", ifPresent(msg, HeaderFieldCode::ReportAllowed, msg.getReportAllowed())},
        {"responseStatus", msg.getResponseStatus()},
        {"responseText", msg.getResponseText()},
        {"senderVisibility", msg.getSenderVisibility()},
        {"status", msg.getStatus()},
        {"subject", msg.getSubject()},
        {"to", toJson(msg.getToRecipients())},
        {"transactionId", msg.getTransactionId()},
        {"versionCorrect", msg.isMMSVersionCorrect()},
    };
}

QJsonObject decode(const QByteArray &pdu)
{
    MMS_UA_UAMsg msg;
    const int headerResult = MMS_UA_Decoder().decodeHeader(pdu, &msg);
    QJsonObject json = toJson(msg);
    json["headerResult"] = headerResult;
    json["length"] = pdu.size();
    if (headerResult != WireResult::Read)
        return json;
    json["bodyOffset"] = int(pdu.size() - msg.getBodyLength());

    MMS_COMP_SMILMultipart multipart;
    multipart.setMimeType(msg.getContentType());
    multipart.setSubType(msg.getContentSubType());
    const QByteArray body(reinterpret_cast<const char *>(msg.getBody()), msg.getBodyLength());
    json["parseResult"] = MMS_COMP_SMILMultipartParser::parse(body, &msg, &multipart);
    json["start"] = multipart.getStart();
    json["extType"] = multipart.getExtType();
    QJsonArray parts;
    for (int i = 0; i < multipart.getPartCount(); ++i)
        parts += toJson(*multipart.getBodypartByIndex(i));
    json["parts"] = parts;
    return json;
}

void expectEqual(const QJsonValue &actual, const QJsonValue &expected, const std::string &path);

void expectEqual(const QJsonObject &actual, const QJsonObject &expected, const std::string &path)
{
    for (auto it = expected.begin(); it != expected.end(); ++it)
        expectEqual(actual[it.key()], it.value(), path + "." + it.key().toStdString());
}

void expectEqual(const QJsonArray &actual, const QJsonArray &expected, const std::string &path)
{
    ASSERT_EQ(actual.size(), expected.size()) << path;
    for (qsizetype i = 0; i < expected.size(); ++i)
        expectEqual(actual[i], expected[i], path + "[" + std::to_string(i) + "]");
}

std::string print(const QJsonValue &value)
{
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
}

// For a name whose extension the platform chose, the expectation has only its beginning.
void expectEqual(const QJsonValue &actual, const QJsonValue &expected, const std::string &path)
{
    const QJsonValue prefix = expected["?prefix"];
    if (prefix.isString())
        EXPECT_TRUE(actual.toString().startsWith(prefix.toString())) << path << print(actual);
    else if (expected.isObject())
        expectEqual(actual.toObject(), expected.toObject(), path);
    else if (expected.isArray())
        expectEqual(actual.toArray(), expected.toArray(), path);
    else
        EXPECT_EQ(print(actual), print(expected)) << path;
}

} // namespace

TEST(Corpus, DecodesAsReadIndependently)
{
    const QString corpus = QStringLiteral(QVL_CORPUS);
    const QDir folder(corpus);
    QFile expectations(folder.filePath("expected.jsonl"));
    if (corpus.isEmpty() || !expectations.open(QIODevice::ReadOnly))
        GTEST_SKIP() << "QVL_CORPUS names no folder of real messages: '" QVL_CORPUS "'";
    int messages = 0;
    for (QByteArray line = expectations.readLine(); !line.isEmpty();
         line = expectations.readLine()) {
        QJsonObject expected = QJsonDocument::fromJson(line).object();
        const QString name = expected.take("file").toString();
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        expectEqual(decode(file.readAll()), expected, name.toStdString());
        ++messages;
    }
    EXPECT_EQ(messages, folder.entryList({"*.mms", "*.MMS"}, QDir::Files).size());
}
