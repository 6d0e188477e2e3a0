/*
 * Edits the slides of a message: puts the first one's text above its picture, takes the second
 * one's text off, adds a slide with a coloured text, and encodes the message again.
 *
 *     edit_slides FILE OUT
 */
#include <qvlsmilparser.h>

#include <QFile>
#include <QTextStream>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

bool decode(QByteArray *pdu, MMS_UA_UAMsg *header, MMS_COMP_SMILData *slides)
{
    auto *octets = reinterpret_cast<unsigned char *>(pdu->data());
    auto length = unsigned(pdu->size());
    if (MMS_UA_Decoder().decodeHeader(octets, length, header) != WireResult::Read)
        return false;
    MMS_COMP_SMILMultipart *body = slides->getMultiPart();
    body->setMimeType(header->getContentType());
    body->setSubType(header->getContentSubType());
    const QByteArray parts = pdu->last(header->getBodyLength());
    if (MMS_COMP_SMILMultipartParser::parse(parts, header, body) != MultipartResult::Ok)
        return false;
    const auto *smil = body->getSmilPart();
    return smil && MMS_COMP_SMILParser().parse(smil->getBodyData(), body, slides) == SmilResult::Ok;
}

bool edit(MMS_COMP_SMILData *slides)
{
    if (slides->getTotalSlidesNum() < 2)
        return false;
    if (auto *text = slides->getSlide(0)->getTextElem(true)) // taken off the slide
        slides->getSlide(0)->insert(0, text); // the order tells above from below
    slides->getSlide(1)->removeTextElem(); // and its part, which nothing else shows
    MMS_COMP_COLOR navy;
    MMS_COMP_SMILParser::parseColor(u"navy"_s, navy);
    auto *added = slides->appendSlide(3000u);
    added->setTextColor(navy);
    return added->updateData(slides->getTextRegionId(), slides->createUniqueSrc(u"added.txt"_s),
                             SMIL_MEDIA_TEXT, u"plain"_s, "Added", true, slides->getMultiPart());
}

QByteArray encode(MMS_UA_UAMsg *header, MMS_COMP_SMILData *slides)
{
    MMS_COMP_SMILMultipart *body = slides->getMultiPart();
    const QString smil = MMS_COMP_SMILParser::convertToSMILLang(slides);
    body->getSmilPart()->setBodyData(smil.toUtf8());
    const QByteArray parts = MMS_COMP_SMILMultipartParser::assembleBody(body, header);
    unsigned char *octets = nullptr;
    int length = 0;
    const auto result = MMS_UA_Encoder().encodeHeader(header, &octets, &length);
    const std::unique_ptr<unsigned char[]> owner(octets);
    const bool encoded = result == WireResult::Written && !parts.isEmpty();
    return encoded ? QByteArray(reinterpret_cast<char *>(octets), length) + parts : QByteArray();
}

} // namespace

int main(int argc, char **argv)
{
    QFile in(QString::fromLocal8Bit(argc == 3 ? argv[1] : ""));
    QByteArray pdu = in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    MMS_UA_UAMsg header;
    MMS_COMP_SMILMultipart body;
    MMS_COMP_SMILData slides(&body);
    if (!decode(&pdu, &header, &slides) || !edit(&slides)) {
        QTextStream(stdout) << "usage: edit_slides FILE OUT, where FILE has two slides\n";
        return 2;
    }
    QFile out(QString::fromLocal8Bit(argv[2]));
    return out.open(QIODevice::WriteOnly) && out.write(encode(&header, &slides)) > 0 ? 0 : 1;
}
