#include "view/message_view.h"

#include "input/message.h"
#include "input/smil_diagnosis.h"
#include "view/header_view.h"
#include "view/json_writer.h"
#include "view/result_view.h"
#include "view/slides_view.h"
#include "view/terminal_text.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;
using TerminalText::visible;

struct Check
{
    const char *name; // for a person
    const char *key; // for a program
    bool (MMS_UA_UAMsg::*passes)() const;
};

constexpr std::array checks{
    Check{"version", "version", &MMS_UA_UAMsg::isMMSVersionCorrect},
    Check{"minor version", "minorVersion", &MMS_UA_UAMsg::isMMSMinorVersionCorrect},
    Check{"mandatory fields", "mandatoryFields", &MMS_UA_UAMsg::mandatoryFldsPresentInPDU},
    Check{"order", "order", &MMS_UA_UAMsg::pduOrderCheck},
};

constexpr std::array checksByKey = [] {
    std::array sorted = checks;
    std::ranges::sort(sorted, {}, [](const Check &check) { return std::string_view(check.key); });
    return sorted;
}();

QString line(const QString &name, const QString &text)
{
    return QLatin1String("  ") + name.leftJustified(18) + QLatin1Char(' ') + visible(text)
        + QLatin1Char('\n');
}

QString checksText(const MMS_UA_UAMsg &header)
{
    QStringList texts;
    for (const Check &check : checks) {
        texts += QString::fromLatin1(check.name)
            + ((header.*check.passes)() ? QLatin1String(" ok") : QLatin1String(" FAILED"));
    }
    return texts.join(QLatin1String(", "));
}

QString refusedHeaderText(const Message &message, const QList<FieldView> &fields)
{
    const QString meaning =
        resultText(WireResult::meaning(message.headerResult), message.headerResult);
    return fields.isEmpty() ? QLatin1String("header, at its first field: ") + meaning
                            : QLatin1String("header, at or after ") + fields.back().name
            + QLatin1String(": ") + meaning;
}

QString displayKind(const Part &part)
{
    return part.getDispFileType() == Part::Shown ? QStringLiteral("shown")
                                                 : QStringLiteral("attachment");
}

QString partsTable(const MMS_COMP_SMILMultipart &body)
{
    QList<QStringList> rows;
    for (int i = 0; i < body.getPartCount(); ++i) {
        const Part &part = *body.getBodypartByIndex(i);
        rows +=
            {QString::number(i), part.getMimeFormat(),      QString::number(part.getBodyDataLen()),
             part.getCharset(),  part.getContentLocation(), part.getContentID(),
             displayKind(part)};
    }
    const QList<TerminalText::Column> columns{
        {QStringLiteral("#"), true},      {QStringLiteral("Content type")},
        {QStringLiteral("Octets"), true}, {QStringLiteral("Charset")},
        {QStringLiteral("Location")},     {QStringLiteral("Content-ID")},
        {QStringLiteral("Kind")}};
    return TerminalText::table(columns, rows, QStringLiteral("    ")).join(QLatin1Char('\n'))
        + QLatin1Char('\n');
}

QString bodyText(const Message &message)
{
    const int octets = message.header().getBodyLength();
    if (octets == 0)
        return line(QStringLiteral("Body"), QStringLiteral("none"));
    QString text = QStringLiteral("%1 octets from octet %2").arg(octets).arg(message.bodyOffset());
    if (!message.bodyResult)
        return line(QStringLiteral("Body"), text + QLatin1String(", not a multipart"));
    const int parts = message.parts().getPartCount();
    text += parts == 1 ? QStringLiteral(", 1 part") : QStringLiteral(", %1 parts").arg(parts);
    return line(QStringLiteral("Body"), text)
        + (parts > 0 ? partsTable(message.parts()) : QString());
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

void writeChecks(const MMS_UA_UAMsg &header, JsonWriter *json)
{
    json->key("checks");
    json->beginObject();
    for (const Check &check : checksByKey)
        json->member(check.key, (header.*check.passes)());
    json->endObject();
}

void writePart(const Part &part, JsonWriter *json)
{
    json->beginObject();
    json->member("charset", part.getCharset());
    json->member("contentId", part.getContentID());
    json->member("contentType", part.getMimeFormat());
    json->member("displayName", part.getDispFileName());
    json->member("kind", displayKind(part));
    json->member("location", part.getContentLocation());
    json->member("octets", part.getBodyDataLen());
    json->endObject();
}

void writeBody(const Message &message, JsonWriter *json)
{
    json->key("body");
    json->beginObject();
    json->member("octets", message.header().getBodyLength());
    json->member("offset", message.bodyOffset());
    if (message.bodyResult) {
        json->key("parts");
        json->beginArray();
        for (int i = 0; i < message.parts().getPartCount(); ++i)
            writePart(*message.parts().getBodypartByIndex(i), json);
        json->endArray();
        writeResult(MultipartResult::meaning(*message.bodyResult), *message.bodyResult, json);
        json->member("start", message.parts().getStart());
    }
    json->endObject();
}

} // namespace

QString messageText(const Message &message)
{
    const MMS_UA_UAMsg &header = message.header();
    const QList<FieldView> fields = headerView(header);
    const bool typed = header.fieldsPresent(headerFieldMask(HeaderFieldCode::MessageType));
    QString text = visible(message.fileName) + QLatin1String(": ")
        + (typed ? messageTypeText(header.getMessageType()) : QStringLiteral("no message type"))
        + QStringLiteral(", %1 octets\n").arg(message.octets.size());
    for (const FieldView &field : fields)
        text += line(field.name, field.text);
    if (message.headerResult != WireResult::Read)
        return text + line(QStringLiteral("REFUSED"), refusedHeaderText(message, fields));
    text += line(QStringLiteral("Checks"), checksText(header)) + bodyText(message);
    if (const int code = message.bodyResult.value_or(MultipartResult::Ok))
        text += line(QStringLiteral("REFUSED"), resultText(MultipartResult::meaning(code), code));
    return text + presentationText(message);
}

QString refusedSmilText(const Message &message)
{
    const int result = message.smilResult.value_or(SmilResult::Ok);
    const QString why =
        result == SmilResult::NotWellFormed ? whyNotWellFormed(message.smil) : QString();
    const QString text = QLatin1String("SMIL: ") + resultText(SmilResult::meaning(result), result);
    return why.isEmpty() ? text : text + QLatin1String(", ") + why;
}

QByteArray messageJson(const Message &message)
{
    const bool isDecoded = message.headerResult == WireResult::Read;
    JsonWriter json;
    json.beginObject();
    if (isDecoded && message.header().getBodyLength() > 0)
        writeBody(message, &json);
    if (isDecoded)
        writeChecks(message.header(), &json);
    json.member("file", message.fileName);
    writeHeader(message.header(), &json);
    json.member("octets", message.octets.size());
    if (message.smilResult || message.areSlidesGenerated())
        writePresentation(message, &json);
    json.member("refused", message.isRefused());
    writeResult(WireResult::meaning(message.headerResult), message.headerResult, &json);
    json.endObject();
    return QByteArray::fromStdString(json.json()) + '\n';
}
