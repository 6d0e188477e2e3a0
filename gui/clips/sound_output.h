/*
 * Where the sound of a clip goes.
 */
#pragma once

#include "convert/wav.h"

#include <memory>

class SoundOutput
{
public:
    SoundOutput() = default;
    SoundOutput(const SoundOutput &) = delete;
    SoundOutput &operator=(const SoundOutput &) = delete;
    virtual ~SoundOutput() = default;

    /// How many octets of samples it takes now.
    virtual qsizetype freeOctets() const = 0;
    /// Takes samples of 16 bits, at most freeOctets().
    virtual void write(QByteArrayView samples) = 0;
    virtual void setPlaying(bool isPlaying) = 0;

    /// The usual audio device; null when there is none, or it does not play samples of this form.
    static std::unique_ptr<SoundOutput> open(const Sound::Form &form);
};
