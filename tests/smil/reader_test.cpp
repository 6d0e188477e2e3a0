/*
 * Reading SMIL: the repairs of the text, reading head, layout and body, the slide of each media
 * element, and every result code.
 */
#include "base/durations.h"
#include "presentation/smil_result.h"
#include "smil/presentation_facts.h"

#include <QDomDocument>
#include <QStringEncoder>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace SmilResult;

namespace {

const QByteArray textLine =
    R"(<region id="text"  height="160"  width="120" left="0" top="0" fit="hidden" />)";
const QByteArray imageLine =
    R"(<region id="image"  height="160"  width="120" left="0" top="160" fit="hidden" />)";
// Regions that are not the handset's, by their ids.
const QByteArray a = R"(<region id="a" width="1" height="1"/>)";
const QByteArray b = R"(<region id="b" width="1" height="1"/>)";

const QStringList ownRegions{"text 0,0 120x160 0", "image 0,160 120x160 0"};

QByteArray layoutOf(const QByteArray &regions)
{
    return "<layout>" + regions + "</layout>";
}

QByteArray nested(const QByteArray &tag, int levels, const QByteArray &content = {})
{
    return QByteArray("<" + tag + ">").repeated(levels) + content
        + QByteArray("</" + tag + ">").repeated(levels);
}

struct ResultRow
{
    const char *name;
    QByteArray text;
    int result;
};

void expectResults(std::initializer_list<ResultRow> rows)
{
    for (const ResultRow &row : rows) {
        SCOPED_TRACE(row.name);
        SmilMessage message;
        EXPECT_EQ(message.read(row.text), row.result);
        EXPECT_EQ(message.parser.getLastWarning(), Ok);
    }
}

struct SlidesRow
{
    const char *name;
    QByteArray body;
    QStringList slides;
};

void expectSlides(std::initializer_list<SlidesRow> rows)
{
    for (const SlidesRow &row : rows) {
        SCOPED_TRACE(row.name);
        SmilMessage message;
        EXPECT_EQ(message.read(documentOf("", row.body)), SmilResult::Ok);
        EXPECT_EQ(slidesOf(message.data), row.slides);
    }
}

// The ids of the regions in their order after reading a layout.
QStringList idsAfterReading(const QByteArray &text)
{
    SmilMessage message;
    EXPECT_EQ(message.read(text), SmilResult::Ok);
    QStringList ids;
    for (unsigned int i = 0; i < message.data.getRegionCount(); ++i)
        ids += message.data.getRegion(i)->getId();
    return ids;
}

// A document element for the readers of fragments.
struct Fragment
{
    explicit Fragment(const QByteArray &text)
    {
        EXPECT_TRUE(document.setContent(text));
        element = document.documentElement();
    }

    QDomDocument document;
    QDomElement element;
};

class SmilFile : public testing::Test
{
protected:
    int read(const QByteArray &octets)
    {
        QFile file(name());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(octets), octets.size());
        file.close();
        return message.parser.parse(name(), &message.multipart, &message.data);
    }

    QString name() const { return folder.filePath("presentation.smil"); }

    QTemporaryDir folder;
    SmilMessage message;
};

} // namespace

TEST(SmilReader, MissingInputIsRefusedBeforeAnythingElse)
{
    SmilMessage message;
    EXPECT_EQ(message.read(QByteArray()), NullArgument);
    EXPECT_EQ(message.read(""), NullArgument);
    EXPECT_EQ(message.parser.parse(QByteArray("<smil/>"), &message.multipart, nullptr),
              NullArgument);
    EXPECT_EQ(message.parser.parse(QByteArray("no document"), nullptr, nullptr), NullArgument);
    EXPECT_EQ(message.parser.parse(QString("/no/such/file"), nullptr, nullptr), NullArgument);
    EXPECT_TRUE(regionsOf(message.data).isEmpty());
}

TEST(SmilReader, MessageMayBeMissing)
{
    SmilMessage message;
    const QByteArray text = documentOf("", "<par><text src='t1.txt'/></par>");
    EXPECT_EQ(message.parser.parse(text, nullptr, &message.data), Ok);
    EXPECT_EQ(slidesOf(message.data), QStringList{"-1: "});
}

TEST(SmilReader, StructureDeterminesTheResult)
{
    expectResults({
        {"empty smil", "<smil/>", Ok},
        {"open and close", "<smil></smil>", Ok},
        {"head only", "<smil><head/></smil>", Ok},
        {"body only", "<smil><body/></smil>", Ok},
        {"head and body", "<smil><head/><body/></smil>", Ok},
        {"unknown children", "<smil><x/>text<!-- c --><?p?><head/><y><head/></y><body/></smil>",
         Ok},
        {"capital head", "<smil><HEAD/><HEAD/><body/><BODY/></smil>", Ok},
        {"capitals", "<SMIL/>", NotSmil},
        {"other root", "<html/>", NotSmil},
        {"own region line twice and nothing else", textLine + textLine, NotSmil},
        {"longer name", "<smile/>", NotSmil},
        {"prefix", "<s:smil/>", NotSmil},
        {"declared prefix", "<s:smil xmlns:s='urn:s'/>", NotSmil},
        {"namespace", "<smil xmlns='http://www.w3.org/2001/SMIL20/Language'/>", Ok},
        {"undeclared prefixes inside", "<smil x:y='1'><p:head/><p:head/><p:body/></smil>", Ok},
        {"head after body", "<smil><body/><head/></smil>", HeadAfterBody},
        {"head, body, head", "<smil><head/><body/><head/></smil>", HeadAfterBody},
        {"second body", "<smil><body/><body/></smil>", SecondBody},
        {"second head", "<smil><head/><head/></smil>", SecondHead},
        {"second head before a body", "<smil><head/><head/><body/></smil>", SecondHead},
        {"body, body, head", "<smil><body/><body/><head/></smil>", SecondBody},
    });
}

TEST(SmilReader, TextThatIsNotADocumentIsRefused)
{
    expectResults({
        {"letters", "hello", NotWellFormed},
        {"blank", " ", NotWellFormed},
        {"single zero octet", octet(0), NotWellFormed},
        {"two zero octets", octet(0, 2), NotWellFormed},
        {"not closed", "<smil>", NotWellFormed},
        {"crossed", "<smil><head><body></head></body></smil>", NotWellFormed},
        {"two roots", "<smil/><smil/>", NotWellFormed},
        {"text after", "<smil/>x", NotWellFormed},
        {"bare ampersand", documentOf("<meta name='a&b'/>"), NotWellFormed},
        {"less-than in a value", documentOf("<meta name='a<b'/>"), NotWellFormed},
        {"attribute twice", "<smil a='1' a='2'/>", NotWellFormed},
        {"attribute without quotes", "<smil a=1/>", NotWellFormed},
        {"unclosed quote of the writer",
         documentOf(layoutOf("<root-layout height=\"160\" width=\"1"
                             "20 background-color=\"#ff0000\" />")),
         NotWellFormed},
        {"undeclared entity", documentOf("", "&nothing;"), NotWellFormed},
    });
}

TEST(SmilReader, OneTrailingZeroOctetIsDropped)
{
    expectResults({
        {"none", "<smil/>", Ok},
        {"one", "<smil/>" + octet(0), Ok},
        {"two", "<smil/>" + octet(0, 2), NotWellFormed},
        {"inside", "<smil>" + octet(0) + "</smil>", NotWellFormed},
        {"line feed and one", "<smil/>\n" + octet(0), Ok},
    });
}

TEST(SmilReader, TextBeforeSmilIsDropped)
{
    expectResults({
        {"declaration", "<?xml version='1.0' encoding='UTF-8'?>\n<smil/>", Ok},
        {"document type", "<!DOCTYPE smil PUBLIC '-//W3C//DTD SMIL 2.0//EN' 'SMIL20.dtd'><smil/>",
         Ok},
        {"byte order mark", "\xEF\xBB\xBF<smil/>", Ok},
        {"byte order mark and declaration", "\xEF\xBB\xBF<?xml version='1.0'?><smil/>", Ok},
        {"one letter", "x<smil/>", Ok},
        {"garbage", "garbage <b & </x> \"<smil/>", Ok},
        {"zero octets", octet(0, 3) + "<smil/>", Ok},
        {"octets that are not text", "\xFF\xFE\x80<smil/>", Ok},
        {"wrong encoding in the declaration", "<?xml version='1.0' encoding='x'?><smil/>", Ok},
        {"another case is kept", "garbage <SMIL/>", NotWellFormed},
        {"no smil at all", " <html/>", NotSmil},
        {"comment before another root", "<!-- c --><html/>", NotSmil},
    });
}

TEST(SmilReader, FirstSmilWinsEvenInsideAComment)
{
    expectResults({
        {"comment", "<!-- <smil> --><smil></smil>", NotWellFormed},
        {"closed in the comment", "<!-- <smil/> --><smil/>", NotWellFormed},
        {"comment without the tag", "<!-- smil --><smil/>", Ok},
        {"longer name first", "<smilx/><smil/>", NotWellFormed},
        {"comment after the start", "<smil><!-- <smil> --></smil>", Ok},
    });
}

TEST(SmilReader, TextIsDecodedAsUtf8)
{
    SmilMessage message;
    const QByteArray head = "<meta name=\"caf\xC3\xA9\" content=\"\xE4\xB8\xAD\xF0\x9F\x8C\x8D\"/>";
    EXPECT_EQ(message.read(documentOf(head)), Ok);
    EXPECT_EQ(metasOf(message.data), QStringList{QString::fromUtf8("café=中🌍")});
}

TEST(SmilReader, InvalidUtf8IsReplaced)
{
    SmilMessage message;
    EXPECT_EQ(message.read(documentOf("<meta name=\"a\xFF\"/>")), Ok);
    EXPECT_EQ(metasOf(message.data), QStringList{"a" + QString(QChar(0xFFFD)) + "="});
}

TEST(SmilReader, EmptySmilGetsTheHandsetsLayout)
{
    SmilMessage message;
    EXPECT_EQ(message.read("<smil/>"), Ok);
    EXPECT_EQ(regionsOf(message.data), ownRegions);
    EXPECT_EQ(message.data.getTotalSlidesNum(), 0U);
    EXPECT_EQ(message.data.getMetaCount(), 0U);
}

// The order of the regions shows which line was removed.
TEST(SmilReader, OwnRegionLineIsRemovedOnceWhenRepeated)
{
    const QByteArray &t = textLine;
    const QByteArray &i = imageLine;
    const std::pair<QByteArray, QStringList> rows[] = {
        {t + a + b, {"text", "image", "b"}},         {t + a + b + t, {"a", "image", "text"}},
        {t + a + t + b, {"a", "text", "image"}},     {t + a + t + b + t, {"a", "text", "image"}},
        {t + t + a + t + b, {"text", "image", "b"}}, {i + a + b, {"text", "image", "b"}},
        {i + a + b + i, {"text", "b", "image"}},     {a + i + b + i, {"text", "b", "image"}},
        {i + a + i + b + i, {"text", "image", "b"}}, {t + i + t + i + a, {"text", "image", "a"}},
        {t + a + i + t + i, {"a", "text", "image"}},
    };
    for (const auto &[regions, ids] : rows) {
        SCOPED_TRACE(regions.toStdString());
        EXPECT_EQ(idsAfterReading(documentOf(layoutOf(regions))), ids);
    }
}

TEST(SmilReader, OnlyTheExactLineIsRemoved)
{
    for (const auto &[from, to] :
         {std::pair("  ", " "), std::pair(" />", "/>"), std::pair("\"0\"", "\"00\"")}) {
        SCOPED_TRACE(to);
        const QByteArray line = QByteArray(textLine).replace(from, to);
        EXPECT_EQ(idsAfterReading(documentOf(layoutOf(line + a + b + line))),
                  (QStringList{"text", "image", "b"}));
    }
}

TEST(SmilReader, LinesInCommentsAndBeforeTheDocumentCountToo)
{
    const QStringList firstStays{"text", "image", "b"};
    const QStringList firstGoes{"a", "image", "text"};
    const QByteArray twice = documentOf(layoutOf(textLine + a + b + textLine));
    const std::pair<QByteArray, QStringList> rows[] = {
        {twice, firstGoes},
        {textLine + twice, firstStays},
        {"<!--" + textLine + "-->" + twice, firstStays},
        {documentOf("<!--" + textLine + "-->" + layoutOf(textLine + a + b + textLine)), firstStays},
        {documentOf(layoutOf(textLine + a + b + textLine), "<!--" + textLine + "-->"), firstGoes},
    };
    for (const auto &[text, ids] : rows) {
        SCOPED_TRACE(text.toStdString());
        EXPECT_EQ(idsAfterReading(text), ids);
    }
}

TEST(SmilReader, HeadHasMetasAroundOneOtherElement)
{
    const QByteArray m1 = "<meta name='1' content='a'/>";
    const QByteArray m2 = "<meta name='2' content='b'/>";
    const QByteArray m3 = "<meta name='3' content='c'/>";
    const QByteArray layout = layoutOf(R"(<root-layout width="7"/>)");
    struct
    {
        const char *name;
        QByteArray head;
        QStringList metas;
        int width;
    } const rows[] = {
        {"empty", "", {}, 120},
        {"metas", m1 + m2, {"1=a", "2=b"}, 120},
        {"layout", layout, {}, 7},
        {"metas around", m1 + m2 + layout + m3, {"1=a", "2=b", "3=c"}, 7},
        {"same meta twice", m1 + m1, {"1=a", "1=a"}, 120},
        {"title hides the layout", m1 + "<title/>" + layout + m2, {"1=a"}, 120},
        {"title takes the layout's place", m1 + "<title/>" + m2, {"1=a", "2=b"}, 120},
        {"second layout", layout + m1 + layoutOf("<root-layout width='9'/>") + m2, {"1=a"}, 7},
        {"title after", layout + "<title/>" + m1, {}, 7},
        {"capitals", "<META name='1'/>" + m2 + m3, {"2=b", "3=c"}, 120},
        {"no elements between",
         "x<!--c-->" + m1 + "<?p?>" + layout + "<![CDATA[y]]>" + m2,
         {"1=a", "2=b"},
         7},
        {"attributes as they stand", "<meta name=' 1 ' content=''/><meta/>", {" 1 =", "="}, 120},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        SmilMessage message;
        EXPECT_EQ(message.read(documentOf(row.head)), Ok);
        EXPECT_EQ(metasOf(message.data), row.metas);
        EXPECT_EQ(message.data.getRootLayout()->getWidth(), row.width);
    }
}

TEST(SmilReader, LayoutHasRegionsAroundTheRootLayout)
{
    const QByteArray root = R"(<root-layout width="7" height="8px" background-color="red"/>)";
    const QByteArray c = R"(<region id="c" width="1" height="1"/>)";
    struct
    {
        const char *name;
        QByteArray layout;
        QStringList ids;
        int width;
    } const rows[] = {
        {"regions around", a + root + b + c, {"text", "image", "c"}, 7},
        {"regions in front", a + b + c + root, {"text", "image", "c"}, 7},
        {"regions after", root + a + b + c, {"text", "image", "c"}, 7},
        {"no root layout", a + b + c, {"text", "image", "c"}, 120},
        {"another element after",
         root + a + b + c + "<x/><region id='d'/>",
         {"text", "image", "c"},
         7},
        {"another element at once", root + "<x/>" + a + b + c, {"text", "image"}, 7},
        {"second root layout",
         root + a + b + c + "<root-layout width='9'/><region id='d'/>",
         {"text", "image", "c"},
         7},
        {"no elements between",
         "x<!--c-->" + a + "y" + root + "<?p?>" + b + c,
         {"text", "image", "c"},
         7},
        {"same region twice", a + root + a + b + c + b, {"text", "image", "c"}, 7},
        {"empty", "", {"text", "image"}, 120},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        SmilMessage message;
        EXPECT_EQ(message.read(documentOf(layoutOf(row.layout))), Ok);
        QStringList ids;
        for (unsigned int i = 0; i < message.data.getRegionCount(); ++i)
            ids += message.data.getRegion(i)->getId();
        EXPECT_EQ(ids, row.ids);
        EXPECT_EQ(message.data.getRootLayout()->getWidth(), row.width);
    }
}

TEST(SmilReader, RootLayoutHasSizeAndColor)
{
    SmilMessage message;
    EXPECT_EQ(message.read(documentOf(layoutOf(
                  R"(<root-layout width="176px" height=" 208PX " background-color="#0080ff"/>)"))),
              Ok);
    const MMS_COMP_SMILRootLayout *root = message.data.getRootLayout();
    EXPECT_EQ(root->getWidth(), 176);
    EXPECT_EQ(root->getHeight(), 208);
    EXPECT_EQ(root->getBackgroundColor()->color, QColor(0, 128, 255));
}

TEST(SmilReader, RegionAttributesAreRead)
{
    Fragment layout(R"(<layout><region id="A" left="1" top="2px" width="3" height="4" fit="slice"/>
                               <region fit="Meet" id=" b "/></layout>)");
    SmilMessage message;
    EXPECT_EQ(MMS_COMP_SMILParser::parseSmilLayout(&layout.element, &message.data), Ok);
    EXPECT_EQ(regionsOf(message.data), (QStringList{"A 1,2 3x4 4", " b  0,0 -1x-1 5"}));
    EXPECT_EQ(message.data.getLayoutMeasureUnit(), SMIL_UNIT_PIXEL);
}

TEST(SmilReader, PercentRegionSetsTheUnitToPercent)
{
    SmilMessage message;
    EXPECT_EQ(message.read(documentOf(layoutOf("<region id='a' top='50%'/>" + b))), Ok);
    EXPECT_EQ(message.data.getLayoutMeasureUnit(), SMIL_UNIT_PERCENT);
    EXPECT_EQ(regionsOf(message.data),
              (QStringList{"text 0,0 120x160 5", "image 0,160 120x160 5"}));
}

TEST(SmilReader, ObjectsMoveToTheHandsetsRegions)
{
    SmilMessage message;
    const QByteArray regions = R"(<region id="pic" left="9" top="0" width="5" height="5"/>)"
                               R"(<region id="words" left="0" top="0" width="5" height="5"/>)";
    EXPECT_EQ(
        message.read(documentOf(
            layoutOf(regions),
            "<par><img src='i1.jpg' region='pic'/><text src='t1.txt' region='words'/></par>")),
        0);
    EXPECT_EQ(regionsOf(message.data),
              (QStringList{"image 0,160 120x160 5", "text 0,0 120x160 5"}));
    EXPECT_EQ(objectRegionsOf(message.data), (QStringList{"image", "text"}));
}

TEST(SmilReader, MediaInTheBodyGetOneSlideEach)
{
    expectSlides({
        {"nothing", "", {}},
        {"text", "<text src='t1.txt'/>", {"5000: text t1.txt"}},
        {"all kinds",
         "<text src='t1.txt'/><img src='i1.jpg'/><audio src='a.amr'/><video src='v.3gp'/>"
         "<ref src='t2.txt'/>",
         {"5000: text t1.txt", "5000: img i1.jpg", "5000: audio a.amr", "5000: video v.3gp",
          "5000: ref t2.txt"}},
        {"not in the message", "<text src='x'/><img/><img src='i1.jpg'/>", {"5000: img i1.jpg"}},
        {"own duration does not count", "<text src='t1.txt' dur='1s'/>", {"5000: text t1.txt"}},
        {"no media elements", "<a><img src='i1.jpg'/></a><switch/>x<!-- c --><textstream/>", {}},
        {"capitals", "<IMG src='i1.jpg'/><Text src='t1.txt'/><PAR/><Seq/>", {}},
        {"prefixes", "<s:img src='i1.jpg'/><s:par/>", {}},
    });
}

TEST(SmilReader, SkippedElementIsSkippedWithItsContent)
{
    expectSlides({
        {"link in the body", "<a href='x'><par><img src='i1.jpg'/></par></a>", {}},
        {"link in a par",
         "<par><a href='x'><img src='i1.jpg'/></a><text src='t1.txt'/></par>",
         {"-1: text t1.txt"}},
        {"switch in a seq", "<seq><switch><img src='i1.jpg'/></switch></seq>", {}},
        {"media in media",
         "<par><text src='t1.txt'><img src='i1.jpg'/></text></par>",
         {"-1: text t1.txt"}},
    });
}

TEST(SmilReader, ParIsASlide)
{
    expectSlides({
        {"empty", "<par/>", {"-1: "}},
        {"two", "<par/><par/>", {"-1: ", "-1: "}},
        {"text and image",
         "<par><text src='t1.txt'/><img src='i1.jpg'/></par>",
         {"-1: text t1.txt, img i1.jpg"}},
        {"everything that has a place",
         "<par><img src='i1.jpg'/><text src='t1.txt'/><audio src='a.amr'/></par>",
         {"-1: img i1.jpg, text t1.txt, audio a.amr"}},
        {"video and audio",
         "<par><video src='v.3gp'/><audio src='a.amr'/></par>",
         {"-1: video v.3gp, audio a.amr"}},
        {"absent part", "<par><text src='x'/><img src='i1.jpg'/></par>", {"-1: img i1.jpg"}},
        {"same part twice",
         "<par><img src='i1.jpg'/></par><par><img src='i1.jpg'/></par>",
         {"-1: img i1.jpg", "-1: img i1.jpg"}},
    });
}

TEST(SmilReader, DurationOfAParIsRead)
{
    const std::pair<const char *, int> rows[] = {
        {"", QvlDuration::NotGiven},
        {"dur=''", QvlDuration::NotGiven},
        {"dur='5s'", 5000},
        {"dur='1234ms'", 1234},
        {"dur='0s'", 0},
        {"dur='5000'", QvlDuration::Default},
        {"dur='indefinite'", QvlDuration::Indefinite},
        {"dur='fast'", QvlDuration::Default},
        {"dur='7s '", QvlDuration::Default},
        {"dur=' 7s'", 7000},
        {"dur='2min'", 120000},
        {"DUR='7s'", QvlDuration::NotGiven},
    };
    for (const auto &[attribute, duration] : rows) {
        SCOPED_TRACE(attribute);
        SmilMessage message;
        EXPECT_EQ(message.read(documentOf(
                      "", QByteArray("<par ") + attribute + "><audio src='a.amr'/></par>")),
                  Ok);
        EXPECT_EQ(slidesOf(message.data), QStringList{QString("%1: audio a.amr").arg(duration)});
    }
}

TEST(SmilReader, MediaWithoutRoomOnASlideBeginANewOne)
{
    expectSlides({
        {"second text",
         "<par dur='1s'><text src='t1.txt'/><text src='t2.txt'/><img src='i1.jpg'/></par>",
         {"1000: text t1.txt", "1000: text t2.txt, img i1.jpg"}},
        {"second image",
         "<par dur='1s'><img src='i1.jpg'/><img src='i2.jpg'/></par>",
         {"1000: img i1.jpg", "1000: img i2.jpg"}},
        {"video after an image",
         "<par dur='1s'><img src='i1.jpg'/><video src='v.3gp'/></par>",
         {"1000: img i1.jpg", "1000: video v.3gp"}},
        {"second audio",
         "<par dur='1s'><audio src='a.amr'/><audio src='a.amr'/></par>",
         {"1000: audio a.amr", "1000: audio a.amr"}},
        {"ref alone", "<par dur='1s'><ref src='i1.jpg'/></par>", {"1000: ", "1000: ref i1.jpg"}},
        {"ref and then a text",
         "<par dur='1s'><ref src='i1.jpg'/><text src='t1.txt'/></par>",
         {"1000: ", "1000: ref i1.jpg, text t1.txt"}},
    });
}

TEST(SmilReader, SeqHasOneSlidePerMediaElement)
{
    expectSlides({
        {"empty", "<seq dur='1s'/>", {}},
        {"two",
         "<seq dur='1s'><text src='t1.txt'/><img src='i1.jpg'/></seq>",
         {"1000: text t1.txt", "1000: img i1.jpg"}},
        {"no duration", "<seq><text src='t1.txt'/></seq>", {"-1: text t1.txt"}},
        {"indefinite", "<seq dur='indefinite'><text src='t1.txt'/></seq>", {"-2: text t1.txt"}},
        {"of pars",
         "<seq dur='9s'><par dur='1s'><img src='i1.jpg'/></par><par dur='2s'/></seq>",
         {"1000: img i1.jpg", "2000: "}},
        {"media between pars",
         "<seq dur='9s'><par dur='1s'/><img src='i1.jpg'/><text src='t1.txt'/></seq>",
         {"1000: ", "9000: img i1.jpg", "9000: text t1.txt"}},
    });
}

TEST(SmilReader, MediaAfterANestedElementBeginASlide)
{
    expectSlides({
        {"par in par",
         "<par dur='1s'><text src='t1.txt'/><par dur='2s'><img src='i1.jpg'/></par>"
         "<audio src='a.amr'/><img src='i2.jpg'/></par>",
         {"1000: text t1.txt", "2000: img i1.jpg", "1000: audio a.amr, img i2.jpg"}},
        {"empty par",
         "<par dur='1s'><par dur='2s'/><text src='t1.txt'/></par>",
         {"1000: ", "2000: ", "1000: text t1.txt"}},
        {"empty seq",
         "<par dur='1s'><text src='t1.txt'/><seq/><img src='i1.jpg'/></par>",
         {"1000: text t1.txt", "1000: img i1.jpg"}},
        {"declined element",
         "<par dur='1s'><par/><text src='x'/><img src='i1.jpg'/></par>",
         {"1000: ", "-1: ", "1000: img i1.jpg"}},
        {"skipped element",
         "<par dur='1s'><par/><x/><img src='i1.jpg'/></par>",
         {"1000: ", "-1: ", "1000: img i1.jpg"}},
        {"par in seq in par",
         "<par dur='1s'><seq dur='2s'><img src='i1.jpg'/><par dur='3s'/></seq></par>",
         {"1000: ", "2000: img i1.jpg", "3000: "}},
    });
}

TEST(SmilReader, TenLevelsOfParAndSeqAreRead)
{
    const QByteArray mixed = "<par><seq>";
    expectResults({
        {"10 par", documentOf("", nested("par", 10)), Ok},
        {"11 par", documentOf("", nested("par", 11)), NestedTooDeep},
        {"10 seq", documentOf("", nested("seq", 10)), Ok},
        {"11 seq", documentOf("", nested("seq", 11)), NestedTooDeep},
        {"10 mixed", documentOf("", mixed.repeated(5) + QByteArray("</seq></par>").repeated(5)),
         Ok},
        {"11 mixed",
         documentOf("", mixed.repeated(5) + "<par/>" + QByteArray("</seq></par>").repeated(5)),
         NestedTooDeep},
        {"11 times 10 beside each other", documentOf("", nested("par", 10).repeated(11)), Ok},
        {"10 and media", documentOf("", nested("par", 10, "<img src='i1.jpg'/>")), Ok},
        {"11 in what is skipped", documentOf("", "<a>" + nested("par", 11) + "</a>"), Ok},
    });
}

TEST(SmilReader, FailureKeepsTheSlidesReadAndDoesNotNormalize)
{
    SmilMessage message;
    EXPECT_EQ(message.read("<smil><head><meta name='1'/>" + layoutOf(a) + "</head><body>"
                           + nested("par", 11) + "</body></smil>"),
              NestedTooDeep);
    EXPECT_EQ(metasOf(message.data), QStringList{"1="});
    EXPECT_EQ(regionsOf(message.data), QStringList{"a 0,0 1x1 5"});
    EXPECT_EQ(message.data.getTotalSlidesNum(), 10U);
}

TEST(SmilReader, FailureLeavesColorsInTheParams)
{
    const QByteArray slide = "<par><text src='t1.txt'><param name='background-color' "
                             "value='#ff0000' valuetype='data'/></text></par>";
    SmilMessage message;
    EXPECT_EQ(message.read("<smil><body>" + slide + "</body><body/></smil>"), SecondBody);
    EXPECT_EQ(message.data.getSlide(0)->getPageColor().kind, SMIL_COLOR_INVALID);
    SmilMessage again;
    EXPECT_EQ(again.read("<smil><body>" + slide + "</body></smil>"), Ok);
    EXPECT_EQ(again.data.getSlide(0)->getPageColor().kind, SMIL_COLOR_RGB);
    EXPECT_EQ(again.data.getSlide(0)->getPageColor().color, QColor(255, 0, 0));
}

TEST(SmilReader, TextSizeAndColorComeFromTheParams)
{
    SmilMessage message;
    EXPECT_EQ(message.read(documentOf("",
                                      "<par><text src='t1.txt'>"
                                      "<param name='foreground-color' value='navy'/>"
                                      "<param name='textsize' value='large'/></text></par>"
                                      "<par><img src='i1.jpg'/></par>")),
              Ok);
    EXPECT_EQ(message.data.getSlide(0)->getTextColor().name, "navy");
    EXPECT_EQ(message.data.getSlide(0)->getTextSize(), "large");
    EXPECT_EQ(message.data.getSlide(1)->getTextSize(), "normal");
}

TEST(SmilReader, SecondReadAddsToThePresentation)
{
    SmilMessage message;
    const QByteArray text = documentOf("<meta name='1'/>", "<par/>");
    EXPECT_EQ(message.read(text), Ok);
    EXPECT_EQ(message.read(text), Ok);
    EXPECT_EQ(message.data.getMetaCount(), 2U);
    EXPECT_EQ(message.data.getTotalSlidesNum(), 2U);
    EXPECT_EQ(regionsOf(message.data), ownRegions);
}

TEST(SmilReader, MediaElementIsBoundToItsPart)
{
    SmilMessage message;
    message.multipart.getBodypartByIndex(2)->setContentID("<pic>");
    EXPECT_EQ(message.read(documentOf("",
                                      "<par><img src=' cid:PIC ' alt=' a ' begin='1s' "
                                      "end='id(x)(end)'/></par>")),
              Ok);
    const MMS_COMP_SMILMediaObject *image = message.data.getMediaObject(0, 0);
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->getData(), message.multipart.getBodypartByIndex(2));
    EXPECT_EQ(image->getData()->getDispFileType(), 0);
    EXPECT_EQ(image->getSrc(), "cid:PIC");
    EXPECT_EQ(image->getAlt(), "a");
    EXPECT_EQ(image->getBeginTimeLength(), 1000);
    EXPECT_EQ(image->getEndTimeEvent(), "x");
    EXPECT_EQ(image->getEndTimeLength(), -1);
}

TEST(SmilReader, ParamsOfAMediaElementAreRead)
{
    SmilMessage message;
    const QByteArray params = "<param name='a' value='1' valuetype='data' type='t/u'/>"
                              "x<!-- c --><param name=' b ' value=' 2 ' valuetype='ref'/>"
                              "<param name='c' valuetype='object'/><PARAM name='d'/>"
                              "<x><param name='e'/></x><param valuetype='Data'/><param/>";
    const QStringList read{"a=1 0 t/u", " b = 2  1 ", "c= 2 ", "= 3 ", "= 3 "};
    EXPECT_EQ(
        message.read(documentOf("",
                                "<text src='t1.txt'>" + params + "</text><par><img src='i1.jpg'>"
                                    + params + "</img></par>")),
        0);
    EXPECT_EQ(paramLinesOf(*message.data.getMediaObject(0, 0)), read);
    EXPECT_EQ(paramLinesOf(*message.data.getMediaObject(1, 0)), read);
}

TEST(SmilReader, ParamsOfASkippedElementAreIgnored)
{
    SmilMessage message;
    EXPECT_EQ(message.read(documentOf("",
                                      "<par><img src='i1.jpg'/>"
                                      "<text src='x'><param name='a'/></text></par>")),
              Ok);
    EXPECT_EQ(paramLinesOf(*message.data.getMediaObject(0, 0)), QStringList{});
}

TEST(SmilFragments, RootIsAnElementCalledSmil)
{
    SmilMessage message;
    QDomElement none;
    Fragment other("<head/>");
    Fragment smil("<smil><head><meta name='1'/></head></smil>");
    const auto parse = [&](QDomElement *root) {
        return message.parser.parseSmil(root, &message.multipart, &message.data);
    };
    EXPECT_EQ(parse(nullptr), NullArgument);
    EXPECT_EQ(parse(&none), NullArgument);
    EXPECT_EQ(parse(&other.element), NotSmil);
    EXPECT_EQ(parse(&smil.element), Ok);
    EXPECT_EQ(metasOf(message.data), QStringList{"1="});
    EXPECT_TRUE(regionsOf(message.data).isEmpty()) << "normalization is for whole documents";
}

TEST(SmilFragments, NeedAnElementAndAPresentation)
{
    const auto results = [](QDomElement *element, MMS_COMP_SMILData *data) -> QList<int> {
        MMS_COMP_SMILParser parser;
        int depth = 1;
        return {parser.parseSmil(element, nullptr, data),
                parser.parseSmilHead(element, data),
                parser.parseSmilMeta(element, data),
                MMS_COMP_SMILParser::parseSmilLayout(element, data),
                MMS_COMP_SMILParser::parseSmilRootLayout(element, data),
                MMS_COMP_SMILParser::parseSmilRegion(element, data),
                MMS_COMP_SMILParser::parseSmilBody(element, nullptr, data),
                MMS_COMP_SMILParser::parseSmilPar(element, nullptr, data, depth),
                MMS_COMP_SMILParser::parseSmilSeq(element, nullptr, data, depth)};
    };
    SmilMessage message;
    Fragment smil("<smil/>");
    EXPECT_EQ(results(nullptr, &message.data), QList<int>(9, NullArgument));
    EXPECT_EQ(results(&smil.element, nullptr), QList<int>(9, NullArgument));
    EXPECT_EQ(results(nullptr, nullptr), QList<int>(9, NullArgument));
    EXPECT_EQ(results(&smil.element, &message.data), QList<int>(9, Ok));
}

TEST(SmilFragments, HeadMetaAndRootLayoutAreRead)
{
    SmilMessage message;
    Fragment head("<head><meta name='1'/><layout><region id='a'/></layout></head>");
    Fragment meta("<meta name='2' content='b'/>");
    Fragment rootLayout("<root-layout width='5'/>");
    EXPECT_EQ(message.parser.parseSmilHead(&head.element, &message.data), Ok);
    EXPECT_EQ(message.parser.parseSmilMeta(&meta.element, &message.data), Ok);
    EXPECT_EQ(MMS_COMP_SMILParser::parseSmilRootLayout(&rootLayout.element, &message.data), Ok);
    EXPECT_EQ(metasOf(message.data), (QStringList{"1=", "2=b"}));
    EXPECT_EQ(regionsOf(message.data), QStringList{"a 0,0 -1x-1 5"});
    EXPECT_EQ(message.data.getRootLayout()->getWidth(), 5);
}

TEST(SmilFragments, ExistingRegionIsNotAFailure)
{
    SmilMessage message;
    Fragment region("<region id='a' left='1' fit='fill'/>");
    EXPECT_EQ(MMS_COMP_SMILParser::parseSmilRegion(&region.element, &message.data), Ok);
    EXPECT_EQ(MMS_COMP_SMILParser::parseSmilRegion(&region.element, &message.data), Ok);
    EXPECT_EQ(regionsOf(message.data), QStringList{"a 1,0 -1x-1 1"});
}

TEST(SmilFragments, BodyIsRead)
{
    SmilMessage message;
    Fragment body("<body><par dur='1s'/><text src='t1.txt'/></body>");
    EXPECT_EQ(MMS_COMP_SMILParser::parseSmilBody(&body.element, &message.multipart, &message.data),
              Ok);
    EXPECT_EQ(slidesOf(message.data), (QStringList{"1000: ", "5000: text t1.txt"}));
}

TEST(SmilFragments, ParAndSeqCountTheirNestingFromTheGivenDepth)
{
    for (const auto read : {MMS_COMP_SMILParser::parseSmilPar, MMS_COMP_SMILParser::parseSmilSeq}) {
        for (int start = 1; start <= 11; ++start) {
            SCOPED_TRACE(start);
            SmilMessage message;
            Fragment outer("<par><seq/></par>");
            int depth = start;
            EXPECT_EQ(read(&outer.element, &message.multipart, &message.data, depth),
                      start > 9 ? NestedTooDeep : Ok);
            EXPECT_EQ(depth, start);
        }
    }
}

TEST(SmilFragments, ParamsNeedAnElementAndAnObject)
{
    Fragment text("<text><param name='a' value='1'/></text>");
    MMS_COMP_SMILMediaObject object(nullptr);
    EXPECT_EQ(MMS_COMP_SMILParser::parseMediaObjectParam(nullptr, &object), NullArgument);
    EXPECT_EQ(MMS_COMP_SMILParser::parseMediaObjectParam(&text.element, nullptr), NullArgument);
    EXPECT_EQ(MMS_COMP_SMILParser::parseMediaObjectParam(nullptr, nullptr), NullArgument);
    EXPECT_EQ(MMS_COMP_SMILParser::parseMediaObjectParam(&text.element, &object), Ok);
    EXPECT_EQ(paramLinesOf(object), QStringList{"a=1 3 "});
}

TEST(SmilFragments, ValidBodyElementsAreKnown)
{
    for (const char *tag : {"par", "seq", "text", "img", "audio", "video", "ref"}) {
        Fragment fragment(QByteArray("<") + tag + "/>");
        EXPECT_TRUE(MMS_COMP_SMILParser::isValidBodyElement(&fragment.element)) << tag;
    }
    for (const char *tag : {"Par", "IMG", "image", "a", "switch", "param", "body", "textstream"}) {
        Fragment fragment(QByteArray("<") + tag + "/>");
        EXPECT_FALSE(MMS_COMP_SMILParser::isValidBodyElement(&fragment.element)) << tag;
    }
    const QDomElement none;
    EXPECT_FALSE(MMS_COMP_SMILParser::isValidBodyElement(&none));
    EXPECT_FALSE(MMS_COMP_SMILParser::isValidBodyElement(nullptr));
}

TEST(SmilFragments, NextSiblingIsAnyNode)
{
    Fragment fragment("<a><b/>text<c/></a>");
    const QDomNode first = fragment.element.firstChild();
    const QDomNode text = MMS_COMP_SMILParser::getNextSibling(first);
    EXPECT_TRUE(text.isText());
    const QDomNode last = MMS_COMP_SMILParser::getNextSibling(text);
    EXPECT_EQ(last.nodeName(), "c");
    EXPECT_TRUE(MMS_COMP_SMILParser::getNextSibling(last).isNull());
    EXPECT_TRUE(MMS_COMP_SMILParser::getNextSibling(QDomNode()).isNull());
}

TEST(SmilFragments, WordsOfMediaTypesAreKnown)
{
    const std::pair<const char *, MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE> rows[] = {
        {"audio", SMIL_MEDIA_AUDIO},
        {"video", SMIL_MEDIA_VIDEO},
        {"text", SMIL_MEDIA_TEXT},
        {"image", SMIL_MEDIA_IMAGE},
    };
    for (const auto &[word, type] : rows) {
        EXPECT_EQ(MMS_COMP_SMILParser::getTypeEnum(word), type) << word;
        EXPECT_EQ(MMS_COMP_SMILParser::getMimeTypeStr(type), word);
    }
    for (const char *word : {"", "img", "ref", "Audio", "IMAGE", " text", "text/plain", "unknown"})
        EXPECT_EQ(MMS_COMP_SMILParser::getTypeEnum(word), SMIL_MEDIA_UNKNOWN) << word;
    for (const int type : {4, 5, 6, -1})
        EXPECT_EQ(MMS_COMP_SMILParser::getMimeTypeStr(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE(type)), "");
}

TEST(SmilFragments, MediaTypesHaveTheirNumbers)
{
    EXPECT_EQ(SMIL_MEDIA_AUDIO, 0);
    EXPECT_EQ(SMIL_MEDIA_VIDEO, 1);
    EXPECT_EQ(SMIL_MEDIA_TEXT, 2);
    EXPECT_EQ(SMIL_MEDIA_IMAGE, 3);
    EXPECT_EQ(SMIL_MEDIA_REF, 4);
    EXPECT_EQ(SMIL_MEDIA_UNKNOWN, 5);
}

TEST(SmilReader, NewParserHasNoWarning)
{
    EXPECT_EQ(MMS_COMP_SMILParser().getLastWarning(), Ok);
}

TEST_F(SmilFile, IsReadAndNormalized)
{
    EXPECT_EQ(read(documentOf("<meta name='1'/>" + layoutOf(a),
                              "<par dur='1s'><text src='t1.txt'><param name='background-color' "
                              "value='red'/></text></par>")),
              Ok);
    EXPECT_EQ(metasOf(message.data), QStringList{"1="});
    EXPECT_EQ(regionsOf(message.data),
              (QStringList{"text 0,0 120x160 5", "image 0,160 120x160 0"}));
    EXPECT_EQ(slidesOf(message.data), QStringList{"1000: text t1.txt"});
    EXPECT_EQ(message.data.getSlide(0)->getPageColor().name, "red");
}

TEST_F(SmilFile, ContentDeterminesTheResult)
{
    const std::pair<QByteArray, int> rows[] = {
        {"", NotWellFormed},
        {" ", NotWellFormed},
        {"hello", NotWellFormed},
        {"<smil>", NotWellFormed},
        {"<SMIL/>", NotSmil},
        {"<smil/>", Ok},
        {"<smil><body/><head/></smil>", HeadAfterBody},
        {"<smil><body/><body/></smil>", SecondBody},
        {"<smil><head/><head/></smil>", SecondHead},
        {documentOf("", nested("par", 11)), NestedTooDeep},
        {"<?xml version='1.0'?>\n<!DOCTYPE smil>\n<!-- <smil> -->\n<smil/>", Ok},
    };
    for (const auto &[text, result] : rows) {
        EXPECT_EQ(read(text), result) << text.toStdString();
        EXPECT_EQ(message.parser.getLastWarning(), Ok);
    }
}

TEST_F(SmilFile, MissingFileAndFolderCannotBeOpened)
{
    const auto parse = [this](const QString &path) {
        return message.parser.parse(path, &message.multipart, &message.data);
    };
    EXPECT_EQ(parse(folder.filePath("none.smil")), FileUnreadable);
    EXPECT_EQ(parse(folder.path()), FileUnreadable);
    EXPECT_EQ(parse(QString()), FileUnreadable);
    EXPECT_TRUE(regionsOf(message.data).isEmpty());
}

TEST_F(SmilFile, IsNotRepaired)
{
    EXPECT_EQ(read("garbage<smil/>"), NotWellFormed);
    EXPECT_EQ(read("<smil/>" + octet(0)), NotWellFormed);
    EXPECT_EQ(read(documentOf(layoutOf(textLine + a + b + textLine))), Ok);
    EXPECT_EQ(message.data.getRegion(0)->getId(), "text");
    EXPECT_EQ(message.data.getRegion(1)->getId(), "image");
    EXPECT_EQ(message.data.getRegion(2)->getId(), "b");
}

TEST_F(SmilFile, EncodingIsDeterminedFromTheFile)
{
    const QString text = QString::fromUtf8("<smil><head><meta name='caf\u00E9'/></head></smil>");
    const QString declared = "<?xml version='1.0' encoding='%1'?>" + text;
    const auto encoded = [](const QString &unicode, QStringConverter::Encoding encoding) {
        QStringEncoder encode(encoding, QStringConverter::Flag::WriteBom);
        return QByteArray(encode(unicode));
    };
    const QByteArray rows[] = {
        text.toUtf8(),
        declared.arg("UTF-8").toUtf8(),
        encoded(text, QStringConverter::Utf8),
        encoded(text, QStringConverter::Utf16LE),
        encoded(text, QStringConverter::Utf16BE),
        encoded(declared.arg("UTF-16"), QStringConverter::Utf16LE),
        declared.arg("ISO-8859-1").toLatin1(),
    };
    for (const QByteArray &octets : rows) {
        SCOPED_TRACE(octets.left(60).toStdString());
        message.data.clean();
        EXPECT_EQ(read(octets), Ok);
        EXPECT_EQ(metasOf(message.data), QStringList{QString::fromUtf8("caf\u00E9=")});
    }
}
