// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop equalizer in a PipeWire of the test's own.
#include "engine/MixBus.h"
#include "host/desktop/DesktopEqualizer.h"
#include "tests/host/audio/SoundFiles.h"
#include "tests/host/desktop/PipeWireServer.h"
#include "tests/support/TestObject.h"

#include <QSignalSpy>

#include <cmath>

using namespace Qt::StringLiterals;
using SoundFiles::Sound;

namespace {

constexpr int patience = 20000; // ms
constexpr std::size_t fade = 2000;
const DesktopTimes quick{.retry = std::chrono::milliseconds(300),
                         .patience = std::chrono::milliseconds(300)};

MixBus::Strips bothInputs()
{
    MixBus::Strips strips{};
    for (const std::size_t side : {0U, 1U})
        strips[side] = {
            {MixBus::Source::Input, int(side)}, side == 0 ? 1.0 : 0.0, side == 1 ? 1.0 : 0.0};
    return strips;
}

// Every band on, of every kind, and both levels moved.
ChannelValues someValues()
{
    ChannelValues values = defaultValues();
    for (std::size_t i = 0; i < values.size(); ++i) {
        const Parameter& entry = parameterTable[i];
        values[i] = entry.maximum - entry.minimum < 3
                        ? entry.maximum
                        : entry.defaultValue + (entry.maximum - entry.defaultValue) / 5;
    }
    return values;
}

std::unique_ptr<MixBus> makeBus()
{
    auto bus = std::make_unique<MixBus>();
    bus->publish(bothInputs());
    for (const int channel : {0, 1})
        bus->publish(channel, someValues());
    return bus;
}

std::vector<float> toFloats(const std::vector<double>& samples)
{
    return {samples.begin(), samples.end()};
}

// What the bus makes of a file, left and right.
std::array<std::vector<float>, 2> equalized(const Sound& sound)
{
    std::array<std::vector<float>, 2> sides = {toFloats(sound.channel(0)),
                                               toFloats(sound.channel(1))};
    const std::array<const float*, 2> inputs = {sides[0].data(), sides[1].data()};
    const std::array<float*, 2> outputs = {sides[0].data(), sides[1].data()};
    const auto bus = makeBus();
    bus->prepare(sound.rate, true);
    bus->process(inputs, outputs, sound.frames());
    return sides;
}

// How many of the samples from \a from on are in \a heard, wherever there; 0 if they are not.
std::size_t lengthOfMatch(const std::vector<float>& expected, std::size_t from,
                          const std::vector<float>& heard)
{
    const auto first = expected.begin() + static_cast<std::ptrdiff_t>(from);
    const auto found = std::search(heard.begin(), heard.end(), first, first + 32);
    const auto ends = std::mismatch(found, heard.end(), first, expected.end());
    return static_cast<std::size_t>(ends.second - first);
}

} // namespace

class tst_DesktopEqualizer : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void playsWhatTheEngineGives_data();
    void playsWhatTheEngineGives();
    void isTheDefaultWhileItRuns_data();
    void isTheDefaultWhileItRuns();
    void movesToTheSinkThatTheUserChooses_data();
    void movesToTheSinkThatTheUserChooses();
    void followsTheRate();
    void fadesOutAtTheEnd();
    void comesBackAfterTheManager_data();
    void comesBackAfterTheManager();
    void playsOnAfterTheManagerIsReplaced();
    void comesBackAfterTheServer();
    void comesBackAfterItsRemoval();
    void saysThatThereIsNoServer();
    void saysThatThereIsNoManager();
    void waitsForASink();

private:
    void makeEqualizer();
    bool isReady() const;
    bool isPlayedTo() const;
    bool isLeft() const;
    std::unique_ptr<SoundPlayer> play(const Sound& sound);
    bool passes(int rate, int quantum, int frames);

    std::unique_ptr<PipeWireServer> m_server;
    std::unique_ptr<MixBus> m_bus;
    std::unique_ptr<DesktopEqualizer> m_equalizer;
};

void tst_DesktopEqualizer::init()
{
    TestObject::init();
    m_server = std::make_unique<PipeWireServer>();
    QVERIFY2(m_server->start(), qPrintable(m_server->errorText()));
    QCOMPARE(m_server->defaultSink(), u"speakers"_s);
    makeEqualizer();
}

void tst_DesktopEqualizer::makeEqualizer()
{
    m_equalizer.reset();
    m_bus = makeBus();
    m_equalizer = std::make_unique<DesktopEqualizer>(*m_bus, quick);
}

void tst_DesktopEqualizer::cleanup()
{
    m_equalizer.reset();
    m_bus.reset();
    m_server.reset();
}

bool tst_DesktopEqualizer::isReady() const
{
    return m_server->defaultSink() == SinkStreams::sinkName && !m_equalizer->output().isEmpty();
}

bool tst_DesktopEqualizer::isPlayedTo() const
{
    return m_server->playersOf(SinkStreams::sinkName) == QStringList(SoundPlayer::name);
}

bool tst_DesktopEqualizer::isLeft() const
{
    return m_server->sinks() == QStringList({u"phones"_s, u"speakers"_s});
}

std::unique_ptr<SoundPlayer> tst_DesktopEqualizer::play(const Sound& sound)
{
    const QString file = m_server->folder() + "/played.wav"_L1;
    return std::make_unique<SoundPlayer>(SoundFiles::write(file, sound));
}

// Whether a sound arrives bit for bit, from the end of the fade to what the player drops, which is
// less than two blocks.
bool tst_DesktopEqualizer::passes(int rate, int quantum, int frames)
{
    const Sound sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, rate, 2, SoundFiles::noise(2 * frames)};
    SoundRecorder recorder(*m_server, u"speakers"_s, rate);
    const auto player = play(sound);
    if (!QTest::qWaitFor([&] { return player->hasEnded(); }, patience))
        return false;
    const Sound heard = SoundFiles::read(recorder.finish());
    const auto expected = equalized(sound);
    for (const int side : {0, 1}) {
        const std::size_t length =
            lengthOfMatch(expected[std::size_t(side)], fade, toFloats(heard.channel(side)));
        if (length < sound.frames() - fade - 2 * static_cast<std::size_t>(quantum))
            return false;
    }
    return true;
}

void tst_DesktopEqualizer::playsWhatTheEngineGives_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("quantum");
    QTest::addColumn<int>("frames");
    QTest::addRow("48000 Hz, 1024") << 48000 << 1024 << 50000;
    QTest::addRow("44100 Hz, 1024") << 44100 << 1024 << 50000;
    QTest::addRow("48000 Hz, 2048") << 48000 << 2048 << 50000;
    QTest::addRow("48000 Hz, 256") << 48000 << 256 << 20000;
    // Cycles of 1.3 and 2.7 ms, which a machine that has other work misses.
    if (qEnvironmentVariableIsSet("ZOLTA_TEST_SMALL_QUANTA")) {
        QTest::addRow("48000 Hz, 128") << 48000 << 128 << 6000;
        QTest::addRow("48000 Hz, 64") << 48000 << 64 << 6000;
    }
}

// A cycle that a busy machine misses is a gap: then all of it is done once more.
void tst_DesktopEqualizer::playsWhatTheEngineGives()
{
    QFETCH(int, rate);
    QFETCH(int, quantum);
    QFETCH(int, frames);
    m_server->setClock(u"rate"_s, rate);
    m_server->setClock(u"quantum"_s, quantum);
    bool passed = false;
    for (int attempt = 0; attempt < 8 && !passed; ++attempt) {
        makeEqualizer();
        m_equalizer->start();
        QTRY_VERIFY_WITH_TIMEOUT(isReady(), patience);
        passed = passes(rate, quantum, frames);
    }
    QVERIFY(passed);
    QCOMPARE(m_equalizer->rate(), rate);
}

void tst_DesktopEqualizer::isTheDefaultWhileItRuns_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("output");
    QTest::newRow("no choice") << QString() << u"speakers"_s;
    QTest::newRow("the best one") << u"speakers"_s << u"speakers"_s;
    QTest::newRow("another one") << u"phones"_s << u"phones"_s;
}

void tst_DesktopEqualizer::isTheDefaultWhileItRuns()
{
    QFETCH(QString, chosen);
    QFETCH(QString, output);
    m_server->chooseSink(chosen);
    QTRY_COMPARE_WITH_TIMEOUT(m_server->defaultSink(), output, patience);
    const auto player =
        play({SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 2, SoundFiles::noise(48000 * 60)});
    QTRY_COMPARE_WITH_TIMEOUT(m_server->playersOf(output), QStringList(SoundPlayer::name),
                              patience);
    m_equalizer->start();
    QTRY_VERIFY_WITH_TIMEOUT(isPlayedTo(), patience);
    QTRY_COMPARE_WITH_TIMEOUT(m_server->playersOf(output), QStringList(u"zolta-desktop-output"_s),
                              patience);
    QTRY_COMPARE_WITH_TIMEOUT(m_equalizer->output(), "The "_L1 + output, patience);
    m_equalizer->stop();
    QTRY_VERIFY_WITH_TIMEOUT(isLeft(), patience);
    QCOMPARE(m_server->chosenSink(), chosen);
    QTRY_COMPARE_WITH_TIMEOUT(m_server->defaultSink(), output, patience);
    QTRY_COMPARE_WITH_TIMEOUT(m_server->playersOf(output), QStringList(SoundPlayer::name),
                              patience);
}

void tst_DesktopEqualizer::movesToTheSinkThatTheUserChooses_data()
{
    QTest::addColumn<bool>("isToldOfIt");
    QTest::newRow("told of it") << true;
    QTest::newRow("not told of it") << false;
}

void tst_DesktopEqualizer::movesToTheSinkThatTheUserChooses()
{
    QFETCH(bool, isToldOfIt);
    m_server->chooseSink(u"speakers"_s);
    if (!isToldOfIt)
        m_server->dropAnAnswer();
    m_equalizer->start();
    QTRY_VERIFY_WITH_TIMEOUT(isReady(), patience);
    for (const QString& sink : {u"phones"_s, u"speakers"_s, u"phones"_s}) {
        QTest::qWait(isToldOfIt ? 0 : 3 * static_cast<int>(quick.retry.count())); // no more doubt
        m_server->chooseSink(sink);
        QTRY_COMPARE_WITH_TIMEOUT(m_server->playersOf(sink), QStringList(u"zolta-desktop-output"_s),
                                  patience);
        QTRY_VERIFY_WITH_TIMEOUT(isReady(), patience);
        QTRY_COMPARE_WITH_TIMEOUT(m_equalizer->output(), "The "_L1 + sink, patience);
    }
    m_equalizer->stop();
    QCOMPARE(m_server->chosenSink(), u"phones"_s);
}

void tst_DesktopEqualizer::followsTheRate()
{
    const QSignalSpy changes(m_equalizer.get(), &DesktopEqualizer::changed);
    m_equalizer->start();
    QTRY_VERIFY_WITH_TIMEOUT(isReady(), patience);
    const auto player =
        play({SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 2, SoundFiles::noise(48000 * 60)});
    for (const int rate : {44100, 48000}) {
        m_server->setClock(u"rate"_s, rate);
        QTRY_COMPARE_WITH_TIMEOUT(m_equalizer->rate(), rate, patience);
        QVERIFY(!changes.isEmpty());
    }
    m_server->setClock(u"rate"_s, 0);
}

// Between the equalized sound and the player's own, which comes back at once, there is silence, and
// the way there has no step.
void tst_DesktopEqualizer::fadesOutAtTheEnd()
{
    m_equalizer->start();
    QTRY_VERIFY_WITH_TIMEOUT(isReady(), patience);
    for (const int channel : {0, 1})
        m_bus->publish(channel, defaultValues());
    SoundRecorder recorder(*m_server, u"speakers"_s, 48000);
    const auto player =
        play({SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 2, std::vector<double>(48000 * 60, 0.5)});
    QTRY_VERIFY_WITH_TIMEOUT(isPlayedTo(), patience);
    QTest::qWait(200);
    m_equalizer->stop();
    QTRY_COMPARE_WITH_TIMEOUT(m_server->playersOf(u"speakers"_s), QStringList(SoundPlayer::name),
                              patience);
    QTest::qWait(200);
    const std::vector<double> heard = SoundFiles::read(recorder.finish()).channel(0);
    const auto loud = std::find(heard.begin(), heard.end(), 0.5);
    const auto silent = std::find(loud, heard.end(), 0.0);
    QVERIFY(silent != heard.end());
    QVERIFY(std::is_sorted(loud, silent, std::greater<>()));
    QVERIFY(std::adjacent_find(loud, silent, [](double a, double b) { return a - b > 0.001; }) ==
            silent);
}

void tst_DesktopEqualizer::comesBackAfterTheManager_data()
{
    QTest::addColumn<int>("earlierRuns");
    QTest::addColumn<bool>("isPlaying");
    QTest::newRow("in silence") << 0 << false;
    QTest::newRow("in silence, second run") << 1 << false;
    QTest::newRow("while a program plays") << 0 << true;
    QTest::newRow("while a program plays, second run") << 1 << true;
}

// The session manager loses programs that have played under the last one.
void tst_DesktopEqualizer::comesBackAfterTheManager()
{
    QFETCH(int, earlierRuns);
    QFETCH(bool, isPlaying);
    const Sound sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 2, SoundFiles::noise(48000 * 60)};
    auto player = isPlaying ? play(sound) : nullptr;
    for (int run = 0; run <= earlierRuns; ++run) {
        m_equalizer->stop();
        m_equalizer->start();
        QTRY_VERIFY_WITH_TIMEOUT(isReady(), patience);
        QTRY_VERIFY_WITH_TIMEOUT(!isPlaying || isPlayedTo(), patience);
    }
    m_server->killManager();
    QTRY_VERIFY_WITH_TIMEOUT(m_equalizer->output().isEmpty(), patience);
    QTRY_VERIFY_WITH_TIMEOUT(m_server->playersOf(u"speakers"_s).isEmpty(), patience);
    QVERIFY(m_server->startManager());
    QTRY_VERIFY_WITH_TIMEOUT(isReady(), patience);
    QCOMPARE(m_equalizer->output(), u"The speakers"_s);
    player.reset();
    player = play(sound);
    QTRY_VERIFY_WITH_TIMEOUT(isPlayedTo(), patience);
}

// The last session manager's links go when the next one is at work already.
void tst_DesktopEqualizer::playsOnAfterTheManagerIsReplaced()
{
    const Sound sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 2, SoundFiles::noise(48000 * 60)};
    m_equalizer->start();
    for (int replaced = 0; replaced < 6; ++replaced) {
        QTRY_VERIFY_WITH_TIMEOUT(isReady(), patience);
        const auto player = play(sound);
        QTRY_VERIFY_WITH_TIMEOUT(isPlayedTo(), patience);
        QVERIFY(m_server->replaceManager());
    }
    QTRY_VERIFY_WITH_TIMEOUT(isReady(), patience);
}

// A cycle that a busy machine misses is a gap: then the server goes once more.
void tst_DesktopEqualizer::comesBackAfterTheServer()
{
    m_equalizer->start();
    QTRY_VERIFY_WITH_TIMEOUT(isReady(), patience);
    const QSignalSpy failures(m_equalizer.get(), &DesktopEqualizer::failed);
    bool passed = false;
    for (int attempt = 1; attempt <= 8 && !passed; ++attempt) {
        m_server->killServer();
        m_server->killManager();
        QTRY_COMPARE_WITH_TIMEOUT(failures.size(), attempt, patience);
        QVERIFY(m_server->startServer());
        QVERIFY(m_server->startManager());
        QTRY_VERIFY_WITH_TIMEOUT(isReady(), patience);
        QCOMPARE(m_equalizer->output(), u"The speakers"_s);
        passed = passes(48000, 1024, 30000);
    }
    QVERIFY(passed);
}

void tst_DesktopEqualizer::comesBackAfterItsRemoval()
{
    m_equalizer->start();
    QTRY_VERIFY_WITH_TIMEOUT(isReady(), patience);
    for (const QString& node : {SinkStreams::sinkName, u"zolta-desktop-output"_s}) {
        int losses = 0;
        const auto counting = connect(m_equalizer.get(), &DesktopEqualizer::changed,
                                      [&] { losses += m_equalizer->output().isEmpty() ? 1 : 0; });
        m_server->removeNode(node);
        QTRY_COMPARE_WITH_TIMEOUT(losses, 1, patience);
        QTRY_VERIFY_WITH_TIMEOUT(isReady(), patience);
        disconnect(counting);
    }
}

void tst_DesktopEqualizer::saysThatThereIsNoServer()
{
    m_server->killManager();
    m_server->killServer();
    const QSignalSpy failures(m_equalizer.get(), &DesktopEqualizer::failed);
    m_equalizer->start();
    QCOMPARE(failures.size(), 1);
    QCOMPARE(failures[0][0].toString(),
             u"The desktop equalizer has no sound because PipeWire is not running. Start it with "
             "\"systemctl --user start pipewire wireplumber\"; the equalizer then plays by "
             "itself."_s);
    QVERIFY(m_server->startServer());
    QVERIFY(m_server->startManager());
    QTRY_VERIFY_WITH_TIMEOUT(isReady(), patience);
    QCOMPARE(failures.size(), 1);
}

void tst_DesktopEqualizer::saysThatThereIsNoManager()
{
    m_server->killManager();
    const QSignalSpy failures(m_equalizer.get(), &DesktopEqualizer::failed);
    m_equalizer->start();
    QTRY_COMPARE_WITH_TIMEOUT(failures.size(), 1, patience);
    QCOMPARE(failures[0][0].toString(),
             u"The desktop equalizer has no sound because PipeWire runs without a session "
             "manager. Start one with \"systemctl --user start wireplumber\"; the equalizer then "
             "plays by itself."_s);
    QVERIFY(m_server->startManager());
    QTRY_VERIFY_WITH_TIMEOUT(isReady(), patience);
}

void tst_DesktopEqualizer::waitsForASink()
{
    m_server.reset();
    m_server = std::make_unique<PipeWireServer>(PipeWireServer::Hardware::Absent);
    QVERIFY2(m_server->start(), qPrintable(m_server->errorText()));
    m_equalizer->start();
    QTRY_COMPARE_WITH_TIMEOUT(m_server->defaultSink(), SinkStreams::sinkName, patience);
    QCOMPARE(m_equalizer->output(), QString());
    m_server->addSink(u"late"_s);
    QTRY_COMPARE_WITH_TIMEOUT(m_equalizer->output(), u"The late"_s, patience);
    m_equalizer->stop();
    QTRY_COMPARE_WITH_TIMEOUT(m_server->sinks(), QStringList(u"late"_s), patience);
    QTRY_COMPARE_WITH_TIMEOUT(m_server->defaultSink(), u"late"_s, patience);
}

// Where PipeWire itself hangs, all is done once more.
int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    int result = 0;
    for (int attempt = 0; attempt < 4; ++attempt) {
        tst_DesktopEqualizer test;
        result = QTest::qExec(&test, argc, argv);
        if (!PipeWireServer::hasHung())
            break;
    }
    return result;
}

#include "tst_DesktopEqualizer.moc"
