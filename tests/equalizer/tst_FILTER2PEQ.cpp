// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/FILTER2PEQ.h"
#include "tests/equalizer/FilterTesting.h"
#include "tests/support/TestObject.h"

#include <limits>
#include <random>

namespace {

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

// The quality that a band was designed with, read back from its coefficients: with t = tan(pi f /
// fs) the numerator gain is (t / q) / (1 + t / q + t^2).
double designedQuality(const FILTER2PEQ& band, double f, double fs)
{
    const double t = std::tan(M_PI * f / fs);
    const double c2 = band.coefficients()[2];
    return t * (1.0 - c2) / (c2 * (1.0 + t * t));
}

// The two structures around the band-pass, as the class describes them.
double boosted(FILTER2PEQ& band, double x)
{
    const double y = x + band.gainFactor() * band.cal_boost(x);
    band.dlyupdate_bpf(x);
    return y;
}

double cut(FILTER2PEQ& band, double x)
{
    const double y = (x - band.gainFactor() * band.cal_cut()) / (1.0 + band.scaledGain());
    band.dlyupdate_bpf(y);
    return y;
}

void addBands()
{
    QTest::addColumn<double>("f");
    QTest::addColumn<double>("fs");
    QTest::addColumn<double>("q");
    QTest::addColumn<double>("g");
    QTest::newRow("broad") << 400.0 << 44100.0 << 0.5 << 20.0;
    QTest::newRow("narrow") << 800.0 << 44100.0 << 16.0 << 6.0;
    QTest::newRow("compensated") << 9000.0 << 44100.0 << 1.5 << 12.0;
    QTest::newRow("high") << 20000.0 << 44100.0 << 4.0 << 20.0;
    QTest::newRow("slight") << 2500.0 << 96000.0 << 1.5 << 0.1;
    QTest::newRow("high rate") << 5600.0 << 192000.0 << 3.0 << 9.0;
}

} // namespace

class tst_FILTER2PEQ : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsUndesigned();
    void modeFollowsTheGain();
    void zeroGainKeepsTheMode();
    void frequencyBelowTheTopIsNotClamped();
    void frequencyAboveTheTopIsClamped();
    void topItselfIsNotClamped();
    void clampKeepsTheGainFactorOnRequest();
    void gainFactorIsKeptOnRequest();
    void centreReachesTheGain_data() { addBands(); }
    void centreReachesTheGain();
    void cutUndoesBoost_data() { addBands(); }
    void cutUndoesBoost();

    void qualityTable_data();
    void qualityTable();
    void qualityIsNeverRaised();
    void qualityIsFlooredAtATenth_data();
    void qualityIsFlooredAtATenth();
    void qualityWorkedExample();

    void copyTakesTheDesignNotTheSamples();
    void secondOrderCallStartsAnew();

    void impulseResponseHasThePower_data() { addBands(); }
    void impulseResponseHasThePower();
    void cutRecoversTheBoostedInput_data() { addBands(); }
    void cutRecoversTheBoostedInput();
    void boostRecoversTheCutInput_data() { addBands(); }
    void boostRecoversTheCutInput();
    void calculatingDoesNotAdvance();
    void clearDelayClearsTheSamples();
    void anyArgumentsAreSafe_data();
    void anyArgumentsAreSafe();
};

void tst_FILTER2PEQ::startsUndesigned()
{
    const FILTER2PEQ band;
    QCOMPARE(band.order(), std::int64_t{2});
    QCOMPARE(band.mode(), std::int64_t{0});
    QCOMPARE(band.gainFactor(), 0.0);
    QCOMPARE(band.scaledGain(), 0.0);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(band.coefficients()[i], 0.0);
    QCOMPARE(band.power_boost(1000.0, 44100.0, 5.0), 0.0);
}

void tst_FILTER2PEQ::modeFollowsTheGain()
{
    FILTER2PEQ band;
    band.setCoefBPF_C(1000.0, 44100.0, 1.0, -3.0, true);
    QCOMPARE(band.mode(), std::int64_t{1});
    band.setCoefBPF_C(1000.0, 44100.0, 1.0, 3.0, true);
    QCOMPARE(band.mode(), std::int64_t{2});
}

void tst_FILTER2PEQ::zeroGainKeepsTheMode()
{
    FILTER2PEQ band;
    band.setCoefBPF_C(1000.0, 44100.0, 1.0, 0.0, true);
    QCOMPARE(band.mode(), std::int64_t{0});
    band.setCoefBPF_C(1000.0, 44100.0, 1.0, -6.0, true);
    band.setCoefBPF_C(1000.0, 44100.0, 1.0, 0.0, true);
    QCOMPARE(band.mode(), std::int64_t{1});
    QCOMPARE(band.gainFactor(), 0.0);
    for (const double f : {20.0, 1000.0, 20000.0})
        QCOMPARE(band.power_cut(f, 44100.0, band.gainFactor()), 0.0);
    band.setCoefBPF_C(1000.0, 44100.0, 1.0, 6.0, true);
    band.setCoefBPF_C(1000.0, 44100.0, 1.0, -0.0, true);
    QCOMPARE(band.mode(), std::int64_t{2});
}

void tst_FILTER2PEQ::frequencyBelowTheTopIsNotClamped()
{
    FILTER2PEQ band;
    band.setCoefBPF_C(20000.0, 44100.0, 1.5, 12.0, true);
    QCOMPARE(band.mode(), std::int64_t{2});
    COMPARE_WITHIN(band.power_boost(20000.0, 44100.0, band.gainFactor()), 12.0, 1e-9);
    QVERIFY(designedQuality(band, 20000.0, 44100.0) < 1.5);
}

void tst_FILTER2PEQ::frequencyAboveTheTopIsClamped()
{
    FILTER2PEQ band;
    band.setCoefBPF_C(22045.0, 44100.0, 1.5, 12.0, true);
    QCOMPARE(band.mode(), std::int64_t{3});
    QVERIFY(band.gainFactor() == 0.0);
    QVERIFY(band.scaledGain() == 0.0);
    for (const double f : {20.0, 1000.0, 20000.0, 22040.0})
        QCOMPARE(band.power_boost(f, 44100.0, band.gainFactor()), 0.0);
    // The band-pass itself has its centre at the clamped frequency.
    COMPARE_WITHIN(std::abs(band.response_bpf(22040.0, 44100.0) - 1.0), 0.0, 1e-9);
}

void tst_FILTER2PEQ::topItselfIsNotClamped()
{
    FILTER2PEQ band;
    band.setCoefBPF_C(22040.0, 44100.0, 1.5, 12.0, true);
    QCOMPARE(band.mode(), std::int64_t{2});
    band.setCoefBPF_C(std::nextafter(22040.0, 1e9), 44100.0, 1.5, 12.0, true);
    QCOMPARE(band.mode(), std::int64_t{3});
}

void tst_FILTER2PEQ::clampKeepsTheGainFactorOnRequest()
{
    FILTER2PEQ band;
    band.setCoefBPF_C(1000.0, 44100.0, 1.5, 20.0, true);
    band.setCoefBPF_C(22045.0, 44100.0, 1.5, 6.0, false);
    QCOMPARE(band.mode(), std::int64_t{3});
    COMPARE_WITHIN(band.gainFactor(), 9.0, 1e-14);
}

void tst_FILTER2PEQ::gainFactorIsKeptOnRequest()
{
    FILTER2PEQ band;
    band.setCoefBPF_C(1000.0, 44100.0, 1.5, 20.0, true);
    band.setCoefBPF_C(1000.0, 44100.0, 3.0, -6.0, false);
    QCOMPARE(band.mode(), std::int64_t{1});
    COMPARE_WITHIN(band.gainFactor(), 9.0, 1e-14);
    COMPARE_WITHIN(band.scaledGain(), 9.0 * band.coefficients()[2], 1e-14);
}

void tst_FILTER2PEQ::centreReachesTheGain()
{
    QFETCH(const double, f);
    QFETCH(const double, fs);
    QFETCH(const double, q);
    FILTER2PEQ band;
    band.setCoefBPF_C(f, fs, q, 12.0, true);
    COMPARE_WITHIN(band.power_boost(f, fs, band.gainFactor()), 12.0, 1e-9);
    COMPARE_WITHIN(band.power_cut(f, fs, band.gainFactor()), -12.0, 1e-9);
}

void tst_FILTER2PEQ::cutUndoesBoost()
{
    QFETCH(const double, f);
    QFETCH(const double, fs);
    QFETCH(const double, q);
    QFETCH(const double, g);
    FILTER2PEQ band;
    band.setCoefBPF_C(f, fs, q, g, true);
    const double k = band.gainFactor();
    for (double at = 20.0; at < fs / 2.0; at *= 1.3)
        COMPARE_WITHIN(band.power_boost(at, fs, k) + band.power_cut(at, fs, k), 0.0, 1e-12);
}

void tst_FILTER2PEQ::qualityTable_data()
{
    QTest::addColumn<double>("fs");
    QTest::addColumn<double>("threshold");
    QTest::addColumn<double>("c0");
    QTest::addColumn<double>("c1");
    QTest::addColumn<double>("c2");
    const auto add = [](double fs, double threshold, double c0, double c1, double c2) {
        QTest::addRow("%.1f", fs) << fs << threshold << c0 << c1 << c2;
    };
    for (const double fs : {32000.0, 47999.9})
        add(fs, 2000.0, 1.25513, 0.0301, 4.817e-05);
    for (const double fs : {48000.0, 88199.9})
        add(fs, 2000.0, 1.25686, 0.02143, 4.103e-05);
    for (const double fs : {88200.0, 95999.9})
        add(fs, 4000.0, 1.29486, 0.0317, 2.462e-05);
    for (const double fs : {96000.0, 176399.9})
        add(fs, 4000.0, 1.21531, 0.02382, 2.004e-05);
    for (const double fs : {176400.0, 191999.9})
        add(fs, 4000.0, 1.00361995066, -0.00189199457524, 3.37063090936e-06);
    for (const double fs : {192000.0, 352799.9})
        add(fs, 4000.0, 1.00167207739, -0.00155627136929, 2.61028430333e-06);
    for (const double fs : {352800.0, 383999.9})
        add(fs, 4000.0, 1.00088954901, -0.000464497094809, 8.18066158909e-07);
    for (const double fs : {384000.0, 384000.9})
        add(fs, 4000.0, 1.00041829825, -0.000395429657653, 6.56655493056e-07);
    for (const double fs : {384001.0, 768000.0})
        add(fs, 0.0, 1.0, 0.0, 0.0);
}

void tst_FILTER2PEQ::qualityTable()
{
    QFETCH(const double, fs);
    QFETCH(const double, threshold);
    QFETCH(const double, c0);
    QFETCH(const double, c1);
    QFETCH(const double, c2);
    FILTER2PEQ band;
    for (const double q : {0.5, 0.9, 4.0, 16.0}) {
        for (const double f : {1999.0, 2000.0, 2000.5, 4000.0, 4000.5, 9000.0, 15000.0}) {
            const double ratio = f > threshold ? c0 - c1 * std::log2(q) - c2 * f : 1.0;
            band.setCoefBPF_C(f, fs, q, 6.0, true);
            COMPARE_WITHIN(designedQuality(band, f, fs), q * std::min(ratio, 1.0), 1e-9 * q);
        }
    }
}

void tst_FILTER2PEQ::qualityIsNeverRaised()
{
    FILTER2PEQ band;
    // r is 1.2 here.
    band.setCoefBPF_C(2001.0, 44100.0, 0.5, 6.0, true);
    COMPARE_WITHIN(designedQuality(band, 2001.0, 44100.0), 0.5, 1e-12);
}

void tst_FILTER2PEQ::qualityIsFlooredAtATenth_data()
{
    QTest::addColumn<double>("q");
    QTest::newRow("just above") << 0.11;
    QTest::newRow("the floor itself") << 0.1;
    QTest::newRow("below") << 0.03;
}

void tst_FILTER2PEQ::qualityIsFlooredAtATenth()
{
    QFETCH(const double, q);
    FILTER2PEQ band;
    band.setCoefBPF_C(16000.0, 44100.0, q, 6.0, true);
    COMPARE_WITHIN(designedQuality(band, 16000.0, 44100.0), 0.1, 1e-12);
}

void tst_FILTER2PEQ::qualityWorkedExample()
{
    FILTER2PEQ band;
    band.setCoefBPF_C(10000.0, 48000.0, 0.5, 6.0, true);
    COMPARE_WITHIN(designedQuality(band, 10000.0, 48000.0), 0.5 * 0.86799, 1e-9);
}

void tst_FILTER2PEQ::copyTakesTheDesignNotTheSamples()
{
    FILTER2PEQ source;
    source.setCoefBPF_C(1000.0, 44100.0, 2.0, -9.0, true);
    source.dlyupdate_bpf(1.0);
    FILTER2PEQ copy;
    copy.setCoefByCopy(&source);
    QCOMPARE(copy.order(), source.order());
    QCOMPARE(copy.mode(), source.mode());
    QVERIFY(copy.gainFactor() == source.gainFactor());
    QVERIFY(copy.scaledGain() == source.scaledGain());
    for (int i = 0; i < 3; ++i)
        QVERIFY(copy.coefficients()[i] == source.coefficients()[i]);
    QCOMPARE(copy.cal_cut(), 0.0);
    QVERIFY(source.cal_cut() != 0.0);
}

void tst_FILTER2PEQ::secondOrderCallStartsAnew()
{
    FILTER2PEQ band;
    band.setCoefBPF_C(1000.0, 44100.0, 2.0, -9.0, true);
    band._setOrder(17);
    QCOMPARE(band.order(), std::int64_t{2});
    for (int i = 0; i < 3; ++i)
        QCOMPARE(band.coefficients()[i], 0.0);
}

void tst_FILTER2PEQ::impulseResponseHasThePower()
{
    QFETCH(const double, f);
    QFETCH(const double, fs);
    QFETCH(const double, q);
    QFETCH(const double, g);
    FILTER2PEQ band;
    band.setCoefBPF_C(f, fs, q, g, true);
    FILTER2PEQ inverse;
    inverse.setCoefByCopy(&band);
    const double k = band.gainFactor();

    std::vector<double> pass;
    std::vector<double> boost;
    std::vector<double> less;
    FILTER2PEQ plain;
    plain.setCoefByCopy(&band);
    for (int n = 0; n < 30000; ++n) {
        const double x = n == 0 ? 1.0 : 0.0;
        pass.push_back(plain.cal_boost(x));
        plain.dlyupdate_bpf(x);
        boost.push_back(boosted(band, x));
        less.push_back(cut(inverse, x));
    }
    for (const double at : {50.0, f, 3000.0, 20000.0}) {
        const std::complex<double> b = spectrumAt(pass, at, fs);
        COMPARE_WITHIN(std::abs(band.response_bpf(at, fs) - b), 0.0, 1e-9);
        COMPARE_WITHIN(band.power_boost(at, fs, k), decibels(spectrumAt(boost, at, fs)), 1e-8);
        COMPARE_WITHIN(band.power_cut(at, fs, k), decibels(spectrumAt(less, at, fs)), 1e-8);
    }
}

void tst_FILTER2PEQ::cutRecoversTheBoostedInput()
{
    QFETCH(const double, f);
    QFETCH(const double, fs);
    QFETCH(const double, q);
    QFETCH(const double, g);
    FILTER2PEQ there;
    FILTER2PEQ back;
    there.setCoefBPF_C(f, fs, q, g, true);
    back.setCoefBPF_C(f, fs, q, -g, true);
    std::mt19937 random(1);
    std::uniform_real_distribution<double> noise(-1.0, 1.0);
    for (int n = 0; n < 20000; ++n) {
        const double x = noise(random);
        COMPARE_WITHIN(cut(back, boosted(there, x)), x, 1e-9);
    }
}

void tst_FILTER2PEQ::boostRecoversTheCutInput()
{
    QFETCH(const double, f);
    QFETCH(const double, fs);
    QFETCH(const double, q);
    QFETCH(const double, g);
    FILTER2PEQ there;
    FILTER2PEQ back;
    there.setCoefBPF_C(f, fs, q, -g, true);
    back.setCoefBPF_C(f, fs, q, g, true);
    std::mt19937 random(2);
    std::uniform_real_distribution<double> noise(-1.0, 1.0);
    for (int n = 0; n < 20000; ++n) {
        const double x = noise(random);
        COMPARE_WITHIN(boosted(back, cut(there, x)), x, 1e-9);
    }
}

void tst_FILTER2PEQ::calculatingDoesNotAdvance()
{
    FILTER2PEQ band;
    band.setCoefBPF_C(1000.0, 44100.0, 2.0, 9.0, true);
    band.dlyupdate_bpf(0.7);
    band.dlyupdate_bpf(-0.3);
    const double once = band.cal_boost(0.5);
    QVERIFY(band.cal_boost(0.5) == once);
    COMPARE_WITHIN(band.cal_cut() + band.coefficients()[2] * 0.5, once, 1e-16);
}

void tst_FILTER2PEQ::clearDelayClearsTheSamples()
{
    FILTER2PEQ band;
    band.setCoefBPF_C(1000.0, 44100.0, 2.0, 9.0, true);
    band.dlyupdate_bpf(0.7);
    band.dlyupdate_bpf(-0.3);
    QVERIFY(band.cal_cut() != 0.0);
    band.clearDelay();
    QCOMPARE(band.cal_cut(), 0.0);
    QVERIFY(band.cal_boost(1.0) == band.coefficients()[2]);
}

void tst_FILTER2PEQ::anyArgumentsAreSafe_data()
{
    QTest::addColumn<double>("value");
    QTest::newRow("undefined") << NaN;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
    QTest::newRow("most negative") << -std::numeric_limits<double>::infinity();
    QTest::newRow("largest") << std::numeric_limits<double>::max();
    QTest::newRow("smallest") << std::numeric_limits<double>::denorm_min();
    QTest::newRow("zero") << 0.0;
}

void tst_FILTER2PEQ::anyArgumentsAreSafe()
{
    QFETCH(const double, value);
    FILTER2PEQ band;
    band.setCoefBPF_C(value, 44100.0, 1.0, 6.0, true);
    QCOMPARE(band.mode(), std::int64_t{value > 22040.0 ? 3 : 2});
    band.setCoefBPF_C(1000.0, value, 1.0, 6.0, true);
    QCOMPARE(band.mode(), std::int64_t{value < 2020.0 ? 3 : 2});
    band.setCoefBPF_C(1000.0, 44100.0, value, 6.0, true);
    band.setCoefBPF_C(1000.0, 44100.0, 1.0, value, true);
    QCOMPARE(band.mode(), std::int64_t{value < 0.0 ? 1 : 2});
    band.setCoefBPF_C(1000.0, 44100.0, 1.0, 20.0, true);
    COMPARE_WITHIN(band.gainFactor(), 9.0, 1e-14);
}

QTEST_APPLESS_MAIN(tst_FILTER2PEQ)
#include "tst_FILTER2PEQ.moc"
