// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

class QIODevice;

/// How much sound a WAV file says it holds and how much it does hold, in bytes. The sound file
/// library plays what is there of a file that was cut short and says nothing.
struct WavLength
{
    qint64 promised = 0;
    qint64 present = 0;

    bool isShort() const { return present < promised; }

    /// Of the RIFF, RIFX or RF64 file in \a device, whose position changes. Both are 0 for other
    /// files, and where the header leaves the length open, as programs do that write into a pipe.
    static WavLength of(QIODevice& device);
};
