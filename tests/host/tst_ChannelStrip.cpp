// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/filters/EqualizerBands.h"
#include "host/ChannelStrip.h"
#include "tests/support/TestObject.h"

#include <cmath>
#include <complex>
#include <random>
#include <vector>

class tst_ChannelStrip : public TestObject
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
    void driveChangesNothing();
    void changesArePickedUp();
    void forgets();

private:
    using Block = std::vector<double>;
    using Values = ChannelStrip::Values;

    static Values defaults();
    static Values valuesFrom(const QString& settings);
    static double drawnLevel(const Values& values, double frequency, int rate);
    static Block sine(double frequency, int rate, int count);
    static double gain(const Block& in, const Block& out, double frequency, int rate);
    static Block noise(std::size_t count);
};

tst_ChannelStrip::Values tst_ChannelStrip::defaults()
{
    Values values{};
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = parameterTable[i].defaultValue;
    return values;
}

// "3=60 4=0": the parameters' numbers and raw values, the others at their defaults.
tst_ChannelStrip::Values tst_ChannelStrip::valuesFrom(const QString& settings)
{
    Values values = defaults();
    for (const QString& setting : settings.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QStringList sides = setting.split(QLatin1Char('='));
        values[static_cast<std::size_t>(sides[0].toInt() - 1)] = sides[1].toInt();
    }
    return values;
}

// What an editor's curve shows, with the levels that it does not show.
double tst_ChannelStrip::drawnLevel(const Values& values, double frequency, int rate)
{
    EqualizerBands bands;
    for (int band = 0; band < EqualizerBands::Count; ++band) {
        const int* raw = values.data() + 4 * band;
        bands[band].type = raw[0];
        bands[band].quality = 0.5 * std::pow(2.0, raw[0] / 100.0);
        bands[band].frequency = 20.0 * std::pow(10.0, raw[1] / 400.0);
        bands[band].gain = raw[2] / 10.0;
        bands[band].on = raw[3] != 0;
    }
    bands.setSampleRate(rate);
    const double levels = values[24] / 10.0 + values[25] / 10.0;
    return bands.response().levels(frequency, rate).total + levels;
}

tst_ChannelStrip::Block tst_ChannelStrip::sine(double frequency, int rate, int count)
{
    Block block;
    for (int i = 0; i < count; ++i)
        block.push_back(std::sin(2.0 * M_PI * frequency * i / rate));
    return block;
}

// In dB, by correlation with the sine over the second half: a whole number of periods.
double tst_ChannelStrip::gain(const Block& in, const Block& out, double frequency, int rate)
{
    const auto correlation = [frequency, rate](const Block& block) {
        std::complex<double> sum;
        for (std::size_t i = block.size() / 2; i < block.size(); ++i)
            sum += block[i] * std::polar(1.0, -2.0 * M_PI * frequency * double(i) / rate);
        return std::abs(sum);
    };
    return 20.0 * std::log10(correlation(out) / correlation(in));
}

tst_ChannelStrip::Block tst_ChannelStrip::noise(std::size_t count)
{
    std::minstd_rand generator(7);
    std::uniform_real_distribution<double> random(-1.0, 1.0);
    Block block(count);
    for (double& sample : block)
        sample = random(generator);
    return block;
}

void tst_ChannelStrip::soundsAsTheCurveIsDrawn_data()
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
    row("drive", "27=1 7=60");
}

void tst_ChannelStrip::soundsAsTheCurveIsDrawn()
{
    QFETCH(const QString, settings);
    QFETCH(const int, rate);
    const Values values = valuesFrom(settings);
    for (const double frequency : {40.0, 100.0, 400.0, 800.0, 2500.0, 5600.0, 12000.0}) {
        ChannelStrip strip;
        strip.setSampleRate(rate);
        strip.setValues(values);
        const Block in = sine(frequency, rate, rate / 2);
        Block out = in;
        strip.applyInput(out);
        strip.equalize(out);
        const double expected = drawnLevel(values, frequency, rate);
        const double actual = gain(in, out, frequency, rate);
        QVERIFY2(std::abs(actual - expected) < 0.005,
                 qPrintable(QStringLiteral("%1 dB instead of %2 dB at %3 Hz")
                                .arg(actual)
                                .arg(expected)
                                .arg(frequency)));
    }
}

// With gains whose positions single precision holds exactly.
void tst_ChannelStrip::cutUndoesBoost()
{
    ChannelStrip boosting;
    ChannelStrip cutting;
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

void tst_ChannelStrip::defaultsChangeNothing()
{
    ChannelStrip strip;
    const Block in = noise(5000);
    Block out = in;
    strip.applyInput(out);
    strip.equalize(out);
    for (std::size_t i = 0; i < in.size(); ++i)
        QVERIFY(std::abs(out[i] - in[i]) < 1e-9);
}

void tst_ChannelStrip::bandsThatAreOffChangeNothing()
{
    ChannelStrip strip;
    strip.setValues(valuesFrom(QStringLiteral("3=200 7=200 11=200 15=200 19=200 23=200 "
                                              "4=0 8=0 12=0 16=0 20=0 24=0")));
    const Block in = noise(100);
    Block out = in;
    strip.equalize(out);
    QCOMPARE(out, in);
}

void tst_ChannelStrip::levelsMultiply_data()
{
    QTest::addColumn<int>("tenths");
    QTest::addColumn<double>("factor");
    QTest::newRow("none") << 0 << 1.0;
    QTest::newRow("+20 dB") << 200 << 10.0;
    QTest::newRow("-20 dB") << -200 << 0.1;
    QTest::newRow("+6 dB") << 60 << 1.9952623149688795;
}

void tst_ChannelStrip::levelsMultiply()
{
    QFETCH(const int, tenths);
    QFETCH(const double, factor);
    ChannelStrip strip;
    strip.setValues(valuesFrom(QStringLiteral("25=%1").arg(tenths)));
    Block block = {0.5, -0.25};
    strip.applyInput(block);
    // The position of a raw value is single precision.
    QVERIFY(std::abs(block[0] - 0.5 * factor) < 1e-6);
    QVERIFY(std::abs(block[1] + 0.25 * factor) < 1e-6);
}

void tst_ChannelStrip::driveChangesNothing()
{
    ChannelStrip clean;
    ChannelStrip drive;
    Block first = noise(2000);
    Block second = first;
    clean.setValues(valuesFrom(QStringLiteral("3=60 7=-60")));
    drive.setValues(valuesFrom(QStringLiteral("3=60 7=-60 27=1")));
    clean.equalize(first);
    drive.equalize(second);
    QCOMPARE(first, second);
}

void tst_ChannelStrip::changesArePickedUp()
{
    ChannelStrip strip;
    Block block = sine(1000.0, 48000, 4800);
    strip.equalize(block);
    strip.setValues(valuesFrom(QStringLiteral("9=100 10=680 11=120 22=1000 21=2 23=-60")));
    const Block in = sine(1000.0, 48000, 48000);
    Block out = in;
    strip.equalize(out);
    const double expected = drawnLevel(
        valuesFrom(QStringLiteral("9=100 10=680 11=120 22=1000 21=2 23=-60")), 1000.0, 48000);
    QVERIFY(std::abs(gain(in, out, 1000.0, 48000) - expected) < 0.005);
}

void tst_ChannelStrip::forgets()
{
    ChannelStrip strip;
    strip.setValues(valuesFrom(QStringLiteral("3=60 7=60 11=-60 23=60")));
    Block block = noise(2000);
    strip.equalize(block);
    Block silence(10, 0.0);
    strip.equalize(silence);
    QVERIFY(silence.front() != 0.0);
    strip.forget();
    silence.assign(10, 0.0);
    strip.equalize(silence);
    QCOMPARE(silence, Block(10, 0.0));
}

QTEST_APPLESS_MAIN(tst_ChannelStrip)

#include "tst_ChannelStrip.moc"
