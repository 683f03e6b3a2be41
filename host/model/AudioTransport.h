// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioDevices.h"
#include "host/audio/Transport.h"

#include <functional>
#include <optional>
#include <vector>

class AudioSession;
class MixerModel;

/// The mixer's transport bar on an audio session. GUI thread only.
class AudioTransport : public Transport
{
    Q_OBJECT

public:
    /// \a session and \a mixerModel must outlive it. \a marked says which channel's strip a file
    /// goes to that no strip asks for.
    AudioTransport(AudioSession& session, MixerModel& mixerModel, std::function<int()> marked);

    State state() const override;
    QString error() const override;
    QString file() const override;
    void open(const QString& file) override;
    void play() override;
    void stop() override;
    double length() const override;
    double position() const override;
    void seek(double seconds) override;
    QStringList devices() const override;
    int device() const override;
    void chooseDevice(int index) override;

    /// Lets a channel's strip play the file, or with \a live what comes in, unless some strip does
    /// already. No step of the history.
    void feed(int channel, bool live);

private:
    const std::vector<AudioDeviceInfo>& outputs() const;

    AudioSession& m_session;
    MixerModel& m_mixerModel;
    std::function<int()> m_marked;
    mutable std::optional<std::vector<AudioDeviceInfo>> m_outputs; // looked for once
};
