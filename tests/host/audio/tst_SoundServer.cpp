// SPDX-License-Identifier: GPL-3.0-or-later
// What a session makes of all that can happen to the sound server that it plays on.
#include "engine/MixBus.h"
#include "host/audio/AudioSession.h"
#include "host/audio/SystemAudioDevice.h"
#include "tests/host/audio/JackServer.h"
#include "tests/host/audio/SoundFiles.h"
#include "tests/support/TestObject.h"

#include <QSignalSpy>
#include <QTemporaryDir>

#include <functional>
#include <memory>

class tst_SoundServer : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void happens_data();
    void happens();
    void anotherRateIsPlayedAt();
    void blockChangesAndCrashes_data();
    void blockChangesAndCrashes();

private:
    enum class Does { Idle, PlaysFile, PlaysLive };
    using Incident = void (tst_SoundServer::*)();

    bool playing() const { return m_does != Does::Idle; }
    void comesLate();
    void changesTheBlock();
    void xruns();
    void endsAndComesBack();
    void crashesAndComesBack();
    void crashesAndIsStoppedByTheUser();
    void hangsForAWhile();
    void hasACompanion();

    void startServer(int rate = JackServer::rate);
    void openEars();
    void loseServer(const std::function<void()>& lose);
    void play();
    void reaches(AudioSession::State state);
    void hearsOn(std::size_t count = 4000);

    QTemporaryDir m_folder;
    std::vector<float> m_noise;
    Does m_does = Does::Idle;
    std::unique_ptr<JackServer> m_server;
    std::unique_ptr<JackEars> m_ears;
    std::unique_ptr<MixBus> m_bus;
    std::unique_ptr<AudioSession> m_session;
};

Q_DECLARE_METATYPE(void (tst_SoundServer::*)())

// The file is the noise on the left and half of it on the right.
void tst_SoundServer::initTestCase()
{
    SoundFiles::Sound sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, JackServer::rate, 2, {}};
    for (const double sample : SoundFiles::noise(JackServer::rate)) {
        m_noise.push_back(static_cast<float>(sample));
        sound.samples.push_back(double(m_noise.back()));
        sound.samples.push_back(double(m_noise.back()) / 2.0);
    }
    SoundFiles::write(m_folder.filePath(QStringLiteral("noise.wav")), sound);
}

void tst_SoundServer::init()
{
    TestObject::init();
    if (m_server)
        openEars();
    else
        startServer();
    m_bus = std::make_unique<MixBus>();
    MixBus::Strips strips;
    for (const int side : {0, 1}) {
        for (const auto source : {MixBus::Source::File, MixBus::Source::Input}) {
            const std::size_t strip =
                static_cast<std::size_t>(side) + (source == MixBus::Source::Input ? 2 : 0);
            strips[strip] = {{source, side}, side == 0 ? 1.0 : 0.0, side == 1 ? 1.0 : 0.0};
        }
    }
    m_bus->publish(strips);
    m_session = std::make_unique<AudioSession>(*m_bus, std::make_unique<SystemAudioDevice>(),
                                               std::chrono::seconds(1));
}

void tst_SoundServer::cleanup()
{
    m_server->thaw();
    m_session.reset();
    m_ears.reset();
    if (QTest::currentTestFailed())
        m_server.reset();
}

void tst_SoundServer::startServer(int rate)
{
    m_ears.reset(); // the library crashes where a client is older than the server
    m_server.reset();
    m_server = std::make_unique<JackServer>(JackServer::Role::Default, rate);
    QVERIFY2(m_server->isRunning(), qPrintable(m_server->errorText()));
    openEars();
}

void tst_SoundServer::openEars()
{
    m_ears = std::make_unique<JackEars>("ears", m_noise);
    QVERIFY(m_ears->isOpen());
}

// The ears go with the server.
void tst_SoundServer::loseServer(const std::function<void()>& lose)
{
    lose();
    m_ears.reset();
    if (!playing())
        return;
    reaches(AudioSession::State::Waiting);
    QCOMPARE(m_session->error(),
             QStringLiteral("The sound device jack:ears was disconnected. It plays on as soon as "
                            "it is back."));
}

void tst_SoundServer::play()
{
    m_session->setLooping(true);
    if (m_does != Does::PlaysLive)
        QVERIFY(m_session->openFile(m_folder.filePath(QStringLiteral("noise.wav"))).isOk());
    m_session->setDevice({QStringLiteral("ears"), 0, 0, m_does == Does::PlaysLive});
    const Status status = m_session->play();
    QVERIFY2(status.isOk(), qPrintable(status.error()));
}

void tst_SoundServer::reaches(AudioSession::State state)
{
    QTRY_COMPARE_WITH_TIMEOUT(m_session->state(), state, 30000);
}

// So much more sound without a gap.
void tst_SoundServer::hearsOn(std::size_t count)
{
    reaches(AudioSession::State::Playing);
    QCOMPARE(m_session->error(), QString());
    const std::size_t before = m_ears->heard();
    QTRY_VERIFY_WITH_TIMEOUT(m_ears->heard() >= before + count + 4096, 30000);
    QVERIFY(m_ears->hears(0, count, m_noise));
    QVERIFY(m_ears->hears(1, count, m_noise, 0.5F));
}

void tst_SoundServer::comesLate()
{
    m_ears.reset();
    m_server.reset();
    m_session->setDevice({QStringLiteral("ears"), 0, 0, true});
    if (playing()) {
        QVERIFY(!m_session->play().isOk());
        QCOMPARE(m_session->state(), AudioSession::State::Stopped);
    }
    startServer();
    if (playing())
        play();
}

void tst_SoundServer::changesTheBlock()
{
    for (const int block : {1024, 64, 2 * JackServer::block, JackServer::block}) {
        m_ears->changeBlock(block);
        if (playing())
            hearsOn();
    }
}

void tst_SoundServer::xruns()
{
    m_ears->dawdle();
    QTRY_VERIFY_WITH_TIMEOUT(m_ears->xruns() > 0, 30000);
}

void tst_SoundServer::endsAndComesBack()
{
    loseServer([this] { m_server.reset(); });
    startServer();
}

void tst_SoundServer::crashesAndComesBack()
{
    loseServer([this] { m_server->kill(); });
    startServer();
}

void tst_SoundServer::crashesAndIsStoppedByTheUser()
{
    loseServer([this] { m_server->kill(); });
    m_session->stop();
    startServer();
    QTRY_VERIFY_WITH_TIMEOUT(m_ears->frames() > JackServer::rate, 30000);
    QCOMPARE(m_session->state(), AudioSession::State::Stopped);
    QCOMPARE(m_ears->heard(), std::size_t(0));
    if (playing())
        play();
}

void tst_SoundServer::hangsForAWhile()
{
    m_server->freeze();
    if (playing()) {
        reaches(AudioSession::State::Stalled);
        QCOMPARE(m_session->error(),
                 QStringLiteral("The sound device jack:ears is not responding."));
    }
    m_server->thaw();
}

void tst_SoundServer::hasACompanion()
{
    JackServer companion(JackServer::Role::Second);
    QVERIFY2(companion.isRunning(), qPrintable(companion.errorText()));
    companion.kill();
}

void tst_SoundServer::happens_data()
{
    QTest::addColumn<Incident>("incident");
    QTest::addColumn<int>("does");
    const std::initializer_list<std::pair<const char*, Incident>> incidents = {
        {"comes late", &tst_SoundServer::comesLate},
        {"changes its block", &tst_SoundServer::changesTheBlock},
        {"has an xrun", &tst_SoundServer::xruns},
        {"ends and comes back", &tst_SoundServer::endsAndComesBack},
        {"crashes and comes back", &tst_SoundServer::crashesAndComesBack},
        {"crashes, and the user stops", &tst_SoundServer::crashesAndIsStoppedByTheUser},
        {"hangs for a while", &tst_SoundServer::hangsForAWhile},
        {"has a second one beside it", &tst_SoundServer::hasACompanion}};
    const std::initializer_list<std::pair<const char*, Does>> states = {
        {"idle", Does::Idle}, {"file", Does::PlaysFile}, {"live", Does::PlaysLive}};
    for (const auto& [name, function] : incidents) {
        for (const auto& [state, does] : states)
            QTest::addRow("%s, %s", name, state) << function << int(does);
    }
}

// Afterwards there is sound: by itself where there was some before, or once there is to be some.
void tst_SoundServer::happens()
{
    QFETCH(const Incident, incident);
    QFETCH(const int, does);
    m_does = static_cast<Does>(does);
    if (playing() && incident != &tst_SoundServer::comesLate) {
        play();
        hearsOn();
    }
    (this->*incident)();
    if (QTest::currentTestFailed())
        return;
    if (!playing())
        play();
    hearsOn();
    m_session->stop();
}

void tst_SoundServer::anotherRateIsPlayedAt()
{
    m_does = Does::PlaysFile;
    play();
    hearsOn();
    loseServer([this] { m_server->kill(); });
    startServer(44100);
    reaches(AudioSession::State::Playing);
    QTRY_VERIFY_WITH_TIMEOUT(m_ears->heard() > 8000, 30000);
    QCOMPARE(m_session->expectedRate(), 44100);
    QVERIFY(!m_ears->hears(0, 100, m_noise));
    m_session->stop();
    startServer();
}

void tst_SoundServer::blockChangesAndCrashes_data()
{
    QTest::addColumn<bool>("hearsTheChange");
    QTest::addColumn<bool>("hangs");
    QTest::newRow("at once") << false << false;
    QTest::newRow("later") << true << false;
    QTest::newRow("hanging") << false << true;
}

void tst_SoundServer::blockChangesAndCrashes()
{
    QFETCH(const bool, hearsTheChange);
    QFETCH(const bool, hangs);
    m_does = Does::PlaysFile;
    play();
    hearsOn();
    m_ears->changeBlock(2 * JackServer::block);
    if (hearsTheChange)
        hearsOn();
    if (hangs) {
        m_server->freeze();
        reaches(AudioSession::State::Stalled);
    }
    loseServer([this] { m_server->kill(); });
    startServer();
    hearsOn();
}

QTEST_GUILESS_MAIN(tst_SoundServer)

#include "tst_SoundServer.moc"
