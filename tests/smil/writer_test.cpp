/*
 * Writing SMIL: every fragment octet for octet, because other handsets and the repairs of the
 * reader depend on its blanks; and whole documents written and read back.
 */
#include "base/durations.h"
#include "presentation/smil_result.h"
#include "smil/presentation_facts.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

namespace {

const QString ownText =
    "<region id=\"text\"  height=\"160\"  width=\"120\" left=\"0\" top=\"0\" fit=\"hidden\" />\n";
const QString ownImage = "<region id=\"image\"  height=\"160\"  width=\"120\" left=\"0\" "
                         "top=\"160\" fit=\"hidden\" />\n";
const QString plainRoot = "<root-layout height=\"160\" width=\"120\" />\n";

QString documentWith(const QString &metas, const QString &layout, const QString &body)
{
    return "<smil>\n<head>\n" + metas + "<layout> \n" + layout + "</layout> \n</head>\n<body>\n"
        + body + "</body>\n</smil>\n";
}

// A presentation with one slide that lasts 0 ms and has one object.
struct OneObject
{
    explicit OneObject(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type)
    {
        MMS_COMP_SMILTimingContainer *slide = data.appendSlide(0U);
        object = new MMS_COMP_SMILMediaObject(nullptr);
        object->setMediaElementType(type);
        slide->appendObject(object);
    }

    // The text written for the object.
    QString written()
    {
        const QString text = MMS_COMP_SMILParser::convertToSMILLang(&data);
        const QString opening = "<par dur=\"0ms\">\n";
        const qsizetype start = text.indexOf(opening) + opening.size();
        return text.mid(start, text.indexOf("</par>") - start);
    }

    MMS_COMP_SMILData data{nullptr};
    MMS_COMP_SMILMediaObject *object;
};

using Change = std::function<void(MMS_COMP_SMILMediaObject &)>;

void expectWritten(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type, const Change &change, const QString &text)
{
    OneObject one(type);
    change(*one.object);
    EXPECT_EQ(one.written(), text);
}

// The lines of the layout after the root layout.
QString regionLines(MMS_COMP_SMILData &data)
{
    const QString text = MMS_COMP_SMILParser::convertToSMILLang(&data);
    const qsizetype start = text.indexOf(plainRoot) + plainRoot.size();
    return text.mid(start, text.indexOf("</layout>") - start);
}

} // namespace

TEST(Writer, NullReturnsAnEmptyText)
{
    const QString text = MMS_COMP_SMILParser::convertToSMILLang(nullptr);
    EXPECT_TRUE(text.isEmpty());
}

TEST(Writer, EmptyPresentationHasItsRootLayout)
{
    MMS_COMP_SMILData data(nullptr);
    EXPECT_EQ(MMS_COMP_SMILParser::convertToSMILLang(&data), documentWith("", plainRoot, ""));
}

TEST(Writer, WritesTheReferenceDocument)
{
    SmilMessage message;
    MMS_COMP_SMILParser::updateToCorvaneRegion(&message.data);
    MMS_COMP_SMILTimingContainer *slide = message.data.appendSlide(QvlDuration::Default);
    for (const auto &[type, src, region] :
         {std::tuple(SMIL_MEDIA_IMAGE, "a.jpg", "image"), {SMIL_MEDIA_TEXT, "b.txt", "text"}}) {
        auto *object = new MMS_COMP_SMILMediaObject(nullptr);
        object->setMediaElementType(type);
        object->setSrc(src);
        object->setAlt("");
        object->setRegionId(region);
        slide->appendObject(object);
    }
    EXPECT_EQ(MMS_COMP_SMILParser::convertToSMILLang(&message.data),
              "<smil>\n<head>\n<layout> \n<root-layout height=\"160\" width=\"120\" />\n" + ownText
                  + ownImage
                  + "</layout> \n</head>\n<body>\n<par dur=\"5000ms\">\n"
                    "<img src=\"a.jpg\" region=\"image\" >\n</img>\n"
                    "<text src=\"b.txt\" region=\"text\" >\n</text>\n"
                    "</par>\n</body>\n</smil>\n");
}

TEST(Writer, MetasAreTrimmed)
{
    MMS_COMP_SMILData data(nullptr);
    data.appendMeta(" author\n", "\t me and you ");
    data.appendMeta("", "");
    data.appendMeta("a&\"<", "b");
    EXPECT_EQ(MMS_COMP_SMILParser::convertToSMILLang(&data),
              documentWith("<meta name=\"author\" content=\"me and you\" />\n"
                           "<meta name=\"\" content=\"\" />\n"
                           "<meta name=\"a&\"<\" content=\"b\" />\n",
                           plainRoot, ""));
}

TEST(Writer, RootLayoutIsWritten)
{
    struct
    {
        int width;
        int height;
        const char *color;
        QString line;
    } const rows[] = {
        {120, 160, "", "<root-layout height=\"160\" width=\"120\" />\n"},
        {-1, 0, "", "<root-layout height=\"0\" width=\"-1\" />\n"},
        {120, 160, "red",
         "<root-layout height=\"160\" width=\"120 background-color=\"#ff0000\" />\n"},
        {1, 2, "#fff", "<root-layout height=\"2\" width=\"1 background-color=\"#0f0f0f\" />\n"},
        {1, 2, "#0080FF", "<root-layout height=\"2\" width=\"1 background-color=\"#0080ff\" />\n"},
        {1, 2, "black", "<root-layout height=\"2\" width=\"1 background-color=\"#000000\" />\n"},
        {120, 160, "white",
         "<root-layout height=\"160\" width=\"120 background-color=\"#ffffff\" />\n"},
        {1, 2, "Red", "<root-layout height=\"2\" width=\"1\" />\n"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.line.toStdString());
        MMS_COMP_SMILData data(nullptr);
        data.setRootLayout(row.width, row.height)->setBackgroundColor(row.color);
        EXPECT_EQ(MMS_COMP_SMILParser::convertToSMILLang(&data), documentWith("", row.line, ""));
    }
}

TEST(Writer, RegionIdsAreWritten)
{
    const std::pair<const char *, QString> rows[] = {
        {"text", "<region id=\"text\"  height=\"4\"  width=\"3\" left=\"1\" top=\"2\" />\n"},
        {" a b ", "<region id=\"a b\"  height=\"4\"  width=\"3\" left=\"1\" top=\"2\" />\n"},
        {" ", "<region id=\"\"  height=\"4\"  width=\"3\" left=\"1\" top=\"2\" />\n"},
        {"", "<region   height=\"4\"  width=\"3\" left=\"1\" top=\"2\" />\n"},
        {"%1", "<region id=\"%1\"  height=\"4\"  width=\"3\" left=\"1\" top=\"2\" />\n"},
    };
    for (const auto &[id, line] : rows) {
        MMS_COMP_SMILData data(nullptr);
        data.appendRegion(1, 2, 3, 4, "none", id);
        EXPECT_EQ(regionLines(data), line);
    }
}

TEST(Writer, NegativeSizesOfRegionsAreOmitted)
{
    struct
    {
        float width;
        float height;
        QString line;
    } const rows[] = {
        {-1, -1, "<region id=\"a\" left=\"-5\" top=\"-6\" fit=\"fill\" />\n"},
        {3, -1, "<region id=\"a\"  width=\"3\" left=\"-5\" top=\"-6\" fit=\"fill\" />\n"},
        {-0.5F, 4, "<region id=\"a\"  height=\"4\" left=\"-5\" top=\"-6\" fit=\"fill\" />\n"},
        {0, 0,
         "<region id=\"a\"  height=\"0\"  width=\"0\" left=\"-5\" top=\"-6\" fit=\"fill\" />\n"},
    };
    for (const auto &row : rows) {
        MMS_COMP_SMILData data(nullptr);
        data.appendRegion(-5, -6, row.width, row.height, "fill", "a");
        EXPECT_EQ(regionLines(data), row.line);
    }
}

TEST(Writer, PercentRegionsAreWritten)
{
    MMS_COMP_SMILData data(nullptr);
    data.setLayoutMeasureUnit(SMIL_UNIT_PERCENT);
    data.appendRegion(0, 50, 100, 50, "hidden", "a");
    data.appendRegion(1.5F, 2, -1, -1, "none", "");
    EXPECT_EQ(regionLines(data),
              "<region id=\"a\"  height=\"50%\"  width=\"100%\" left=\"0%\" top=\"50%\" "
              "fit=\"hidden\" />\n<region  left=\"1.5%\" top=\"2%\" />\n");
}

TEST(Writer, RegionNumbersHaveSixDigits)
{
    const std::pair<float, const char *> rows[] = {
        {0.0F, "0"},
        {-0.0F, "0"},
        {-160.0F, "-160"},
        {-1e6F, "-1e+06"},
        {160.0F, "160"},
        {33.333332F, "33.3333"},
        {66.666664F, "66.6667"},
        {0.1F, "0.1"},
        {1.5F, "1.5"},
        {-12.25F, "-12.25"},
        {123456.0F, "123456"},
        {999999.0F, "999999"},
        {1234567.0F, "1.23457e+06"},
        {1e6F, "1e+06"},
        {0.0001F, "0.0001"},
        {0.00001F, "1e-05"},
        {123.4567F, "123.457"},
        {100000.4F, "100000"},
        {100000.6F, "100001"},
        {std::numeric_limits<float>::max(), "3.40282e+38"},
    };
    for (const auto &[number, text] : rows) {
        MMS_COMP_SMILData data(nullptr);
        data.appendRegion(number, 0, -1, -1, "none", "");
        EXPECT_EQ(regionLines(data), QString("<region  left=\"%1\" top=\"0\" />\n").arg(text));
    }
}

TEST(Writer, FitsOfRegionsAreWritten)
{
    for (const QString fit : {"hidden", "fill", "meet", "scroll", "slice"}) {
        MMS_COMP_SMILData data(nullptr);
        data.appendRegion(0, 0, -1, -1, fit, "");
        EXPECT_EQ(regionLines(data), "<region  left=\"0\" top=\"0\" fit=\"" + fit + "\" />\n");
    }
    MMS_COMP_SMILData data(nullptr);
    data.appendRegion(0, 0, -1, -1, "Fill", "");
    EXPECT_EQ(regionLines(data), "<region  left=\"0\" top=\"0\" />\n");
}

TEST(Writer, OpeningOfASlideIsWritten)
{
    const std::pair<int, const char *> rows[] = {
        {5000, "<par dur=\"5000ms\">\n</par>\n"},
        {0, "<par dur=\"0ms\">\n</par>\n"},
        {1, "<par dur=\"1ms\">\n</par>\n"},
        {2147483647, "<par dur=\"2147483647ms\">\n</par>\n"},
        {QvlDuration::NotGiven, "<par>\n</par>\n"},
        {QvlDuration::Indefinite, "<par dur=\"indefinite\">\n</par>\n"},
        {-3, "<par>\n</par>\n"},
        {std::numeric_limits<int>::min(), "<par>\n</par>\n"},
    };
    for (const auto &[duration, text] : rows) {
        MMS_COMP_SMILData data(nullptr);
        data.appendSlide(unsigned(duration));
        EXPECT_EQ(MMS_COMP_SMILParser::convertToSMILLang(&data), documentWith("", plainRoot, text));
    }
}

TEST(Writer, ElementsOfMediaObjectsAreWritten)
{
    const std::pair<MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE, const char *> rows[] = {
        {SMIL_MEDIA_AUDIO, "<audio src=\"s\" alt=\"a\" >\n</audio>\n"},
        {SMIL_MEDIA_VIDEO, "<video src=\"s\" alt=\"a\" >\n</video>\n"},
        {SMIL_MEDIA_TEXT, "<text src=\"s\" alt=\"a\" region=\"r\" >\n</text>\n"},
        {SMIL_MEDIA_IMAGE, "<img src=\"s\" alt=\"a\" region=\"r\" >\n</img>\n"},
        {SMIL_MEDIA_REF, "<ref src=\"s\" alt=\"a\" region=\"r\" >\n</ref>\n"},
        {SMIL_MEDIA_UNKNOWN, ""},
        {MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE(6), ""}, // streams may hold any number
        {MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE(-1), ""},
    };
    for (const auto &[type, text] : rows) {
        SCOPED_TRACE(type);
        expectWritten(
            type,
            [](MMS_COMP_SMILMediaObject &object) {
                object.setSrc("s");
                object.setAlt("a");
                object.setRegionId("r");
            },
            text);
    }
}

TEST(Writer, OnlyUnknownObjectsAreOmittedWithTheirParams)
{
    OneObject one(SMIL_MEDIA_UNKNOWN);
    one.object->appendParamElem("a", "1", SMIL_PARAM_VALUE_DATA, "");
    auto *audio = new MMS_COMP_SMILMediaObject(nullptr);
    audio->setMediaElementType(SMIL_MEDIA_AUDIO);
    one.data.getSlide(0)->appendObject(audio);
    EXPECT_EQ(one.written(), "<audio >\n</audio>\n");
}

TEST(Writer, TextsOfAnObjectAreTrimmedAndBlankOnesOmitted)
{
    struct
    {
        const char *src;
        const char *alt;
        const char *region;
        const char *text;
    } const rows[] = {
        {"", "", "", "<img >\n</img>\n"},
        {" ", "\t", "\n", "<img >\n</img>\n"},
        {" a ", "", "", "<img src=\"a\" >\n</img>\n"},
        {"", " b\n", "", "<img alt=\"b\" >\n</img>\n"},
        {"", "", " c c ", "<img region=\"c c\" >\n</img>\n"},
        {"%1", "%2", "%3", "<img src=\"%1\" alt=\"%2\" region=\"%3\" >\n</img>\n"},
        {"a&b", "<\">", "'", "<img src=\"a&b\" alt=\"<\">\" region=\"'\" >\n</img>\n"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.text);
        expectWritten(
            SMIL_MEDIA_IMAGE,
            [&](MMS_COMP_SMILMediaObject &object) {
                object.setSrc(row.src);
                object.setAlt(row.alt);
                object.setRegionId(row.region);
            },
            row.text);
    }
}

TEST(Writer, LocationBecomesTheAlternativeText)
{
    expectWritten(
        SMIL_MEDIA_AUDIO, [](MMS_COMP_SMILMediaObject &object) { object.setSrc("a.amr"); },
        "<audio src=\"a.amr\" alt=\"a.amr\" >\n</audio>\n");
}

TEST(Writer, TimesAreWritten)
{
    struct
    {
        MMS_COMP_SMIL_TIME_TYPE type;
        const char *event;
        int value;
        QString text;
    } const rows[] = {
        {SMIL_TIME_NONE, "x", 5, ""},
        {SMIL_TIME_INVALID, "x", 5, ""},
        {SMIL_TIME_OFFSET, "x", 2000, " %1=\"2000ms\""},
        {SMIL_TIME_OFFSET, "", 0, " %1=\"0ms\""},
        {SMIL_TIME_OFFSET, "", -1, " %1=\"-1ms\""},
        {SMIL_TIME_EVENT, "img1", 0, " %1=\"id(img1)(begin)\""},
        {SMIL_TIME_EVENT, "img1", -1, " %1=\"id(img1)(end)\""},
        {SMIL_TIME_EVENT, "img1", 3000, " %1=\"id(img1)(3000ms)\""},
        {SMIL_TIME_EVENT, "img1", 1, " %1=\"id(img1)(1ms)\""},
        {SMIL_TIME_EVENT, "img1", -5, " %1=\"id(img1)(begin)\""},
        {SMIL_TIME_EVENT, " a b ", 0, " %1=\"id(a b)(begin)\""},
        {SMIL_TIME_EVENT, "", 0, " %1=\"id()(begin)\""},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.text.toStdString());
        const QString end = QString(row.text).replace("%1", "end");
        OneObject one(SMIL_MEDIA_AUDIO);
        one.object->setEndTimeType(row.type);
        one.object->setEndTimeEvent(row.event);
        one.object->setEndTimeLength(row.value);
        EXPECT_EQ(one.written(), "<audio" + end + " >\n</audio>\n");
        one.object->setBeginTimeType(row.type);
        one.object->setBeginTimeEvent(row.event);
        one.object->setBeginTimeLength(row.value);
        const QString begin = QString(row.text).replace("%1", "begin");
        EXPECT_EQ(one.written(), "<audio" + begin + end + " >\n</audio>\n");
    }
}

TEST(Writer, AttributesOfAnObjectHaveAFixedOrder)
{
    expectWritten(
        SMIL_MEDIA_TEXT,
        [](MMS_COMP_SMILMediaObject &object) {
            object.setSrc("s");
            object.setAlt("a");
            object.setRegionId("r");
            object.setBeginTimeType(SMIL_TIME_OFFSET);
            object.setBeginTimeLength(1);
            object.setEndTimeType(SMIL_TIME_EVENT);
            object.setEndTimeEvent("e");
            object.setEndTimeLength(-1);
            object.appendParamElem("p", "v", SMIL_PARAM_VALUE_DATA, "");
        },
        "<text src=\"s\" alt=\"a\" region=\"r\" begin=\"1ms\" end=\"id(e)(end)\" >\n"
        "<param name=\"p\" value=\"v\" />\n</text>\n");
}

TEST(Writer, ParamsAreWritten)
{
    struct
    {
        const char *name;
        const char *value;
        MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE valueType;
        const char *type;
        QString line;
    } const rows[] = {
        {"n", "v", SMIL_PARAM_VALUE_DATA, "", "<param name=\"n\" value=\"v\" />\n"},
        {"n", "v", SMIL_PARAM_VALUE_UNKNOWN, "", "<param name=\"n\" value=\"v\" />\n"},
        {"n", "v", SMIL_PARAM_VALUE_REF, "",
         "<param name=\"n\" value=\"v\" valuetype=\"ref\" />\n"},
        {"n", "v", SMIL_PARAM_VALUE_OBJECT, "",
         "<param name=\"n\" value=\"v\" valuetype=\"object\" />\n"},
        {"n", "v", SMIL_PARAM_VALUE_DATA, "t/u", "<param name=\"n\" value=\"v\" type=\"t/u\" />\n"},
        {"n", "v", SMIL_PARAM_VALUE_REF, "t/u",
         "<param name=\"n\" value=\"v\" valuetype=\"ref\" type=\"t/u\" />\n"},
        {"", "v", SMIL_PARAM_VALUE_DATA, "", "<param name=\"\" value=\"v\" />\n"},
        {" n ", " ", SMIL_PARAM_VALUE_DATA, "", "<param name=\" n \" value=\" \" />\n"},
        {"n", "", SMIL_PARAM_VALUE_DATA, "", ""},
        {"n", "", SMIL_PARAM_VALUE_UNKNOWN, "", ""},
        {"n", "", SMIL_PARAM_VALUE_REF, "", "<param valuetype=\"ref\" />\n"},
        {"n", "", SMIL_PARAM_VALUE_OBJECT, "", "<param valuetype=\"object\" />\n"},
        {"n", "", SMIL_PARAM_VALUE_DATA, "t", "<param type=\"t\" />\n"},
        {"n", "", SMIL_PARAM_VALUE_DATA, " ", "<param type=\" \" />\n"},
        {"n", "", SMIL_PARAM_VALUE_OBJECT, "t", "<param valuetype=\"object\" type=\"t\" />\n"},
        {"%1", "%2", SMIL_PARAM_VALUE_DATA, "%3",
         "<param name=\"%1\" value=\"%2\" type=\"%3\" />\n"},
        {"a\"b", "<&>", SMIL_PARAM_VALUE_DATA, "", "<param name=\"a\"b\" value=\"<&>\" />\n"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.line.toStdString());
        expectWritten(
            SMIL_MEDIA_REF,
            [&](MMS_COMP_SMILMediaObject &object) {
                object.appendParamElem(row.name, row.value, row.valueType, row.type);
            },
            "<ref >\n" + row.line + "</ref>\n");
    }
}

TEST(Writer, TextSizeParamIsAddedToATextAndWrittenOnceItHasAValue)
{
    OneObject one(SMIL_MEDIA_TEXT);
    EXPECT_EQ(one.written(), "<text >\n</text>\n");
    EXPECT_EQ(paramLinesOf(*one.object), QStringList{"textsize= 0 "});
    one.data.getSlide(0)->setTextSize("normal");
    EXPECT_EQ(one.written(), "<text >\n<param name=\"textsize\" value=\"normal\" />\n</text>\n");
}

TEST(Writer, ColorOfTheRootLayoutReplacesThePageColors)
{
    OneObject one(SMIL_MEDIA_IMAGE);
    one.data.getSlide(0)->setPageColor({SMIL_COLOR_RGB, "", QColor(1, 2, 3)});
    EXPECT_EQ(one.written(), "<img >\n</img>\n");
    EXPECT_EQ(one.data.getSlide(0)->getPageColor().kind, SMIL_COLOR_NONE);
    one.data.getRootLayout()->setBackgroundColor("navy");
    EXPECT_EQ(one.written(),
              "<img >\n<param name=\"background-color\" value=\"#000080\" />\n</img>\n");
}

TEST(Writer, TextColorIsWrittenWithTheText)
{
    OneObject one(SMIL_MEDIA_TEXT);
    one.data.getSlide(0)->setTextColor({SMIL_COLOR_NAMED, "lime", QColor(0, 255, 0)});
    EXPECT_EQ(one.written(),
              "<text >\n<param name=\"foreground-color\" value=\"#00ff00\" />\n</text>\n");
}

TEST(Writer, MeasuredPercentLayoutIsWrittenInPercentAfterNormalizing)
{
    SmilMessage message;
    EXPECT_EQ(message.read(documentOf("<layout><region id='a' top='50%'/></layout>")),
              SmilResult::Ok);
    EXPECT_EQ(regionLines(message.data),
              "<region id=\"text\"  height=\"160%\"  width=\"120%\" left=\"0%\" top=\"50%\" />\n"
              "<region id=\"image\"  height=\"160%\"  width=\"120%\" left=\"0%\" top=\"160%\" "
              "fit=\"hidden\" />\n");
}

TEST(Writer, RefIsReadBackOnItsOwnSlide)
{
    const QByteArray source = documentOf(
        "<meta name='a' content='b'/>",
        "<par dur='2500ms'><text src='t1.txt' region='text' begin='1s' end='id(x)(end)'>"
        "<param name='p' value='v' valuetype='ref' type='t'/></text><img src='i1.jpg'/></par>"
        "<par dur='indefinite'><audio src='a.amr' end='id(x)(250ms)'/></par>"
        "<seq><video src='v.3gp' alt='film'/><ref src='i2.jpg' region='image'/></seq>");
    SmilMessage first;
    EXPECT_EQ(first.read(source), SmilResult::Ok);
    const QString once = MMS_COMP_SMILParser::convertToSMILLang(&first.data);
    SmilMessage second;
    EXPECT_EQ(second.read(once.toUtf8()), SmilResult::Ok);
    EXPECT_EQ(slidesOf(second.data),
              (QStringList{"2500: text t1.txt, img i1.jpg", "-2: audio a.amr", "-1: video v.3gp",
                           "-1: ", "-1: ref i2.jpg"}));
}

TEST(Writer, DocumentWithoutRefIsReadBackUnchanged)
{
    const QByteArray text =
        documentWith("<meta name=\"a\" content=\"b\" />\n", plainRoot + ownText + ownImage,
                     "<par dur=\"2500ms\">\n"
                     "<text src=\"t1.txt\" alt=\"t\" region=\"text\" begin=\"1000ms\" >\n"
                     "<param name=\"p\" value=\"v\" valuetype=\"ref\" type=\"t\" />\n"
                     "<param name=\"textsize\" value=\"normal\" />\n</text>\n"
                     "<img src=\"i1.jpg\" region=\"image\" end=\"id(x)(end)\" >\n</img>\n"
                     "</par>\n<par>\n<video src=\"v.3gp\" end=\"id(x)(250ms)\" >\n"
                     "</video>\n</par>\n<par dur=\"indefinite\">\n</par>\n")
            .toUtf8();
    SmilMessage message;
    EXPECT_EQ(message.read(text), SmilResult::Ok);
    EXPECT_EQ(MMS_COMP_SMILParser::convertToSMILLang(&message.data).toUtf8(), text);
}

TEST(Writer, UnreadableTextsAreWrittenUnchanged)
{
    const std::pair<const char *, std::function<void(MMS_COMP_SMILData &)>> rows[] = {
        {"color", [](auto &data) { data.getRootLayout()->setBackgroundColor("red"); }},
        {"ampersand", [](auto &data) { data.appendMeta("a&b", ""); }},
        {"less-than", [](auto &data) { data.appendMeta("", "a<b"); }},
        {"quote", [](auto &data) { data.appendMeta("a\"b", ""); }},
        {"id", [](auto &data) { data.appendRegion(0, 0, 1, 1, "fill", "\""); }},
    };
    for (const auto &[name, change] : rows) {
        SCOPED_TRACE(name);
        MMS_COMP_SMILData data(nullptr);
        change(data);
        SmilMessage message;
        EXPECT_EQ(message.read(MMS_COMP_SMILParser::convertToSMILLang(&data).toUtf8()),
                  SmilResult::NotWellFormed);
    }
}

TEST(Writer, ThousandsOfSlidesAreReadNormalizedAndWritten)
{
    constexpr int count = 5000;
    const QByteArray slide = "<par dur=\"1000ms\">\n<text src=\"t1.txt\" region=\"a\" >\n</text>\n"
                             "<img src=\"i1.jpg\" region=\"b\" >\n</img>\n</par>\n";
    SmilMessage message;
    EXPECT_EQ(message.read(documentOf("<layout><region id='a'/><region id='b' top='9'/></layout>",
                                      slide.repeated(count))),
              SmilResult::Ok);
    EXPECT_EQ(message.data.getTotalSlidesNum(), unsigned(count));
    const QString text = MMS_COMP_SMILParser::convertToSMILLang(&message.data);
    EXPECT_EQ(text.count("<par dur=\"1000ms\">\n<text src=\"t1.txt\" region=\"text\" >\n</text>\n"
                         "<img src=\"i1.jpg\" region=\"image\" >\n</img>\n</par>\n"),
              count);
}
