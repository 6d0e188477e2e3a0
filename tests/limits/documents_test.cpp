/*
 * The cost of documents: twice the levels, attributes, declarations and so on take at most 2.2
 * times the steps and memory. No hostile document of 300 KB takes more steps than an ordinary one
 * of 600 KB. The steps of the XML parser are not counted, but its memory is: it grows with the text
 * of entities.
 */
#include "document/expansion.h"
#include "document/limits.h"
#include "document/parser.h"
#include "limits/cost.h"
#include "presentation/presentation.h"
#include "smil/smil_parser.h"

#include <QTemporaryFile>

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <tuple>

namespace {

constexpr int HostileSize = 300'000; // octets

QByteArray repeated(const char *pattern, int count)
{
    QByteArray text;
    for (int i = 0; i < count; ++i)
        text += QByteArray(pattern).replace('#', QByteArray::number(i));
    return text;
}

QByteArray smil(const QByteArray &content)
{
    return "<smil>" + content + "</smil>";
}

QByteArray declaring(const QByteArray &declarations, const QByteArray &content = {})
{
    return "<!DOCTYPE smil [" + declarations + "]>" + smil(content);
}

Cost costOfParsing(const QByteArray &document)
{
    return costOf([&document] { std::ignore = DocumentParser::parse(document); });
}

// From a file, because the document type is removed from octets.
Cost costOfReading(const QByteArray &document)
{
    QTemporaryFile file;
    EXPECT_TRUE(file.open() && file.write(document) == document.size() && file.flush());
    MMS_COMP_SMILMultipart message;
    for (const auto *name : {"a.jpg", "a.txt"}) {
        auto part = std::make_unique<MMS_COMP_SMILMultipartBodypart>();
        part->setContentLocation(QLatin1String(name));
        message.appendBodypart(part.release());
    }
    MMS_COMP_SMILData slides(&message);
    return costOf(
        [&] { std::ignore = MMS_COMP_SMILParser().parse(file.fileName(), &message, &slides); });
}

struct Growing
{
    const char *name;
    int size; ///< the smaller one
    QByteArray (*document)(int size);
};

const Growing growing[] = {
    {"levels", 64,
     [](int n) { return smil(QByteArray("<a>").repeated(n) + QByteArray("</a>").repeated(n)); }},
    {"attributes", 2000, [](int n) { return "<smil" + repeated(" a#='x'", n) + "/>"; }},
    {"prefixes", 2000, [](int n) { return "<smil" + repeated(" p#:a='x'", n) + "/>"; }},
    {"names that XML does not allow", 1000, [](int n) { return smil(repeated("<a @b='#'/>", n)); }},
    {"siblings", 5000, [](int n) { return smil(repeated("<a/>", n)); }},
    {"text", 50000, [](int n) { return smil(repeated("x\n", n)); }},
    {"comments", 5000, [](int n) { return smil(repeated("<!-- # -->", n)); }},
    {"instructions", 5000, [](int n) { return smil(repeated("<?p #?>", n)); }},
    {"entities", 2000,
     [](int n) { return declaring(repeated("<!ENTITY e# 'x'>", n), repeated("&e#;", n)); }},
    {"uses of an entity", 5000,
     [](int n) { return declaring("<!ENTITY e '<a/>x'>", repeated("&e;", n)); }},
    {"uses in a value", 5000,
     [](int n) { return declaring("<!ENTITY e 'x'>", "<a b='" + repeated("&e;", n) + "'/>"); }},
    {"entities that use entities", 1000,
     [](int n) {
         return declaring("<!ENTITY x 'y'>" + repeated("<!ENTITY e# '&x;&x;'>", n),
                          repeated("&e#;", n));
     }},
    {"uses declared before what they use", 1000,
     [](int n) { return declaring(repeated("<!ENTITY e# '&x;'>", n) + "<!ENTITY x 'y'>"); }},
    {"elements with a default attribute", 2000,
     [](int n) { return declaring("<!ATTLIST a b CDATA 'c'>", repeated("<a/>", n)); }},
    {"default attributes of many elements", 2000,
     [](int n) { return declaring(repeated("<!ATTLIST e# a CDATA 'c'>", n)); }},
    {"declarations", 2000,
     [](int n) { return declaring(repeated("<!ELEMENT e# ANY><!NOTATION n# SYSTEM 'x'>", n)); }},
    {"parameter entities", 2000,
     [](int n) {
         return declaring("<!ENTITY % p '<!ELEMENT e ANY>'>" + QByteArray("%p;").repeated(n));
     }},
};

void PrintTo(const Growing &row, std::ostream *out)
{
    *out << row.name;
}

QByteArray filled(const char *pattern)
{
    return repeated(pattern, HostileSize / int(std::strlen(pattern)));
}

struct Hostile
{
    const char *name;
    QByteArray document;
};

const Hostile hostile[] = {
    {"levels", "<smil>" + filled("<a>")},
    {"attributes of an element", "<smil" + repeated(" a#='x'", 25000) + "/>"},
    {"prefixes", "<smil" + repeated(" p#:a='x'", 21000) + "/>"},
    {"attributes whose names XML does not allow", "<smil" + repeated(" @#='x'", 25000) + "/>"},
    {"an odd name at the end", smil(filled("<a/>") + "<@/>")},
    {"text", smil(filled("x\n"))},
    {"comments", smil(filled("<!---->"))},
    {"instructions", smil(filled("<?p?>"))},
    {"character references", smil(filled("&#65;"))},
    {"long entity", declaring("<!ENTITY e '" + QByteArray(4000, 'x') + "'>", filled("&e;"))},
    {"long entity in a value",
     declaring("<!ENTITY e '" + QByteArray(4000, 'x') + "'>", "<a b='" + filled("&e;") + "'/>")},
    {"6,000 default attributes",
     declaring("<!ATTLIST a" + repeated(" a# CDATA ''", 6000) + ">", repeated("<a/>", 40000))},
    {"3,000 default attributes",
     declaring("<!ATTLIST a" + repeated(" a# CDATA ''", 2900) + ">", repeated("<a/>", 60000))},
    {"declared attributes",
     declaring("<!ENTITY % p '<!ATTLIST a " + QByteArray("x CDATA #IMPLIED ").repeated(280) + ">'>"
                   + QByteArray("%p;").repeated(980),
               repeated("<a/>", 72000))},
    {"declared attributes and as many elements",
     declaring("<!ATTLIST a" + repeated(" a# CDATA #IMPLIED", 7000) + ">",
               repeated("<a/>", 35000))},
    {"marks of references",
     declaring("<!ENTITY e '" + QByteArray("&#38;").repeated(59000) + ";'>")},
    {"entities in a row", declaring(repeated("<!ENTITY e# '&f#;'><!ENTITY f# '&e#;'>", 6000))},
    {"declarations", declaring(repeated("<!ENTITY e# ''>", 15000))},
    {"entities that many use",
     declaring("<!ENTITY x ''>" + repeated("<!ENTITY e# '&x;&x;&x;&x;'>", 8000))},
};

void PrintTo(const Hostile &row, std::ostream *out)
{
    *out << row.name;
}

QByteArray ordinaryDocument(int octets)
{
    const QByteArray slide = "<par dur=\"5s\"><img src=\"a.jpg\" region=\"image\"></img>"
                             "<text src=\"a.txt\" region=\"text\"></text></par>\n";
    return smil("<body>" + slide.repeated(octets / int(slide.size())) + "</body>");
}

class GrowingDocument : public testing::TestWithParam<Growing>
{
};

class HostileDocument : public testing::TestWithParam<Hostile>
{
};

} // namespace

TEST_P(GrowingDocument, CostsAtMostALittleOverTwiceAsMuchAtTwiceTheSize)
{
    constexpr double Most = 2.2;
    const QByteArray small = GetParam().document(GetParam().size);
    const QByteArray large = GetParam().document(2 * GetParam().size);
    ASSERT_TRUE(DocumentParser::parse(large)); // also creates what is created only once
    const Cost once = costOfParsing(small);
    const Cost twice = costOfParsing(large);
    EXPECT_GT(once.steps, 0);
    EXPECT_LE(double(twice.steps), Most * double(once.steps)) << once.steps;
    EXPECT_LE(double(twice.allocations), Most * double(once.allocations)) << once.allocations;
    EXPECT_LE(double(twice.octets), Most * double(once.octets)) << once.octets;
}

INSTANTIATE_TEST_SUITE_P(Document, GrowingDocument, testing::ValuesIn(growing));

TEST_P(HostileDocument, TakesNoMoreStepsThanAnOrdinaryOneOfTwiceItsSize)
{
    const QByteArray &document = GetParam().document;
    const Cost ordinary = costOfReading(ordinaryDocument(2 * HostileSize));
    const Cost cost = costOfReading(document);
    EXPECT_LE(cost.steps, ordinary.steps);
    EXPECT_LE(cost.octets, 4 * QvlDocumentLimits::ExpansionFactor * document.size());
}

INSTANTIATE_TEST_SUITE_P(Document, HostileDocument, testing::ValuesIn(hostile));
