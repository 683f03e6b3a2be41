// SPDX-License-Identifier: GPL-3.0-or-later
// soak_mixer LIBRARY [MINUTES] [SEED]: plays with eight editors open while settings are changed at
// random and the sound server has changes of its block size, xruns, hangs and crashes. Fails where
// the sound does not come back, or memory, threads or open files become more and more.
#include "engine/MixBus.h"
#include "host/audio/AudioSession.h"
#include "host/audio/SystemAudioDevice.h"
#include "host/model/SettingsPublisher.h"
#include "host/window/EditorWindow.h"
#include "host/window/HostTheme.h"
#include "host/window/Mixer.h"
#include "host/window/MixerWindow.h"
#include "parameters/ParameterTable.h"
#include "tests/host/audio/JackServer.h"
#include "tests/host/audio/SoundFiles.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QPixmapCache>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include <malloc.h>

namespace {

/// What may not grow; but for the resident memory, which is also what the allocator keeps in store.
struct Usage
{
    int kilobytes = 0; ///< given out by the allocator
    int resident = 0;  ///< in kilobytes
    int threads = 0;
    int files = 0;
};

int statusNumber(const char* name)
{
    for (const QByteArray& line :
         SoundFiles::bytesOf(QStringLiteral("/proc/self/status")).split('\n')) {
        if (line.startsWith(name))
            return line.mid(static_cast<int>(qstrlen(name)))
                .simplified()
                .split(' ')
                .first()
                .toInt();
    }
    return 0;
}

Usage usage()
{
    const QDir files(QStringLiteral("/proc/self/fd"));
    const struct mallinfo2 heap = ::mallinfo2();
    return {static_cast<int>((heap.uordblks + heap.hblkhd) / 1024), statusNumber("VmRSS:"),
            statusNumber("Threads:"),
            static_cast<int>(files.entryList(QDir::Files | QDir::System).size())};
}

bool isInToolBar(const QWidget& widget)
{
    const QWidget* parent = &widget;
    while (parent && !qobject_cast<const QToolBar*>(parent))
        parent = parent->parentWidget();
    return parent != nullptr;
}

void print(double minutes, int rounds, const Usage& used)
{
    std::printf("%6.1f min  %4d rounds  %7d kB  (%7d kB resident)  %3d threads  %4d files\n",
                minutes, rounds, used.kilobytes, used.resident, used.threads, used.files);
    std::fflush(stdout);
}

} // namespace

class Soak
{
public:
    Soak(const QString& library, std::uint32_t seed);

    /// Lets the server live and die once, and measures before the next one comes.
    Usage round();

private:
    using State = AudioSession::State;

    int random(int count) { return std::uniform_int_distribution(0, count - 1)(m_random); }
    static void await(const char* what, const std::function<bool()>& condition);
    void awaitSound();
    void fillCaches();
    static void emptyStylesCache();
    void startServer();
    void edit();
    void disturb();
    void changeBlock();
    void hang();
    void seek();
    void stopAndPlay();
    void reopenAnEditor();
    void loseServer();

    std::mt19937 m_random;
    QTemporaryDir m_folder;
    Mixer m_mixer;
    MixBus m_bus;
    SettingsPublisher m_publisher{m_mixer.mixerModel, m_bus};
    AudioSession m_session{m_bus, std::make_unique<SystemAudioDevice>(), std::chrono::seconds(1)};
    std::unique_ptr<MixerWindow> m_window;
    std::unique_ptr<JackServer> m_server;
    std::unique_ptr<JackEars> m_ears;
};

Soak::Soak(const QString& library, std::uint32_t seed)
    : m_random(seed)
{
    const Status loaded = m_mixer.library.load(library);
    if (!loaded.isOk())
        throw std::runtime_error(loaded.error().toStdString());
    const QString file = m_folder.filePath(QStringLiteral("noise.wav"));
    SoundFiles::write(file, {SF_FORMAT_WAV | SF_FORMAT_FLOAT, JackServer::rate, 2,
                             SoundFiles::noise(10 * JackServer::rate)});
    m_window = std::make_unique<MixerWindow>(m_mixer, EditorSettings());
    m_mixer.mixerModel.setTransport(&m_session);
    m_window->show();
    for (int channel = 0; channel < defaultChannelCount; ++channel) {
        m_mixer.memory.setStrip(channel, StripParameter::Stereo, 0);
        m_mixer.mixerModel.feed(channel, false);
        m_window->openEditor(channel, false);
    }
    QObject::connect(&m_session, &AudioSession::starting, &m_publisher,
                     &SettingsPublisher::publish);
    m_session.setLooping(true);
    m_session.setDevice({QStringLiteral("jack:ears"), 0, 0, false});
    if (!m_session.openFile(file).isOk())
        throw std::runtime_error("The file cannot be played.");
    fillCaches();
}

// Every position of every knob once, so that their pictures' bounded cache does not fill up later.
void Soak::fillCaches()
{
    for (std::size_t index = 0; index < parameterCount; ++index) {
        int minimum = 0;
        int maximum = 0;
        m_mixer.memory.getRange(parameterId(index), 0, &minimum, &maximum);
        for (int value = minimum; value <= maximum; ++value) {
            m_mixer.memory.setValue(parameterId(index), 0, value, 0, 0, 1);
            QCoreApplication::processEvents();
        }
    }
}

// What the style has drawn is kept for each palette, of which every new editor has some, up to 10
// MB, which are not reached before the judgement.
void Soak::emptyStylesCache() { QPixmapCache::clear(); }

void Soak::await(const char* what, const std::function<bool()>& condition)
{
    if (!QTest::qWaitFor(condition, 30000))
        throw std::runtime_error(std::string("In vain waited for: ") + what);
}

void Soak::awaitSound()
{
    await("playing", [this] { return m_session.state() == State::Playing; });
    const std::size_t heard = m_ears->heard();
    const std::int64_t frames = m_ears->frames();
    await("sound", [&] { return m_ears->heard() > heard || m_ears->frames() > frames + 480000; });
    if (m_ears->heard() == 0)
        throw std::runtime_error("There is silence.");
}

void Soak::startServer()
{
    m_server = std::make_unique<JackServer>();
    if (!m_server->isRunning())
        throw std::runtime_error("The server does not start: " +
                                 m_server->errorText().toStdString());
    m_ears = std::make_unique<JackEars>("ears");
}

Usage Soak::round()
{
    startServer();
    if (m_session.state() == State::Stopped && !m_session.play().isOk())
        throw std::runtime_error(m_session.error().toStdString());
    awaitSound();
    for (int i = 0; i < 200; ++i) {
        edit();
        if (random(40) == 0)
            disturb();
        QTest::qWait(5);
    }
    loseServer();
    emptyStylesCache();
    Usage least = usage();
    for (int i = 0; i < 5; ++i) { // trying the device again takes a thread for a moment
        QTest::qWait(20);
        const Usage now = usage();
        least = {std::min(least.kilobytes, now.kilobytes), std::min(least.resident, now.resident),
                 std::min(least.threads, now.threads), std::min(least.files, now.files)};
    }
    return least;
}

// Faders stay as they are, since silence is what is listened for, and so does the zoom: each of its
// steps fills the bounded cache of pictures with others, which would look like growth.
void Soak::edit()
{
    const auto channel = static_cast<unsigned short>(random(defaultChannelCount));
    const unsigned short parameter =
        parameterId(static_cast<std::size_t>(random(static_cast<int>(parameterCount))));
    int minimum = 0;
    int maximum = 0;
    m_mixer.memory.getRange(parameter, channel, &minimum, &maximum);
    m_mixer.memory.setValue(parameter, channel, minimum + random(maximum - minimum + 1), 0, 0, 1);
    const QList<EditorWindow*> editors = m_window->editors();
    QWidget* editor = editors.at(random(static_cast<int>(editors.size())));
    const QPoint position(random(editor->width()), random(editor->height()));
    QWidget* child = editor->childAt(position);
    if (child && !isInToolBar(*child)) {
        const QPoint local = child->mapFrom(editor, position);
        QWheelEvent wheel(local, child->mapToGlobal(local), QPoint(),
                          QPoint(0, random(2) == 0 ? 120 : -120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(child, &wheel);
    }
}

void Soak::disturb()
{
    const std::array<void (Soak::*)(), 6> disturbances = {
        &Soak::changeBlock, &Soak::hang,           &Soak::seek,
        &Soak::stopAndPlay, &Soak::reopenAnEditor, &Soak::changeBlock};
    (this->*disturbances[static_cast<std::size_t>(random(6))])();
    awaitSound();
}

void Soak::changeBlock()
{
    m_ears->changeBlock(64 << random(6));
    m_ears->dawdle();
}

void Soak::hang()
{
    m_server->freeze();
    await("hanging", [this] { return m_session.state() == State::Stalled; });
    m_server->thaw();
}

void Soak::seek() { m_session.setPosition(random(10)); }

void Soak::stopAndPlay()
{
    m_session.stop();
    static_cast<void>(m_session.play()); // awaitSound() notices
}

void Soak::reopenAnEditor()
{
    const int channel = random(defaultChannelCount);
    m_window->openEditor(channel, false)->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_window->openEditor(channel, false);
}

void Soak::loseServer()
{
    if (random(2) == 0)
        m_server->kill();
    m_server.reset();
    m_ears.reset();
    if (random(4) == 0)
        m_session.stop();
    else
        await("waiting", [this] { return m_session.state() == State::Waiting; });
}

namespace {

int highest(const std::vector<Usage>& used, std::size_t first, std::size_t last, int Usage::*what)
{
    int most = 0;
    for (std::size_t i = first; i < last; ++i)
        most = std::max(most, used[i].*what);
    return most;
}

// The last third beside the middle one; the first one fills caches and the undo steps.
bool isFlat(const std::vector<Usage>& used)
{
    constexpr int allowedKilobytes = 4096;
    const std::size_t third = used.size() / 3;
    const auto growth = [&](int Usage::*what) {
        return highest(used, 2 * third, used.size(), what) - highest(used, third, 2 * third, what);
    };
    std::printf("growth: %d kB, %d threads, %d files\n", growth(&Usage::kilobytes),
                growth(&Usage::threads), growth(&Usage::files));
    return third > 0 && growth(&Usage::kilobytes) <= allowedKilobytes &&
           growth(&Usage::threads) <= 0 && growth(&Usage::files) <= 0;
}

bool soak(const QString& library, double minutes, std::uint32_t seed)
{
    Soak mixer(library, seed);
    std::vector<Usage> used;
    QElapsedTimer clock;
    clock.start();
    const auto elapsed = [&clock] { return double(clock.elapsed()) / 60000.0; };
    while (elapsed() < minutes) {
        used.push_back(mixer.round());
        if (used.size() % 10 == 1)
            print(elapsed(), static_cast<int>(used.size()), used.back());
    }
    print(elapsed(), static_cast<int>(used.size()), used.back());
    return isFlat(used);
}

} // namespace

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: soak_mixer LIBRARY [MINUTES] [SEED]\n");
        return 2;
    }
    applyHostTheme();
    try {
        const double minutes = argc > 2 ? std::atof(argv[2]) : 30.0;
        const auto seed = static_cast<std::uint32_t>(argc > 3 ? std::atoi(argv[3]) : 1);
        const bool flat = soak(QString::fromLocal8Bit(argv[1]), minutes, seed);
        std::printf(flat ? "passed\n" : "FAILED: something grows\n");
        return flat ? 0 : 1;
    } catch (const std::exception& error) {
        std::printf("FAILED: %s\n", error.what());
        return 1;
    }
}
