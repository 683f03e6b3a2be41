// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioDeviceSettings.h"

#include <QString>

#include <cstdint>
#include <memory>

struct AudioDeviceInfo;

/// A sound device while it plays. One at a time in a program, and for one thread, except for what
/// the device calls back.
///
/// Errors are sentences.
class AudioDevice
{
public:
    /// What fills the device's buffers, on the audio thread: must neither lock, allocate nor throw.
    class Source
    {
    public:
        virtual ~Source() = default;
        /// Fills \a frames samples of each of \a outputCount channels, full scale 1. \a inputs
        /// holds what comes in; there are none unless the device was opened for that.
        virtual void render(const float* const* inputs, int inputCount, float* const* outputs,
                            int outputCount, int frames) = 0;
    };

    using Settings = AudioDeviceSettings;

    /// How many of a device's channels are used; there are no more strips to play the inputs.
    static constexpr int maxInputs = 8;
    static constexpr int maxOutputs = 2;

    /// The rate that open() chooses for a sound of \a soundRate; 0 where it would fail for want of
    /// the device.
    static int rateFor(const Settings& settings, int soundRate);

    AudioDevice();
    ~AudioDevice();
    AudioDevice(const AudioDevice&) = delete;
    AudioDevice& operator=(const AudioDevice&) = delete;

    /// Opens the device without starting it. Without a rate in the settings, \a soundRate (0 for
    /// none) is used if the device runs at it and every band is heard there, otherwise the rate
    /// that the device prefers.
    QString open(const Settings& settings, int soundRate);
    /// Starts; \a source must outlive the playing.
    QString start(Source* source);
    /// Stops and closes; the source is not called any more afterwards. A device that does not
    /// answer is left to a thread of its own, and open() is an error until that is through with it.
    void close();

    bool isOpen() const { return m_stream != nullptr; }
    const QString& name() const { return m_name; }
    int rate() const { return m_rate; }
    int block() const { return static_cast<int>(m_block); }

    /// Why a device that was started plays no more; nothing while it does.
    QString error() const;
    /// How often the device has called for samples since it was opened.
    std::int64_t calls() const;
    /// How often the device did not get its samples in time.
    std::int64_t underruns() const;

private:
    class Stream;

    QString openStream(const AudioDeviceInfo& output, const AudioDeviceInfo* input);
    QString sentence(const QString& reason) const;

    std::shared_ptr<Stream> m_stream;
    QString m_name;
    int m_rate = 0;
    unsigned int m_block = 0;
};
