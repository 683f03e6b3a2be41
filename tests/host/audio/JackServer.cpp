// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/host/audio/JackServer.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLockFile>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <memory>
#include <thread>

namespace {

constexpr std::size_t maxFrames = 60 * JackServer::rate;
constexpr int patience = 20000; // ms
constexpr int programs = 3;

// A server that was killed keeps one of JACK's eight places until one of the same name comes. The
// programs that run at the same time therefore share a few names, wherever they were built.
QString programName()
{
    static std::unique_ptr<QLockFile> lock;
    for (int i = 0; !lock; i = (i + 1) % programs) {
        const QString name = QStringLiteral("zolta-test-%1.lock").arg(i);
        auto candidate = std::make_unique<QLockFile>(QDir::temp().filePath(name));
        candidate->setStaleLockTime(0);
        if (candidate->tryLock(100) || candidate->error() != QLockFile::LockFailedError)
            lock = std::move(candidate);
    }
    return QFileInfo(lock->fileName()).completeBaseName();
}

jack_client_t* openClient(const char* name)
{
    jack_set_error_function([](const char*) {});
    jack_set_info_function([](const char*) {});
    const auto options = static_cast<jack_options_t>(JackNoStartServer | JackUseExactName);
    return jack_client_open(name, options, nullptr);
}

} // namespace

JackServer::JackServer(Role role, int ownRate)
    : m_isDefault(role == Role::Default)
    , m_name(programName())
{
    if (m_isDefault)
        qputenv("JACK_DEFAULT_SERVER", m_name.toLocal8Bit());
    else
        m_name += QStringLiteral("-2");
    qputenv("JACK_NO_START_SERVER", "1");
    qputenv("JACK_NO_AUDIO_RESERVATION", "1");
    qunsetenv("JACK_PROMISCUOUS_SERVER");
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.start(QStringLiteral("jackd"),
                    {QStringLiteral("--no-realtime"), QStringLiteral("--sync"),
                     QStringLiteral("--name"), m_name, QStringLiteral("-d"),
                     QStringLiteral("dummy"), QStringLiteral("-r"), QString::number(ownRate),
                     QStringLiteral("-p"), QString::number(block)});
}

JackServer::~JackServer()
{
    m_process.terminate();
    if (!m_process.waitForFinished(patience))
        kill();
}

// The library serves one server a process, so that another program has to ask the second one.
bool JackServer::isRunning()
{
    QElapsedTimer clock;
    clock.start();
    while (m_process.state() != QProcess::NotRunning && clock.elapsed() < patience) {
        if (answers())
            return true;
        m_process.waitForFinished(50);
    }
    return false;
}

// Within a process the library serves one server only.
bool JackServer::answers() const
{
    if (!m_isDefault) {
        QProcess other;
        other.start(QStringLiteral("jack_wait"),
                    {QStringLiteral("--server"), m_name, QStringLiteral("--check")});
        other.waitForFinished(patience);
        return other.readAllStandardOutput().trimmed() == "running";
    }
    jack_client_t* client = openClient("probe");
    if (client)
        jack_client_close(client);
    return client != nullptr;
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

JackEars::JackEars(const char* name, std::vector<float> given)
    : m_client(openClient(name))
    , m_samples(2, std::vector<float>(maxFrames))
    , m_given(std::move(given))
{
    if (!m_client)
        return;
    const auto add = [this](const char* port, JackPortFlags flag) {
        return jack_port_register(m_client, port, JACK_DEFAULT_AUDIO_TYPE, flag, 0);
    };
    for (const char* port : {"in_1", "in_2"})
        m_ins.push_back(add(port, JackPortIsInput));
    for (const char* port : {"out_1", "out_2", "out_3", "out_4"})
        m_outs.push_back(add(port, JackPortIsOutput));
    jack_set_process_callback(m_client, &JackEars::process, this);
    jack_set_xrun_callback(
        m_client, [](void* ears) { return ++static_cast<JackEars*>(ears)->m_xruns, 0; }, this);
    jack_activate(m_client);
}

JackEars::~JackEars()
{
    if (m_client)
        jack_client_close(m_client);
}

std::vector<float> JackEars::channel(int index) const
{
    const std::vector<float>& samples = m_samples[static_cast<std::size_t>(index)];
    return {samples.begin(), samples.begin() + static_cast<std::ptrdiff_t>(heard())};
}

bool JackEars::hears(int index, std::size_t count, const std::vector<float>& given,
                     float factor) const
{
    const std::size_t end = heard();
    if (end < count)
        return false;
    const float* last = m_samples[static_cast<std::size_t>(index)].data() + (end - count);
    for (std::size_t start = 0; start < given.size(); ++start) {
        std::size_t i = 0;
        while (i < count && std::abs(last[i] - factor * given[(start + i) % given.size()]) <= 1e-6F)
            ++i;
        if (i == count)
            return true;
    }
    return false;
}

int JackEars::process(jack_nframes_t frames, void* user)
{
    auto* ears = static_cast<JackEars*>(user);
    if (ears->m_dawdling.exchange(false))
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    ears->give(frames);
    ears->hear(frames);
    ears->m_frames += frames;
    return 0;
}

void JackEars::give(jack_nframes_t frames)
{
    float part = 0.0F;
    for (jack_port_t* port : m_outs) {
        ++part;
        auto* buffer = static_cast<float*>(jack_port_get_buffer(port, frames));
        for (jack_nframes_t i = 0; i < frames; ++i)
            buffer[i] =
                m_given.empty() ? 0.0F : m_given[(m_givenPosition + i) % m_given.size()] / part;
    }
    m_givenPosition += frames;
}

void JackEars::hear(jack_nframes_t frames)
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
