#include "presentation/presentation.h"

#include "base/no_memory.h"
#include "base/tables.h"
#include "document/element.h"
#include "multipart/part_index.h"
#include "multipart/part_names.h"
#include "multipart/reference.h"
#include "presentation/media_kinds.h"
#include "presentation/smil_result.h"
#include "presentation/smil_values.h"

#include <QDomElement>
#include <QScopeGuard>

#include <algorithm>
#include <memory>
#include <tuple>

using Object = MMS_COMP_SMILMediaObject;
using Part = MMS_COMP_SMILMultipartBodypart;
using Slide = MMS_COMP_SMILTimingContainer;

namespace {

bool isWhite(const QColor &color)
{
    return color.red() == 255 && color.green() == 255 && color.blue() == 255;
}

// An empty text is worth sending only if no other object has the page color.
bool canLoseEmptyText(const Slide &slide)
{
    const MMS_COMP_COLOR color = slide.getPageColor();
    const bool isColored = color.isUsable() && !isWhite(color.color);
    return !isColored || slide.isImageExist() || slide.isAudioExist();
}

// Deletes an unfinished slide but not its content, which belongs to others.
struct Discarder
{
    void operator()(Slide *slide) const
    {
        for (unsigned int i = 0; i < slide->getMediaObjectCount(); ++i)
            slide->getMediaObject(i)->setData(nullptr);
        delete slide;
    }
};

std::unique_ptr<Slide> newSlideOf(MMS_COMP_SMILMultipart *multipart, int dur)
{
    auto slide = std::make_unique<Slide>(multipart);
    slide->setDur(dur);
    return slide;
}

} // namespace

MMS_COMP_SMILData::MMS_COMP_SMILData(MMS_COMP_SMILMultipart *multipart) : m_multipart(multipart)
{
    m_metas.setAutoDelete(true);
    m_slides.setAutoDelete(true);
}

MMS_COMP_SMILData::MMS_COMP_SMILData(const MMS_COMP_SMILData &source,
                                     MMS_COMP_SMILMultipart *multipart)
    : MMS_COMP_SMILData(multipart)
{
    std::ignore = source.copyTo(this, multipart); // everything copied before a failure stays
}

MMS_COMP_SMILData::~MMS_COMP_SMILData()
{
    clean();
}

void MMS_COMP_SMILData::clean()
{
    m_slides.clear();
    m_metas.clear();
}

MMS_COMP_SMILRootLayout *MMS_COMP_SMILData::setRootLayout(int width, int height)
{
    return m_layout.setRootLayout(width, height);
}

int MMS_COMP_SMILData::setRootLayout(QDomElement *element)
{
    return m_layout.setRootLayout(element);
}

MMS_COMP_SMILRootLayout *MMS_COMP_SMILData::setRootLayout(const QString &width,
                                                          const QString &height, const QString &)
{
    return unlessOutOfMemory(nullptr, [&] {
        return m_layout.setRootLayout(SmilValues::pixelsOf(width), SmilValues::pixelsOf(height));
    });
}

void MMS_COMP_SMILData::appendRegion(MMS_COMP_SMILRegion *region)
{
    m_layout.appendRegion(region);
}

MMS_COMP_SMILRegion *MMS_COMP_SMILData::appendRegion(float left, float top, float width,
                                                     float height, const QString &fit,
                                                     const QString &id)
{
    return m_layout.appendRegion(left, top, width, height, fit, id);
}

MMS_COMP_SMILRegion *MMS_COMP_SMILData::appendRegion(const QString &left, const QString &top,
                                                     const QString &width, const QString &height,
                                                     const QString &fit, const QString &id)
{
    return unlessOutOfMemory(nullptr, [&] {
        for (const QString &text : {left, top, width, height}) {
            if (text.contains(u'%'))
                m_measureUnit = SMIL_UNIT_PERCENT;
        }
        return appendRegion(SmilValues::regionNumber(left, 0), SmilValues::regionNumber(top, 0),
                            SmilValues::regionNumber(width, -1),
                            SmilValues::regionNumber(height, -1), fit, id);
    });
}

MMS_COMP_SMILMeta *MMS_COMP_SMILData::getMeta(unsigned int index) const
{
    return index < getMetaCount() ? m_metas.at(int(index)) : nullptr;
}

bool MMS_COMP_SMILData::appendMeta(const QString &name, const QString &content)
{
    return unlessOutOfMemory(false, [&]() -> bool {
        auto *meta = new MMS_COMP_SMILMeta;
        meta->setName(name);
        meta->setContent(content);
        m_metas.append(meta);
        return true;
    });
}

Slide *MMS_COMP_SMILData::getSlide(unsigned int index) const
{
    return index < getTotalSlidesNum() ? m_slides.at(int(index)) : nullptr;
}

void MMS_COMP_SMILData::appendSlide(Slide *slide)
{
    asFarAsMemoryGoes([&] {
        if (slide)
            m_slides.append(slide);
    });
}

Slide *MMS_COMP_SMILData::appendSlide(unsigned int dur)
{
    return unlessOutOfMemory(nullptr, [&]() -> Slide * {
        Slide *slide = newSlideOf(getMultiPart(), int(dur)).release();
        appendSlide(slide);
        return slide;
    });
}

bool MMS_COMP_SMILData::insertSlide(unsigned int index, Slide *slide)
{
    if (!slide || index > getTotalSlidesNum())
        return false;
    return unlessOutOfMemory(false, [&] {
        const auto ownAgain = qScopeGuard([this] { m_slides.setAutoDelete(true); });
        m_slides.setAutoDelete(false); // without memory the caller keeps the slide
        return m_slides.insert(int(index), slide);
    });
}

Slide *MMS_COMP_SMILData::takeSlide(unsigned int index)
{
    return index < getTotalSlidesNum() ? m_slides.take(int(index)) : nullptr;
}

unsigned int MMS_COMP_SMILData::getMediaObjectCount(unsigned int slide) const
{
    const Slide *container = getSlide(slide);
    return container ? container->getMediaObjectCount() : 0;
}

Object *MMS_COMP_SMILData::getMediaObject(unsigned int slide, unsigned int index) const
{
    const Slide *container = getSlide(slide);
    return container ? container->getMediaObject(index) : nullptr;
}

bool MMS_COMP_SMILData::insertMediaObject(unsigned int slide, unsigned int index, Object *object)
{
    Slide *container = getSlide(slide);
    return container && container->insert(index, object);
}

bool MMS_COMP_SMILData::deleteMediaObject(unsigned int slide, unsigned int index)
{
    Slide *container = getSlide(slide);
    return container && container->remove(index);
}

int MMS_COMP_SMILData::appendElementObject(QDomElement *element, MMS_COMP_SMILMultipart *multipart,
                                           bool newSlide, int dur, Object **created)
{
    return unlessOutOfMemory(SmilResult::OutOfMemory, [&]() -> int {
        return element
            ? appendElement(SmilDocument(*element).root(), multipart, newSlide, dur, created)
            : SmilResult::NotAMedia;
    });
}

int MMS_COMP_SMILData::appendElement(const SmilElement &element, MMS_COMP_SMILMultipart *multipart,
                                     bool newSlide, int dur, Object **created)
{
    const QString tag = element.tag().trimmed().toLower();
    if (!rowOf(qvlMediaKinds, tag, &QvlMediaKind::tag))
        return SmilResult::NotAMedia;

    Slide *slide = newSlide ? nullptr : m_slides.at(m_slides.count() - 1);
    std::unique_ptr<Slide> added;
    if (!slide || !slide->canBeInserted(tag)) {
        added = newSlideOf(multipart, dur);
        slide = added.get();
    }
    auto object = std::make_unique<Object>(multipart);
    if (const int result = object->readElement(element, multipart))
        return result;
    if (created)
        *created = object.get();
    slide->appendObject(object.release());
    appendSlide(added.release());
    return SmilResult::Ok;
}

QString MMS_COMP_SMILData::createUniqueSrc(const QString &name) const
{
    return unlessOutOfMemory(QString(), [&]() -> QString {
        PartNames names;
        if (const MMS_COMP_SMILMultipart *multipart = getMultiPart())
            names.add(*multipart);
        for (const Slide *slide : m_slides) {
            for (unsigned int i = 0; i < slide->getMediaObjectCount(); ++i) {
                const Object *object = slide->getMediaObject(i);
                names.addExact(object->getSrc());
                if (const Part *part = object->getData())
                    names.add(*part);
            }
        }
        return names.uniqueSource(name);
    });
}

bool MMS_COMP_SMILData::isElemNameExist(const QString &name) const
{
    if (!PartNames::isUsable(name))
        return true;
    const Reference::Matcher reference(name);
    for (const Slide *slide : m_slides) {
        for (unsigned int i = 0; i < slide->getMediaObjectCount(); ++i) {
            const Object *object = slide->getMediaObject(i);
            const Part *part = object->getData();
            if (object->getSrc() == name || (part && reference.matches(*part)))
                return true;
        }
    }
    const MMS_COMP_SMILMultipart *multipart = getMultiPart();
    return multipart && multipart->isPartExist(name);
}

void MMS_COMP_SMILData::deleteObjectByDataLocation(const QString &location)
{
    for (Slide *slide : m_slides) {
        for (unsigned int i = 0; i < slide->getMediaObjectCount(); ++i) {
            const Part *part = slide->getMediaObject(i)->getData();
            if (!part)
                continue;
            if (part->getContentLocation() == location
                || MMS_COMP_SMILMultipart::isCidEqual(location, part->getContentID())) {
                slide->remove(i);
                return;
            }
        }
    }
}

void MMS_COMP_SMILData::updateParamToSlide()
{
    for (unsigned int i = 0; i < getTotalSlidesNum(); ++i)
        updateParamToSlideAt(i);
}

void MMS_COMP_SMILData::updateParamToSlideAt(unsigned int index)
{
    asFarAsMemoryGoes([&] {
        Slide *slide = getSlide(index);
        if (!slide)
            return;
        if (const MMS_COMP_SMILRootLayout *rootLayout = getRootLayout())
            slide->setPageColor(*rootLayout->getBackgroundColor());
        slide->updatePageColorToElem();
        slide->updateTextColorToElem();
        std::ignore = slide->updateTextSizeToElem(); // fails only with an exception
    });
}

void MMS_COMP_SMILData::updateParamFromSlide()
{
    asFarAsMemoryGoes([&] {
        for (Slide *slide : m_slides) {
            slide->updatePageColorFromElem();
            slide->updateTextColorFromElem();
            slide->updateTextSizeFromElem();
        }
    });
}

void MMS_COMP_SMILData::removeEmptyTextBeforeSend()
{
    asFarAsMemoryGoes([&] {
        for (Slide *slide : m_slides) {
            const Object *text = slide->getTextElem(false);
            const Part *part = text ? text->getData() : nullptr;
            if (part && part->getBodyDataLen() == 0 && canLoseEmptyText(*slide))
                slide->removeTextElem();
        }
    });
}

bool MMS_COMP_SMILData::isEmpty() const
{
    return std::ranges::all_of(m_slides, [](const Slide *slide) { return slide->isBlank(); });
}

bool MMS_COMP_SMILData::setMultiPart(MMS_COMP_SMILMultipart *multipart)
{
    m_multipart = multipart;
    for (Slide *slide : m_slides)
        slide->setMultiPart(multipart);
    return true;
}

bool MMS_COMP_SMILData::copyTo(MMS_COMP_SMILData *target, MMS_COMP_SMILMultipart *multipart) const
{
    return unlessOutOfMemory(false, [&]() -> bool {
        if (!target)
            return false;
        target->setMultiPart(multipart);
        target->setLayoutMeasureUnit(m_measureUnit);
        // When memory runs out the operations below throw, and this one returns false.
        if (const MMS_COMP_SMILRootLayout *rootLayout = getRootLayout())
            std::ignore = target->setRootLayout(rootLayout->getWidth(), rootLayout->getHeight());
        target->m_layout.addRegionsOf(m_layout);
        for (int i = 0, count = m_metas.count(); i < count; ++i)
            std::ignore = target->appendMeta(m_metas.at(i)->getName(), m_metas.at(i)->getContent());
        const PartIndexScope index(multipart);
        // Count first: a copy onto itself adds slides while it walks them.
        for (int i = 0, count = m_slides.count(); i < count; ++i) {
            std::unique_ptr<Slide, Discarder> slide(
                newSlideOf(multipart, Slide::DefaultDuration).release());
            if (!m_slides.at(i)->copyTo(slide.get(), multipart))
                return false;
            target->appendSlide(slide.release());
        }
        return true;
    });
}
