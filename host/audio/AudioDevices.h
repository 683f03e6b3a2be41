// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/Result.h"

#include <QByteArray>
#include <QString>

#include <RtAudio.h>

#include <vector>

/// A sound device of one of the systems that this program knows (JACK, PulseAudio, ALSA).
struct AudioDeviceInfo
{
    RtAudio::Api api = RtAudio::UNSPECIFIED;
    unsigned int number = 0; ///< within its system, until devices come or go
    QString name;            ///< "jack:system"
    int outputs = 0;         ///< channels
    int inputs = 0;
    int preferredRate = 0; ///< Hz
    std::vector<int> rates;
    bool isDefaultOutput = false; ///< of its system
    bool isDefaultInput = false;

    bool runsAt(int rate) const;
};

/// The sound devices of this machine.
namespace AudioDevices {

/// All that can be opened now, system by system.
std::vector<AudioDeviceInfo> list();

/// One of \a devices, which must outlive it: the one of that name (with or without its system, in
/// any case), or the only one whose name has \a text in it; for an empty text the first system's
/// default output.
Result<const AudioDeviceInfo*> choose(const std::vector<AudioDeviceInfo>& devices,
                                      const QString& text);

/// A line for each device: name, outputs, inputs, preferred rate and remarks, separated by tabs.
QByteArray table(const std::vector<AudioDeviceInfo>& devices);

/// Keeps the systems' libraries from writing to the standard error stream.
void silenceLibraries();

} // namespace AudioDevices
