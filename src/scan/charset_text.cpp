#include "scan/charset_text.h"

#include "base/no_memory.h"
#include "base/tables.h"
#include "scan/charset_table.h"
#include "scan/field_text.h"
#include "wire/octets.h"
#include "wire/wire_text.h"

#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>
#include <optional>
#include <tuple>

namespace {

constexpr char Quote = WireText::Quote;

// A form of Unicode with code units of several octets.
struct UnitForm
{
    qsizetype width;
    QByteArrayView bigEndianMark;
    QByteArrayView littleEndianMark;
    QStringConverter::Encoding bigEndian;
    QStringConverter::Encoding littleEndian;
};

constexpr UnitForm utf16{2, QByteArrayView("\xFE\xFF", 2), QByteArrayView("\xFF\xFE", 2),
                         QStringConverter::Utf16BE, QStringConverter::Utf16LE};
constexpr UnitForm utf32{4, QByteArrayView("\0\0\xFE\xFF", 4), QByteArrayView("\xFF\xFE\0\0", 4),
                         QStringConverter::Utf32BE, QStringConverter::Utf32LE};

// Null for charsets whose code units are octets.
const UnitForm *unitForm(int charset)
{
    switch (charset) {
    case Charset::Ucs2:
    case Charset::Utf16:
    case Charset::Utf16BE:
    case Charset::Utf16LE:
        return &utf16;
    case Charset::Utf32:
    case Charset::Utf32BE:
    case Charset::Utf32LE:
        return &utf32;
    default:
        return nullptr;
    }
}

QStringConverter::Encoding encodingOf(QByteArrayView octets, int charset, const UnitForm &form)
{
    if (octets.startsWith(form.bigEndianMark))
        return form.bigEndian;
    const bool isLittleEndian = charset == Charset::Utf16LE || charset == Charset::Utf32LE
        || octets.startsWith(form.littleEndianMark);
    return isLittleEndian ? form.littleEndian : form.bigEndian;
}

QString withoutMark(QString text)
{
    if (text.startsWith(QChar::ByteOrderMark))
        text.remove(0, 1);
    return text;
}

// A final zero may have fewer octets than a unit.
std::optional<QByteArrayView> wholeUnits(QByteArrayView octets, qsizetype width)
{
    const QByteArrayView rest = octets.last(octets.size() % width);
    if (std::any_of(rest.begin(), rest.end(), [](char octet) { return octet != 0; }))
        return std::nullopt;
    return octets.chopped(rest.size());
}

// Nothing when the charset has other units, or the octets do not fit it.
std::optional<QString> decodeUnits(QByteArrayView octets, int charset)
{
    const UnitForm *form = unitForm(charset);
    const auto units = form ? wholeUnits(octets, form->width) : std::nullopt;
    if (!units)
        return std::nullopt;
    const auto encoding = encodingOf(*units, charset, *form);
    QStringDecoder decoder(encoding, QStringConverter::Flag::ConvertInitialBom);
    const QString text = decoder.decode(*units);
    // Qt's converter does not report numbers that are no characters.
    if (form == &utf32 && QByteArray(QStringEncoder(encoding).encode(text)) != *units)
        return std::nullopt;
    return withoutMark(text);
}

QString decodeUndeclared(QByteArrayView octets)
{
    const QString text = QString::fromUtf8(octets);
    const bool isSuspect = text.contains(QChar::ReplacementCharacter);
    return isSuspect && !octets.isValidUtf8() ? QString::fromLatin1(octets) : text;
}

// UTF-8, which contains US-ASCII, is what undeclared texts are read as.
const char *converterOf(int charset)
{
    const bool hasOwnWay =
        charset == Charset::UsAscii || charset == Charset::Utf8 || unitForm(charset);
    return hasOwnWay ? nullptr : qvlCharsetName(charset);
}

// Nothing when the octets do not fit the converter.
std::optional<QString> convert(QByteArrayView octets, QStringDecoder *decoder)
{
    const QString text = decoder->decode(octets);
    // The converter reports a truncated sequence at its end when it reads the next octet.
    const QString next = decoder->decode(QByteArrayView("\n"));
    const bool isWhole = !decoder->hasError() && next == QLatin1Char('\n');
    return isWhole ? std::optional(withoutMark(text)) : std::nullopt;
}

// Nothing when Qt has no such converter. Qt does not distinguish that from a lack of memory, so a
// second attempt follows after one for memory, which throws.
std::optional<QString> convert(QByteArrayView octets, const char *converter)
{
    if (QStringDecoder decoder(converter); decoder.isValid())
        return convert(octets, &decoder);
    constexpr qsizetype enoughForConverters = 1 << 16;
    std::ignore = QByteArray(enoughForConverters, Qt::Uninitialized);
    QStringDecoder decoder(converter);
    return decoder.isValid() ? convert(octets, &decoder) : std::nullopt;
}

QString decodeOctets(QByteArrayView octets, int charset)
{
    const char *converter = converterOf(charset);
    const auto text = converter ? convert(octets, converter) : std::nullopt;
    return text ? *text : decodeUndeclared(octets);
}

QString decodeBody(QByteArrayView octets, int charset)
{
    if (auto text = decodeUnits(octets, charset)) {
        if (text->endsWith(QChar::Null))
            text->chop(1);
        return *text;
    }
    return decodeOctets(octets.endsWith('\0') ? octets.chopped(1) : octets, charset);
}

// A text of UTF-16 may begin with U+7Fxx, so only a byte-order mark shows that 7F is the quote.
QByteArrayView withoutQuotedMark(QByteArrayView octets, int charset)
{
    const UnitForm *form = unitForm(charset);
    if (!form || !octets.startsWith(Quote))
        return octets;
    const QByteArrayView rest = octets.sliced(1);
    const bool hasMark =
        rest.startsWith(form->bigEndianMark) || rest.startsWith(form->littleEndianMark);
    return hasMark ? rest : octets;
}

QByteArrayView plainText(QByteArrayView octets)
{
    const QByteArrayView text = octets.startsWith(Quote) ? octets.sliced(1) : octets;
    const auto end = std::find(text.begin(), text.end(), '\0');
    return text.first(end - text.begin());
}

} // namespace

// units ::= [[7F] byte-order mark] unit * [00 ...]
QString FieldText::decode(QByteArrayView octets, int charset)
{
    if (auto text = decodeUnits(withoutQuotedMark(octets, charset), charset)) {
        if (const qsizetype end = text->indexOf(QChar::Null); end >= 0)
            text->truncate(end);
        return *text;
    }
    return decodeOctets(plainText(octets), charset);
}

QString qvlDecodeText(QByteArrayView octets, int charset)
{
    return unlessOutOfMemory(QString(), [octets, charset] {
        const QString text = decodeBody(octets, charset);
        return text.isNull() ? QLatin1String("") : text;
    });
}

const char *qvlCharsetName(int charset)
{
    const auto *row = rowOf(CharsetTable::names, charset, &CharsetTable::Name::charset);
    return row ? row->text.data() : nullptr;
}

int qvlCharsetOf(QByteArrayView name)
{
    const std::string_view wanted(name.data(), std::size_t(name.size()));
    const int charset = CharsetTable::find(CharsetTable::names, wanted);
    return charset ? charset : CharsetTable::find(CharsetTable::aliases, wanted);
}
