/*
 * Receives a message: reads a PDU, checks its header, and lists the parts of its body.
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

    QvlMessage message;
    const QvlMessage::Result result = message.receive(file.readAll());
    if (!result.isOk())
        out << result.layerName() << " refused: " << result.meaning() << '\n';
    if (!result.isOk() && result.layer == QvlMessage::Result::Header)
        return 1;

    const MMS_UA_UAMsg &header = message.header();
    if (!header.isMMSVersionCorrect() || !header.mandatoryFldsPresentInPDU())
        out << "the sender broke the rules; going on\n";
    out << "subject: " << header.getSubject() << '\n';
    for (int i = 0; i < message.parts().getPartCount(); ++i) {
        const MMS_COMP_SMILMultipartBodypart *part = message.parts().getBodypartByIndex(i);
        out << part->getContentLocation() << ": " << part->getMimeFormat() << ", "
            << part->getBodyDataLen() << " octets\n";
    }
    return result.isOk() ? 0 : 1;
}
