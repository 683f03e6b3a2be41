// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/AudioSession.h"

#include "engine/MixBus.h"
#include "host/audio/AudioCallback.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr int watchInterval = 100; // ms
constexpr int retryInterval = 500; // ms

} // namespace

// The audio thread's side: a file's or the inputs' channels through the bus to the outputs.
class AudioSession::Player final : public AudioCallback
{
public:
    Player(MixBus& bus, FileStream& stream)
        : m_bus(bus)
        , m_stream(stream)
    {}

    void setLive(bool live) { m_live = live; }

    void process(std::span<const float* const> inputs, std::span<float* const> outputs,
                 std::size_t frames) override
    {
        if (m_live)
            return m_bus.process(inputs, outputs, frames);
        std::array<float*, AudioDevice::maxOutputs> part{};
        for (std::size_t done = 0; done < frames; done += partFrames) {
            for (std::size_t c = 0; c < outputs.size(); ++c)
                part[c] = outputs[c] + done;
            playFile(std::span(part).first(outputs.size()), std::min(partFrames, frames - done));
        }
    }

private:
    static constexpr std::size_t partFrames = 256;
    static constexpr std::size_t maxChannels = FileStream::maxChannels;

    void playFile(std::span<float* const> outputs, std::size_t frames)
    {
        const auto count = static_cast<std::size_t>(m_stream.channels());
        m_stream.read(std::span(m_interleaved).first(frames * count));
        std::array<const float*, maxChannels> inputs{};
        for (std::size_t c = 0; c < count; ++c) {
            for (std::size_t i = 0; i < frames; ++i)
                m_channels[c][i] = m_interleaved[i * count + c];
            inputs[c] = m_channels[c].data();
        }
        m_bus.process(std::span(inputs).first(count), outputs, frames);
    }

    MixBus& m_bus;
    FileStream& m_stream;
    bool m_live = false;
    std::array<float, partFrames * maxChannels> m_interleaved{};
    std::array<std::array<float, partFrames>, maxChannels> m_channels{};
};

AudioSession::AudioSession(MixBus& bus, std::unique_ptr<AudioDevice> device,
                           std::chrono::milliseconds patience)
    : m_bus(bus)
    , m_player(std::make_unique<Player>(bus, m_stream))
    , m_device(std::move(device))
    , m_patience(patience)
{
    connect(&m_watch, &QTimer::timeout, this, &AudioSession::watch);
}

AudioSession::~AudioSession() { halt(); }

Status AudioSession::openFile(const QString& file)
{
    auto reader = std::make_unique<AudioReader>();
    const Status opened = reader->open(file);
    if (!opened.isOk()) {
        Q_EMIT failed(opened.error());
        return opened;
    }
    stop();
    m_stream.use(std::move(reader));
    m_settings.live = false;
    m_frame = 0;
    m_file = file;
    m_error.clear();
    Q_EMIT fileOpened(file);
    Q_EMIT changed();
    return opened;
}

double AudioSession::duration() const
{
    return m_stream.length() >= 0 ? double(m_stream.length()) / m_stream.rate() : -1.0;
}

void AudioSession::setDevice(const AudioDeviceSettings& settings) { m_settings = settings; }

void AudioSession::setLooping(bool looping)
{
    if (m_looping == looping)
        return;
    m_looping = looping;
    if (!isStopped() && !m_settings.live)
        setPosition(position());
    Q_EMIT changed();
}

QStringList AudioSession::outputs() const
{
    QStringList names;
    for (const AudioDeviceInfo& each : devices())
        names << each.name;
    return names;
}

int AudioSession::output() const
{
    const auto choice = AudioDevices::choose(devices(), m_settings.device);
    return choice.isOk() ? static_cast<int>(choice.value() - devices().data()) : -1;
}

void AudioSession::setOutput(int index)
{
    if (index < 0 || index >= static_cast<int>(devices().size()))
        return;
    const bool playing = !isStopped();
    stop();
    m_settings.device = devices()[static_cast<std::size_t>(index)].name;
    if (playing)
        static_cast<void>(play()); // failed() says what goes wrong
    else
        Q_EMIT changed();
}

const std::vector<AudioDeviceInfo>& AudioSession::devices() const
{
    if (!m_devices) {
        m_devices = m_device->list();
        std::erase_if(*m_devices, [](const AudioDeviceInfo& each) { return each.outputs == 0; });
    }
    return *m_devices;
}

Status AudioSession::play()
{
    if (!isStopped())
        return {};
    const Status started = start(m_settings);
    if (!started.isOk())
        return fail(started);
    m_error.clear();
    setState(State::Playing);
    return {};
}

Status AudioSession::start(const AudioDeviceSettings& settings)
{
    if (!m_settings.live && !m_stream.isOpen())
        return Error{tr("There is no sound file to play.")};
    if (m_devices && m_devices->empty()) {
        m_devices.reset();
        devices();
    }
    const Status opened = m_device->open(settings, settings.live ? 0 : m_stream.rate());
    if (!opened.isOk())
        return opened;
    if (!m_settings.live && !Resampler::converts(m_stream.rate(), m_device->rate())) {
        return Error{
            tr("The sound file %1 has a sampling rate of %2 Hz and cannot be played at %3 Hz.")
                .arg(m_file, QString::number(m_stream.rate()), QString::number(m_device->rate()))};
    }
    Q_EMIT starting();
    m_bus.prepare(m_device->rate(), m_settings.live);
    m_player->setLive(m_settings.live);
    if (!m_settings.live)
        m_stream.start(m_frame == m_stream.length() ? 0 : m_frame, m_device->rate(), m_looping);
    const Status started = m_device->start(*m_player);
    if (!started.isOk())
        return started;
    m_calls = 0;
    m_sinceCall.start();
    m_watch.start(watchInterval);
    return {};
}

void AudioSession::stop()
{
    if (isStopped())
        return;
    pause();
    setState(State::Stopped);
}

void AudioSession::playOrStop()
{
    if (isStopped())
        static_cast<void>(play()); // failed() says what goes wrong
    else
        stop();
}

void AudioSession::pause()
{
    const bool heard = holdsDevice();
    halt();
    if (heard)
        m_frame = m_settings.live ? 0 : m_stream.position();
}

void AudioSession::halt()
{
    m_watch.stop();
    m_device->close();
    m_stream.stop();
}

double AudioSession::position() const
{
    if (m_settings.live || !m_stream.isOpen())
        return 0.0;
    const std::int64_t frame = holdsDevice() ? m_stream.position() : m_frame;
    return double(frame) / m_stream.rate();
}

void AudioSession::setPosition(double seconds)
{
    if (!m_stream.isOpen() || m_settings.live)
        return;
    if (holdsDevice() && !m_device->status().isOk())
        watch();
    const bool playing = holdsDevice();
    if (playing)
        halt();
    const std::int64_t last = m_stream.length() >= 0 ? m_stream.length() : SF_COUNT_MAX;
    const double frame = std::max(std::round(seconds * m_stream.rate()), 0.0);
    m_frame = frame < double(last) ? static_cast<std::int64_t>(frame) : last;
    const Status started = playing ? start(m_settings) : Status();
    Q_EMIT positionChanged(position());
    if (!started.isOk()) {
        m_state = State::Stopped;
        static_cast<void>(fail(started));
    }
}

int AudioSession::expectedRate() const
{
    return m_device->rateFor(m_settings, m_settings.live ? 0 : m_stream.rate());
}

void AudioSession::watch()
{
    if (m_state == State::Waiting)
        return tryAgain();
    const Status device = m_device->status();
    if (!device.isOk() && m_device->mayComeBack())
        return waitForDevice(device.error());
    const bool ended = !m_settings.live && m_stream.hasEnded();
    if (device.isOk() && !ended) {
        watchCalls();
        Q_EMIT positionChanged(position());
        return;
    }
    const Status file = m_stream.status();
    stop();
    if (!device.isOk())
        reportError(device.error());
    else if (!file.isOk())
        Q_EMIT failed(file.error());
    else
        finish();
}

void AudioSession::waitForDevice(const QString& error)
{
    pause();
    m_state = State::Waiting;
    m_watch.start(retryInterval);
    reportError(error);
}

// The same one, even if another one is the default now.
void AudioSession::tryAgain()
{
    AudioDeviceSettings settings = m_settings;
    settings.device = m_device->name();
    if (start(settings).isOk()) {
        m_error.clear();
        return setState(State::Playing);
    }
    halt();
    m_watch.start(retryInterval);
}

void AudioSession::finish()
{
    m_frame = 0;
    Q_EMIT positionChanged(0.0);
    Q_EMIT finished();
}

// A sound server can hang without a word, and go on later.
void AudioSession::watchCalls()
{
    const std::int64_t calls = m_device->calls();
    if (calls != m_calls) {
        m_calls = calls;
        m_sinceCall.start();
        if (m_state == State::Stalled) {
            m_error.clear();
            setState(State::Playing);
        }
    } else if (m_state == State::Playing && m_sinceCall.hasExpired(m_patience.count())) {
        m_state = State::Stalled;
        reportError(tr("The sound device %1 is not responding.").arg(m_device->name()));
    }
}

Status AudioSession::fail(const Status& error)
{
    halt();
    reportError(error.error());
    return error;
}

void AudioSession::reportError(const QString& error)
{
    m_error = error;
    Q_EMIT changed();
    Q_EMIT failed(error);
}

void AudioSession::setState(State state)
{
    m_state = state;
    Q_EMIT changed();
}

MeterLevels AudioSession::outputLevels() const
{
    return m_state == State::Playing ? m_bus.outputLevels() : MeterLevels{};
}

#include "moc_AudioSession.cpp"
