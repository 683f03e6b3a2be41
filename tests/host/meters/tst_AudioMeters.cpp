// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/meters/AudioMeters.h"
#include "tests/support/TestObject.h"

#include <memory>
#include <vector>

class tst_AudioMeters : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsTheEngine();
    void noAudioAtFirst();
    void shortGapsAreNone();
    void levelsFallWhenAudioStops();
    void audioComesBack();

private:
    static constexpr double tick = 0.033;
    static constexpr double patience = 0.4; // more than ten ticks

    static void play(AudioEngine* engine, double sample);
    static MeterLevels read(AudioMeters* meters);
};

// A block on channel 0.
void tst_AudioMeters::play(AudioEngine* engine, double sample)
{
    std::vector<double> block(64, sample);
    const std::array<double*, 1> pointers = {block.data()};
    engine->process(pointers, block.size());
}

MeterLevels tst_AudioMeters::read(AudioMeters* meters) { return meters->read(0, {}, 48000, tick); }

void tst_AudioMeters::readsTheEngine()
{
    const auto engine = std::make_unique<AudioEngine>();
    AudioMeters meters(*engine, patience);
    play(engine.get(), 0.1);
    QCOMPARE(read(&meters), (MeterLevels{-200, -200}));
    QCOMPARE(meters.read(1, {}, 48000, tick), MeterLevels{});
}

void tst_AudioMeters::noAudioAtFirst()
{
    const auto engine = std::make_unique<AudioEngine>();
    play(engine.get(), 1.0);
    AudioMeters meters(*engine, patience);
    QCOMPARE(read(&meters), MeterLevels{});
}

// A device with long blocks delivers none between two readings.
void tst_AudioMeters::shortGapsAreNone()
{
    const auto engine = std::make_unique<AudioEngine>();
    AudioMeters meters(*engine, patience);
    play(engine.get(), 1.0);
    for (int i = 0; i < 10; ++i) {
        QCOMPARE(read(&meters), (MeterLevels{0, 0}));
    }
}

void tst_AudioMeters::levelsFallWhenAudioStops()
{
    const auto engine = std::make_unique<AudioEngine>();
    AudioMeters meters(*engine, patience);
    play(engine.get(), 1.0);
    read(&meters);
    meters.read(0, {}, 48000, patience);
    const int level = read(&meters).send;
    QCOMPARE(meters.read(0, {}, 48000, 1.0).send, level - 200);
    QCOMPARE(meters.read(0, {}, 48000, 100.0), MeterLevels{});
}

void tst_AudioMeters::audioComesBack()
{
    const auto engine = std::make_unique<AudioEngine>();
    AudioMeters meters(*engine, patience);
    play(engine.get(), 1.0);
    read(&meters);
    meters.read(0, {}, 48000, 3600.0);
    play(engine.get(), 0.1);
    QVERIFY(read(&meters).send > -210);
}

QTEST_APPLESS_MAIN(tst_AudioMeters)

#include "tst_AudioMeters.moc"
