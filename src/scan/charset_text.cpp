#include "scan/charset_text.h"

#include "wire/octets.h"
#include "wire/wire_text.h"

#include <QStringDecoder>

#include <algorithm>
#include <optional>

namespace {

constexpr char Quote = WireText::Quote;
constexpr QByteArrayView BigEndianMark("\xFE\xFF");
constexpr QByteArrayView LittleEndianMark("\xFF\xFE");

bool isUtf16(int charset)
{
    return charset == Charset::Ucs2 || charset == Charset::Utf16 || charset == Charset::Utf16BE
        || charset == Charset::Utf16LE;
}

// A text of UTF-16 may begin with U+7Fxx, so only a byte-order mark shows that 7F is the quote.
bool isQuotedMark(QByteArrayView octets)
{
    const QByteArrayView rest = octets.sliced(octets.startsWith(Quote) ? 1 : octets.size());
    return rest.startsWith(BigEndianMark) || rest.startsWith(LittleEndianMark);
}

// utf-16 ::= [[7F] byte-order mark] (octet octet) * [00 [00]]
// Without a mark the first octet of a character is the higher one, except in UTF-16LE.
std::optional<QString> decodeUtf16(QByteArrayView octets, int charset)
{
    if (isQuotedMark(octets))
        octets = octets.sliced(1);
    const bool swapped = octets.startsWith(LittleEndianMark)
        || (charset == Charset::Utf16LE && !octets.startsWith(BigEndianMark));
    if (octets.startsWith(LittleEndianMark) || octets.startsWith(BigEndianMark))
        octets = octets.sliced(2);
    if (octets.size() % 2 != 0) {
        if (octets.back() != 0)
            return std::nullopt;
        octets.chop(1);
    }
    QStringDecoder decoder(swapped ? QStringConverter::Utf16LE : QStringConverter::Utf16BE);
    QString text = decoder.decode(octets);
    if (const qsizetype end = text.indexOf(QChar::Null); end >= 0)
        text.truncate(end);
    return text;
}

QByteArrayView plainText(QByteArrayView octets)
{
    const QByteArrayView text = octets.startsWith(Quote) ? octets.sliced(1) : octets;
    const auto end = std::find(text.begin(), text.end(), '\0');
    return text.first(end - text.begin());
}

} // namespace

QString CharsetText::decode(QByteArrayView octets, int charset)
{
    if (isUtf16(charset)) {
        if (const auto text = decodeUtf16(octets, charset))
            return *text;
    }
    const QByteArrayView text = plainText(octets);
    if (charset == Charset::Latin1)
        return QString::fromLatin1(text);
    const QString decoded = QString::fromUtf8(text);
    const bool isSuspect = decoded.contains(QChar::ReplacementCharacter);
    return isSuspect && !text.isValidUtf8() ? QString::fromLatin1(text) : decoded;
}
