// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/FILTER2PEQ.h"
#include "equalizer/VEQ_Filter.h"
#include "tests/equalizer/FilterTesting.h"
#include "tests/support/TestObject.h"

#include <random>
#include <span>

/// The operations on blocks give what the operations on single samples give, bit by bit.
class tst_FilterBlocks : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void sectionRunsAsItsSamples_data();
    void sectionRunsAsItsSamples();
    void settledOnlyWithoutAFade();
    void peakRunsAsItsSamples_data();
    void peakRunsAsItsSamples();
    void noGainLetsEveryBitThrough();
    void heardSamplesAreTakenOver();

private:
    static constexpr double Fs = 48000.0;

    static std::vector<double> noise();
};

std::vector<double> tst_FilterBlocks::noise()
{
    std::minstd_rand generator(3);
    std::uniform_real_distribution<double> sample(-1.0, 1.0);
    std::vector<double> block(3000);
    for (double& s : block)
        s = sample(generator);
    return block;
}

void tst_FilterBlocks::sectionRunsAsItsSamples_data()
{
    QTest::addColumn<bool>("fading");
    QTest::newRow("settled") << false;
    QTest::newRow("through a cross-fade") << true;
}

void tst_FilterBlocks::sectionRunsAsItsSamples()
{
    QFETCH(const bool, fading);
    VEQ_Filter single;
    VEQ_Filter whole;
    for (VEQ_Filter* filter : {&single, &whole}) {
        filter->SetSampleRate(Fs);
        filter->setCoefLOWS_2(300.0, 9.0, Fs);
        filter->clear();
        filter->cal(1.0);
        if (fading)
            filter->setCoefHPF(2, 700.0, Fs);
    }
    std::vector<double> block = noise();
    std::vector<double> expected = block;
    for (double& sample : expected)
        sample = single.cal(sample);
    // The fade ends within the second part.
    const std::span<double> all(block);
    whole.cal(all.first(100));
    whole.cal(all.subspan(100, 900));
    whole.cal(all.subspan(1000));
    QCOMPARE(block, expected);
    for (int i = 0; i < 100; ++i)
        QCOMPARE(whole.cal(0.0), single.cal(0.0));
}

void tst_FilterBlocks::settledOnlyWithoutAFade()
{
    VEQ_Filter filter;
    filter.SetSampleRate(1000.0);
    QVERIFY(!filter.isSettled());
    filter.clear();
    QVERIFY(filter.isSettled());
    filter.setCoefLPF(2, 100.0, 1000.0);
    for (int i = 0; i < 10; ++i) {
        QVERIFY(!filter.isSettled());
        filter.cal(1.0);
    }
    QVERIFY(filter.isSettled());
}

void tst_FilterBlocks::peakRunsAsItsSamples_data()
{
    QTest::addColumn<double>("gain");
    for (const double gain : {-20.0, -3.0, -0.1, 0.1, 6.0, 20.0})
        QTest::addRow("%g dB", gain) << gain;
}

void tst_FilterBlocks::peakRunsAsItsSamples()
{
    QFETCH(const double, gain);
    FILTER2PEQ single;
    FILTER2PEQ whole;
    for (FILTER2PEQ* filter : {&single, &whole})
        filter->setCoefBPF_C(1000.0, Fs, 2.0, gain, true);
    const double k = single.gainFactor();
    std::vector<double> block = noise();
    std::vector<double> expected = block;
    for (double& sample : expected) {
        const double x = sample;
        const double boosted = x + k * single.cal_boost(x);
        const double cut = (x - k * single.cal_cut()) * (1.0 / (1.0 + single.scaledGain()));
        sample = gain > 0.0 ? boosted : cut;
        single.dlyupdate_bpf(gain > 0.0 ? x : cut);
    }
    const std::span<double> all(block);
    for (const std::span<double> part : {all.first(1), all.subspan(1, 700), all.subspan(701)})
        gain > 0.0 ? whole.boost(part, k) : whole.cut(part, k);
    QCOMPARE(block, expected);
    QCOMPARE(whole.cal_boost(0.5), single.cal_boost(0.5));
}

void tst_FilterBlocks::noGainLetsEveryBitThrough()
{
    FILTER2PEQ filter;
    filter.setCoefBPF_C(1000.0, Fs, 2.0, 0.0, true);
    const std::vector<double> in = noise();
    std::vector<double> out = in;
    filter.boost(out, 0.0);
    QCOMPARE(out, in);
    filter.cut(out, 0.0);
    QCOMPARE(out, in);
}

// A band-pass that goes on with the same design does not notice; one of another design has heard
// the same input, however that design scales it.
void tst_FilterBlocks::heardSamplesAreTakenOver()
{
    FILTER2PEQ first;
    first.setCoefBPF_C(1000.0, Fs, 2.0, 6.0, true);
    for (const double sample : noise())
        first.dlyupdate_bpf(sample);
    FILTER2PEQ same;
    same.setCoefByCopy(&first);
    same.setDelayByCopy(&first);
    QCOMPARE(same.cal_boost(0.25), first.cal_boost(0.25));

    FILTER2PEQ other;
    other.setCoefBPF_C(1500.0, Fs, 1.0, 6.0, true);
    other.setDelayByCopy(&first);
    const FILTER2PEQ::Runner heard = first.runner(0.0);
    const FILTER2PEQ::Runner taken = other.runner(0.0);
    COMPARE_WITHIN(taken.u1 / taken.c2, heard.u1 / heard.c2, 1e-12);
    COMPARE_WITHIN(taken.u2 / taken.c2, heard.u2 / heard.c2, 1e-12);
    QCOMPARE(taken.y1, heard.y1);
    QCOMPARE(taken.y2, heard.y2);

    FILTER2PEQ undesigned;
    undesigned.setDelayByCopy(&first);
    other.setDelayByCopy(&undesigned);
    QVERIFY(std::isfinite(other.cal_boost(1.0)));
}

QTEST_APPLESS_MAIN(tst_FilterBlocks)

#include "tst_FilterBlocks.moc"
