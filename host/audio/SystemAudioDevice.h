// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/JackDevice.h"
#include "host/audio/RtAudioDevice.h"

/// A sound device of this machine on any of the systems that this program knows: JACK, which comes
/// first, PulseAudio and ALSA. One object at a time in a program.
class SystemAudioDevice : public AudioDevice
{
public:
    std::vector<AudioDeviceInfo> list() const override;
    int rateFor(const AudioDeviceSettings& settings, int soundRate) const override;
    Status open(const AudioDeviceSettings& settings, int soundRate) override;
    Status start(AudioCallback& callback) override { return m_open->start(callback); }
    void close() override { m_open->close(); }

    QString name() const override { return m_open->name(); }
    int rate() const override { return m_open->rate(); }
    Status status() const override { return m_open->status(); }
    bool mayComeBack() const override { return m_open->mayComeBack(); }
    std::int64_t calls() const override { return m_open->calls(); }

private:
    JackDevice m_jack;
    RtAudioDevice m_rtAudio;
    AudioDevice* m_open = &m_jack; // or was open last
};
