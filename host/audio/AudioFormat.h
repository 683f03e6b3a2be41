// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <sndfile.h>

/// Which sound file formats the mixer writes, and how samples travel to and from them.
namespace AudioFormat {

/// How a block of samples is handed to the sound file library without a second conversion.
enum class Transfer {
    Short, ///< full scale is 2^15
    Int,   ///< full scale is 2^31
    Float, ///< full scale is 1
    Double ///< full scale is 1
};

/// Whether files of this name can be written: ".wav", ".flac" or ".ogg", in any case.
bool canWrite(const QString& file);

/// Rate, channels and format of \a file when it takes the sound of \a input:
///
/// - .wav: the sample format of a WAV input (also RF64, W64 and the extensible header), otherwise
///   or with \a forceFloat 32-bit floats. From 4 GB on it becomes RF64.
/// - .flac: the bits of an input of 8, 16 or 24 bits, otherwise 24 bits.
/// - .ogg: Vorbis.
///
/// The frames of the result are those of the input. canWrite() must hold.
SF_INFO outputFor(const QString& file, const SF_INFO& input, bool forceFloat);

/// The exact transfer for a format, in both directions.
Transfer transferOf(int format);

/// Bits of a whole-number format, 16 for the companded ones, 0 for all others.
int bitsOf(int format);

} // namespace AudioFormat
