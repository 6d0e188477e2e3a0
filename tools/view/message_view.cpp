#include "view/message_view.h"

#include "check/check.h"
#include "input/message.h"
#include "input/smil_diagnosis.h"
#include "view/changes_view.h"
#include "view/field_values.h"
#include "view/header_view.h"
#include "view/json_writer.h"
#include "view/message_fields.h"
#include "view/parts_view.h"
#include "view/result_view.h"
#include "view/scanned_field_view.h"
#include "view/slides_view.h"
#include "view/terminal_text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {

using TerminalText::visible;

/// A rule of `qvlmms check` that all messages are held against.
struct HeaderCheck
{
    const char *name; // for a person
    const char *key; // for a program
    Check::Rule rule;
};

constexpr std::array checks{
    HeaderCheck{"version", "version", Check::Rule::WrongVersion},
    HeaderCheck{"minor version", "minorVersion", Check::Rule::LaterVersion},
    HeaderCheck{"mandatory fields", "mandatoryFields", Check::Rule::MissingField},
    HeaderCheck{"order", "order", Check::Rule::FieldOrder},
};

constexpr std::array checksByKey = [] {
    std::array sorted = checks;
    std::ranges::sort(sorted, {},
                      [](const HeaderCheck &check) { return std::string_view(check.key); });
    return sorted;
}();

Check::Findings findingsInHeader(const Message &message)
{
    Check::Findings findings;
    Check::checkHeader(message, &findings);
    return findings;
}

constexpr qsizetype TitleWidth = 18;

QString line(const QString &title, const QString &text, qsizetype width = TitleWidth)
{
    return "  "_L1 + title.leftJustified(width) + u' ' + visible(text) + u'\n';
}

QString checksText(const Message &message)
{
    const Check::Findings findings = findingsInHeader(message);
    QStringList texts;
    for (const HeaderCheck &check : checks)
        texts += QString::fromLatin1(check.name)
            + (findings.has(check.rule) ? QLatin1String(" FAILED") : QLatin1String(" ok"));
    return texts.join(QLatin1String(", "));
}

QString fieldsText(const Message &message)
{
    constexpr qsizetype Widest = 32; // names of the standard have up to 31 characters
    const QList<FieldView> views = fieldViews(message);
    qsizetype width = TitleWidth;
    for (const FieldView &view : views) {
        if (view.name.size() <= Widest)
            width = std::max(width, view.name.size());
    }
    QString text;
    for (const FieldView &view : views)
        text += line(view.name, view.text, width);
    return text;
}

QString refusedHeaderText(const Message &message)
{
    const int code = message.headerResult;
    const auto refused = refusedField(message);
    const QString why = refused ? refusedFieldText(*refused) + u" (result %1)"_s.arg(code)
                                : resultText(WireResult::meaning(message.headerResult), code);
    return "header, "_L1 + why;
}

QString bodyText(const Message &message, const SentParts &parts)
{
    const QString text = line(u"Body"_s, bodySummary(message)) + partsTable(message, parts);
    const int code = message.bodyResult.value_or(MultipartResult::Ok);
    if (code == MultipartResult::Ok)
        return text;
    return text
        + line(u"REFUSED"_s,
               resultText(MultipartResult::meaning(code), code) + whyBodyRefused(message));
}

QString presentationText(const Message &message)
{
    if (!message.smilResult && !message.areSlidesGenerated())
        return QString();
    const unsigned int slides = message.slides().getTotalSlidesNum();
    QString count =
        slides == 1 ? QStringLiteral("1 slide") : QStringLiteral("%1 slides").arg(slides);
    if (message.areSlidesGenerated())
        count += QLatin1String(", generated from the parts: the message has none");
    return line(QStringLiteral("Presentation"), count) + slidesText(message)
        + (message.smilResult.value_or(SmilResult::Ok) == SmilResult::Ok
               ? QString()
               : line(QStringLiteral("REFUSED"), refusedSmilText(message)));
}

void writeChecks(const Message &message, JsonWriter *json)
{
    const Check::Findings findings = findingsInHeader(message);
    json->key("checks");
    json->beginObject();
    for (const HeaderCheck &check : checksByKey)
        json->member(check.key, !findings.has(check.rule));
    json->endObject();
}

QString changesText(const Message &message)
{
    if (message.changes().empty())
        return QString();
    QString text =
        line(u"Changes"_s, changesSummary(message) + ", to read the message as MMS 1.0"_L1);
    for (const QString &change : changeLines(message))
        text += visible(change) + u'\n';
    return text;
}

void writeFields(const Message &message, JsonWriter *json)
{
    json->key("fields");
    json->beginArray();
    for (const MessageField &field : messageFields(message)) {
        if (field.scanned)
            writeField(*field.scanned, json);
        else
            writeField(field.recordCode, json);
    }
    json->endArray();
}

void writeTime(const char *key, const std::optional<QvlSentTime> &time, JsonWriter *json)
{
    if (!time)
        return;
    json->key(key);
    json->beginObject();
    if (!time->isRelative)
        json->member("dateTime", FieldValue::dateText(time->seconds));
    json->member("relative", time->isRelative);
    json->member("seconds", time->seconds);
    json->endObject();
}

void writeSentTimes(const QvlSentTimes &times, JsonWriter *json)
{
    json->key("sent");
    json->beginObject();
    writeTime("date", times.date, json);
    writeTime("deliveryTime", times.deliveryTime, json);
    writeTime("expiry", times.expiry, json);
    json->endObject();
}

} // namespace

QList<FieldView> fieldViews(const Message &message)
{
    const QvlSentTimes sent = message.sentTimes();
    QList<FieldView> views;
    for (const MessageField &field : messageFields(message)) {
        const unsigned char code = field.recordCode;
        if (code != 0)
            views += {QString::fromLatin1(headerFieldInfo(code)->name),
                      recordText(code, message.header(), sent)};
        else if (!field.isListed)
            views += {visible(fieldName(*field.scanned)), fieldText(*field.scanned)};
    }
    return views;
}

QString messageText(const Message &message)
{
    const MMS_UA_UAMsg &header = message.header();
    const bool typed = header.fieldsPresent(headerFieldMask(HeaderFieldCode::MessageType));
    const SentParts parts = sentParts(message);
    QString text = visible(message.fileName) + ": "_L1
        + (typed ? messageTypeText(header.getMessageType()) : u"no message type"_s)
        + u", %1 octets\n"_s.arg(message.octets.size()) + fieldsText(message);
    if (message.octets.isEmpty())
        text += line(u"REFUSED"_s, whyNoMessage(message));
    else if (message.headerResult == WireResult::Read)
        text += line(u"Checks"_s, checksText(message)) + bodyText(message, parts)
            + presentationText(message);
    else
        text += line(u"REFUSED"_s, refusedHeaderText(message));
    return text + changesText(message);
}

QString refusedSmilText(const Message &message)
{
    const int result = message.smilResult.value_or(SmilResult::Ok);
    const QString text = QLatin1String("SMIL: ") + resultText(SmilResult::meaning(result), result);
    if (result != SmilResult::NotWellFormed)
        return text;
    const auto mistake = findMistake(message.smil);
    return mistake ? text + QLatin1String(", ") + mistake->text() : text;
}

std::string messageJson(const Message &message)
{
    const bool isDecoded = message.headerResult == WireResult::Read;
    const SentParts parts = sentParts(message);
    JsonWriter json;
    json.beginObject();
    if (isDecoded && message.sentBodyOffset() < message.octets.size())
        writeBody(message, parts, &json);
    writeChanges(message, &json);
    if (isDecoded)
        writeChecks(message, &json);
    writeFields(message, &json);
    json.member("file", message.fileName);
    writeHeader(message.header(), &json);
    json.member("octets", message.octets.size());
    if (message.smilResult || message.areSlidesGenerated())
        writePresentation(message, &json);
    json.member("refused", message.isRefused());
    if (const auto refused = refusedField(message))
        writeRefusedField(*refused, &json);
    writeResult(WireResult::meaning(message.headerResult), message.headerResult, &json);
    writeSentTimes(message.sentTimes(), &json);
    json.member("state", stateName(message.state()));
    json.endObject();
    std::string line = json.takeJson();
    line += '\n';
    return line;
}
