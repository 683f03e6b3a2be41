// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/BandDesign.h"
#include "tests/engine/EngineTesting.h"
#include "tests/support/TestObject.h"

#include <limits>

using namespace EngineTesting;

class tst_ChannelProcessor : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void cutUndoesBoost();
    void changesNothing_data();
    void changesNothing();
    void changesArePickedUp();
    void firstSettingsAreInForceAtOnce();
    void aNewRateStartsAfresh();
    void blocksDoNotMatter_data();
    void blocksDoNotMatter();
    void bandsAreTheFiltersInTurn();
    void switchedOffDriveLeavesTheBands();
    void oddSamplesCountAsZero_data();
    void oddSamplesCountAsZero();
    void outerBandsBeyondHalfTheRateAreLeftOut();
    void staysBoundedAtEveryRate_data();
    void staysBoundedAtEveryRate();
    void lowestNumbersAreFlushed();
    void assignedOneGoesOnAlike();
};

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

void tst_ChannelProcessor::changesNothing_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("settings");
    QTest::newRow("defaults") << QString() << QString();
    QTest::newRow("bands that are off")
        << QString()
        << QStringLiteral("3=200 7=200 11=200 15=200 19=200 23=200 4=0 8=0 12=0 16=0 20=0 24=0");
    QTest::newRow("flat again") << QStringLiteral("1=2 3=100 7=100 11=-100 23=-40 25=60 26=-60")
                                << QStringLiteral("1=2");
}

// From the first sample on, or once the settings before have faded.
void tst_ChannelProcessor::changesNothing()
{
    QFETCH(const QString, before);
    QFETCH(const QString, settings);
    ChannelProcessor processor;
    if (!before.isEmpty())
        processor.setValues(valuesFrom(before));
    for (int i = 0; i < 2 && !before.isEmpty(); ++i) {
        Block block = noise(4000);
        processor.process(block);
        processor.setValues(valuesFrom(settings));
    }
    processor.setValues(valuesFrom(settings));
    const Block in = noise(4000);
    Block out = in;
    processor.process(out);
    QCOMPARE(out, in);
}

void tst_ChannelProcessor::changesArePickedUp()
{
    const Values values = valuesFrom(QStringLiteral("9=100 10=680 11=120 22=1000 21=2 23=-60"));
    ChannelProcessor processor;
    Block block = noise(4800);
    processor.process(block);
    processor.setValues(values);
    block.assign(48000, 0.0);
    processor.process(block);
    ChannelProcessor fresh;
    fresh.setValues(values);
    block = noise(1000);
    Block expected = block;
    processor.process(block);
    fresh.process(expected);
    for (std::size_t i = 0; i < block.size(); ++i)
        COMPARE_NEAR(block[i], expected[i], 1e-9);
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

// Also in the middle of changes, and whatever it did before.
void tst_ChannelProcessor::assignedOneGoesOnAlike()
{
    ChannelProcessor copy;
    for (const std::size_t place : {1, 100, 481, 700, 1500}) {
        ChannelProcessor processor;
        processor.setSampleRate(44100.0);
        processor.setValues(valuesFrom(QStringLiteral("3=60 7=-60 10=300 11=200 22=500 23=90")));
        Block block = noise(1000);
        processor.process(block);
        processor.setValues(valuesFrom(QStringLiteral(
            "1=0 2=300 5=300 6=800 7=90 10=900 11=-90 15=30 22=800 23=-60 25=60 26=-90 27=1")));
        block = noise(place);
        processor.process(block);
        copy = processor;
        Block expected = noise(4000);
        block = expected;
        processor.process(expected);
        copy.process(block);
        QCOMPARE(block, expected);
        QCOMPARE(copy.values(), processor.values());
    }
}

QTEST_APPLESS_MAIN(tst_ChannelProcessor)

#include "tst_ChannelProcessor.moc"
