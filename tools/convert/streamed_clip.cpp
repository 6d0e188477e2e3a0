#include "convert/streamed_clip.h"

#include "convert/limits.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

extern "C" {
#include <libavutil/intreadwrite.h>
}

namespace {

constexpr AVRational Milliseconds{1, 1000};
constexpr int64_t FarAway = int64_t(1) << 40; // milliseconds; sums of some of them do not overflow
constexpr int64_t Preroll = 500; // milliseconds of sound that decoders need before the wanted ones

int64_t inMilliseconds(const AVStream &stream, int64_t time)
{
    return std::clamp(av_rescale_q(time, stream.time_base, Milliseconds), -FarAway, FarAway);
}

// Demuxers know one time or the other.
int64_t timestamp(const AVPacket &packet)
{
    return packet.pts != AV_NOPTS_VALUE ? packet.pts : packet.dts;
}

// Sound that was encoded before the clip's begin, and is not played.
int64_t primingMs(const AVPacket &packet, const AVStream &stream)
{
    std::size_t size = 0;
    const uint8_t *skipped = av_packet_get_side_data(&packet, AV_PKT_DATA_SKIP_SAMPLES, &size);
    const int rate = stream.codecpar->sample_rate;
    return skipped && size >= sizeof(uint32_t) && rate > 0 ? int64_t(AV_RL32(skipped)) * 1000 / rate
                                                           : 0;
}

std::string codecNameOf(const AVCodecParameters &parameters)
{
    if (parameters.codec_id != AV_CODEC_ID_NONE)
        return avcodec_get_name(parameters.codec_id);
    std::array<char, AV_FOURCC_MAX_STRING_SIZE> name{};
    return av_fourcc_make_string(name.data(), parameters.codec_tag);
}

} // namespace

StreamedClip::StreamedClip(const uint8_t *data, std::size_t size, int side, ClipTaker *taker)
    : m_clip(data, size), m_side(side), m_taker(taker)
{
}

bool StreamedClip::open(const char *demuxer)
{
    return m_held && m_clip.open(demuxer) && addTrack(AVMEDIA_TYPE_VIDEO)
        && addTrack(AVMEDIA_TYPE_AUDIO) && !m_tracks.empty();
}

// False to stop. The cover of an album is no video.
bool StreamedClip::addTrack(AVMediaType kind)
{
    const AVStream *stream = m_clip.select(kind);
    if (!stream || stream->disposition & AV_DISPOSITION_ATTACHED_PIC)
        return true;
    const bool isSound = kind == AVMEDIA_TYPE_AUDIO;
    auto track = std::make_unique<Track>(Track{isSound, stream});
    if (!track->decoder.open(*stream))
        return m_taker->lackDecoder(isSound, codecNameOf(*stream->codecpar).c_str());
    m_tracks.push_back(std::move(track));
    return true;
}

int64_t StreamedClip::decode(int64_t fromMs)
{
    readBase();
    m_from = fromMs;
    jump();
    bool isWanted = true;
    while (Track *track = isWanted ? earliest() : nullptr) {
        AVFrame *frame = next(track);
        isWanted = frame ? take(track, frame) : end(track);
    }
    return m_end;
}

// The first packet has the time at which the clip begins.
void StreamedClip::readBase()
{
    const auto hasPackets = [](const auto &track) { return !track->packets.empty(); };
    while (std::ranges::none_of(m_tracks, hasPackets) && readPacket()) { }
    const auto first = std::ranges::find_if(m_tracks, hasPackets);
    if (first == m_tracks.end())
        return;
    const AVPacket &packet = *(*first)->packets.front();
    const AVStream &stream = *(*first)->stream;
    if (timestamp(packet) != AV_NOPTS_VALUE)
        m_base = inMilliseconds(stream, timestamp(packet)) + primingMs(packet, stream);
}

// Only videos need it: sound is passed over without decoding it.
void StreamedClip::jump()
{
    const Track &track = *m_tracks.front();
    if (m_from == 0 || track.isSound)
        return;
    const AVRational unit = track.stream->time_base;
    if (!m_clip.seek(*track.stream, av_rescale_q(m_from + m_base, Milliseconds, unit)))
        return;
    for (const auto &each : m_tracks)
        each->packets.clear();
}

StreamedClip::Track *StreamedClip::earliest() const
{
    Track *earliest = nullptr;
    for (const auto &track : m_tracks) {
        if (!track->isAtEnd && (!earliest || track->ms < earliest->ms))
            earliest = track.get();
    }
    return earliest;
}

// Milliseconds from the clip's begin.
int64_t StreamedClip::timeOf(const AVStream &stream, int64_t time) const
{
    return inMilliseconds(stream, time) - m_base;
}

// Reads a packet for any of the tracks. False at the end.
bool StreamedClip::readPacket()
{
    Owned<AVPacket> packet(av_packet_alloc());
    if (!packet || !m_clip.read(packet.get()))
        return false;
    const auto track = std::ranges::find_if(
        m_tracks, [&](const auto &each) { return each->stream->index == packet->stream_index; });
    if (track != m_tracks.end() && !isTooEarly(track->get(), *packet))
        (*track)->packets.push_back(std::move(packet));
    return true;
}

// True for sound that is not needed, not even to decode what comes after it.
bool StreamedClip::isTooEarly(Track *track, const AVPacket &packet)
{
    if (!track->isSound || m_from == 0 || timestamp(packet) == AV_NOPTS_VALUE)
        return false;
    const int64_t endMs = timeOf(*track->stream, timestamp(packet) + packet.duration);
    if (endMs >= m_from - Preroll)
        return false;
    track->hasAny = true;
    m_end = std::max(m_end, endMs);
    return true;
}

void StreamedClip::sendPacket(Track *track)
{
    while (track->packets.empty()) {
        if (!readPacket()) {
            track->isDraining = true;
            track->decoder.send(nullptr);
            return;
        }
    }
    const AVPacket &packet = *track->packets.front();
    track->pictureMs = inMilliseconds(*track->stream, packet.duration);
    track->decoder.send(&packet);
    track->packets.pop_front();
}

// The next frame of a track; null at its end.
AVFrame *StreamedClip::next(Track *track)
{
    AVFrame *frame = nullptr;
    while (!(frame = track->decoder.receive()) && !track->isDraining)
        sendPacket(track);
    return frame;
}

// False to stop.
bool StreamedClip::take(Track *track, AVFrame *frame)
{
    const int64_t time = frame->best_effort_timestamp;
    const int64_t ms = time != AV_NOPTS_VALUE ? timeOf(*track->stream, time) : track->ms;
    return track->isSound ? takeSound(track, *frame, std::max<int64_t>(ms, 0))
                          : takePicture(track, frame, std::max<int64_t>(ms, 0));
}

bool StreamedClip::takeSound(Track *track, const AVFrame &frame, int64_t ms)
{
    const int channels = Frames::channelsOf(frame);
    if (channels == 0 || frame.sample_rate < 1 || frame.sample_rate > ConvertLimits::SampleRate
        || !Frames::interleave(frame, channels, &m_samples))
        return end(track);
    track->hasAny = true;
    track->ms = ms + int64_t(frame.nb_samples) * 1000 / frame.sample_rate;
    m_end = std::max(m_end, track->ms);
    return track->ms <= m_from
        || m_taker->takeSound(ms, frame.sample_rate, channels, m_samples.data(), m_samples.size());
}

// Pictures whose times do not ascend are left out.
bool StreamedClip::takePicture(Track *track, AVFrame *frame, int64_t ms)
{
    if (ms <= m_lastPicture)
        return true;
    m_lastPicture = ms;
    track->hasAny = true;
    track->ms = ms + track->pictureMs;
    m_end = std::max(m_end, track->ms);
    if (ms < m_from) {
        av_frame_unref(m_held.get());
        av_frame_move_ref(m_held.get(), frame);
        m_heldMs = ms;
        return true;
    }
    if (ms > m_from && !showHeld())
        return false;
    m_heldMs = -1;
    return show(*frame, ms);
}

bool StreamedClip::show(const AVFrame &frame, int64_t ms)
{
    return !m_scaler.scale(frame, m_side, &m_rows)
        || m_taker->takePicture(ms, m_rows.width, m_rows.height, m_rows.pixels.data());
}

bool StreamedClip::showHeld()
{
    const int64_t ms = std::exchange(m_heldMs, -1);
    return ms < 0 || show(*m_held, ms);
}

bool StreamedClip::end(Track *track)
{
    track->isAtEnd = true;
    if (!track->hasAny && !m_taker->lackDecoder(track->isSound, track->decoder.codecName()))
        return false;
    return track->isSound || showHeld();
}
