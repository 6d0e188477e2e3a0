#include "html/message_page.h"

#include "extract/extract.h"
#include "html/slide_page.h"
#include "input/message.h"
#include "view/field_values.h"
#include "view/findings_view.h"
#include "view/message_view.h"

using namespace Qt::StringLiterals;

namespace {

// The date is the sender's: that of the decoding would change with each page.
void writeHeader(HtmlWriter *html, const Message &message)
{
    const QString dateName = QString::fromLatin1(headerFieldInfo(HeaderFieldCode::Date)->name);
    const auto sent = message.sentTimes().date;
    html->open("dl");
    for (const FieldView &field : fieldViews(message)) {
        const bool isDate = field.name == dateName;
        if (isDate && !sent)
            continue;
        html->element("dt", field.name);
        html->element("dd", isDate ? FieldValue::textOf(*sent) : field.text, {{"dir", u"auto"_s}});
    }
    html->close();
}

void writeButton(HtmlWriter *html, const char *action, const QString &name)
{
    html->element("button", name,
                  {{"type", u"button"_s}, {"data-action", QString::fromLatin1(action)}});
}

// The id of the title of the message with @p number.
QString titleId(int number)
{
    return u"title%1"_s.arg(number);
}

void writeStage(HtmlWriter *html, const Message &message, int number, PageMedia *media)
{
    if (message.slides().getTotalSlidesNum() == 0)
        return;
    html->element("h3",
                  message.areSlidesGenerated()
                      ? u"Slides, generated from the parts: the message has none"_s
                      : u"Slides"_s);
    html->open("section",
               {{"class", u"stage"_s},
                {"tabindex", u"0"_s},
                {"aria-labelledby", titleId(number)},
                {"aria-keyshortcuts", u"Space ArrowLeft ArrowRight"_s}});
    html->open("div", {{"class", u"controls"_s}});
    writeButton(html, "previous", u"Previous"_s);
    writeButton(html, "play", u"Play"_s);
    writeButton(html, "next", u"Next"_s);
    html->element("span", QString(), {{"class", u"position"_s}, {"role", u"status"_s}});
    writeButton(html, "all", u"All slides"_s);
    html->element("span", u"Keys: Space plays, \u2190 and \u2192 change the slide"_s,
                  {{"class", u"keys"_s}});
    html->close();
    html->open("ol", {{"class", u"slides"_s}});
    writeSlides(html, message.slides(), media);
    html->close();
    html->close();
}

void writePartsTitle(HtmlWriter *html)
{
    html->open("thead");
    html->open("tr");
    for (const QString &title : {u"Name"_s, u"Type"_s, u"Octets"_s})
        html->element("th", title, {{"scope", u"col"_s}});
    html->element("td", QString(), {{"class", u"save"_s}});
    html->close();
    html->close();
}

void writePart(HtmlWriter *html, const MMS_COMP_SMILMultipartBodypart &part, int index)
{
    const QString name = partFileName(part, index);
    html->open("tr");
    html->element("td", part.getContentLocation());
    html->element("td", part.getMimeFormat());
    html->element("td", QString::number(part.getBodyDataLen()), {{"class", u"number"_s}});
    html->open("td", {{"class", u"save"_s}});
    // Never with the part's own type: the browser would open some instead of saving them.
    html->openWithData("a", "href", "application/octet-stream", part.getBodyData(),
                       {{"download", name}, {"aria-label", u"Save "_s + name}});
    html->text(u"Save"_s);
    html->close();
    html->close();
    html->close();
}

void writeParts(HtmlWriter *html, const Message &message)
{
    if (message.parts().getPartCount() == 0)
        return;
    html->element("h3", u"Parts"_s);
    html->open("table", {{"class", u"parts"_s}});
    writePartsTitle(html);
    html->open("tbody");
    for (int i = 0; i < message.parts().getPartCount(); ++i)
        writePart(html, *message.parts().getBodypartByIndex(i), i);
    html->close();
    html->close();
}

void writeFindings(HtmlWriter *html, const Check::Findings &findings)
{
    html->element("h3", u"Check: "_s + findingsSummary(findings));
    html->open("ul", {{"class", u"findings"_s}});
    for (const Check::Finding &finding : findings.inOrder()) {
        const QString severity = Check::nameOf(finding.severity());
        html->open("li");
        html->element("b", severity, {{"class", severity}});
        html->element("code", QString::fromLatin1(Check::textOf(finding.rule).id));
        html->element("bdi", sentenceOf(finding));
        html->close();
    }
    for (const QString &line : notKeptLines(findings))
        html->element("li", line);
    html->close();
}

} // namespace

QString titleOf(const Message &message)
{
    const QString subject = message.subject();
    return subject.trimmed().isEmpty() ? message.fileName.section(u'/', -1) : subject;
}

void writeMessage(HtmlWriter *html, const Message &message, const Check::Findings &findings,
                  int number, PageMedia *media)
{
    const QString state = QString::fromLatin1(stateName(message.state()));
    html->open("article", {{"class", u"message"_s}, {"id", u"m%1"_s.arg(number)}});
    html->open("h2", {{"id", titleId(number)}});
    html->element("bdi", titleOf(message));
    html->close();
    html->open("p");
    html->element("bdi", message.fileName);
    html->text(u", %1 octets, "_s.arg(message.octets.size()));
    html->element("span", state, {{"class", u"state-"_s + state}});
    html->close();
    writeHeader(html, message);
    writeStage(html, message, number, media);
    writeParts(html, message);
    writeFindings(html, findings);
    html->close();
    html->markup("\n");
}
