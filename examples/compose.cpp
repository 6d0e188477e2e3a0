/*
 * Sends a message: composes a slide from a picture and a text, and writes the PDU.
 *
 *     compose PICTURE.jpg OUT
 */
#include <qvlsmilparser.h>

#include <QFile>
#include <QTextStream>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace {

bool addSlide(MMS_COMP_SMILData *slides, const QByteArray &picture)
{
    auto *slide = slides->appendSlide(4000u); // milliseconds
    return slide
        && slide->updateData(slides->getImgRegionId(), u"harbour.jpg"_s, SMIL_MEDIA_IMAGE,
                             u"jpeg"_s, picture, true, slides->getMultiPart())
        && slide->updateData(slides->getTextRegionId(), u"hello.txt"_s, SMIL_MEDIA_TEXT, u"plain"_s,
                             "Hello", true, slides->getMultiPart());
}

void fillHeader(MMS_UA_UAMsg *header)
{
    using namespace HeaderFieldCode;
    header->setMessageType(QvlMessageType::SendReq);
    header->setTransactionId(QUuid::createUuid().toString(QUuid::Id128));
    header->setMMSVersion(QvlMmsVersion::Version10);
    header->addToRecipient({QString(), MMS_UTIL_Entry::Plmn, u"+4915187654321"_s});
    header->setSubject(u"From the harbour"_s);
    // Fields are written when they are marked as present.
    for (unsigned char field : {MessageType, TransactionId, MmsVersion, To, Subject})
        header->addFieldsPresent(headerFieldMask(field));
}

} // namespace

int main(int argc, char **argv)
{
    QTextStream out(stdout);
    QFile picture(QString::fromLocal8Bit(argc == 3 ? argv[1] : ""));
    QvlMessage message;
    if (!picture.open(QIODevice::ReadOnly) || !addSlide(&message.slides(), picture.readAll())) {
        out << "usage: compose PICTURE.jpg OUT\n";
        return 2;
    }
    fillHeader(&message.header());
    MMS_COMP_SMILParser::updateToCorvaneRegion(&message.slides()); // the handset's own layout
    QByteArray pdu;
    QFile file(QString::fromLocal8Bit(argv[2]));
    const bool written = message.storeSlides() && message.encode(&pdu).isOk()
        && file.open(QIODevice::WriteOnly) && file.write(pdu) == pdu.size();
    out << (written ? "wrote " : "cannot write ") << file.fileName() << '\n';
    return written ? 0 : 1;
}
