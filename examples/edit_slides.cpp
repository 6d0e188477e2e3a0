/*
 * Edits the slides of a message: puts a text above its picture, removes another, adds a slide with
 * a picture and a coloured text, writes the SMIL and encodes the message again.
 *
 *     edit_slides FILE PICTURE OUT
 */
#include <qvlsmilparser.h>

#include <QFile>
#include <QTextStream>

#include <memory>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;
using Slide = MMS_COMP_SMILTimingContainer;

struct Message
{
    QByteArray pdu;
    MMS_UA_UAMsg header;
    MMS_COMP_SMILMultipart body;
    MMS_COMP_SMILData slides{&body};
};

QByteArray readFile(const char *name)
{
    QFile file(QString::fromLocal8Bit(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

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
    if (MMS_COMP_SMILMultipartParser::parse(body, &header, &message->body) != MultipartResult::Ok)
        return false;
    const Part *smil = message->body.getSmilPart();
    return smil
        && MMS_COMP_SMILParser().parse(smil->getBodyData(), &message->body, &message->slides)
        == SmilResult::Ok;
}

void putTextAbovePicture(Slide *slide)
{
    if (MMS_COMP_SMILMediaObject *text = slide->getTextElem(true))
        slide->insert(0, text); // the order is what tells above from below
}

bool addSlide(MMS_COMP_SMILData *slides, const QByteArray &picture, const QByteArray &text)
{
    MMS_COMP_SMILMultipart *body = slides->getMultiPart();
    Slide *slide = slides->appendSlide(3000u);
    if (!slide || !slide->canBeInserted(QStringLiteral("img")))
        return false;
    const QString pictureName = slides->createUniqueSrc(QStringLiteral("harbour.jpg"));
    const QString textName = slides->createUniqueSrc(QStringLiteral("added.txt"));
    MMS_COMP_COLOR navy;
    MMS_COMP_SMILParser::parseColor(QStringLiteral("navy"), navy);
    slide->setTextColor(navy);
    return slide->updateData(slides->getImgRegionId(), pictureName, SMIL_MEDIA_IMAGE,
                             QStringLiteral("jpeg"), picture, true, body)
        && slide->updateData(slides->getTextRegionId(), textName, SMIL_MEDIA_TEXT,
                             QStringLiteral("plain"), text, true, body);
}

bool edit(MMS_COMP_SMILData *slides, const QByteArray &picture)
{
    if (slides->getTotalSlidesNum() < 2)
        return false;
    putTextAbovePicture(slides->getSlide(0));
    slides->getSlide(1)->removeTextElem();
    return addSlide(slides, picture, "Added by edit_slides");
}

QByteArray encode(Message *message)
{
    message->slides.removeEmptyTextBeforeSend();
    const QString smil = MMS_COMP_SMILParser::convertToSMILLang(&message->slides);
    message->body.getSmilPart()->setBodyData(smil.toUtf8());
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

} // namespace

int main(int argc, char **argv)
{
    QTextStream out(stdout);
    Message message;
    const QByteArray picture = argc == 4 ? readFile(argv[2]) : QByteArray();
    if (picture.isEmpty() || !decode(readFile(argv[1]), &message)
        || !edit(&message.slides, picture)) {
        out << "usage: edit_slides FILE PICTURE OUT, where FILE is a message with two slides\n";
        return 2;
    }
    const QByteArray pdu = encode(&message);
    QFile file(QString::fromLocal8Bit(argv[3]));
    Message again;
    if (!decode(pdu, &again) || !file.open(QIODevice::WriteOnly) || file.write(pdu) != pdu.size()) {
        out << "cannot write a message that reads back to " << file.fileName() << '\n';
        return 1;
    }
    out << "wrote " << file.fileName() << " with " << again.slides.getTotalSlidesNum()
        << " slides and " << again.body.getPartCount() << " parts\n";
    return 0;
}
