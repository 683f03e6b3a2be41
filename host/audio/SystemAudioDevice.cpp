// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/SystemAudioDevice.h"

std::vector<AudioDeviceInfo> SystemAudioDevice::list() const
{
    std::vector<AudioDeviceInfo> devices = m_jack.list();
    const std::vector<AudioDeviceInfo> others = m_rtAudio.list();
    devices.insert(devices.end(), others.begin(), others.end());
    return devices;
}

int SystemAudioDevice::rateFor(const AudioDeviceSettings& settings, int soundRate) const
{
    return AudioDevices::rateFor(list(), settings, soundRate);
}

// What was open last is opened again without a look at all the others, which takes long.
Status SystemAudioDevice::open(const AudioDeviceSettings& settings, int soundRate)
{
    close();
    if (!settings.device.isEmpty() && settings.device == name())
        return m_open->open(settings, soundRate);
    const std::vector<AudioDeviceInfo> devices = list();
    const auto choice = AudioDevices::choose(devices, settings.device);
    if (!choice.isOk())
        return choice.status();
    AudioDeviceSettings chosen = settings;
    chosen.device = choice.value()->name;
    if (choice.value()->system() == QLatin1String("jack"))
        m_open = &m_jack;
    else
        m_open = &m_rtAudio;
    return m_open->open(chosen, soundRate);
}
