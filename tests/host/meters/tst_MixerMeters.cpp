// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/MixBus.h"
#include "host/meters/MixerMeters.h"
#include "host/model/MixerModel.h"
#include "tests/support/TestObject.h"

#include <QApplication>

#include <vector>

class tst_MixerMeters : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void metersShowWhatTheSourceIs();
    void metersOfTheTestSignalFollowTheStrip();
    void restsUnlessATestSignalIsSeen();

private:
    struct Fixture
    {
        HostMemory memory;
        MixerModel mixerModel{memory};
        MixBus bus;
        MixerMeters meters{mixerModel, bus.engine()};

        MeterLevels read(int channel, double seconds = 1.0 / 30.0)
        {
            return meters.read(channel, memory.values(channel), 48000, seconds);
        }
    };
};

// A strip whose sound comes from a file that does not play shows silence, never the test signal.
void tst_MixerMeters::metersShowWhatTheSourceIs()
{
    Fixture f;
    f.memory.setStrip(0, StripParameter::Source, SourceTestSignal);
    f.memory.setStrip(2, StripParameter::Source, SourceFile);
    const auto highest = [&f](int channel) {
        int result = MeterLevels::lowest;
        for (int tick = 0; tick < 30; ++tick)
            result = std::max(result, f.read(channel).send);
        return result;
    };
    QVERIFY(highest(0) > -300);
    QCOMPARE(highest(2), int(MeterLevels::lowest));
    QCOMPARE(highest(3), int(MeterLevels::lowest));
    MixBus::Strips strips;
    strips[2] = {{MixBus::Source::File, 0}, 1.0, 1.0};
    strips[3] = {{MixBus::Source::File, 1}, 1.0, 1.0};
    f.bus.publish(strips);
    f.bus.prepare(48000, false);
    std::vector<float> left(4800, 0.1F);
    std::vector<float> right(4800, 0.01F);
    const std::array<const float*, 2> inputs = {left.data(), right.data()};
    const std::array<float*, 2> outputs = {left.data(), right.data()};
    f.bus.process(inputs, outputs, left.size());
    QCOMPARE(f.read(2).send, -200);
    QCOMPARE(f.read(3).send, -400);
}

// A pair sounds as its first channel is set, and past the equalizer while that is off.
void tst_MixerMeters::metersOfTheTestSignalFollowTheStrip()
{
    Fixture f;
    f.memory.setStrip(0, StripParameter::Source, SourceTestSignal);
    HostMemory::Values values = f.memory.values(0);
    values[25] = -200;
    f.memory.write(0, values);
    const auto difference = [&f](int channel) {
        MeterLevels levels;
        for (int tick = 0; tick < 60; ++tick)
            levels = f.read(channel);
        return levels.returned - levels.send;
    };
    QVERIFY(std::abs(difference(0) + 200) <= 1);
    QVERIFY(std::abs(difference(1) + 200) <= 1);
    f.memory.setStrip(0, StripParameter::EqualizerOn, 0);
    QCOMPARE(difference(0), 0);
    QCOMPARE(difference(1), 0);
    f.memory.setStrip(0, StripParameter::EqualizerOn, 1);
    f.memory.setStrip(0, StripParameter::Stereo, 0);
    f.memory.setStrip(1, StripParameter::Source, SourceTestSignal);
    QVERIFY(std::abs(difference(0) + 200) <= 1);
    QCOMPARE(difference(1), 0);
}

// The source of a pair's second channel is not in force.
void tst_MixerMeters::restsUnlessATestSignalIsSeen()
{
    Fixture f;
    QVERIFY(f.meters.isResting());
    f.memory.setStrip(3, StripParameter::Source, SourceTestSignal);
    QVERIFY(f.meters.isResting());
    f.memory.setStrip(2, StripParameter::Stereo, 0);
    QVERIFY(!f.meters.isResting());
    f.memory.setStrip(3, StripParameter::Source, SourceFile);
    QVERIFY(f.meters.isResting()); // no file plays
}

ZOLTA_TEST_MAIN(tst_MixerMeters)
#include "tst_MixerMeters.moc"
