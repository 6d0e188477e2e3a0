#include "document/encoding.h"

#include <QRegularExpression>
#include <QStringDecoder>

namespace {

// declaration ::= "<?xml" ... "encoding" "=" quote name quote ... "?>"
QByteArray declaredEncoding(const QByteArray &file)
{
    constexpr qsizetype longestDeclaration = 1024;
    if (!file.startsWith("<?xml"))
        return QByteArray();
    static const QRegularExpression declaration(
        QStringLiteral("^<\\?xml\\s[^>]*\\sencoding\\s*=\\s*([\"'])([A-Za-z][A-Za-z0-9._-]*)\\1"));
    return declaration
        .match(QString::fromLatin1(file.first(std::min(file.size(), longestDeclaration))))
        .captured(2)
        .toLatin1();
}

// The locale's encoding is no document's.
bool isPlainUtf8(const QByteArray &encoding)
{
    const auto known = QStringConverter::encodingForName(encoding.constData());
    return encoding.isEmpty() || known == QStringConverter::Utf8
        || known == QStringConverter::System;
}

std::optional<QByteArray> decoded(QStringDecoder &&decoder, const QByteArray &octets)
{
    const QString text = decoder(octets);
    return decoder.hasError() ? std::nullopt : std::optional(text.toUtf8());
}

} // namespace

std::optional<QByteArray> DocumentEncoding::toUtf8(const QByteArray &file)
{
    if (const auto encoding = QStringConverter::encodingForData(file, u'<');
        encoding && encoding != QStringConverter::Utf8)
        return decoded(QStringDecoder(*encoding), file);
    const QByteArray name = declaredEncoding(file);
    if (!isPlainUtf8(name)) {
        if (QStringDecoder decoder(name.constData()); decoder.isValid()) {
            auto text = decoded(std::move(decoder), file);
            // Qt's converters of other encodings do not always report octets that they cannot
            // convert.
            return text && !text->contains("\xEF\xBF\xBD") ? text : std::nullopt;
        }
    }
    return file.isValidUtf8() ? std::optional(file) : std::nullopt;
}
