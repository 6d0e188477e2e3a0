/*
 * The media of a page: each part is converted once, within limits that lines name.
 */
#include "html/html_writer.h"
#include "html/media.h"
#include "render/slides_to_draw.h"

#include <QBuffer>

#include <gtest/gtest.h>

namespace {

QByteArray bitmap(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Red);
    QBuffer buffer;
    image.save(&buffer, "BMP");
    return buffer.data();
}

PlacedObject placed(const MMS_COMP_SMILMediaObject *object)
{
    return {object, QRectF(0, 0, 100, 100), SMIL_REGION_FIT_MEET, true};
}

TEST(PageMedia, LimitsTheOctetsOfAllSlides)
{
    const OneObject slide(SMIL_MEDIA_TEXT, "text");
    PageMedia media(slide.message, {.media = 1});
    EXPECT_TRUE(media.take(*slide.object, 1'000'000));
    EXPECT_TRUE(media.missingLines().isEmpty());
    EXPECT_FALSE(media.take(*slide.object, 1));
    ASSERT_EQ(media.missingLines().size(), 1);
    EXPECT_TRUE(media.missingLines().first().contains("--max-media"));
}

TEST(PageMedia, ConvertsAPictureOnlyOnce)
{
    const OneObject slide(SMIL_MEDIA_IMAGE, bitmap(600, 400));
    PageMedia media(slide.message, {.decoded = 1});
    const BrowserMedia first = media.picture(placed(slide.object));
    ASSERT_TRUE(first.type);
    EXPECT_STREQ(first.type, "image/png");
    EXPECT_EQ(media.picture(placed(slide.object)).octets.constData(), first.octets.constData());
    EXPECT_TRUE(media.missingLines().isEmpty());
}

TEST(PageMedia, DoesNotConvertALargePicture)
{
    const OneObject slide(SMIL_MEDIA_IMAGE, bitmap(600, 500));
    PageMedia media(slide.message, {.decoded = 1});
    EXPECT_FALSE(media.picture(placed(slide.object)).type);
    ASSERT_EQ(media.missingLines().size(), 1);
    EXPECT_TRUE(media.missingLines().first().contains("--max-decoded"));
}

TEST(PageMedia, MeasuresATextOnlyOnceForEachArea)
{
    constexpr int Slides = 100;
    const OneObject slide(SMIL_MEDIA_TEXT, QByteArray(2'000, 'x'));
    const auto &part = *slide.object->getData();
    PageMedia media(slide.message, {});
    for (int i = 0; i < Slides; ++i) {
        EXPECT_TRUE(media.fits(part, QSizeF(1000, 1000), 10));
        EXPECT_FALSE(media.fits(part, QSizeF(100, 100), 10));
    }
}

TEST(PageMedia, TakesATextForTooLongOnceMeasuringTakesTooLong)
{
    const OneObject slide(SMIL_MEDIA_TEXT, QByteArray(2'000, 'x'));
    const auto &part = *slide.object->getData();
    PageMedia media(slide.message, {});
    EXPECT_TRUE(media.fits(part, QSizeF(1000, 1000), 10));
    for (int i = 1; i <= 100; ++i)
        media.fits(part, QSizeF(1000 + i, 1000), 10);
    EXPECT_FALSE(media.fits(part, QSizeF(2000, 2000), 10));
    EXPECT_TRUE(media.fits(part, QSizeF(1000, 1000), 10));
}

TEST(HtmlWriter, EscapesTextsAndValues)
{
    QBuffer page;
    page.open(QIODevice::WriteOnly);
    HtmlWriter html(&page);
    html.element("p", "<&\"'\x1b\n", {{"title", "\"><b>"}});
    EXPECT_EQ(page.data(), "<p title=\"&quot;&gt;&lt;b&gt;\">&lt;&amp;&quot;&#39;\\u{1b}\n</p>");
}

} // namespace
