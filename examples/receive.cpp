/*
 * Receives a message: decodes the header of a PDU, checks it, and lists the parts of its body.
 *
 *     receive FILE
 */
#include <qvlsmilparser.h>

#include <QFile>
#include <QTextStream>

int main(int argc, char **argv)
{
    QTextStream out(stdout);
    QFile file(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    if (!file.open(QIODevice::ReadOnly)) {
        out << "cannot read the message: " << file.errorString() << '\n';
        return 2;
    }
    QByteArray pdu = file.readAll();

    MMS_UA_UAMsg header;
    auto *octets = reinterpret_cast<unsigned char *>(pdu.data());
    auto length = static_cast<unsigned int>(pdu.size());
    const unsigned char headerResult = MMS_UA_Decoder().decodeHeader(octets, length, &header);
    if (headerResult != WireResult::Read) {
        out << "header refused: " << WireResult::meaning(headerResult) << '\n';
        return 1;
    }
    if (!header.isMMSVersionCorrect() || !header.mandatoryFldsPresentInPDU())
        out << "the sender broke the rules; going on\n";
    out << "subject: " << header.getSubject() << '\n';
    if (header.getBodyLength() == 0)
        return 0;

    // The body's octets stay those of the PDU until they are parsed.
    const auto body = QByteArray::fromRawData(reinterpret_cast<const char *>(header.getBody()),
                                              header.getBodyLength());
    MMS_COMP_SMILMultipart multipart;
    multipart.setMimeType(header.getContentType());
    multipart.setSubType(header.getContentSubType());
    const int bodyResult = MMS_COMP_SMILMultipartParser::parse(body, &header, &multipart);
    for (int i = 0; i < multipart.getPartCount(); ++i) {
        const MMS_COMP_SMILMultipartBodypart *part = multipart.getBodypartByIndex(i);
        out << part->getContentLocation() << ": " << part->getMimeFormat() << ", "
            << part->getBodyDataLen() << " octets\n";
    }
    if (bodyResult != MultipartResult::Ok) {
        out << "body refused: " << MultipartResult::meaning(bodyResult) << '\n';
        return 1;
    }
    return 0;
}
