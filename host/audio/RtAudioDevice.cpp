// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/RtAudioDevice.h"

#include "engine/ChannelProcessor.h"
#include "host/audio/AudioCallback.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstring>
#include <future>
#include <thread>
#include <utility>
#include <vector>

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

int chooseRate(const AudioDeviceInfo& device, const AudioDeviceSettings& settings, int soundRate)
{
    if (settings.rate > 0)
        return settings.rate;
    const bool suits = soundRate > ChannelProcessor::allBandsRate && device.runsAt(soundRate);
    return suits ? soundRate : device.preferredRate;
}

// The same device if it has inputs, otherwise its system's default.
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

// After that the library calls for no samples any more.
constexpr const char* blockChanged = "buffer size has changed";

// Warnings of failed transfers come from a device that was pulled out, again and again.
void note(RtAudioError::Type type, const std::string& text)
{
    const bool warning = type == RtAudioError::WARNING || type == RtAudioError::DEBUG_WARNING;
    const auto says = [&text](const char* words) { return text.find(words) != std::string::npos; };
    if (!warning || says("write error") || says("read error") || says(blockChanged))
        keepError(text);
}

std::atomic<int> closing = 0;

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
    std::int64_t calls() const { return m_calls.load(std::memory_order_relaxed); }

    void setCallback(AudioCallback& callback) { m_callback = &callback; }
    // Returns once the callback is not in use and will not be any more.
    void dismissCallback()
    {
        m_callback = nullptr;
        while (m_busy)
            std::this_thread::yield();
    }

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
        stream->m_calls.fetch_add(1, std::memory_order_relaxed);
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
        m_busy = true;
        if (AudioCallback* callback = m_callback)
            callback->process(m_inputs, m_outputs, frames);
        else
            std::fill_n(output, m_outputs.size() * frames, 0.0F);
        m_busy = false;
    }

    RtAudio m_system;
    std::vector<const float*> m_inputs;
    std::vector<float*> m_outputs;
    std::atomic<AudioCallback*> m_callback = nullptr;
    std::atomic<bool> m_busy = false;
    std::atomic<std::int64_t> m_calls = 0;
};

RtAudioDevice::RtAudioDevice(std::chrono::milliseconds patience)
    : m_patience(patience)
{}

RtAudioDevice::~RtAudioDevice() { RtAudioDevice::close(); }

std::vector<AudioDeviceInfo> RtAudioDevice::list() const { return AudioDevices::list(); }

int RtAudioDevice::rateFor(const AudioDeviceSettings& settings, int soundRate) const
{
    const std::vector<AudioDeviceInfo> devices = list();
    const auto choice = AudioDevices::choose(devices, settings.device);
    return choice.isOk() ? chooseRate(*choice.value(), settings, soundRate) : 0;
}

Status RtAudioDevice::open(const AudioDeviceSettings& settings, int soundRate)
{
    close();
    if (closing > 0)
        return Error{tr("No sound device can be used while %1 is not responding.").arg(m_name)};
    const std::vector<AudioDeviceInfo> devices = list();
    const auto choice = AudioDevices::choose(devices, settings.device);
    if (!choice.isOk())
        return choice.status();
    m_name = choice.value()->name;
    m_rate = chooseRate(*choice.value(), settings, soundRate);
    return openDevice(*choice.value(), devices, settings);
}

Status RtAudioDevice::openDevice(const AudioDeviceInfo& output,
                                 const std::vector<AudioDeviceInfo>& devices,
                                 const AudioDeviceSettings& settings)
{
    if (output.outputs == 0)
        return Error{tr("The sound device %1 cannot be used: it has no outputs.").arg(m_name)};
    if (settings.rate > 0 && !output.runsAt(settings.rate)) {
        return Error{tr("The sound device %1 cannot be used: it does not run at %2 Hz.")
                         .arg(m_name, QString::number(settings.rate))};
    }
    const AudioDeviceInfo* input = settings.live ? inputFor(output, devices) : nullptr;
    if (settings.live && !input) {
        return Error{tr("The sound device %1 cannot be used: neither it nor the default device has "
                        "inputs.")
                         .arg(m_name)};
    }
    return openStream(output, input, static_cast<unsigned int>(settings.block));
}

Status RtAudioDevice::openStream(const AudioDeviceInfo& output, const AudioDeviceInfo* input,
                                 unsigned int block)
{
    const int outputs = std::min(output.outputs, maxOutputs);
    const int inputs = input ? std::min(input->inputs, maxInputs) : 0;
    RtAudio::StreamParameters out = parametersOf(output, outputs);
    RtAudio::StreamParameters in = parametersOf(input ? *input : output, inputs);
    RtAudio::StreamOptions options;
    options.flags = RTAUDIO_NONINTERLEAVED | RTAUDIO_SCHEDULE_REALTIME;
    options.priority = 70;
    options.streamName = "zolta-host";
    errorState = ErrorState::None;
    try {
        m_stream = std::make_shared<Stream>(output.api, static_cast<std::size_t>(inputs),
                                            static_cast<std::size_t>(outputs));
        m_stream->system().openStream(&out, input ? &in : nullptr, RTAUDIO_FLOAT32,
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
    m_stream->setCallback(callback);
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
    m_stream->dismissCallback();
    ++closing;
    std::packaged_task<void()> task([stream = std::exchange(m_stream, nullptr)]() mutable {
        stream->close();
        stream.reset();
        --closing;
    });
    const std::future<void> closed = task.get_future();
    std::thread(std::move(task)).detach();
    closed.wait_for(m_patience);
}

std::int64_t RtAudioDevice::calls() const { return m_stream ? m_stream->calls() : 0; }

Status RtAudioDevice::status() const
{
    const QString kept = keptError();
    if (kept.contains(QLatin1String(blockChanged))) {
        return Error{tr("The sound device %1 has another block size now; stop and play again to "
                        "use the new size.")
                         .arg(m_name)};
    }
    if (!kept.isEmpty())
        return errorOf(kept);
    if (m_stream && !m_stream->system().isStreamRunning())
        return Error{tr("The sound device %1 was disconnected.").arg(m_name)};
    return {};
}

// The reason is the sound system's own text, whatever its language.
Error RtAudioDevice::errorOf(const QString& reason) const
{
    return {tr("The sound device %1 cannot be used (%2).").arg(m_name, reason)};
}
