/*
 * Sends a message: makes a slide of a picture and a text, and writes the PDU.
 *
 *     compose PICTURE.jpg OUT
 */
#include <qvlsmilparser.h>

#include <QFile>
#include <QTextStream>
#include <QUuid>

#include <memory>

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

void addPresentation(MMS_COMP_SMILData *slides)
{
    MMS_COMP_SMILParser::updateToCorvaneRootLayout(slides);
    MMS_COMP_SMILParser::updateToCorvaneRegion(slides);
    auto part = std::make_unique<MMS_COMP_SMILMultipartBodypart>();
    part->setContentType(u"application"_s);
    part->setContentSubType(u"smil"_s);
    part->setContentLocation(u"slides.smil"_s);
    part->setContentID(u"<slides>"_s);
    part->setBodyData(MMS_COMP_SMILParser::convertToSMILLang(slides).toUtf8());
    slides->getMultiPart()->insertBodypart(part.release(), 0); // which owns it from here on
    slides->getMultiPart()->setStart(u"<slides>"_s);
}

QByteArray encode(MMS_COMP_SMILMultipart *body)
{
    using namespace HeaderFieldCode;
    MMS_UA_UAMsg header; // of type m-send-req
    header.setTransactionId(QUuid::createUuid().toString(QUuid::Id128));
    header.setMMSVersion(0x10);
    header.addToRecipient({QString(), MMS_UTIL_Entry::Plmn, u"+4915187654321"_s});
    header.setSubject(u"From the harbour"_s);
    for (unsigned char field : {MessageType, TransactionId, MmsVersion, To, Subject, ContentType})
        header.addFieldsPresent(headerFieldMask(field));
    // The body comes first, because it settles the header's content type.
    const QByteArray octets = MMS_COMP_SMILMultipartParser::assembleBody(body, &header);
    unsigned char *begin = nullptr;
    int length = 0;
    const auto result = MMS_UA_Encoder().encodeHeader(&header, &begin, &length);
    const std::unique_ptr<unsigned char[]> owner(begin);
    const bool encoded = result == WireResult::Written && !octets.isEmpty();
    return encoded ? QByteArray(reinterpret_cast<char *>(begin), length) + octets : QByteArray();
}

} // namespace

int main(int argc, char **argv)
{
    QTextStream out(stdout);
    QFile picture(QString::fromLocal8Bit(argc == 3 ? argv[1] : ""));
    MMS_COMP_SMILMultipart body;
    MMS_COMP_SMILData slides(&body);
    if (!picture.open(QIODevice::ReadOnly) || !addSlide(&slides, picture.readAll())) {
        out << "usage: compose PICTURE.jpg OUT\n";
        return 2;
    }
    addPresentation(&slides);
    QFile file(QString::fromLocal8Bit(argv[2]));
    const bool written = file.open(QIODevice::WriteOnly) && file.write(encode(&body)) > 0;
    out << (written ? "wrote " : "cannot write ") << file.fileName() << '\n';
    return written ? 0 : 1;
}
