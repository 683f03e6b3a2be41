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

struct Settings
{
    double f, fs, q, g;
};

} // namespace

Q_DECLARE_METATYPE(Settings)

class tst_FILTER2PEQ : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsUndesigned();
    void modeFollowsTheGain();
    void zeroGainKeepsTheMode();
    void frequencyBelowTheTopIsNotClamped();
    void frequencyAboveTheTopIsClamped();
    void gainFactorIsKeptOnRequest();
    void qualityTable_data();
    void qualityTable();
    void qualityIsFlooredAtATenth();
    void qualityWorkedExample();
    void copyTakesTheDesignNotTheSamples();
    void secondOrderCallStartsAnew();
    void centreReachesTheGain_data();
    void centreReachesTheGain();
    void impulseResponseHasThePower_data() { centreReachesTheGain_data(); }
    void impulseResponseHasThePower();
    void cutAndBoostUndoEachOther_data() { centreReachesTheGain_data(); }
    void cutAndBoostUndoEachOther();
    void calculatingDoesNotAdvance();
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
    band.setCoefBPF_C(22040.0, 44100.0, 1.5, 12.0, true);
    QCOMPARE(band.mode(), std::int64_t{2});
    band.setCoefBPF_C(std::nextafter(22040.0, 1e9), 44100.0, 1.5, 12.0, true);
    QCOMPARE(band.mode(), std::int64_t{3});
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

void tst_FILTER2PEQ::gainFactorIsKeptOnRequest()
{
    for (const auto& [f, mode] :
         {std::pair(1000.0, FILTER2PEQ::ModeCut), {22045.0, FILTER2PEQ::ModeClamped}}) {
        FILTER2PEQ band;
        band.setCoefBPF_C(1000.0, 44100.0, 1.5, 20.0, true);
        band.setCoefBPF_C(f, 44100.0, 3.0, -6.0, false);
        QCOMPARE(band.mode(), std::int64_t{mode});
        COMPARE_WITHIN(band.gainFactor(), 9.0, 1e-14);
        COMPARE_WITHIN(band.scaledGain(), 9.0 * band.coefficients()[2], 1e-14);
    }
}

void tst_FILTER2PEQ::qualityTable_data()
{
    QTest::addColumn<double>("fs");
    QTest::addColumn<double>("threshold");
    QTest::addColumn<double>("c0");
    QTest::addColumn<double>("c1");
    QTest::addColumn<double>("c2");
    const auto rows = [](double first, double last, double threshold, double c0, double c1,
                         double c2) {
        for (const double fs : {first, last})
            QTest::addRow("%.1f", fs) << fs << threshold << c0 << c1 << c2;
    };
    rows(32000.0, 47999.9, 2000.0, 1.25513, 0.0301, 4.817e-05);
    rows(48000.0, 88199.9, 2000.0, 1.25686, 0.02143, 4.103e-05);
    rows(88200.0, 95999.9, 4000.0, 1.29486, 0.0317, 2.462e-05);
    rows(96000.0, 176399.9, 4000.0, 1.21531, 0.02382, 2.004e-05);
    rows(176400.0, 191999.9, 4000.0, 1.00361995066, -0.00189199457524, 3.37063090936e-06);
    rows(192000.0, 352799.9, 4000.0, 1.00167207739, -0.00155627136929, 2.61028430333e-06);
    rows(352800.0, 383999.9, 4000.0, 1.00088954901, -0.000464497094809, 8.18066158909e-07);
    rows(384000.0, 384000.9, 4000.0, 1.00041829825, -0.000395429657653, 6.56655493056e-07);
    rows(384001.0, 768000.0, 0.0, 1.0, 0.0, 0.0);
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

void tst_FILTER2PEQ::qualityIsFlooredAtATenth()
{
    FILTER2PEQ band;
    for (const double q : {0.11, 0.1, 0.03}) {
        band.setCoefBPF_C(16000.0, 44100.0, q, 6.0, true);
        COMPARE_WITHIN(designedQuality(band, 16000.0, 44100.0), 0.1, 1e-12);
    }
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

void tst_FILTER2PEQ::centreReachesTheGain_data()
{
    QTest::addColumn<Settings>("s");
    QTest::newRow("broad") << Settings{400.0, 44100.0, 0.5, 20.0};
    QTest::newRow("narrow") << Settings{800.0, 44100.0, 16.0, 6.0};
    QTest::newRow("compensated") << Settings{9000.0, 44100.0, 1.5, 12.0};
    QTest::newRow("high") << Settings{20000.0, 44100.0, 4.0, 20.0};
    QTest::newRow("slight") << Settings{2500.0, 96000.0, 1.5, 0.1};
    QTest::newRow("high rate") << Settings{5600.0, 192000.0, 3.0, 9.0};
}

void tst_FILTER2PEQ::centreReachesTheGain()
{
    QFETCH(const Settings, s);
    FILTER2PEQ band;
    band.setCoefBPF_C(s.f, s.fs, s.q, 12.0, true);
    const double k = band.gainFactor();
    COMPARE_WITHIN(band.power_boost(s.f, s.fs, k), 12.0, 1e-9);
    COMPARE_WITHIN(band.power_cut(s.f, s.fs, k), -12.0, 1e-9);
    for (double at = 20.0; at < s.fs / 2.0; at *= 1.3)
        COMPARE_WITHIN(band.power_boost(at, s.fs, k) + band.power_cut(at, s.fs, k), 0.0, 1e-12);
}

void tst_FILTER2PEQ::impulseResponseHasThePower()
{
    QFETCH(const Settings, s);
    FILTER2PEQ band;
    band.setCoefBPF_C(s.f, s.fs, s.q, s.g, true);
    FILTER2PEQ plain;
    plain.setCoefByCopy(&band);
    FILTER2PEQ inverse;
    inverse.setCoefByCopy(&band);
    const double k = band.gainFactor();
    std::vector<double> pass;
    std::vector<double> boost;
    std::vector<double> less;
    for (int n = 0; n < 30000; ++n) {
        const double x = n == 0 ? 1.0 : 0.0;
        pass.push_back(plain.cal_boost(x));
        plain.dlyupdate_bpf(x);
        boost.push_back(boosted(band, x));
        less.push_back(cut(inverse, x));
    }
    for (const double at : {50.0, s.f, 3000.0, 20000.0}) {
        const std::complex<double> b = spectrumAt(pass, at, s.fs);
        COMPARE_WITHIN(std::abs(band.response_bpf(at, s.fs) - b), 0.0, 1e-9);
        COMPARE_WITHIN(band.power_boost(at, s.fs, k), decibels(spectrumAt(boost, at, s.fs)), 1e-8);
        COMPARE_WITHIN(band.power_cut(at, s.fs, k), decibels(spectrumAt(less, at, s.fs)), 1e-8);
    }
}

void tst_FILTER2PEQ::cutAndBoostUndoEachOther()
{
    QFETCH(const Settings, s);
    for (const bool boostFirst : {true, false}) {
        FILTER2PEQ there;
        FILTER2PEQ back;
        there.setCoefBPF_C(s.f, s.fs, s.q, boostFirst ? s.g : -s.g, true);
        back.setCoefBPF_C(s.f, s.fs, s.q, boostFirst ? -s.g : s.g, true);
        std::mt19937 random(1);
        std::uniform_real_distribution<double> noise(-1.0, 1.0);
        for (int n = 0; n < 20000; ++n) {
            const double x = noise(random);
            COMPARE_WITHIN(boostFirst ? cut(back, boosted(there, x)) : boosted(back, cut(there, x)),
                           x, 1e-9);
        }
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
    QVERIFY(band.cal_cut() != 0.0);
    COMPARE_WITHIN(band.cal_cut() + band.coefficients()[2] * 0.5, once, 1e-16);
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
