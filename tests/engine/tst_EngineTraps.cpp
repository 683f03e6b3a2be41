// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/AudioEngine.h"
#include "tests/engine/EngineTesting.h"
#include "tests/engine/RealtimeTrap.h"
#include "tests/support/TestObject.h"

#include <memory>
#include <mutex>

using namespace EngineTesting;

class tst_EngineTraps : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void trapsAreSet();
    void processingNeitherAllocatesNorLocks_data();
    void processingNeitherAllocatesNorLocks();

private:
    template <typename Action> static std::pair<int, int> trap(Action action);
};

// The allocations and the locks of an action.
template <typename Action> std::pair<int, int> tst_EngineTraps::trap(Action action)
{
    const RealtimeTrap trap;
    action();
    return {trap.allocations(), trap.locks()};
}

void tst_EngineTraps::trapsAreSet()
{
    std::unique_ptr<Block> block;
    std::mutex mutex;
    QVERIFY(trap([&block] { block = std::make_unique<Block>(10); }).first > 0);
    QCOMPARE(trap([&mutex] { const std::lock_guard guard(mutex); }).second, 1);
}

void tst_EngineTraps::processingNeitherAllocatesNorLocks_data()
{
    QTest::addColumn<int>("rate");
    QTest::newRow("48 kHz") << 48000;
    QTest::newRow("192 kHz") << 192000;
}

void tst_EngineTraps::processingNeitherAllocatesNorLocks()
{
    QFETCH(const int, rate);
    const auto engine = std::make_unique<AudioEngine>();
    engine->setSampleRate(rate);
    std::minstd_rand generator(5);
    std::array<std::vector<float>, channelCount> samples;
    std::array<Block, channelCount> doubles;
    std::array<float*, channelCount> pointers{};
    std::array<double*, channelCount> doublePointers{};
    const Block signal = noise(300);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        samples[i].assign(signal.begin(), signal.end());
        pointers[i] = samples[i].data();
        doubles[i] = signal;
        doublePointers[i] = doubles[i].data();
    }
    for (int round = 0; round < 200; ++round) {
        for (int channel = 0; channel < channelCount; ++channel) {
            Values values{};
            for (std::size_t i = 0; i < values.size(); ++i) {
                const Parameter& p = parameterTable[i];
                values[i] = std::uniform_int_distribution<int>(p.minimum, p.maximum)(generator);
            }
            engine->publish(channel, values);
        }
        const std::pair<int, int> trapped = trap([&] {
            engine->process(pointers, signal.size());
            engine->process(doublePointers, signal.size());
        });
        QCOMPARE(trapped, std::pair(0, 0));
    }
    QVERIFY(engine->levels(3).returned > MeterLevels::lowest);
}

QTEST_APPLESS_MAIN(tst_EngineTraps)

#include "tst_EngineTraps.moc"
