#include "view/parts_view.h"

#include "input/message.h"
#include "view/field_values.h"
#include "view/json_writer.h"
#include "view/result_view.h"
#include "view/terminal_text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

constexpr std::size_t MostParts = 255; // the count has one octet

QByteArrayView sentBody(const Message &message)
{
    return QByteArrayView(message.octets).sliced(message.sentBodyOffset());
}

/// What the sender declared of a part; texts are empty without a declaration.
struct Declared
{
    QString charset;
    QString transferEncoding;
    QString fileName;
};

// The name of the charset, or what is declared in its place.
QString charsetOf(const std::optional<QvlContentType> &contentType)
{
    const QvlScannedParameter *parameter = contentType ? contentType->find("charset") : nullptr;
    if (!parameter)
        return QString();
    if (const int charset = contentType->charset())
        return FieldValue::charsetName(charset);
    return parameter->number > 0 ? FieldValue::charsetName(parameter->number) : parameter->text;
}

Declared declaredBy(const QvlScannedPart &part)
{
    return {charsetOf(part.contentType()), part.transferEncoding(), part.fileName()};
}

Declared declaredBy(const std::optional<QvlContentType> &contentType)
{
    return {charsetOf(contentType), QString(), contentType ? contentType->name() : QString()};
}

// One for each part.
std::vector<Declared> declarations(const Message &message, const SentParts &sent)
{
    std::vector<Declared> all(std::size_t(message.parts().getPartCount()));
    if (!message.isMultipart() && !all.empty())
        all.front() = declaredBy(qvlSentContentType(message.octets));
    for (std::size_t i = 0; i < std::min(all.size(), sent.size()); ++i)
        all[i] = declaredBy(sent[i]);
    return all;
}

QString displayKind(const Part &part)
{
    return part.getDispFileType() == Part::Shown ? u"shown"_s : u"attachment"_s;
}

QStringList tableRow(int index, const Part &part, const Declared &declared)
{
    const bool hasOtherName = declared.fileName != part.getContentLocation();
    return {QString::number(index),
            part.getMimeFormat(),
            QString::number(part.getBodyDataLen()),
            declared.charset.isEmpty() ? part.getCharset() : declared.charset,
            declared.transferEncoding,
            part.getContentLocation(),
            hasOtherName ? declared.fileName : QString(),
            part.getContentID(),
            displayKind(part)};
}

// Removes columns without any content.
void removeEmptyColumns(QList<TerminalText::Column> *columns, QList<QStringList> *rows)
{
    for (qsizetype i = columns->size() - 1; i >= 0; --i) {
        if (std::ranges::any_of(*rows, [i](const QStringList &row) { return !row[i].isEmpty(); }))
            continue;
        columns->removeAt(i);
        for (QStringList &row : *rows)
            row.removeAt(i);
    }
}

void writePart(const Part &part, const Declared &declared, JsonWriter *json)
{
    json->beginObject();
    json->member("charset", part.getCharset());
    json->member("contentId", part.getContentID());
    json->member("contentType", part.getMimeFormat());
    json->member("declaredCharset", declared.charset);
    json->member("displayName", part.getDispFileName());
    json->member("fileName", declared.fileName);
    json->member("kind", displayKind(part));
    json->member("location", part.getContentLocation());
    json->member("octets", part.getBodyDataLen());
    json->member("transferEncoding", declared.transferEncoding);
    json->endObject();
}

} // namespace

SentParts sentParts(const Message &message)
{
    SentParts parts;
    if (!message.isMultipart())
        return parts;
    QvlPartScanner scanner(sentBody(message));
    QvlScannedPart part;
    while (parts.size() < MostParts && scanner.next(&part))
        parts.push_back(part);
    return parts;
}

QString bodySummary(const Message &message)
{
    const qsizetype octets = sentBody(message).size();
    if (octets == 0)
        return u"none"_s;
    const int parts = message.parts().getPartCount();
    QString text = u"%1 octets from octet %2"_s.arg(octets).arg(message.sentBodyOffset());
    if (message.isMultipart() || parts > 0)
        text += parts == 1 ? u", 1 part"_s : u", %1 parts"_s.arg(parts);
    return message.isMultipart() ? text : text + u", not a multipart"_s;
}

QString partsTable(const Message &message, const SentParts &sent)
{
    const std::vector<Declared> declared = declarations(message, sent);
    QList<QStringList> rows;
    for (int i = 0; i < message.parts().getPartCount(); ++i)
        rows += tableRow(i, *message.parts().getBodypartByIndex(i), declared[std::size_t(i)]);
    if (rows.isEmpty())
        return QString();
    QList<TerminalText::Column> columns{{u"#"_s, true},   {u"Content type"_s}, {u"Octets"_s, true},
                                        {u"Charset"_s},   {u"Encoding"_s},     {u"Location"_s},
                                        {u"File name"_s}, {u"Content-ID"_s},   {u"Kind"_s}};
    removeEmptyColumns(&columns, &rows);
    return TerminalText::table(columns, rows, u"    "_s).join(u'\n') + u'\n';
}

QString whyBodyRefused(const Message &message)
{
    QvlPartScanner scanner(sentBody(message));
    QvlScannedPart part;
    while (scanner.next(&part)) { }
    return scanner.result() == QvlPartScanner::PartsRead
        ? QString()
        : u", octet %1: "_s.arg(message.sentBodyOffset() + scanner.position())
            + QString::fromLatin1(scanner.meaning());
}

void writeBody(const Message &message, const SentParts &sent, JsonWriter *json)
{
    const std::vector<Declared> declared = declarations(message, sent);
    json->key("body");
    json->beginObject();
    json->member("octets", sentBody(message).size());
    json->member("offset", message.sentBodyOffset());
    if (message.isMultipart() || !declared.empty()) {
        json->key("parts");
        json->beginArray();
        for (std::size_t i = 0; i < declared.size(); ++i)
            writePart(*message.parts().getBodypartByIndex(int(i)), declared[i], json);
        json->endArray();
    }
    if (message.bodyResult) {
        writeResult(MultipartResult::meaning(*message.bodyResult), *message.bodyResult, json);
        json->member("start", message.parts().getStart());
    }
    json->endObject();
}
