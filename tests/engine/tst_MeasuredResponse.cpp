// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/MeasuredResponse.h"
#include "tests/engine/EngineTesting.h"
#include "tests/support/TestObject.h"

using namespace EngineTesting;

class tst_MeasuredResponse : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void measuresWhatIsDrawn_data();
    void measuresWhatIsDrawn();
    void levelsAndDriveAreLeftOut();
    void nothingLeftIsAFiniteLevel();
};

void tst_MeasuredResponse::measuresWhatIsDrawn_data()
{
    QTest::addColumn<QString>("settings");
    QTest::addColumn<int>("rate");
    QTest::newRow("flat") << QString() << 48000;
    QTest::newRow("six bands")
        << QStringLiteral("2=296 3=-60 5=200 6=482 7=-40 11=50 14=876 15=-30 21=0 22=1138")
        << 48000;
    QTest::newRow("slowest boost") << QStringLiteral("5=500 6=0 7=200") << 48000;
    QTest::newRow("slowest cut") << QStringLiteral("5=500 6=0 7=-200") << 192000;
    // At rates below 40020 Hz a centre can lie beyond the top that a filter allows: its gain factor
    // is then 0, but curves are drawn with the band's own gain, and so it sounds.
    QTest::newRow("clamped centre") << QStringLiteral("5=0 6=1200 7=200") << 32000;
    QTest::newRow("steep low end") << QStringLiteral("1=0 2=500 23=120") << 44100;
}

void tst_MeasuredResponse::measuresWhatIsDrawn()
{
    QFETCH(const QString, settings);
    QFETCH(const int, rate);
    const Values values = valuesFrom(settings);
    EqualizerBands bands;
    setBands(&bands, values, rate);
    std::vector<double> frequencies;
    for (int i = 0; i <= 30; ++i)
        frequencies.push_back(20.0 * std::pow(0.45 * rate / 20.0, i / 30.0));
    const std::vector<double> levels = measuredResponse(values, rate, frequencies);
    QCOMPARE(levels.size(), frequencies.size());
    for (std::size_t i = 0; i < levels.size(); ++i)
        COMPARE_NEAR(levels[i], drawnLevel(bands, values, frequencies[i]), 0.001);
}

void tst_MeasuredResponse::levelsAndDriveAreLeftOut()
{
    const double frequencies[] = {100.0, 1000.0};
    const std::vector<double> bands =
        measuredResponse(valuesFrom(QStringLiteral("7=60")), 48000, frequencies);
    QCOMPARE(
        measuredResponse(valuesFrom(QStringLiteral("7=60 25=-90 26=50 27=1")), 48000, frequencies),
        bands);
}

// Half the rate is where a low pass lets nothing through.
void tst_MeasuredResponse::nothingLeftIsAFiniteLevel()
{
    const double frequencies[] = {24000.0};
    const std::vector<double> levels =
        measuredResponse(valuesFrom(QStringLiteral("21=0 22=0")), 48000, frequencies);
    QVERIFY(std::isfinite(levels[0]));
    QVERIFY(levels[0] < -150.0);
}

QTEST_APPLESS_MAIN(tst_MeasuredResponse)
#include "tst_MeasuredResponse.moc"
