/*
 * Gives a message that brings no presentation one: a slide for every part that can be shown.
 *
 *     mixed_to_slides FILE OUT
 */
#include <qvlsmilparser.h>

#include <QFile>
#include <QTextStream>

#include <memory>

namespace {

bool decode(QByteArray *pdu, MMS_UA_UAMsg *header, MMS_COMP_SMILMultipart *body)
{
    auto *octets = reinterpret_cast<unsigned char *>(pdu->data());
    auto length = unsigned(pdu->size());
    if (MMS_UA_Decoder().decodeHeader(octets, length, header) != WireResult::Read)
        return false;
    body->setMimeType(header->getContentType());
    body->setSubType(header->getContentSubType());
    const QByteArray parts = pdu->last(header->getBodyLength());
    return MMS_COMP_SMILMultipartParser::parse(parts, header, body) == MultipartResult::Ok;
}

QByteArray encode(MMS_UA_UAMsg *header, MMS_COMP_SMILMultipart *body)
{
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
    QTextStream out(stdout);
    QFile in(QString::fromLocal8Bit(argc == 3 ? argv[1] : ""));
    QByteArray pdu = in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    MMS_UA_UAMsg header;
    MMS_COMP_SMILMultipart body;
    if (!decode(&pdu, &header, &body) || body.getSmilPart()) {
        out << "usage: mixed_to_slides FILE OUT, where FILE has parts and no presentation\n";
        return 2;
    }
    MMS_COMP_SMILData slides(&body);
    MMS_COMP_SMILParser::updateToCorvaneRootLayout(&slides);
    MMS_COMP_SMILParser::updateToCorvaneRegion(&slides);
    // The SMIL becomes the first part, and the message a related one.
    MMS_COMP_SMILParser::makeSmilForMixed(&body, &slides, true);
    for (unsigned int i = 0; i < slides.getTotalSlidesNum(); ++i)
        out << "slide " << i + 1 << ": " << slides.getMediaObject(i, 0)->getSrc() << '\n';
    // What no slide shows stays an attachment.
    for (int i = 0; i < body.getAttachmentCount(); ++i)
        out << "attached: " << body.getAttachment(i)->getContentLocation() << '\n';

    QFile file(QString::fromLocal8Bit(argv[2]));
    return file.open(QIODevice::WriteOnly) && file.write(encode(&header, &body)) > 0 ? 0 : 1;
}
