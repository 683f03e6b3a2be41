// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/processor/EqualizerProcessor.h"

#include "tests/engine/EngineTesting.h"
#include "tests/engine/RealtimeTrap.h"
#include "tests/support/TestObject.h"

#include <cstring>
#include <limits>

using namespace EngineTesting;

namespace {

constexpr int rate = 48000;
const QString busy = QStringLiteral("2=400 3=60 6=350 7=-80 10=600 11=60 14=700 15=-30 18=900 "
                                    "19=40 22=1000 23=-60 25=20 26=-35");

template <typename Sample> std::vector<Sample> samplesOf(const Block& block)
{
    std::vector<Sample> samples(block.size());
    std::transform(block.begin(), block.end(), samples.begin(),
                   [](double sample) { return static_cast<Sample>(sample); });
    return samples;
}

// Sends a signal through every channel in blocks of the given sizes, in turn; each channel's
// buffers are its own unless they are the same.
template <typename Sample> struct Runner
{
    explicit Runner(EqualizerProcessor* equalizer)
        : processor(equalizer)
    {}

    std::vector<Sample> run(const std::vector<Sample>& signal, std::span<const std::size_t> sizes,
                            bool inPlace = false)
    {
        std::vector<Sample> out = inPlace ? signal : std::vector<Sample>(signal.size(), Sample(7));
        std::vector<Sample> second = out;
        const Sample* in = inPlace ? out.data() : signal.data();
        const Sample* secondIn = inPlace ? second.data() : signal.data();
        std::size_t done = 0;
        for (std::size_t i = 0; done < signal.size(); ++i) {
            const std::size_t count = std::min(sizes[i % sizes.size()], signal.size() - done);
            // In place, each channel's output is the other one's input: both hold the same.
            const std::array<const Sample*, 2> inputs = {secondIn + done, in + done};
            const std::array<Sample*, 2> outputs = {out.data() + done, second.data() + done};
            processor->process(std::span(inputs).first(processor->channelCount()),
                               std::span(outputs).first(processor->channelCount()), count);
            done += count;
        }
        if (processor->channelCount() == 2)
            isSame =
                isSame && std::memcmp(out.data(), second.data(), out.size() * sizeof(Sample)) == 0;
        return out;
    }

    EqualizerProcessor* processor;
    bool isSame = true; // the two channels' outputs
};

constexpr std::size_t oneBlock[] = {8192};

std::vector<double> through(EqualizerProcessor* processor, const Block& signal)
{
    return Runner<double>(processor).run(signal, oneBlock);
}

} // namespace

class tst_EqualizerProcessor : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyChannelIsTheEngines_data();
    void everyChannelIsTheEngines();
    void changesAreTheEngines();
    void flatSettingsPassEveryBit_data();
    void flatSettingsPassEveryBit();
    void badSamplesAreSilent_data();
    void badSamplesAreSilent();
    void silenceEndsInZeros();
    void bypassKeepsTheDelay_data();
    void bypassKeepsTheDelay();
    void switchesDoNotClick_data();
    void switchesDoNotClick();
    void resetForgetsWhatWasHeard();
    void metersShowBothSides();
    void missingBuffersAreSilence();
    void processingNeitherAllocatesNorLocks();

private:
    template <typename Sample>
    void compareWithEngine(std::size_t channels, int hertz, const Values& values);
    template <typename Sample>
    void compareBadWithSilent(const Block& bad, const Block& silent, const Values& values,
                              bool bypassed);
};

void tst_EqualizerProcessor::everyChannelIsTheEngines_data()
{
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("hertz");
    QTest::addColumn<QString>("settings");
    for (const int channels : {1, 2}) {
        for (const int hertz : {44100, 48000, 96000}) {
            for (const char* drive : {"", " 27=1"}) {
                QTest::addRow("%d channels, %d Hz%s", channels, hertz, drive)
                    << channels << hertz << busy + QLatin1String(drive);
            }
        }
    }
}

template <typename Sample>
void tst_EqualizerProcessor::compareWithEngine(std::size_t channels, int hertz,
                                               const Values& values)
{
    constexpr std::size_t sizes[] = {0, 1, 7, 64, 255, 256, 257, 1000, 0, 8192};
    const std::vector<Sample> signal = samplesOf<Sample>(noise(20000, 0.5));
    ChannelProcessor engine;
    engine.setSampleRate(hertz);
    engine.setValues(values);
    Block expected(signal.begin(), signal.end());
    engine.process(expected);
    for (const bool inPlace : {false, true}) {
        EqualizerProcessor processor(channels);
        processor.setSampleRate(hertz);
        processor.setValues(values);
        Runner<Sample> runner(&processor);
        QCOMPARE(runner.run(signal, sizes, inPlace), samplesOf<Sample>(expected));
        QVERIFY(runner.isSame);
        QCOMPARE(double(processor.latency()), engine.latency());
    }
}

void tst_EqualizerProcessor::everyChannelIsTheEngines()
{
    QFETCH(const int, channels);
    QFETCH(const int, hertz);
    QFETCH(const QString, settings);
    compareWithEngine<float>(std::size_t(channels), hertz, valuesFrom(settings));
    compareWithEngine<double>(std::size_t(channels), hertz, valuesFrom(settings));
}

// Flat settings among them, at which the bands hear nothing, and silence from which they come back.
void tst_EqualizerProcessor::changesAreTheEngines()
{
    constexpr std::size_t sizes[] = {100, 256, 1, 1000};
    EqualizerProcessor processor;
    ChannelProcessor engine;
    Runner<double> runner(&processor);
    const Block silence(1500, 0.0);
    const Block sound = noise(2000, 0.5);
    const QString driven = busy + QStringLiteral(" 27=1");
    for (const QString& settings : {QString(), busy, QString(), QStringLiteral("25=-60"), driven,
                                    QStringLiteral("26=35"), QString(), busy}) {
        processor.setValues(valuesFrom(settings));
        engine.setValues(valuesFrom(settings));
        for (const Block& signal : {sound, silence, sound, silence}) {
            Block expected = signal;
            engine.process(expected);
            QCOMPARE(runner.run(signal, sizes), expected);
        }
    }
}

void tst_EqualizerProcessor::flatSettingsPassEveryBit_data()
{
    QTest::addColumn<QString>("settings");
    QTest::addColumn<bool>("bypassed");
    QTest::newRow("defaults") << QString() << false;
    QTest::newRow("bands off") << QStringLiteral("4=0 8=0 7=200 12=0 24=0") << false;
    QTest::newRow("bypassed") << busy << true;
}

void tst_EqualizerProcessor::flatSettingsPassEveryBit()
{
    QFETCH(const QString, settings);
    QFETCH(const bool, bypassed);
    using Limits = std::numeric_limits<float>;
    std::vector<float> signal = samplesOf<float>(noise(600));
    for (const float odd : {-0.0F, Limits::denorm_min(), -Limits::min(), 1e14F, Limits::epsilon()})
        signal.push_back(odd);
    EqualizerProcessor processor;
    processor.setValues(valuesFrom(settings));
    processor.setBypassed(bypassed);
    const std::vector<float> out = Runner<float>(&processor).run(signal, oneBlock);
    QCOMPARE(std::memcmp(out.data(), signal.data(), out.size() * sizeof(float)), 0);
}

void tst_EqualizerProcessor::badSamplesAreSilent_data()
{
    QTest::addColumn<QString>("settings");
    QTest::addColumn<bool>("bypassed");
    QTest::newRow("flat") << QString() << false;
    QTest::newRow("clean") << busy << false;
    QTest::newRow("drive") << busy + QStringLiteral(" 27=1") << false;
    QTest::newRow("bypassed") << busy << true;
    QTest::newRow("bypassed with drive") << busy + QStringLiteral(" 27=1") << true;
}

template <typename Sample>
void tst_EqualizerProcessor::compareBadWithSilent(const Block& bad, const Block& silent,
                                                  const Values& values, bool bypassed)
{
    constexpr std::size_t sizes[] = {256, 5, 1, 300};
    EqualizerProcessor first;
    EqualizerProcessor second;
    for (EqualizerProcessor* processor : {&first, &second}) {
        processor->setValues(values);
        processor->setBypassed(bypassed);
    }
    QCOMPARE(Runner<Sample>(&first).run(samplesOf<Sample>(bad), sizes),
             Runner<Sample>(&second).run(samplesOf<Sample>(silent), sizes));
    QCOMPARE(first.levels(0), second.levels(0));
}

void tst_EqualizerProcessor::badSamplesAreSilent()
{
    QFETCH(const QString, settings);
    QFETCH(const bool, bypassed);
    constexpr double infinity = std::numeric_limits<double>::infinity();
    Block bad = noise(3000);
    Block silent = bad;
    std::size_t at = 10;
    for (const double sample : {std::nan(""), infinity, -infinity, 1e16, -1.001e15}) {
        for (const std::size_t place : {at, at + 7, 2 * at}) {
            bad[place] = sample;
            silent[place] = 0.0;
        }
        at += 311;
    }
    compareBadWithSilent<float>(bad, silent, valuesFrom(settings), bypassed);
    compareBadWithSilent<double>(bad, silent, valuesFrom(settings), bypassed);
}

// Numbers that fade away without end would be computed many times slower.
void tst_EqualizerProcessor::silenceEndsInZeros()
{
    EqualizerProcessor processor;
    processor.setValues(valuesFrom(busy));
    through(&processor, noise(8192));
    Block tail;
    for (int block = 0; block < 8; ++block)
        tail = through(&processor, Block(8192, 1e-310));
    const bool isNormal = std::all_of(tail.begin(), tail.end(), [](double sample) {
        return sample == 0.0 || std::fpclassify(sample) == FP_NORMAL;
    });
    QVERIFY(isNormal);
}

void tst_EqualizerProcessor::bypassKeepsTheDelay_data()
{
    QTest::addColumn<QString>("settings");
    QTest::addColumn<int>("delay");
    QTest::newRow("clean") << busy << 0;
    QTest::newRow("drive") << busy + QStringLiteral(" 27=1") << 78;
}

void tst_EqualizerProcessor::bypassKeepsTheDelay()
{
    QFETCH(const QString, settings);
    QFETCH(const int, delay);
    constexpr std::size_t sizes[] = {1, 77, 78, 79, 300, 5};
    const Block signal = noise(5000);
    Block late(std::size_t(delay), 0.0);
    late.insert(late.end(), signal.begin(), signal.end() - delay);
    EqualizerProcessor processor;
    processor.setValues(valuesFrom(settings));
    processor.setBypassed(true);
    QCOMPARE(processor.latency(), delay);
    QCOMPARE(Runner<double>(&processor).run(signal, sizes), late);
    // On the way as well: once the cross-fade is over, it is the past that is heard.
    EqualizerProcessor switched;
    switched.setValues(valuesFrom(settings));
    through(&switched, signal);
    switched.setBypassed(true);
    const Block after = through(&switched, signal);
    QVERIFY(std::equal(after.begin() + 600, after.end(), late.begin() + 600));
    QCOMPARE(switched.latency(), delay);
    switched.setBypassed(false);
    QVERIFY(through(&switched, signal) != late);
}

void tst_EqualizerProcessor::switchesDoNotClick_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<bool>("firstBypassed");
    QTest::addColumn<QString>("second");
    QTest::addColumn<bool>("secondBypassed");
    const QString loud = QStringLiteral("25=200");
    const QString cut = QStringLiteral("2=500 3=-200 6=350 7=-200");
    const QString driven = QStringLiteral("25=200 27=1");
    QTest::newRow("bypass on") << loud << false << loud << true;
    QTest::newRow("bypass off") << cut << true << cut << false;
    QTest::newRow("bypass on, drive") << driven << false << driven << true;
    QTest::newRow("bypass off, drive") << driven << true << driven << false;
    QTest::newRow("drive on in bypass") << loud << true << driven << true;
    QTest::newRow("drive off in bypass") << driven << true << loud << true;
    QTest::newRow("input level") << QString() << false << loud << false;
    QTest::newRow("middle gain") << QString() << false << QStringLiteral("6=350 7=200") << false;
    QTest::newRow("drive on") << loud << false << driven << false;
}

// The tone and the measure are those of the engine's test for clicks.
void tst_EqualizerProcessor::switchesDoNotClick()
{
    QFETCH(const QString, first);
    QFETCH(const bool, firstBypassed);
    QFETCH(const QString, second);
    QFETCH(const bool, secondBypassed);
    constexpr std::size_t before = 9600;
    const auto run = [](const QString& a, bool aOn, const QString& b, bool bOn, std::size_t jump) {
        EqualizerProcessor processor(1);
        processor.setValues(valuesFrom(a));
        processor.setBypassed(aOn);
        const Block tone = sine(150.0, rate, jump + 4800, 0.1);
        const auto middle = tone.begin() + std::ptrdiff_t(jump);
        Block out = through(&processor, Block(tone.begin(), middle));
        processor.setValues(valuesFrom(b));
        processor.setBypassed(bOn);
        const Block rest = through(&processor, Block(middle, tone.end()));
        out.insert(out.end(), rest.begin(), rest.end());
        return out;
    };
    double worst = 0.0;
    double splice = 0.0;
    for (std::size_t phase = 0; phase < 8; ++phase) {
        const std::size_t jump = before + 40 * phase;
        const Block jumping = run(first, firstBypassed, second, secondBypassed, jump);
        Block spliced = run(first, firstBypassed, first, firstBypassed, jump);
        const Block settled = run(second, secondBypassed, second, secondBypassed, jump);
        const double steady = std::max(click(spliced, before, rate), click(settled, before, rate));
        std::copy(settled.begin() + std::ptrdiff_t(jump), settled.end(),
                  spliced.begin() + std::ptrdiff_t(jump));
        worst = std::max(worst, click(jumping, before, rate) - steady);
        splice = std::max(splice, click(spliced, before, rate) - steady);
    }
    QVERIFY(splice > 0.001);
    QVERIFY2(worst < 0.001 * splice, qPrintable(QStringLiteral("%1 of %2").arg(worst).arg(splice)));
}

void tst_EqualizerProcessor::resetForgetsWhatWasHeard()
{
    EqualizerProcessor fresh;
    EqualizerProcessor used;
    fresh.setValues(valuesFrom(busy + QStringLiteral(" 27=1")));
    through(&used, noise(3000));
    used.setValues(fresh.values());
    used.setBypassed(true);
    used.setBypassed(false);
    used.reset();
    QCOMPARE(used.levels(0), MeterLevels());
    QCOMPARE(through(&used, noise(3000)), through(&fresh, noise(3000)));
    used.setChannelCount(1);
    fresh.reset();
    QCOMPARE(through(&used, noise(3000)), through(&fresh, noise(3000)));
}

void tst_EqualizerProcessor::metersShowBothSides()
{
    EqualizerProcessor processor;
    processor.setValues(valuesFrom(QStringLiteral("25=-60 26=100")));
    const Block loud(100, -0.5);
    const Block quiet(100, 0.05);
    Block out(100);
    const std::array<const double*, 2> inputs = {loud.data(), quiet.data()};
    const std::array<double*, 2> outputs = {out.data(), nullptr};
    processor.process(inputs, outputs, loud.size());
    QCOMPARE(processor.levels(0), (MeterLevels{-120, -20}));
    QCOMPARE(processor.levels(1), (MeterLevels{-320, -220}));
    // Half a second later: 10 dB.
    through(&processor, Block(std::size_t(rate / 2), 0.0));
    QCOMPARE(processor.levels(0), (MeterLevels{-220, -120}));
    // Bypassed, what comes out is what went in; what is sent stays what the equalizer hears.
    processor.reset();
    processor.setBypassed(true);
    processor.reset();
    processor.process(inputs, outputs, loud.size());
    QCOMPARE(processor.levels(0), (MeterLevels{-120, -60}));
}

void tst_EqualizerProcessor::missingBuffersAreSilence()
{
    EqualizerProcessor processor;
    const Block in = noise(700);
    Block left(700, 5.0);
    Block right(700, 5.0);
    Block third(700, 5.0);
    const std::array<const double*, 2> inputs = {nullptr, in.data()};
    const std::array<double*, 3> outputs = {left.data(), right.data(), third.data()};
    processor.process(inputs, outputs, in.size());
    QCOMPARE(left, Block(700, 0.0));
    QCOMPARE(right, in);
    QCOMPARE(third, Block(700, 0.0));
    processor.process(std::span(inputs).last(1), std::span(outputs).first(2), in.size());
    QCOMPARE(left, in);
    QCOMPARE(right, Block(700, 0.0));
    processor.process(std::span<const double* const>(), std::span<double* const>(), 700);
}

void tst_EqualizerProcessor::processingNeitherAllocatesNorLocks()
{
    const auto processor = std::make_unique<EqualizerProcessor>();
    std::minstd_rand generator(5);
    std::vector<float> floats = samplesOf<float>(noise(8192));
    Block doubles = noise(8192);
    const std::array<float*, 2> floatPointers = {floats.data(), floats.data()};
    const std::array<double*, 2> doublePointers = {doubles.data(), doubles.data()};
    const std::array<const float*, 2> floatInputs = {floats.data(), floats.data()};
    const std::array<const double*, 2> doubleInputs = {doubles.data(), doubles.data()};
    for (int round = 0; round < 60; ++round) {
        Values values{};
        for (std::size_t i = 0; i < values.size(); ++i) {
            const Parameter& p = parameterTable[i];
            values[i] = std::uniform_int_distribution<int>(p.minimum, p.maximum)(generator);
        }
        const std::size_t frames = std::uniform_int_distribution<std::size_t>(0, 900)(generator);
        const RealtimeTrap trap;
        processor->setValues(values);
        processor->setBypassed(round % 3 == 0);
        processor->process(floatInputs, floatPointers, frames);
        processor->process(doubleInputs, doublePointers, frames);
        if (round % 10 == 9)
            processor->reset();
        QCOMPARE(trap.allocations(), 0);
        QCOMPARE(trap.locks(), 0);
    }
}

QTEST_APPLESS_MAIN(tst_EqualizerProcessor)

#include "tst_EqualizerProcessor.moc"
