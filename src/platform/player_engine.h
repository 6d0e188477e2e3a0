/** @file
 * The media player engine, as far as the library needs it: to learn whether a clip can be played
 * and how long it plays.
 */
#pragma once

#include "../base/export.h"

#include <QString>

/// Audio output of the handset. The library never has one: it only probes.
class SOUNDM_AudioDevice_Interface;
/// Video output of the handset. The library never has one: it only probes.
class Qvl_VideoDevice;

/// Properties of an opened stream.
struct StaticStreamInfo
{
    QString title; ///< null unless the engine fills it
    QString author; ///< null unless the engine fills it
    QString copyright; ///< null unless the engine fills it
    int playDuration = 0; ///< milliseconds; 0 or -1 when not known
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
     * @param data the octets of the clip; not owned, and must stay alive until close()
     * @param size count of octets
     * @param extension of the file that the clip would be, zero-terminated and without dot
     * @return true when the engine can play it
     */
    virtual bool open(const char *data, int size, const char *extension) = 0;

    /// Closes what open() opened.
    virtual void close() = 0;

    /// Fills @p info with the properties of the opened stream; true when it did.
    virtual bool getStreamInfo(StaticStreamInfo *info) = 0;

protected:
    ~MP_PlayerEngine() = default;
};

/**
 * Makes an engine, or gives null when there is none. Both devices may be null.
 *
 * A program that defines this function itself replaces the platform's engine.
 */
QVL_EXPORT MP_PlayerEngine *MP_CreatePlayerEngine(SOUNDM_AudioDevice_Interface *audio,
                                                  Qvl_VideoDevice *video);
