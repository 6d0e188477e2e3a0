/*
 * Puts the records of a clip that is streamed together from the octets of a pipe. A clip may have
 * taken over the process that writes them: a record that is larger than the limits, or does not fit
 * those before it, is refused with its header.
 */
#pragma once

#include "convert/clip_stream.h"

#include <QByteArray>

#include <array>
#include <optional>
#include <span>

struct ClipRecord
{
    static constexpr int SampleOctets = 2; ///< of one channel

    ClipStream::Header header;
    QByteArray octets;
};

class RecordReader
{
public:
    /// Where the next octets have to go. Empty while a record waits for take(), and once the octets
    /// are malformed.
    std::span<char> space();

    /// Counts octets that were put into space().
    void filled(qsizetype count);

    /// The record, once it is complete.
    std::optional<ClipRecord> take();

    bool isMalformed() const { return m_isMalformed; }

private:
    bool isComplete() const;
    bool isExpected(const ClipStream::Header &header);
    bool isExpectedSound(const ClipStream::Header &header);

    std::array<char, sizeof(ClipStream::Header)> m_headerOctets{};
    ClipStream::Header m_header;
    QByteArray m_octets;
    qsizetype m_filled = 0; ///< of the header and its octets
    bool m_isMalformed = false;

    qint64 m_lastPicture = -1; ///< milliseconds
    qint64 m_sampleOctets = 0; ///< all of them
    int m_rate = 0;
    int m_channels = 0;
    unsigned m_kindsOfOne = 0; ///< bits of kinds that came and come only once
};
