// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/AudioDevices.h"

#include "engine/ChannelProcessor.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>

namespace {

QString withoutSystem(const QString& name) { return name.section(QLatin1Char(':'), 1); }

bool isNamed(const AudioDeviceInfo& device, const QString& text)
{
    return device.name.compare(text, Qt::CaseInsensitive) == 0 ||
           withoutSystem(device.name).compare(text, Qt::CaseInsensitive) == 0;
}

Result<const AudioDeviceInfo*> defaultOf(const std::vector<AudioDeviceInfo>& devices)
{
    const AudioDeviceInfo* first = nullptr;
    for (const AudioDeviceInfo& device : devices) {
        if (device.outputs == 0)
            continue;
        if (!first)
            first = &device;
        if (device.system() == first->system() && device.isDefaultOutput)
            return &device;
    }
    if (first)
        return first;
    return Error{QCoreApplication::translate(
        "AudioDevices", "There is no sound device to play on. Connect one, or start the "
                        "sound server (PipeWire, PulseAudio or JACK), and play again.")};
}

Result<const AudioDeviceInfo*> onlyOne(const std::vector<const AudioDeviceInfo*>& found,
                                       const QString& text)
{
    if (found.size() == 1)
        return found.front();
    if (found.empty()) {
        return Error{
            QCoreApplication::translate(
                "AudioDevices", "There is no sound device \"%1\"; --devices shows them all.")
                .arg(text)};
    }
    QStringList names;
    for (const AudioDeviceInfo* device : found)
        names << device->name;
    return Error{
        QCoreApplication::translate("AudioDevices", "\"%1\" may mean several sound devices: %2.")
            .arg(text, names.join(QLatin1String(", ")))};
}

int chooseRate(const AudioDeviceInfo& device, const AudioDeviceSettings& settings, int soundRate)
{
    if (settings.rate > 0)
        return settings.rate;
    const bool suits = soundRate > ChannelProcessor::allBandsRate && device.runsAt(soundRate);
    return suits ? soundRate : device.preferredRate;
}

// The same device if it has inputs, otherwise its system's default.
std::optional<AudioDeviceInfo> inputFor(const AudioDeviceInfo& output,
                                        const std::vector<AudioDeviceInfo>& devices)
{
    if (output.inputs > 0)
        return output;
    const auto found =
        std::find_if(devices.begin(), devices.end(), [&output](const AudioDeviceInfo& device) {
            return device.system() == output.system() && device.inputs > 0 && device.isDefaultInput;
        });
    return found == devices.end() ? std::nullopt : std::optional(*found);
}

Status check(const AudioRoute& route, const AudioDeviceSettings& settings)
{
    const QString& name = route.output.name;
    if (route.output.outputs == 0) {
        return Error{QCoreApplication::translate(
                         "AudioDevices", "The sound device %1 cannot be used: it has no outputs.")
                         .arg(name)};
    }
    if (settings.rate > 0 && !route.output.runsAt(settings.rate)) {
        return Error{
            QCoreApplication::translate(
                "AudioDevices", "The sound device %1 cannot be used: it does not run at %2 Hz.")
                .arg(name, QString::number(settings.rate))};
    }
    if (settings.live && !route.input) {
        return Error{QCoreApplication::translate("AudioDevices",
                                                 "The sound device %1 cannot be used: neither it "
                                                 "nor the default device has inputs.")
                         .arg(name)};
    }
    return {};
}

} // namespace

QString AudioDeviceInfo::system() const { return name.section(QLatin1Char(':'), 0, 0); }

bool AudioDeviceInfo::runsAt(int rate) const
{
    return std::find(rates.begin(), rates.end(), rate) != rates.end();
}

Result<const AudioDeviceInfo*> AudioDevices::choose(const std::vector<AudioDeviceInfo>& devices,
                                                    const QString& text)
{
    if (text.isEmpty())
        return defaultOf(devices);
    std::vector<const AudioDeviceInfo*> named;
    std::vector<const AudioDeviceInfo*> similar;
    for (const AudioDeviceInfo& device : devices) {
        if (isNamed(device, text))
            named.push_back(&device);
        if (device.name.contains(text, Qt::CaseInsensitive))
            similar.push_back(&device);
    }
    return onlyOne(named.empty() ? similar : named, text);
}

Result<AudioRoute> AudioDevices::route(const std::vector<AudioDeviceInfo>& devices,
                                       const AudioDeviceSettings& settings, int soundRate)
{
    const auto choice = choose(devices, settings.device);
    if (!choice.isOk())
        return Error{choice.error()};
    AudioRoute route;
    route.output = *choice.value();
    if (settings.live)
        route.input = inputFor(route.output, devices);
    route.rate = chooseRate(route.output, settings, soundRate);
    const Status usable = check(route, settings);
    if (!usable.isOk())
        return Error{usable.error()};
    return route;
}

int AudioDevices::rateFor(const std::vector<AudioDeviceInfo>& devices,
                          const AudioDeviceSettings& settings, int soundRate)
{
    const auto choice = choose(devices, settings.device);
    return choice.isOk() ? chooseRate(*choice.value(), settings, soundRate) : 0;
}

QByteArray AudioDevices::table(const std::vector<AudioDeviceInfo>& devices)
{
    QByteArray lines;
    for (const AudioDeviceInfo& device : devices) {
        QByteArrayList remarks;
        if (device.isDefaultOutput)
            remarks << "default output";
        if (device.isDefaultInput)
            remarks << "default input";
        const QByteArrayList fields = {device.name.toUtf8(), QByteArray::number(device.outputs),
                                       QByteArray::number(device.inputs),
                                       QByteArray::number(device.preferredRate),
                                       remarks.join(", ")};
        lines += fields.join('\t') + '\n';
    }
    return lines;
}
