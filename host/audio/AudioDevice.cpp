// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/AudioDevice.h"

#include "host/audio/AudioDevices.h"
#include "host/engine/ChannelProcessor.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

// The library tells errors without saying whose they are, on whatever thread they happen; the first
// one of the device that is open stays.
enum class FaultState { None, BeingWritten, There };
std::atomic<FaultState> faultState = FaultState::None;
std::array<char, 256> faultText;

void keepFault(const std::string& text)
{
    FaultState none = FaultState::None;
    if (!faultState.compare_exchange_strong(none, FaultState::BeingWritten))
        return;
    const std::size_t length = std::min(text.size(), faultText.size() - 1);
    std::memcpy(faultText.data(), text.data(), length);
    faultText[length] = '\0';
    faultState.store(FaultState::There, std::memory_order_release);
}

QString keptFault()
{
    if (faultState.load(std::memory_order_acquire) != FaultState::There)
        return QString();
    const QString text = QString::fromLocal8Bit(faultText.data()).simplified();
    return text.endsWith(QLatin1Char('.')) ? text.chopped(1) : text;
}

RtAudio::StreamParameters parametersOf(const AudioDeviceInfo& device, std::size_t channels)
{
    RtAudio::StreamParameters parameters;
    parameters.deviceId = device.number;
    parameters.nChannels = static_cast<unsigned int>(channels);
    return parameters;
}

int chooseRate(const AudioDeviceInfo& device, const AudioDeviceSettings& settings, int soundRate)
{
    if (settings.rate > 0)
        return settings.rate;
    const bool suits = soundRate > ChannelProcessor::allBandsRate && device.runsAt(soundRate);
    return suits ? soundRate : device.preferredRate;
}

// The same device if it takes in sound, otherwise its system's default.
const AudioDeviceInfo* inputFor(const AudioDeviceInfo& output,
                                const std::vector<AudioDeviceInfo>& devices)
{
    if (output.inputs > 0)
        return &output;
    const auto found =
        std::find_if(devices.begin(), devices.end(), [&output](const AudioDeviceInfo& device) {
            return device.api == output.api && device.inputs > 0 && device.isDefaultInput;
        });
    return found == devices.end() ? nullptr : &*found;
}

} // namespace

int AudioDevice::rateFor(const Settings& settings, int soundRate)
{
    const std::vector<AudioDeviceInfo> devices = AudioDevices::list();
    const AudioDevices::Choice choice = AudioDevices::choose(devices, settings.device);
    return choice.device ? chooseRate(*choice.device, settings, soundRate) : 0;
}

AudioDevice::AudioDevice() = default;

AudioDevice::~AudioDevice() { close(); }

QString AudioDevice::open(const Settings& settings, int soundRate)
{
    close();
    const std::vector<AudioDeviceInfo> devices = AudioDevices::list();
    const AudioDevices::Choice choice = AudioDevices::choose(devices, settings.device);
    if (!choice.device)
        return choice.fault;
    const AudioDeviceInfo& device = *choice.device;
    m_name = device.name;
    if (device.outputs == 0)
        return sentence(QStringLiteral("it plays no sound"));
    if (settings.rate > 0 && !device.runsAt(settings.rate))
        return sentence(QStringLiteral("it does not run at %1 Hz").arg(settings.rate));
    m_rate = chooseRate(device, settings, soundRate);
    m_block = static_cast<unsigned int>(settings.block);
    const AudioDeviceInfo* input = settings.live ? inputFor(device, devices) : nullptr;
    if (settings.live && !input)
        return sentence(QStringLiteral("nothing takes in sound"));
    return openStream(device, input);
}

QString AudioDevice::openStream(const AudioDeviceInfo& output, const AudioDeviceInfo* input)
{
    m_outputs.assign(static_cast<std::size_t>(std::min(output.outputs, mostOutputs)), nullptr);
    m_inputs.assign(static_cast<std::size_t>(input ? std::min(input->inputs, mostInputs) : 0),
                    nullptr);
    RtAudio::StreamParameters out = parametersOf(output, m_outputs.size());
    RtAudio::StreamParameters in = input ? parametersOf(*input, m_inputs.size()) : out;
    RtAudio::StreamOptions options;
    options.flags = RTAUDIO_NONINTERLEAVED | RTAUDIO_SCHEDULE_REALTIME;
    options.priority = 70;
    options.streamName = "zolta-host";
    faultState = FaultState::None;
    m_calls = 0;
    m_underruns = 0;
    try {
        m_system = std::make_unique<RtAudio>(output.api);
        m_system->showWarnings(false);
        m_system->openStream(&out, input ? &in : nullptr, RTAUDIO_FLOAT32,
                             static_cast<unsigned int>(m_rate), &m_block, &AudioDevice::called,
                             this, &options, &AudioDevice::noted);
        m_rate = static_cast<int>(m_system->getStreamSampleRate());
        return QString();
    } catch (const RtAudioError& error) {
        m_system.reset();
        keepFault(error.getMessage());
        return sentence(keptFault());
    }
}

QString AudioDevice::start(Source* source)
{
    m_source = source;
    try {
        m_system->startStream();
    } catch (const RtAudioError& error) {
        keepFault(error.getMessage());
    }
    const QString fault = this->fault();
    if (!fault.isEmpty())
        close();
    return fault;
}

void AudioDevice::close()
{
    if (!m_system)
        return;
    try {
        if (m_system->isStreamRunning())
            m_system->abortStream();
        if (m_system->isStreamOpen())
            m_system->closeStream();
    } catch (const RtAudioError&) {
        // A device that is gone cannot be stopped any more.
    }
    m_system.reset();
}

QString AudioDevice::fault() const
{
    const QString kept = keptFault();
    if (!kept.isEmpty())
        return sentence(kept);
    if (m_system && !m_system->isStreamRunning())
        return sentence(QStringLiteral("it is gone"));
    return QString();
}

int AudioDevice::called(void* output, void* input, unsigned int frames, double,
                        RtAudioStreamStatus status, void* user)
{
    auto* device = static_cast<AudioDevice*>(user);
    device->m_calls.fetch_add(1, std::memory_order_relaxed);
    if (status != 0)
        device->m_underruns.fetch_add(1, std::memory_order_relaxed);
    device->fill(static_cast<float*>(output), static_cast<const float*>(input), frames);
    return 0;
}

// Warnings of failed transfers come from a device that was pulled out, again and again.
void AudioDevice::noted(RtAudioError::Type type, const std::string& text)
{
    const bool warning = type == RtAudioError::WARNING || type == RtAudioError::DEBUG_WARNING;
    if (!warning || text.find("write error") != std::string::npos ||
        text.find("read error") != std::string::npos)
        keepFault(text);
}

void AudioDevice::fill(float* output, const float* input, std::size_t frames)
{
    for (std::size_t c = 0; c < m_outputs.size(); ++c)
        m_outputs[c] = output + c * frames;
    for (std::size_t c = 0; c < m_inputs.size(); ++c)
        m_inputs[c] = input + c * frames;
    m_source->render(m_inputs.data(), inputs(), m_outputs.data(), outputs(),
                     static_cast<int>(frames));
}

QString AudioDevice::sentence(const QString& reason) const
{
    return QStringLiteral("The sound device %1 cannot be used: %2.").arg(m_name, reason);
}
