// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/model/ResponseComparison.h"
#include "tests/engine/EngineTesting.h"
#include "tests/support/TestObject.h"

using namespace EngineTesting;

class tst_ResponseComparison : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void pointsLieOnTheCurve_data();
    void pointsLieOnTheCurve();
    void measuresNothingBefore();
    void bypassIsHeard();
    void levelsAndDriveAreLeftOut();

private:
    static ChannelValues changed(std::initializer_list<std::pair<std::size_t, int>> changes);
};

// The defaults with other values of some parameters, by number.
ChannelValues
tst_ResponseComparison::changed(std::initializer_list<std::pair<std::size_t, int>> changes)
{
    ChannelValues values = defaultValues();
    for (const auto& [number, value] : changes)
        values[number - 1] = value;
    return values;
}

void tst_ResponseComparison::pointsLieOnTheCurve_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<double>("last");
    QTest::newRow("44100 Hz") << 44100 << 19845.0;
    QTest::newRow("48000 Hz") << 48000 << 20000.0;
    QTest::newRow("192000 Hz") << 192000 << 20000.0;
    QTest::newRow("8000 Hz") << 8000 << 3600.0;
}

void tst_ResponseComparison::pointsLieOnTheCurve()
{
    QFETCH(const int, rate);
    QFETCH(const double, last);
    const ChannelValues values = changed({{3, 90}, {7, -150}, {11, 60}, {6, 500}});
    ResponseComparison comparison;
    comparison.setSampleRate(rate);
    comparison.measure(values, values);
    EqualizerBands bands;
    EngineTesting::setBands(&bands, values, rate);
    const std::vector<double>& frequencies = comparison.frequencies();
    QCOMPARE(frequencies.front(), 20.0);
    QCOMPARE(frequencies.back(), last);
    QCOMPARE(comparison.measured().size(), frequencies.size());
    for (std::size_t i = 0; i < frequencies.size(); ++i) {
        const double level = drawnLevel(bands, values, frequencies[i]);
        COMPARE_NEAR(comparison.drawn()[i], level, 1e-4);
        COMPARE_NEAR(comparison.measured()[i], level, 1e-3);
    }
    QVERIFY(comparison.largestDifference() < 0.001);
}

void tst_ResponseComparison::measuresNothingBefore()
{
    ResponseComparison comparison;
    comparison.setSampleRate(48000);
    QVERIFY(comparison.measured().empty());
    QCOMPARE(comparison.largestDifference(), 0.0);
    comparison.measure(defaultValues(), defaultValues());
    QVERIFY(comparison.measured().size() > 90);
}

void tst_ResponseComparison::bypassIsHeard()
{
    const ChannelValues values = changed({{7, 120}});
    ResponseComparison comparison;
    comparison.setSampleRate(48000);
    comparison.measure(values, bypassed(values));
    QCOMPARE(comparison.measured(), std::vector<double>(comparison.frequencies().size(), 0.0));
    QVERIFY(comparison.largestDifference() > 11.0);
}

void tst_ResponseComparison::levelsAndDriveAreLeftOut()
{
    ResponseComparison comparison;
    comparison.setSampleRate(48000);
    comparison.measure(defaultValues(), defaultValues());
    const std::vector<double> flat = comparison.measured();
    const ChannelValues loud = changed({{25, 60}, {26, -100}, {27, 1}});
    comparison.measure(loud, loud);
    QCOMPARE(comparison.measured(), flat);
}

ZOLTA_TEST_MAIN(tst_ResponseComparison)

#include "tst_ResponseComparison.moc"
