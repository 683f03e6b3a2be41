// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/AlignmentDelay.h"
#include "tests/engine/EngineTesting.h"
#include "tests/support/TestObject.h"

using namespace EngineTesting;

class tst_AlignmentDelay : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void offPassesEveryBit();
    void onHoldsBack();
    void switchingDoesNotClick();

private:
    static constexpr int rate = 48000;

    static std::vector<float> tone(std::size_t frames);
};

std::vector<float> tst_AlignmentDelay::tone(std::size_t frames)
{
    const Block block = sine(150.0, rate, frames, 0.5);
    return {block.begin(), block.end()};
}

void tst_AlignmentDelay::offPassesEveryBit()
{
    AlignmentDelay delay;
    delay.setSampleRate(rate);
    std::vector<float> block = tone(1000);
    delay.process(block);
    QCOMPARE(block, tone(1000));
}

void tst_AlignmentDelay::onHoldsBack()
{
    AlignmentDelay delay;
    delay.setSampleRate(rate);
    delay.set(true);
    std::vector<float> block = tone(2000);
    const std::span<float> all(block);
    for (std::size_t done = 0; done < block.size(); done += 100)
        delay.process(all.subspan(done, 100));
    const std::vector<float> expected = tone(2000);
    for (std::size_t i = 600; i < block.size(); ++i)
        QCOMPARE(block[i], expected[i - Drive::latency]);
    delay.reset();
    std::vector<float> silence(100);
    delay.process(silence);
    QCOMPARE(silence, std::vector<float>(100));
}

void tst_AlignmentDelay::switchingDoesNotClick()
{
    AlignmentDelay delay;
    delay.setSampleRate(rate);
    std::vector<float> block = tone(20000);
    const std::span<float> all(block);
    delay.process(all.first(5000));
    delay.set(true);
    delay.process(all.subspan(5000, 5000));
    delay.set(false);
    delay.process(all.subspan(10000));
    Block cut = sine(150.0, rate, 20000, 0.5);
    std::fill(cut.begin() + 5030, cut.end(), 0.0);
    const double splice = click(cut, 2000, rate);
    QVERIFY(click(Block(block.begin(), block.end()), 2000, rate) < 0.001 * splice);
}

QTEST_APPLESS_MAIN(tst_AlignmentDelay)
#include "tst_AlignmentDelay.moc"
