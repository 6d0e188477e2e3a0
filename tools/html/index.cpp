#include "html/index.h"

#include "html/message_page.h"
#include "list/entry.h"
#include "render/slide_files.h"
#include "view/field_values.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int ThumbnailSize = 160; // pixels; the handset's page fits without scaling
constexpr qsizetype MostAddresses = 3;
constexpr qsizetype LongestText = 200; // the page of the message has the whole text

// In place of a thumbnail.
QString nameOf(const MessageList::Entry &entry)
{
    if (entry.slides > 0)
        return u"no picture"_s;
    const char *type = QvlMessageType::nameOf(static_cast<unsigned char>(entry.type));
    return type ? QString::fromLatin1(type) : u"no slides"_s;
}

void writePicture(HtmlWriter *html, const MessageList::Entry &entry, const QByteArray &thumbnail)
{
    html->open("span", {{"class", u"thumbnail"_s}});
    if (thumbnail.isEmpty())
        html->text(nameOf(entry));
    else
        html->singleWithData("img", "src", "image/png", thumbnail,
                             {{"alt", u""_s}, {"loading", u"lazy"_s}, {"decoding", u"async"_s}});
    html->close();
}

QString shortened(const QString &text)
{
    if (text.size() <= LongestText)
        return text;
    const bool isInPair = text[LongestText - 1].isHighSurrogate();
    return text.first(LongestText - (isInPair ? 1 : 0)) + u'\u2026';
}

void writeText(HtmlWriter *html, const QString &text, const QString &styleClass)
{
    if (!text.isEmpty())
        html->element("span", shortened(text), {{"class", styleClass}, {"dir", u"auto"_s}});
}

QString addresses(const MessageList::Entry &entry)
{
    if (!entry.from.isEmpty())
        return u"From "_s + entry.from;
    if (entry.to.isEmpty())
        return QString();
    const qsizetype others = entry.to.size() - MostAddresses;
    return u"To "_s + entry.to.first(std::min(entry.to.size(), MostAddresses)).join(u", "_s)
        + (others > 0 ? u" and %1 more"_s.arg(others) : QString());
}

} // namespace

QByteArray thumbnailOf(const Message &message)
{
    const QImage page = firstPage(message, ThumbnailSize, RenderLimits());
    return page.isNull() ? QByteArray() : pngOctets(page);
}

void beginIndex(HtmlWriter *html)
{
    html->open("nav", {{"aria-label", u"Messages"_s}});
    html->open("ol", {{"class", u"index"_s}});
    html->markup("\n");
}

void writeIndexEntry(HtmlWriter *html, const Message &message, const QByteArray &thumbnail,
                     const QString &address)
{
    const MessageList::Entry entry = MessageList::entryOf(message);
    const QString state = QString::fromLatin1(stateName(entry.state));
    html->open("li");
    html->open("a", {{"href", address}});
    writePicture(html, entry, thumbnail);
    writeText(html, titleOf(message), u"title"_s);
    html->close();
    writeText(html, addresses(entry), u"addresses"_s);
    if (entry.date)
        writeText(html, FieldValue::minuteText(*entry.date), u"date"_s);
    html->element("span", state, {{"class", u"state-"_s + state}});
    html->close();
    html->markup("\n");
}

void endIndex(HtmlWriter *html)
{
    html->close();
    html->close();
    html->markup("\n");
}
