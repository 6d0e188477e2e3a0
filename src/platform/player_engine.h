/** @file
 * The part of the media player engine that the library needs: whether a clip can be played and how
 * long it plays.
 */
#pragma once

#include "../base/export.h"

#include <QString>

/// Audio output of the handset. The library only probes clips, so it passes null.
class SOUNDM_AudioDevice_Interface;
/// Video output of the handset. The library only probes clips, so it passes null.
class Qvl_VideoDevice;

/// Properties of an opened stream.
struct StaticStreamInfo
{
    QString title; ///< null unless the engine fills it
    QString author; ///< null unless the engine fills it
    QString copyright; ///< null unless the engine fills it
    int playDuration = 0; ///< milliseconds; 0 or -1 when unknown
};

/// One probing or playing session of one clip.
class QVL_EXPORT MP_PlayerEngine
{
public:
    /// Deletes the engine; the only way to release one.
    virtual void destroy() = 0;

    /**
     * Opens a clip.
     *
     * @param data the octets of the clip; not owned, and must stay valid until close()
     * @param size count of octets
     * @param extension file extension for the clip's format, zero-terminated and without dot
     * @return true when the engine can play it
     */
    virtual bool open(const char *data, int size, const char *extension) = 0;

    /// Closes the opened clip.
    virtual void close() = 0;

    /// Fills @p info with the properties of the opened stream; false when it could not.
    virtual bool getStreamInfo(StaticStreamInfo *info) = 0;

protected:
    ~MP_PlayerEngine() = default;
};

/**
 * Creates an engine, or returns null when there is none. Both devices may be null.
 *
 * A program can replace the platform's engine by defining this function itself.
 */
QVL_EXPORT MP_PlayerEngine *MP_CreatePlayerEngine(SOUNDM_AudioDevice_Interface *audio,
                                                  Qvl_VideoDevice *video);
