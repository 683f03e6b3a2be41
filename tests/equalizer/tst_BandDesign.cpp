// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/BandDesign.h"
#include "tests/equalizer/FilterTesting.h"
#include "tests/support/TestObject.h"

#include <limits>

namespace {

constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();

} // namespace

class tst_BandDesign : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void rangeEndsGiveTheUnitEnds_data();
    void rangeEndsGiveTheUnitEnds();
    void middleOfTheRange();
    void positionIsSinglePrecision();
    void equalLimits();
    void frequencyPosition_data();
    void frequencyPosition();
    void gainPosition_data();
    void gainPosition();
    void rawValue_data();
    void rawValue();
    void everyRawValueSurvivesTheRoundTrip_data();
    void everyRawValueSurvivesTheRoundTrip();
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
    QTest::newRow("widest") << Lowest << Highest;
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
    // Values outside the range are clamped.
    const bool rising = minimum < maximum;
    QVERIFY(BandDesign::position(Lowest, minimum, maximum) == (rising ? 0.0F : 1.0F));
    QVERIFY(BandDesign::position(Highest, minimum, maximum) == (rising ? 1.0F : 0.0F));
}

void tst_BandDesign::middleOfTheRange()
{
    QVERIFY(BandDesign::position(0, Lowest, Highest) == 0.5F);
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

void tst_BandDesign::rawValue_data()
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
    QTest::newRow("half of a falling range") << 0.5F << 0 << -3 << -2;
    QTest::newRow("five eighths of four") << 0.625F << 10 << 14 << 13;
    QTest::newRow("below") << -3.0F << -50 << 50 << -50;
    QTest::newRow("above") << 3.0F << -50 << 50 << 50;
    QTest::newRow("most negative") << float(-Infinity) << -50 << 50 << -50;
    QTest::newRow("infinite") << float(Infinity) << -50 << 50 << 50;
    QTest::newRow("undefined") << float(NaN) << -50 << 50 << -50;
    QTest::newRow("equal limits") << 0.5F << 7 << 7 << 7;
    QTest::newRow("start of the widest") << 0.0F << Lowest << Highest << Lowest;
    QTest::newRow("end of the widest") << 1.0F << Lowest << Highest << Highest;
    QTest::newRow("end of the widest falling") << 1.0F << Highest << Lowest << Lowest;
}

void tst_BandDesign::rawValue()
{
    QFETCH(const float, position);
    QFETCH(const int, minimum);
    QFETCH(const int, maximum);
    QFETCH(const int, raw);
    QCOMPARE(BandDesign::rawValue(position, minimum, maximum), raw);
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

QTEST_APPLESS_MAIN(tst_BandDesign)
#include "tst_BandDesign.moc"
