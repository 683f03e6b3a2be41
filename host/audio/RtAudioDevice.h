// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioDevice.h"

#include <QCoreApplication>

#include <chrono>
#include <memory>

/// A sound device of this machine, on any of the systems that AudioDevices knows.
///
/// A device that does not respond when it is closed is left to a thread of its own, and no device
/// can be opened until that is through with it. One object at a time in a program.
class RtAudioDevice : public AudioDevice
{
    Q_DECLARE_TR_FUNCTIONS(RtAudioDevice)

public:
    /// \a patience is how long close() waits for the device.
    explicit RtAudioDevice(std::chrono::milliseconds patience = std::chrono::seconds(1));
    ~RtAudioDevice() override;
    RtAudioDevice(const RtAudioDevice&) = delete;
    RtAudioDevice& operator=(const RtAudioDevice&) = delete;

    std::vector<AudioDeviceInfo> list() const override;
    int rateFor(const AudioDeviceSettings& settings, int soundRate) const override;
    Status open(const AudioDeviceSettings& settings, int soundRate) override;
    Status start(AudioCallback& callback) override;
    void close() override;

    QString name() const override { return m_name; }
    int rate() const override { return m_rate; }
    Status status() const override;
    std::int64_t calls() const override;

private:
    class Stream;

    Status openDevice(const AudioDeviceInfo& output, const std::vector<AudioDeviceInfo>& devices,
                      const AudioDeviceSettings& settings);
    Status openStream(const AudioDeviceInfo& output, const AudioDeviceInfo* input,
                      unsigned int block);
    Error errorOf(const QString& reason) const;

    std::chrono::milliseconds m_patience;
    std::shared_ptr<Stream> m_stream;
    QString m_name;
    int m_rate = 0;
};
