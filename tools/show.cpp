#include "show.h"

#include "header_view.h"
#include "message.h"
#include "slides_view.h"
#include "terminal_text.h"

#include <QJsonArray>

#include <algorithm>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;
using TerminalText::visible;

struct Check
{
    const char *name; // for a person
    const char *key; // for a program
    bool (MMS_UA_UAMsg::*passes)() const;
};

constexpr Check checks[] = {
    {"version", "version", &MMS_UA_UAMsg::isMMSVersionCorrect},
    {"minor version", "minorVersion", &MMS_UA_UAMsg::isMMSMinorVersionCorrect},
    {"mandatory fields", "mandatoryFields", &MMS_UA_UAMsg::mandatoryFldsPresentInPDU},
    {"order", "order", &MMS_UA_UAMsg::pduOrderCheck},
};

QString line(const QString &name, const QString &text)
{
    return QLatin1String("  ") + name.leftJustified(18) + QLatin1Char(' ') + visible(text)
        + QLatin1Char('\n');
}

QString resultText(const char *meaning, int code)
{
    return QString::fromLatin1(meaning) + QStringLiteral(" (result %1)").arg(code);
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

QString kindOf(const Part &part)
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
             kindOf(part)};
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
    const int octets = message.header.getBodyLength();
    if (octets == 0)
        return line(QStringLiteral("Body"), QStringLiteral("none"));
    QString text = QStringLiteral("%1 octets from octet %2").arg(octets).arg(message.bodyOffset());
    if (!message.bodyResult)
        return line(QStringLiteral("Body"), text + QLatin1String(", not a multipart"));
    const int parts = message.body.getPartCount();
    text += parts == 1 ? QStringLiteral(", 1 part") : QStringLiteral(", %1 parts").arg(parts);
    return line(QStringLiteral("Body"), text) + (parts > 0 ? partsTable(message.body) : QString());
}

QString presentationText(const Message &message)
{
    if (!message.smilResult && !message.slidesAreMade)
        return QString();
    const unsigned int slides = message.slides.getTotalSlidesNum();
    QString count =
        slides == 1 ? QStringLiteral("1 slide") : QStringLiteral("%1 slides").arg(slides);
    if (message.slidesAreMade)
        count += QLatin1String(", made of the parts: the message brings none");
    return line(QStringLiteral("Presentation"), count) + slidesText(message)
        + (message.smilResult.value_or(SmilResult::Ok) == SmilResult::Ok
               ? QString()
               : line(QStringLiteral("REFUSED"), refusedSmilText(message)));
}

QJsonObject resultJson(const char *meaning, int code)
{
    return {{QStringLiteral("code"), code},
            {QStringLiteral("meaning"), QString::fromLatin1(meaning)}};
}

QJsonObject partJson(const Part &part)
{
    return {{QStringLiteral("contentType"), part.getMimeFormat()},
            {QStringLiteral("octets"), part.getBodyDataLen()},
            {QStringLiteral("charset"), part.getCharset()},
            {QStringLiteral("location"), part.getContentLocation()},
            {QStringLiteral("contentId"), part.getContentID()},
            {QStringLiteral("displayName"), part.getDispFileName()},
            {QStringLiteral("kind"), kindOf(part)}};
}

QJsonObject bodyJson(const Message &message)
{
    QJsonArray parts;
    for (int i = 0; i < message.body.getPartCount(); ++i)
        parts += partJson(*message.body.getBodypartByIndex(i));
    QJsonObject body{{QStringLiteral("offset"), message.bodyOffset()},
                     {QStringLiteral("octets"), message.header.getBodyLength()}};
    if (message.bodyResult) {
        body[QStringLiteral("result")] =
            resultJson(MultipartResult::meaning(*message.bodyResult), *message.bodyResult);
        body[QStringLiteral("start")] = message.body.getStart();
        body[QStringLiteral("parts")] = parts;
    }
    return body;
}

} // namespace

QString messageText(const Message &message)
{
    const MMS_UA_UAMsg &header = message.header;
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

QJsonObject messageJson(const Message &message)
{
    QJsonObject fields;
    for (const FieldView &field : headerView(message.header))
        fields[field.name] = field.json;
    QJsonObject json{{QStringLiteral("file"), message.fileName},
                     {QStringLiteral("octets"), message.octets.size()},
                     {QStringLiteral("refused"), message.isRefused()},
                     {QStringLiteral("result"),
                      resultJson(WireResult::meaning(message.headerResult), message.headerResult)},
                     {QStringLiteral("header"), fields}};
    if (message.headerResult != WireResult::Read)
        return json;
    QJsonObject checksJson;
    for (const Check &check : checks)
        checksJson[QString::fromLatin1(check.key)] = (message.header.*check.passes)();
    json[QStringLiteral("checks")] = checksJson;
    if (message.header.getBodyLength() > 0)
        json[QStringLiteral("body")] = bodyJson(message);
    if (message.smilResult || message.slidesAreMade) {
        const int result = message.smilResult.value_or(SmilResult::Ok);
        QJsonObject presentation = slidesJson(message);
        presentation[QStringLiteral("result")] = resultJson(SmilResult::meaning(result), result);
        presentation[QStringLiteral("made")] = message.slidesAreMade;
        json[QStringLiteral("presentation")] = presentation;
    }
    return json;
}
