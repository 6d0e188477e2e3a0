/*
 * How long a stream of packets plays.
 */
#pragma once

#include <cstdint>
#include <optional>

struct AVPacket;
struct AVStream;

namespace HostPlatform {

/// Sums over the packets of one stream, in the stream's time base.
class StreamLength
{
public:
    /// Adds a packet of @p stream. It plays for its own duration, or until the next one if that
    /// starts later.
    void add(const AVPacket &packet, const AVStream &stream);

    /// When the first packet plays, on the clock shared by the streams of a clip.
    int64_t begin() const { return m_begin.value_or(0); }
    /// How long the packets play. A last packet without a duration plays as long as the one before
    /// it.
    int64_t played() const;

private:
    void fillGap(int64_t start);

    std::optional<int64_t> m_begin;
    std::optional<int64_t> m_lastStart; // in decoding order, which never goes back
    int64_t m_played = 0;
    int64_t m_lastStep = 0;
    int64_t m_lastTime = 0;
};

} // namespace HostPlatform
