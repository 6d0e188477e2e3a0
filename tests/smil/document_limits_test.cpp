/*
 * Expensive documents: documents that nest too deep or grow too much are refused before a tree is
 * built, even if they hide it. Documents that only look like that are read.
 */
#include "presentation/smil_result.h"
#include "smil/presentation_facts.h"

#include <QTemporaryFile>

#include <gtest/gtest.h>

namespace {

constexpr int DeepestNesting = 256;

int readOctets(const QByteArray &text)
{
    MMS_COMP_SMILData data(nullptr);
    return MMS_COMP_SMILParser().parse(text, nullptr, &data);
}

int readFile(const QByteArray &text)
{
    QTemporaryFile file;
    EXPECT_TRUE(file.open());
    EXPECT_EQ(file.write(text), text.size());
    EXPECT_TRUE(file.flush());
    MMS_COMP_SMILData data(nullptr);
    return MMS_COMP_SMILParser().parse(file.fileName(), nullptr, &data);
}

QByteArray nested(int levels, const QByteArray &open = "<a>", const QByteArray &innermost = {})
{
    return open.repeated(levels) + innermost + QByteArray("</a>").repeated(levels);
}

QByteArray smil(const QByteArray &content)
{
    return "<smil>" + content + "</smil>";
}

// A document with declarations. Its root is not smil, because text before "<smil" is dropped. The
// result NotSmil means that the document was accepted.
QByteArray declaring(const QByteArray &declarations, const QByteArray &content)
{
    return "<!DOCTYPE d [" + declarations + "]><d>" + content + "</d>";
}

QByteArray entity(const QByteArray &name, const QByteArray &value)
{
    return "<!ENTITY " + name + " \"" + value + "\">";
}

struct Row
{
    const char *name;
    QByteArray text;
};

void expectBothForms(std::initializer_list<Row> rows, int result)
{
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(readOctets(row.text), result);
        EXPECT_EQ(readFile(row.text), result);
    }
}

// The entities e1, e2, ...: the first is @p first, and each other is @p next of a reference to the
// previous one.
template <typename Next>
QByteArray entityChain(int length, const QByteArray &first, Next next)
{
    QByteArray declarations = entity("e1", first);
    for (int i = 2; i <= length; ++i) {
        const QByteArray reference = "&e" + QByteArray::number(i - 1) + ';';
        declarations += entity("e" + QByteArray::number(i), next(reference));
    }
    return declarations;
}

// Each is only a reference to the previous one.
QByteArray aliases(int length)
{
    return entityChain(length, "x", [](const QByteArray &reference) { return reference; });
}

// Each refers ten times to the previous one: a thousand million characters in the end.
QByteArray laughs()
{
    return entityChain(9, "lolololola",
                       [](const QByteArray &reference) { return reference.repeated(10); });
}

} // namespace

TEST(DocumentLimits, ReadsTheDeepestNesting)
{
    expectBothForms(
        {{"elements", smil(nested(DeepestNesting - 1))},
         {"empty innermost", smil(nested(DeepestNesting - 2, "<a>", "<b/>"))},
         {"text innermost", smil(nested(DeepestNesting - 1, "<a>", "text"))},
         {"twice", smil(nested(DeepestNesting - 1) + nested(DeepestNesting - 1))},
         {"in the head", "<smil><head>" + nested(DeepestNesting - 2) + "</head></smil>"}},
        SmilResult::Ok);
}

TEST(DocumentLimits, RefusesDeeperNesting)
{
    expectBothForms(
        {{"elements", smil(nested(DeepestNesting))},
         {"empty innermost", smil(nested(DeepestNesting - 1, "<a>", "<b/>"))},
         {"blanks in the tags", smil(nested(DeepestNesting, "<a \n>"))},
         {"after others", smil(nested(100) + nested(DeepestNesting))},
         {"in the head", "<smil><head>" + nested(DeepestNesting - 1) + "</head></smil>"}},
        SmilResult::NotWellFormed);
}

TEST(DocumentLimits, RefusesBeforeAnyOtherResult)
{
    expectBothForms({{"no smil", "<x>" + nested(DeepestNesting) + "</x>"},
                     {"second head", "<smil><head/><head/>" + nested(DeepestNesting) + "</smil>"}},
                    SmilResult::NotWellFormed);
    expectBothForms({{"no smil", "<x>" + nested(DeepestNesting - 1) + "</x>"}},
                    SmilResult::NotSmil);
    expectBothForms(
        {{"second head", "<smil><head/><head/>" + nested(DeepestNesting - 1) + "</smil>"}},
        SmilResult::SecondHead);
}

TEST(DocumentLimits, RefusalDoesNotChangeThePresentation)
{
    MMS_COMP_SMILData data(nullptr);
    const QByteArray text = "<smil><head><meta name='a'/></head>" + nested(300) + "</smil>";
    EXPECT_EQ(MMS_COMP_SMILParser().parse(text, nullptr, &data), SmilResult::NotWellFormed);
    EXPECT_EQ(data.getMetaCount(), 0U);
    EXPECT_EQ(data.getRegionCount(), 0U);
}

TEST(DocumentLimits, RefusesTensOfThousandsOfLevels)
{
    expectBothForms({{"closed", smil(nested(100000))},
                     {"never closed", "<smil>" + QByteArray("<a>").repeated(100000)},
                     {"with attributes", smil(nested(20000, "<a b='c' d=\"e\">"))}},
                    SmilResult::NotWellFormed);
}

TEST(DocumentLimits, CountsTheDepthOfUtf16Files)
{
    for (const auto &[levels, result] : {std::pair(DeepestNesting - 1, SmilResult::Ok),
                                         {DeepestNesting, SmilResult::NotWellFormed}}) {
        const QString text = QChar(QChar::ByteOrderMark) + QString(smil(nested(levels)));
        QByteArray little;
        QByteArray big;
        for (const QChar c : text) {
            little += QByteArray{}.append(char(c.cell())).append(char(c.row()));
            big += QByteArray{}.append(char(c.row())).append(char(c.cell()));
        }
        EXPECT_EQ(readFile(little), result);
        EXPECT_EQ(readFile(big), result);
    }
}

TEST(DocumentLimits, CountsElementsWhoseValuesLookLikeTheEndOfATag)
{
    expectBothForms(
        {{"slash in quotes", smil(nested(DeepestNesting, "<a b=\"/>\">"))},
         {"slash in apostrophes", smil(nested(DeepestNesting, "<a b='/>'>"))},
         {"end tag", smil(nested(DeepestNesting, "<a b='&lt;/a>'>"))},
         {"apostrophe in quotes", smil(nested(DeepestNesting, "<a b=\"'/>\" c=\"'\">"))},
         {"quote in apostrophes", smil(nested(DeepestNesting, "<a b='\"/>' c='\"'>"))},
         {"slash before the end", smil(nested(DeepestNesting, "<a b='/'>"))},
         {"empty value", smil(nested(DeepestNesting, "<a b=''>"))},
         {"comment in a value", smil(nested(DeepestNesting, "<a b='-->'>"))}},
        SmilResult::NotWellFormed);
}

TEST(DocumentLimits, ReadsEmptyElementsWhoseValuesLookLikeTheEndOfATag)
{
    const auto many = [](const QByteArray &element) { return smil(element.repeated(1000)); };
    expectBothForms({{"greater-than in quotes", many("<a b=\">\"/>")},
                     {"greater-than in apostrophes", many("<a b='>' />")},
                     {"apostrophe in quotes", many("<a b=\"'\" c='>'/>")},
                     {"quote in apostrophes", many("<a b='\">'/>")},
                     {"blanks", many("<a b='>'\n\t/>")},
                     {"tag in a value", many("<a b='&lt;a>'/>")},
                     {"end tags with blanks", many("<a b='>'></a \n>")},
                     {"greater-than in a text", many("<a>></a>")}},
                    SmilResult::Ok);
}

TEST(DocumentLimits, DoesNotCountTextThatLooksLikeElements)
{
    const QByteArray tags = QByteArray("<a>").repeated(1000);
    expectBothForms({{"comment", smil("<!--" + tags + "-->")},
                     {"comment with dashes", smil("<!-- > - -> " + tags + " ->-->")},
                     {"comment that begins with a greater-than", smil("<!-->" + tags + "-->")},
                     {"character data", smil("<![CDATA[" + tags + "]]>")},
                     {"character data with brackets", smil("<![CDATA[]] ]>" + tags + "]]]>")},
                     {"instruction", smil("<?p " + tags + "?>")},
                     {"instruction with question marks", smil("<?p ? > " + tags + "?\?>")},
                     {"after the root", smil("") + "<!--" + tags + "-->"},
                     {"comment in character data", smil("<![CDATA[<!--]]>" + nested(9))},
                     {"character data in a comment", smil("<!--<![CDATA[-->" + nested(9))}},
                    SmilResult::Ok);
    expectBothForms({{"comment in front", "<!--" + tags + "--><d/>"},
                     {"instruction in front", "<?p " + tags + "?><d/>"},
                     {"comment in declarations", declaring("<!--" + tags + "-->", "")},
                     {"instruction in declarations", declaring("<?p " + tags + "?>", "")},
                     {"entity that is not used", declaring(entity("e", tags), "")}},
                    SmilResult::NotSmil);
}

TEST(DocumentLimits, CountsElementsAfterTextThatLooksLikeEndTags)
{
    const QByteArray ends = QByteArray("</a>").repeated(300);
    const QByteArray deep = nested(DeepestNesting);
    expectBothForms(
        {{"comment", smil(nested(DeepestNesting, "<a><!--</a>-->"))},
         {"character data", smil(nested(DeepestNesting, "<a><![CDATA[</a>]]>"))},
         {"instruction", smil(nested(DeepestNesting, "<a><?p </a>?>"))},
         {"comment in front", "<!--" + ends + "--><d>" + deep + "</d>"},
         {"instruction in front", "<?p " + ends + "?><d>" + deep + "</d>"},
         {"empty comment", smil("<!---->" + deep)},
         {"empty character data", smil("<![CDATA[]]>" + deep)},
         {"quote in a comment", smil("<!-- \" ' -->" + deep)},
         {"quote in a text", smil("\" '" + deep)},
         {"start of a comment in character data", smil("<![CDATA[<!--]]>" + deep)},
         {"start of a comment in an instruction", smil("<?p <!-- ?>" + deep)},
         {"start of character data in a comment", smil("<!--<![CDATA[-->" + deep)},
         {"comment in declarations", declaring("<!-- ]> ' \" <!ENTITY e '-->", deep)},
         {"empty comment in declarations", declaring("<!---->", deep)},
         {"instruction in declarations", declaring("<?p ]> ' \" ?>", deep)},
         {"bracket in an entity", declaring(entity("e", "]>"), deep)},
         {"comment in an entity", declaring(entity("e", "<!--"), deep)},
         {"greater-than in an identifier", "<!DOCTYPE d PUBLIC '>' \"<!--\"><d>" + deep + "</d>"},
         {"empty identifier", "<!DOCTYPE d SYSTEM ''><d>" + deep + "</d>"},
         {"element declarations", declaring("<!ELEMENT a ANY><!NOTATION n SYSTEM '<!--'>", deep)}},
        SmilResult::NotWellFormed);
}

TEST(DocumentLimits, ReadsOrdinaryEntities)
{
    expectBothForms(
        {{"text", declaring(entity("e", "text"), "&e;")},
         {"many uses", declaring(entity("e", "text"), QByteArray("&e;").repeated(1000))},
         {"value", declaring(entity("e", "text"), "<a b='&e;'/>")},
         {"markup", declaring(entity("e", "<a>x</a>"), "&e;&e;")},
         {"entities of entities", declaring(entity("e", "x") + entity("f", "&e;&e;"), "&f;")},
         {"64 entities in one another", declaring(aliases(64), "&e64;")},
         {"first of two declarations",
          declaring(entity("e", "") + entity("e", QByteArray(4000, 'x')),
                    QByteArray("&e;").repeated(1000))},
         {"predefined", "<d b='&lt;&amp;'>&lt;&gt;&amp;&quot;&apos;&#65;&#x42;</d>"},
         {"default attributes", declaring("<!ATTLIST a b CDATA 'c'>", "<a/>")},
         {"long but seldom used",
          declaring(entity("e", QByteArray(4000, 'x')), QByteArray("&e;").repeated(15))},
         {"deepest nesting",
          declaring(entity("e", nested(100)), nested(DeepestNesting - 101, "<a>", "&e;"))}},
        SmilResult::NotSmil);
}

TEST(DocumentLimits, RefusesDocumentsThatGrowTooMuch)
{
    const QByteArray longText(4000, 'x');
    expectBothForms(
        {{"each entity ten times the one before", declaring(laughs(), "&e9;")},
         {"the same in a value", declaring(laughs(), "<a b='&e9;'/>")},
         {"the same half way", declaring(laughs(), QByteArray("&e3;").repeated(1000))},
         {"one long entity", declaring(entity("e", longText), QByteArray("&e;").repeated(75000))},
         {"one long entity in a value",
          declaring(entity("e", longText), "<a b='" + QByteArray("&e;").repeated(1000) + "'/>")},
         {"one long entity in many values",
          declaring(entity("e", longText), QByteArray("<a b='&e;'/>").repeated(1000))},
         {"in apostrophes",
          declaring("<!ENTITY e '" + longText + "'>", QByteArray("&e;").repeated(1000))},
         {"first of two declarations",
          declaring(entity("e", longText) + entity("e", ""), QByteArray("&e;").repeated(1000))},
         {"long entity of values",
          declaring(entity("e", longText) + entity("f", "<a b='&e;'/>"),
                    QByteArray("&f;").repeated(1000))},
         {"default attributes",
          declaring("<!ATTLIST a b CDATA '" + longText + "'>", QByteArray("<a/>").repeated(1000))},
         {"default attributes of two lists",
          declaring("<!ATTLIST a b CDATA 'x'><!ATTLIST a c CDATA '" + longText + "'>",
                    QByteArray("<a/>").repeated(1000))},
         {"default attributes of entities",
          declaring(entity("e", longText) + "<!ATTLIST a b CDATA '&e;'>",
                    QByteArray("<a/>").repeated(1000))}},
        SmilResult::NotWellFormed);
}

TEST(DocumentLimits, GrowthIsMeasuredByTheDocumentsOwnSize)
{
    // Small documents may grow to 65,536 characters, long ones to 16 times their size beyond that.
    const auto grown = [](int length, int uses, int filler) {
        return declaring(entity("e", QByteArray(length, 'x')),
                         QByteArray("&e;").repeated(uses) + QByteArray(filler, '.'));
    };
    expectBothForms(
        {{"small to 50,000", grown(500, 100, 0)}, {"20,000 to 384,000", grown(4000, 91, 15691)}},
        SmilResult::NotSmil);
    expectBothForms(
        {{"small to 100,000", grown(500, 200, 0)}, {"20,000 to 388,000", grown(4000, 92, 15691)}},
        SmilResult::NotWellFormed);
}

TEST(DocumentLimits, ReferencesCountOnlyAsTheirReplacement)
{
    // 1,616 characters may grow to 91,392: by 181 times the 496 that a reference gives more than it
    // takes.
    const QByteArray references = QByteArray("&e;").repeated(181);
    for (const QByteArray &content : {references, "<b c=\"" + references + "\"/>"}) {
        const auto document = [&content](int size) {
            const QByteArray declaration = entity("e", QByteArray(499, 'x'));
            const auto missing = size - declaring(declaration, content).size();
            return declaring(declaration, content + QByteArray(missing, '.'));
        };
        expectBothForms({{"just as long", document(1616)}}, SmilResult::NotSmil);
        expectBothForms({{"a little longer", document(1615)}}, SmilResult::NotWellFormed);
    }
}

TEST(DocumentLimits, ElementsGrowOnlyByTheirOwnDefaultAttributes)
{
    const QByteArray name(500, 'n');
    expectBothForms(
        {{"long name and short default",
          declaring("<!ATTLIST " + name + " b CDATA 'c'>" + entity("e", "<" + name + "/>"),
                    QByteArray("&e;").repeated(100))},
         {"default of another element",
          declaring("<!ATTLIST a b CDATA 'c'>" + entity("e", QByteArray("<b/>").repeated(100)),
                    QByteArray("&e;").repeated(180))}},
        SmilResult::NotSmil);
}

TEST(DocumentLimits, RefusesTooDeeplyNestedEntities)
{
    const QByteArray chain = entityChain(
        10, nested(30), [](const QByteArray &reference) { return nested(30, "<a>", reference); });
    expectBothForms(
        {{"in one entity", declaring(entity("e", nested(DeepestNesting)), "&e;")},
         {"used deep inside",
          declaring(entity("e", nested(100)), nested(DeepestNesting - 100, "<a>", "&e;"))},
         {"entity of entities", declaring(chain, "&e10;")},
         {"65 entities in one another", declaring(aliases(65), "&e65;")},
         {"after a harmless use",
          declaring(entity("e", nested(100)), "&e;" + nested(DeepestNesting - 100, "<a>", "&e;"))}},
        SmilResult::NotWellFormed);
}

TEST(DocumentLimits, RefusesEntitiesThatReferToThemselves)
{
    expectBothForms({{"itself", declaring(entity("e", "&e;"), "&e;")},
                     {"itself in a value", declaring(entity("e", "&e;"), "<a b='&e;'/>")},
                     {"one another", declaring(entity("e", "&f;") + entity("f", "&e;"), "&e;")},
                     {"with markup", declaring(entity("e", "<a>&e;</a>"), "&e;")}},
                    SmilResult::NotWellFormed);
}

TEST(DocumentLimits, RefusesMarkupHiddenByReferencesInDeclarations)
{
    const QByteArray hidden =
        QByteArray("&#60;a>").repeated(300) + QByteArray("&#60;/a>").repeated(300);
    const QByteArray hex =
        QByteArray("&#x3c;a>").repeated(300) + QByteArray("&#x3C;/a>").repeated(300);
    const QByteArray longText(3000, 'x');
    const QByteArray uses = QByteArray("&e;").repeated(2000);
    expectBothForms(
        {{"less-than as a number", declaring(entity("e", hidden), "&e;")},
         {"less-than in hexadecimal", declaring(entity("e", hex), "&e;")},
         {"ampersand as a number", declaring(entity("f", longText) + entity("e", "&#38;f;"), uses)},
         {"parameter entity that declares",
          declaring("<!ENTITY % p \"<!ENTITY e '" + longText + "'>\">%p;", uses)},
         {"parameter entity with default attributes",
          declaring("<!ENTITY % p \"<!ATTLIST a b CDATA '" + longText + "'>\">%p;",
                    QByteArray("<a/>").repeated(2000))}},
        SmilResult::NotWellFormed);
}

TEST(DocumentLimits, ReadsWideAndLongDocuments)
{
    constexpr int megabyte = 1 << 20;
    expectBothForms({{"siblings", smil(QByteArray("<a/>").repeated(100000))},
                     {"siblings with end tags", smil(QByteArray("<a></a>").repeated(100000))},
                     {"siblings in the body",
                      "<smil><body>" + QByteArray("<x/>").repeated(100000) + "</body></smil>"},
                     {"long value", smil("<a b='" + QByteArray(megabyte, 'x') + "'/>")},
                     {"long value of ends of tags",
                      smil("<a b='" + QByteArray("/>").repeated(megabyte / 2) + "'/>")},
                     {"long text", smil(QByteArray(megabyte, 'x'))},
                     {"long comment", smil("<!--" + QByteArray(megabyte, 'x') + "-->")},
                     {"long character data", smil("<![CDATA[" + QByteArray(megabyte, '<') + "]]>")},
                     {"many references", smil(QByteArray("&amp;").repeated(100000))}},
                    SmilResult::Ok);
}

TEST(DocumentLimits, RefusesUnterminatedDocuments)
{
    for (const char *text : {"<",
                             "<smil",
                             "<smil ",
                             "<smil a",
                             "<smil a=",
                             "<smil a='",
                             "<smil a='x",
                             "<smil a=\"'/>",
                             "<smil/",
                             "<smil><",
                             "<smil></",
                             "<smil></smil",
                             "<smil><!",
                             "<smil><!-",
                             "<smil><!--",
                             "<smil><!-- --",
                             "<smil><![CDATA[",
                             "<smil><![CDATA[]]",
                             "<smil><![CD",
                             "<smil><?",
                             "<smil><?p",
                             "<smil><?p ?",
                             "<smil>&",
                             "<smil>&a",
                             "<smil>&a;",
                             "<smil>&#",
                             "<smil a='&",
                             "<!",
                             "<!DOCTYPE",
                             "<!DOCTYPE d",
                             "<!DOCTYPE d [",
                             "<!DOCTYPE d []",
                             "<!DOCTYPE d [<!",
                             "<!DOCTYPE d [<!ENTITY",
                             "<!DOCTYPE d [<!ENTITY e",
                             "<!DOCTYPE d [<!ENTITY e '",
                             "<!DOCTYPE d [<!ENTITY e 'x'",
                             "<!DOCTYPE d [<!ENTITY e 'x'>",
                             "<!DOCTYPE d [<!ATTLIST",
                             "<!DOCTYPE d [<!ATTLIST a b CDATA '",
                             "<!DOCTYPE d [<!--",
                             "<!DOCTYPE d [<?",
                             "<!DOCTYPE '",
                             "<!ENTITY e '&e;'>",
                             "<!DOCTYPE d [%",
                             "<?",
                             "<?xml",
                             "<!--",
                             "&",
                             "]]>",
                             "</smil>"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(readOctets(text), SmilResult::NotWellFormed);
        EXPECT_EQ(readFile(text), SmilResult::NotWellFormed);
    }
}

TEST(DocumentLimits, RefusesEveryPrefixOfADocument)
{
    const QByteArray text = declaring(entity("e", "<b c='d'>x</b>")
                                          + "<!ATTLIST b d CDATA 'e'>"
                                            "<!-- c --><?p?>",
                                      "&e;<![CDATA[x]]><a f=\"&lt;\" g='h'>&amp;</a><!-- c -->");
    EXPECT_EQ(readOctets(text), SmilResult::NotSmil);
    for (qsizetype length = 1; length < text.size(); ++length) {
        SCOPED_TRACE(length);
        EXPECT_EQ(readOctets(text.first(length)), SmilResult::NotWellFormed);
    }
}
