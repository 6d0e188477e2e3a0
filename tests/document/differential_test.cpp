/*
 * Compares the parser with Qt's tree, on whose results stored presentations depend. Both accept or
 * refuse the same documents, among all fixtures and hundreds of thousands of changed ones, and read
 * the same elements in the same order with the same attributes. docs/smil.md lists the deliberate
 * differences.
 */
#include "document/parser.h"

#include "document/limits.h"

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <random>

#if defined(__SANITIZE_ADDRESS__)
#define QVL_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QVL_SANITIZED 1
#endif
#endif

namespace {

constexpr unsigned int Shares = 8; // of the fixtures, one for each test
#ifdef QVL_SANITIZED
constexpr int ChangesOfADocument = 100;
#else
constexpr int ChangesOfADocument = 1400;
#endif
const QString Refused = QStringLiteral("refused");

// "(tag name=value ...children)", with the attributes in the order of their names.
QString asText(const QString &tag, QStringList attributes)
{
    attributes.sort();
    return QLatin1Char('(') + tag + QLatin1Char(' ') + attributes.join(QLatin1Char(' '));
}

QString asText(const QDomElement &element)
{
    QStringList attributes;
    for (int i = 0; i < element.attributes().count(); ++i) {
        const QDomAttr attribute = element.attributes().item(i).toAttr();
        attributes += attribute.name() + QLatin1Char('=') + attribute.value();
    }
    QString text = asText(element.tagName(), attributes);
    for (auto child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        text += asText(child);
    return text + QLatin1Char(')');
}

QString asText(const SmilDocument &document, const SmilElement &element)
{
    QStringList attributes;
    for (const SmilDocument::Attribute &attribute : document.attributesOf(element))
        attributes += attribute.name + QLatin1Char('=') + attribute.value;
    QString text = asText(element.tag(), attributes);
    for (auto child = element.firstChild(); !child.isNull(); child = child.nextSibling())
        text += asText(document, child);
    return text + QLatin1Char(')');
}

QString inTheTree(const QString &text)
{
    QDomDocument document;
    return document.setContent(text) ? asText(document.documentElement()) : Refused;
}

QString parsed(const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    const auto document = DocumentParser::parse(utf8);
    return document ? asText(*document, document->root()) : Refused;
}

QStringList fixtures()
{
    return QDir(QStringLiteral(QVL_FIXTURES "/smil")).entryList({QStringLiteral("*.smil")});
}

QByteArray octetsOf(const QString &name)
{
    QFile file(QStringLiteral(QVL_FIXTURES "/smil/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Text that changes insert. With a document type, the names remain valid XML names.
const QByteArrayList &pieces(bool hasDoctype)
{
    static const QByteArrayList plain{"a",     "Z",    "7",   " ",   "\n", "\r", "=",
                                      "\"",    "'",    "/",   ">",   "&",  ";",  "&lt;",
                                      "&#65;", "&#x;", "-->", "]]>", "?>"};
    static const QByteArrayList all = plain
        + QByteArrayList{"<",
                         "</",
                         "<a>",
                         "</a>",
                         "<a/>",
                         "<!--",
                         "<![CDATA[",
                         "<?",
                         "<?a:b?>",
                         "<?xml version='1.0'?>",
                         "<!",
                         "--",
                         "&",
                         "&#0;",
                         "&nbsp;",
                         "&#xFFFF;",
                         ":",
                         "a:b",
                         ":a",
                         "a:",
                         "a:b:c",
                         "@",
                         "$",
                         "!",
                         "?",
                         "#",
                         "%",
                         "(",
                         ")",
                         "*",
                         "+",
                         ",",
                         ".",
                         "-",
                         "[",
                         "]",
                         "^",
                         "`",
                         "{",
                         "|",
                         "}",
                         "~",
                         "\\",
                         QByteArray(1, '\0'),
                         "\x01",
                         "\t",
                         "\x1F",
                         "\x7F",
                         "\xC2\x80",
                         "\xC2\x85",
                         "\xC2\xA0",
                         "\xC2\xB7",
                         "\xC3\x97",
                         "\xC3\xA4",
                         "\xCC\x81",
                         "\xD7\x90",
                         "\xE2\x80\xA8",
                         "\xE2\x82\xAC",
                         "\xE4\xB8\xAD",
                         "\xEF\xBB\xBF",
                         "\xEF\xBF\xBD",
                         "\xEF\xBF\xBE",
                         "\xEF\xBF\xBF",
                         "\xF0\x9F\x98\x80",
                         "\xFF",
                         " a='1'",
                         " src='2'"};
    return hasDoctype ? plain : all;
}

// One to four changes: inserts a piece, removes octets, or copies octets to another place.
QByteArray changed(QByteArray document, std::mt19937 *random)
{
    const auto below = [random](qsizetype limit) { return qsizetype((*random)() % size_t(limit)); };
    const bool hasDoctype = document.contains("<!DOCTYPE");
    const QByteArrayList &put = pieces(hasDoctype);
    for (qsizetype changes = 1 + below(4); changes > 0; --changes) {
        const qsizetype at = below(document.size() + 1);
        switch (below(hasDoctype ? 2 : 3)) {
        case 0:
            document.insert(at, put[below(put.size())]);
            break;
        case 1:
            document.remove(at, 1 + below(4));
            break;
        default:
            document.insert(at, document.mid(below(document.size() + 1), below(30)));
        }
    }
    return document;
}

// In a document type Qt refuses a "<" in an identifier, and "]]>" in an entity.
bool isRefusedByTheTreeAlone(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral(
        "<!DOCTYPE[^>]*(SYSTEM|PUBLIC)[^>]*[\"'][^\"']*<|<!ENTITY[^\"']*[\"'][^\"']*\\]\\]>"));
    return pattern.match(text).hasMatch();
}

void expectSame(const QString &text)
{
    const QString tree = inTheTree(text);
    const QString ours = parsed(text);
    if (tree == ours || (tree == Refused && isRefusedByTheTreeAlone(text)))
        return;
    if (ours == Refused
        && tree.count(QLatin1Char('(')) > qsizetype(QvlDocumentLimits::DeepestNesting))
        return; // nested deeper than a document may be
    ADD_FAILURE() << text.toStdString() << "\ntree: " << tree.toStdString()
                  << "\nours: " << ours.toStdString();
}

class DocumentsLikeTheTree : public testing::TestWithParam<unsigned int>
{
};

} // namespace

TEST_P(DocumentsLikeTheTree, AreReadTheSameWhenChanged)
{
    std::mt19937 random(20261122U + GetParam());
    const QStringList names = fixtures();
    ASSERT_FALSE(names.isEmpty());
    for (auto i = qsizetype(GetParam()); i < names.size() && !HasFailure(); i += Shares) {
        SCOPED_TRACE(names[i].toStdString());
        const QByteArray document = octetsOf(names[i]);
        expectSame(QString::fromUtf8(document));
        for (int change = 0; change < ChangesOfADocument && !HasFailure(); ++change)
            expectSame(QString::fromUtf8(changed(document, &random)));
    }
}

INSTANTIATE_TEST_SUITE_P(Document, DocumentsLikeTheTree, testing::Range(0U, Shares));
