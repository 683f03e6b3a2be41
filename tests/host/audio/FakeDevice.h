// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioCallback.h"
#include "host/audio/AudioDevice.h"

#include <vector>

/// A sound device that plays when a test says so: "fake:Speakers" and "fake:Phones", with two
/// outputs each, at 48000 Hz.
class FakeDevice : public AudioDevice
{
public:
    FakeDevice()
    {
        for (const char* name : {"fake:Speakers", "fake:Phones"}) {
            AudioDeviceInfo info;
            info.name = QString::fromLatin1(name);
            info.outputs = 2;
            info.preferredRate = 48000;
            m_devices.push_back(info);
        }
        AudioDeviceInfo microphone;
        microphone.name = QStringLiteral("fake:Microphone");
        microphone.inputs = 1;
        m_devices.push_back(microphone);
    }

    /// Asks for so many frames, as the device's thread would, with \a inputs; what was heard.
    std::vector<std::vector<float>> call(std::size_t frames,
                                         const std::vector<std::vector<float>>& inputs = {})
    {
        std::vector<std::vector<float>> heard(2, std::vector<float>(frames, 99.0F));
        std::vector<const float*> in;
        for (const std::vector<float>& input : inputs)
            in.push_back(input.data());
        const std::vector<float*> out = {heard[0].data(), heard[1].data()};
        ++m_calls;
        m_callback->process(in, out, frames);
        return heard;
    }
    bool isPlaying() const { return m_callback != nullptr; }
    bool isLive() const { return m_live; }
    /// What goes wrong at the next start, and while playing.
    void setStartError(const QString& sentence) { m_startError = sentence; }
    void setError(const QString& sentence) { m_error = sentence; }
    /// There is no device, but may be one later.
    void setGone(bool gone)
    {
        m_gone = gone;
        m_error = gone ? QStringLiteral("It has gone.") : QString();
    }

    std::vector<AudioDeviceInfo> list() const override
    {
        return m_gone ? std::vector<AudioDeviceInfo>() : m_devices;
    }
    int rateFor(const AudioDeviceSettings& settings, int) const override
    {
        return AudioDevices::choose(m_devices, settings.device).isOk() ? rate() : 0;
    }
    Status open(const AudioDeviceSettings& settings, int) override
    {
        const std::vector<AudioDeviceInfo> devices = list();
        const auto choice = AudioDevices::choose(devices, settings.device);
        if (!choice.isOk())
            return choice.status();
        m_name = choice.value()->name;
        m_live = settings.live;
        return {};
    }
    Status start(AudioCallback& callback) override
    {
        if (!m_startError.isEmpty())
            return Error{m_startError};
        m_callback = &callback;
        m_calls = 0;
        return {};
    }
    void close() override { m_callback = nullptr; }
    QString name() const override { return m_name; }
    int rate() const override { return 48000; }
    Status status() const override { return m_error.isEmpty() ? Status() : Error{m_error}; }
    bool mayComeBack() const override { return m_gone; }
    std::int64_t calls() const override { return m_calls; }

private:
    std::vector<AudioDeviceInfo> m_devices;
    AudioCallback* m_callback = nullptr;
    QString m_name;
    QString m_startError;
    QString m_error;
    bool m_live = false;
    bool m_gone = false;
    std::int64_t m_calls = 0;
};
