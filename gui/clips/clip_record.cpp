#include "clips/clip_record.h"

#include "convert/limits.h"

#include <bit>
#include <utility>

using ClipStream::Header;
using ClipStream::Kind;

namespace {

constexpr qsizetype HeaderSize = sizeof(Header);
constexpr qint64 MostSeconds = qint64(ConvertLimits::Minutes) * 60;
constexpr int NameOctets = 64; // of a codec

bool isPictureSize(const Header &header)
{
    return header.width > 0 && header.width <= ConvertLimits::PictureSide && header.height > 0
        && header.height <= ConvertLimits::PictureSide
        && header.octets == header.width * header.height * 3;
}

bool isSoundForm(const Header &header)
{
    return header.rate > 0 && header.rate <= ConvertLimits::SampleRate && header.channels > 0
        && header.channels <= ConvertLimits::Channels && header.octets > 0
        && header.octets <= ConvertLimits::RecordOctets
        && header.octets % (header.channels * ClipRecord::SampleOctets) == 0;
}

unsigned bitOf(Kind kind)
{
    return 1U << unsigned(kind);
}

} // namespace

std::span<char> RecordReader::space()
{
    if (m_isMalformed)
        return {};
    if (m_filled < HeaderSize)
        return std::span(m_headerOctets).subspan(std::size_t(m_filled));
    return std::span(m_octets.data(), std::size_t(m_octets.size()))
        .subspan(std::size_t(m_filled - HeaderSize));
}

void RecordReader::filled(qsizetype count)
{
    const bool hadHeader = m_filled >= HeaderSize;
    m_filled += count;
    if (hadHeader || m_filled < HeaderSize)
        return;
    m_header = std::bit_cast<Header>(m_headerOctets);
    m_isMalformed = !isExpected(m_header);
    if (!m_isMalformed)
        m_octets = QByteArray(m_header.octets, Qt::Uninitialized);
}

bool RecordReader::isComplete() const
{
    return !m_isMalformed && m_filled >= HeaderSize && m_filled == HeaderSize + m_octets.size();
}

std::optional<ClipRecord> RecordReader::take()
{
    if (!isComplete())
        return std::nullopt;
    m_filled = 0;
    return ClipRecord{m_header, std::exchange(m_octets, {})};
}

bool RecordReader::isExpected(const Header &header)
{
    if (header.ms < 0 || header.ms > MostSeconds * 1000 || m_kindsOfOne & bitOf(Kind::End))
        return false;
    switch (header.kind) {
    case Kind::Sound:
        return isExpectedSound(header);
    case Kind::Picture:
        return isPictureSize(header) && header.ms > std::exchange(m_lastPicture, header.ms);
    case Kind::NoSoundDecoder:
    case Kind::NoPictureDecoder:
    case Kind::End:
        return header.octets >= 0 && header.octets <= NameOctets
            && !(std::exchange(m_kindsOfOne, m_kindsOfOne | bitOf(header.kind))
                 & bitOf(header.kind));
    }
    return false;
}

// All sound has one form.
bool RecordReader::isExpectedSound(const Header &header)
{
    if (!isSoundForm(header))
        return false;
    if (m_rate == 0) {
        m_rate = header.rate;
        m_channels = header.channels;
    }
    m_sampleOctets += header.octets;
    return header.rate == m_rate && header.channels == m_channels
        && m_sampleOctets <= MostSeconds * m_rate * m_channels * ClipRecord::SampleOctets;
}
