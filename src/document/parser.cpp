#include "document/parser.h"

#include "document/expansion.h"
#include "document/limits.h"
#include "document/names.h"

#define XML_DTD // makes the header declare the limits on expansion
#include <expat.h>

#include <QXmlStreamReader>

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>
#include <new>

namespace {

// Qt's XML classes accept at most one colon in a name, and none at its ends. expat treats a colon
// as a letter.
bool hasMisplacedColon(std::string_view name)
{
    const std::size_t colon = name.find(':');
    return colon != name.npos
        && (colon == 0 || colon + 1 == name.size() || name.find(':', colon + 1) != name.npos);
}

bool mayBeginName(char32_t first)
{
    switch (QChar::category(first)) {
    case QChar::Letter_Uppercase:
    case QChar::Letter_Lowercase:
    case QChar::Letter_Titlecase:
    case QChar::Letter_Other:
    case QChar::Number_Letter:
        return true;
    default:
        return first == U'_';
    }
}

// The part after the colon of an element's name must itself be a name.
bool isElementName(std::string_view name)
{
    const std::size_t colon = name.find(':');
    if (colon == name.npos)
        return true;
    if (hasMisplacedColon(name))
        return false;
    const std::string_view local = name.substr(colon + 1);
    return mayBeginName(QString::fromUtf8(local.data(), qsizetype(local.size())).toUcs4().first());
}

// Qt removes a leading byte order mark, but in a value it is a character.
QString textOf(const char *utf8)
{
    const QString text = QString::fromUtf8(utf8);
    return std::strncmp(utf8, "\xEF\xBB\xBF", 3) == 0 ? QChar(QChar::ByteOrderMark) + text : text;
}

class Parser
{
public:
    explicit Parser(QByteArrayView document);

    bool parse();
    /// True if the error may be a name that only Qt accepts, in a document without a document type.
    bool hasOddName() const;
    SmilDocument takeElements() { return std::move(m_elements); }

private:
    template <auto Handler, typename... Arguments>
    static void call(void *self, Arguments... arguments);

    void declareXml(const char *version);
    void beginDoctype();
    void declareEntity(const char *name, int isParameter, const char *value, int length);
    void declareAttribute(const char *element, const char *value);
    void beginElement(const char *name, const char **attributes);
    void endElement() { m_elements.endElement(); }
    void addInstruction(const char *target, const char *text);
    void addText(const char *text, std::size_t length);

    void limitExpansion();
    void refuseUnless(bool isWithinLimits);
    qint64 position() const;

    std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> m_parser;
    QByteArrayView m_document;
    SmilDocument m_elements;
    std::optional<ExpansionMeter> m_meter; // set for documents with declarations
    EntityLevels m_levels;
    bool m_isRefused = false;
    bool m_lacksMemory = false;
};

Parser::Parser(QByteArrayView document)
    : m_parser(XML_ParserCreate("UTF-8"), XML_ParserFree), m_document(document)
{
    if (!m_parser)
        throw std::bad_alloc();
    XML_SetUserData(m_parser.get(), this);
    XML_SetParamEntityParsing(m_parser.get(), XML_PARAM_ENTITY_PARSING_ALWAYS);
    XML_SetXmlDeclHandler(m_parser.get(), [](void *self, const char *version, const char *, int) {
        call<&Parser::declareXml>(self, version);
    });
    XML_SetStartDoctypeDeclHandler(m_parser.get(),
                                   [](void *self, const char *, const char *, const char *, int) {
                                       call<&Parser::beginDoctype>(self);
                                   });
    XML_SetElementHandler(
        m_parser.get(),
        [](void *self, const char *name, const char **attributes) {
            call<&Parser::beginElement>(self, name, attributes);
        },
        [](void *self, const char *) { call<&Parser::endElement>(self); });
    XML_SetProcessingInstructionHandler(m_parser.get(),
                                        [](void *self, const char *target, const char *text) {
                                            call<&Parser::addInstruction>(self, target, text);
                                        });
}

// Exceptions must not pass through the parser, which is written in C. It may report some more data
// after it was stopped.
template <auto Handler, typename... Arguments>
void Parser::call(void *self, Arguments... arguments)
{
    auto *parser = static_cast<Parser *>(self);
    if (parser->m_isRefused)
        return;
    try {
        (parser->*Handler)(arguments...);
    } catch (const std::bad_alloc &) {
        parser->m_lacksMemory = true;
        parser->refuseUnless(false);
    }
}

bool Parser::parse()
{
    constexpr qsizetype largestPiece = std::numeric_limits<int>::max();
    qsizetype at = 0;
    XML_Status status = XML_STATUS_OK;
    do {
        const qsizetype size = std::min(m_document.size() - at, largestPiece);
        const bool isLast = at + size == m_document.size();
        status = XML_Parse(m_parser.get(), m_document.data() + at, int(size), isLast);
        at += size;
    } while (status == XML_STATUS_OK && at < m_document.size());
    if (m_lacksMemory || XML_GetErrorCode(m_parser.get()) == XML_ERROR_NO_MEMORY)
        throw std::bad_alloc();
    return status == XML_STATUS_OK && !m_isRefused;
}

bool Parser::hasOddName() const
{
    const XML_Error error = XML_GetErrorCode(m_parser.get());
    return !m_isRefused && !m_meter
        && (error == XML_ERROR_INVALID_TOKEN || error == XML_ERROR_XML_DECL);
}

void Parser::refuseUnless(bool isWithinLimits)
{
    if (isWithinLimits)
        return;
    m_isRefused = true;
    XML_StopParser(m_parser.get(), XML_FALSE);
}

void Parser::declareXml(const char *version)
{
    refuseUnless(!version || std::strcmp(version, "1.0") == 0);
}

void Parser::beginDoctype()
{
    m_meter.emplace(m_document);
    limitExpansion();
    XML_Parser parser = m_parser.get();
    XML_SetEntityDeclHandler(
        parser,
        [](void *self, const char *name, int isParameter, const char *value, int length,
           const char *, const char *, const char *,
           const char *) { call<&Parser::declareEntity>(self, name, isParameter, value, length); });
    XML_SetAttlistDeclHandler(parser,
                              [](void *self, const char *element, const char *, const char *,
                                 const char *value,
                                 int) { call<&Parser::declareAttribute>(self, element, value); });
    XML_SetCharacterDataHandler(parser, [](void *self, const char *text, int length) {
        call<&Parser::addText>(self, text, std::size_t(length));
    });
    XML_SetCommentHandler(parser, [](void *self, const char *text) {
        call<&Parser::addText>(self, text, std::strlen(text));
    });
}

// expat expands values of attributes and declarations before it calls a handler, so expat's own
// limit bounds these. It counts octets, and counts nested entities at every level. Entities without
// references stay below the limit if ExpansionMeter accepts them.
void Parser::limitExpansion()
{
    const bool isAscii =
        std::ranges::all_of(m_document, [](char c) { return static_cast<unsigned char>(c) < 128; });
    const bool takesOneOctet = isAscii && !m_document.contains("&#");
    const qint64 octetsOfACharacter = takesOneOctet ? 1 : 3;
    const qint64 most = octetsOfACharacter
            * (QvlDocumentLimits::ExpansionFactor * m_document.size()
               + QvlDocumentLimits::ExpansionAllowance)
        + m_document.size();
    XML_SetBillionLaughsAttackProtectionActivationThreshold(m_parser.get(),
                                                            static_cast<unsigned long long>(most));
    XML_SetBillionLaughsAttackProtectionMaximumAmplification(m_parser.get(), 1.0F);
}

void Parser::declareEntity(const char *name, int isParameter, const char *value, int length)
{
    if (value) {
        refuseUnless(m_levels.declare(isParameter ? '%' : '&', name,
                                      std::string_view(value, std::size_t(length))));
    }
}

void Parser::declareAttribute(const char *element, const char *value)
{
    m_meter->declareAttribute(element, value != nullptr);
    refuseUnless(m_meter->isWithinLimit());
}

void Parser::beginElement(const char *name, const char **attributes)
{
    const std::string_view tag(name);
    refuseUnless(m_elements.depth() < QvlDocumentLimits::DeepestNesting && isElementName(tag));
    if (m_meter) {
        m_meter->addStartTag(position(), name, attributes,
                             XML_GetSpecifiedAttributeCount(m_parser.get()));
        refuseUnless(m_meter->isWithinLimit());
    }
    if (m_isRefused)
        return;
    m_elements.beginElement(smilNameText(tag));
    for (; *attributes; attributes += 2) {
        refuseUnless(!hasMisplacedColon(attributes[0]));
        m_elements.addAttribute(smilNameText(attributes[0]), textOf(attributes[1]));
    }
}

void Parser::addInstruction(const char *target, const char *text)
{
    refuseUnless(!std::strchr(target, ':'));
    if (m_meter)
        addText(text, std::strlen(text));
}

void Parser::addText(const char *text, std::size_t length)
{
    m_meter->addText(position(), std::string_view(text, length));
    refuseUnless(m_meter->isWithinLimit());
}

qint64 Parser::position() const
{
#if XML_MAJOR_VERSION == 2 && XML_MINOR_VERSION < 9
    return XML_GetCurrentByteIndex(m_parser.get());
#else
    return XML_GetCurrentByteIndex64(m_parser.get());
#endif
}

// True when more than @p most "=" follow a "<", as in a tag with more attributes.
bool mayHaveMoreAttributes(QByteArrayView utf8, int most)
{
    int signs = 0;
    for (const char c : utf8) {
        signs = c == '<' ? 0 : signs + (c == '=');
        if (signs > most)
            return true;
    }
    return false;
}

// Some composers wrote attribute names that XML does not allow, such as "@src", and Qt accepts
// them. Qt's reader compares all pairs of attributes of an element and has no bound on the cost of
// declarations, hence the limits.
std::optional<SmilDocument> parseWithOddNames(QByteArrayView utf8)
{
    constexpr qsizetype longest = 65536;
    constexpr int mostAttributes = 64;
    if (utf8.size() > longest || utf8.contains("<!DOCTYPE")
        || mayHaveMoreAttributes(utf8, mostAttributes))
        return std::nullopt;
    QXmlStreamReader reader(QString::fromUtf8(utf8));
    reader.setNamespaceProcessing(false);
    SmilDocument elements;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            if (elements.depth() == QvlDocumentLimits::DeepestNesting)
                return std::nullopt;
            elements.beginElement(reader.qualifiedName().toString());
            for (const QXmlStreamAttribute &attribute : reader.attributes())
                elements.addAttribute(attribute.qualifiedName().toString(),
                                      attribute.value().toString());
            break;
        case QXmlStreamReader::DTD:
            return std::nullopt;
        case QXmlStreamReader::EndElement:
            elements.endElement();
            break;
        default:
            break;
        }
    }
    return reader.hasError() ? std::nullopt : std::optional(std::move(elements));
}

} // namespace

// A leading zero octet makes expat read UTF-16, even if it was told UTF-8.
std::optional<SmilDocument> DocumentParser::parse(QByteArrayView utf8)
{
    if (utf8.contains('\0'))
        return parseWithOddNames(utf8);
    Parser parser(utf8);
    if (parser.parse())
        return parser.takeElements();
    return parser.hasOddName() ? parseWithOddNames(utf8) : std::nullopt;
}
