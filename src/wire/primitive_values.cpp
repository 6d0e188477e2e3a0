#include "wire/primitive_values.h"

#include "wire/append.h"
#include "wire/date_time.h"
#include "wire/linear_buffer.h"
#include "wire/octets.h"
#include "wire/wire_result.h"
#include "wire/wire_text.h"

#include <tuple>

using namespace WireOctet;

namespace {

constexpr int LongestShortLength = 30;
constexpr int CharsetReadAsUtf8 = 0xEA; // only as a Long-integer: as a short one it reads as 106

// Octets after the value-length: charset, text with quote, terminator.
template <typename Text>
int encodedStringLength(const Text &text)
{
    return 1 + WireText::sizeOf(text);
}

QString decodeEncodedText(QByteArrayView octets, int charset)
{
    QByteArrayView text = octets;
    const bool quoted =
        !text.isEmpty() && static_cast<unsigned char>(text.front()) == WireText::Quote;
    if (quoted)
        text = text.sliced(1);
    // A quote shifts the check by one octet, so a quoted text keeps its terminator. Kept: the
    // composer relies on stored texts of this form.
    if (!text.isEmpty() && octets[text.size() - 1] == 0)
        text.chop(1);
    if (WireText::isAscii(text)) // needs no decoder, whatever the charset
        return QString::fromLatin1(text);
    return charset == CharsetReadAsUtf8 ? QString::fromUtf8(text) : QString::fromLocal8Bit(text);
}

} // namespace

// integer ::= octet >= 80, which holds seven bits | count octet * count
// Only the last four octets count. A truncated integer leaves the value unchanged.
unsigned char IntegerBinary::readFrom(LinearBuffer *buffer, int *value)
{
    unsigned char first = 0;
    if (!buffer->readByte(&first))
        return WireResult::OutOfData;
    if (hasHighBit(first)) {
        *value = first & LowSevenBits;
        return WireResult::Read;
    }
    quint32 sum = 0;
    for (int left = first; left > 0; --left) {
        unsigned char octet = 0;
        if (!buffer->readByte(&octet))
            return WireResult::OutOfData;
        sum = (sum << 8) + octet;
    }
    *value = static_cast<int>(sum);
    return WireResult::Read;
}

unsigned char IntegerBinary::writeTo(LinearBuffer *buffer, int value)
{
    if (value <= LowSevenBits) {
        WireAppend::octet(buffer, static_cast<unsigned char>((value & LowSevenBits) | HighBit));
        return WireResult::Written;
    }
    const int count = sizeOf(value) - 1;
    WireAppend::octet(buffer, static_cast<unsigned char>(count));
    for (int i = count - 1; i >= 0; --i)
        WireAppend::octet(buffer, static_cast<unsigned char>(value >> (8 * i)));
    return WireResult::Written;
}

int IntegerBinary::sizeOf(int value)
{
    if (value <= LowSevenBits)
        return 1;
    int size = 1;
    for (; value != 0; value >>= 8)
        ++size;
    return size;
}

// uintvar ::= (octet >= 80) * octet < 80
// Bits beyond the 32nd are lost. A truncated uintvar leaves the value unchanged.
unsigned char UIntBinary::readFrom(LinearBuffer *buffer, int *value)
{
    quint32 sum = 0;
    unsigned char octet = 0;
    do {
        if (!buffer->readByte(&octet))
            return WireResult::OutOfData;
        sum = (sum << 7) + (octet & LowSevenBits);
    } while (hasHighBit(octet));
    *value = static_cast<int>(sum);
    return WireResult::Read;
}

unsigned char UIntBinary::writeTo(LinearBuffer *buffer, int value)
{
    int shift = 28;
    while (shift > 0 && ((value >> shift) & LowSevenBits) == 0)
        shift -= 7;
    for (; shift > 0; shift -= 7)
        WireAppend::octet(buffer,
                          static_cast<unsigned char>(((value >> shift) & LowSevenBits) | HighBit));
    WireAppend::octet(buffer, static_cast<unsigned char>(value & LowSevenBits));
    return WireResult::Written;
}

int UIntBinary::sizeOf(int value)
{
    if (value <= LongestShortLength)
        return 1;
    int size = 0;
    for (; value != 0; value >>= 7)
        ++size;
    return size;
}

// value-length ::= 1F uintvar | octet
unsigned char ValueLengthBinary::readFrom(LinearBuffer *buffer, int *value)
{
    unsigned char first = 0;
    if (!buffer->readByte(&first))
        return WireResult::OutOfData;
    if (first == LengthFollows)
        return UIntBinary::readFrom(buffer, value);
    *value = first;
    return WireResult::Read;
}

unsigned char ValueLengthBinary::writeTo(LinearBuffer *buffer, int value)
{
    if (value > LongestShortLength) {
        WireAppend::octet(buffer, LengthFollows);
        return UIntBinary::writeTo(buffer, value);
    }
    WireAppend::octet(buffer, static_cast<unsigned char>(value));
    return WireResult::Written;
}

int ValueLengthBinary::sizeOf(int value)
{
    return value <= LongestShortLength ? 1 : 1 + UIntBinary::sizeOf(value);
}

unsigned char TimeBinary::readFrom(LinearBuffer *buffer, QDateTime *value)
{
    int seconds = 0;
    const unsigned char result = readSeconds(buffer, &seconds);
    if (result == WireResult::Read)
        *value = DateTime::fromSeconds(seconds);
    return result;
}

// time ::= value-length octet integer
// The octet marks absolute and relative times, which are read alike.
unsigned char TimeBinary::readSeconds(LinearBuffer *buffer, int *seconds)
{
    int length = 0;
    std::ignore = ValueLengthBinary::readFrom(buffer, &length); // not needed, and often wrong
    unsigned char token = 0;
    if (!buffer->readByte(&token))
        return WireResult::OutOfData;
    *seconds = 0;
    std::ignore = IntegerBinary::readFrom(buffer, seconds); // unreadable seconds count as 0
    return WireResult::Read;
}

unsigned char TimeBinary::writeTo(LinearBuffer *buffer, const QDateTime &value)
{
    const int seconds = DateTime::toSeconds(value);
    WireAppend::value<ValueLengthBinary>(buffer, IntegerBinary::sizeOf(seconds) + 1);
    WireAppend::octet(buffer, WireToken::AbsoluteTime);
    return IntegerBinary::writeTo(buffer, seconds);
}

int TimeBinary::sizeOf(const QDateTime &value)
{
    return IntegerBinary::sizeOf(DateTime::toSeconds(value)) + 2;
}

// text ::= [7F] octet * 00
unsigned char PlainTextBinary::readFrom(LinearBuffer *buffer, QString *text)
{
    const auto octets = WireText::read(buffer);
    if (!octets)
        return WireResult::OutOfData;
    *text = QString::fromLatin1(*octets);
    return WireResult::Read;
}

unsigned char PlainTextBinary::writeTo(LinearBuffer *buffer, const QString &text)
{
    WireText::append(buffer, WireText::utf8(text));
    return WireResult::Written;
}

int PlainTextBinary::sizeOf(const QString &text)
{
    return WireText::sizeOf(text);
}

// encoded-string ::= text | value-length charset octet *
// A text begins with 00 or with 20 to 7F. A length beyond the data leaves the text unchanged.
unsigned char EncodedStringBinary::readFrom(LinearBuffer *buffer, QString *text)
{
    unsigned char first = 0;
    if (!buffer->readByte(&first))
        return WireResult::OutOfData;
    if (beginsText(first)) {
        *text = QString::fromLatin1(WireText::readRest(buffer, first));
        return WireResult::Read;
    }
    buffer->rewind(1);

    int length = 0;
    std::ignore = ValueLengthBinary::readFrom(buffer, &length); // checked below
    const int start = buffer->getPosition();
    int charset = 0;
    std::ignore = CharsetBinary::readFrom(buffer, &charset);
    const int charsetSize = buffer->getPosition() - start;
    if (length < charsetSize)
        return WireResult::OutOfData;
    const auto octets = buffer->readView(length - charsetSize);
    if (!octets)
        return WireResult::OutOfData;
    *text = decodeEncodedText(*octets, charset);
    return WireResult::Read;
}

unsigned char EncodedStringBinary::writeTo(LinearBuffer *buffer, const QString &text)
{
    const WireText::Octets octets = WireText::utf8(text);
    WireAppend::value<ValueLengthBinary>(buffer, encodedStringLength(octets));
    WireAppend::value<CharsetBinary>(buffer, Charset::Utf8);
    WireText::append(buffer, octets);
    return WireResult::Written;
}

int EncodedStringBinary::sizeOf(const QString &text)
{
    const int length = encodedStringLength(text);
    return ValueLengthBinary::sizeOf(length) + length;
}
