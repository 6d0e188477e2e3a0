/*
 * Ownership when presentation and message are changed and destroyed in any order. Every test checks
 * that a pointer is set before its target is deleted, and null after that. AddressSanitizer also
 * detects use after deletion, double deletion and leaks.
 */
#include "base/durations.h"
#include "presentation/presentation.h"

#include <gtest/gtest.h>

#include "multipart/multipart_result.h"
#include "presentation/smil_result.h"
#include "presentation/stream_records.h"
#include "support/fake_player_engine.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <tuple>

namespace {

using PartPointer = QvlWeakPointer<Part>;

// An object of a message's part, as the reader creates it.
std::unique_ptr<Object> objectOf(Multipart &multipart, const QString &src)
{
    auto object = std::make_unique<Object>(nullptr);
    EXPECT_EQ(object->setObjectElem(Element("img", {{"src", src}}), &multipart), SmilResult::Ok);
    EXPECT_TRUE(object->getData());
    return object;
}

std::unique_ptr<Object> boundTo(Part *part, Multipart *multipart)
{
    return std::unique_ptr<Object>(
        newObject(SMIL_MEDIA_IMAGE, part->getContentLocation(), multipart, part));
}

// A part that an object read from a stream and that only the object uses.
std::unique_ptr<Object> objectFromStream(Multipart *multipart = nullptr)
{
    auto object = std::make_unique<Object>(multipart);
    EXPECT_EQ(readFrom(objectFields().join(), object.get()), QDataStream::Ok);
    EXPECT_TRUE(object->getData());
    return object;
}

} // namespace

TEST(ClearObject, ReleasesOneUseThroughTheMessage)
{
    Multipart multipart;
    appendParts(multipart, {{.location = "a"}, {.location = "b"}});
    const auto first = objectOf(multipart, "a");
    const auto second = objectOf(multipart, "a");
    const PartPointer part(first->getData());
    first->appendParamElem("n", "v", SMIL_PARAM_VALUE_DATA, "");
    first->clear();
    EXPECT_FALSE(first->getData());
    EXPECT_EQ(first->getParamCount(), 1);
    ASSERT_TRUE(part.get());
    EXPECT_EQ(part.get()->getRefCount(), 1);
    EXPECT_EQ(second->getData(), part.get());
    second->clear();
    EXPECT_FALSE(part.get());
    EXPECT_EQ(locationsOf(multipart), QStringList("b"));
}

TEST(ClearObject, TwiceReleasesOnce)
{
    Multipart multipart;
    appendParts(multipart, {{.location = "a", .display = 0}});
    const auto object = objectOf(multipart, "a"); // the second use
    object->clear();
    object->clear();
    EXPECT_EQ(multipart.getBodypartByIndex(0)->getRefCount(), 1);
}

TEST(ClearObject, WithoutPartDoesNothing)
{
    Multipart multipart;
    appendParts(multipart, {{.location = ""}, {.location = "a"}});
    Object object(&multipart);
    object.setSrc("a");
    object.clear();
    EXPECT_EQ(multipart.getPartCount(), 2);
}

TEST(ClearObject, ReleasesByTheLocationOfThePartAndNotByTheSrc)
{
    Multipart multipart;
    appendParts(multipart, {{.location = "a", .id = "<i>"}, {.location = "cid:i"}});
    const auto object = objectOf(multipart, "cid:I");
    ASSERT_EQ(object->getData(), multipart.getBodypartByIndex(0));
    object->clear();
    EXPECT_EQ(locationsOf(multipart), QStringList("cid:i"));
}

TEST(ClearObject, PartWithoutLocationStaysInTheMessage)
{
    Multipart multipart;
    Part *part = addPart(multipart, {.id = "<i>"});
    const auto object = objectOf(multipart, "cid:i");
    ASSERT_EQ(object->getData(), part);
    object->clear();
    EXPECT_FALSE(object->getData());
    EXPECT_EQ(multipart.getBodypartByIndex(0), part);
}

TEST(ClearObject, OnlyUnbindsAPartOfAnotherMessage)
{
    Multipart own;
    Multipart other;
    appendParts(own, {{.location = "a"}});
    Part *part = addPart(other, {.location = "a"});
    for (Multipart *message : {&own, static_cast<Multipart *>(nullptr)}) {
        const auto object = boundTo(part, message);
        object->clear();
        EXPECT_FALSE(object->getData());
        EXPECT_EQ(other.getBodypartByIndex(0), part);
        EXPECT_EQ(part->getRefCount(), 1);
        EXPECT_EQ(own.getPartCount(), 1);
    }
}

TEST(ClearObject, DeletesAPartThatNoMessageOwns)
{
    Multipart multipart;
    appendParts(multipart, {{.location = "l"}});
    for (Multipart *message : {&multipart, static_cast<Multipart *>(nullptr)}) {
        const auto object = objectFromStream(message);
        ASSERT_EQ(object->getData()->getContentLocation(), "l");
        const PartPointer part(object->getData());
        object->clear();
        EXPECT_FALSE(part.get());
        EXPECT_FALSE(object->getData());
        EXPECT_EQ(multipart.getPartCount(), 1);
    }
}

TEST(ClearObject, OnlyUnbindsAPartOfTheApplicationThatNoMessageHolds)
{
    Multipart multipart;
    appendParts(multipart, {{.location = "a"}});
    for (const char *location : {"a", "b", ""}) {
        SCOPED_TRACE(location);
        Part part = partWith({.location = location});
        const auto object = boundTo(&part, &multipart);
        object->clear();
        EXPECT_FALSE(object->getData());
        EXPECT_EQ(part.getContentLocation(), location);
        EXPECT_EQ(locationsOf(multipart), QStringList("a"));
    }
}

TEST(ClearObject, OnlyUnbindsAPartOfTheApplicationWhenItsMessageIsGone)
{
    auto multipart = std::make_unique<Multipart>();
    Part part = partWith({.location = "a"});
    const auto object = boundTo(&part, multipart.get());
    multipart.reset();
    object->clear();
    EXPECT_FALSE(object->getData());
    EXPECT_EQ(part.getContentLocation(), "a");
}

TEST(ClearObject, OnlyUnbindsAPartOfTheApplicationThatReplacedItsOwn)
{
    Multipart multipart;
    const auto object = objectFromStream(&multipart);
    const std::unique_ptr<Part> first(object->getData());
    Part part = partWith({.location = "a"});
    object->setData(&part);
    object->clear();
    EXPECT_FALSE(object->getData());
    EXPECT_EQ(first->getContentLocation(), "l");
    EXPECT_EQ(part.getContentLocation(), "a");
}

TEST(ClearObject, DeletesAnApplicationsPartWithoutMessage)
{
    const auto object = boundTo(new Part(partWith({.location = "a"})), nullptr);
    const PartPointer part(object->getData());
    object->clear();
    EXPECT_FALSE(part.get());
    EXPECT_FALSE(object->getData());
}

TEST(ClearObject, DeletesItsOwnPartEvenIfAMessageIsSetLater)
{
    Multipart multipart;
    const auto read = objectFromStream();
    Object filled(nullptr);
    EXPECT_TRUE(filled.setData("r", "s", SMIL_MEDIA_TEXT, "plain", "octets", nullptr));
    for (Object *object : {read.get(), &filled}) {
        const PartPointer part(object->getData());
        ASSERT_TRUE(part.get());
        object->setData(part.get()); // binding it again changes nothing
        object->setMultiPart(&multipart);
        object->clear();
        EXPECT_FALSE(part.get());
    }
}

TEST(ClearObject, LeavesItsOwnPartToTheMessageThatTookIt)
{
    Multipart own;
    Multipart other;
    Object object(nullptr);
    EXPECT_TRUE(object.setData("r", "s", SMIL_MEDIA_TEXT, "plain", "octets", nullptr));
    Part *part = object.getData();
    other.appendBodypart(part);
    object.setMultiPart(&own);
    object.clear();
    EXPECT_FALSE(object.getData());
    EXPECT_EQ(other.getBodypartByIndex(0), part);
}

TEST(ClearObject, DeletesThePartOfContentWithoutMessage)
{
    Object object(nullptr);
    EXPECT_TRUE(object.setData("r", "s", SMIL_MEDIA_TEXT, "plain", "octets", nullptr));
    const PartPointer part(object.getData());
    ASSERT_TRUE(part.get());
    EXPECT_FALSE(part.get()->isHeldByMultipart());
    object.clear();
    EXPECT_FALSE(part.get());
}

TEST(DestroyedObject, LeavesThePart)
{
    Multipart multipart;
    appendParts(multipart, {{.location = "a"}});
    const PartPointer part(objectOf(multipart, "a")->getData());
    EXPECT_EQ(part.get(), multipart.getBodypartByIndex(0));
    const PartPointer read(objectFromStream()->getData());
    ASSERT_TRUE(read.get());
    delete read.get();
}

TEST(PartReadFromAStream, BelongsToTheMessageThatItIsAddedTo)
{
    Multipart multipart;
    const auto object = objectFromStream();
    Part *part = object->getData();
    multipart.appendBodypart(part);
    EXPECT_TRUE(part->isHeldByMultipart());
    object->clear();
    EXPECT_FALSE(object->getData());
    EXPECT_EQ(multipart.getBodypartByIndex(0), part);
}

TEST(PartReadFromAStream, AddedToTheObjectsMessageIsReleasedThroughIt)
{
    Multipart multipart;
    const auto object = objectFromStream(&multipart);
    const PartPointer part(object->getData());
    multipart.appendBodypart(part.get());
    object->clear();
    EXPECT_FALSE(part.get());
    EXPECT_EQ(multipart.getPartCount(), 0);
}

TEST(PartReadFromAStream, AddedToAMessageIsDeletedWithIt)
{
    auto multipart = std::make_unique<Multipart>();
    const auto object = objectFromStream();
    multipart->appendBodypart(object->getData());
    multipart.reset();
    EXPECT_FALSE(object->getData());
    object->clear();
}

TEST(ReadingAgain, DeletesAPartThatTheObjectOwns)
{
    const auto object = objectFromStream();
    const PartPointer first(object->getData());
    readFrom(objectFields().join(), object.get());
    EXPECT_FALSE(first.get());
    const PartPointer second(object->getData());
    ASSERT_TRUE(second.get());
    readFrom(newObjectRecord(), object.get());
    EXPECT_FALSE(second.get());
    EXPECT_FALSE(object->getData());
}

TEST(ReadingAgain, OnlyUnbindsAPartOfAMessage)
{
    Multipart multipart;
    appendParts(multipart, {{.location = "a", .display = 0}});
    const auto object = objectOf(multipart, "a");
    for (Multipart *message : {&multipart, static_cast<Multipart *>(nullptr)}) {
        object->setMultiPart(message);
        object->setData(multipart.getBodypartByIndex(0));
        readFrom(newObjectRecord(), object.get());
        EXPECT_FALSE(object->getData());
        EXPECT_EQ(multipart.getPartCount(), 1);
        EXPECT_EQ(multipart.getBodypartByIndex(0)->getRefCount(), 2);
    }
}

TEST(ReadingAgain, OnlyUnbindsAPartOfTheApplication)
{
    Multipart multipart;
    Part part = partWith({.location = "a"});
    const auto object = boundTo(&part, &multipart);
    readFrom(newObjectRecord(), object.get());
    EXPECT_FALSE(object->getData());
    EXPECT_EQ(part.getContentLocation(), "a");
}

TEST(ReadingAgain, TruncatedStreamDeletesThePartToo)
{
    const auto object = objectFromStream();
    const PartPointer part(object->getData());
    EXPECT_EQ(readFrom(QByteArray(), object.get()), QDataStream::ReadPastEnd);
    EXPECT_FALSE(part.get());
    EXPECT_FALSE(object->getData());
}

TEST(SharedPart, DeletedThroughOneObjectIsNullInTheOther)
{
    Multipart multipart;
    Part *part = addPart(multipart, {.location = "a"});
    const auto first = boundTo(part, &multipart);
    const auto second = boundTo(part, &multipart);
    ASSERT_TRUE(second->getData());
    first->clear();
    EXPECT_FALSE(second->getData());
    second->clear();
    EXPECT_EQ(multipart.getPartCount(), 0);
}

TEST(SharedPart, CopyGainsNoUseSoTheFirstClearDeletesThePart)
{
    for (const bool copyFirst : {false, true}) {
        Multipart multipart;
        appendParts(multipart, {{.location = "a"}});
        const auto source = objectOf(multipart, "a");
        Object copy(nullptr);
        ASSERT_TRUE(source->copyTo(&copy, &multipart));
        Object *first = copyFirst ? &copy : source.get();
        Object *second = copyFirst ? source.get() : &copy;
        ASSERT_TRUE(second->getData());
        first->clear();
        EXPECT_FALSE(second->getData());
        second->clear();
        EXPECT_EQ(multipart.getPartCount(), 0);
    }
}

TEST(SharedPart, ReadByOneObjectAndBoundToAnotherIsDeletedOnce)
{
    const auto first = objectFromStream();
    const auto second = boundTo(first->getData(), nullptr);
    ASSERT_TRUE(second->getData());
    first->clear();
    EXPECT_FALSE(second->getData());
    second->clear();
}

TEST(SharedLocation, ObjectOfTheSecondPartDeletesTheFirstPart)
{
    Multipart multipart;
    Part *small = addPart(multipart, {.location = "a"});
    Part *capital = addPart(multipart, {.location = "A"});
    const auto first = boundTo(small, &multipart);
    const auto second = boundTo(capital, &multipart);
    ASSERT_TRUE(first->getData());
    second->clear(); // removes a, then finds nothing where it looks for A
    EXPECT_FALSE(first->getData());
    EXPECT_FALSE(second->getData());
    EXPECT_EQ(locationsOf(multipart), QStringList("A"));
    first->clear();
    EXPECT_EQ(multipart.getBodypartByIndex(0), capital);
}

TEST(SharedLocation, PartAfterTheMatchIsDeletedWhileAnotherObjectUsesIt)
{
    Multipart multipart;
    appendParts(multipart, {{.location = "a"}, {.location = "A"}, {.location = "v"}});
    std::unique_ptr<Object> objects[3];
    for (int i = 0; i < 3; ++i)
        objects[i] = boundTo(multipart.getBodypartByIndex(i), &multipart);
    ASSERT_TRUE(objects[2]->getData());
    objects[0]->clear();
    EXPECT_EQ(locationsOf(multipart), QStringList("A"));
    EXPECT_EQ(objects[1]->getData(), multipart.getBodypartByIndex(0));
    EXPECT_FALSE(objects[2]->getData());
    for (const auto &object : objects)
        object->clear();
    EXPECT_EQ(multipart.getPartCount(), 0);
}

namespace {

// A presentation of a message. Parts share locations, and objects share parts.
struct Model
{
    std::unique_ptr<Multipart> message = std::make_unique<Multipart>();
    std::unique_ptr<Presentation> data = std::make_unique<Presentation>(message.get());

    Model()
    {
        appendParts(*message,
                    {{.location = "a", .data = "1"},
                     {.location = "A", .data = "2"},
                     {.location = "v", .id = "<a>"},
                     {.id = "<x>"},
                     {.location = "b", .display = 0}});
        for (const char *src : {"a", "A", "v", "cid:x", "b", "b", "a"}) {
            Element element("ref", {{"src", src}});
            EXPECT_EQ(data->appendElementObject(element, message.get(), true, 5000, nullptr),
                      SmilResult::Ok);
        }
        data->getSlide(0)->appendObject(
            boundTo(message->getBodypartByIndex(1), message.get()).release());
        EXPECT_TRUE(data->getMediaObject(0, 0)->getData());
    }

    QList<Object *> objects() const
    {
        QList<Object *> all;
        for (unsigned int slide = 0; data && slide < data->getTotalSlidesNum(); ++slide) {
            for (unsigned int i = 0; i < data->getMediaObjectCount(slide); ++i)
                all += data->getMediaObject(slide, i);
        }
        return all;
    }

    // Reads the targets of all pointers. A part is in the message or owned by the object.
    void look() const
    {
        for (Object *object : objects()) {
            const Part *part = object->getData();
            EXPECT_TRUE(!part || !part->isHeldByMultipart() || (message && message->holds(part)));
            EXPECT_TRUE(!object->getMultiPart() || object->getMultiPart() == message.get());
        }
        if (!data)
            return;
        EXPECT_EQ(data->getMultiPart(), message.get());
        std::ignore = data->isEmpty();
        std::ignore = data->isElemNameExist("a");
        std::ignore = data->createUniqueSrc("a");
    }
};

struct Step
{
    const char *what;
    void (*run)(Model &);
};

const Step Steps[] = {
    {"destroy the message", [](Model &m) { m.message.reset(); }},
    {"destroy the presentation", [](Model &m) { m.data.reset(); }},
    {"clear the message", [](Model &m) { m.message ? m.message->clear() : void(); }},
    {"delete a part by reference",
     [](Model &m) { std::ignore = m.message ? m.message->deletePartBySrc("a") : 0; }},
    {"delete a part by index",
     [](Model &m) { std::ignore = m.message ? m.message->deletePart(0) : 0; }},
    {"delete an object", [](Model &m) { std::ignore = m.data && m.data->deleteMediaObject(0, 0); }},
    {"delete by location",
     [](Model &m) { m.data ? m.data->deleteObjectByDataLocation("A") : void(); }},
    {"empty the slides",
     [](Model &m) {
         for (unsigned int i = 0; m.data && i < m.data->getTotalSlidesNum(); ++i)
             m.data->getSlide(i)->clear();
     }},
    {"delete the slides", [](Model &m) { m.data ? m.data->clean() : void(); }},
    {"fill an object anew",
     [](Model &m) {
         if (Object *object = m.data ? m.data->getMediaObject(0, 0) : nullptr)
             object->setData("r", "new", SMIL_MEDIA_TEXT, "x", "1", object->getMultiPart());
     }},
};

} // namespace

TEST(AnyOrder, OfThreeStepsLeavesNoDanglingPointer)
{
    FakePlayerEngine::reset();
    for (const Step &first : Steps) {
        for (const Step &second : Steps) {
            for (const Step &third : Steps) {
                SCOPED_TRACE(std::string(first.what) + ", " + second.what + ", " + third.what);
                Model model;
                for (const Step *step : {&first, &second, &third}) {
                    step->run(model);
                    model.look();
                }
            }
        }
    }
}

TEST(DestroyedMessage, IsNullForPresentationSlidesAndObjects)
{
    Model model;
    Slide *slide = model.data->getSlide(0);
    ASSERT_EQ(slide->getMultiPart(), model.message.get());
    ASSERT_EQ(slide->getMediaObject(0)->getMultiPart(), model.message.get());
    model.message.reset();
    EXPECT_FALSE(model.data->getMultiPart());
    EXPECT_FALSE(slide->getMultiPart());
    for (Object *object : model.objects()) {
        EXPECT_FALSE(object->getMultiPart());
        EXPECT_FALSE(object->getData());
    }
}

TEST(DestroyedMessage, LeavesAPresentationThatCanBeUsed)
{
    FakePlayerEngine::reset();
    Model model;
    model.message.reset();
    EXPECT_FALSE(model.data->isEmpty()); // refs are never blank
    EXPECT_EQ(model.data->getSlide(0)->getPageSize(), 0U);
    model.data->removeEmptyTextBeforeSend();
    model.data->updateParamToSlide();
    model.data->updateParamFromSlide();
    Slide *slide = model.data->getSlide(0);
    EXPECT_TRUE(slide->updateData("r", "s", SMIL_MEDIA_AUDIO, "x", "1", true, nullptr));
    Multipart other;
    EXPECT_FALSE(slide->copyTo(slide, &other));
    EXPECT_EQ(written(*slide->getMediaObject(0)).right(8), octet(0, 8));
}

TEST(DestroyedPresentation, ReleasesTheContentOfAllSlides)
{
    Multipart message;
    appendParts(message, {{.location = "a"}, {.location = "b", .refCount = 2}, {.location = "c"}});
    auto data = std::make_unique<Presentation>(&message);
    for (const char *src : {"a", "b"})
        data->appendElementObject(Element("img", {{"src", src}}), &message, true, 0, nullptr);
    data.reset();
    EXPECT_EQ(locationsOf(message), (QStringList{"b", "c"}));
    EXPECT_EQ(message.getBodypartByIndex(0)->getRefCount(), 1);
}

TEST(DestroyedSlide, ReleasesItsContentUnlessTheObjectWasTaken)
{
    Multipart message;
    appendParts(message, {{.location = "a"}, {.location = "b"}});
    std::unique_ptr<Object> taken;
    {
        Slide slide(&message);
        for (const char *src : {"a", "b"})
            slide.appendObject(objectOf(message, src).release());
        slide.getMediaObject(1)->setMediaElementType(SMIL_MEDIA_TEXT);
        taken.reset(slide.getTextElem(true));
    }
    EXPECT_EQ(locationsOf(message), QStringList("b"));
    EXPECT_EQ(taken->getData(), message.getBodypartByIndex(0));
}

TEST(DestroyedSlide, OnlyUnbindsAPartOfTheApplication)
{
    Multipart message;
    Part part = partWith({.location = "a"});
    {
        Slide slide(&message);
        slide.appendObject(boundTo(&part, &message).release());
    }
    EXPECT_EQ(part.getContentLocation(), "a");
}

TEST(CopyInOneMessage, SharesThePartsAndEitherMayBeDestroyedFirst)
{
    for (const bool copyFirst : {false, true}) {
        SCOPED_TRACE(copyFirst);
        Multipart message;
        appendParts(message, {{.location = "a"}});
        auto source = std::make_unique<Presentation>(&message);
        source->appendElementObject(Element("img", {{"src", "a"}}), &message, true, 0, nullptr);
        auto copy = std::make_unique<Presentation>(*source, &message);
        ASSERT_EQ(copy->getMediaObject(0, 0)->getData(), source->getMediaObject(0, 0)->getData());
        std::unique_ptr<Presentation> &first = copyFirst ? copy : source;
        std::unique_ptr<Presentation> &second = copyFirst ? source : copy;
        ASSERT_TRUE(second->getMediaObject(0, 0)->getData());
        first.reset();
        EXPECT_FALSE(second->getMediaObject(0, 0)->getData());
        second.reset();
        EXPECT_EQ(message.getPartCount(), 0);
    }
}

TEST(CopyInOneMessage, DoubledPartsAreReleasedWithoutChangingEachOthersObjects)
{
    Multipart message;
    appendParts(message, {{.location = "a"}});
    const auto first = objectOf(message, "a");
    message.copyFrom(message);
    ASSERT_EQ(message.getPartCount(), 2);
    const auto second = boundTo(message.getBodypartByIndex(1), &message);
    EXPECT_FALSE(message.getBodypartByIndex(1) == first->getData());
    first->clear();
    EXPECT_EQ(second->getData(), message.getBodypartByIndex(0));
    EXPECT_EQ(message.getPartCount(), 1);
    second->clear();
    EXPECT_EQ(message.getPartCount(), 0);
}

TEST(FailedCopy, DeletesNoPartOfTheTargetMessage)
{
    Multipart message;
    appendParts(message, {{.location = "a"}, {.location = "b"}});
    Presentation source(&message);
    for (const char *src : {"a", "b"})
        source.appendElementObject(Element("img", {{"src", src}}), &message, src[0] == 'a', 0,
                                   nullptr);
    source.getSlide(0)->appendObject(newObject(SMIL_MEDIA_REF, "missing"));
    Multipart target;
    appendParts(target, {{.location = "a", .display = 0}, {.location = "b", .display = 0}});
    Presentation copy(&target);
    EXPECT_FALSE(source.copyTo(&copy, &target));
    EXPECT_EQ(copy.getTotalSlidesNum(), 0U);
    EXPECT_EQ(locationsOf(target), (QStringList{"a", "b"}));
    EXPECT_FALSE(source.copyTo(&copy, &message));
    EXPECT_TRUE(source.getMediaObject(0, 0)->getData());
    EXPECT_EQ(locationsOf(message), (QStringList{"a", "b"}));
}

TEST(FailedCopy, KeepsTheSlidesBeforeTheFailure)
{
    Multipart message;
    appendParts(message, {{.location = "a"}, {.location = "b"}});
    Presentation source(&message);
    for (const char *src : {"a", "b"})
        source.appendElementObject(Element("img", {{"src", src}}), &message, true, 0, nullptr);
    Multipart target;
    appendParts(target, {{.location = "a", .display = 0}});
    const Presentation copy(source, &target);
    EXPECT_EQ(copy.getTotalSlidesNum(), 1U);
    EXPECT_EQ(copy.getMediaObject(0, 0)->getData(), target.getBodypartByIndex(0));
}

TEST(FailedElement, ReleasesNothing)
{
    Multipart message;
    appendParts(message, {{.location = "a"}});
    Presentation data(&message);
    Element missing("img", {{"src", "missing"}});
    for (const bool newSlide : {false, true})
        EXPECT_EQ(data.appendElementObject(missing, &message, newSlide, 0, nullptr),
                  SmilResult::NotInMessage);
    EXPECT_EQ(locationsOf(message), QStringList("a"));
    EXPECT_EQ(data.getTotalSlidesNum(), 0U);
}

namespace {

// A copy-constructed message, and an owner that deletes its parts at the end if they still exist.
class NonOwning
{
public:
    explicit NonOwning(const Multipart &source) : copy(std::make_unique<Multipart>(source))
    {
        for (int i = 0; i < copy->getPartCount(); ++i)
            m_parts.append(PartPointer(copy->getBodypartByIndex(i)));
    }
    ~NonOwning()
    {
        for (const PartPointer &part : m_parts)
            delete part.get();
    }
    NonOwning(const NonOwning &) = delete;
    NonOwning &operator=(const NonOwning &) = delete;

    int partsAlive() const
    {
        return int(std::count_if(m_parts.begin(), m_parts.end(),
                                 [](const PartPointer &part) { return part.get() != nullptr; }));
    }

    std::unique_ptr<Multipart> copy;

private:
    QList<PartPointer> m_parts;
};

} // namespace

TEST(NonOwningMessage, PartReleasedThroughItLeavesItAlive)
{
    Multipart source;
    appendParts(source, {{.location = "a"}, {.location = "b"}});
    NonOwning message(source);
    const auto object = objectOf(*message.copy, "a");
    object->clear();
    EXPECT_FALSE(object->getData());
    EXPECT_EQ(locationsOf(*message.copy), QStringList("b"));
    EXPECT_EQ(message.partsAlive(), 2);
    EXPECT_EQ(source.getPartCount(), 2);
}

TEST(NonOwningMessage, MayBeDestroyedBeforeAndAfterThePresentation)
{
    for (const bool messageFirst : {false, true}) {
        SCOPED_TRACE(messageFirst);
        Multipart source;
        appendParts(source, {{.location = "a"}, {.location = "b"}});
        NonOwning message(source);
        auto data = std::make_unique<Presentation>(message.copy.get());
        for (const char *src : {"a", "b"})
            data->appendElementObject(Element("img", {{"src", src}}), message.copy.get(), true, 0,
                                      nullptr);
        ASSERT_TRUE(data->getMediaObject(1, 0)->getData());
        if (messageFirst)
            message.copy.reset();
        EXPECT_TRUE(data->getMediaObject(1, 0)->getData()); // the parts still exist
        data.reset();
        EXPECT_EQ(message.partsAlive(), 2);
        EXPECT_EQ(source.getPartCount(), 2);
    }
}

TEST(NonOwningMessage, CallerWhoDeletesFirstLeavesNothingToClear)
{
    Multipart source;
    appendParts(source, {{.location = "a"}});
    auto message = std::make_unique<Multipart>(source);
    const auto object = objectOf(*message, "a");
    Part *part = message->getBodypartByIndex(0);
    message.reset();
    ASSERT_EQ(object->getData(), part);
    delete part;
    EXPECT_FALSE(object->getData());
    object->clear();
}

TEST(NewContent, AfterThePartWasDeletedByReferenceMakesANewPart)
{
    Multipart message;
    Object object(&message);
    ASSERT_TRUE(object.setData("r", "a", SMIL_MEDIA_TEXT, "plain", "1", &message));
    ASSERT_TRUE(object.getData());
    EXPECT_EQ(message.deletePartBySrc("a"), MultipartResult::Ok);
    EXPECT_FALSE(object.getData());
    ASSERT_TRUE(object.setData("r", "b", SMIL_MEDIA_TEXT, "plain", "2", &message));
    EXPECT_EQ(locationsOf(message), QStringList("b"));
    EXPECT_EQ(object.getData(), message.getBodypartByIndex(0));
}

TEST(NewContent, AfterThePartWasDeletedWithoutTheSlide)
{
    Multipart message;
    Presentation data(&message);
    Slide *slide = data.appendSlide(QvlDuration::Default);
    ASSERT_TRUE(slide->updateData("r", "a", SMIL_MEDIA_IMAGE, "x", "1", true, &message));
    ASSERT_TRUE(slide->getMediaObject(0)->getData());
    EXPECT_EQ(message.deletePart(0), MultipartResult::Ok);
    EXPECT_FALSE(slide->getMediaObject(0)->getData());
    EXPECT_EQ(slide->getPageSize(), 0U);
    EXPECT_FALSE(data.isElemNameExist("b"));
    ASSERT_TRUE(slide->updateData("r", "b", SMIL_MEDIA_IMAGE, "x", "2", true, &message));
    EXPECT_EQ(slide->getPageSize(), 1U);
    EXPECT_EQ(kindsOf(*slide), "i");
    data.clean();
    EXPECT_EQ(message.getPartCount(), 0);
}

TEST(NewContent, InAPartReadFromAStreamStaysOwnedByTheObject)
{
    Multipart message;
    const auto object = objectFromStream();
    const PartPointer part(object->getData());
    ASSERT_TRUE(object->setData("r", "a", SMIL_MEDIA_TEXT, "plain", "1", &message));
    EXPECT_EQ(object->getData(), part.get());
    EXPECT_EQ(message.getPartCount(), 0);
    object->clear();
    EXPECT_FALSE(part.get());
}
