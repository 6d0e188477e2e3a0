/*
 * No input determines the depth of the library's recursion: the deepest inputs that it accepts fit
 * on a small stack, and deeper inputs are refused.
 */
#include "presentation/presentation.h"
#include "presentation/smil_result.h"
#include "smil/smil_parser.h"

#include <QThread>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace {

constexpr unsigned int SmallStack = 256 << 10;

void onSmallStack(const std::function<void()> &work)
{
    const std::unique_ptr<QThread> thread(QThread::create(work));
    thread->setStackSize(SmallStack);
    thread->start();
    thread->wait();
}

int resultOf(const QByteArray &document)
{
    int result = SmilResult::Ok;
    onSmallStack([&] {
        MMS_COMP_SMILData slides(nullptr);
        result = MMS_COMP_SMILParser().parse(document, nullptr, &slides);
    });
    return result;
}

QByteArray nested(const QByteArray &tag, int levels)
{
    return "<smil><body>" + ('<' + tag + '>').repeated(levels) + ("</" + tag + '>').repeated(levels)
        + "</body></smil>";
}

} // namespace

struct Depth
{
    const char *tag;
    int levels; ///< below smil and body
    int result;
};

void PrintTo(const Depth &depth, std::ostream *out)
{
    *out << depth.levels << " levels of " << depth.tag;
}

class NestedElements : public testing::TestWithParam<Depth>
{
};

TEST_P(NestedElements, NeedLittleStack)
{
    EXPECT_EQ(resultOf(nested(GetParam().tag, GetParam().levels)), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(Documents, NestedElements,
                         testing::Values(Depth{"par", 10, SmilResult::Ok},
                                         Depth{"seq", 11, SmilResult::NestedTooDeep},
                                         Depth{"seq", 254, SmilResult::NestedTooDeep},
                                         Depth{"a", 254, SmilResult::Ok},
                                         Depth{"a", 255, SmilResult::NotWellFormed},
                                         Depth{"a", 1'000'000, SmilResult::NotWellFormed},
                                         Depth{"text", 254, SmilResult::Ok},
                                         Depth{"param", 255, SmilResult::NotWellFormed}));
