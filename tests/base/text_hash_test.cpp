/*
 * Hashes of texts: texts and views of them are the same key, and names that differ little are kept
 * apart.
 */
#include "base/text_hash.h"

#include <gtest/gtest.h>

#include <functional>
#include <unordered_set>

namespace {

// Among two thousand million values two of a hundred thousand meet on average, and hardly ever
// more.
constexpr size_t Meeting = 20;

} // namespace

TEST(TextHash, ViewsFindTexts)
{
    const std::unordered_set<QString, QvlTextHash, std::equal_to<>> names{"image", ""};
    EXPECT_TRUE(names.contains(QStringView(u"an image").sliced(3)));
    EXPECT_TRUE(names.contains(QStringView()));
    EXPECT_FALSE(names.contains(QStringView(u"Image")));
}

TEST(TextHash, TellsNumberedNamesApart)
{
    constexpr int count = 100000;
    std::unordered_set<size_t> hashes;
    for (int i = 0; i < count; ++i)
        hashes.insert(QvlTextHash()(QStringLiteral("file%1.jpg").arg(i)));
    EXPECT_GE(hashes.size() + Meeting, size_t(count));
}

TEST(TextHash, TellsTextsOfOneCharacterApartByTheirLength)
{
    std::unordered_set<size_t> hashes;
    constexpr int count = 1000;
    for (int length = 0; length < count; ++length)
        hashes.insert(QvlTextHash()(QString(length, QChar(0))));
    EXPECT_GE(hashes.size() + Meeting, size_t(count));
}
