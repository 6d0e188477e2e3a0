/*
 * The command's output for an untrusted message: no terminal control characters, one line of JSON,
 * no path outside the folder, and a page that loads nothing.
 */
#include "check/check.h"
#include "extract/extract.h"
#include "html/index.h"
#include "html/media.h"
#include "html/message_page.h"
#include "input/message.h"
#include "list/entry.h"
#include "view/findings_view.h"
#include "view/list_view.h"
#include "view/message_view.h"
#include "view/terminal_text.h"

#include "support/invariant.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QXmlStreamReader>

#include <algorithm>
#include <cstdint>

namespace {

bool isHarmless(QStringView text)
{
    return std::none_of(text.begin(), text.end(), [](QChar c) {
        return c != QLatin1Char('\n')
            && (c.category() == QChar::Other_Control || c.category() == QChar::Other_Format);
    });
}

void checkNames(const Message &message)
{
    for (int i = 0; i < message.parts().getPartCount(); ++i) {
        const QString name = safeFileName(
            message.parts().getBodypartByIndex(i)->getContentLocation(), QStringLiteral("part"));
        require(!name.isEmpty() && name != QLatin1String(".") && name != QLatin1String(".."),
                "a part's file has a name");
        require(!name.contains(QLatin1Char('/')) && isHarmless(name) && !name.contains(u'\n'),
                "a part's file stays in its folder");
        require(!name.startsWith(QLatin1Char('-')) && !name.startsWith(QLatin1Char('.')),
                "a part's file is neither hidden nor an option");
    }
}

void checkJson(const std::string &line)
{
    const QByteArray json = QByteArray::fromStdString(line);
    require(json.count('\n') == 1 && json.endsWith('\n'), "JSON is one line");
    require(QJsonDocument::fromJson(json).isObject(), "JSON is an object");
    require(isHarmless(QString::fromUtf8(json)), "JSON has no control characters");
}

void checkList(const Message &message)
{
    constexpr int Width = 80;
    const MessageList::Entry entry = MessageList::entryOf(message);
    const QString line = ListLines(Width).lineOf(entry);
    require(isHarmless(line) && line.count(u'\n') == 1, "a line of a list is harmless");
    require(TerminalText::width(line.chopped(1)) <= Width, "a line of a list fits the terminal");
    checkJson(listJson(entry));
    const QByteArray row = csvRow(entry);
    require(row.endsWith("\r\n") && isHarmless(QString::fromUtf8(row.chopped(2))),
            "a row of CSV is harmless");
    require(row.count('"') % 2 == 0, "quotes in CSV are closed");
}

void checkElement(const QXmlStreamReader &page)
{
    static const QStringList known{
        "a",   "article", "audio", "b",     "bdi",   "code", "button",
        "dd",  "div",     "dl",    "dt",    "h2",    "h3",   "img",
        "li",  "ol",      "p",     "rect",  "svg",   "td",   "foreignObject",
        "tr",  "section", "span",  "tbody", "table", "ul",   "video",
        "nav", "th",      "thead"};
    require(known.contains(page.name()), "a page has no other elements");
    for (const QXmlStreamAttribute &attribute : page.attributes()) {
        require(!attribute.name().startsWith(u"on"), "a page has no handlers");
        const bool isAddress = attribute.name() == u"href" || attribute.name() == u"src";
        require(!isAddress || attribute.value().startsWith(u"data:") || attribute.value() == u"#m1",
                "a page loads nothing");
    }
}

// Fonts need one.
void createApplication()
{
    static int count = 1;
    static char name[] = "fuzz_output";
    static char *arguments[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(count, arguments);
}

// Without a child process that converts clips.
void checkPage(const Message &message, const Check::Findings &findings)
{
    QBuffer out;
    out.open(QIODevice::WriteOnly);
    HtmlWriter html(&out);
    PageMedia media(message, {.media = 1, .clips = 0, .decoded = 1});
    html.open("section");
    beginIndex(&html);
    writeIndexEntry(&html, message, QByteArray(), QStringLiteral("#m1"));
    endIndex(&html);
    writeMessage(&html, message, findings, 1, &media);
    html.close();
    QXmlStreamReader page(out.data());
    while (!page.atEnd()) {
        if (page.readNext() == QXmlStreamReader::StartElement)
            checkElement(page);
    }
    require(!page.hasError(), "a page is well-formed");
}

} // namespace

// fontconfig keeps its tables, and is unloaded with Qt's platform plugin.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libfontconfig";
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    createApplication();
    const auto message =
        decodeMessage(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
    require(isHarmless(messageText(*message)), "the text has no control characters");
    checkJson(messageJson(*message));
    checkNames(*message);
    checkList(*message);
    const Check::Findings findings = Check::checkMessage(*message, {});
    require(isHarmless(findingsText(*message, findings)), "findings have no control characters");
    checkJson(findingsJson(*message, findings));
    checkPage(*message, findings);
    return 0;
}
