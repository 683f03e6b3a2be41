// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/host/audio/JackServer.h"

#include "host/audio/AudioDevices.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <csignal>

namespace {

constexpr std::size_t maxFrames = 60 * JackServer::rate;
constexpr int patience = 20000; // ms

jack_client_t* openClient(const char* name)
{
    AudioDevices::silenceLibraries();
    jack_status_t status = {};
    const auto options = static_cast<jack_options_t>(JackNoStartServer | JackUseExactName);
    return jack_client_open(name, options, &status);
}

} // namespace

JackServer::JackServer()
{
    // Servers that were killed keep one of JACK's eight places until one of the same name comes.
    const QByteArray program = QCoreApplication::applicationFilePath().toUtf8();
    const QString name = QStringLiteral("zolta-test-%1").arg(qHash(program, 0), 0, 16);
    qputenv("JACK_DEFAULT_SERVER", name.toLocal8Bit());
    qputenv("JACK_NO_START_SERVER", "1");
    qputenv("JACK_NO_AUDIO_RESERVATION", "1");
    qunsetenv("JACK_PROMISCUOUS_SERVER");
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.start(QStringLiteral("jackd"),
                    {QStringLiteral("--no-realtime"), QStringLiteral("--sync"),
                     QStringLiteral("--name"), name, QStringLiteral("-d"), QStringLiteral("dummy"),
                     QStringLiteral("-r"), QString::number(rate), QStringLiteral("-p"),
                     QString::number(block)});
}

JackServer::~JackServer()
{
    m_process.terminate();
    if (!m_process.waitForFinished(patience))
        kill();
}

bool JackServer::isRunning()
{
    QElapsedTimer clock;
    clock.start();
    while (m_process.state() != QProcess::NotRunning && clock.elapsed() < patience) {
        if (jack_client_t* client = openClient("probe")) {
            jack_client_close(client);
            return true;
        }
        m_process.waitForFinished(50);
    }
    return false;
}

QString JackServer::errorText() const
{
    return m_process.errorString() + QLatin1Char(' ') +
           QString::fromLocal8Bit(const_cast<QProcess&>(m_process).readAll());
}

void JackServer::kill()
{
    m_process.kill();
    m_process.waitForFinished(patience);
}

void JackServer::freeze() { send(SIGSTOP); }

void JackServer::thaw() { send(SIGCONT); }

// A server that does not run has the process number 0, which stands for the whole group of the
// test.
void JackServer::send(int signal)
{
    if (const qint64 process = m_process.processId(); process > 0)
        ::kill(static_cast<pid_t>(process), signal);
}

JackDevice::JackDevice(const char* name)
    : m_client(openClient(name))
    , m_samples(2, std::vector<float>(maxFrames))
{
    if (!m_client)
        return;
    for (const char* port : {"in_1", "in_2"})
        m_ins.push_back(
            jack_port_register(m_client, port, JACK_DEFAULT_AUDIO_TYPE, JackPortIsInput, 0));
    for (const char* port : {"out_1", "out_2", "out_3", "out_4"})
        m_outs.push_back(
            jack_port_register(m_client, port, JACK_DEFAULT_AUDIO_TYPE, JackPortIsOutput, 0));
    jack_set_process_callback(m_client, &JackDevice::process, this);
    jack_on_shutdown(
        m_client, [](void* device) { static_cast<JackDevice*>(device)->m_lost = true; }, this);
    jack_activate(m_client);
}

JackDevice::~JackDevice()
{
    if (m_client && !m_lost)
        jack_client_close(m_client);
}

std::vector<float> JackDevice::channel(int index) const
{
    const std::vector<float>& samples = m_samples[static_cast<std::size_t>(index)];
    return {samples.begin(), samples.begin() + static_cast<std::ptrdiff_t>(heard())};
}

int JackDevice::process(jack_nframes_t frames, void* user)
{
    auto* device = static_cast<JackDevice*>(user);
    float part = 0.0F;
    for (jack_port_t* port : device->m_outs) {
        ++part;
        auto* buffer = static_cast<float*>(jack_port_get_buffer(port, frames));
        for (jack_nframes_t i = 0; i < frames; ++i)
            buffer[i] =
                device->m_given.empty()
                    ? 0.0F
                    : device->m_given[(device->m_givenPosition + i) % device->m_given.size()] /
                          part;
    }
    device->m_givenPosition += frames;
    device->hear(frames);
    return 0;
}

void JackDevice::hear(jack_nframes_t frames)
{
    const float* in[2] = {};
    for (std::size_t c = 0; c < 2; ++c)
        in[c] = static_cast<const float*>(jack_port_get_buffer(m_ins[c], frames));
    std::size_t count = m_heard.load(std::memory_order_relaxed);
    for (jack_nframes_t i = 0; i < frames && count < maxFrames; ++i) {
        if (count == 0 && in[0][i] == 0.0F && in[1][i] == 0.0F)
            continue;
        m_samples[0][count] = in[0][i];
        m_samples[1][count] = in[1][i];
        ++count;
    }
    m_heard.store(count, std::memory_order_release);
}
