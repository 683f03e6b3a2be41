// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/BandDesign.h"
#include "tests/engine/EngineTesting.h"
#include "tests/support/TestObject.h"

#include <complex>
#include <limits>

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
    void resetClearsTheSignal();
    void firstSettingsAreInForceAtOnce();
    void aNewRateStartsAfresh();
    void blocksDoNotMatter_data();
    void blocksDoNotMatter();
    void bandsAreTheFiltersInTurn();
    void switchedOffDriveLeavesTheBands();
    void restingFlatBandsLetEveryBitThrough();
    void clampedCentresSoundAsDrawn();
    void oddSamplesCountAsZero_data();
    void oddSamplesCountAsZero();
    void outerBandsBeyondHalfTheRateAreLeftOut();
    void staysBoundedAtEveryRate_data();
    void staysBoundedAtEveryRate();
    void lowestNumbersAreFlushed();

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

void tst_ChannelProcessor::resetClearsTheSignal()
{
    ChannelProcessor processor;
    processor.setValues(valuesFrom(QStringLiteral("3=60 7=60 11=-60 23=60")));
    Block block = noise(2000);
    processor.equalize(block);
    Block silence(10, 0.0);
    processor.equalize(silence);
    QVERIFY(silence.front() != 0.0);
    processor.reset();
    silence.assign(10, 0.0);
    processor.equalize(silence);
    QCOMPARE(silence, Block(10, 0.0));
}

void tst_ChannelProcessor::firstSettingsAreInForceAtOnce()
{
    const Values values = valuesFrom(QStringLiteral("3=-70 7=60 25=-60 26=30"));
    ChannelProcessor processor;
    processor.setValues(valuesFrom(QStringLiteral("25=100")));
    processor.setValues(values);
    Block first = noise(1000);
    processor.process(first);
    processor.setValues(valuesFrom(QStringLiteral("3=70 7=-60 25=60")));
    Block changing = noise(100);
    processor.process(changing);
    processor.setValues(values);
    processor.reset();
    Block again = noise(1000);
    processor.process(again);
    QCOMPARE(again, first);
}

void tst_ChannelProcessor::aNewRateStartsAfresh()
{
    const Values values = valuesFrom(QStringLiteral("3=-70 7=60 23=50 27=1"));
    ChannelProcessor processor;
    processor.setValues(values);
    Block block = noise(1000);
    processor.process(block);
    processor.setSampleRate(96000.0);
    ChannelProcessor fresh;
    fresh.setSampleRate(96000.0);
    fresh.setValues(values);
    block = noise(1000);
    Block expected = block;
    processor.process(block);
    fresh.process(expected);
    QCOMPARE(block, expected);
}

void tst_ChannelProcessor::blocksDoNotMatter_data()
{
    QTest::addColumn<QString>("settings");
    QTest::newRow("all bands") << QStringLiteral("3=60 7=-60 11=30 15=-30 19=100 23=-100 27=1");
    QTest::newRow("two bands") << QStringLiteral("7=-60 11=30");
    QTest::newRow("levels") << QStringLiteral("25=-60 26=30");
}

// With changes under way in the first half.
void tst_ChannelProcessor::blocksDoNotMatter()
{
    QFETCH(const QString, settings);
    const Values changed = valuesFrom(settings);
    ChannelProcessor one;
    ChannelProcessor other;
    for (ChannelProcessor* processor : {&one, &other}) {
        Block block = noise(1000);
        processor->process(block);
        processor->setValues(changed);
    }
    Block whole = noise(2000);
    Block parts = whole;
    one.process(whole);
    std::size_t done = 0;
    for (std::size_t count = 0; done < parts.size(); count = (count + 5) % 64) {
        const std::size_t part = std::min(count, parts.size() - done);
        other.process(std::span(parts).subspan(done, part));
        done += part;
    }
    QCOMPARE(parts, whole);
}

// Against the filters' operations on single samples.
void tst_ChannelProcessor::bandsAreTheFiltersInTurn()
{
    const Values values =
        valuesFrom(QStringLiteral("2=400 3=100 5=0 6=400 7=-200 9=499 10=800 11=150 "
                                  "13=200 15=-25 17=100 19=50 21=1 22=1000"));
    EqualizerBands bands;
    ChannelProcessor processor;
    processor.setValues(values);
    Block out = noise(4000);
    Block expected = out;
    processor.equalize(out);

    const auto position = [&values](std::size_t i) {
        return BandDesign::position(values[i], parameterTable[i].minimum,
                                    parameterTable[i].maximum);
    };
    VEQ_Filter low;
    BandDesign::designLow(low, 3, BandDesign::frequency(position(1)), BandDesign::gain(position(2)),
                          48000.0);
    low.clear();
    VEQ_Filter high;
    BandDesign::designHigh(high, 1, BandDesign::frequency(position(21)), 0.0, 48000.0);
    high.clear();
    std::array<FILTER2PEQ, 4> middle;
    for (std::size_t i = 0; i < 4; ++i)
        BandDesign::designMiddle(middle[i], BandDesign::frequency(position(4 * i + 5)),
                                 BandDesign::quality(position(4 * i + 4)),
                                 BandDesign::gain(position(4 * i + 6)), 48000.0);
    for (double& sample : expected) {
        sample = low.cal(sample);
        for (FILTER2PEQ& band : middle) {
            const double k = band.gainFactor();
            const bool boost = band.mode() == FILTER2PEQ::ModeBoost;
            const double in = sample;
            sample = boost ? in + k * band.cal_boost(in)
                           : (in - k * band.cal_cut()) * (1.0 / (1.0 + band.scaledGain()));
            band.dlyupdate_bpf(boost ? in : sample);
        }
        sample = high.cal(sample);
    }
    QCOMPARE(out, expected);
}

void tst_ChannelProcessor::switchedOffDriveLeavesTheBands()
{
    const Values clean = valuesFrom(QStringLiteral("3=60 7=-60 25=20"));
    const Values drive = valuesFrom(QStringLiteral("3=60 7=-60 25=20 27=1"));
    ChannelProcessor never;
    ChannelProcessor once;
    never.setValues(clean);
    once.setValues(drive);
    Block first = noise(4000);
    Block second = first;
    never.process(first);
    once.process(second);
    QVERIFY(first != second);
    once.setValues(clean);
    for (int i = 0; i < 2; ++i) {
        first = noise(4000);
        second = first;
        never.process(first);
        once.process(second);
    }
    QCOMPARE(second, first);
}

void tst_ChannelProcessor::restingFlatBandsLetEveryBitThrough()
{
    ChannelProcessor processor;
    processor.setValues(valuesFrom(QStringLiteral("1=2 3=100 7=100 11=-100 23=-40 25=60 26=-60")));
    Block block = noise(4000);
    processor.process(block);
    processor.setValues(valuesFrom(QStringLiteral("1=2")));
    block = noise(4000);
    processor.process(block);
    block = noise(4000);
    processor.process(block);
    QCOMPARE(block, noise(4000));
}

// At rates below 40020 Hz a centre can lie beyond the top that a filter allows: its gain factor is
// then 0, but curves are drawn with the band's own gain, and so it sounds.
void tst_ChannelProcessor::clampedCentresSoundAsDrawn()
{
    const Values values = valuesFrom(QStringLiteral("5=0 6=1200 7=200"));
    ChannelProcessor processor;
    processor.setSampleRate(32000.0);
    processor.setValues(values);
    EqualizerBands bands;
    setBands(&bands, values, 32000);
    const Block in = sine(15000.0, 32000, 32000);
    Block out = in;
    processor.process(out);
    const double drawn = drawnLevel(bands, values, 15000.0);
    QVERIFY(drawn > 0.1);
    QVERIFY(std::abs(gain(in, out, 15000.0, 32000) - drawn) < 0.005);
}

void tst_ChannelProcessor::oddSamplesCountAsZero_data()
{
    QTest::addColumn<double>("sample");
    QTest::newRow("undefined") << std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
    QTest::newRow("minus infinite") << -std::numeric_limits<double>::infinity();
    QTest::newRow("no signal") << 1e300;
}

void tst_ChannelProcessor::oddSamplesCountAsZero()
{
    QFETCH(const double, sample);
    const Values values = valuesFrom(QStringLiteral("3=60 7=-60 11=200 25=200 27=1"));
    ChannelProcessor odd;
    ChannelProcessor zero;
    odd.setValues(values);
    zero.setValues(values);
    Block first = noise(1000);
    Block second = first;
    for (const std::size_t i : {0, 500, 501, 999}) {
        first[i] = sample;
        second[i] = 0.0;
    }
    odd.process(first);
    zero.process(second);
    QCOMPARE(first, second);
}

// An outer band's filter is unstable there. What is moved there and back is heard again.
void tst_ChannelProcessor::outerBandsBeyondHalfTheRateAreLeftOut()
{
    ChannelProcessor processor;
    processor.setSampleRate(22050.0);
    processor.setValues(valuesFrom(QStringLiteral("1=0 2=1100 22=1118 23=200")));
    Block block = noise(1000);
    processor.process(block);
    QCOMPARE(block, noise(1000));
    const Values sane = valuesFrom(QStringLiteral("1=0 2=500 22=1000 23=200"));
    processor.setValues(sane);
    block = Block(20000);
    processor.process(block);
    ChannelProcessor fresh;
    fresh.setSampleRate(22050.0);
    fresh.setValues(sane);
    Block expected = noise(1000);
    fresh.process(expected);
    block = noise(1000);
    processor.process(block);
    for (std::size_t i = 0; i < block.size(); ++i)
        COMPARE_NEAR(block[i], expected[i], 1e-9);
}

void tst_ChannelProcessor::staysBoundedAtEveryRate_data()
{
    QTest::addColumn<double>("rate");
    for (const double rate : {1000.0, 8000.0, 16000.0, 22050.0, 32000.0, 40000.0, 44100.0})
        QTest::addRow("%g Hz", rate) << rate;
}

// Six bands of 20 dB, and as much again for the transients while they move.
void tst_ChannelProcessor::staysBoundedAtEveryRate()
{
    QFETCH(const double, rate);
    ChannelProcessor processor;
    processor.setSampleRate(rate);
    std::minstd_rand generator(3);
    double peak = 0.0;
    for (int i = 0; i < 300; ++i) {
        Values values{};
        for (std::size_t p = 0; p < 24; ++p)
            values[p] = std::uniform_int_distribution<int>(parameterTable[p].minimum,
                                                           parameterTable[p].maximum)(generator);
        processor.setValues(values);
        Block block = noise(1000);
        processor.process(block);
        for (const double sample : block)
            peak = std::max(peak, std::abs(sample));
    }
    QVERIFY2(peak < 1e12, qPrintable(QString::number(peak)));
}

// What decays does not linger in denormal numbers: it comes to an end, and the thread's arithmetic
// is as before.
void tst_ChannelProcessor::lowestNumbersAreFlushed()
{
    ChannelProcessor processor;
    processor.setValues(valuesFrom(QStringLiteral("3=60 7=-60 11=200 15=30 19=-30 23=60")));
    Block block = noise(1000);
    processor.process(block);
    for (int i = 0; i < 600; ++i) {
        block.assign(1000, 0.0);
        processor.process(block);
        for (const double sample : block)
            QVERIFY(std::fpclassify(sample) != FP_SUBNORMAL);
    }
    // Without flushing, the narrow bands would be down there by now.
    QVERIFY(std::abs(block.back()) < 1e-300);
    volatile double lowest = std::numeric_limits<double>::min();
    QVERIFY(lowest / 2.0 > 0.0);
}

QTEST_APPLESS_MAIN(tst_ChannelProcessor)

#include "tst_ChannelProcessor.moc"
