// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/MixBus.h"
#include "host/desktop/DesktopProcessor.h"
#include "tests/engine/RealtimeTrap.h"
#include "tests/support/TestObject.h"

#include <atomic>
#include <cmath>
#include <thread>

class tst_DesktopProcessor : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void isSilentWithoutARate();
    void fades_data();
    void fades();
    void playsEverySampleBetweenFades();
    void beginsAnewAtAnotherRate();
    void isSilentWithoutInputs();
    void neverAllocatesOrLocks();
    void obeysAnotherThread();

private:
    using Block = std::vector<float>;

    Block play(std::size_t frames, float level = 0.5F);

    std::unique_ptr<MixBus> m_bus;
    std::unique_ptr<DesktopProcessor> m_processor;
};

void tst_DesktopProcessor::init()
{
    TestObject::init();
    m_bus = std::make_unique<MixBus>();
    MixBus::Strips strips{};
    for (const std::size_t side : {0U, 1U})
        strips[side] = {
            {MixBus::Source::Input, int(side)}, side == 0 ? 1.0 : 0.0, side == 1 ? 1.0 : 0.0};
    m_bus->publish(strips);
    m_processor = std::make_unique<DesktopProcessor>(*m_bus);
}

// The right side is the negative of the left one.
tst_DesktopProcessor::Block tst_DesktopProcessor::play(std::size_t frames, float level)
{
    const Block left(frames, level);
    const Block right(frames, -level);
    Block leftOut(frames, 9.0F);
    Block rightOut(frames, 9.0F);
    const std::array<const float*, 2> inputs = {left.data(), right.data()};
    const std::array<float*, 2> outputs = {leftOut.data(), rightOut.data()};
    m_processor->process(inputs, outputs, frames);
    for (std::size_t i = 0; i < frames; ++i) {
        if (leftOut[i] != -rightOut[i])
            qWarning("The sides differ at %zu.", i);
    }
    return leftOut;
}

void tst_DesktopProcessor::isSilentWithoutARate()
{
    QCOMPARE(play(100), Block(100, 0.0F));
    QVERIFY(m_processor->isFadedOut());
}

void tst_DesktopProcessor::fades_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("block");
    for (const int rate : {44100, 48000, 192000}) {
        for (const int block : {1, 64, 8192})
            QTest::addRow("%d Hz, blocks of %d", rate, block) << rate << block;
    }
}

// In and out in 20 ms, without a step that is larger than a cosine's.
void tst_DesktopProcessor::fades()
{
    QFETCH(int, rate);
    QFETCH(int, block);
    const auto length = static_cast<std::size_t>(std::lround(0.020 * rate));
    m_processor->setSampleRate(rate);
    Block heard;
    for (const bool audible : {true, false}) {
        m_processor->setAudible(audible);
        QVERIFY(!m_processor->isFadedOut());
        for (std::size_t end = heard.size() + length; heard.size() < end;) {
            const Block part = play(std::min<std::size_t>(std::size_t(block), end - heard.size()));
            heard.insert(heard.end(), part.begin(), part.end());
        }
    }
    QCOMPARE(heard[length - 1], 0.5F);
    QCOMPARE(heard.back(), 0.0F);
    QVERIFY(m_processor->isFadedOut());
    float before = 0.0F;
    for (const float sample : heard) {
        QVERIFY(std::abs(sample - before) <= float(0.5 * 1.6 / double(length)));
        before = sample;
    }
    QCOMPARE(play(64), Block(64, 0.0F));
}

void tst_DesktopProcessor::playsEverySampleBetweenFades()
{
    m_processor->setSampleRate(48000);
    play(960);
    for (const float level : {1.0F, 0.1F, -0.0F, 1e-30F, 3.0F})
        QCOMPARE(play(100, level), Block(100, level));
}

void tst_DesktopProcessor::beginsAnewAtAnotherRate()
{
    m_processor->setSampleRate(48000);
    play(960);
    m_processor->setSampleRate(44100);
    const Block heard = play(882);
    QVERIFY(heard.front() < 0.001F);
    QCOMPARE(heard.back(), 0.5F);
    m_processor->setSampleRate(44100);
    QCOMPARE(play(10), Block(10, 0.5F));
}

void tst_DesktopProcessor::isSilentWithoutInputs()
{
    m_processor->setSampleRate(48000);
    play(960);
    Block left(300, 9.0F);
    Block right(300, 9.0F);
    const std::array<float*, 2> outputs = {left.data(), right.data()};
    m_processor->process({}, outputs, 300);
    QCOMPARE(left, Block(300, 0.0F));
    QCOMPARE(right, Block(300, 0.0F));
}

void tst_DesktopProcessor::neverAllocatesOrLocks()
{
    Block left(256, 0.5F);
    Block right(256, 0.5F);
    const std::array<const float*, 2> inputs = {left.data(), right.data()};
    const std::array<float*, 2> outputs = {left.data(), right.data()};
    const RealtimeTrap trap;
    for (const int rate : {48000, 44100, 96000}) {
        m_processor->setSampleRate(rate);
        m_processor->setAudible(rate != 96000);
        m_processor->process(inputs, outputs, 256);
        m_processor->process({}, outputs, 256);
    }
    QCOMPARE(trap.allocations(), 0);
    QCOMPARE(trap.locks(), 0);
}

// Whatever is asked for meanwhile, the last request holds.
void tst_DesktopProcessor::obeysAnotherThread()
{
    std::atomic<bool> asked = false;
    std::thread other([&] {
        for (int i = 0; i < 20000; ++i) {
            m_processor->setSampleRate(i % 2 == 0 ? 44100 : 48000);
            m_processor->setAudible(i % 3 == 0);
        }
        m_processor->setAudible(true);
        asked = true;
    });
    while (!asked)
        play(64);
    other.join();
    play(960);
    QVERIFY(!m_processor->isFadedOut());
    QCOMPARE(play(64), Block(64, 0.5F));
}

QTEST_APPLESS_MAIN(tst_DesktopProcessor)

#include "tst_DesktopProcessor.moc"
