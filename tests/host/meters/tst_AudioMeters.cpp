// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/meters/AudioMeters.h"
#include "tests/support/TestObject.h"

#include <memory>
#include <vector>

class tst_AudioMeters : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void noAudioAtFirst();
    void readsTheEngine();
    void levelsFallWhenAudioStops();
    void audioComesBack();

private:
    static constexpr double tick = 0.033;
    static constexpr double patience = 0.4; // more than ten ticks

    void play(double sample);
    MeterLevels read(double seconds = tick) { return m_meters->read(0, {}, 48000, seconds); }

    std::unique_ptr<AudioEngine> m_engine;
    std::unique_ptr<AudioMeters> m_meters;
};

// An engine that has played something already.
void tst_AudioMeters::init()
{
    TestObject::init();
    m_engine = std::make_unique<AudioEngine>();
    play(1.0);
    m_meters = std::make_unique<AudioMeters>(*m_engine, patience);
}

// A block on channel 0.
void tst_AudioMeters::play(double sample)
{
    std::vector<double> block(64, sample);
    const std::array<double*, 1> pointers = {block.data()};
    m_engine->process(pointers, block.size());
}

void tst_AudioMeters::noAudioAtFirst() { QCOMPARE(read(), MeterLevels{}); }

// A device with long blocks delivers none between two readings.
void tst_AudioMeters::readsTheEngine()
{
    play(1.0);
    for (int i = 0; i < 10; ++i)
        QCOMPARE(read(), (MeterLevels{0, 0}));
    QCOMPARE(m_meters->read(1, {}, 48000, tick), MeterLevels{});
}

void tst_AudioMeters::levelsFallWhenAudioStops()
{
    play(1.0);
    read();
    read(patience);
    const int level = read().send;
    QCOMPARE(read(1.0).send, level - 200);
    QCOMPARE(read(100.0), MeterLevels{});
}

void tst_AudioMeters::audioComesBack()
{
    play(1.0);
    read();
    read(3600.0);
    play(0.1);
    QVERIFY(read().send > -210);
}

QTEST_APPLESS_MAIN(tst_AudioMeters)

#include "tst_AudioMeters.moc"
