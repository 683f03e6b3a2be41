// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QtGlobal>

class QIODevice;

/// How much sound the header of a WAV, W64, AIFF, CAF or AU file promises and how much the file
/// does hold, in bytes. The sound file library plays what is there of a file that was cut short and
/// says nothing.
///
/// Programs that write into a pipe cannot go back to the header and leave the length open: 0, or up
/// to 8 KB below 2 GB or 4 GB (in AIFF files 2032 MB). Such a length counts as open unless it leads
/// to the end of the file or to further chunks; all that follows is sound then.
struct SoundLength
{
    qint64 promised = 0;
    qint64 present = 0;
    bool isOpen = false;

    /// What the header would say if the length were not open, and where. Empty where it has no room
    /// for the number.
    QByteArray closed;
    qint64 offset = 0;

    bool isShort() const { return !isOpen && present < promised; }
    bool isTooLong() const { return isOpen && closed.isEmpty(); }

    /// Of the file in \a device, whose position changes. Both lengths are 0 for other files, and
    /// where the library itself goes to the end.
    static SoundLength of(QIODevice& device);
};
