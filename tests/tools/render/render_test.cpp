/*
 * Whole slides: page, strip, unsupported media, and the files that are written.
 */
#include "render/render.h"

#include "tools/render/slides_to_draw.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <limits>

namespace {

QImage blankPicture()
{
    Message message;
    message.slides().appendSlide(3000u);
    return renderSlide(message, 0, 1);
}

struct PaperRow
{
    const char *slide;
    const char *root;
    QRgb paper;
};

const PaperRow paperRows[] = {
    {"red", "blue", Red}, {"", "blue", Blue}, {"no color", "#0000ff", Blue},
    {"#ff0000", "", Red}, {"", "", White},    {"no color", "no color", White},
};

/// The names in the folder, in order.
QStringList namesIn(const QTemporaryDir &directory)
{
    return QDir(directory.path()).entryList(QDir::Files, QDir::Name);
}

// Small pages, so that many can be written quickly.
void addSmallSlides(Message *message, int count)
{
    message->slides().setRootLayout(4, 4);
    for (int i = 0; i < count; ++i)
        message->slides().appendSlide(3000u);
}

QStringList reportOf(const Message &message, const QTemporaryDir &directory,
                     const RenderLimits &limits)
{
    QStringList report;
    QString error;
    EXPECT_TRUE(renderSlides(message, directory.path(), 1, limits, &report, &error));
    return report;
}

// A slide with boxes that cover the page, each in a region of its own.
void addOverlapping(Message *message, int count)
{
    message->slides().appendSlide(3000u);
    for (int i = 0; i < count; ++i) {
        const QString id = QString::number(i);
        addRegion(message, id, {0, 0, 120, 161});
        addObject(message, 0, SMIL_MEDIA_REF, id, "a");
    }
}

// More slides with the object's part.
void addUses(OneObject *made, int count)
{
    for (int i = 0; i < count; ++i) {
        auto object = std::make_unique<MMS_COMP_SMILMediaObject>(&made->message.parts());
        object->setMediaElementType(made->object->getMediaElementType());
        object->setRegionId(QStringLiteral("own"));
        object->setData(made->object->getData());
        made->message.slides().appendSlide(3000u)->appendObject(object.release());
    }
}

} // namespace

TEST(RenderSlide, IsThePageAndTheStripTimesTheScale)
{
    const QSize one = blankPicture().size();
    EXPECT_EQ(one.width(), 120);
    EXPECT_GT(one.height(), 160);
    EXPECT_LT(one.height(), 200);
    Message message;
    message.slides().appendSlide(3000u);
    for (int scale = 2; scale <= LargestScale; ++scale)
        EXPECT_EQ(renderSlide(message, 0, scale).size(), one * scale);
}

TEST(RenderSlide, IsNullWhenThereIsNoSuchSlide)
{
    Message message;
    EXPECT_TRUE(renderSlide(message, 0, 1).isNull());
    message.slides().appendSlide(3000u);
    EXPECT_TRUE(renderSlide(message, 1, 1).isNull());
}

TEST(RenderSlide, HasTheColorOfTheSlideThenOfTheRootLayout)
{
    for (const PaperRow &row : paperRows) {
        SCOPED_TRACE(std::string(row.slide) + '/' + row.root);
        Message message;
        message.slides().appendSlide(3000u)->setPageColor(color(row.slide));
        message.slides().setRootLayout(120, 160)->setBackgroundColor(QString::fromLatin1(row.root));
        const QImage page = pageOf(renderSlide(message, 0, 1));
        EXPECT_EQ(boundsOfColor(page, row.paper), page.rect());
    }
}

TEST(RenderSlide, CanHaveAnySize)
{
    constexpr int most = std::numeric_limits<int>::max();
    const QSize sizes[] = {{1, 1}, {3, 2000}, {2000, 3}, {-1, 0}, {most, 1}, {most, most}};
    for (const QSize &size : sizes) {
        SCOPED_TRACE(testing::PrintToString(size));
        OneObject made(SMIL_MEDIA_TEXT, "text", {0, 0, 100, 100});
        addObject(&made.message, 0, SMIL_MEDIA_VIDEO, QStringLiteral("video"), "a");
        addObject(&made.message, 0, SMIL_MEDIA_REF, QStringLiteral("ref"), "a");
        addObject(&made.message, 0, SMIL_MEDIA_AUDIO, QStringLiteral("audio"), "a");
        made.message.slides().setRootLayout(size.width(), size.height());
        const QImage picture = made.picture(LargestScale);
        ASSERT_FALSE(picture.isNull());
        EXPECT_LE(picture.width(), 4096);
        EXPECT_LE(picture.height(), 4096 * 12 / 10);
    }
}

TEST(RenderSlide, OfALargePageHasASmallerScale)
{
    const struct
    {
        QSize page;
        int scale;
    } rows[] = {
        {{320, 480}, 8}, {{640, 480}, 5}, {{2048, 10}, 2}, {{10, 1500}, 2}, {{2000, 2000}, 1}};
    for (const auto &row : rows) {
        Message message;
        message.slides().appendSlide(3000u);
        message.slides().setRootLayout(row.page.width(), row.page.height());
        EXPECT_EQ(renderSlide(message, 0, LargestScale), renderSlide(message, 0, row.scale));
        EXPECT_EQ(renderSlide(message, 0, LargestScale).width(), row.page.width() * row.scale);
    }
}

TEST(RenderSlide, EmptyTextDrawsNothing)
{
    for (const QByteArray &octets : {QByteArray(), QByteArray("\0a", 2), QByteArray(" \n")})
        EXPECT_EQ(OneObject(SMIL_MEDIA_TEXT, octets).picture(), blankPicture());
}

TEST(RenderSlide, EmptyTextTakesNoSpaceFromThePicture)
{
    OneObject made(SMIL_MEDIA_IMAGE, redAndBlue({120, 160}));
    made.object->setRegionId(QStringLiteral("none"));
    addObject(&made.message, 0, SMIL_MEDIA_TEXT, QStringLiteral("text"), "");
    EXPECT_EQ(boundsOfDrawing(pageOf(made.picture())), QRect(QPoint(0, 0), HandsetPage));
}

TEST(RenderSlide, UnsupportedMediumIsABoxInItsRegion)
{
    const QRect region(10, 20, 100, 60);
    const OneObject noPicture(SMIL_MEDIA_IMAGE, "no picture", region);
    const OneObject reference(SMIL_MEDIA_REF, redAndBlue({20, 20}), region);
    const OneObject unknown(SMIL_MEDIA_UNKNOWN, "text", region);
    OneObject text(SMIL_MEDIA_TEXT, "text", region);
    OneObject video(SMIL_MEDIA_VIDEO, "video", region);
    text.object->setData(nullptr);
    video.object->setData(nullptr);
    const QImage box = noPicture.picture();
    const QRect drawn = boundsOfDrawing(pageOf(box));
    EXPECT_TRUE(region.contains(drawn)) << testing::PrintToString(drawn);
    EXPECT_GT(drawn.width(), region.width() * 8 / 10);
    for (const QImage &picture :
         {reference.picture(), unknown.picture(), text.picture(), video.picture()})
        EXPECT_EQ(picture, box);
}

TEST(RenderSlide, BoxHasTheNameOfTheUnsupportedMedium)
{
    OneObject made(SMIL_MEDIA_IMAGE, "no picture", {10, 20, 100, 60});
    const QImage box = made.picture();
    made.object->setSrc(QStringLiteral("other"));
    EXPECT_NE(made.picture(), box);
}

TEST(RenderSlide, MediaStayInsideRegionsOfAnySize)
{
    for (const auto type : {SMIL_MEDIA_VIDEO, SMIL_MEDIA_REF, SMIL_MEDIA_TEXT, SMIL_MEDIA_IMAGE}) {
        for (const QSize &size : {QSize(1, 1), QSize(5, 5), QSize(30, 10), QSize(2, 100)}) {
            SCOPED_TRACE(testing::PrintToString(int(type)) + ' ' + testing::PrintToString(size));
            const QRect region(QPoint(20, 30), size);
            const QRect drawn =
                boundsOfDrawing(pageOf(OneObject(type, "octets", region).picture()));
            EXPECT_TRUE(drawn.isEmpty() || region.contains(drawn)) << testing::PrintToString(drawn);
        }
    }
}

TEST(RenderSlide, VideoIsAFrameWithAPlaySignAndItsName)
{
    OneObject made(SMIL_MEDIA_VIDEO, "video", {0, 40, 120, 80});
    const QImage page = pageOf(made.picture());
    const QRect drawn = boundsOfDrawing(page);
    EXPECT_TRUE(QRect(0, 40, 120, 80).contains(drawn)) << testing::PrintToString(drawn);
    EXPECT_GT(drawn.width(), 100);
    const QRect middle(40, 55, 40, 40);
    EXPECT_FALSE(boundsOfColor(page.copy(middle), White).isEmpty());
    made.object->setSrc(QStringLiteral("other"));
    EXPECT_NE(pageOf(made.picture()), page);
    EXPECT_EQ(pageOf(made.picture()).copy(middle), page.copy(middle));
}

TEST(RenderSlide, AudioIsNamedOnlyBelowThePage)
{
    OneObject made(SMIL_MEDIA_AUDIO, "no text", {0, 0, 120, 160});
    const QImage picture = made.picture();
    EXPECT_EQ(pageOf(picture), pageOf(blankPicture()));
    EXPECT_NE(stripOf(picture), stripOf(blankPicture()));
    made.object->setSrc(QStringLiteral("other"));
    EXPECT_NE(stripOf(made.picture()), stripOf(picture));
    made.object->setSrc(QStringLiteral(" "));
    EXPECT_NE(stripOf(made.picture()), stripOf(blankPicture())) << "no sign without a name";
}

TEST(RenderSlide, StripShowsNumberAndDuration)
{
    Message message;
    for (int i = 0; i < 2; ++i)
        message.slides().appendSlide(3000u);
    const QImage first = renderSlide(message, 0, 1);
    const QImage second = renderSlide(message, 1, 1);
    const QRect left(0, 160, 20, first.height() - 160);
    const QRect right(60, 160, 60, first.height() - 160);
    EXPECT_NE(second.copy(left), first.copy(left));
    EXPECT_EQ(second.copy(right), first.copy(right));
    QList<QImage> strips{first};
    for (int duration : {2500, -1, -2, std::numeric_limits<int>::max()}) {
        message.slides().getSlide(0)->setDur(duration);
        const QImage picture = renderSlide(message, 0, 1);
        EXPECT_EQ(picture.copy(left), first.copy(left)) << duration;
        EXPECT_FALSE(strips.contains(picture)) << duration;
        strips += picture;
    }
}

TEST(RenderSlides, WritesEverySlideAndAContactSheet)
{
    const QTemporaryDir directory;
    OneObject made(SMIL_MEDIA_IMAGE, redAndBlue({20, 20}));
    made.message.slides().appendSlide(3000u);
    QStringList report;
    QString error;
    ASSERT_TRUE(renderSlides(made.message, directory.path(), 2, {}, &report, &error));
    EXPECT_EQ(namesIn(directory), (QStringList{"contact-sheet.png", "slide-1.png", "slide-2.png"}));
    EXPECT_EQ(QImage(directory.filePath("slide-1.png")), made.picture(2));
    const QSize size = made.picture(2).size();
    EXPECT_EQ(report[1],
              QStringLiteral("wrote %1/slide-2.png (%2x%3)")
                  .arg(directory.path())
                  .arg(size.width())
                  .arg(size.height()));
    EXPECT_EQ(report.size(), 3);
}

TEST(RenderSlides, PutsAHundredSlidesOnASheet)
{
    const QTemporaryDir directory;
    Message message;
    addSmallSlides(&message, 101);
    QStringList report;
    QString error;
    ASSERT_TRUE(renderSlides(message, directory.path(), 1, {}, &report, &error));
    EXPECT_EQ(report.size(), 103);
    const QImage first(directory.filePath("contact-sheet.png"));
    const QImage second(directory.filePath("contact-sheet-2.png"));
    EXPECT_GT(first.height(), 10 * second.height());
    EXPECT_GT(first.width(), 2 * second.width());
}

TEST(RenderSlides, StopsAfterAThousandSlides)
{
    const QTemporaryDir directory;
    Message message;
    addSmallSlides(&message, 1002);
    QStringList report;
    QString error;
    ASSERT_TRUE(renderSlides(message, directory.path(), 1, {}, &report, &error));
    EXPECT_EQ(report.last(),
              "slides that were not rendered: 2, from slide 1001 on (limit: 1000 slides; raise it "
              "with --max-slides)");
    EXPECT_EQ(namesIn(directory).size(), 1010);
}

TEST(RenderSlides, StopsAtTheLimitOfSlides)
{
    const QTemporaryDir directory;
    Message message;
    addSmallSlides(&message, 5);
    const QStringList report = reportOf(message, directory, {.slides = 3});
    EXPECT_EQ(namesIn(directory),
              (QStringList{"contact-sheet.png", "slide-1.png", "slide-2.png", "slide-3.png"}));
    EXPECT_EQ(report.last(),
              "slides that were not rendered: 2, from slide 4 on (limit: 3 slides; raise it with "
              "--max-slides)");
}

TEST(RenderSlides, StopsAtTheLimitOfDrawnPixels)
{
    const QTemporaryDir directory;
    Message message;
    message.slides().setRootLayout(1000, 600);
    for (int i = 0; i < 5; ++i)
        message.slides().appendSlide(3000u);
    const QStringList report = reportOf(message, directory, {.drawn = 2});
    EXPECT_EQ(namesIn(directory), (QStringList{"contact-sheet.png", "slide-1.png", "slide-2.png"}));
    EXPECT_EQ(report.last(),
              "slides that were not rendered: 3, from slide 3 on (limit: 2 million pixels; raise "
              "it with --max-drawn)");
}

TEST(RenderSlides, ReportsMediaThatWereNotDrawn)
{
    const QTemporaryDir directory;
    Message message;
    addOverlapping(&message, 1000);
    const QStringList report = reportOf(message, directory, {.drawn = 1});
    EXPECT_EQ(namesIn(directory), (QStringList{"contact-sheet.png", "slide-1.png"}));
    EXPECT_TRUE(report.last().startsWith("media that were not drawn: "))
        << report.last().toStdString();
    EXPECT_TRUE(report.last().endsWith(
        ", from slide 1 on (limit: 1 million pixels; raise it with --max-drawn)"));
}

TEST(RenderSlides, ReportsPicturesThatWereNotDecoded)
{
    const QTemporaryDir directory;
    OneObject made(SMIL_MEDIA_IMAGE, redAndBlue({2000, 1000}));
    const QStringList report = reportOf(made.message, directory, {.decoded = 1});
    EXPECT_EQ(report.last(),
              "pictures that were not decoded: 1, from slide 1 on (limit: 1 million pixels; raise "
              "it with --max-decoded)");
    EXPECT_NE(reportOf(made.message, directory, {}).last(), report.last());
}

TEST(SlideRenderer, CountsThePixelsOfSlidesAndMedia)
{
    Message message;
    message.slides().appendSlide(3000u);
    SlideRenderer blank(message, 4);
    const QImage slide = blank.render(0);
    EXPECT_GE(blank.drawnPixels(), qint64(slide.width()) * slide.height());
    Message crowded;
    addOverlapping(&crowded, 100);
    SlideRenderer renderer(crowded, 4);
    renderer.render(0);
    EXPECT_GE(renderer.drawnPixels() - blank.drawnPixels(), 100 * 480 * 640 / 8);
}

TEST(SlideRenderer, CountsTheCharactersOfTexts)
{
    OneObject brief(SMIL_MEDIA_TEXT, "t", {0, 0, 120, 160});
    OneObject full(SMIL_MEDIA_TEXT, QByteArray(100'000, 't'), {0, 0, 120, 160});
    SlideRenderer first(brief.message, 1);
    SlideRenderer second(full.message, 1);
    first.render(0);
    second.render(0);
    EXPECT_GT(second.drawnPixels(), first.drawnPixels() + 10'000);
    EXPECT_LT(second.drawnPixels(), first.drawnPixels() + 100'000);
}

TEST(SlideRenderer, DecodesThePictureOfManySlidesOnce)
{
    OneObject made(SMIL_MEDIA_IMAGE, redAndBlue({400, 300}));
    addUses(&made, 50);
    SlideRenderer renderer(made.message, 1);
    for (unsigned int i = 0; i <= 50; ++i)
        EXPECT_FALSE(renderer.render(i).isNull());
    EXPECT_EQ(renderer.pictures().decodings(), 1);
}

TEST(SlideRenderer, DecodesTheTextOfManySlidesOnce)
{
    OneObject made(SMIL_MEDIA_TEXT, "text");
    addUses(&made, 50);
    SlideRenderer renderer(made.message, 1);
    for (unsigned int i = 0; i <= 50; ++i)
        EXPECT_FALSE(renderer.render(i).isNull());
    EXPECT_EQ(renderer.texts().decodings(), 1);
}

TEST(RenderSlides, ReportsTheFileThatCannotBeWritten)
{
    const QTemporaryDir directory;
    ASSERT_TRUE(QDir(directory.path()).mkdir("slide-2.png"));
    Message message;
    addSmallSlides(&message, 3);
    QStringList report;
    QString error;
    EXPECT_FALSE(renderSlides(message, directory.path(), 1, {}, &report, &error));
    EXPECT_EQ(report.size(), 1);
    EXPECT_TRUE(error.startsWith("cannot write " + directory.filePath("slide-2.png") + ": "))
        << error.toStdString();
    EXPECT_EQ(namesIn(directory), QStringList("slide-1.png"));
}

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen"); // the machine may have no display
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
