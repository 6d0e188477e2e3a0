/*
 * The files with slides and contact sheets: their names and sizes, and what is reported.
 */
#include "render/slide_files.h"

#include "tools/render/slides_to_draw.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

namespace {

/// The names in the folder, in order.
QStringList namesIn(const QTemporaryDir &directory)
{
    return QDir(directory.path()).entryList(QDir::Files, QDir::Name);
}

void addSlides(Message *message, int count, const QSize &page)
{
    message->slides().setRootLayout(page.width(), page.height());
    for (int i = 0; i < count; ++i)
        message->slides().appendSlide(3000u);
}

// So small that many can be written quickly.
void addSmallSlides(Message *message, int count)
{
    addSlides(message, count, {4, 4});
}

Report write(const Message &message, const QTemporaryDir &directory,
             const PictureSizes &sizes = {1}, const RenderLimits &limits = {})
{
    Report report;
    QString error;
    EXPECT_TRUE(writeSlides(message, directory.path(), sizes, limits, &report, &error))
        << error.toStdString();
    return report;
}

QStringList remarks(const Message &message, const QTemporaryDir &directory,
                    const RenderLimits &limits)
{
    return write(message, directory, {1}, limits).remarks;
}

struct Rendered
{
    QStringList names; ///< of the files, in order
    QString lastRemark;
};

Rendered render(const Message &message, const RenderLimits &limits)
{
    const QTemporaryDir directory;
    const QStringList report = remarks(message, directory, limits);
    return {namesIn(directory), report.value(report.size() - 1)};
}

} // namespace

TEST(SlideFiles, WritesEverySlideAndAContactSheet)
{
    const QTemporaryDir directory;
    OneObject made(SMIL_MEDIA_IMAGE, redAndBlue({20, 20}));
    made.message.slides().appendSlide(3000u);
    const QStringList written = write(made.message, directory, {2}).written;
    EXPECT_EQ(namesIn(directory), (QStringList{"contact-sheet.png", "slide-1.png", "slide-2.png"}));
    EXPECT_EQ(QImage(directory.filePath("slide-1.png")), made.picture(2));
    const QSize size = made.picture(2).size();
    EXPECT_EQ(written[1],
              QStringLiteral("wrote %1/slide-2.png (%2x%3)")
                  .arg(directory.path())
                  .arg(size.width())
                  .arg(size.height()));
    EXPECT_EQ(written.size(), 3);
}

TEST(SlideFiles, PutsAHundredSlidesOnASheet)
{
    const QTemporaryDir directory;
    Message message;
    addSmallSlides(&message, 101);
    EXPECT_EQ(write(message, directory).written.size(), 103);
    const QImage first(directory.filePath("contact-sheet.png"));
    const QImage second(directory.filePath("contact-sheet-2.png"));
    EXPECT_GT(first.height(), 10 * second.height());
    EXPECT_GT(first.width(), 2 * second.width());
}

TEST(SlideFiles, StopsAfterAThousandSlides)
{
    const QTemporaryDir directory;
    Message message;
    addSmallSlides(&message, 1002);
    EXPECT_EQ(write(message, directory).remarks.last(),
              "slides that were not rendered: 2, from slide 1001 on (limit: 1000 slides; raise it "
              "with --max-slides)");
    EXPECT_EQ(namesIn(directory).size(), 1010);
}

TEST(SlideFiles, StopsAtTheLimitOfSlides)
{
    Message message;
    addSmallSlides(&message, 5);
    const Rendered rendered = render(message, {.slides = 3});
    EXPECT_EQ(rendered.names,
              (QStringList{"contact-sheet.png", "slide-1.png", "slide-2.png", "slide-3.png"}));
    EXPECT_EQ(rendered.lastRemark,
              "slides that were not rendered: 2, from slide 4 on (limit: 3 slides; raise it with "
              "--max-slides)");
}

TEST(SlideFiles, StopsAtTheLimitOfDrawnPixels)
{
    Message message;
    addSlides(&message, 5, {1000, 600});
    const Rendered rendered = render(message, {.drawn = 2});
    EXPECT_EQ(rendered.names, (QStringList{"contact-sheet.png", "slide-1.png", "slide-2.png"}));
    EXPECT_EQ(rendered.lastRemark,
              "slides that were not rendered: 3, from slide 3 on (limit: 2 million pixels; raise "
              "it with --max-drawn)");
}

TEST(SlideFiles, ReportsMediaThatWereNotDrawn)
{
    Message message;
    addOverlapping(&message, 1000);
    const Rendered rendered = render(message, {.drawn = 1});
    EXPECT_EQ(rendered.names, (QStringList{"contact-sheet.png", "slide-1.png"}));
    EXPECT_TRUE(rendered.lastRemark.startsWith("media that were not drawn: "))
        << rendered.lastRemark.toStdString();
    EXPECT_TRUE(rendered.lastRemark.endsWith(
        ", from slide 1 on (limit: 1 million pixels; raise it with --max-drawn)"));
}

TEST(SlideFiles, ReportsPicturesThatWereNotDecoded)
{
    const QTemporaryDir directory;
    OneObject made(SMIL_MEDIA_IMAGE, redAndBlue({2000, 1000}));
    const QStringList report = remarks(made.message, directory, {.decoded = 1});
    EXPECT_EQ(report.last(),
              "pictures that were not decoded: 1, from slide 1 on (limit: 1 million pixels; raise "
              "it with --max-decoded)");
    EXPECT_TRUE(remarks(made.message, directory, {}).isEmpty());
}

TEST(SlideFiles, ReportsTheFileThatCannotBeWritten)
{
    const QTemporaryDir directory;
    ASSERT_TRUE(QDir(directory.path()).mkdir("slide-2.png"));
    Message message;
    addSmallSlides(&message, 3);
    Report report;
    QString error;
    EXPECT_FALSE(writeSlides(message, directory.path(), {1}, {}, &report, &error));
    EXPECT_EQ(report.written.size(), 1);
    EXPECT_TRUE(error.startsWith("cannot write " + directory.filePath("slide-2.png") + ": "))
        << error.toStdString();
    EXPECT_EQ(namesIn(directory), QStringList("slide-1.png"));
}

TEST(SlideFiles, ShowTheTextThatDoesNotFitBelowItsSlide)
{
    const QTemporaryDir directory;
    OneObject made(SMIL_MEDIA_TEXT, QByteArray(1000, 'w'));
    const QStringList report = remarks(made.message, directory, {});
    EXPECT_EQ(report, QStringList("slide 1: the text name does not fit; see contact-sheet.png"));
    const int height = QImage(directory.filePath("contact-sheet.png")).height();
    made.object->getData()->setBodyData("w");
    EXPECT_TRUE(remarks(made.message, directory, {}).isEmpty());
    EXPECT_GT(height, QImage(directory.filePath("contact-sheet.png")).height() + 100);
}

TEST(SlideFiles, ReportTextsThatTheLimitLeavesOut)
{
    const QTemporaryDir directory;
    OneObject made(SMIL_MEDIA_TEXT, QByteArray(10'000, 'w'));
    EXPECT_EQ(remarks(made.message, directory, {.drawn = 1}).last(),
              "texts that are not shown whole: 1, from slide 1 on (limit: 1 million pixels; raise "
              "it with --max-drawn)");
}

TEST(SlideFiles, FillSheetsOfTheGivenWidth)
{
    const QTemporaryDir directory;
    Message message;
    addSmallSlides(&message, 5);
    for (const int width : {100, 333, 1600}) {
        write(message, directory, {1, width});
        EXPECT_EQ(QImage(directory.filePath("contact-sheet.png")).width(), width);
    }
}

TEST(SlideFiles, AreDrawnAsLargeAsTheSheetShowsThem)
{
    const QTemporaryDir directory;
    Message message;
    message.slides().appendSlide(3000u);
    const auto widthOfSlide = [&](const PictureSizes &sizes) {
        write(message, directory, sizes);
        return QImage(directory.filePath("slide-1.png")).width();
    };
    EXPECT_EQ(widthOfSlide({}), 240);
    EXPECT_EQ(widthOfSlide({0, 200}), 240);
    EXPECT_EQ(widthOfSlide({0, 641}), 720); // 641 less two margins of 20 is 601
    EXPECT_EQ(widthOfSlide({0, 3000}), 960);
    EXPECT_EQ(widthOfSlide({1, 3000}), 120);
}

TEST(RenderLimits, GrowWithTheMessage)
{
    for (const qint64 octets : {0, 1, 300 * 1024}) {
        EXPECT_EQ(limitsFor(octets).drawn, RenderLimits().drawn);
        EXPECT_EQ(limitsFor(octets).decoded, RenderLimits().decoded);
    }
    EXPECT_EQ(limitsFor(300 * 1024 + 1).drawn, 2 * RenderLimits().drawn);
    EXPECT_EQ(limitsFor(900 * 1024).decoded, 3 * RenderLimits().decoded);
    EXPECT_EQ(limitsFor(900 * 1024).slides, RenderLimits().slides);
    EXPECT_GT(limitsFor(std::numeric_limits<qint64>::max() / 2).decoded, 0);
}

TEST(RenderLimits, SufficeForAHundredSlidesWithPictures)
{
    const QTemporaryDir directory;
    OneObject made(SMIL_MEDIA_IMAGE, jpeg(QImage(640, 480, QImage::Format_RGB32)), {0, 0, 120, 160},
                   "meet");
    addUses(&made, 99);
    EXPECT_TRUE(write(made.message, directory, {}).remarks.isEmpty());
    EXPECT_EQ(QImage(directory.filePath("slide-100.png")).width(), 240);
}

TEST(RenderLimits, SufficeForThirtySlidesOfALargePage)
{
    const QTemporaryDir directory;
    Message message;
    addSlides(&message, 30, {720, 1280});
    EXPECT_TRUE(write(message, directory, {}).remarks.isEmpty());
    EXPECT_EQ(QImage(directory.filePath("slide-30.png")).width(), 720);
}

TEST(FirstPage, FillsTheSizeWithoutTheStrip)
{
    const OneObject made(SMIL_MEDIA_IMAGE, redAndBlue({120, 160}), {0, 0, 120, 160});
    for (const int size : {1, 16, 128, 256, 1024}) {
        const QImage page = firstPage(made.message, size, {});
        EXPECT_EQ(page.size(), QSize(std::max(size * 3 / 4, 1), size)) << size;
    }
    const QImage page = firstPage(made.message, 160, {});
    EXPECT_TRUE(isNear(page.pixel(10, 155), Red));
    EXPECT_TRUE(isNear(page.pixel(110, 155), Blue));
}

TEST(FirstPage, IsNullWithoutASlideOrBeyondTheLimit)
{
    Message message;
    EXPECT_TRUE(firstPage(message, 128, {}).isNull());
    message.slides().setRootLayout(2048, 2048);
    message.slides().appendSlide(3000u);
    EXPECT_TRUE(firstPage(message, 128, {.drawn = 1}).isNull());
    EXPECT_FALSE(firstPage(message, 128, {}).isNull());
}
