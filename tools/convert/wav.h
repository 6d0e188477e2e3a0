/*
 * Decoded sound, and the file that browsers play.
 */
#pragma once

#include <QByteArray>

namespace Sound {

/// The form of samples of 16 bits.
struct Form
{
    int rate; ///< samples in a second
    int channels;
};

/// A WAV file with the samples, which are in the processor's order of octets.
QByteArray wav(const Form &form, QByteArray samples);

/// Milliseconds that a file of wav() plays.
int milliseconds(const QByteArray &wav);

} // namespace Sound
