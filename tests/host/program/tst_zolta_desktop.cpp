// SPDX-License-Identifier: GPL-3.0-or-later
// Runs "zolta-host --desktop" in a PipeWire of the test's own.
#include "tests/host/audio/SoundFiles.h"
#include "tests/host/desktop/PipeWireServer.h"
#include "tests/support/TestFiles.h"
#include "tests/support/TestObject.h"

#include <cmath>
#include <csignal>

using namespace Qt::StringLiterals;
using SoundFiles::Sound;

namespace {

constexpr int patience = 30000; // ms
const QString sinkName = u"zolta-desktop"_s;
const QStringList hardware = {u"phones"_s, u"speakers"_s};

} // namespace

class tst_zolta_desktop : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void equalizesWhatIsPlayed();
    void leavesNothingBehind_data();
    void leavesNothingBehind();
    void keepsItsSettings();
    void runsOnce();
    void obeysWithoutPipeWire();

private:
    std::unique_ptr<QProcess> start(const QStringList& arguments = {}) const;
    bool isReady() const { return m_server->defaultSink() == sinkName; }
    static bool end(QProcess* process);
    std::unique_ptr<SoundPlayer> play(const Sound& sound) const;
    bool isHeard(const Sound& sound, double factor) const;

    std::unique_ptr<PipeWireServer> m_server;
    std::unique_ptr<QProcess> m_program;
};

void tst_zolta_desktop::initTestCase()
{
    m_server = std::make_unique<PipeWireServer>();
    QVERIFY2(m_server->start(), qPrintable(m_server->errorText()));
}

void tst_zolta_desktop::cleanup()
{
    if (m_program) {
        m_program->kill();
        m_program->waitForFinished();
    }
    m_program.reset();
}

std::unique_ptr<QProcess> tst_zolta_desktop::start(const QStringList& arguments) const
{
    auto process = std::make_unique<QProcess>();
    PipeWireServer::prepare(process.get());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    // This platform complains about every window that cannot have the size that it asks for.
    environment.insert(u"QT_LOGGING_RULES"_s, u"default.warning=false"_s);
    process->setProcessEnvironment(environment);
    process->start(QStringLiteral(HOST_PROGRAM), QStringList{u"--desktop"_s} + arguments);
    return process;
}

bool tst_zolta_desktop::end(QProcess* process)
{
    process->terminate();
    return process->waitForFinished() && process->exitStatus() == QProcess::NormalExit &&
           process->exitCode() == 0;
}

std::unique_ptr<SoundPlayer> tst_zolta_desktop::play(const Sound& sound) const
{
    const QString file = m_server->folder() + "/played.wav"_L1;
    return std::make_unique<SoundPlayer>(SoundFiles::write(file, sound));
}

// Whether a part of a sound arrives at the speakers, multiplied by a factor.
bool tst_zolta_desktop::isHeard(const Sound& sound, double factor) const
{
    SoundRecorder recorder(*m_server, u"speakers"_s, sound.rate);
    const auto player = play(sound);
    if (!QTest::qWaitFor([&] { return player->hasEnded(); }, patience))
        return false;
    const std::vector<double> heard = SoundFiles::read(recorder.finish()).channel(0);
    const std::vector<double> played = sound.channel(0);
    const auto first = played.begin() + 20000;
    return std::search(heard.begin(), heard.end(), first, first + 10000,
                       [factor](double a, double b) { return std::abs(a - factor * b) < 1e-6; }) !=
           heard.end();
}

// The levels make the difference from the file known without an equalizer of the test's own. A
// cycle that a busy machine misses is a gap: then it is played once more.
void tst_zolta_desktop::equalizesWhatIsPlayed()
{
    m_program = start({u"--set"_s, u"fx_rackfx_prm_26=-20"_s});
    QTRY_VERIFY_WITH_TIMEOUT(isReady(), patience);
    const Sound sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 2, SoundFiles::noise(200000)};
    bool heard = false;
    for (int attempt = 0; attempt < 5 && !heard; ++attempt)
        heard = isHeard(sound, 0.1);
    QVERIFY(heard);
    QVERIFY(end(m_program.get()));
    QCOMPARE(m_program->readAllStandardError(), QByteArray());
}

void tst_zolta_desktop::leavesNothingBehind_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("terminated") << SIGTERM;
    QTest::newRow("killed") << SIGKILL;
    QTest::newRow("terminated again") << SIGTERM;
}

void tst_zolta_desktop::leavesNothingBehind()
{
    QFETCH(int, signal);
    const auto player =
        play({SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 2, SoundFiles::noise(48000 * 240)});
    m_program = start();
    QTRY_COMPARE_WITH_TIMEOUT(m_server->playersOf(sinkName), QStringList(SoundPlayer::name),
                              patience);
    ::kill(static_cast<pid_t>(m_program->processId()), signal);
    QVERIFY(m_program->waitForFinished());
    QCOMPARE(m_program->exitCode(), signal == SIGTERM ? 0 : SIGKILL);
    QTRY_COMPARE_WITH_TIMEOUT(m_server->sinks(), hardware, patience);
    QTRY_COMPARE_WITH_TIMEOUT(m_server->playersOf(u"speakers"_s), QStringList(SoundPlayer::name),
                              patience);
}

void tst_zolta_desktop::keepsItsSettings()
{
    const QString file = m_server->folder() + "/zolta-host/desktop.json"_L1;
    m_program = start({u"--set"_s, u"fx_rackfx_prm_26=-7"_s});
    QTRY_VERIFY_WITH_TIMEOUT(isReady(), patience);
    QVERIFY(end(m_program.get()));
    for (int run = 0; run < 2; ++run) {
        const QByteArray kept = TestFiles::read(file);
        QVERIFY2(kept.contains("\"Output level\": \"-7.0\""), kept.constData());
        m_program = start();
        QTRY_VERIFY_WITH_TIMEOUT(isReady(), patience);
        QVERIFY(end(m_program.get()));
    }
    QCOMPARE(TestFiles::namesIn(m_server->folder() + "/zolta-host"_L1),
             QStringList(u"desktop.json"_s));
}

void tst_zolta_desktop::runsOnce()
{
    m_program = start();
    QTRY_VERIFY_WITH_TIMEOUT(isReady(), patience);
    const auto second = start();
    QTRY_COMPARE_WITH_TIMEOUT(second->state(), QProcess::NotRunning, patience);
    QCOMPARE(second->exitCode(), 1);
    QCOMPARE(second->readAllStandardError(),
             QByteArray("zolta-host: The desktop equalizer is already running.\n"));
    QVERIFY(isReady());
    QVERIFY(end(m_program.get()));
}

void tst_zolta_desktop::obeysWithoutPipeWire()
{
    m_server->killManager();
    m_server->killServer();
    m_program = start();
    QByteArray errors;
    QTRY_VERIFY_WITH_TIMEOUT((errors += m_program->readAllStandardError()).endsWith('\n'),
                             patience);
    QVERIFY2(errors.startsWith("zolta-host: The desktop equalizer has no sound because PipeWire "
                               "is not running. "),
             errors.constData());
    QVERIFY(end(m_program.get()));
}

QTEST_GUILESS_MAIN(tst_zolta_desktop)

#include "tst_zolta_desktop.moc"
