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

// A declared encoding of the locale counts as UTF-8: it depends on the machine.
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
            // Some of Qt's converters replace octets that they cannot convert without reporting it.
            return text && !text->contains("\xEF\xBF\xBD") ? text : std::nullopt;
        }
    }
    return file.isValidUtf8() ? std::optional(file) : std::nullopt;
}
