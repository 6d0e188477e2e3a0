/*
 * The parser of documents: order of elements, names that Qt's tree reads or refuses, and a Qt tree
 * that is copied like its text.
 */
#include "document/parser.h"

#include <QDomDocument>
#include <QStringList>

#include <gtest/gtest.h>

namespace {

// "smil(head body(par))": tags and what is in them.
QString tagsOf(const SmilElement &element)
{
    QStringList children;
    for (auto child = element.firstChild(); !child.isNull(); child = child.nextSibling())
        children += tagsOf(child);
    return children.isEmpty()
        ? element.tag()
        : element.tag() + QLatin1Char('(') + children.join(QLatin1Char(' ')) + QLatin1Char(')');
}

bool isRead(const QByteArray &text)
{
    return DocumentParser::parse(text).has_value();
}

QString valueIn(const QByteArray &text)
{
    const auto document = DocumentParser::parse(text);
    return document ? document->root().attribute(u"a") : QStringLiteral("refused");
}

} // namespace

TEST(DocumentParser, KeepsElementsInTheOrderOfTheText)
{
    const auto document =
        DocumentParser::parse("<smil><head/>text<body><par><a/></par><!-- --><seq/></body></smil>");
    ASSERT_TRUE(document);
    EXPECT_EQ(tagsOf(document->root()), "smil(head body(par(a) seq))");
    EXPECT_TRUE(document->root().nextSibling().isNull());
}

TEST(DocumentParser, DistinguishesAnEmptyAttributeFromNone)
{
    const auto document = DocumentParser::parse("<s a='' b='x'/>");
    ASSERT_TRUE(document);
    EXPECT_FALSE(document->root().attribute(u"a").isNull());
    EXPECT_TRUE(document->root().attribute(u"a").isEmpty());
    EXPECT_EQ(document->root().attribute(u"b"), "x");
    EXPECT_TRUE(document->root().attribute(u"c").isNull());
    EXPECT_TRUE(SmilElement().attribute(u"a").isNull());
    EXPECT_TRUE(SmilElement().firstChild().isNull());
}

TEST(DocumentParser, NormalizesValuesAsXmlRequires)
{
    EXPECT_EQ(valueIn("<s a='1&lt;2&#10;3\n4\t5'/>"), "1<2\n3 4 5");
    EXPECT_EQ(valueIn("<s a='\xEF\xBB\xBFx'/>"), QString(QChar(0xFEFF)) + 'x');
    EXPECT_EQ(valueIn("<!DOCTYPE s [<!ENTITY auml \"&#228;\">]><s a='&auml;'/>"),
              QString(QChar(0xE4)));
    EXPECT_EQ(valueIn("<!DOCTYPE s [<!ATTLIST s a CDATA 'by default'>]><s/>"), "by default");
    EXPECT_EQ(valueIn("<!DOCTYPE s [<!ENTITY % p \"<!ENTITY e 'declared'>\">%p;]><s a='&e;'/>"),
              "declared");
}

TEST(DocumentParser, IgnoresDeclarations)
{
    EXPECT_EQ(valueIn("<?xml version='1.0' encoding='UTF-16'?><s a='\xC3\xA4'/>"),
              QString(QChar(0xE4)));
    EXPECT_EQ(valueIn("<?xml version='1.0' encoding='ISO-8859-1'?><s a='\xC3\xA4'/>"),
              QString(QChar(0xE4)));
}

TEST(DocumentParser, ReadsUtf8WhereZeroOctetsLookLikeUtf16)
{
    for (const char *text : {"<s a='2'/>", "\n<s a='2'/>", "<!DOCTYPE s><s a='2'/>"}) {
        SCOPED_TRACE(text);
        QByteArray little;
        for (const char octet : QByteArray(text))
            little.append(octet).append('\0');
        EXPECT_FALSE(isRead(little));
        EXPECT_FALSE(isRead(QByteArray(1, '\0') + little.chopped(1)));
    }
}

TEST(DocumentParser, RefusesDocumentsThatQtRefuses)
{
    for (const char *text : {"",
                             "text",
                             "<s>",
                             "<s/><s/>",
                             "<s a='1' a='2'/>",
                             "<s a=1/>",
                             "<s>&nbsp;</s>",
                             "<s>&</s>",
                             "<s>]]></s>",
                             "<:s/>",
                             "<s:/>",
                             "<a:b:c/>",
                             "<s :a=''/>",
                             "<s a:=''/>",
                             "<s a:b:c=''/>",
                             "<s><?a:b?></s>",
                             "<?xml version='1.1'?><s/>",
                             "<?xml version='2.0'?><s/>",
                             "<s>\x01</s>",
                             "<s a='<'/>",
                             "<s><!DOCTYPE s></s>"}) {
        SCOPED_TRACE(text);
        EXPECT_FALSE(isRead(text));
        EXPECT_FALSE(bool(QDomDocument().setContent(QString::fromUtf8(text))));
    }
}

TEST(DocumentParser, ReadsNamesThatXmlDoesNotAllow)
{
    EXPECT_EQ(valueIn("<s @b='1' a='2'/>"), "2");
    EXPECT_EQ(valueIn("<s \xE2\x82\xAC='1' a='2'/>"), "2");
    EXPECT_EQ(valueIn("<s a='2'><x @y=''/></s>"), "2");
}

// Qt's reader, which reads such names, would take too long.
TEST(DocumentParser, RefusesSuchNamesInLargeDocuments)
{
    const auto document = [](int attributes, qsizetype size) {
        QByteArray text = "<s";
        for (int i = 0; i < attributes; ++i)
            text += " @" + QByteArray::number(i) + "=''";
        return text + '>' + QByteArray(size - text.size() - 5, 'x') + "</s>";
    };
    EXPECT_TRUE(isRead(document(64, 65536)));
    EXPECT_FALSE(isRead(document(65, 65536)));
    EXPECT_FALSE(isRead(document(64, 65537)));
    EXPECT_FALSE(isRead("<!DOCTYPE s><s @a=''/>"));
    EXPECT_FALSE(isRead("<s @a=''><!DOCTYPE s></s>"));
}

TEST(DocumentParser, LoadsNothingFromOutside)
{
    EXPECT_EQ(valueIn("<!DOCTYPE s SYSTEM 'file:///etc/passwd' [<!ENTITY e SYSTEM '/etc/passwd'>]>"
                      "<s a='x'>&e;</s>"),
              "x");
    EXPECT_EQ(valueIn("<!DOCTYPE s [<!ENTITY % p SYSTEM '/etc/passwd'>%p;]><s a='x'/>"), "x");
}

TEST(SmilDocument, CopiesATreeOfQt)
{
    QDomDocument tree;
    ASSERT_TRUE(
        tree.setContent(QStringLiteral("<x><body dur='1s' other='2'><par><img src='a'/>text<!-- "
                                       "--><p:q/></par><seq/></body><after/></x>")));
    const SmilDocument document(tree.documentElement().firstChildElement());
    EXPECT_EQ(tagsOf(document.root()), "body(par(img p:q) seq)");
    EXPECT_EQ(document.root().attribute(u"dur"), "1s");
    EXPECT_EQ(document.root().firstChild().firstChild().attribute(u"src"), "a");
    EXPECT_TRUE(SmilDocument(QDomElement()).root().isNull());
}
