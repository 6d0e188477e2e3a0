/*
 * The growth of documents: characters that entities and default attributes add, and entities that
 * refer to one another.
 */
#include "document/expansion.h"

#include "document/limits.h"

#include <QByteArray>

#include <gtest/gtest.h>

namespace {

constexpr qint64 Limit(qint64 documentSize)
{
    return QvlDocumentLimits::ExpansionFactor * documentSize
        + QvlDocumentLimits::ExpansionAllowance;
}

// Text of the size by which @p document may still grow, less @p left.
std::string fillOf(const QByteArray &document, qint64 left)
{
    return std::string(size_t(Limit(document.size()) - document.size() - left), 'x');
}

} // namespace

TEST(ExpansionMeter, CountsTheTextOfAnEntityInsteadOfTheReference)
{
    const QByteArray document = "<s>&ent;</s>";
    ExpansionMeter meter(document);
    meter.addText(3, fillOf(document, -5)); // the reference has five characters
    EXPECT_TRUE(meter.isWithinLimit());
    meter.addText(3, "x");
    EXPECT_FALSE(meter.isWithinLimit());
}

TEST(ExpansionMeter, SubtractsEachReferenceOnce)
{
    const QByteArray document = "<s>&e;&e;</s>";
    ExpansionMeter meter(document);
    meter.addText(3, "");
    meter.addText(3, "");
    meter.addText(6, fillOf(document, -6));
    EXPECT_TRUE(meter.isWithinLimit());
    meter.addText(6, "x");
    EXPECT_FALSE(meter.isWithinLimit());
}

TEST(ExpansionMeter, IgnoresTheDocumentsOwnText)
{
    const QByteArray document = "<s>text</s>";
    ExpansionMeter meter(document);
    meter.addText(3, fillOf(document, -1000));
    EXPECT_TRUE(meter.isWithinLimit());
}

TEST(ExpansionMeter, CountsUtf16Units)
{
    // One character of three octets, and one of four octets that takes two units.
    const QByteArray document = "<s>&e;\xE4\xB8\xAD\xF0\x9F\x98\x80</s>";
    const qint64 characters = 3 + 3 + 1 + 2 + 4;
    ExpansionMeter meter(document);
    std::string text;
    for (qint64 i = 0; i < Limit(characters) - characters + 3; ++i)
        text += "\xE4\xB8\xAD";
    meter.addText(3, text);
    EXPECT_TRUE(meter.isWithinLimit());
    meter.addText(3, "x");
    EXPECT_FALSE(meter.isWithinLimit());
}

TEST(ExpansionMeter, CountsReferencesInValues)
{
    const QByteArray document = "<s a=\"&e;\" b='>'/>";
    const std::string value = fillOf(document, -3);
    const char *attributes[] = {"a", value.c_str(), "b", ">", nullptr};
    ExpansionMeter meter(document);
    meter.addStartTag(0, "s", attributes, 4);
    EXPECT_TRUE(meter.isWithinLimit());
    const std::string longer = value + 'x';
    attributes[1] = longer.c_str();
    ExpansionMeter other(document);
    other.addStartTag(0, "s", attributes, 4);
    EXPECT_FALSE(other.isWithinLimit());
}

TEST(ExpansionMeter, CountsNamesAndValuesOfDefaultAttributes)
{
    const QByteArray document = "<s/>";
    const std::string value = fillOf(document, 4);
    const char *attributes[] = {"name", value.c_str(), nullptr};
    ExpansionMeter meter(document);
    meter.addStartTag(0, "s", attributes, 0);
    EXPECT_TRUE(meter.isWithinLimit());
    const char *one[] = {"n", "", nullptr};
    meter.addStartTag(0, "s", one, 0);
    EXPECT_FALSE(meter.isWithinLimit());
}

// The parser compares each default of an element with those before it.
TEST(ExpansionMeter, BoundsTheDefaultsOfOneElement)
{
    ExpansionMeter meter("<s/>");
    for (int i = 0; i < 300; ++i) // 0 + 1 + ... + 299, and 24 each, is 52,050
        meter.declareAttribute("s", true);
    for (int i = 0; i < 560; ++i) // 24 each is 13,440
        meter.declareAttribute(("e" + std::to_string(i)).c_str(), true);
    EXPECT_TRUE(meter.isWithinLimit());
    meter.declareAttribute("s", true);
    EXPECT_FALSE(meter.isWithinLimit());
}

// The parser scans all declared attributes of an element for its tag and for each attribute.
TEST(ExpansionMeter, BoundsDeclaredTimesPresentAttributes)
{
    const char *attributes[] = {"a", "", "b", "", nullptr};
    ExpansionMeter meter("<s a='' b=''/>");
    for (int i = 0; i < 2000; ++i) // 24 each is 48,000
        meter.declareAttribute("s", false);
    for (int i = 0; i < 1000; ++i)
        meter.addStartTag(0, "t", attributes, 4);
    meter.addStartTag(0, "s", attributes, 4); // 2,000 times 1 + 2
    meter.addStartTag(0, "s", attributes, 4);
    EXPECT_TRUE(meter.isWithinLimit());
    meter.addStartTag(0, "s", attributes, 4);
    EXPECT_FALSE(meter.isWithinLimit());
}

TEST(EntityLevels, AllowsSixtyFourInAnyOrderOfDeclaration)
{
    const auto name = [](int i) { return 'e' + std::to_string(i); };
    const auto reference = [&](int i) { return "a &" + name(i) + "; b"; };
    EntityLevels backwards;
    EXPECT_TRUE(backwards.declare('&', name(1), "text"));
    for (int i = 2; i <= QvlDocumentLimits::DeepestEntities; ++i)
        EXPECT_TRUE(backwards.declare('&', name(i), reference(i - 1))) << i;
    EXPECT_FALSE(backwards.declare('&', name(65), reference(64)));

    EntityLevels forwards;
    for (int i = 1; i < QvlDocumentLimits::DeepestEntities; ++i)
        EXPECT_TRUE(forwards.declare('&', name(i), reference(i + 1))) << i;
    EXPECT_TRUE(forwards.declare('&', name(64), reference(65)));
    EXPECT_FALSE(forwards.declare('&', name(65), "text"));
}

TEST(EntityLevels, TreatsOnlyNamesAsReferences)
{
    EntityLevels levels;
    EXPECT_TRUE(levels.declare('&', "e", "&& e; &e &e & e;& ;&&;"));
    EXPECT_FALSE(levels.declare('&', "f", "&&f;"));
}

TEST(EntityLevels, RefusesCycles)
{
    EXPECT_FALSE(EntityLevels().declare('&', "e", "&e;"));
    EntityLevels levels;
    EXPECT_TRUE(levels.declare('&', "e", "&f;"));
    EXPECT_FALSE(levels.declare('&', "f", "&e;"));
}

TEST(EntityLevels, DistinguishesParameterEntitiesFromOthers)
{
    EntityLevels levels;
    EXPECT_TRUE(levels.declare('&', "e", "%e; &"));
    EXPECT_TRUE(levels.declare('%', "e", "&e; %"));
    EXPECT_FALSE(levels.declare('%', "e", "%e;"));
}
