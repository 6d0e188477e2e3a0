#include "render/slide_style.h"

#include "render/text.h"

namespace {

using Object = MMS_COMP_SMILMediaObject;
using Slide = MMS_COMP_SMILTimingContainer;

bool isGiven(const MMS_COMP_COLOR &color)
{
    return color.isUsable() && color.color.isValid();
}

QColor paperOf(const MMS_COMP_SMILData &slides, const Slide &slide)
{
    const MMS_COMP_SMILRootLayout *root = slides.getRootLayout();
    if (isGiven(slide.getPageColor()))
        return slide.getPageColor().color;
    return root && isGiven(*root->getBackgroundColor()) ? root->getBackgroundColor()->color
                                                        : QColor(Qt::white);
}

// In handset pixels. Every other text means "normal".
double textHeight(const QString &size)
{
    if (size.compare(QLatin1String("small"), Qt::CaseInsensitive) == 0)
        return 10;
    return size.compare(QLatin1String("large"), Qt::CaseInsensitive) == 0 ? 16 : 12;
}

bool isEmptyText(const Object &object, Texts *texts)
{
    return object.getMediaElementType() == SMIL_MEDIA_TEXT && object.getData()
        && texts->find(*object.getData()).isEmpty();
}

} // namespace

SlideStyle slideStyle(const MMS_COMP_SMILData &slides, const Slide &slide, double unit)
{
    SlideStyle style;
    style.paper = paperOf(slides, slide);
    style.ink = qGray(style.paper.rgb()) < 128 ? Qt::white : Qt::black;
    style.textInk = isGiven(slide.getTextColor()) ? slide.getTextColor().color : style.ink;
    style.textHeight = textHeight(slide.getTextSize()) * unit;
    return style;
}

QList<const Object *> objectsOnPage(const Slide &slide, Texts *texts)
{
    QList<const Object *> objects;
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i) {
        const Object *object = slide.getMediaObject(i);
        if (object->getMediaElementType() != SMIL_MEDIA_AUDIO && !isEmptyText(*object, texts))
            objects += object;
    }
    return objects;
}
