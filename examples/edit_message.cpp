/*
 * Edits a message: decodes a PDU, renames its last part, adds a text, encodes it, decodes the
 * result again and compares the two.
 *
 *     edit_message FILE OUT
 */
#include <qvlsmilparser.h>

#include <QFile>
#include <QTextStream>

#include <memory>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

struct Message
{
    QByteArray pdu;
    MMS_UA_UAMsg header;
    MMS_COMP_SMILMultipart body;
};

bool decode(const QByteArray &pdu, Message *message)
{
    message->pdu = pdu;
    auto *octets = reinterpret_cast<unsigned char *>(message->pdu.data());
    auto length = static_cast<unsigned int>(message->pdu.size());
    MMS_UA_UAMsg &header = message->header;
    if (MMS_UA_Decoder().decodeHeader(octets, length, &header) != WireResult::Read)
        return false;
    message->body.setMimeType(header.getContentType());
    message->body.setSubType(header.getContentSubType());
    const auto body = QByteArray::fromRawData(reinterpret_cast<const char *>(header.getBody()),
                                              header.getBodyLength());
    return MMS_COMP_SMILMultipartParser::parse(body, &header, &message->body)
        == MultipartResult::Ok;
}

QByteArray encode(Message *message)
{
    const QByteArray body =
        MMS_COMP_SMILMultipartParser::assembleBody(&message->body, &message->header);
    unsigned char *octets = nullptr;
    int length = 0;
    const auto result = MMS_UA_Encoder().encodeHeader(&message->header, &octets, &length);
    const std::unique_ptr<unsigned char[]> owner(octets);
    return result == WireResult::Written && !body.isEmpty()
        ? QByteArray(reinterpret_cast<const char *>(octets), length) + body
        : QByteArray();
}

void edit(MMS_COMP_SMILMultipart *body)
{
    Part *last = body->getBodypartByIndex(body->getPartCount() - 1);
    const QString ext = MMS_COMP_Util::getExtName(last->getContentLocation());
    last->setContentLocation(body->createUniqueLocation(QLatin1String("renamed.") + ext));
    auto note = std::make_unique<Part>();
    note->setContentType(QStringLiteral("text"));
    note->setContentSubType(QStringLiteral("plain"));
    note->setContentLocation(body->createUniqueAttchmentLocation(QStringLiteral("txt")));
    note->setBodyData("Added by edit_message.");
    body->appendBodypart(note.release());
}

bool sameParts(const MMS_COMP_SMILMultipart &a, const MMS_COMP_SMILMultipart &b)
{
    bool same = a.getPartCount() == b.getPartCount();
    for (int i = 0; same && i < a.getPartCount(); ++i) {
        const Part *x = a.getBodypartByIndex(i);
        const Part *y = b.getBodypartByIndex(i);
        same = x->getMimeFormat() == y->getMimeFormat()
            && x->getContentLocation() == y->getContentLocation()
            && x->getContentID() == y->getContentID() && x->getBodyData() == y->getBodyData();
    }
    return same;
}

} // namespace

int main(int argc, char **argv)
{
    QTextStream out(stdout);
    QFile in(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    Message message;
    if (argc != 3 || !in.open(QIODevice::ReadOnly) || !decode(in.readAll(), &message)
        || message.body.getPartCount() == 0) {
        out << "usage: edit_message FILE OUT, where FILE is a message with parts\n";
        return 2;
    }
    edit(&message.body);
    const QByteArray pdu = encode(&message);
    QFile file(QString::fromLocal8Bit(argv[2]));
    if (pdu.isEmpty() || !file.open(QIODevice::WriteOnly) || file.write(pdu) != pdu.size()) {
        out << "cannot write " << file.fileName() << '\n';
        return 2;
    }
    Message again;
    const bool same = decode(pdu, &again) && sameParts(message.body, again.body)
        && message.header.getSubject() == again.header.getSubject()
        && message.header.getContentTypeParams().contains(again.body.getStart());
    out << (same ? "decoded again: subject, start and all " : "DIFFERENT after decoding again: ")
        << again.body.getPartCount()
        << " parts (types, locations, Content-IDs, octets) compared with what was encoded\n";
    return same ? 0 : 1;
}
