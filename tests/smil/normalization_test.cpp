/*
 * Normalizing layouts to the handset's: which region becomes the text region and which the image
 * region, and where the media objects move.
 */
#include "base/durations.h"
#include "smil/presentation_facts.h"

#include <gtest/gtest.h>

namespace {

struct Rectangle
{
    float left;
    float top;
    float width;
    float height;
    QString id;
    QString fit = "hidden";
};

struct Row
{
    const char *name;
    QList<Rectangle> before;
    QStringList after;
};

void addRegions(MMS_COMP_SMILData &data, const QList<Rectangle> &regions)
{
    for (const Rectangle &r : regions)
        data.appendRegion(r.left, r.top, r.width, r.height, r.fit, r.id);
}

// One slide with an object in each of the regions.
void addObjects(MMS_COMP_SMILData &data, const QStringList &regionIds)
{
    MMS_COMP_SMILTimingContainer *slide = data.appendSlide(QvlDuration::Default);
    for (const QString &id : regionIds) {
        auto *object = new MMS_COMP_SMILMediaObject(nullptr);
        object->setRegionId(id);
        slide->appendObject(object);
    }
}

void expectNormalized(const Row &row)
{
    SCOPED_TRACE(row.name);
    MMS_COMP_SMILData data(nullptr);
    addRegions(data, row.before);
    EXPECT_EQ(MMS_COMP_SMILParser::updateToCorvaneRegion(&data), 1);
    EXPECT_EQ(regionsOf(data), row.after);
}

} // namespace

TEST(Normalization, NullReturnsZero)
{
    EXPECT_EQ(MMS_COMP_SMILParser::updateToCorvaneRegion(nullptr), 0);
}

TEST(Normalization, WithoutRegionsBothAreAddedTextFirst)
{
    expectNormalized({"none", {}, {"text 0,0 120x160 0", "image 0,160 120x160 0"}});
}

TEST(Normalization, OneRegionKeepsItsPlaceAndFitAndAnImageRegionIsAdded)
{
    const Row rows[] = {
        {"placed", {{10, 20, 30, 40, "a"}}, {"text 10,20 120x160 0", "image 0,160 120x160 0"}},
        {"own text region",
         {{0, 0, 120, 160, "text"}},
         {"text 0,0 120x160 0", "image 0,160 120x160 0"}},
        {"own image region",
         {{0, 160, 120, 160, "image"}},
         {"text 0,160 120x160 0", "image 0,160 120x160 0"}},
        {"without size", {{5, 6, -1, -1, ""}}, {"text 5,6 120x160 0", "image 0,160 120x160 0"}},
        {"other fit", {{0, 0, 1, 1, "a", "meet"}}, {"text 0,0 120x160 2", "image 0,160 120x160 0"}},
    };
    for (const Row &row : rows)
        expectNormalized(row);
}

TEST(Normalization, GeometryDecidesWhichOfTwoRegionsIsTheText)
{
    // The fit identifies the regions afterwards: "fill" (1) was the first, "meet" (2) the second.
    const QStringList firstIsText{"text 0,0 120x160 1", "image 0,160 120x160 2"};
    const QStringList secondIsText{"image 0,160 120x160 1", "text 0,0 120x160 2"};
    struct
    {
        const char *name;
        Rectangle first;
        Rectangle second;
        QStringList after;
    } const rows[] = {
        {"second on the right", {0, 0, 50, 50, "a"}, {60, 0, 50, 50, "b"}, firstIsText},
        {"second touches on the right", {0, 0, 50, 50, "a"}, {50, 0, 50, 50, "b"}, firstIsText},
        {"second below", {0, 0, 50, 50, "a"}, {0, 60, 50, 50, "b"}, firstIsText},
        {"second touches below", {0, 0, 50, 50, "a"}, {0, 50, 50, 50, "b"}, firstIsText},
        {"first on the right", {60, 0, 50, 50, "a"}, {0, 0, 50, 50, "b"}, secondIsText},
        {"first touches on the right", {50, 0, 50, 50, "a"}, {0, 0, 50, 50, "b"}, secondIsText},
        {"first below", {0, 60, 50, 50, "a"}, {0, 0, 50, 50, "b"}, firstIsText},
        {"first below and on the right", {60, 60, 50, 50, "a"}, {0, 0, 50, 50, "b"}, secondIsText},
        {"first above and on the right", {60, 0, 50, 50, "a"}, {0, 60, 50, 50, "b"}, firstIsText},
        {"first below and on the left", {0, 60, 50, 50, "a"}, {60, 0, 50, 50, "b"}, firstIsText},
        {"overlapping", {0, 0, 50, 50, "a"}, {10, 10, 50, 50, "b"}, firstIsText},
        {"overlapping, second first", {10, 10, 50, 50, "a"}, {0, 0, 50, 50, "b"}, firstIsText},
        {"same place", {0, 0, 50, 50, "a"}, {0, 0, 50, 50, "b"}, firstIsText},
        {"first empty", {0, 0, 0, 0, "a"}, {0, 0, 50, 50, "b"}, firstIsText},
        {"no sizes, as if below", {10, 0, -1, -1, "a"}, {0, 0, -1, -1, "b"}, firstIsText},
        {"no sizes, first below", {10, 5, -1, -1, "a"}, {0, 0, -1, -1, "b"}, secondIsText},
        {"no sizes, same place", {0, 0, -1, -1, "a"}, {0, 0, -1, -1, "b"}, firstIsText},
        {"own regions", {0, 0, 120, 160, "text"}, {0, 160, 120, 160, "image"}, firstIsText},
        {"own regions the other way",
         {0, 160, 120, 160, "image"},
         {0, 0, 120, 160, "text"},
         firstIsText},
    };
    for (auto row : rows) {
        row.first.fit = "fill";
        row.second.fit = "meet";
        expectNormalized({row.name, {row.first, row.second}, row.after});
    }
}

TEST(Normalization, OverlapOfAHundredthStillCountsAsBeside)
{
    const QStringList beside{"image", "text"};
    const QStringList overlapping{"text", "image"};
    // The first region lies on the right of the second by this much.
    const std::pair<float, QStringList> rows[] = {
        {0.0F, beside}, {-0.0099F, beside}, {-0.0101F, overlapping}, {-0.5F, overlapping}};
    for (const auto &[gap, ids] : rows) {
        SCOPED_TRACE(gap);
        MMS_COMP_SMILData data(nullptr);
        addRegions(data, {{1 + gap, 0, 5, 5, "a"}, {0, 0, 1, 5, "b"}});
        MMS_COMP_SMILParser::updateToCorvaneRegion(&data);
        EXPECT_EQ((QStringList{data.getRegion(0)->getId(), data.getRegion(1)->getId()}), ids);
    }
}

TEST(Normalization, ToleranceHoldsForBesideAndBelowAlike)
{
    // A first region on the right of the second unless the second counts as beside or below it.
    const std::pair<Rectangle, QString> rows[] = {
        {{0.991F, 0, 1, 1, "b"}, "text"},
        {{0, 0.991F, 1, 1, "b"}, "text"},
        {{-9, 0.991F, 1, 1, "b"}, "text"},
        {{-9, 0.989F, 1, 1, "b"}, "image"},
    };
    for (const auto &[second, firstId] : rows) {
        SCOPED_TRACE(testing::Message() << second.left << ',' << second.top);
        MMS_COMP_SMILData data(nullptr);
        addRegions(data, {{0, 0, 1, 1, "a"}, second});
        MMS_COMP_SMILParser::updateToCorvaneRegion(&data);
        EXPECT_EQ(data.getRegion(0)->getId(), firstId);
    }
}

TEST(Normalization, OfManyRegionsOnlyTwoIdsChange)
{
    const auto named = [](const QStringList &ids) {
        QList<Rectangle> regions;
        for (const QString &id : ids)
            regions += {float(regions.size()), 1, 2, 3, id, "slice"};
        return regions;
    };
    const std::pair<QStringList, QStringList> rows[] = {
        {{"Title", "Picture", "Body"}, {"text", "image", "Body"}},
        {{"a", "b", "TEXT1"}, {"a", "image", "text"}},
        {{"a", "myTxt", "b"}, {"a", "text", "image"}},
        {{"Img", "b", "c"}, {"text", "image", "c"}}, // the image word is on the text region
        {{"a", "b", "xIMGx"}, {"text", "b", "image"}},
        {{"picture", "theImage", "theText"}, {"picture", "image", "text"}},
        {{"Text", "TXT", "Image", "IMG"}, {"text", "TXT", "image", "IMG"}},
        {{"textimage", "b", "c"}, {"text", "image", "c"}},
        {{"b", "textimage", "c", "image"}, {"b", "text", "c", "image"}},
        {{"", "", ""}, {"text", "image", ""}},
        {{"a", "b", "c", "d", "text"}, {"a", "b", "c", "image", "text"}},
        {{"t xt", "im age", "c"}, {"text", "image", "c"}},
    };
    for (const auto &[before, after] : rows) {
        SCOPED_TRACE(before.join(' ').toStdString());
        MMS_COMP_SMILData expected(nullptr);
        addRegions(expected, named(after));
        expectNormalized({"ids", named(before), regionsOf(expected)});
    }
}

TEST(Normalization, ObjectsMoveWithTheirRegions)
{
    struct
    {
        const char *name;
        QList<Rectangle> regions;
        QStringList before;
        QStringList after;
    } const rows[] = {
        {"no region", {}, {"a", "", "text"}, {"a", "", "text"}},
        {"one region", {{0, 0, 1, 1, "a"}}, {"a", "A", "b", ""}, {"text", "A", "b", ""}},
        {"two regions",
         {{0, 0, 1, 1, "a"}, {0, 9, 1, 1, "b"}},
         {"a", "b", "c"},
         {"text", "image", "c"}},
        {"two regions swapped",
         {{9, 0, 1, 1, "a"}, {0, 0, 1, 1, "b"}},
         {"a", "b"},
         {"image", "text"}},
        {"named the wrong way round",
         {{0, 0, 1, 1, "image"}, {9, 0, 1, 1, "text"}},
         {"image", "text"},
         {"image", "image"}},
        {"many regions",
         {{0, 0, 1, 1, "a"}, {1, 0, 1, 1, "b"}, {2, 0, 1, 1, "c"}},
         {"a", "b", "c"},
         {"text", "image", "c"}},
        {"many, text moved twice",
         {{0, 0, 1, 1, "x"}, {1, 0, 1, 1, "imgtext"}, {2, 0, 1, 1, "text"}},
         {"imgtext", "text"},
         {"image", "image"}},
        {"without id", {{0, 0, 1, 1, ""}}, {"", "a"}, {"text", "a"}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        MMS_COMP_SMILData data(nullptr);
        addRegions(data, row.regions);
        addObjects(data, row.before);
        MMS_COMP_SMILParser::updateToCorvaneRegion(&data);
        EXPECT_EQ(objectRegionsOf(data), row.after);
    }
}

TEST(Normalization, PercentLayoutStaysInPercent)
{
    MMS_COMP_SMILData data(nullptr);
    data.appendRegion(QString("0"), "0", "100%", "50%", "hidden", "a");
    MMS_COMP_SMILParser::updateToCorvaneRegion(&data);
    EXPECT_EQ(data.getLayoutMeasureUnit(), SMIL_UNIT_PERCENT);
    EXPECT_EQ(regionsOf(data), (QStringList{"text 0,0 120x160 0", "image 0,160 120x160 0"}));
}

TEST(Normalization, SecondNormalizationChangesNothing)
{
    MMS_COMP_SMILData data(nullptr);
    addRegions(data, {{60, 0, 50, 50, "a"}});
    MMS_COMP_SMILParser::updateToCorvaneRegion(&data);
    data.getRegion(0)->setLeft(0);
    const QStringList once = regionsOf(data);
    MMS_COMP_SMILParser::updateToCorvaneRegion(&data);
    EXPECT_EQ(regionsOf(data), once);
}

TEST(Normalization, RootLayoutIsResizedAndKeepsItsColor)
{
    MMS_COMP_SMILData data(nullptr);
    data.setRootLayout(176, 208);
    MMS_COMP_SMILRootLayout *root = data.getRootLayout();
    root->setBackgroundColor("red");
    MMS_COMP_SMILParser::updateToCorvaneRootLayout(&data);
    EXPECT_EQ(data.getRootLayout(), root);
    EXPECT_EQ(root->getWidth(), QvlHandset::ScreenWidth);
    EXPECT_EQ(root->getHeight(), QvlHandset::ScreenHeight);
    EXPECT_EQ(root->getBackgroundColor()->name, "red");
    MMS_COMP_SMILParser::updateToCorvaneRootLayout(nullptr);
}

TEST(Normalization, RegionsDoNotChangeTheRootLayout)
{
    MMS_COMP_SMILData data(nullptr);
    data.setRootLayout(176, 208);
    MMS_COMP_SMILParser::updateToCorvaneRegion(&data);
    EXPECT_EQ(data.getRootLayout()->getWidth(), 176);
    EXPECT_EQ(data.getRootLayout()->getHeight(), 208);
}

TEST(Normalization, ObjectsOfOneIdMoveOnEverySlide)
{
    MMS_COMP_SMILData data(nullptr);
    addObjects(data, {"a", "A", " a"});
    addObjects(data, {"b", "a", "aa", "a"});
    MMS_COMP_SMILParser::updateObjectRegionId(&data, "a", "new");
    EXPECT_EQ(objectRegionsOf(data), (QStringList{"new", "A", " a", "b", "new", "aa", "new"}));
    MMS_COMP_SMILParser::updateObjectRegionId(nullptr, "a", "b");
}

TEST(Normalization, DoesNotChangeAListWithNull)
{
    MMS_COMP_SMILData data(nullptr);
    addRegions(data, {{1, 2, 3, 4, "a"}});
    data.getLayout()->getRegionList()->append(nullptr);
    EXPECT_EQ(MMS_COMP_SMILParser::updateToCorvaneRegion(&data), 0);
    EXPECT_EQ(data.getRegion(0)->getId(), "a");
    EXPECT_EQ(data.getRegionCount(), 2U);
}
