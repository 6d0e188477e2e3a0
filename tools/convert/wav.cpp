#include "convert/wav.h"

#include <QtEndian>

#include <algorithm>

namespace {

QByteArray number(quint32 value, qsizetype octets)
{
    const quint32 little = qToLittleEndian(value);
    return QByteArray(reinterpret_cast<const char *>(&little), octets);
}

} // namespace

QByteArray Sound::wav(const Form &form, QByteArray samples)
{
    constexpr quint32 SampleOctets = 2;
    constexpr quint32 FormatOctets = 16;
    constexpr quint32 Pcm = 1;
    const auto channels = quint32(form.channels);
    const auto rate = quint32(form.rate);
    const auto size = quint32(samples.size());
    const QByteArray format = number(Pcm, 2) + number(channels, 2) + number(rate, 4)
        + number(rate * channels * SampleOctets, 4) + number(channels * SampleOctets, 2)
        + number(SampleOctets * 8, 2);
    auto *first = reinterpret_cast<quint16 *>(samples.data());
    std::transform(first, first + samples.size() / 2, first,
                   [](quint16 sample) { return qToLittleEndian(sample); });
    return samples.prepend("RIFF" + number(4 + 8 + FormatOctets + 8 + size, 4) + "WAVEfmt "
                           + number(FormatOctets, 4) + format + "data" + number(size, 4));
}

int Sound::milliseconds(const QByteArray &wav)
{
    constexpr qsizetype SpeedOffset = 28; // octets in a second
    constexpr qsizetype SizeOffset = 40; // of the samples
    const auto speed = qFromLittleEndian<quint32>(wav.constData() + SpeedOffset);
    const auto size = qFromLittleEndian<quint32>(wav.constData() + SizeOffset);
    return speed > 0 ? int(quint64(size) * 1000 / speed) : 0;
}
