// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/EqualizerBands.h"
#include "tests/graph/AnalogModel.h"
#include "tests/support/TestObject.h"

#include <cmath>
#include <limits>

namespace {

double total(const EqualizerBands& bands, double hz)
{
    return bands.response().levels(hz, bands.sampleRate()).total;
}

AnalogModel::Settings settings(const EqualizerBands& bands)
{
    AnalogModel::Settings result;
    for (int i = 0; i < EqualizerBands::Count; ++i)
        result[static_cast<std::size_t>(i)] = {bands[i].on, bands[i].type, bands[i].quality,
                                               bands[i].frequency, bands[i].gain};
    return result;
}

constexpr double Frequencies[] = {20, 77, 310, 1000, 2500, 7000, 12000, 19000};

} // namespace

class tst_EqualizerBands : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initialSettings();
    void whichBandsHaveAGain();
    void designTakesTheSettings_data();
    void designTakesTheSettings();
    void settingAFieldDoesNotDesign();
    void sampleRateDesignsEveryBand();
    void unknownTypeKeepsItsDesign();
};

void tst_EqualizerBands::initialSettings()
{
    const EqualizerBands bands;
    const double frequencies[] = {80, 400, 800, 2500, 5600, 12500};
    QCOMPARE(bands.sampleRate(), 44100.0);
    for (int i = 0; i < EqualizerBands::Count; ++i) {
        QVERIFY(bands[i].on);
        QCOMPARE(bands[i].frequency, frequencies[i]);
        QCOMPARE(bands[i].gain, 0.0);
        if (EqualizerBands::isMiddle(i))
            QCOMPARE(bands[i].quality, 1.5);
        else
            QCOMPARE(bands[i].type, 3);
    }
    for (const double hz : Frequencies)
        QVERIFY(std::abs(total(bands, hz)) < 1e-9);
}

void tst_EqualizerBands::whichBandsHaveAGain()
{
    EqualizerBands bands;
    for (int band = 1; band < 5; ++band) {
        QVERIFY(EqualizerBands::isMiddle(band));
        for (const int type : {-1, 0, 1, 2, 3, 4}) {
            bands[band].type = type;
            QVERIFY(bands.hasGain(band) && !bands.isPass(band));
        }
    }
    for (const int band : {EqualizerBands::Low, EqualizerBands::High}) {
        QVERIFY(!EqualizerBands::isMiddle(band));
        for (const int type : {-1, 0, 1, 2, 3, 4}) {
            bands[band].type = type;
            QCOMPARE(bands.hasGain(band), type == 2 || type == 3);
            QCOMPARE(bands.isPass(band), type == 0 || type == 1);
        }
    }
}

void tst_EqualizerBands::designTakesTheSettings_data()
{
    QTest::addColumn<int>("band");
    QTest::addColumn<int>("type");
    for (const int band : {0, 5})
        for (const int type : {0, 1, 2, 3})
            QTest::addRow("band %d type %d", band, type) << band << type;
    for (int band = 1; band < 5; ++band)
        QTest::addRow("band %d", band) << band << 3;
}

void tst_EqualizerBands::designTakesTheSettings()
{
    QFETCH(int, band);
    QFETCH(int, type);
    EqualizerBands bands;
    for (const double frequency : {80.0, 1700.0, 12500.0})
        for (const double gain : {-13.5, 7.25, 20.0}) {
            bands[band] = {true, type, 2.75, frequency, gain};
            bands.design(band);
            for (const double hz : Frequencies) {
                const double expected = AnalogModel::total(settings(bands), hz, 44100);
                QVERIFY(std::abs(total(bands, hz) - expected) < 1e-6);
            }
        }
}

void tst_EqualizerBands::settingAFieldDoesNotDesign()
{
    EqualizerBands bands;
    bands[0].gain = 9.0;
    QVERIFY(std::abs(total(bands, 20)) < 1e-9);
    bands.design(5);
    QVERIFY(std::abs(total(bands, 20)) < 1e-9);
    bands.design(0);
    QVERIFY(std::abs(total(bands, 20) - 9.0) < 0.1);
}

void tst_EqualizerBands::sampleRateDesignsEveryBand()
{
    EqualizerBands bands;
    for (int band = 0; band < EqualizerBands::Count; ++band)
        bands[band] = {true, 2, 1.1, 300.0 * (band + 1), band % 2 ? 6.0 : -4.0};
    for (const double rate : {48000.0, 96000.0, 44100.0}) {
        bands.setSampleRate(rate);
        QCOMPARE(bands.sampleRate(), rate);
        for (const double hz : Frequencies)
            QVERIFY(std::abs(total(bands, hz) - AnalogModel::total(settings(bands), hz, rate)) <
                    1e-6);
    }
}

void tst_EqualizerBands::unknownTypeKeepsItsDesign()
{
    EqualizerBands bands;
    for (const int band : {0, 5}) {
        bands[band] = {true, 2, 1.5, 1000.0, 6.0};
        bands.design(band);
        const double before = total(bands, 500);
        for (const int type : {-1, 4, std::numeric_limits<int>::min()}) {
            bands[band] = {true, type, 1.5, 3000.0, -6.0};
            bands.design(band);
            QCOMPARE(total(bands, 500), before);
        }
    }
}

QTEST_APPLESS_MAIN(tst_EqualizerBands)

#include "tst_EqualizerBands.moc"
