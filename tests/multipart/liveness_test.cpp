/*
 * Weak pointers to parts and messages, and the mark of a part's owner.
 */
#include "multipart/liveness.h"

#include "multipart/multipart_result.h"
#include "multipart/part_facts.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

using PartPointer = QvlWeakPointer<Part>;
using MessagePointer = QvlWeakPointer<Multipart>;

TEST(WeakPointer, IsNullWithoutTarget)
{
    EXPECT_EQ(PartPointer().get(), nullptr);
    EXPECT_EQ(PartPointer(nullptr).get(), nullptr);
}

TEST(WeakPointer, IsNullOnceTheTargetIsGone)
{
    auto part = std::make_unique<Part>();
    const PartPointer pointer(part.get());
    const PartPointer copy(pointer);
    EXPECT_EQ(pointer.get(), part.get());
    EXPECT_EQ(copy.get(), part.get());
    part.reset();
    EXPECT_EQ(pointer.get(), nullptr);
    EXPECT_EQ(copy.get(), nullptr);
}

TEST(WeakPointer, StaysSetWhenTheTargetIsGone)
{
    auto part = std::make_unique<Part>();
    PartPointer pointer(part.get());
    EXPECT_TRUE(pointer.isSet());
    part.reset();
    EXPECT_TRUE(pointer.isSet());
    pointer = nullptr;
    EXPECT_FALSE(pointer.isSet());
    EXPECT_FALSE(PartPointer().isSet());
}

TEST(WeakPointer, StaysNullWhenTheMemoryIsReused)
{
    alignas(Part) unsigned char memory[sizeof(Part)];
    Part *first = new (memory) Part;
    const PartPointer pointer(first);
    ASSERT_EQ(pointer.get(), first);
    std::destroy_at(first);
    Part *second = new (memory) Part;
    EXPECT_EQ(pointer.get(), nullptr);
    EXPECT_EQ(PartPointer(second).get(), second);
    std::destroy_at(second);
}

TEST(WeakPointer, CanBeReassigned)
{
    Part first;
    auto second = std::make_unique<Part>();
    PartPointer pointer(&first);
    pointer = second.get();
    EXPECT_EQ(pointer.get(), second.get());
    second.reset();
    EXPECT_EQ(pointer.get(), nullptr);
    pointer = &first;
    EXPECT_EQ(pointer.get(), &first);
    pointer = nullptr;
    EXPECT_EQ(pointer.get(), nullptr);
}

TEST(WeakPointer, CopyOfTheTargetIsAnotherTarget)
{
    auto part = std::make_unique<Part>();
    const PartPointer pointer(part.get());
    const Part copy(*part);
    Part assigned;
    const PartPointer atAssigned(&assigned);
    assigned = *part;
    part.reset();
    EXPECT_EQ(pointer.get(), nullptr);
    EXPECT_EQ(atAssigned.get(), &assigned);
}

TEST(WeakPointer, AssignmentToTheTargetKeepsIt)
{
    Part part;
    const PartPointer pointer(&part);
    {
        const Part other;
        part = other;
    }
    part = Part();
    EXPECT_EQ(pointer.get(), &part);
}

TEST(WeakPointer, MovingFromTheTargetKeepsIt)
{
    Part part;
    const PartPointer pointer(&part);
    {
        Part taken(std::move(part));
        EXPECT_NE(pointer.get(), &taken);
    }
    EXPECT_EQ(pointer.get(), &part);
}

TEST(WeakPointer, IsNullOnceAMessageIsGone)
{
    auto message = std::make_unique<Multipart>();
    const MessagePointer pointer(message.get());
    Multipart copy(*message);
    const MessagePointer atCopy(&copy);
    EXPECT_EQ(pointer.get(), message.get());
    message->clear();
    EXPECT_EQ(pointer.get(), message.get());
    message.reset();
    EXPECT_FALSE(pointer.get());
    EXPECT_EQ(atCopy.get(), &copy);
}

TEST(WeakPointer, IsNullAfterEveryWayOfDeletingAPart)
{
    const std::pair<const char *, void (*)(std::unique_ptr<Multipart> &)> rows[] = {
        {"message", [](std::unique_ptr<Multipart> &message) { message.reset(); }},
        {"all parts", [](std::unique_ptr<Multipart> &message) { message->clear(); }},
        {"by index", [](std::unique_ptr<Multipart> &message) { message->deletePart(0); }},
        {"by reference",
         [](std::unique_ptr<Multipart> &message) { message->deletePartBySrc("a"); }},
    };
    for (const auto &[what, destroy] : rows) {
        SCOPED_TRACE(what);
        auto message = std::make_unique<Multipart>();
        appendParts(*message, {{.location = "a"}});
        const PartPointer pointer(message->getBodypartByIndex(0));
        ASSERT_NE(pointer.get(), nullptr);
        destroy(message);
        EXPECT_EQ(pointer.get(), nullptr);
    }
}

TEST(WeakPointer, StaysSetWhenOnlyAUseIsReleased)
{
    Multipart message;
    appendParts(message, {{.location = "a", .refCount = 2}});
    const PartPointer pointer(message.getBodypartByIndex(0));
    EXPECT_EQ(message.deletePart(0), MultipartResult::Ok);
    EXPECT_EQ(pointer.get(), message.getBodypartByIndex(0));
}

TEST(PartOwner, IsTheMessageThatPartsAreAddedTo)
{
    Multipart message;
    EXPECT_FALSE(Part().isHeldByMultipart());
    message.appendBodypart(new Part);
    message.insertBodypart(new Part, 0);
    EXPECT_TRUE(message.getBodypartByIndex(0)->isHeldByMultipart());
    EXPECT_TRUE(message.getBodypartByIndex(1)->isHeldByMultipart());
}

TEST(PartOwner, IsNotPartOfTheValue)
{
    Multipart message;
    message.appendBodypart(new Part);
    Part *owned = message.getBodypartByIndex(0);
    const Part copy(*owned);
    EXPECT_FALSE(copy.isHeldByMultipart());
    *owned = Part();
    EXPECT_TRUE(owned->isHeldByMultipart());
    Part assigned;
    assigned = *owned;
    EXPECT_FALSE(assigned.isHeldByMultipart());
}

TEST(PartOwner, MayBeAMessageThatDeletesNothing)
{
    Multipart source;
    appendParts(source, {{.location = "a"}});
    Multipart copy(source);
    copy.appendBodypart(new Part);
    std::unique_ptr<Part> parts[] = {std::unique_ptr<Part>(copy.getBodypartByIndex(0)),
                                     std::unique_ptr<Part>(copy.getBodypartByIndex(1))};
    for (const auto &part : parts)
        EXPECT_TRUE(part->isHeldByMultipart());
    EXPECT_TRUE(source.getBodypartByIndex(0)->isHeldByMultipart());
}

TEST(PartOwner, IsTheMessageThatCopiesAreTakenInto)
{
    Multipart source;
    appendParts(source, {{.location = "a"}});
    Multipart target;
    target.copyFrom(source);
    EXPECT_TRUE(target.getBodypartByIndex(0)->isHeldByMultipart());
}

TEST(MessageHolds, OnlyThePartItselfAndNotAnEqualOne)
{
    Multipart message;
    appendParts(message, {{.location = "a"}});
    const Part like(*message.getBodypartByIndex(0));
    EXPECT_TRUE(message.holds(message.getBodypartByIndex(0)));
    EXPECT_FALSE(message.holds(&like));
    EXPECT_FALSE(message.holds(nullptr));
    EXPECT_FALSE(Multipart().holds(&like));
}
