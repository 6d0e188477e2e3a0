/*
 * Texts on the page: in their color, inside their region, in every script, and shortened to fit.
 */
#include "render/text.h"

#include "support/octets.h"
#include "tools/render/slides_to_draw.h"

#include <QFontDatabase>
#include <QRawFont>
#include <QTextLayout>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr QRect Region(20, 30, 80, 60);

struct ReadRow
{
    const char *name;
    QByteArray octets;
    const char16_t *text;
};

const ReadRow readRows[] = {
    {"UTF-8", "47 72 C3 BC C3 9F"_octets, u"Grüß"},
    {"not UTF-8, so Latin-1", "47 72 FC DF"_octets, u"Grüß"},
    {"ends at a NUL", "47 00 48"_octets, u"G"},
    {"nothing but a NUL", "00"_octets, u""},
    {"nothing but blanks", "20 0D 0A 09 20"_octets, u""},
};

QString decoded(const MMS_COMP_SMILMultipartBodypart &part)
{
    const QvlMessage message;
    return Texts(message).find(part);
}

struct ScriptRow
{
    const char *name;
    const char16_t *text;
};

void PrintTo(const ScriptRow &row, std::ostream *out)
{
    *out << row.name;
}

const ScriptRow scriptRows[] = {
    {"Arabic", u"مرحبا بكم في الميناء"},
    {"Devanagari", u"बंदरगाह से नमस्ते"},
    {"Chinese", u"来自港口的问候"},
    {"Thai", u"สวัสดีจากท่าเรือ"},
    {"Emoji", u"\U0001F600"},
};

OneObject textObject(const QString &text, const QRect &region = Region)
{
    return OneObject(SMIL_MEDIA_TEXT, text.toUtf8(), region);
}

bool hasAllGlyphs(const QString &text)
{
    QTextLayout layout(text, pictureFont(12));
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const auto runs = layout.glyphRuns();
    return std::all_of(runs.begin(), runs.end(),
                       [](const QGlyphRun &run) { return !run.glyphIndexes().contains(0u); });
}

bool someFontHas(char32_t character)
{
    const QStringList families = QFontDatabase::families();
    return std::any_of(families.begin(), families.end(), [character](const QString &family) {
        return QRawFont::fromFont(QFont(family)).supportsCharacter(character);
    });
}

class RenderedScript : public testing::TestWithParam<ScriptRow>
{
};

} // namespace

TEST(ShownText, IsDecodedUpToItsFirstNul)
{
    for (const ReadRow &row : readRows) {
        MMS_COMP_SMILMultipartBodypart part;
        part.setBodyData(row.octets);
        EXPECT_EQ(decoded(part).toStdU16String(), row.text) << row.name;
    }
}

TEST(ShownText, IsTruncatedBeyondAnyPage)
{
    MMS_COMP_SMILMultipartBodypart part;
    part.setBodyData(QByteArray(10'000'000, 'a'));
    EXPECT_EQ(decoded(part), QString(19'999, QLatin1Char('a')) + QChar(0x2026));
    part.setBodyData(QByteArray(20'000, 'a'));
    EXPECT_EQ(decoded(part), QString(20'000, QLatin1Char('a')));
}

TEST(ShownText, IsDecodedOnceForAllItsUses)
{
    const QvlMessage message;
    MMS_COMP_SMILMultipartBodypart part;
    part.setBodyData("text");
    Texts texts(message);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(texts.find(part), "text");
    EXPECT_EQ(texts.decodings(), 1);
}

TEST(FittingText, IsAsMuchAsTheAreaHolds)
{
    const QString text(100'000, QLatin1Char('a'));
    EXPECT_GT(fittingText(text, {120, 160}, 12).size(), 10 * 20);
    EXPECT_LT(fittingText(text, {120, 160}, 12).size(), 2000);
    EXPECT_EQ(fittingText(text, {1200, 1600}, 120).size(),
              fittingText(text, {120, 160}, 12).size());
    EXPECT_EQ(fittingText(text, {2048, 2048}, 1).size(), 20'000);
    EXPECT_EQ(fittingText(QStringLiteral("abc"), {120, 160}, 12), "abc");
}

TEST(FittingText, HoldsEveryLetterThatIsDrawn)
{
    const QString narrow(2000, QLatin1Char('i'));
    QTextLayout layout(narrow, pictureFont(12));
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(120);
    layout.endLayout();
    EXPECT_GT(fittingText(narrow, {120, 12}, 12).size(), line.textLength());
}

TEST(RenderText, IsDrawnInItsColorInsideItsRegion)
{
    OneObject made = textObject(QStringLiteral("WWW WWW WWW WWW"));
    made.slide->setTextColor(color("red"));
    const QRect drawn = boundsOfDrawing(pageOf(made.picture()));
    EXPECT_TRUE(Region.contains(drawn)) << testing::PrintToString(drawn);
    EXPECT_GT(drawn.width(), Region.width() / 2);
    EXPECT_FALSE(boundsOfColor(pageOf(made.picture(4)), Red).isEmpty());
}

TEST(RenderText, WithoutAColorContrastsWithThePage)
{
    OneObject made = textObject(QStringLiteral("WWW"));
    EXPECT_FALSE(boundsOfColor(pageOf(made.picture(4)), qRgb(0, 0, 0)).isEmpty());
    made.slide->setPageColor(color("navy"));
    EXPECT_FALSE(boundsOfColor(pageOf(made.picture(4)), White).isEmpty());
}

TEST(RenderText, HasThreeSizes)
{
    OneObject made = textObject(QStringLiteral("W"));
    const auto heightFor = [&](const char *size) {
        made.slide->setTextSize(QString::fromLatin1(size));
        return boundsOfDrawing(made.picture(4).copy(0, 0, 480, 640)).height();
    };
    EXPECT_LT(heightFor("small"), heightFor("normal"));
    EXPECT_LT(heightFor("normal"), heightFor("large"));
    EXPECT_EQ(heightFor("LARGE"), heightFor("large"));
    EXPECT_EQ(heightFor("huge"), heightFor("normal"));
    EXPECT_EQ(heightFor(""), heightFor("normal"));
}

TEST(RenderText, BreaksAtBlanksAndLineEndsAndInsideLongWords)
{
    const int one = boundsOfDrawing(pageOf(textObject(QStringLiteral("MM")).picture())).height();
    for (const char *text : {"MM\nMM", "MM\r\nMM", "MM\rMM", "MMMM MMMM", "MMMMMMMMMMM"}) {
        const int two =
            boundsOfDrawing(pageOf(textObject(QString::fromLatin1(text)).picture())).height();
        EXPECT_GT(two, 2 * one) << text;
        EXPECT_LT(two, 4 * one) << text;
    }
}

TEST(RenderText, BreaksIntoTheSameLinesAtEveryScale)
{
    const OneObject made =
        textObject(QStringLiteral("The quick brown fox jumps over the lazy dog"));
    const QRect at1 = boundsOfDrawing(pageOf(made.picture()));
    for (int scale = 2; scale <= LargestScale; ++scale) {
        const QImage page = made.picture(scale).copy(QRect(QPoint(0, 0), HandsetPage * scale));
        const QRect at = boundsOfDrawing(page);
        EXPECT_NEAR(at.left(), at1.left() * scale, 1.5 * scale);
        EXPECT_NEAR(at.right(), at1.right() * scale, 1.5 * scale);
        EXPECT_NEAR(at.bottom(), at1.bottom() * scale, 1.5 * scale);
    }
}

TEST(RenderText, EndsInAnEllipsisAtTheEndOfItsRegion)
{
    const QRect line(20, 30, 80, 24);
    const QString text = QStringLiteral("seventeen syllables or so");
    const double width = line.width() - 6; // a margin of three to either side
    const QString elided = QFontMetricsF(pictureFont(12)).elidedText(text, Qt::ElideRight, width);
    ASSERT_TRUE(elided.endsWith(QChar(0x2026)));
    const QImage page = pageOf(textObject(text, line).picture());
    EXPECT_EQ(page, pageOf(textObject(elided, line).picture()));
    EXPECT_EQ(page,
              pageOf(textObject(text + QLatin1Char(' ') + text.repeated(2000), line).picture()));
    EXPECT_EQ(pageOf(textObject(QStringLiteral("two\nlines"), line).picture()),
              pageOf(textObject(QStringLiteral("two\u2026"), line).picture()));
}

TEST(RenderText, StaysInsideItsRegionAtAnyLength)
{
    for (const char16_t *piece :
         {u"a", u"ab ", u"\n", u"\u0301", u"\u202E", u"\t", u"\u200B", u"港"}) {
        SCOPED_TRACE(QString::fromUtf16(piece).toStdString());
        const QString text =
            QLatin1Char('M') + QString::fromUtf16(piece).repeated(20000) + QLatin1Char('M');
        const QRect drawn = boundsOfDrawing(pageOf(textObject(text).picture()));
        EXPECT_TRUE(Region.contains(drawn)) << testing::PrintToString(drawn);
        EXPECT_FALSE(drawn.isEmpty());
    }
}

TEST_P(RenderedScript, IsDrawnInsideItsRegionWithoutMissingGlyphs)
{
    const QString text = QString::fromUtf16(GetParam().text);
    const QRect drawn = boundsOfDrawing(pageOf(textObject(text).picture()));
    EXPECT_FALSE(drawn.isEmpty());
    EXPECT_TRUE(Region.contains(drawn)) << testing::PrintToString(drawn);
    if (!someFontHas(text.toUcs4().front()))
        GTEST_SKIP() << "no font of this machine has this script";
    EXPECT_TRUE(hasAllGlyphs(text));
}

INSTANTIATE_TEST_SUITE_P(RenderText, RenderedScript, testing::ValuesIn(scriptRows),
                         [](const auto &row) { return row.param.name; });

TEST(RenderText, StartsAtTheRightInRightToLeftScripts)
{
    const QRect drawn =
        boundsOfDrawing(pageOf(textObject(QStringLiteral("\u0645\u0631")).picture()));
    EXPECT_GT(drawn.left(), Region.center().x());
}

TEST(RenderText, NameIsDrawnVisiblyAndOnOneLine)
{
    const auto drawnName = [](const QString &name) {
        QImage image(200, 40, QImage::Format_RGB32);
        image.fill(White);
        QPainter painter(&image);
        painter.setFont(pictureFont(12));
        drawName(&painter, QRectF(0, 0, 200, 40), Qt::AlignLeft | Qt::AlignTop, name);
        painter.end();
        return image;
    };
    EXPECT_EQ(drawnName(QStringLiteral("a\u202Eb\nc")),
              drawnName(QStringLiteral("a\\u{202e}b\\u{a}c")));
    const QString longName(100'000, QLatin1Char('x'));
    EXPECT_LT(boundsOfDrawing(drawnName(longName)).bottom(), 20);
    EXPECT_EQ(drawnName(longName), drawnName(longName.left(200)));
}
