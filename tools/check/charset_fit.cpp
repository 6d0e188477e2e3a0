#include "check/charset_fit.h"

#include <qvlsmilparser.h>

#include <QStringDecoder>

#include <algorithm>

namespace Check {

namespace {

constexpr int UsAscii = 3;

bool isAscii(QByteArrayView octets)
{
    return std::ranges::all_of(octets,
                               [](char octet) { return static_cast<unsigned char>(octet) < 0x80; });
}

} // namespace

bool fitsCharset(QByteArrayView octets, int charset)
{
    if (charset == 0 || charset == UsAscii)
        return isAscii(octets);
    const char *name = qvlCharsetName(charset);
    if (!name)
        return true;
    QStringDecoder decoder(name, QStringDecoder::Flag::Stateless); // finds a character without end
    const QString text = decoder(octets);
    return text.isEmpty() || !decoder.hasError();
}

} // namespace Check
