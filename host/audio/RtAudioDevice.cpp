// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/RtAudioDevice.h"

#include "host/audio/CallbackGate.h"

#include <alsa/asoundlib.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#include <iterator>
#include <utility>

namespace {

// The library tells errors without saying whose they are, on whatever thread they happen; the first
// one of the device that is open stays.
enum class ErrorState { None, BeingWritten, There };
std::atomic<ErrorState> errorState = ErrorState::None;
std::array<char, 256> errorText;

void keepError(const std::string& text)
{
    ErrorState none = ErrorState::None;
    if (!errorState.compare_exchange_strong(none, ErrorState::BeingWritten))
        return;
    const std::size_t length = std::min(text.size(), errorText.size() - 1);
    std::memcpy(errorText.data(), text.data(), length);
    errorText[length] = '\0';
    errorState.store(ErrorState::There, std::memory_order_release);
}

QString keptError()
{
    if (errorState.load(std::memory_order_acquire) != ErrorState::There)
        return QString();
    const QString text = QString::fromLocal8Bit(errorText.data()).simplified();
    return text.endsWith(QLatin1Char('.')) ? text.chopped(1) : text;
}

RtAudio::StreamParameters parametersOf(const AudioDeviceInfo& device, int channels)
{
    RtAudio::StreamParameters parameters;
    parameters.deviceId = device.number;
    parameters.nChannels = static_cast<unsigned int>(channels);
    return parameters;
}

AudioDeviceInfo infoOf(RtAudio& system, unsigned int number)
{
    const RtAudio::DeviceInfo found = system.getDeviceInfo(number);
    AudioDeviceInfo info;
    info.name = QStringLiteral("%1:%2").arg(
        QString::fromStdString(RtAudio::getApiName(system.getCurrentApi())),
        QString::fromStdString(found.name));
    info.number = number;
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

// Warnings of failed transfers come from a device that was pulled out, again and again.
void note(RtAudioError::Type type, const std::string& text)
{
    const bool warning = type == RtAudioError::WARNING || type == RtAudioError::DEBUG_WARNING;
    const auto says = [&text](const char* words) { return text.find(words) != std::string::npos; };
    if (!warning || says("write error") || says("read error"))
        keepError(text);
}

} // namespace

// What the device calls. It outlives the RtAudioDevice while its closing hangs.
class RtAudioDevice::Stream
{
public:
    Stream(RtAudio::Api api, std::size_t inputs, std::size_t outputs)
        : m_system(api)
        , m_inputs(inputs)
        , m_outputs(outputs)
    {
        m_system.showWarnings(false);
    }

    RtAudio& system() { return m_system; }
    CallbackGate& gate() { return m_gate; }

    void close()
    {
        try {
            if (m_system.isStreamRunning())
                m_system.abortStream();
            if (m_system.isStreamOpen())
                m_system.closeStream();
        } catch (const RtAudioError&) {
            // A device that was disconnected cannot be stopped any more.
        }
    }

    static int called(void* output, void* input, unsigned int frames, double, RtAudioStreamStatus,
                      void* user)
    {
        auto* stream = static_cast<Stream*>(user);
        stream->fill(static_cast<float*>(output), static_cast<const float*>(input), frames);
        return 0;
    }

private:
    void fill(float* output, const float* input, std::size_t frames)
    {
        for (std::size_t c = 0; c < m_outputs.size(); ++c)
            m_outputs[c] = output + c * frames;
        for (std::size_t c = 0; c < m_inputs.size(); ++c)
            m_inputs[c] = input + c * frames;
        m_gate.process(m_inputs, m_outputs, frames);
    }

    RtAudio m_system;
    std::vector<const float*> m_inputs;
    std::vector<float*> m_outputs;
    CallbackGate m_gate;
};

std::vector<RtAudio::Api> RtAudioDevice::standardSystems()
{
    std::vector<RtAudio::Api> systems;
    RtAudio::getCompiledApi(systems);
    std::erase(systems, RtAudio::UNIX_JACK);
    return systems;
}

RtAudioDevice::RtAudioDevice(std::vector<RtAudio::Api> systems, std::chrono::milliseconds patience)
    : m_systems(std::move(systems))
    , m_tasks(patience)
{}

RtAudioDevice::~RtAudioDevice() { RtAudioDevice::close(); }

std::vector<AudioDeviceInfo> RtAudioDevice::list() const
{
    snd_lib_error_set_handler(ignoreMessage);
    std::vector<AudioDeviceInfo> devices;
    for (const RtAudio::Api api : m_systems) {
        try {
            appendDevices(api, &devices);
        } catch (const RtAudioError&) {
            // A system that is not there has no devices.
        }
    }
    return devices;
}

int RtAudioDevice::rateFor(const AudioDeviceSettings& settings, int soundRate) const
{
    return AudioDevices::rateFor(list(), settings, soundRate);
}

Status RtAudioDevice::open(const AudioDeviceSettings& settings, int soundRate)
{
    close();
    if (m_tasks.isBusy())
        return Error{tr("No sound device can be used while %1 is not responding.").arg(m_name)};
    const auto route = AudioDevices::route(list(), settings, soundRate);
    if (!route.isOk())
        return route.status();
    m_name = route.value().output.name;
    m_rate = route.value().rate;
    return openStream(route.value(), static_cast<unsigned int>(settings.block));
}

Status RtAudioDevice::openStream(const AudioRoute& route, unsigned int block)
{
    const int outputs = std::min(route.output.outputs, maxOutputs);
    const int inputs = route.input ? std::min(route.input->inputs, maxInputs) : 0;
    RtAudio::StreamParameters out = parametersOf(route.output, outputs);
    RtAudio::StreamParameters in = parametersOf(route.input.value_or(route.output), inputs);
    RtAudio::StreamOptions options;
    options.flags = RTAUDIO_NONINTERLEAVED | RTAUDIO_SCHEDULE_REALTIME;
    options.priority = 70;
    options.streamName = "zolta-host";
    errorState = ErrorState::None;
    try {
        m_stream = std::make_shared<Stream>(
            RtAudio::getCompiledApiByName(route.output.system().toStdString()),
            static_cast<std::size_t>(inputs), static_cast<std::size_t>(outputs));
        m_stream->system().openStream(&out, route.input ? &in : nullptr, RTAUDIO_FLOAT32,
                                      static_cast<unsigned int>(m_rate), &block, &Stream::called,
                                      m_stream.get(), &options, &note);
        m_rate = static_cast<int>(m_stream->system().getStreamSampleRate());
        return {};
    } catch (const RtAudioError& error) {
        m_stream.reset();
        keepError(error.getMessage());
        return errorOf(keptError());
    }
}

Status RtAudioDevice::start(AudioCallback& callback)
{
    m_stream->gate().open(callback);
    try {
        m_stream->system().startStream();
    } catch (const RtAudioError& error) {
        keepError(error.getMessage());
    }
    const Status result = status();
    if (!result.isOk())
        close();
    return result;
}

void RtAudioDevice::close()
{
    if (!m_stream)
        return;
    m_stream->gate().shut();
    m_tasks.run([stream = std::exchange(m_stream, nullptr)] { stream->close(); });
}

std::int64_t RtAudioDevice::calls() const { return m_stream ? m_stream->gate().calls() : 0; }

Status RtAudioDevice::status() const
{
    const QString kept = keptError();
    if (!kept.isEmpty())
        return errorOf(kept);
    if (m_stream && !m_stream->system().isStreamRunning())
        return Error{tr("The sound device %1 was disconnected.").arg(m_name)};
    return {};
}

// The reason is the sound system's own text, whatever its language.
Error RtAudioDevice::errorOf(const QString& reason) const
{
    return {
        tr("The sound device %1 cannot be used (%2). Another program may be using it: close that "
           "one, or choose another device.")
            .arg(m_name, reason)};
}
