/*
 * Length of standard MIDI files, from the times of their events.
 *
 * A damaged or truncated track ends before its first incomplete event; the events before it count.
 * The number of tracks that the header announces is ignored: all tracks in the file play.
 */
#include "platform/host/clip.h"

#include <QtEndian>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

using namespace std::string_view_literals;

namespace HostPlatform {

namespace {

enum EventType {
    FirstStatus = 0x80, // smaller octets are data
    ProgramChange = 0xC0,
    PitchBend = 0xE0,
    SystemExclusive = 0xF0,
    Continuation = 0xF7,
    Meta = 0xFF,
    EndOfTrack = 0xFF2F,
    SetTempo = 0xFF51,
};

constexpr int64_t DefaultTempo = 500'000; // microseconds per quarter note
constexpr std::size_t RiffHeaderSize = 20;

bool isText(Octets octets, std::string_view text)
{
    return std::ranges::equal(octets, text);
}

/// Takes octets from the front of the rest; returns nothing when there are too few.
class Reader
{
public:
    explicit Reader(Octets octets) : m_rest(octets) { }

    Octets takeUpTo(std::size_t count)
    {
        const Octets taken = m_rest.first(std::min(count, m_rest.size()));
        m_rest = m_rest.subspan(taken.size());
        return taken;
    }

    std::optional<Octets> take(std::size_t count)
    {
        if (count > m_rest.size())
            return std::nullopt;
        return takeUpTo(count);
    }

    template <class Integer>
    std::optional<Integer> takeInteger()
    {
        const auto octets = take(sizeof(Integer));
        if (!octets)
            return std::nullopt;
        return qFromBigEndian<Integer>(octets->data());
    }

    /// Seven bits per octet, in at most four octets.
    std::optional<uint32_t> takeVariableLength()
    {
        uint32_t value = 0;
        for (int i = 0; i < 4; ++i) {
            const auto octet = takeInteger<uint8_t>();
            if (!octet)
                return std::nullopt;
            value = value << 7 | (*octet & 0x7FU);
            if (*octet < 0x80)
                return value;
        }
        return std::nullopt;
    }

    std::optional<uint8_t> peek() const { return Reader(*this).takeInteger<uint8_t>(); }

private:
    Octets m_rest;
};

struct Chunk
{
    Octets type;
    Octets data; ///< as many as there are
};

std::optional<Chunk> takeChunk(Reader *file)
{
    const auto type = file->take(4);
    const auto length = file->takeInteger<uint32_t>();
    if (!type || !length)
        return std::nullopt;
    return Chunk{*type, file->takeUpTo(*length)};
}

std::optional<Octets> takeTrack(Reader *file)
{
    while (const auto chunk = takeChunk(file)) {
        if (isText(chunk->type, "MTrk"sv))
            return chunk->data;
    }
    return std::nullopt;
}

/// Speed of time: @c ticks ticks last @c microseconds microseconds.
struct Clock
{
    int64_t ticks;
    int64_t microseconds;
    bool followsTempo;
};

struct FrameRate
{
    int code;
    int frames;
    int microseconds; ///< length of the frames
};

constexpr FrameRate frameRates[] = {
    {24, 24, 1'000'000},
    {25, 25, 1'000'000},
    {29, 30, 1'001'000}, // the drop frames of television: 29.97 per second
    {30, 30, 1'000'000},
};

std::optional<Clock> clockOf(uint16_t division)
{
    if (division < 0x8000)
        return Clock{division, DefaultTempo, true};
    const auto rate = std::ranges::find(frameRates, 0x100 - (division >> 8), &FrameRate::code);
    if (rate == std::end(frameRates))
        return std::nullopt;
    return Clock{int64_t{rate->frames} * (division & 0xFF), rate->microseconds, false};
}

struct Header
{
    bool tracksFollowEachOther;
    Clock clock;
};

std::optional<Header> takeHeader(Reader *file)
{
    const auto chunk = takeChunk(file);
    if (!chunk || !isText(chunk->type, "MThd"sv))
        return std::nullopt;
    Reader fields(chunk->data);
    const auto format = fields.takeInteger<uint16_t>();
    std::ignore = fields.takeInteger<uint16_t>(); // the number of tracks, see above
    const auto division = fields.takeInteger<uint16_t>();
    const auto clock = division ? clockOf(*division) : std::nullopt;
    if (!clock || clock->ticks == 0 || *format > 2)
        return std::nullopt;
    return Header{*format == 2, *clock};
}

struct Event
{
    int64_t tick;
    uint16_t type; ///< its status; both octets of a meta event
    Octets data;
};

/// The events of one track.
class EventReader
{
public:
    explicit EventReader(Octets track) : m_track(track) { }

    /// The next event; nothing at the end and at damaged data.
    std::optional<Event> next()
    {
        const auto delta = m_track.takeVariableLength();
        const auto type = delta ? takeType() : std::nullopt;
        const auto data = type ? takeData(*type) : std::nullopt;
        if (!data)
            return std::nullopt;
        m_tick += *delta;
        return Event{m_tick, *type, *data};
    }

private:
    // By the standard, meta and system exclusive events end the running status. Files from phones
    // rely on keeping it.
    std::optional<uint16_t> takeType()
    {
        const auto first = m_track.peek();
        if (!first)
            return std::nullopt;
        if (*first < FirstStatus)
            return m_runningStatus == 0 ? std::nullopt : std::optional<uint16_t>(m_runningStatus);
        if (*first == Meta)
            return m_track.takeInteger<uint16_t>();
        if (*first < SystemExclusive)
            m_runningStatus = *first;
        return m_track.takeInteger<uint8_t>();
    }

    std::optional<Octets> takeData(uint16_t type)
    {
        if (type < SystemExclusive)
            return takeChannelData(type >= ProgramChange && type < PitchBend ? 1 : 2);
        if (type != SystemExclusive && type != Continuation && type <= Meta)
            return std::nullopt; // only exists on wires, never in files
        const auto length = m_track.takeVariableLength();
        return length ? m_track.take(*length) : std::nullopt;
    }

    std::optional<Octets> takeChannelData(std::size_t count)
    {
        const auto data = m_track.take(count);
        const auto isStatus = [](unsigned char octet) { return octet >= FirstStatus; };
        return data && std::ranges::none_of(*data, isStatus) ? data : std::nullopt;
    }

    Reader m_track;
    int64_t m_tick = 0;
    uint8_t m_runningStatus = 0; ///< none yet
};

struct TempoChange
{
    int64_t tick;
    int64_t microseconds; ///< per quarter note
};

/// Events that play on one time line.
struct Score
{
    int64_t end = 0; ///< tick of the last event
    std::vector<TempoChange> tempoChanges;
};

void addTrack(Octets track, Score *score)
{
    EventReader events(track);
    while (const auto event = events.next()) {
        score->end = std::max(score->end, event->tick);
        if (event->type == EndOfTrack)
            return;
        if (event->type != SetTempo || event->data.size() != 3)
            continue;
        const int64_t tempo = event->data[0] << 16 | event->data[1] << 8 | event->data[2];
        if (tempo > 0)
            score->tempoChanges.push_back({event->tick, tempo});
    }
}

/// A sum of times, limited to the largest int of milliseconds. Counts in microseconds divided by
/// the clock's ticks, so that nothing is rounded before the end.
class PlayTime
{
public:
    explicit PlayTime(int64_t ticksOfClock)
        : m_millisecond(ticksOfClock * 1000),
          m_most(m_millisecond * std::numeric_limits<int>::max())
    {
    }

    void add(int64_t ticks, int64_t microseconds)
    {
        const bool fits = ticks <= (m_most - m_time) / microseconds;
        m_time = fits ? m_time + ticks * microseconds : m_most;
    }

    int milliseconds() const { return int((m_time + m_millisecond / 2) / m_millisecond); }

private:
    int64_t m_millisecond;
    int64_t m_most;
    int64_t m_time = 0;
};

void addScore(Score score, const Clock &clock, PlayTime *time)
{
    if (!clock.followsTempo)
        score.tempoChanges.clear();
    std::ranges::stable_sort(score.tempoChanges, {}, &TempoChange::tick);
    TempoChange current{0, clock.microseconds};
    for (const TempoChange &change : score.tempoChanges) {
        time->add(change.tick - current.tick, current.microseconds);
        current = change;
    }
    time->add(score.end - current.tick, current.microseconds);
}

int playLength(const Header &header, Reader tracks)
{
    PlayTime time(header.clock.ticks);
    Score score;
    while (const auto track = takeTrack(&tracks)) {
        addTrack(*track, &score);
        if (header.tracksFollowEachOther)
            addScore(std::exchange(score, {}), header.clock, &time);
    }
    addScore(std::move(score), header.clock, &time);
    return time.milliseconds();
}

} // namespace

Measure openMidi(Octets clip)
{
    Reader file(clip);
    if (isText(Reader(clip).takeUpTo(4), "RIFF"sv))
        std::ignore = file.take(RiffHeaderSize); // the rest is a MIDI file
    const auto header = takeHeader(&file);
    Reader tracks = file;
    if (!header || !takeTrack(&tracks))
        return nullptr;
    return [header = *header, file] { return playLength(header, file); };
}

} // namespace HostPlatform
