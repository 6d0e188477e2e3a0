#include "message/outgoing.h"

#include "message/message.h"

#include <memory>

namespace {

using Slide = MMS_COMP_SMILTimingContainer;

// The writer replaces the colors of slides by that of the root layout. As that is none, every
// object loses its first param with the page color. So this function adds a second one, after the
// other params: the reader puts it there too.
void keepPageColor(Slide *slide)
{
    if (!slide->getPageColor().isUsable())
        return;
    const QString param = QStringLiteral("background-color");
    const QString color = slide->getPageColor().color.name();
    slide->updateTextColorToElem();
    slide->updateTextSizeToElem();
    for (unsigned int i = 0; i < slide->getMediaObjectCount(); ++i) {
        slide->getMediaObject(i)->updateParamByName(param, color);
        slide->getMediaObject(i)->appendParamElem(param, color, SMIL_PARAM_VALUE_DATA, QString());
    }
}

// The writer's text for a root layout with a color cannot be read again. Page colors of the slides
// look the same, and the writer would replace them by the root layout's color anyway.
void moveRootColorToSlides(MMS_COMP_SMILData *slides)
{
    MMS_COMP_SMILRootLayout *root = slides->getRootLayout();
    if (!root || !root->getBackgroundColor()->isUsable())
        return;
    for (unsigned int i = 0; i < slides->getTotalSlidesNum(); ++i)
        slides->getSlide(i)->setPageColor(*root->getBackgroundColor());
    *root->getBackgroundColor() = MMS_COMP_COLOR();
}

QByteArray encodedHeader(MMS_UA_UAMsg *header)
{
    unsigned char *octets = nullptr;
    int length = 0;
    const auto result = MMS_UA_Encoder().encodeHeader(header, &octets, &length);
    const std::unique_ptr<unsigned char[]> owner(octets);
    return result == WireResult::Written
        ? QByteArray(reinterpret_cast<const char *>(octets), length)
        : QByteArray();
}

} // namespace

QByteArray Outgoing::smilOf(MMS_COMP_SMILData *slides)
{
    moveRootColorToSlides(slides);
    for (unsigned int i = 0; i < slides->getTotalSlidesNum(); ++i)
        keepPageColor(slides->getSlide(i));
    return MMS_COMP_SMILParser::convertToSMILLang(slides).toUtf8();
}

QByteArray Outgoing::pduOf(Message *message)
{
    const QByteArray body =
        MMS_COMP_SMILMultipartParser::assembleBody(&message->body, &message->header);
    return encodedHeader(&message->header) + body; // encoding the body has set the content type
}
