/*
 * Edits the slides of a message: puts the first one's text above its picture, takes the second
 * one's text off, adds a slide with a colored text, and encodes the message again.
 *
 *     edit_slides FILE OUT
 */
#include <qvlsmilparser.h>

#include <QFile>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

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

} // namespace

int main(int argc, char **argv)
{
    QFile in(QString::fromLocal8Bit(argc == 3 ? argv[1] : ""));
    QvlMessage message;
    if (!in.open(QIODevice::ReadOnly) || !message.receive(in.readAll()).isOk()
        || !message.present().isOk() || !edit(&message.slides())) {
        QTextStream(stdout) << "usage: edit_slides FILE OUT, where FILE has two slides\n";
        return 2;
    }
    QByteArray pdu;
    QFile out(QString::fromLocal8Bit(argv[2]));
    const bool written = message.storeSlides() && message.encode(&pdu).isOk()
        && out.open(QIODevice::WriteOnly) && out.write(pdu) == pdu.size();
    return written ? 0 : 1;
}
