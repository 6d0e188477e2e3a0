/*
 * Gives a message without a presentation one: a slide for every part that can be shown.
 *
 *     mixed_to_slides FILE OUT
 */
#include <qvlsmilparser.h>

#include <QFile>
#include <QTextStream>

int main(int argc, char **argv)
{
    QTextStream out(stdout);
    QFile in(QString::fromLocal8Bit(argc == 3 ? argv[1] : ""));
    QvlMessage message;
    if (!in.open(QIODevice::ReadOnly) || !message.receive(in.readAll()).isOk()
        || !message.present().isOk() || !message.areSlidesGenerated()) {
        out << "usage: mixed_to_slides FILE OUT, where FILE has parts and no presentation\n";
        return 2;
    }
    for (unsigned int i = 0; i < message.slides().getTotalSlidesNum(); ++i)
        out << "slide " << i + 1 << ": " << message.slides().getMediaObject(i, 0)->getSrc() << '\n';

    // The SMIL becomes the first part, and the message a related one.
    QByteArray pdu;
    const bool encoded = message.storeSlides() && message.encode(&pdu).isOk();
    // A part that no slide shows stays an attachment.
    for (int i = 0; i < message.parts().getAttachmentCount(); ++i)
        out << "attached: " << message.parts().getAttachment(i)->getContentLocation() << '\n';
    QFile file(QString::fromLocal8Bit(argv[2]));
    const bool written =
        encoded && file.open(QIODevice::WriteOnly) && file.write(pdu) == pdu.size();
    return written ? 0 : 1;
}
