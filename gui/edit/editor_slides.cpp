/*
 * Actions of Editor on whole slides.
 */
#include "edit/editor.h"

#include <algorithm>

namespace {

using Object = MMS_COMP_SMILMediaObject;
using Part = MMS_COMP_SMILMultipartBodypart;
using Slide = MMS_COMP_SMILTimingContainer;

// As slides start, for no color.
MMS_COMP_COLOR colorOf(const std::optional<QColor> &color)
{
    if (!color)
        return {SMIL_COLOR_INVALID, QString(), QColor()};
    return {SMIL_COLOR_RGB, QString(), color->toRgb()};
}

bool isSame(const MMS_COMP_COLOR &color, const std::optional<QColor> &wanted)
{
    return wanted ? color.isUsable() && color.color.rgb() == wanted->rgb() : !color.isUsable();
}

} // namespace

QString Editor::addSlide(int index)
{
    return perform(tr("Add Slide"), [&]() -> QString {
        auto added = std::make_unique<Slide>(&m_message->parts());
        const int place = std::clamp(index, 0, slideCount());
        if (!m_message->slides().insertSlide(unsigned(place), added.get()))
            return tr("There is not enough memory.");
        std::ignore = added.release(); // the presentation owns it
        return {};
    });
}

QString Editor::deleteSlide(int index)
{
    return changeSlide(index, tr("Delete Slide"), [&](Slide *) {
        const std::unique_ptr<Slide> deleted(m_message->slides().takeSlide(unsigned(index)));
        return QString();
    });
}

QString Editor::duplicateSlide(int index)
{
    const Slide *source = slide(index);
    if (source) {
        if (QString problem = whyNoMoreParts(int(source->getMediaObjectCount()));
            !problem.isEmpty())
            return problem;
    }
    return changeSlide(index, tr("Duplicate Slide"), [&](Slide *) { return duplicate(index); });
}

// Not MMS_COMP_SMILMediaObject::copyTo(), which shares the part and moves the end into the begin.
QString Editor::duplicate(int index)
{
    EditedSlide state = *m_state.slides[std::size_t(index)];
    for (EditedObject &object : state.objects)
        object.part = -1; // each gets a part of its own
    std::unique_ptr<Slide> copy = newSlide(state, &m_message->parts());
    const Slide &source = *slide(index);
    for (unsigned int i = 0; i < source.getMediaObjectCount(); ++i) {
        if (const Part *part = source.getMediaObject(i)->getData())
            bindCopy(*part, copy->getMediaObject(i));
    }
    if (!m_message->slides().insertSlide(unsigned(index) + 1, copy.get()))
        return tr("There is not enough memory.");
    std::ignore = copy.release(); // the presentation owns it
    return {};
}

void Editor::bindCopy(const Part &part, Object *object)
{
    const QString location = m_message->slides().createUniqueSrc(part.getContentLocation());
    auto added = std::make_unique<Part>(part);
    added->setContentLocation(location);
    added->setContentID(QString());
    added->setDispFileName(MMS_COMP_Util::stripePath(location));
    added->setRefCount(1);
    const QString alt = object->getAlt() == object->getSrc() ? location : object->getAlt();
    object->setSrc(location);
    object->setAlt(alt);
    object->setData(added.get());
    m_message->parts().appendBodypart(added.release());
}

QString Editor::moveSlide(int from, int to)
{
    if (!slide(to))
        return tr("There is no such slide.");
    return changeSlide(from, tr("Move Slide"), [&](Slide *) -> QString {
        Slide *moved = m_message->slides().takeSlide(unsigned(from));
        if (m_message->slides().insertSlide(unsigned(to), moved))
            return {};
        delete moved;
        return tr("There is not enough memory.");
    });
}

QString Editor::setPageColor(int index, const std::optional<QColor> &color)
{
    return changeSlide(index, tr("Change Page Color"), [&](Slide *target) {
        if (!isSame(target->getPageColor(), color))
            target->setPageColor(colorOf(color));
        return QString();
    });
}

QString Editor::setTextColor(int index, const std::optional<QColor> &color)
{
    return changeSlide(index, tr("Change Text Color"), [&](Slide *target) {
        if (!isSame(target->getTextColor(), color))
            target->setTextColor(colorOf(color));
        return QString();
    });
}

QString Editor::setTextSize(int index, const QString &size)
{
    const QStringList sizes{QString(), QStringLiteral("small"), QStringLiteral("normal"),
                            QStringLiteral("large")};
    if (!sizes.contains(size))
        return tr("There is no such text size.");
    return changeSlide(index, tr("Change Text Size"), [&](Slide *target) {
        target->setTextSize(size);
        return QString();
    });
}

QString Editor::whyNoFixedDuration(int index) const
{
    const Slide *target = slide(index);
    if (target && (target->isVideoExist() || target->isAudioExist()))
        return tr("A slide with a video or a sound lasts as long as they play.");
    return {};
}

QString Editor::setDuration(int index, std::optional<int> milliseconds)
{
    if (milliseconds) {
        if (*milliseconds < 1)
            return tr("A slide lasts longer than 0 seconds.");
        if (QString problem = whyNoFixedDuration(index); !problem.isEmpty())
            return problem;
    }
    return changeSlide(index, tr("Change Duration"), [&](Slide *target) {
        target->setDur(milliseconds.value_or(QvlDuration::Default));
        target->setSetDurManually(milliseconds.has_value());
        target->rectifyDur();
        return QString();
    });
}
