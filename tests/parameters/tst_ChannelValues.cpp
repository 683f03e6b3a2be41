// SPDX-License-Identifier: GPL-3.0-or-later
#include "parameters/ChannelValues.h"
#include "tests/support/TestObject.h"

#include <cmath>

class tst_ChannelValues : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsTheBands();
    void readsTheLevels();
    void tellsBandsApart();
    void bypassLeavesNothingOn();
};

// Raw frequencies are 400 steps a decade from 20 Hz, qualities 100 an octave from 0.5, gains
// tenths.
void tst_ChannelValues::readsTheBands()
{
    ChannelValues values = defaultValues();
    values[0] = 1;
    values[1] = 400;
    values[2] = -65;
    values[3] = 0;
    const Band low = bandOf(values, EqualizerBands::Low);
    QCOMPARE(low.type, 1);
    QVERIFY(std::abs(low.frequency - 200.0) < 0.01);
    QVERIFY(std::abs(low.gain + 6.5) < 1e-4);
    QVERIFY(!low.on);

    values[12] = 300;
    values[13] = 800;
    const Band middle = bandOf(values, 3);
    QVERIFY(std::abs(middle.quality - 4.0) < 1e-3);
    QVERIFY(std::abs(middle.frequency - 2000.0) < 0.1);
    QVERIFY(middle.on);

    values[20] = 2;
    QCOMPARE(bandOf(values, EqualizerBands::High).type, 2);
}

void tst_ChannelValues::readsTheLevels()
{
    ChannelValues values = defaultValues();
    values[24] = 15;
    values[25] = -200;
    QVERIFY(std::abs(inputLevelOf(values) - 1.5) < 1e-4);
    QVERIFY(std::abs(outputLevelOf(values) + 20.0) < 1e-4);
    QVERIFY(!isDriven(values));
    values[26] = 1;
    QVERIFY(isDriven(values));
}

void tst_ChannelValues::tellsBandsApart()
{
    const ChannelValues values = defaultValues();
    for (std::size_t i = 0; i < parameterCount; ++i) {
        ChannelValues changed = values;
        ++changed[i];
        for (int band = 0; band < EqualizerBands::Count; ++band)
            QCOMPARE(isSameBand(values, changed, band), static_cast<int>(i / 4) != band);
    }
}

void tst_ChannelValues::bypassLeavesNothingOn()
{
    ChannelValues values = defaultValues();
    values[2] = values[24] = values[25] = 100;
    values[26] = 1;
    const ChannelValues past = bypassed(values);
    for (int band = 0; band < EqualizerBands::Count; ++band)
        QVERIFY(!bandOf(past, band).on);
    QCOMPARE(inputLevelOf(past), 0.0);
    QCOMPARE(outputLevelOf(past), 0.0);
    QVERIFY(!isDriven(past));
    QCOMPARE(past[2], 100);
}

QTEST_APPLESS_MAIN(tst_ChannelValues)
#include "tst_ChannelValues.moc"
