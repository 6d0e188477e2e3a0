#include "view/findings_view.h"

#include "input/message.h"
#include "view/json_writer.h"
#include "view/terminal_text.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

using namespace Check;
using TerminalText::visible;

QString counted(int count, QLatin1StringView name)
{
    return u"%1 %2%3"_s.arg(count).arg(name, count == 1 ? u""_s : u"s"_s);
}

QString placeText(const Place &place)
{
    QStringList words;
    if (place.line > 0)
        words += u"SMIL line %1, column %2"_s.arg(place.line).arg(place.column);
    if (place.part >= 0)
        words += u"part %1"_s.arg(place.part);
    if (place.octet >= 0)
        words += u"octet %1"_s.arg(place.octet);
    if (!place.name.isEmpty())
        words += place.name;
    return words.isEmpty() ? QString() : words.join(", "_L1) + ": "_L1;
}

QString lineOf(const Finding &finding)
{
    const RuleText &rule = textOf(finding.rule);
    return "  "_L1 + QString(nameOf(rule.severity)).leftJustified(8) + QLatin1StringView(rule.id)
        + ": "_L1 + visible(sentenceOf(finding)) + u'\n';
}

void writeFinding(const Finding &finding, JsonWriter *json)
{
    const Place &place = finding.place;
    const RuleText &rule = textOf(finding.rule);
    json->beginObject();
    if (place.line > 0)
        json->member("column", place.column);
    json->member("hurts", QString::fromLatin1(rule.hurts));
    json->member("id", rule.id);
    if (place.line > 0)
        json->member("line", place.line);
    json->member("name", place.name);
    if (place.octet >= 0)
        json->member("octet", place.octet);
    if (place.part >= 0)
        json->member("part", place.part);
    json->member("problem", finding.problem);
    json->member("remedy", QString::fromLatin1(rule.remedy));
    json->member("severity", QString(nameOf(rule.severity)));
    json->endObject();
}

void writeCounts(const Findings &findings, JsonWriter *json)
{
    json->key("counts");
    json->beginObject();
    for (Severity severity : {Severity::Error, Severity::Note, Severity::Warning})
        json->member(nameOf(severity).data(), findings.count(severity));
    json->endObject();
}

} // namespace

QString sentenceOf(const Finding &finding)
{
    const RuleText &rule = textOf(finding.rule);
    return placeText(finding.place) + finding.problem + "; "_L1 + QLatin1StringView(rule.hurts)
        + "; "_L1 + QLatin1StringView(rule.remedy) + u'.';
}

QString findingsSummary(const Findings &findings)
{
    QStringList counts;
    for (Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
        if (const int count = findings.count(severity))
            counts += counted(count, nameOf(severity));
    }
    return counts.isEmpty() ? u"no problems"_s : counts.join(", "_L1);
}

QStringList notKeptLines(const Findings &findings)
{
    QStringList lines;
    for (const RuleText &rule : rules()) {
        const int more = findings.count(rule.rule) - Findings::MostOfRule;
        if (more > 0)
            lines += u"and %1 more of %2"_s.arg(more).arg(QLatin1StringView(rule.id));
    }
    return lines;
}

QString findingsText(const Message &message, const Findings &findings)
{
    QString text = visible(message.fileName) + ": "_L1 + findingsSummary(findings) + u'\n';
    for (const Finding &finding : findings.inOrder())
        text += lineOf(finding);
    for (const QString &line : notKeptLines(findings))
        text += u"  "_s + line + u'\n';
    return text;
}

std::string findingsJson(const Message &message, const Findings &findings)
{
    JsonWriter json;
    json.beginObject();
    writeCounts(findings, &json);
    json.member("file", message.fileName);
    json.key("findings");
    json.beginArray();
    for (const Finding &finding : findings.inOrder())
        writeFinding(finding, &json);
    json.endArray();
    json.member("state", stateName(message.state()));
    json.endObject();
    return json.takeJson() + '\n';
}

QString explanation(const RuleText &rule)
{
    return QLatin1StringView(rule.id) + " ("_L1 + nameOf(rule.severity) + "): "_L1
        + QLatin1StringView(rule.finds) + ".\n  Effect: "_L1 + QLatin1StringView(rule.hurts)
        + ".\n  Remedy: "_L1 + QLatin1StringView(rule.remedy) + ".\n"_L1;
}
