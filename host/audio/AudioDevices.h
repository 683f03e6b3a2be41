// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioDeviceSettings.h"
#include "hosting/Result.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

/// A sound device of one of the systems that this program knows (JACK, PulseAudio, ALSA).
struct AudioDeviceInfo
{
    QString name;            ///< "jack:system"
    unsigned int number = 0; ///< within its system, until devices come or go
    int outputs = 0;         ///< channels
    int inputs = 0;
    int preferredRate = 0; ///< Hz
    std::vector<int> rates;
    bool isDefaultOutput = false; ///< of its system
    bool isDefaultInput = false;

    QString system() const; ///< "jack"
    bool runsAt(int rate) const;
};

/// What AudioDeviceSettings ask for.
struct AudioRoute
{
    AudioDeviceInfo output;
    std::optional<AudioDeviceInfo> input; ///< of a live device: itself, or its system's default
    int rate = 0;                         ///< Hz
};

/// Choosing among the sound devices of this machine.
namespace AudioDevices {

/// One of \a devices, which must outlive it: the one of that name (with or without its system, in
/// any case), or the only one whose name has \a text in it; for an empty text the first system's
/// default output.
Result<const AudioDeviceInfo*> choose(const std::vector<AudioDeviceInfo>& devices,
                                      const QString& text);

/// How one of \a devices is to be used, as AudioDevice::open() says of \a soundRate; an error where
/// it cannot.
Result<AudioRoute> route(const std::vector<AudioDeviceInfo>& devices,
                         const AudioDeviceSettings& settings, int soundRate);

/// The rate of that; 0 without the device.
int rateFor(const std::vector<AudioDeviceInfo>& devices, const AudioDeviceSettings& settings,
            int soundRate);

/// A line for each device: name, outputs, inputs, preferred rate and remarks, separated by tabs.
QByteArray table(const std::vector<AudioDeviceInfo>& devices);

} // namespace AudioDevices
