// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/AudioDevices.h"

#include <alsa/asoundlib.h>
#include <jack/jack.h>

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <iterator>

namespace {

AudioDeviceInfo infoOf(RtAudio& system, unsigned int number)
{
    const RtAudio::DeviceInfo found = system.getDeviceInfo(number);
    AudioDeviceInfo info;
    info.api = system.getCurrentApi();
    info.number = number;
    info.name = QStringLiteral("%1:%2").arg(QString::fromStdString(RtAudio::getApiName(info.api)),
                                            QString::fromStdString(found.name));
    info.outputs = found.probed ? static_cast<int>(found.outputChannels) : 0;
    info.inputs = found.probed ? static_cast<int>(found.inputChannels) : 0;
    info.preferredRate = static_cast<int>(found.preferredSampleRate);
    std::copy(found.sampleRates.begin(), found.sampleRates.end(), std::back_inserter(info.rates));
    info.isDefaultOutput = found.isDefaultOutput;
    info.isDefaultInput = found.isDefaultInput;
    return info;
}

void appendDevices(RtAudio::Api api, std::vector<AudioDeviceInfo>* devices)
{
    RtAudio system(api);
    system.showWarnings(false);
    const unsigned int count = system.getDeviceCount();
    for (unsigned int number = 0; number < count; ++number) {
        AudioDeviceInfo info = infoOf(system, number);
        if (info.outputs > 0 || info.inputs > 0)
            devices->push_back(std::move(info));
    }
}

void ignoreMessage(const char*, int, const char*, int, const char*, ...) {}

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
        if (device.api == first->api && device.isDefaultOutput)
            return &device;
    }
    if (first)
        return first;
    return Error{
        QCoreApplication::translate("AudioDevices", "There is no sound device to play on.")};
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

} // namespace

bool AudioDeviceInfo::runsAt(int rate) const
{
    return std::find(rates.begin(), rates.end(), rate) != rates.end();
}

std::vector<AudioDeviceInfo> AudioDevices::list()
{
    silenceLibraries();
    std::vector<RtAudio::Api> systems;
    RtAudio::getCompiledApi(systems);
    std::vector<AudioDeviceInfo> devices;
    for (const RtAudio::Api api : systems) {
        try {
            appendDevices(api, &devices);
        } catch (const RtAudioError&) {
            // A system that is not there has no devices.
        }
    }
    return devices;
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

void AudioDevices::silenceLibraries()
{
    jack_set_error_function([](const char*) {});
    jack_set_info_function([](const char*) {});
    snd_lib_error_set_handler(ignoreMessage);
}
