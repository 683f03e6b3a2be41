// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioDevice.h"
#include "host/audio/PatientTasks.h"

#include <QCoreApplication>

#include <RtAudio.h>

#include <memory>

/// A sound device of this machine on one of the systems that RtAudio knows.
///
/// A device that does not respond when it is closed is left to a thread of its own, and no device
/// can be opened until that is through with it. One object at a time in a program.
class RtAudioDevice : public AudioDevice
{
    Q_DECLARE_TR_FUNCTIONS(RtAudioDevice)

public:
    /// The systems that are looked through, in this order: all but JACK.
    static std::vector<RtAudio::Api> standardSystems();

    /// \a patience is how long close() waits for the device.
    explicit RtAudioDevice(std::vector<RtAudio::Api> systems = standardSystems(),
                           std::chrono::milliseconds patience = std::chrono::seconds(1));
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
    bool mayComeBack() const override { return false; }
    std::int64_t calls() const override;

private:
    class Stream;

    Status openStream(const AudioRoute& route, unsigned int block);
    Error errorOf(const QString& reason) const;

    std::vector<RtAudio::Api> m_systems;
    PatientTasks m_tasks;
    std::shared_ptr<Stream> m_stream;
    QString m_name;
    int m_rate = 0;
};
