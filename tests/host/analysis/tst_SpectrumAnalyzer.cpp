// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/AudioEngine.h"
#include "host/analysis/SignalReader.h"
#include "host/analysis/SpectrumAnalyzer.h"
#include "tests/engine/EngineTesting.h"
#include "tests/support/TestObject.h"

#include <memory>
#include <numbers>

using namespace EngineTesting;

class tst_SpectrumAnalyzer : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void sinesReadTheirLevel_data();
    void sinesReadTheirLevel();
    void noiseIsFlat_data();
    void noiseIsFlat();
    void differenceIsTheCurve_data();
    void differenceIsTheCurve();
    void smoothingAveragesPower_data();
    void smoothingAveragesPower();
    void tiltTurnsAboutOneKilohertz();
    void linesLeadSmoothlyFromBinToBin();
    void averagesFollowTheirSpeed_data();
    void averagesFollowTheirSpeed();
    void peaksStay();
    void channelsCountAlike();
    void undefinedSamplesAreSilence();
    void newTransformBeginsAnew();
    void readerWaitsForAWholeBlock();

private:
    using Settings = AnalyzerSettings;
    using Blocks = std::vector<SpectrumAnalyzer::Block>;

    static Settings plain();
    static Blocks sineBlock(const SpectrumAnalyzer& analyzer, double frequency, double peak = 1.0,
                            double phase = 0.3);
    static double levelAt(const SpectrumAnalyzer& analyzer, double frequency);
    static Block pink(std::size_t count, double rate);
};

// No smoothing, no tilt.
AnalyzerSettings tst_SpectrumAnalyzer::plain()
{
    Settings settings;
    settings.smoothing = 0;
    settings.tilt = 0;
    return settings;
}

tst_SpectrumAnalyzer::Blocks tst_SpectrumAnalyzer::sineBlock(const SpectrumAnalyzer& analyzer,
                                                             double frequency, double peak,
                                                             double phase)
{
    SpectrumAnalyzer::Block block;
    const double step = 2.0 * std::numbers::pi * frequency / analyzer.sampleRate();
    for (std::size_t i = 0; i < analyzer.settings().size(); ++i)
        block.after.push_back(static_cast<float>(peak * std::sin(step * double(i) + phase)));
    block.before = block.after;
    return {block};
}

double tst_SpectrumAnalyzer::levelAt(const SpectrumAnalyzer& analyzer, double frequency)
{
    return double{analyzer.levels(SpectrumAnalyzer::After)[analyzer.columnOf(frequency)]};
}

// White noise through poles and zeros half an octave apart, which fall by 3 dB an octave.
Block tst_SpectrumAnalyzer::pink(std::size_t count, double rate)
{
    Block block = noise(count, 0.5);
    for (double frequency = 1.0; frequency < rate / 2.0; frequency *= 2.0) {
        const double pole = std::exp(-2.0 * std::numbers::pi * frequency / rate);
        const double zero = std::exp(-2.0 * std::numbers::pi * frequency * M_SQRT2 / rate);
        double input = 0.0;
        double output = 0.0;
        for (double& sample : block) {
            output = pole * output + sample - zero * std::exchange(input, sample);
            sample = output;
        }
    }
    return block;
}

void tst_SpectrumAnalyzer::sinesReadTheirLevel_data()
{
    QTest::addColumn<int>("order");
    QTest::addColumn<int>("window");
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("columns");
    for (int order = Settings::smallestOrder; order <= Settings::largestOrder; ++order) {
        for (const int window : {Settings::Hann, Settings::BlackmanHarris, Settings::FlatTop}) {
            for (const auto& [rate, columns] : {std::pair{44100, 620}, {48000, 1242}, {96000, 300}})
                QTest::addRow("2^%d, window %d, %d Hz", order, window, rate)
                    << order << window << rate << columns;
        }
    }
}

// From four bins on, below which no transform of that size tells a sine from its mirror image.
void tst_SpectrumAnalyzer::sinesReadTheirLevel()
{
    QFETCH(const int, order);
    QFETCH(const int, window);
    QFETCH(const int, rate);
    QFETCH(const int, columns);
    SpectrumAnalyzer analyzer;
    Settings settings = plain();
    settings.order = order;
    settings.window = window;
    analyzer.setSettings(settings);
    analyzer.setSampleRate(rate);
    analyzer.setColumns(static_cast<std::size_t>(columns));
    const double lowest = std::max(20.0, 4.0 * rate / double(settings.size()));
    for (double frequency = lowest; frequency < 20000.0; frequency *= 1.1917) {
        for (const double level : {0.0, -60.0}) {
            analyzer.reset();
            const double peak = std::pow(10.0, level / 20.0);
            analyzer.update(sineBlock(analyzer, frequency, peak, frequency), 1.0);
            COMPARE_NEAR(levelAt(analyzer, frequency), level, 0.1);
        }
    }
}

void tst_SpectrumAnalyzer::noiseIsFlat_data()
{
    QTest::addColumn<bool>("isPink");
    QTest::addColumn<int>("tilt");
    QTest::newRow("white") << false << 0;
    QTest::newRow("pink") << true << 1;
}

void tst_SpectrumAnalyzer::noiseIsFlat()
{
    QFETCH(const bool, isPink);
    QFETCH(const int, tilt);
    constexpr double rate = 96000.0;
    SpectrumAnalyzer analyzer;
    Settings settings;
    settings.tilt = tilt;
    settings.smoothing = 5;
    settings.speed = Settings::Infinite;
    analyzer.setSettings(settings);
    analyzer.setSampleRate(rate);
    constexpr std::size_t count = 40 * 96000;
    const Block signal = isPink ? pink(count, rate) : noise(count, 0.5);
    const std::vector<float> samples(signal.begin(), signal.end());
    const std::size_t size = settings.size();
    for (std::size_t i = size; i + size <= samples.size(); i += size / 4) {
        const std::vector<float> block(samples.begin() + std::ptrdiff_t(i),
                                       samples.begin() + std::ptrdiff_t(i + size));
        analyzer.update(Blocks{{block, block}}, double(size) / 4.0 / rate);
    }
    const double reference = levelAt(analyzer, 1000.0);
    for (double frequency = 40.0; frequency < 18000.0; frequency *= 1.1)
        COMPARE_NEAR(levelAt(analyzer, frequency), reference, 0.5);
}

void tst_SpectrumAnalyzer::differenceIsTheCurve_data()
{
    QTest::addColumn<QString>("settings");
    QTest::newRow("passes and bells") << "1=0 2=200 7=100 6=400 11=-80 10=700 21=0 22=1000";
    QTest::newRow("shelves and levels") << "1=3 2=300 3=120 21=2 22=900 23=-90 25=-60 26=40";
}

// A minute of noise through a channel of the engine, as the mixer's window sees it.
void tst_SpectrumAnalyzer::differenceIsTheCurve()
{
    constexpr int rate = 48000;
    QFETCH(const QString, settings);
    const Values values = valuesFrom(settings);
    const auto engine = std::make_unique<AudioEngine>();
    engine->publish(0, values);
    SpectrumAnalyzer analyzer;
    Settings view;
    view.speed = Settings::Infinite;
    view.smoothing = 1;
    analyzer.setSettings(view);
    SignalReader reader({&engine->tap(0)}, analyzer);
    std::minstd_rand generator(3);
    std::uniform_real_distribution<float> random(-0.25F, 0.25F);
    std::vector<float> block(1600);
    for (int tick = 0; tick < 60 * 30; ++tick) {
        std::generate(block.begin(), block.end(), [&] { return random(generator); });
        engine->process(std::array{block.data()}, block.size());
        reader.update();
    }
    EqualizerBands bands;
    setBands(&bands, values, rate);
    const SpectrumAnalyzer::Levels& before = analyzer.levels(SpectrumAnalyzer::Before);
    for (std::size_t i = 0; i < before.size(); ++i) {
        const double frequency = analyzer.columns().frequency(i);
        const double difference = double{analyzer.levels(SpectrumAnalyzer::After)[i] - before[i]};
        const double drawn = bands.response().levels(frequency, rate).total;
        COMPARE_NEAR(difference, drawn + outputLevelOf(values), 0.5);
    }
}

void tst_SpectrumAnalyzer::smoothingAveragesPower_data()
{
    QTest::addColumn<int>("smoothing");
    for (int i = 1; i < int{Settings::smoothings.size()}; ++i)
        QTest::addRow("1/%d octave", Settings::smoothings[std::size_t(i)]) << i;
}

// A tone is spread over so many bins; a Hann window's takes 1.5 of them.
void tst_SpectrumAnalyzer::smoothingAveragesPower()
{
    QFETCH(const int, smoothing);
    SpectrumAnalyzer analyzer;
    Settings settings = plain();
    settings.smoothing = smoothing;
    analyzer.setSettings(settings);
    analyzer.setColumns(20000); // one of them has the tone in its middle
    analyzer.update(sineBlock(analyzer, 5000.0), 1.0);
    const double reach = std::exp2(1.0 / settings.smoothingParts());
    const double width = 5000.0 * (reach - 1.0 / reach) / 2.0;
    const double bins = width * double(settings.size()) / 48000.0;
    COMPARE_NEAR(levelAt(analyzer, 5000.0), 10.0 * std::log10(1.5 / bins), 0.1);
    const double beside = 5000.0 * std::exp2(1.5 / settings.smoothingParts());
    QVERIFY(levelAt(analyzer, beside) < -60.0);
}

void tst_SpectrumAnalyzer::tiltTurnsAboutOneKilohertz()
{
    SpectrumAnalyzer analyzer;
    Settings settings = plain();
    analyzer.setSettings(settings);
    analyzer.update(sineBlock(analyzer, 4000.0), 1.0);
    for (std::size_t i = 0; i < Settings::tilts.size(); ++i) {
        settings.tilt = static_cast<int>(i);
        analyzer.setSettings(settings); // shown without another update
        COMPARE_NEAR(levelAt(analyzer, 4000.0), 2.0 * Settings::tilts[i], 0.1);
    }
}

// A tone between two bins is one hill, without steps or swings.
void tst_SpectrumAnalyzer::linesLeadSmoothlyFromBinToBin()
{
    SpectrumAnalyzer analyzer;
    analyzer.setSettings(plain());
    analyzer.setColumns(2000);
    analyzer.update(sineBlock(analyzer, 31.6), 1.0);
    const SpectrumAnalyzer::Levels& levels = analyzer.levels(SpectrumAnalyzer::After);
    const auto top = std::max_element(levels.begin(), levels.end());
    const auto first = levels.begin() + std::ptrdiff_t(analyzer.columnOf(27.5));
    const auto last = levels.begin() + std::ptrdiff_t(analyzer.columnOf(35.5));
    QVERIFY(std::abs(std::ptrdiff_t(analyzer.columnOf(31.6)) - (top - levels.begin())) <= 2);
    QVERIFY(std::is_sorted(first, top));
    QVERIFY(std::is_sorted(top, last, std::greater<>()));
    for (auto level = first; level != last; ++level)
        QVERIFY(std::abs(level[1] - level[0]) < 1.5F);
}

void tst_SpectrumAnalyzer::averagesFollowTheirSpeed_data()
{
    QTest::addColumn<int>("speed");
    QTest::addColumn<double>("fall"); // dB in half a second of silence after half a second of sound
    const auto fall = [](double constant) { return -10.0 * std::log10(std::exp(0.5 / constant)); };
    QTest::newRow("fast") << int{Settings::Fast} << fall(0.08);
    QTest::newRow("medium") << int{Settings::Medium} << fall(0.25);
    QTest::newRow("slow") << int{Settings::Slow} << fall(1.0);
    QTest::newRow("infinite") << int{Settings::Infinite} << 10.0 * std::log10(0.5);
}

void tst_SpectrumAnalyzer::averagesFollowTheirSpeed()
{
    QFETCH(const int, speed);
    QFETCH(const double, fall);
    SpectrumAnalyzer analyzer;
    Settings settings = plain();
    settings.speed = speed;
    analyzer.setSettings(settings);
    for (int i = 0; i < 10; ++i)
        analyzer.update(sineBlock(analyzer, 1000.0), 0.05);
    COMPARE_NEAR(levelAt(analyzer, 1000.0), 0.0, 0.05);
    for (int i = 0; i < 10; ++i)
        analyzer.update(sineBlock(analyzer, 1000.0, 0.0), 0.05);
    COMPARE_NEAR(levelAt(analyzer, 1000.0), fall, 0.05);
}

void tst_SpectrumAnalyzer::peaksStay()
{
    SpectrumAnalyzer analyzer;
    Settings settings = plain();
    settings.speed = Settings::Fast;
    analyzer.setSettings(settings);
    const auto play = [&](double peak) {
        analyzer.update(sineBlock(analyzer, 1000.0, peak), 5.0);
        return analyzer.peaks().empty() ? 99.0
                                        : double{analyzer.peaks()[analyzer.columnOf(1000.0)]};
    };
    QCOMPARE(play(1.0), 99.0);
    settings.peaks = true;
    analyzer.setSettings(settings);
    COMPARE_NEAR(play(0.5), 0.0, 0.1); // what was seen counts
    COMPARE_NEAR(play(0.1), 0.0, 0.1);
    analyzer.resetPeaks();
    COMPARE_NEAR(play(0.01), -20.0, 0.1);
    analyzer.reset();
    COMPARE_NEAR(play(0.01), -40.0, 0.1);
    settings.peaks = false;
    analyzer.setSettings(settings);
    QVERIFY(analyzer.peaks().empty());
}

void tst_SpectrumAnalyzer::channelsCountAlike()
{
    SpectrumAnalyzer analyzer;
    analyzer.setSettings(plain());
    Blocks blocks = sineBlock(analyzer, 1000.0);
    blocks.push_back(sineBlock(analyzer, 1000.0, 0.0).front());
    analyzer.update(blocks, 1.0);
    COMPARE_NEAR(levelAt(analyzer, 1000.0), -3.01, 0.05);
}

void tst_SpectrumAnalyzer::undefinedSamplesAreSilence()
{
    SpectrumAnalyzer analyzer;
    analyzer.setSettings(plain());
    for (const float sample :
         {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
        analyzer.reset();
        Blocks blocks = sineBlock(analyzer, 1000.0);
        blocks[0].after[100] = sample;
        analyzer.update(blocks, 1.0);
        QCOMPARE(levelAt(analyzer, 1000.0), SpectrumColumns::faintest);
        analyzer.update(sineBlock(analyzer, 1000.0), 100.0);
        COMPARE_NEAR(levelAt(analyzer, 1000.0), 0.0, 0.1);
    }
}

void tst_SpectrumAnalyzer::newTransformBeginsAnew()
{
    SpectrumAnalyzer analyzer;
    Settings settings;
    const auto play = [&] { analyzer.update(sineBlock(analyzer, 1000.0), 1.0); };
    play();
    settings.smoothing = 0;
    analyzer.setSettings(settings);
    analyzer.setColumns(100);
    QCOMPARE(analyzer.levels(SpectrumAnalyzer::After).size(), std::size_t{100});
    settings.order = 12;
    analyzer.setSettings(settings);
    QVERIFY(!analyzer.hasLevels());
    play();
    settings.window = Settings::FlatTop;
    analyzer.setSettings(settings);
    QVERIFY(!analyzer.hasLevels());
    play();
    analyzer.setSampleRate(96000.0);
    QVERIFY(!analyzer.hasLevels());
}

void tst_SpectrumAnalyzer::readerWaitsForAWholeBlock()
{
    SignalTap tap;
    SpectrumAnalyzer analyzer;
    Settings settings = plain();
    settings.order = 12;
    analyzer.setSettings(settings);
    const auto reader = std::make_unique<SignalReader>(std::vector{&tap}, analyzer);
    const auto write = [&tap](std::size_t count) {
        const Block block = sine(1000.0, 48000, count);
        tap.writeBefore(block);
        tap.writeAfter(block);
    };
    QVERIFY(!reader->update());
    write(4095);
    QVERIFY(!reader->update());
    write(1);
    QVERIFY(reader->update());
    QVERIFY(analyzer.hasLevels());
    QVERIFY(!reader->update());
    write(1);
    QVERIFY(reader->update());
}

QTEST_APPLESS_MAIN(tst_SpectrumAnalyzer)
#include "tst_SpectrumAnalyzer.moc"
