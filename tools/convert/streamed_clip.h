/*
 * Decodes the sound and the pictures of a clip in the order of their times, however its packets are
 * ordered: packets that come too early wait, because they are small. So the reader needs little
 * memory.
 */
#pragma once

#include "convert/decoder_module.h"
#include "convert/frames.h"
#include "convert/opened_clip.h"

#include <deque>
#include <memory>
#include <vector>

class StreamedClip
{
public:
    /// Reads @p data and gives to @p taker until it is destroyed. No side of a picture is above
    /// @p side.
    StreamedClip(const uint8_t *data, std::size_t size, int side, ClipTaker *taker);

    /// False when the clip has neither sound nor pictures that can be decoded.
    [[nodiscard]] bool open(const char *demuxer);

    /// Gives sound and pictures from @p fromMs on, and before them the picture that is shown then.
    /// Returns the time at which the clip ends; negative when nothing was decoded.
    int64_t decode(int64_t fromMs);

private:
    /// A stream that is decoded.
    struct Track
    {
        bool isSound;
        const AVStream *stream;
        StreamDecoder decoder{};
        std::deque<Owned<AVPacket>> packets{}; ///< read, but not decoded
        int64_t ms = 0; ///< the end of what was decoded
        int64_t pictureMs = 0; ///< how long the last picture is shown
        bool hasAny = false;
        bool isDraining = false;
        bool isAtEnd = false;
    };

    bool addTrack(AVMediaType kind);
    void readBase();
    void jump();
    Track *earliest() const;
    bool readPacket();
    bool isTooEarly(Track *track, const AVPacket &packet);
    void sendPacket(Track *track);
    AVFrame *next(Track *track);
    int64_t timeOf(const AVStream &stream, int64_t time) const;
    bool take(Track *track, AVFrame *frame);
    bool takeSound(Track *track, const AVFrame &frame, int64_t ms);
    bool takePicture(Track *track, AVFrame *frame, int64_t ms);
    bool show(const AVFrame &frame, int64_t ms);
    bool showHeld();
    bool end(Track *track);

    OpenedClip m_clip;
    const int m_side;
    ClipTaker *m_taker;
    std::vector<std::unique_ptr<Track>> m_tracks;
    std::vector<int16_t> m_samples;
    Frames::Scaler m_scaler;
    Frames::Rows m_rows;
    Owned<AVFrame> m_held{av_frame_alloc()}; ///< the last picture before the wanted time
    int64_t m_heldMs = -1; ///< negative without such a picture
    int64_t m_lastPicture = -1; ///< its time
    int64_t m_from = 0;
    int64_t m_base = 0; ///< the time at which the clip begins
    int64_t m_end = -1;
};
