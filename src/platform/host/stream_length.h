/*
 * How long a stream of packets plays.
 */
#pragma once

#include <cstdint>
#include <optional>

struct AVPacket;
struct AVStream;

namespace HostPlatform {

/// What the packets of one stream add up to, in the stream's time base.
class StreamLength
{
public:
    /// Adds a packet of @p stream. It plays as long as it says, or until the next one where that
    /// comes later.
    void add(const AVPacket &packet, const AVStream &stream);

    /// When the first packet plays, on the clock that the streams of a clip share.
    int64_t begin() const { return m_begin.value_or(0); }
    /// How long the packets play. The last one plays as long as the one before it if need be.
    int64_t played() const;

private:
    void fillGap(int64_t start);

    std::optional<int64_t> m_begin;
    std::optional<int64_t> m_lastStart; // in the order of decoding, which does not go back
    int64_t m_played = 0;
    int64_t m_lastStep = 0;
    int64_t m_lastTime = 0;
};

} // namespace HostPlatform
