#include "scan/wsp_values.h"

#include "platform/mime_codes.h"
#include "wire/octets.h"
#include "wire/read.h"

#include <limits>

bool WspValues::readInteger(LinearBuffer *buffer, qint64 *number)
{
    const auto first = WireRead::octet(buffer);
    if (!first || WireOctet::beginsText(*first) || *first == WireOctet::LengthFollows)
        return false;
    if (WireOctet::hasHighBit(*first)) {
        *number = WireOctet::withoutHighBit(*first);
        return true;
    }
    const auto octets = buffer->readView(*first);
    if (!octets)
        return false;
    qint64 sum = 0;
    for (const char octet : *octets) {
        if (sum > std::numeric_limits<qint64>::max() >> 8)
            return false;
        sum = (sum << 8) + static_cast<unsigned char>(octet);
    }
    *number = sum;
    return true;
}

// value ::= octet >= 80 | value-length octet * | text
bool WspValues::skip(LinearBuffer *buffer)
{
    const auto first = WireRead::peek(buffer);
    if (!first)
        return false;
    if (WireOctet::hasHighBit(*first))
        return WireRead::octet(buffer).has_value();
    if (*first > WireOctet::LengthFollows)
        return WireRead::text(buffer).has_value();
    const auto length = WireRead::valueLength(buffer);
    return length && buffer->readView(*length);
}

QString WspValues::mediaType(qint64 code)
{
    QString type;
    QString subtype;
    if (code <= WireOctet::LowSevenBits)
        MMS_UTIL_Common::mimeTypeGetName(static_cast<unsigned char>(code), type, subtype);
    return type.isEmpty() ? QString() : QString(type + QLatin1Char('/') + subtype);
}
