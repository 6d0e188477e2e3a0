#include "platform/host/clip_guard.h"

#include <QByteArrayView>
#include <QtEndian>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string_view>

namespace HostPlatform {

namespace {

constexpr std::size_t TagHeaderSize = 10;
constexpr uint64_t MostSamples = 500'000; // of all tracks together
constexpr uint64_t MostUnframedSamples = 1 << 22; // such as those of PCM, each a few octets
constexpr uint64_t MostEdits = MostSamples; // edits of a track times all samples
constexpr uint32_t LargestTagChunk = 4096; // octets of a tag within a WAV file

QByteArrayView view(Octets octets)
{
    return QByteArrayView(octets.data(), qsizetype(octets.size()));
}

bool startsWith(Octets octets, const char *text)
{
    return view(octets).startsWith(text);
}

// The number at @p offset, or 0 after the end.
template <typename Integer>
uint64_t bigEndianAt(Octets octets, std::size_t offset)
{
    return offset + sizeof(Integer) <= octets.size()
        ? qFromBigEndian<Integer>(octets.data() + offset)
        : 0;
}

/// Numbers that the boxes of an MP4 file announce. A demuxer may find any of them in a damaged
/// file, so every place that looks like a box counts.
class BoxCounts
{
public:
    void add(Octets box);
    bool isWithinLimits(std::size_t size) const;

private:
    void addChunkSizes(Octets box);

    uint64_t m_samples = 0;
    uint64_t m_chunks = 0; // in the track with the most
    uint64_t m_samplesPerChunk = 0; // in the largest chunk
    uint64_t m_chunkSizes = 0; // entries of all tracks together
    uint64_t m_edits = 0; // in the track with the most
    bool m_isCompressed = false;
};

// @p box begins at its type; version and flags follow.
void BoxCounts::add(Octets box)
{
    if (startsWith(box, "stsz") || startsWith(box, "stz2"))
        m_samples += bigEndianAt<uint32_t>(box, 12);
    else if (startsWith(box, "trun"))
        m_samples += bigEndianAt<uint32_t>(box, 8);
    else if (startsWith(box, "stco") || startsWith(box, "co64"))
        m_chunks = std::max(m_chunks, bigEndianAt<uint32_t>(box, 8));
    else if (startsWith(box, "stsc"))
        addChunkSizes(box);
    else if (startsWith(box, "elst"))
        m_edits = std::max(m_edits, bigEndianAt<uint32_t>(box, 8));
    else if (startsWith(box, "cmov") || startsWith(box, "cmvd"))
        m_isCompressed = true;
}

void BoxCounts::addChunkSizes(Octets box)
{
    constexpr std::size_t header = 12;
    constexpr std::size_t entry = 12;
    const std::size_t room = box.size() < header ? 0 : (box.size() - header) / entry;
    const auto count = std::size_t(std::min<uint64_t>(bigEndianAt<uint32_t>(box, 8), room));
    m_chunkSizes += count;
    if (m_chunkSizes > MostSamples)
        return; // refused; overlapping tables are not walked again and again
    for (std::size_t i = 0; i < count; ++i) {
        m_samplesPerChunk =
            std::max(m_samplesPerChunk, bigEndianAt<uint32_t>(box, header + i * entry + 4));
    }
}

bool BoxCounts::isWithinLimits(std::size_t size) const
{
    // A sample takes at least one bit.
    const uint64_t mostUnframed = std::min<uint64_t>(MostUnframedSamples, 8 * uint64_t(size));
    return !m_isCompressed && m_samples <= MostSamples && m_chunkSizes <= MostSamples
        && (m_chunks == 0 || m_samplesPerChunk <= mostUnframed / m_chunks)
        && (m_edits == 0 || m_samples <= MostEdits / m_edits);
}

void scan(Octets boxes, BoxCounts *counts)
{
    // First letters of the types that add() knows.
    constexpr std::string_view firstLetters = "stce";
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        if (firstLetters.find(static_cast<char>(boxes[i])) != std::string_view::npos)
            counts->add(boxes.subspan(i));
    }
}

// Octets of the first box, or all octets when it is damaged.
std::size_t sizeOfBox(Octets boxes)
{
    constexpr std::size_t shortHeader = 8;
    const uint64_t announced = bigEndianAt<uint32_t>(boxes, 0);
    const uint64_t size = announced == 1 ? bigEndianAt<uint64_t>(boxes, shortHeader) : announced;
    return std::size_t(size < shortHeader ? boxes.size() : std::min<uint64_t>(size, boxes.size()));
}

bool isMovWithinLimits(Octets clip)
{
    BoxCounts counts;
    // An index can send a demuxer to any place. Without one, it does not look into the media.
    if (view(clip).contains("sidx") || view(clip).contains("tfra")) {
        scan(clip, &counts);
        return counts.isWithinLimits(clip.size());
    }
    for (Octets rest = clip; !rest.empty();) {
        const Octets box = rest.first(sizeOfBox(rest));
        if (box.size() < 8 || !startsWith(box.subspan(4), "mdat"))
            scan(box, &counts);
        rest = rest.subspan(box.size());
    }
    return counts.isWithinLimits(clip.size());
}

bool isWavWithinLimits(Octets clip)
{
    for (std::size_t i = 0; i + 8 <= clip.size(); ++i) {
        const Octets chunk = clip.subspan(i);
        if ((startsWith(chunk, "id3 ") || startsWith(chunk, "ID3 "))
            && qFromLittleEndian<uint32_t>(chunk.data() + 4) > LargestTagChunk)
            return false;
    }
    return true;
}

} // namespace

Octets withoutTags(Octets clip)
{
    while (startsWith(clip, "ID3") && clip.size() >= TagHeaderSize) {
        std::size_t size = 0;
        for (std::size_t i = 6; i < TagHeaderSize; ++i)
            size = size << 7 | (clip[i] & 0x7Fu);
        const std::size_t footer = clip[5] & 0x10 ? TagHeaderSize : 0;
        clip = clip.subspan(std::min(TagHeaderSize + size + footer, clip.size()));
    }
    return clip;
}

bool isWithinLimits(Octets clip, const char *demuxer)
{
    const std::string_view name = demuxer;
    return name == "mov" ? isMovWithinLimits(clip) : name != "wav" || isWavWithinLimits(clip);
}

} // namespace HostPlatform
