// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioDevice.h"
#include "host/audio/PatientTasks.h"

#include <QCoreApplication>

#include <memory>

/// The programs and the sound card on a JACK server, each a device: "jack:system".
///
/// The server's block size may change while it plays. A server that ends, or runs at another rate
/// than before, is lost, and the device has to be opened again. A server that does not respond is
/// left to a thread of its own, and nothing can be opened until that is through with it.
class JackDevice : public AudioDevice
{
    Q_DECLARE_TR_FUNCTIONS(JackDevice)

public:
    /// \a patience is how long each request waits for the server.
    explicit JackDevice(std::chrono::milliseconds patience = std::chrono::seconds(2));
    ~JackDevice() override;
    JackDevice(const JackDevice&) = delete;
    JackDevice& operator=(const JackDevice&) = delete;

    /// The devices that there were last while the server does not respond, or the open one is lost.
    std::vector<AudioDeviceInfo> list() const override;
    int rateFor(const AudioDeviceSettings& settings, int soundRate) const override;
    Status open(const AudioDeviceSettings& settings, int soundRate) override;
    Status start(AudioCallback& callback) override;
    void close() override;

    QString name() const override { return m_name; }
    int rate() const override { return m_rate; }
    Status status() const override;
    bool mayComeBack() const override { return !status().isOk(); }
    std::int64_t calls() const override;

private:
    class Client;

    Error notResponding() const;

    mutable PatientTasks m_tasks;
    mutable std::vector<AudioDeviceInfo> m_devices; // that there were last
    std::shared_ptr<Client> m_client;
    QString m_name;
    int m_rate = 0;
};
