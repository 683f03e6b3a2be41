// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/AudioEngine.h"
#include "tests/engine/EngineTesting.h"
#include "tests/support/TestObject.h"

#include <memory>
#include <thread>

using namespace EngineTesting;

class tst_AudioEngine : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void newestValueIsTaken();
    void valuesCrossThreadsWhole();
    void processesAsTheChannelsDo();
    void singlePrecisionIsRoundedOnce();
    void missingChannelsAreLeftAlone();
    void publishedValuesActFromTheNextBlock();
    void metersReadTheirPoints();
    void metersClampAndPack();
    void resetClearsTheSignal();
    void channelsThatAreLeftOutStayAsTheyAre();

private:
    static constexpr std::size_t length = 480;

    static std::unique_ptr<AudioEngine> engine();
    static void process(AudioEngine* engine, std::array<Block, maxChannelCount>* blocks);
    static std::array<Block, maxChannelCount> blocksOf(const Block& block);
};

std::unique_ptr<AudioEngine> tst_AudioEngine::engine()
{
    return std::make_unique<AudioEngine>(maxChannelCount);
}

std::array<Block, maxChannelCount> tst_AudioEngine::blocksOf(const Block& block)
{
    std::array<Block, maxChannelCount> blocks;
    blocks.fill(block);
    return blocks;
}

void tst_AudioEngine::process(AudioEngine* engine, std::array<Block, maxChannelCount>* blocks)
{
    std::array<double*, maxChannelCount> pointers{};
    for (std::size_t i = 0; i < pointers.size(); ++i)
        pointers[i] = (*blocks)[i].data();
    engine->process(pointers, blocks->front().size());
}

void tst_AudioEngine::newestValueIsTaken()
{
    LatestValue<int> value;
    QVERIFY(!value.take());
    value.publish(1);
    QCOMPARE(*value.take(), 1);
    QVERIFY(!value.take());
    value.publish(2);
    value.publish(3);
    value.publish(4);
    QCOMPARE(*value.take(), 4);
    QVERIFY(!value.take());
}

// Every value is taken whole, never one older than the one before, and the last one in the end.
void tst_AudioEngine::valuesCrossThreadsWhole()
{
    constexpr int last = 200000;
    LatestValue<std::array<int, parameterCount>> mailbox;
    std::thread writer([&mailbox] {
        std::array<int, parameterCount> values{};
        for (int i = 1; i <= last; ++i) {
            values.fill(i);
            mailbox.publish(values);
        }
    });
    int newest = 0;
    bool whole = true;
    while (newest < last && whole) {
        if (const auto* values = mailbox.take()) {
            whole = values->front() > newest;
            newest = values->front();
            for (const int value : *values)
                whole = whole && value == newest;
        }
    }
    writer.join();
    QVERIFY(whole);
    QCOMPARE(newest, last);
}

void tst_AudioEngine::processesAsTheChannelsDo()
{
    const auto mixer = engine();
    mixer->setSampleRate(96000.0);
    auto blocks = blocksOf(noise(2000));
    for (int channel = 0; channel < maxChannelCount; ++channel)
        mixer->publish(
            channel,
            valuesFrom(QStringLiteral("7=%1 3=50 27=%2").arg(6 * channel).arg(channel % 2)));
    process(mixer.get(), &blocks);
    for (int channel = 0; channel < maxChannelCount; ++channel) {
        ChannelProcessor processor;
        processor.setSampleRate(96000.0);
        processor.setValues(
            valuesFrom(QStringLiteral("7=%1 3=50 27=%2").arg(6 * channel).arg(channel % 2)));
        Block expected = noise(2000);
        processor.process(expected);
        QCOMPARE(blocks[std::size_t(channel)], expected);
        QCOMPARE(mixer->latency(channel), processor.latency());
    }
}

void tst_AudioEngine::singlePrecisionIsRoundedOnce()
{
    const auto mixer = engine();
    const Values values = valuesFrom(QStringLiteral("3=60 7=-60 25=33 27=1"));
    mixer->publish(1, values);
    const Block signal = noise(1000);
    std::vector<float> samples(signal.begin(), signal.end());
    Block expected(samples.begin(), samples.end());
    const std::array<float*, 2> pointers = {nullptr, samples.data()};
    mixer->process(pointers, samples.size());
    ChannelProcessor processor;
    processor.setValues(values);
    processor.process(expected);
    for (std::size_t i = 0; i < samples.size(); ++i)
        QVERIFY(samples[i] == static_cast<float>(expected[i]));
}

void tst_AudioEngine::missingChannelsAreLeftAlone()
{
    const auto mixer = engine();
    mixer->process(std::span<double* const>(), length);
    mixer->process(std::span<float* const>(), 0);
    QCOMPARE(mixer->blocks(), std::uint64_t{2});
    Block block(length, 0.5);
    std::array<double*, maxChannelCount + 3> pointers{};
    pointers[2] = block.data();
    Block beyond(length, 0.25);
    pointers[maxChannelCount + 1] = beyond.data();
    mixer->process(pointers, length);
    QCOMPARE(mixer->levels(2).send, -60);
    QCOMPARE(mixer->levels(1).send, MeterLevels::lowest);
    QCOMPARE(beyond, Block(length, 0.25));
}

void tst_AudioEngine::publishedValuesActFromTheNextBlock()
{
    const auto mixer = engine();
    auto blocks = blocksOf(Block(length, 0.01));
    process(mixer.get(), &blocks);
    QCOMPARE(blocks[0], Block(length, 0.01));
    mixer->publish(0, valuesFrom(QStringLiteral("25=200")));
    for (int i = 0; i < 2; ++i) {
        blocks = blocksOf(Block(length, 0.01));
        process(mixer.get(), &blocks);
    }
    QCOMPARE(blocks[1], Block(length, 0.01));
    COMPARE_NEAR(blocks[0].back(), 0.1, 1e-12);
}

void tst_AudioEngine::metersReadTheirPoints()
{
    const auto mixer = engine();
    mixer->publish(4, valuesFrom(QStringLiteral("25=-60 26=120")));
    auto blocks = blocksOf(Block(length, 0.0));
    blocks[4][77] = -1.0;
    process(mixer.get(), &blocks);
    QCOMPARE(mixer->levels(4), (MeterLevels{-60, 60}));
    QCOMPARE(mixer->levels(5), MeterLevels{});
}

void tst_AudioEngine::metersClampAndPack()
{
    const auto mixer = engine();
    auto blocks = blocksOf(Block(1, 1e14));
    blocks[1] = {1e-12};
    process(mixer.get(), &blocks);
    QCOMPARE(mixer->levels(0), (MeterLevels{MeterLevels::highest, MeterLevels::highest}));
    QCOMPARE(mixer->levels(1), (MeterLevels{MeterLevels::lowest, MeterLevels::lowest}));
}

void tst_AudioEngine::resetClearsTheSignal()
{
    const auto mixer = engine();
    mixer->publish(0, valuesFrom(QStringLiteral("3=60 7=60 27=1")));
    auto blocks = blocksOf(noise(length));
    process(mixer.get(), &blocks);
    mixer->reset();
    QCOMPARE(mixer->levels(0), MeterLevels{});
    blocks = blocksOf(Block(length, 0.0));
    process(mixer.get(), &blocks);
    QCOMPARE(blocks[0], Block(length, 0.0));
}

// Until they are reset, one by one.
void tst_AudioEngine::channelsThatAreLeftOutStayAsTheyAre()
{
    const auto mixer = engine();
    auto blocks = blocksOf(Block(length, 0.5));
    process(mixer.get(), &blocks);
    mixer->publish(2, valuesFrom(QStringLiteral("26=200")));
    for (int i = 0; i < 20; ++i) {
        Block zeros(length, 0.0);
        mixer->process(std::array<double*, 2>{zeros.data(), nullptr}, length);
    }
    QVERIFY(mixer->levels(0).send < -60 && mixer->levels(1).send < -60);
    QCOMPARE(mixer->levels(2).send, -60);
    mixer->reset(2);
    QCOMPARE(mixer->levels(2).send, MeterLevels::lowest);
    QCOMPARE(mixer->levels(3).send, -60);
    blocks = blocksOf(Block(length, 0.01));
    process(mixer.get(), &blocks);
    COMPARE_NEAR(blocks[2].front(), 0.1, 1e-12); // at once
}

QTEST_APPLESS_MAIN(tst_AudioEngine)

#include "tst_AudioEngine.moc"
