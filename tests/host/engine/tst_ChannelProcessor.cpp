// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/host/engine/EngineTesting.h"
#include "tests/support/TestObject.h"

#include <complex>

using namespace EngineTesting;

class tst_ChannelProcessor : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void soundsAsTheCurveIsDrawn_data();
    void soundsAsTheCurveIsDrawn();
    void cutUndoesBoost();
    void defaultsChangeNothing();
    void bandsThatAreOffChangeNothing();
    void levelsMultiply_data();
    void levelsMultiply();
    void changesArePickedUp();
    void forgets();

private:
    static double gain(const Block& in, const Block& out, double frequency, int rate);
};

// In dB, by correlation with the sine over the second half: a whole number of periods.
double tst_ChannelProcessor::gain(const Block& in, const Block& out, double frequency, int rate)
{
    const auto correlation = [frequency, rate](const Block& block) {
        std::complex<double> sum;
        for (std::size_t i = block.size() / 2; i < block.size(); ++i)
            sum += block[i] * std::polar(1.0, -2.0 * M_PI * frequency * double(i) / rate);
        return std::abs(sum);
    };
    return 20.0 * std::log10(correlation(out) / correlation(in));
}

void tst_ChannelProcessor::soundsAsTheCurveIsDrawn_data()
{
    QTest::addColumn<QString>("settings");
    QTest::addColumn<int>("rate");
    const auto row = [](const char* name, const char* settings, int rate = 48000) {
        QTest::newRow(name) << QString::fromLatin1(settings) << rate;
    };
    row("flat", "");
    for (int type = 0; type < 4; ++type) {
        QTest::addRow("low type %d", type) << QStringLiteral("1=%1 2=400 3=90").arg(type) << 48000;
        QTest::addRow("high type %d", type)
            << QStringLiteral("21=%1 22=900 23=-90").arg(type) << 48000;
    }
    row("boosts", "7=60 11=120 15=35 19=200");
    row("cuts", "7=-60 11=-120 15=-35 19=-200");
    row("qualities", "5=0 7=80 9=500 11=-80 13=300 15=50 17=100 19=-20");
    row("some off", "3=100 4=0 7=100 8=0 11=60 15=-60 16=0");
    row("levels", "25=-60 26=35 11=40");
    row("everything", "1=2 2=300 3=-77 5=88 6=500 7=31 9=200 11=-150 23=55 25=12 26=-34");
    row("everything at 44.1 kHz", "1=2 3=-77 5=88 7=31 9=200 11=-150 23=55", 44100);
    row("everything at 96 kHz", "1=2 3=-77 5=88 7=31 9=200 11=-150 23=55", 96000);
}

void tst_ChannelProcessor::soundsAsTheCurveIsDrawn()
{
    QFETCH(const QString, settings);
    QFETCH(const int, rate);
    const Values values = valuesFrom(settings);
    EqualizerBands bands;
    setBands(&bands, values, rate);
    for (const double frequency : {40.0, 100.0, 400.0, 800.0, 2500.0, 5600.0, 12000.0}) {
        ChannelProcessor processor;
        processor.setSampleRate(rate);
        processor.setValues(values);
        const Block in = sine(frequency, rate, std::size_t(rate / 2));
        Block out = in;
        processor.applyInput(out);
        processor.equalize(out);
        const double expected = drawnLevel(bands, values, frequency);
        const double actual = gain(in, out, frequency, rate);
        QVERIFY2(std::abs(actual - expected) < 0.005,
                 qPrintable(QStringLiteral("%1 dB instead of %2 dB at %3 Hz")
                                .arg(actual)
                                .arg(expected)
                                .arg(frequency)));
    }
}

// With gains whose positions single precision holds exactly.
void tst_ChannelProcessor::cutUndoesBoost()
{
    ChannelProcessor boosting;
    ChannelProcessor cutting;
    boosting.setValues(valuesFrom(QStringLiteral("5=0 7=100 11=150 13=499 15=200 19=25")));
    cutting.setValues(valuesFrom(QStringLiteral("5=0 7=-100 11=-150 13=499 15=-200 19=-25")));
    const Block in = noise(20000);
    Block out = in;
    boosting.equalize(out);
    QVERIFY(std::abs(out[19999] - in[19999]) > 1e-3);
    cutting.equalize(out);
    for (std::size_t i = 0; i < in.size(); ++i)
        QVERIFY(std::abs(out[i] - in[i]) < 1e-9);
}

void tst_ChannelProcessor::defaultsChangeNothing()
{
    ChannelProcessor processor;
    const Block in = noise(5000);
    Block out = in;
    processor.applyInput(out);
    processor.equalize(out);
    QCOMPARE(out, in);
}

void tst_ChannelProcessor::bandsThatAreOffChangeNothing()
{
    ChannelProcessor processor;
    processor.setValues(valuesFrom(QStringLiteral("3=200 7=200 11=200 15=200 19=200 23=200 "
                                                  "4=0 8=0 12=0 16=0 20=0 24=0")));
    const Block in = noise(100);
    Block out = in;
    processor.equalize(out);
    QCOMPARE(out, in);
}

void tst_ChannelProcessor::levelsMultiply_data()
{
    QTest::addColumn<int>("tenths");
    QTest::addColumn<double>("factor");
    QTest::newRow("none") << 0 << 1.0;
    QTest::newRow("+20 dB") << 200 << 10.0;
    QTest::newRow("-20 dB") << -200 << 0.1;
    QTest::newRow("+6 dB") << 60 << 1.9952623149688795;
}

void tst_ChannelProcessor::levelsMultiply()
{
    QFETCH(const int, tenths);
    QFETCH(const double, factor);
    ChannelProcessor processor;
    processor.setValues(valuesFrom(QStringLiteral("25=%1").arg(tenths)));
    Block block = {0.5, -0.25};
    processor.applyInput(block);
    // The position of a raw value is single precision.
    QVERIFY(std::abs(block[0] - 0.5 * factor) < 1e-6);
    QVERIFY(std::abs(block[1] + 0.25 * factor) < 1e-6);
}

void tst_ChannelProcessor::changesArePickedUp()
{
    ChannelProcessor processor;
    Block block = sine(1000.0, 48000, 4800);
    processor.equalize(block);
    const Values values = valuesFrom(QStringLiteral("9=100 10=680 11=120 22=1000 21=2 23=-60"));
    processor.setValues(values);
    const Block in = sine(1000.0, 48000, 48000);
    Block out = in;
    processor.equalize(out);
    EqualizerBands bands;
    setBands(&bands, values, 48000);
    QVERIFY(std::abs(gain(in, out, 1000.0, 48000) - drawnLevel(bands, values, 1000.0)) < 0.005);
}

void tst_ChannelProcessor::forgets()
{
    ChannelProcessor processor;
    processor.setValues(valuesFrom(QStringLiteral("3=60 7=60 11=-60 23=60")));
    Block block = noise(2000);
    processor.equalize(block);
    Block silence(10, 0.0);
    processor.equalize(silence);
    QVERIFY(silence.front() != 0.0);
    processor.forget();
    silence.assign(10, 0.0);
    processor.equalize(silence);
    QCOMPARE(silence, Block(10, 0.0));
}

QTEST_APPLESS_MAIN(tst_ChannelProcessor)

#include "tst_ChannelProcessor.moc"
