#include "wire/wire_text.h"

#include "wire/append.h"
#include "wire/linear_buffer.h"
#include "wire/octets.h"

#include <algorithm>
#include <numeric>

namespace {

bool needsQuote(QByteArrayView octets)
{
    return !octets.isEmpty() && WireOctet::hasHighBit(static_cast<unsigned char>(octets.front()));
}

} // namespace

bool WireText::isPlain(QStringView text)
{
    // Subtracting 1 turns U+0000 into the largest code unit. No early exit, so that compilers can
    // vectorize the loop.
    const auto larger = [](char16_t most, char16_t unit) {
        return std::max(most, char16_t(unit - 1));
    };
    return std::accumulate(text.utf16(), text.utf16() + text.size(), char16_t(), larger)
        < WireOctet::HighBit - 1;
}

std::optional<QByteArrayView> WireText::read(LinearBuffer *buffer)
{
    unsigned char first = 0;
    if (!buffer->readByte(&first))
        return std::nullopt;
    return readRest(buffer, first);
}

QByteArrayView WireText::readRest(LinearBuffer *buffer, unsigned char firstOctet)
{
    if (firstOctet == 0)
        return QByteArrayView("");
    if (firstOctet != Quote)
        buffer->rewind(1);
    return buffer->readUntilZero();
}

WireText::Octets WireText::utf8(const QString &text)
{
    if (isPlain(text)) {
        Octets octets(text.size());
        std::transform(text.begin(), text.end(), octets.data(),
                       [](QChar character) { return char(character.unicode()); });
        return octets;
    }
    const QByteArray converted = text.toUtf8();
    const auto end = std::find(converted.begin(), converted.end(), '\0');
    return Octets(converted.begin(), end);
}

void WireText::append(LinearBuffer *buffer, QByteArrayView octets)
{
    if (needsQuote(octets))
        WireAppend::octet(buffer, Quote);
    WireAppend::octets(buffer, octets);
    WireAppend::octet(buffer, 0);
}

int WireText::sizeOf(QByteArrayView octets)
{
    return int(octets.size()) + 1 + (needsQuote(octets) ? 1 : 0);
}

int WireText::sizeOf(const QString &text)
{
    return isPlain(text) ? int(text.size()) + 1 : sizeOf(utf8(text));
}
