/*
 * Comparing and hashing in lower case have the same result as for lower-case copies, for every
 * character.
 */
#include "multipart/lower_case.h"

#include <QString>

#include <gtest/gtest.h>

#include <unordered_set>

namespace {

// Of a hundred thousand hashes among two thousand million values, two collide on average, and
// hardly ever more.
constexpr size_t Meeting = 20;

} // namespace

TEST(LowerCase, EveryCharacterEqualsItsLowerCase)
{
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        const QString text = QString::fromUcs4(&character, 1);
        if (!isSameInLowerCase(text, text.toLower()))
            ADD_FAILURE() << "character " << unsigned(character);
        if (hashInLowerCase(text) != hashInLowerCase(text.toLower()))
            ADD_FAILURE() << "hash of character " << unsigned(character);
        const QString folded = text.toCaseFolded();
        if (isSameInLowerCase(text, folded) != (text.toLower() == folded.toLower()))
            ADD_FAILURE() << "folded character " << unsigned(character);
    }
}

TEST(LowerCase, ComparesLikeLowerCaseCopies)
{
    const char16_t lone[] = {0xD800, 'A', 0};
    const QString texts[] = {
        "",
        "a",
        "A",
        "aB",
        "Ab",
        "abc",
        "ab",
        QString::fromUtf8("É"),
        QString::fromUtf8("é"),
        QString::fromUtf8("İ"),
        QString::fromUtf8("i̇"),
        QString::fromUtf8("i"),
        QString::fromUtf8("Σ"),
        QString::fromUtf8("ς"),
        QString::fromUtf8("ſ"),
        "s",
        "S",
        QString::fromUtf8("𐐀"),
        QString::fromUtf8("𐐨"),
        QString::fromUtf16(lone),
        QString::fromUtf16(lone).toLower(),
        QString::fromUtf8("ß"),
        QString::fromUtf8("ẞ"),
        "ss",
    };
    for (const QString &a : texts) {
        for (const QString &b : texts) {
            EXPECT_EQ(isSameInLowerCase(a, b), a.toLower() == b.toLower())
                << a.toStdString() << ' ' << b.toStdString();
            EXPECT_EQ(hashInLowerCase(a) == hashInLowerCase(b), a.toLower() == b.toLower())
                << a.toStdString() << ' ' << b.toStdString();
        }
    }
}

TEST(LowerCase, HashDiffersForNumberedNames)
{
    constexpr int Count = 100000;
    std::unordered_set<size_t> hashes;
    for (int i = 0; i < Count; ++i)
        hashes.insert(hashInLowerCase(QStringLiteral("file%1.jpg").arg(i)));
    EXPECT_GE(hashes.size() + Meeting, size_t(Count));
}

TEST(LowerCase, HashDiffersForRepeatedCharactersOfAnyLength)
{
    constexpr int Count = 1000;
    std::unordered_set<size_t> hashes;
    for (int length = 0; length < Count; ++length)
        hashes.insert(hashInLowerCase(QString(length, QChar(0))));
    EXPECT_GE(hashes.size() + Meeting, size_t(Count));
}
