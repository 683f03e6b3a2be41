// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioDeviceSettings.h"
#include "host/audio/AudioDevices.h"
#include "hosting/Result.h"
#include "parameters/StripTable.h"

#include <QString>

#include <cstdint>
#include <vector>

class AudioCallback;

/// What a session plays on: one sound device at a time of those that there are. For one thread,
/// except for what the device calls back.
class AudioDevice
{
public:
    /// How many of a device's channels are used: no strip plays an input beyond them.
    static constexpr int maxInputs = inputCount;
    static constexpr int maxOutputs = 2;

    virtual ~AudioDevice() = default;

    /// All that can be opened now.
    virtual std::vector<AudioDeviceInfo> list() const = 0;
    /// The rate that open() chooses for a sound of \a soundRate; 0 where it would fail for want of
    /// the device.
    virtual int rateFor(const AudioDeviceSettings& settings, int soundRate) const = 0;

    /// Opens a device without starting it. Without a rate in the settings, \a soundRate (0 for
    /// none) is used if the device runs at it and every band is heard there, otherwise the rate
    /// that the device prefers.
    virtual Status open(const AudioDeviceSettings& settings, int soundRate) = 0;
    /// Starts the open device; \a callback must outlive the playing.
    virtual Status start(AudioCallback& callback) = 0;
    /// Stops and closes; the callback is not called any more afterwards.
    virtual void close() = 0;

    /// Of the device that was opened last, which remains known after close().
    virtual QString name() const = 0;
    virtual int rate() const = 0; ///< Hz
    /// Why a device that was started plays no more.
    virtual Status status() const = 0;
    /// Whether there is such a reason and it may pass by itself: then the device can be opened
    /// again once it is back.
    virtual bool mayComeBack() const = 0;
    /// How often the device has called for samples since it was opened: as long as that grows, it
    /// plays.
    virtual std::int64_t calls() const = 0;
};
