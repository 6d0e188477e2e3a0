/*
 * Published type names: source code of callers that uses them compiles with today's types.
 */
#include "base/qt_names.h"

#include <gtest/gtest.h>

#include <type_traits>

static_assert(std::is_same_v<QArray<char>, QByteArray>);
static_assert(std::is_same_v<QCString, QByteArray>);

namespace {

template <typename T>
concept HasArray = requires
{
    typename QArray<T>;
};
static_assert(HasArray<char>);
static_assert(!HasArray<int>, "only octets are kept in arrays");

} // namespace

TEST(QArray, HoldsBinaryOctets)
{
    const char octets[] = {'a', '\0', '\xFF'};
    const QArray<char> array(octets, 3);
    EXPECT_EQ(array.size(), 3);
    EXPECT_EQ(array.at(1), '\0');
    EXPECT_EQ(array.at(2), '\xFF');
}

TEST(QCString, HoldsText)
{
    QCString text("vnd.wap.");
    text += "wbmp";
    EXPECT_STREQ(text.constData(), "vnd.wap.wbmp");
}
