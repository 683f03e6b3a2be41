// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/BandDesign.h"
#include "tests/equalizer/FilterTesting.h"
#include "tests/support/TestObject.h"

#include <array>
#include <limits>

namespace {

constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

constexpr double Fs = 44100.0;

using Design = void (*)(VEQ_Filter& filter, int type, double f, double g, double fs);

std::array<double, 5> sectionOf(const VEQ_Filter& filter)
{
    std::array<double, 5> c{};
    filter.getCoefDirect(c.data(), 5);
    return c;
}

} // namespace

Q_DECLARE_METATYPE(Design)

class tst_BandDesign : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void rangeEndsGiveTheUnitEnds_data();
    void rangeEndsGiveTheUnitEnds();
    void valuesOutsideTheRangeAreClamped_data() { rangeEndsGiveTheUnitEnds_data(); }
    void valuesOutsideTheRangeAreClamped();
    void middleOfTheRange();
    void positionIsSinglePrecision();
    void equalLimits();
    void widestRangeDoesNotOverflow();

    void frequencyPosition_data();
    void frequencyPosition();
    void gainPosition_data();
    void gainPosition();
    void rawValueRoundsHalvesAwayFromZero_data();
    void rawValueRoundsHalvesAwayFromZero();
    void rawValueStaysInTheRange_data();
    void rawValueStaysInTheRange();
    void everyRawValueSurvivesTheRoundTrip_data();
    void everyRawValueSurvivesTheRoundTrip();

    void passTypes_data();
    void passTypes();
    void shelvesAreMovedByTheirFactor_data();
    void shelvesAreMovedByTheirFactor();
    void shelfLevelAtItsFrequency_data();
    void shelfLevelAtItsFrequency();
    void otherTypesKeepTheFilter_data();
    void otherTypesKeepTheFilter();
    void middleBand();
};

void tst_BandDesign::rangeEndsGiveTheUnitEnds_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::newRow("0..1000") << 0 << 1000;
    QTest::newRow("-200..200") << -200 << 200;
    QTest::newRow("5..6") << 5 << 6;
    QTest::newRow("falling") << 100 << -100;
    QTest::newRow("all positive") << 0 << Highest;
    QTest::newRow("all negative") << Lowest << 0;
}

void tst_BandDesign::rangeEndsGiveTheUnitEnds()
{
    QFETCH(const int, minimum);
    QFETCH(const int, maximum);
    const float low = BandDesign::position(minimum, minimum, maximum);
    const float high = BandDesign::position(maximum, minimum, maximum);
    QVERIFY(low == 0.0F);
    QVERIFY(high == 1.0F);
    QVERIFY(BandDesign::frequency(low) == 20.0);
    QVERIFY(BandDesign::quality(low) == 0.5);
    QVERIFY(BandDesign::gain(low) == -20.0);
    QVERIFY(BandDesign::frequency(high) == 20000.0);
    COMPARE_WITHIN(BandDesign::quality(high), 16.0, 1e-14);
    QVERIFY(BandDesign::gain(high) == 20.0);
}

void tst_BandDesign::valuesOutsideTheRangeAreClamped()
{
    QFETCH(const int, minimum);
    QFETCH(const int, maximum);
    const bool rising = minimum < maximum;
    QVERIFY(BandDesign::position(Lowest, minimum, maximum) == (rising ? 0.0F : 1.0F));
    QVERIFY(BandDesign::position(Highest, minimum, maximum) == (rising ? 1.0F : 0.0F));
}

void tst_BandDesign::middleOfTheRange()
{
    const float middle = BandDesign::position(50, 0, 100);
    COMPARE_WITHIN(BandDesign::frequency(middle), std::sqrt(20.0 * 20000.0), 1e-10);
    COMPARE_WITHIN(BandDesign::quality(middle), std::sqrt(0.5 * 16.0), 1e-14);
    QVERIFY(BandDesign::gain(middle) == 0.0);
}

void tst_BandDesign::positionIsSinglePrecision()
{
    // A third in single precision lies 1e-8 above a third.
    const double third = 11184811.0 / 33554432.0;
    QVERIFY(BandDesign::position(1, 0, 3) == static_cast<float>(third));
    COMPARE_WITHIN(BandDesign::gain(BandDesign::position(1, 0, 3)), 40.0 * third - 20.0, 1e-14);
    COMPARE_WITHIN(BandDesign::frequency(BandDesign::position(1, 0, 3)),
                   20.0 * std::exp(third * std::log(1000.0)), 1e-10);
}

void tst_BandDesign::equalLimits()
{
    QVERIFY(BandDesign::position(7, 7, 7) == 0.0F);
    QVERIFY(BandDesign::position(8, 7, 7) == 1.0F);
    QVERIFY(BandDesign::position(6, 7, 7) == 0.0F);
    for (const float r : {0.0F, 0.5F, 1.0F})
        QCOMPARE(BandDesign::rawValue(r, 7, 7), 7);
}

void tst_BandDesign::widestRangeDoesNotOverflow()
{
    QVERIFY(BandDesign::position(Lowest, Lowest, Highest) == 0.0F);
    QVERIFY(BandDesign::position(Highest, Lowest, Highest) == 1.0F);
    QVERIFY(BandDesign::position(0, Lowest, Highest) == 0.5F);
    QCOMPARE(BandDesign::rawValue(0.0F, Lowest, Highest), Lowest);
    QCOMPARE(BandDesign::rawValue(1.0F, Lowest, Highest), Highest);
    QCOMPARE(BandDesign::rawValue(1.0F, Highest, Lowest), Lowest);
}

void tst_BandDesign::frequencyPosition_data()
{
    QTest::addColumn<double>("hz");
    QTest::addColumn<double>("expected");
    QTest::addColumn<double>("tolerance");
    const auto add = [](double hz, double expected, double tolerance) {
        QTest::addRow("%g Hz", hz) << hz << expected << tolerance;
    };
    for (const double hz : {20.0, 19.999, 1.0, 0.0, -5.0, -Infinity, NaN})
        add(hz, 0.0, 0.0);
    for (const double hz : {20000.0, 20000.5, 1e300, Infinity})
        add(hz, 1.0, 0.0);
    for (const double hz : {20.1, 100.0, 632.45553203367587, 5600.0, 19999.0})
        add(hz, std::log10(hz / 20.0) / 3.0, 3e-7);
}

void tst_BandDesign::frequencyPosition()
{
    QFETCH(const double, hz);
    QFETCH(const double, expected);
    QFETCH(const double, tolerance);
    COMPARE_WITHIN(double{BandDesign::frequencyPosition(hz)}, expected, tolerance);
}

void tst_BandDesign::gainPosition_data()
{
    QTest::addColumn<double>("db");
    QTest::addColumn<float>("expected");
    const auto add = [](double db, float expected) {
        QTest::addRow("%g dB", db) << db << expected;
    };
    for (const double db : {-20.0, -20.5, -1e300, -Infinity, NaN})
        add(db, 0.0F);
    for (const double db : {20.0, 20.5, 1e300, Infinity})
        add(db, 1.0F);
    add(0.0, 0.5F);
    add(-10.0, 0.25F);
    add(12.3, 32.3F / 40.0F);
}

void tst_BandDesign::gainPosition()
{
    QFETCH(const double, db);
    QFETCH(const float, expected);
    QVERIFY(BandDesign::gainPosition(db) == expected);
}

void tst_BandDesign::rawValueRoundsHalvesAwayFromZero_data()
{
    QTest::addColumn<float>("position");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("raw");
    QTest::newRow("below half") << 0.49F << 0 << 1 << 0;
    QTest::newRow("half") << 0.5F << 0 << 1 << 1;
    QTest::newRow("half of three") << 0.5F << 0 << 3 << 2;
    // It is the distance from the minimum that is rounded.
    QTest::newRow("half below zero") << 0.5F << -3 << 0 << -1;
    QTest::newRow("falling") << 0.5F << 0 << -3 << -2;
    QTest::newRow("five eighths of four") << 0.625F << 10 << 14 << 13;
}

void tst_BandDesign::rawValueRoundsHalvesAwayFromZero()
{
    QFETCH(const float, position);
    QFETCH(const int, minimum);
    QFETCH(const int, maximum);
    QFETCH(const int, raw);
    QCOMPARE(BandDesign::rawValue(position, minimum, maximum), raw);
}

void tst_BandDesign::rawValueStaysInTheRange_data()
{
    QTest::addColumn<float>("position");
    QTest::addColumn<int>("raw");
    QTest::newRow("below") << -3.0F << -50;
    QTest::newRow("above") << 3.0F << 50;
    QTest::newRow("most negative") << -std::numeric_limits<float>::infinity() << -50;
    QTest::newRow("infinite") << std::numeric_limits<float>::infinity() << 50;
    QTest::newRow("undefined") << std::numeric_limits<float>::quiet_NaN() << -50;
}

void tst_BandDesign::rawValueStaysInTheRange()
{
    QFETCH(const float, position);
    QFETCH(const int, raw);
    QCOMPARE(BandDesign::rawValue(position, -50, 50), raw);
}

void tst_BandDesign::everyRawValueSurvivesTheRoundTrip_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::newRow("0..120") << 0 << 120;
    QTest::newRow("-200..200") << -200 << 200;
    QTest::newRow("0..10000") << 0 << 10000;
    QTest::newRow("falling") << 60 << -60;
}

void tst_BandDesign::everyRawValueSurvivesTheRoundTrip()
{
    QFETCH(const int, minimum);
    QFETCH(const int, maximum);
    for (int raw = std::min(minimum, maximum); raw <= std::max(minimum, maximum); ++raw) {
        const float r = BandDesign::position(raw, minimum, maximum);
        QCOMPARE(BandDesign::rawValue(r, minimum, maximum), raw);
        const float f = BandDesign::frequencyPosition(BandDesign::frequency(r));
        QCOMPARE(BandDesign::rawValue(f, minimum, maximum), raw);
        const float g = BandDesign::gainPosition(BandDesign::gain(r));
        QCOMPARE(BandDesign::rawValue(g, minimum, maximum), raw);
    }
}

void tst_BandDesign::passTypes_data()
{
    QTest::addColumn<Design>("design");
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("passed");
    QTest::addColumn<double>("stopped");
    QTest::addColumn<double>("decibelsPerDecade");
    QTest::newRow("low 0") << Design(BandDesign::designLow) << 0 << 20000.0 << 10.0 << 40.0;
    QTest::newRow("low 1") << Design(BandDesign::designLow) << 1 << 20000.0 << 10.0 << 20.0;
    QTest::newRow("high 0") << Design(BandDesign::designHigh) << 0 << 10.0 << 10000.0 << 40.0;
    QTest::newRow("high 1") << Design(BandDesign::designHigh) << 1 << 10.0 << 10000.0 << 20.0;
}

void tst_BandDesign::passTypes()
{
    QFETCH(const Design, design);
    QFETCH(const int, type);
    QFETCH(const double, passed);
    QFETCH(const double, stopped);
    QFETCH(const double, decibelsPerDecade);
    constexpr double corner = 1000.0;
    // At a high rate the digital filter is the analog one.
    constexpr double rate = 1e7;
    VEQ_Filter filter;
    design(filter, type, corner, 17.0, rate);
    COMPARE_WITHIN(filter.power(corner, rate), 10.0 * std::log10(0.5), 1e-6);
    COMPARE_WITHIN(filter.power(passed, rate), 0.0, 0.02);
    COMPARE_WITHIN(filter.power(stopped, rate),
                   -decibelsPerDecade * std::abs(std::log10(stopped / corner)), 0.05);
}

void tst_BandDesign::shelvesAreMovedByTheirFactor_data()
{
    QTest::addColumn<Design>("design");
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("factor");
    QTest::newRow("low 2") << Design(BandDesign::designLow) << 2 << 10.0;
    QTest::newRow("low 3") << Design(BandDesign::designLow) << 3 << std::sqrt(10.0);
    QTest::newRow("high 2") << Design(BandDesign::designHigh) << 2 << 0.1;
    QTest::newRow("high 3") << Design(BandDesign::designHigh) << 3 << std::sqrt(0.1);
}

// The level of the analog shelf whose zeros lie at `factor` times the pre-warped band frequency.
void tst_BandDesign::shelvesAreMovedByTheirFactor()
{
    QFETCH(const Design, design);
    QFETCH(const int, type);
    QFETCH(const double, factor);
    const double a = std::pow(10.0, 12.0 / 20.0);
    for (const double f : {80.0, 1000.0, 12500.0}) {
        VEQ_Filter filter;
        design(filter, type, f, 12.0, Fs);
        for (const double at : {30.0, 300.0, 3000.0, 15000.0}) {
            // The analog frequency in units of the moved corner.
            const double w = std::tan(M_PI * at / Fs) / (factor * std::tan(M_PI * f / Fs));
            const std::complex<double> s(0.0, factor > 1.0 ? w : 1.0 / w);
            const std::complex<double> h = type == 2
                                               ? (s + 1.0) / (s + 1.0 / a)
                                               : (s * s + std::sqrt(2.0) * s + 1.0) /
                                                     (s * s + std::sqrt(2.0 / a) * s + 1.0 / a);
            COMPARE_WITHIN(filter.power(at, Fs), decibels(h), 1e-8);
        }
    }
}

void tst_BandDesign::shelfLevelAtItsFrequency_data()
{
    QTest::addColumn<Design>("design");
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("inside");
    QTest::addColumn<double>("outside");
    for (const int type : {2, 3}) {
        QTest::addRow("low %d", type) << Design(BandDesign::designLow) << type << 1.0 << 22000.0;
        QTest::addRow("high %d", type) << Design(BandDesign::designHigh) << type << 22000.0 << 1.0;
    }
}

void tst_BandDesign::shelfLevelAtItsFrequency()
{
    QFETCH(const Design, design);
    QFETCH(const int, type);
    QFETCH(const double, inside);
    QFETCH(const double, outside);
    for (const double gain : {20.0, -20.0}) {
        VEQ_Filter filter;
        design(filter, type, 1000.0, gain, Fs);
        COMPARE_WITHIN(filter.power(inside, Fs), gain, 0.1);
        COMPARE_WITHIN(filter.power(outside, Fs), 0.0, 1.0);
        // At 20 dB the moved poles of either order lie at the band's own frequency.
        COMPARE_WITHIN(filter.power(1000.0, Fs), std::copysign(17.0, gain), 0.1);
    }
}

void tst_BandDesign::otherTypesKeepTheFilter_data()
{
    QTest::addColumn<Design>("design");
    QTest::newRow("low") << Design(BandDesign::designLow);
    QTest::newRow("high") << Design(BandDesign::designHigh);
}

void tst_BandDesign::otherTypesKeepTheFilter()
{
    QFETCH(const Design, design);
    VEQ_Filter filter;
    filter.setCoefLPF(1234.0, Fs);
    const auto before = sectionOf(filter);
    for (const int type : {-1, 4, Lowest, Highest}) {
        design(filter, type, 500.0, 6.0, Fs);
        QCOMPARE(sectionOf(filter), before);
    }
}

void tst_BandDesign::middleBand()
{
    FILTER2PEQ band;
    BandDesign::designMiddle(band, 800.0, 2.0, -9.0, Fs);
    QCOMPARE(band.mode(), std::int64_t{FILTER2PEQ::ModeCut});
    COMPARE_WITHIN(band.power_cut(800.0, Fs, band.gainFactor()), -9.0, 1e-9);
    // The edges of the band-pass, geometrically about its centre before the warp, lie 1 / Q apart.
    const double t = std::tan(M_PI * 800.0 / Fs);
    const double edge = t * (std::sqrt(1.0 + 1.0 / 16.0) + 0.25);
    const double f = Fs / M_PI * std::atan(edge);
    COMPARE_WITHIN(decibels(band.response_bpf(f, Fs)), 10.0 * std::log10(0.5), 1e-9);
}

QTEST_APPLESS_MAIN(tst_BandDesign)
#include "tst_BandDesign.moc"
