#include "html/html_writer.h"

#include "view/terminal_text.h"

#include <algorithm>

namespace {

// Joiners and marks that texts need stay; the page isolates the direction of each text.
bool isKept(char32_t character)
{
    constexpr char32_t ZeroWidthNonJoiner = 0x200C;
    constexpr char32_t RightToLeftMark = 0x200F;
    constexpr char32_t FirstTag = 0xE0020; // flags of regions
    constexpr char32_t LastTag = 0xE007F;
    return character == U'\n' || character == U'\t'
        || (character >= ZeroWidthNonJoiner && character <= RightToLeftMark)
        || (character >= FirstTag && character <= LastTag)
        || TerminalText::hasVisibleForm(character);
}

QString withVisibleControls(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (char32_t character : text.toUcs4()) {
        const QString one = QString::fromUcs4(&character, 1);
        result += isKept(character) ? one : TerminalText::visible(one);
    }
    return result;
}

QByteArray escaped(const QString &text)
{
    return withVisibleControls(text)
        .toHtmlEscaped()
        .replace(u'\'', QLatin1StringView("&#39;"))
        .toUtf8();
}

} // namespace

void HtmlWriter::open(const char *tag, Attributes attributes)
{
    start(tag, attributes);
    markup(">");
    m_open.push_back(tag);
}

void HtmlWriter::close()
{
    markup("</");
    markup(m_open.back());
    markup(">");
    m_open.pop_back();
}

void HtmlWriter::single(const char *tag, Attributes attributes)
{
    start(tag, attributes);
    markup("/>");
}

void HtmlWriter::text(const QString &text)
{
    markup(escaped(text));
}

void HtmlWriter::element(const char *tag, const QString &content, Attributes attributes)
{
    open(tag, attributes);
    text(content);
    close();
}

void HtmlWriter::openWithData(const char *tag, const char *name, const char *mediaType,
                              const QByteArray &octets, Attributes attributes)
{
    startWithData(tag, name, mediaType, octets, attributes);
    markup(">");
    m_open.push_back(tag);
}

void HtmlWriter::singleWithData(const char *tag, const char *name, const char *mediaType,
                                const QByteArray &octets, Attributes attributes)
{
    startWithData(tag, name, mediaType, octets, attributes);
    markup("/>");
}

void HtmlWriter::startWithData(const char *tag, const char *name, const char *mediaType,
                               const QByteArray &octets, Attributes attributes)
{
    start(tag, attributes);
    markup(" ");
    markup(name);
    markup("=\"data:");
    markup(mediaType);
    markup(";base64,");
    writeData(octets);
    markup("\"");
}

void HtmlWriter::markup(QByteArrayView markup)
{
    m_isOk = m_isOk && m_out->write(markup.data(), markup.size()) == markup.size();
}

void HtmlWriter::start(const char *tag, Attributes attributes)
{
    markup("<");
    markup(tag);
    for (const Attribute &attribute : attributes) {
        markup(" ");
        markup(attribute.name);
        markup("=\"");
        text(attribute.value);
        markup("\"");
    }
}

// In blocks, so that a large part is not in memory twice.
void HtmlWriter::writeData(const QByteArray &octets)
{
    constexpr qsizetype Block = 3 * 16384; // a multiple of three octets needs no padding
    for (qsizetype start = 0; start < octets.size(); start += Block)
        markup(
            QByteArray::fromRawData(octets.data() + start, std::min(Block, octets.size() - start))
                .toBase64());
}
