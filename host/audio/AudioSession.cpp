// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/AudioSession.h"

#include "host/audio/AudioCallback.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr int watchInterval = 100; // ms

} // namespace

// The audio thread's side: a file's or the inputs' channels through the equalizer to the outputs.
class AudioSession::Player : public AudioDevice::Source
{
public:
    Player(AudioCallback& equalizer, FileStream& stream)
        : m_equalizer(equalizer)
        , m_stream(stream)
    {}

    void prepare(int rate, bool live)
    {
        m_live = live;
        m_equalizer.prepare(rate, live);
    }

    void render(const float* const* inputs, int inputCount, float* const* outputs, int outputCount,
                int frames) override
    {
        if (m_live)
            m_equalizer.process(inputs, inputCount, outputs, outputCount, frames);
        else
            playFile(outputs, outputCount, frames);
    }

private:
    static constexpr int partFrames = 256;

    void playFile(float* const* outputs, int outputCount, int frames)
    {
        std::array<float*, FileStream::maxChannels> file{};
        for (std::size_t c = 0; c < file.size(); ++c)
            file[c] = m_file[c].data();
        std::array<float*, AudioDevice::maxOutputs> parts{};
        for (int done = 0; done < frames; done += partFrames) {
            const int count = std::min(partFrames, frames - done);
            for (int c = 0; c < outputCount; ++c)
                parts[static_cast<std::size_t>(c)] = outputs[c] + done;
            m_stream.read(file.data(), count);
            m_equalizer.process(file.data(), m_stream.channels(), parts.data(), outputCount, count);
        }
    }

    AudioCallback& m_equalizer;
    FileStream& m_stream;
    bool m_live = false;
    std::array<std::array<float, partFrames>, FileStream::maxChannels> m_file{};
};

AudioSession::AudioSession(AudioCallback& equalizer, QObject* parent)
    : QObject(parent)
    , m_player(std::make_unique<Player>(equalizer, m_stream))
{
    m_watch.setInterval(watchInterval);
    connect(&m_watch, &QTimer::timeout, this, &AudioSession::watch);
}

AudioSession::~AudioSession() { halt(); }

bool AudioSession::openFile(const QString& file)
{
    stop();
    const QString error = m_stream.open(file);
    m_file = error.isEmpty() ? file : QString();
    m_frame = 0;
    Q_EMIT fileChanged(m_file);
    if (!error.isEmpty())
        return fail(error);
    m_error.clear();
    return true;
}

double AudioSession::duration() const
{
    return m_stream.length() >= 0 ? double(m_stream.length()) / m_stream.rate() : -1.0;
}

void AudioSession::setDevice(const AudioDevice::Settings& settings) { m_settings = settings; }

void AudioSession::setLooping(bool looping)
{
    if (m_looping == looping)
        return;
    m_looping = looping;
    if (!isStopped() && !m_settings.live)
        setPosition(position());
}

bool AudioSession::play()
{
    if (!isStopped())
        return true;
    const QString error = start();
    if (!error.isEmpty())
        return fail(error);
    m_error.clear();
    setState(State::Playing);
    return true;
}

QString AudioSession::start()
{
    if (!m_settings.live && !m_stream.isOpen())
        return QStringLiteral("There is no sound file to play.");
    const QString error = m_device.open(m_settings, m_settings.live ? 0 : m_stream.rate());
    if (!error.isEmpty())
        return error;
    m_player->prepare(m_device.rate(), m_settings.live);
    if (!m_settings.live)
        m_stream.start(m_frame == m_stream.length() ? 0 : m_frame, m_device.rate(), m_looping);
    const QString refusal = m_device.start(m_player.get());
    if (!refusal.isEmpty())
        return refusal;
    m_calls = 0;
    m_sinceCall.start();
    m_watch.start();
    return QString();
}

void AudioSession::stop()
{
    if (isStopped())
        return;
    halt();
    m_frame = m_settings.live ? 0 : m_stream.position();
    setState(State::Stopped);
}

void AudioSession::halt()
{
    m_watch.stop();
    m_device.close();
    m_stream.stop();
}

double AudioSession::position() const
{
    if (m_settings.live || !m_stream.isOpen())
        return 0.0;
    const std::int64_t frame = isStopped() ? m_frame : m_stream.position();
    return double(frame) / m_stream.rate();
}

void AudioSession::setPosition(double seconds)
{
    if (!m_stream.isOpen() || m_settings.live)
        return;
    const bool playing = !isStopped();
    if (playing)
        halt();
    const std::int64_t last = m_stream.length() >= 0 ? m_stream.length() : SF_COUNT_MAX;
    const double frame = std::max(std::round(seconds * m_stream.rate()), 0.0);
    m_frame = frame < double(last) ? static_cast<std::int64_t>(frame) : last;
    const QString error = playing ? start() : QString();
    Q_EMIT positionChanged(position());
    if (!error.isEmpty()) {
        setState(State::Stopped);
        fail(error);
    }
}

int AudioSession::expectedRate() const
{
    return AudioDevice::rateFor(m_settings, m_settings.live ? 0 : m_stream.rate());
}

qint64 AudioSession::underruns() const
{
    return m_device.underruns() + (m_settings.live ? 0 : m_stream.underruns());
}

void AudioSession::watch()
{
    QString error = m_device.error();
    const bool ended = !m_settings.live && m_stream.hasEnded();
    if (error.isEmpty() && ended)
        error = m_stream.error();
    if (error.isEmpty() && !ended) {
        watchCalls();
        Q_EMIT positionChanged(position());
        return;
    }
    stop();
    if (!error.isEmpty()) {
        fail(error);
        return;
    }
    m_frame = 0;
    Q_EMIT positionChanged(0.0);
    Q_EMIT finished();
}

// A sound server can hang without a word, and go on later.
void AudioSession::watchCalls()
{
    const std::int64_t calls = m_device.calls();
    if (calls != m_calls) {
        m_calls = calls;
        m_sinceCall.start();
        if (m_state == State::Stalled) {
            m_error.clear();
            setState(State::Playing);
        }
    } else if (m_state == State::Playing && m_sinceCall.hasExpired(m_patience)) {
        setState(State::Stalled);
        tell(QStringLiteral("The sound device %1 takes no sound at the moment.")
                 .arg(m_device.name()));
    }
}

bool AudioSession::fail(const QString& error)
{
    halt();
    tell(error);
    return false;
}

void AudioSession::tell(const QString& error)
{
    m_error = error;
    Q_EMIT failed(error);
}

void AudioSession::setState(State state)
{
    m_state = state;
    Q_EMIT stateChanged(state);
}

#include "moc_AudioSession.cpp"
