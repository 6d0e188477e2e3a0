/*
 * The head of a presentation: regions, their fits and when two of them are equal, the root layout
 * from its element, and metas.
 */
#include "presentation/layout.h"

#include "presentation/smil_result.h"
#include "support/octets.h"

#include <QDomDocument>

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace {

struct FitRow
{
    int number;
    const char *keyword;
};

constexpr FitRow fitRows[] = {{0, "hidden"}, {1, "fill"}, {2, "meet"}, {3, "scroll"}, {4, "slice"}};

std::unique_ptr<MMS_COMP_SMILRegion> ownRegion()
{
    auto region = std::make_unique<MMS_COMP_SMILRegion>();
    region->setId("text");
    return region;
}

// Reads a root-layout element with these attributes.
int setRootLayout(MMS_COMP_SMILLayout &layout, const QString &attributes)
{
    QDomDocument document;
    if (!document.setContent("<root-layout " + attributes + "/>"))
        return 1;
    QDomElement element = document.documentElement();
    return layout.setRootLayout(&element);
}

} // namespace

TEST(Region, StartsAsTheScreenOfTheHandset)
{
    const MMS_COMP_SMILRegion region;
    EXPECT_EQ(region.getHeight(), QvlHandset::ScreenHeight);
    EXPECT_EQ(region.getWidth(), QvlHandset::ScreenWidth);
    EXPECT_EQ(region.getTop(), 0.0F);
    EXPECT_EQ(region.getLeft(), 0.0F);
    EXPECT_EQ(region.getId(), "default");
    EXPECT_EQ(region.getFit(), SMIL_REGION_FIT_HIDDEN);
    EXPECT_EQ(region.getRight(), QvlHandset::ScreenWidth);
    EXPECT_EQ(region.getBottom(), QvlHandset::ScreenHeight);
}

TEST(Region, SettersTakeAnyNumber)
{
    for (const float value : {0.0F, -1.0F, -1e30F, 33.333332F, 1e30F}) {
        SCOPED_TRACE(value);
        MMS_COMP_SMILRegion region;
        EXPECT_TRUE(region.setHeight(value));
        EXPECT_TRUE(region.setWidth(value));
        EXPECT_TRUE(region.setTop(value));
        EXPECT_TRUE(region.setLeft(value));
        EXPECT_EQ(region.getHeight(), value);
        EXPECT_EQ(region.getWidth(), value);
        EXPECT_EQ(region.getTop(), value);
        EXPECT_EQ(region.getLeft(), value);
    }
}

TEST(Region, IdIsKeptUnchanged)
{
    for (const char *id : {"", " ", " Image ", "a\"b"}) {
        MMS_COMP_SMILRegion region;
        EXPECT_TRUE(region.setId(id));
        EXPECT_EQ(region.getId(), id);
    }
}

TEST(Region, RightAndBottomAreSums)
{
    MMS_COMP_SMILRegion region;
    region.setLeft(10);
    region.setTop(20.5F);
    region.setWidth(-3);
    region.setHeight(1.25F);
    EXPECT_EQ(region.getRight(), 7.0F);
    EXPECT_EQ(region.getBottom(), 21.75F);
    region.setLeft(11);
    EXPECT_EQ(region.getRight(), 8.0F);
}

TEST(Region, FitKeywordsHaveTheirNumbers)
{
    for (const FitRow &row : fitRows) {
        SCOPED_TRACE(row.keyword);
        MMS_COMP_SMILRegion region;
        region.setFit(SMIL_REGION_FIT_UNKNOWN);
        EXPECT_TRUE(region.setFit(QString(row.keyword)));
        EXPECT_EQ(region.getFit(), row.number);
        EXPECT_STREQ(MMS_COMP_SMILRegion::fitKeyword(region.getFit()), row.keyword);
    }
    EXPECT_EQ(SMIL_REGION_FIT_UNKNOWN, 5);
}

TEST(Region, OtherFitsAreUnknown)
{
    for (const char *text : {"", "Fill", "FILL", " fill", "fill ", "fil", "fills", "0", "none"}) {
        SCOPED_TRACE(text);
        MMS_COMP_SMILRegion region;
        EXPECT_TRUE(region.setFit(QString(text)));
        EXPECT_EQ(region.getFit(), SMIL_REGION_FIT_UNKNOWN);
    }
    for (const int number : {5, 6, -1})
        EXPECT_EQ(MMS_COMP_SMILRegion::fitKeyword(MMS_COMP_SMIL_REGION_FIT(number)), nullptr);
}

TEST(Region, FitIsSetByItsNumberToo)
{
    MMS_COMP_SMILRegion region;
    for (const FitRow &row : fitRows) {
        region.setFit(MMS_COMP_SMIL_REGION_FIT(row.number));
        EXPECT_EQ(region.getFit(), row.number);
    }
}

TEST(Region, CopyHasAllSixValues)
{
    MMS_COMP_SMILRegion region;
    region.setLeft(1);
    region.setTop(2);
    region.setWidth(3);
    region.setHeight(4);
    region.setId("a");
    region.setFit(SMIL_REGION_FIT_SLICE);
    const MMS_COMP_SMILRegion copy(region);
    EXPECT_EQ(copy.getLeft(), 1.0F);
    EXPECT_EQ(copy.getTop(), 2.0F);
    EXPECT_EQ(copy.getWidth(), 3.0F);
    EXPECT_EQ(copy.getHeight(), 4.0F);
    EXPECT_EQ(copy.getId(), "a");
    EXPECT_EQ(copy.getFit(), SMIL_REGION_FIT_SLICE);
}

TEST(RootLayout, StartsAsTheScreenOfTheHandsetWithoutColor)
{
    const MMS_COMP_SMILRootLayout root;
    EXPECT_EQ(root.getWidth(), QvlHandset::ScreenWidth);
    EXPECT_EQ(root.getHeight(), QvlHandset::ScreenHeight);
    EXPECT_EQ(root.getBackgroundColor()->kind, SMIL_COLOR_NONE);
    EXPECT_EQ(root.getBackgroundColor()->name, "");
    EXPECT_FALSE(root.getBackgroundColor()->color.isValid());
}

TEST(RootLayout, SettersTakeAnyNumber)
{
    for (const int value :
         {0, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        MMS_COMP_SMILRootLayout root;
        EXPECT_TRUE(root.setWidth(value));
        EXPECT_TRUE(root.setHeight(value));
        EXPECT_EQ(root.getWidth(), value);
        EXPECT_EQ(root.getHeight(), value);
    }
}

TEST(RootLayout, CopyHasSizeAndColor)
{
    MMS_COMP_SMILRootLayout root;
    root.setWidth(1);
    root.setHeight(2);
    root.setBackgroundColor(" navy ");
    const MMS_COMP_SMILRootLayout copy(root);
    EXPECT_EQ(copy.getWidth(), 1);
    EXPECT_EQ(copy.getHeight(), 2);
    EXPECT_EQ(copy.getBackgroundColor()->kind, SMIL_COLOR_NAMED);
    EXPECT_EQ(copy.getBackgroundColor()->name, "navy");
    EXPECT_EQ(copy.getBackgroundColor()->color, QColor(0, 0, 128));
}

TEST(RootLayout, ColorIsChangedInPlace)
{
    MMS_COMP_SMILRootLayout root;
    root.getBackgroundColor()->kind = SMIL_COLOR_RGB;
    root.getBackgroundColor()->color = QColor(1, 2, 3);
    EXPECT_EQ(std::as_const(root).getBackgroundColor()->kind, SMIL_COLOR_RGB);
    EXPECT_EQ(std::as_const(root).getBackgroundColor()->color, QColor(1, 2, 3));
}

TEST(Layout, StartsWithARootLayoutAndNoRegion)
{
    MMS_COMP_SMILLayout layout;
    ASSERT_NE(layout.getRootLayout(), nullptr);
    EXPECT_EQ(layout.getRootLayout()->getWidth(), QvlHandset::ScreenWidth);
    EXPECT_EQ(layout.getRootLayout()->getHeight(), QvlHandset::ScreenHeight);
    EXPECT_EQ(layout.getRegionCount(), 0U);
    EXPECT_EQ(layout.getRegion(0), nullptr);
    EXPECT_TRUE(layout.getRegionList()->isEmpty());
    EXPECT_TRUE(layout.getRegionList()->autoDelete());
}

TEST(Layout, RegionsAreFoundByTheirPosition)
{
    MMS_COMP_SMILLayout layout;
    MMS_COMP_SMILRegion *first = layout.appendRegion(0, 0, 1, 1, "fill", "a");
    MMS_COMP_SMILRegion *second = layout.appendRegion(0, 0, 1, 1, "fill", "b");
    EXPECT_EQ(layout.getRegionCount(), 2U);
    EXPECT_EQ(layout.getRegion(0), first);
    EXPECT_EQ(layout.getRegion(1), second);
    EXPECT_EQ(layout.getRegion(2), nullptr);
    EXPECT_EQ(layout.getRegion(std::numeric_limits<unsigned int>::max()), nullptr);
    EXPECT_EQ(layout.getRegionList()->at(1), second);
}

TEST(Layout, AppendedRegionHasTheGivenValues)
{
    MMS_COMP_SMILLayout layout;
    const MMS_COMP_SMILRegion *region = layout.appendRegion(1, 2, 3, 4, "scroll", "a");
    ASSERT_NE(region, nullptr);
    EXPECT_EQ(region->getLeft(), 1.0F);
    EXPECT_EQ(region->getTop(), 2.0F);
    EXPECT_EQ(region->getWidth(), 3.0F);
    EXPECT_EQ(region->getHeight(), 4.0F);
    EXPECT_EQ(region->getFit(), SMIL_REGION_FIT_SCROLL);
    EXPECT_EQ(region->getId(), "a");
}

TEST(Layout, EqualRegionIsReturnedInsteadOfAppended)
{
    MMS_COMP_SMILLayout layout;
    MMS_COMP_SMILRegion *image = layout.appendRegion(0, 0, 120, 160, "hidden", "Image");
    EXPECT_EQ(layout.appendRegion(0, 0, 120, 160, "hidden", "Image"), image);
    EXPECT_EQ(layout.getRegionCount(), 1U);
    EXPECT_NE(layout.appendRegion(0, 0, 120, 160, "hidden", "image"), image);
    EXPECT_EQ(layout.getRegionCount(), 2U);
}

TEST(Layout, UnknownFitsAreEqual)
{
    MMS_COMP_SMILLayout layout;
    MMS_COMP_SMILRegion *region = layout.appendRegion(0, 0, 1, 1, "Fill", "a");
    EXPECT_EQ(layout.appendRegion(0, 0, 1, 1, "other", "a"), region);
}

TEST(Layout, RegionThatDiffersInAnyValueIsAppended)
{
    const auto changes = std::to_array<void (*)(MMS_COMP_SMILRegion &)>(
        {[](MMS_COMP_SMILRegion &r) { r.setLeft(0.0001F); },
         [](MMS_COMP_SMILRegion &r) { r.setTop(0.0001F); },
         [](MMS_COMP_SMILRegion &r) { r.setWidth(120.0001F); },
         [](MMS_COMP_SMILRegion &r) { r.setHeight(160.0001F); },
         [](MMS_COMP_SMILRegion &r) { r.setId("Text"); },
         [](MMS_COMP_SMILRegion &r) { r.setFit(SMIL_REGION_FIT_FILL); }});
    MMS_COMP_SMILLayout layout;
    layout.appendRegion(ownRegion().release());
    for (std::size_t i = 0; i < changes.size(); ++i) {
        SCOPED_TRACE(i);
        auto region = ownRegion();
        changes[i](*region);
        EXPECT_FALSE(layout.isRegionExist(region.get(), nullptr));
        layout.appendRegion(region.release());
        EXPECT_EQ(layout.getRegionCount(), i + 2);
    }
}

TEST(Layout, RegionAppendedTwiceIsKeptOnce)
{
    MMS_COMP_SMILLayout layout;
    MMS_COMP_SMILRegion *region = ownRegion().release();
    layout.appendRegion(region);
    layout.appendRegion(region);
    EXPECT_EQ(layout.getRegionCount(), 1U);
    EXPECT_EQ(layout.getRegion(0), region);
}

TEST(Layout, EqualRegionStaysOwnedByTheCaller)
{
    MMS_COMP_SMILLayout layout;
    layout.appendRegion(ownRegion().release());
    const auto equal = ownRegion();
    layout.appendRegion(equal.get());
    EXPECT_EQ(layout.getRegionCount(), 1U);
    EXPECT_NE(layout.getRegion(0), equal.get());
}

TEST(Layout, NullRegionIsIgnored)
{
    MMS_COMP_SMILLayout layout;
    layout.appendRegion(nullptr);
    EXPECT_EQ(layout.getRegionCount(), 0U);
}

TEST(Layout, FirstEqualRegionIsFound)
{
    MMS_COMP_SMILLayout layout;
    layout.appendRegion(0, 0, 1, 1, "fill", "a");
    MMS_COMP_SMILRegion *first = ownRegion().release();
    layout.getRegionList()->append(nullptr);
    layout.getRegionList()->append(first);
    layout.getRegionList()->append(ownRegion().release());
    MMS_COMP_SMILRegion *found = nullptr;
    EXPECT_TRUE(layout.isRegionExist(ownRegion().get(), &found));
    EXPECT_EQ(found, first);
    EXPECT_TRUE(layout.isRegionExist(ownRegion().get(), nullptr));
}

TEST(Layout, SearchWithoutResultFindsNull)
{
    MMS_COMP_SMILLayout layout;
    MMS_COMP_SMILRegion other;
    MMS_COMP_SMILRegion *found = &other;
    EXPECT_FALSE(layout.isRegionExist(ownRegion().get(), &found));
    EXPECT_EQ(found, nullptr);
}

TEST(Layout, SearchForNullDoesNotChangeTheResult)
{
    MMS_COMP_SMILLayout layout;
    MMS_COMP_SMILRegion other;
    MMS_COMP_SMILRegion *found = &other;
    EXPECT_FALSE(layout.isRegionExist(nullptr, &found));
    EXPECT_EQ(found, &other);
    EXPECT_FALSE(layout.isRegionExist(nullptr, nullptr));
}

TEST(Layout, RootLayoutIsResizedInPlace)
{
    MMS_COMP_SMILLayout layout;
    MMS_COMP_SMILRootLayout *root = layout.getRootLayout();
    EXPECT_EQ(layout.setRootLayout(-5, 0), root);
    EXPECT_EQ(root->getWidth(), -5);
    EXPECT_EQ(root->getHeight(), 0);
}

TEST(Layout, SizesOfARootLayoutElementAreRead)
{
    const std::pair<const char *, int> rows[] = {
        {"176", 176},
        {"176px", 176},
        {" 176PX ", 176},
        {"176Px", 176},
        {"176 px", 176},
        {"\t176\n", 176},
        {"+176", 176},
        {"-5", -5},
        {"-5px", -5},
        {"0", 0},
        {"007", 7},
        {"", -1},
        {"  ", -1},
        {"px", -1},
        {" PX ", -1},
        {"100%", 0},
        {"50.5", 0},
        {"1e2", 0},
        {"0x10", 0},
        {"1,000", 0},
        {"auto", 0},
        {"176pt", 0},
        {"176p", 0},
        {"12px3", 0}, // the last two characters are removed, wherever "px" is
        {"px123", 0},
        {"12pxpx", 0},
        {"2147483647", 2147483647},
        {"-2147483648", std::numeric_limits<int>::min()},
        {"2147483648", 0},
        {"99999999999px", 0},
    };
    for (const auto &[text, size] : rows) {
        SCOPED_TRACE(text);
        MMS_COMP_SMILLayout layout;
        EXPECT_EQ(setRootLayout(layout, QString("width='%1' height='7'").arg(text)),
                  SmilResult::Ok);
        EXPECT_EQ(layout.getRootLayout()->getWidth(), size);
        EXPECT_EQ(layout.getRootLayout()->getHeight(), 7);
        EXPECT_EQ(setRootLayout(layout, QString("width='8' height='%1'").arg(text)),
                  SmilResult::Ok);
        EXPECT_EQ(layout.getRootLayout()->getWidth(), 8);
        EXPECT_EQ(layout.getRootLayout()->getHeight(), size);
    }
}

TEST(Layout, AbsentSizesAreMinusOne)
{
    MMS_COMP_SMILLayout layout;
    EXPECT_EQ(setRootLayout(layout, ""), SmilResult::Ok);
    EXPECT_EQ(layout.getRootLayout()->getWidth(), -1);
    EXPECT_EQ(layout.getRootLayout()->getHeight(), -1);
}

TEST(Layout, ColorOfARootLayoutElementIsRead)
{
    const std::pair<const char *, int> rows[] = {
        {"", SMIL_COLOR_NONE},
        {"background-color=''", SMIL_COLOR_NONE},
        {"background-color=' red '", SMIL_COLOR_NAMED},
        {"background-color='#0080ff'", SMIL_COLOR_RGB},
        {"background-color='Red'", SMIL_COLOR_INVALID},
        {"backgroundColor='red'", SMIL_COLOR_NONE},
    };
    for (const auto &[attribute, kind] : rows) {
        SCOPED_TRACE(attribute);
        MMS_COMP_SMILLayout layout;
        EXPECT_EQ(setRootLayout(layout, attribute), SmilResult::Ok);
        EXPECT_EQ(layout.getRootLayout()->getBackgroundColor()->kind, kind);
    }
}

TEST(Layout, ColorNamesAreCaseSensitive)
{
    MMS_COMP_SMILLayout layout;
    EXPECT_EQ(setRootLayout(layout, "background-color='#0080ff'"), SmilResult::Ok);
    EXPECT_EQ(layout.getRootLayout()->getBackgroundColor()->color, QColor(0, 128, 255));
    EXPECT_EQ(setRootLayout(layout, "background-color='RED'"), SmilResult::Ok);
    EXPECT_EQ(layout.getRootLayout()->getBackgroundColor()->kind, SMIL_COLOR_INVALID);
}

TEST(Layout, NullElementIsRefused)
{
    MMS_COMP_SMILLayout layout;
    EXPECT_EQ(layout.setRootLayout(nullptr), MMS_COMP_SMILLayout::RootLayoutRefused);
    ASSERT_NE(layout.getRootLayout(), nullptr);
    EXPECT_EQ(layout.getRootLayout()->getWidth(), QvlHandset::ScreenWidth);
}

TEST(Meta, KeepsWhatItIsGiven)
{
    MMS_COMP_SMILMeta meta;
    EXPECT_EQ(meta.getName(), "");
    EXPECT_EQ(meta.getContent(), "");
    EXPECT_TRUE(meta.setName(" author "));
    EXPECT_TRUE(meta.setContent("\"me\" "));
    EXPECT_EQ(meta.getName(), " author ");
    EXPECT_EQ(meta.getContent(), "\"me\" ");
}

TEST(LayoutCopies, SkipNullAndExistingRegions)
{
    MMS_COMP_SMILLayout source;
    source.appendRegion(0, 0, 120, 160, "hidden", "a");
    source.getRegionList()->append(nullptr);
    source.appendRegion(0, 0, 120, 160, "hidden", "b");
    MMS_COMP_SMILLayout target;
    MMS_COMP_SMILRegion *first = target.appendRegion(0, 0, 120, 160, "hidden", "b");
    target.addRegionsOf(source);
    ASSERT_EQ(target.getRegionCount(), 2U);
    EXPECT_EQ(target.getRegion(0), first);
    EXPECT_EQ(target.getRegion(1)->getId(), "a");
}

TEST(LayoutCopies, OntoItselfTerminateEvenWithANanRegion)
{
    MMS_COMP_SMILLayout layout;
    layout.appendRegion(std::numeric_limits<float>::quiet_NaN(), 0, 120, 160, "hidden", "a");
    layout.addRegionsOf(layout);
    EXPECT_EQ(layout.getRegionCount(), 2U);
}
