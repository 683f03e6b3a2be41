// SPDX-License-Identifier: GPL-3.0-or-later
// What is heard of a channel while somebody compares, through the mix bus.
#include "engine/MixBus.h"
#include "tests/engine/EngineTesting.h"
#include "tests/support/TestObject.h"

#include <array>
#include <memory>
#include <numeric>
#include <utility>

using namespace EngineTesting;
using namespace Qt::StringLiterals;

class tst_Auditions : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void weightsAsTheRecommendation();
    void measuringChangesNoBit();
    void bandIsTheDifferenceOfTwoRenders_data();
    void bandIsTheDifferenceOfTwoRenders();
    void heldLongItIsTheRenderWithoutTheBand();
    void settingsAreTurnedWhileABandIsHeard();
    void bandThatIsOffIsSilent();
    void bandGoesBeforeBypass();
    void releaseBringsEveryBitBack();
    void othersAreSilentWhileABandIsHeard();
    void bypassIsAsLoud_data();
    void bypassIsAsLoud();
    void bypassAtRestIsTheInput();
    void bypassKeepsTheDelay();
    void gainIsBounded_data();
    void gainIsBounded();
    void silenceKeepsTheGain();
    void newSettingsAreMeasuredAnew();
    void gainMovesSmoothly();
    void pairHasOneGain();
    void metersStayTheEqualizers();
    void channelWithoutSoundIsLeftOut();
    void preparingKeepsTheGain();
    void changesDoNotClick_data();
    void changesDoNotClick();

private:
    using Samples = std::vector<float>;
    static constexpr int rate = 48000;
    static constexpr std::size_t blockLength = rate / 10; // of a measure
    static constexpr std::size_t window = LoudnessMatch::windowBlocks * blockLength;

    void prepare(const QString& settings);
    Samples play(const Samples& input, std::size_t part = blockLength);
    std::array<Samples, 2> playBoth(const std::array<Samples, 2>& inputs, std::size_t part);
    void want(const Audition& audition, int channel = 0) { m_bus->publish(channel, audition); }
    static Samples narrowed(const Block& block) { return {block.begin(), block.end()}; }
    static Samples pink(std::size_t count, double level = 0.1);
    static double loudness(const Samples& samples);
    static Samples quiet(std::size_t count, float level);

    static constexpr Audition measured{true};
    static constexpr Audition bypass{true, true};
    static constexpr Audition listenTo(int band) { return {true, false, band}; }

    std::unique_ptr<MixBus> m_bus;
};

void tst_Auditions::init()
{
    TestObject::init();
    m_bus = std::make_unique<MixBus>();
}

// Channel 0 on the left and channel 1 on the right, with the same settings.
void tst_Auditions::prepare(const QString& settings)
{
    MixBus::Strips strips;
    strips[0] = {{MixBus::Source::File, 0}, 1.0, 0.0};
    strips[1] = {{MixBus::Source::File, 1}, 0.0, 1.0};
    m_bus->publish(strips);
    for (const int channel : {0, 1})
        m_bus->publish(channel, valuesFrom(settings));
    m_bus->prepare(rate, false);
}

std::array<tst_Auditions::Samples, 2> tst_Auditions::playBoth(const std::array<Samples, 2>& inputs,
                                                              std::size_t part)
{
    const std::size_t frames = inputs[0].size();
    std::array<Samples, 2> heard = {Samples(frames), Samples(frames)};
    for (std::size_t done = 0; done < frames; done += part) {
        const std::array<const float*, 2> in = {&inputs[0][done], &inputs[1][done]};
        const std::array<float*, 2> out = {&heard[0][done], &heard[1][done]};
        m_bus->process(in, out, std::min(part, frames - done));
    }
    return heard;
}

tst_Auditions::Samples tst_Auditions::play(const Samples& input, std::size_t part)
{
    return playBoth({input, input}, part)[0];
}

// White noises that are held for 1, 2, 4 ... samples have together 3 dB less an octave.
tst_Auditions::Samples tst_Auditions::pink(std::size_t count, double level)
{
    std::minstd_rand generator(3);
    std::uniform_real_distribution<double> random(-level, level);
    std::array<double, 12> held{};
    Samples samples(count);
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t k = 0; k < held.size(); ++k) {
            if (i % (std::size_t{1} << k) == 0)
                held[k] = random(generator);
        }
        samples[i] = static_cast<float>(std::accumulate(held.begin(), held.end(), 0.0) / 4.0);
    }
    return samples;
}

tst_Auditions::Samples tst_Auditions::quiet(std::size_t count, float level)
{
    return Samples(count, level);
}

// By the Recommendation's own table for 48000 Hz, without gates.
double tst_Auditions::loudness(const Samples& samples)
{
    struct Section
    {
        double run(double x)
        {
            const double y = b[0] * x + b[1] * x1 + b[2] * x2 - a[0] * y1 - a[1] * y2;
            x2 = std::exchange(x1, x);
            y2 = std::exchange(y1, y);
            return y;
        }
        std::array<double, 3> b;
        std::array<double, 2> a;
        double x1 = 0.0, x2 = 0.0, y1 = 0.0, y2 = 0.0;
    };
    Section shelf{{1.53512485958697, -2.69169618940638, 1.19839281085285},
                  {-1.69065929318241, 0.73248077421585}};
    Section highPass{{1.0, -2.0, 1.0}, {-1.99004745483398, 0.99007225036621}};
    double sum = 0.0;
    for (const float sample : samples) {
        const double weighted = highPass.run(shelf.run(double{sample}));
        sum += weighted * weighted;
    }
    return -0.691 + 10.0 * std::log10(sum / static_cast<double>(samples.size()));
}

// The analog filters behind the table have the same weights at every rate.
void tst_Auditions::weightsAsTheRecommendation()
{
    for (const int hertz : {44100, 48000, 96000, 192000}) {
        for (const double frequency : {30.0, 60.0, 200.0, 1000.0, 2000.0, 5000.0}) {
            KWeighting weighting;
            weighting.setSampleRate(hertz);
            const auto second = static_cast<std::size_t>(hertz);
            weighting.energy(sine(frequency, hertz, second));
            const double energy = weighting.energy(sine(frequency, hertz, second));
            const Block reference = sine(frequency, rate, 2 * rate);
            const double both = loudness(narrowed(reference));
            COMPARE_NEAR(-0.691 + 10.0 * std::log10(energy / hertz), both, 0.05);
        }
    }
}

void tst_Auditions::measuringChangesNoBit()
{
    const QString settings = u"3=60 7=-60 11=30 25=20 27=1"_s;
    const Samples input = pink(rate);
    prepare(settings);
    const Samples expected = play(input);
    want(measured);
    prepare(settings);
    QCOMPARE(play(input), expected);
    QVERIFY(m_bus->matchedGain(0) != 0.0);
}

void tst_Auditions::bandIsTheDifferenceOfTwoRenders_data()
{
    QTest::addColumn<QString>("settings");
    QTest::addColumn<int>("band");
    QTest::addColumn<QString>("off");
    QTest::addColumn<int>("part");
    const QString bands = u"1=3 2=400 3=80 6=500 7=-60 10=700 11=200 15=-200 18=900 19=60 21=0 "
                          "22=1000 25=30 26=-40"_s;
    for (int band = 0; band < EqualizerBands::Count; ++band) {
        const QString off = u" %1=0"_s.arg(4 * band + 4);
        QTest::addRow("band %d", band) << bands << band << off << 256;
        QTest::addRow("band %d with drive", band) << bands + u" 27=1"_s << band << off << 64;
    }
    QTest::addRow("single samples") << bands << 2 << u" 12=0"_s << 1;
}

// Bit by bit, from the end of the fade on; until there it is bounded by both.
void tst_Auditions::bandIsTheDifferenceOfTwoRenders()
{
    QFETCH(const QString, settings);
    QFETCH(const int, band);
    QFETCH(const QString, off);
    QFETCH(const int, part);
    constexpr std::size_t held = 2560;
    const Samples input = pink(4 * held);
    const Samples before(input.begin(), input.begin() + held);
    const Samples after(input.begin() + held, input.end());
    prepare(settings);
    want(measured);
    play(before, static_cast<std::size_t>(part));
    want(listenTo(band));
    const Samples heard = play(after, static_cast<std::size_t>(part));

    Block with(input.begin(), input.end());
    Block without = with;
    ChannelProcessor all;
    ChannelProcessor fewer;
    all.setValues(valuesFrom(settings));
    fewer.setValues(valuesFrom(settings));
    all.process(with);
    fewer.process(std::span(without).first(held));
    fewer.setValues(valuesFrom(settings + off));
    fewer.process(std::span(without).subspan(held));
    Samples difference(heard.size());
    for (std::size_t i = 0; i < heard.size(); ++i)
        difference[i] = static_cast<float>(with[held + i]) - static_cast<float>(without[held + i]);
    QCOMPARE(Samples(heard.begin() + 480, heard.end()),
             Samples(difference.begin() + 480, difference.end()));
    const float loudest = *std::max_element(difference.begin(), difference.end());
    QVERIFY(loudest > 1e-3F);
}

void tst_Auditions::heldLongItIsTheRenderWithoutTheBand()
{
    const QString settings = u"3=80 6=500 7=-60 11=200 15=-30 19=60 23=-100"_s;
    const Samples input = pink(4 * rate);
    Block with(input.begin(), input.end());
    Block without = with;
    ChannelProcessor all;
    ChannelProcessor fewer;
    all.setValues(valuesFrom(settings));
    fewer.setValues(valuesFrom(settings + u" 12=0"_s));
    all.process(with);
    fewer.process(without);
    prepare(settings);
    play(Samples(input.begin(), input.begin() + rate));
    want(listenTo(2));
    const Samples heard = play(Samples(input.begin() + rate, input.end()));
    for (std::size_t i = 2 * rate; i < heard.size(); ++i)
        COMPARE_NEAR(double{heard[i]}, with[rate + i] - without[rate + i], 1e-6);
}

void tst_Auditions::settingsAreTurnedWhileABandIsHeard()
{
    prepare(u"7=100"_s);
    want(listenTo(1));
    const Samples input = pink(rate);
    play(input);
    const QString turned = u"5=300 6=600 7=-80 11=40 25=-30"_s;
    for (const int channel : {0, 1})
        m_bus->publish(channel, valuesFrom(turned));
    play(input);
    const Samples heard = play(input);
    ChannelProcessor all;
    ChannelProcessor fewer;
    all.setValues(valuesFrom(turned));
    fewer.setValues(valuesFrom(turned + u" 8=0"_s));
    for (const int round : {0, 1}) {
        Block with(input.begin(), input.end());
        Block without = with;
        all.process(with);
        fewer.process(without);
        for (std::size_t i = 0; round == 1 && i < heard.size(); ++i)
            COMPARE_NEAR(double{heard[i]}, with[i] - without[i], 1e-6);
    }
}

void tst_Auditions::bandThatIsOffIsSilent()
{
    prepare(u"3=100 7=100 8=0 11=-50 27=1"_s);
    play(pink(rate));
    want(listenTo(1));
    Samples heard = play(pink(rate));
    heard.erase(heard.begin(), heard.begin() + 480);
    QCOMPARE(heard, quiet(heard.size(), 0.0F));
}

void tst_Auditions::bandGoesBeforeBypass()
{
    const Samples input = pink(rate);
    std::array<Samples, 2> heard;
    for (const bool bypassed : {false, true}) {
        prepare(u"3=100 7=100"_s);
        want({true, bypassed, 1});
        heard[bypassed ? 1 : 0] = play(input);
    }
    QCOMPARE(Samples(heard[0].begin() + 480, heard[0].end()),
             Samples(heard[1].begin() + 480, heard[1].end()));
}

void tst_Auditions::releaseBringsEveryBitBack()
{
    const QString settings = u"3=60 7=-60 11=30 25=20 27=1"_s;
    const Samples input = pink(rate);
    prepare(settings);
    play(input);
    const Samples expected = play(input);
    prepare(settings);
    auto next = input.begin();
    for (const Audition& audition : {listenTo(1), bypass, listenTo(0), Audition()}) {
        want(audition);
        play(Samples(next, next + rate / 4));
        next += rate / 4;
    }
    QCOMPARE(play(input), expected);
}

// Also where the channel has nothing to play.
void tst_Auditions::othersAreSilentWhileABandIsHeard()
{
    prepare({});
    const Samples input = pink(1000);
    for (const int listened : {0, 5}) {
        want(listenTo(2), listened);
        playBoth({input, input}, 100);
        QCOMPARE(playBoth({input, input}, 100), (std::array{quiet(1000, 0.0F), quiet(1000, 0.0F)}));
        want(measured, listened);
        playBoth({input, input}, 100);
        QCOMPARE(playBoth({input, input}, 100), (std::array{input, input}));
    }
}

void tst_Auditions::bypassIsAsLoud_data()
{
    QTest::addColumn<QString>("settings");
    QTest::newRow("nothing") << QString();
    QTest::newRow("levels") << u"25=-60 26=35"_s;
    QTest::newRow("low shelf") << u"1=2 2=400 3=120"_s;
    QTest::newRow("rumble filter") << u"1=0 2=400"_s;
    QTest::newRow("presence") << u"13=100 14=850 15=90"_s;
    QTest::newRow("narrow cuts") << u"5=400 6=400 7=-150 9=400 10=600 11=-150"_s;
    QTest::newRow("air") << u"21=2 22=1100 23=100"_s;
    QTest::newRow("telephone") << u"1=0 2=700 21=0 22=880 11=60 10=700"_s;
    QTest::newRow("drive") << u"27=1 25=120 26=-80 3=40"_s;
}

// To 0.1 dB, as measured by the Recommendation's table. The noise repeats itself, so that all that
// is measured is the same.
void tst_Auditions::bypassIsAsLoud()
{
    QFETCH(const QString, settings);
    const Samples input = pink(window);
    prepare(settings);
    want(measured);
    const double equalized = loudness(play(input));
    want(bypass);
    COMPARE_NEAR(loudness(play(input)), equalized, 0.1);
    COMPARE_NEAR(m_bus->matchedGain(0), equalized - loudness(input), 0.1);
}

// Late by the rounding of its gain at most.
void tst_Auditions::bypassAtRestIsTheInput()
{
    const Samples input = pink(rate);
    prepare({});
    want(bypass);
    play(input);
    QCOMPARE(m_bus->matchedGain(0), 0.0);
    QCOMPARE(play(input), input);
}

void tst_Auditions::bypassKeepsTheDelay()
{
    prepare(u"27=1"_s);
    want(bypass);
    play(quiet(rate, 0.0F));
    Samples impulse(1000);
    impulse[200] = 0.5F;
    Samples expected(1000);
    expected[200 + Drive::latency] = 0.5F;
    QCOMPARE(play(impulse), expected);
}

void tst_Auditions::gainIsBounded_data()
{
    QTest::addColumn<QString>("settings");
    QTest::addColumn<double>("gain");
    QTest::newRow("up") << u"25=200 26=200"_s << 24.0;
    QTest::newRow("down") << u"25=-200 26=-200"_s << -24.0;
}

void tst_Auditions::gainIsBounded()
{
    QFETCH(const QString, settings);
    QFETCH(const double, gain);
    prepare(settings);
    want(measured);
    play(pink(rate, 0.01));
    QCOMPARE(m_bus->matchedGain(0), gain);
}

void tst_Auditions::silenceKeepsTheGain()
{
    prepare(u"26=60"_s);
    want(measured);
    play(quiet(rate, 0.0F));
    QCOMPARE(m_bus->matchedGain(0), 0.0);
    play(pink(rate));
    COMPARE_NEAR(m_bus->matchedGain(0), 6.0, 0.01);
    for (int channel : {0, 1})
        m_bus->publish(channel, valuesFrom(u"26=-60"_s));
    play(quiet(rate, 0.0F));
    COMPARE_NEAR(m_bus->matchedGain(0), 6.0, 0.01);
    play(pink(rate, 1e-5)); // below the gate
    COMPARE_NEAR(m_bus->matchedGain(0), 6.0, 0.01);
    play(pink(rate));
    COMPARE_NEAR(m_bus->matchedGain(0), -6.0, 0.01);
}

// Of the old ones nothing counts any more; the block of the fade is left out, and four are enough.
void tst_Auditions::newSettingsAreMeasuredAnew()
{
    prepare(u"26=60"_s);
    want(measured);
    play(pink(rate));
    for (int channel : {0, 1})
        m_bus->publish(channel, valuesFrom(u"26=-60"_s));
    play(pink(4 * blockLength));
    COMPARE_NEAR(m_bus->matchedGain(0), 6.0, 0.01);
    play(pink(blockLength));
    COMPARE_NEAR(m_bus->matchedGain(0), -6.0, 0.01);
}

void tst_Auditions::gainMovesSmoothly()
{
    prepare(u"26=0"_s);
    want(bypass);
    const Block low = sine(150.0, rate, 2 * rate, 0.1);
    play(narrowed(low));
    for (int channel : {0, 1})
        m_bus->publish(channel, valuesFrom(u"26=200"_s));
    const Samples heard = play(narrowed(low));
    QVERIFY(*std::max_element(heard.begin(), heard.end()) > 0.9F);
    QVERIFY(click(Block(heard.begin(), heard.end()), 4800, rate) < 1e-4);
}

void tst_Auditions::pairHasOneGain()
{
    for (const bool linked : {false, true}) {
        prepare({});
        m_bus->publish(0, valuesFrom(u"26=60"_s));
        for (int channel : {0, 1})
            want({true, true, noBand, linked}, channel);
        const Samples input = pink(rate);
        playBoth({input, input}, blockLength);
        const double left = m_bus->matchedGain(0);
        const double right = m_bus->matchedGain(1);
        COMPARE_NEAR(left, linked ? 10.0 * std::log10((3.9810717 + 1.0) / 2.0) : 6.0, 0.05);
        COMPARE_NEAR(right, linked ? left : 0.0, 1e-9);
    }
}

void tst_Auditions::metersStayTheEqualizers()
{
    prepare(u"26=-200"_s);
    want({true, false, 1});
    play(quiet(7 * rate, 0.5F)); // the meters fall
    QCOMPARE(m_bus->engine().levels(0), (MeterLevels{-60, -260}));
    QCOMPARE(m_bus->outputLevels().send, MeterLevels::lowest);
}

void tst_Auditions::channelWithoutSoundIsLeftOut()
{
    for (int channel = 0; channel < defaultChannelCount; ++channel)
        want({true, true, 0, true}, channel);
    m_bus->prepare(rate, false);
    QCOMPARE(play(quiet(1000, 0.5F)), quiet(1000, 0.0F));
}

void tst_Auditions::preparingKeepsTheGain()
{
    prepare(u"26=60"_s);
    want(measured);
    play(pink(rate));
    m_bus->prepare(96000, false);
    COMPARE_NEAR(m_bus->matchedGain(0), 6.0, 0.01);
}

void tst_Auditions::changesDoNotClick_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    const QStringList names{u"equalized"_s, u"bypass"_s, u"low"_s, u"middle"_s, u"unmeasured"_s};
    for (int from = 0; from < names.size(); ++from) {
        for (int to = 0; to < names.size(); ++to) {
            if (from != to)
                QTest::addRow("%s to %s", qPrintable(names[from]), qPrintable(names[to]))
                    << from << to;
        }
    }
}

// At four phases of the tone, beside the click of a splice. An outer band that comes back does so
// by its filter's own cross-fade.
void tst_Auditions::changesDoNotClick()
{
    QFETCH(const int, from);
    QFETCH(const int, to);
    const std::array auditions = {measured, bypass, listenTo(0), listenTo(1), Audition()};
    double worst = 0.0;
    for (std::size_t phase = 0; phase < 4; ++phase) {
        const std::size_t place = 9600 + 96 * phase;
        const Samples tone = narrowed(sine(150.0, rate, place + 4800, 0.1));
        prepare(u"1=2 2=400 3=100 6=350 7=-100 11=60 25=40"_s);
        want(auditions[static_cast<std::size_t>(from)]);
        constexpr std::size_t part = 64;
        Samples heard = play(Samples(tone.begin(), tone.begin() + std::ptrdiff_t(place)), part);
        want(auditions[static_cast<std::size_t>(to)]);
        const Samples rest = play(Samples(tone.begin() + std::ptrdiff_t(place), tone.end()), part);
        heard.insert(heard.end(), rest.begin(), rest.end());
        worst = std::max(worst, click(Block(heard.begin(), heard.end()), 4800, rate));
    }
    QVERIFY2(worst < 1e-4, qPrintable(QString::number(worst)));
}

QTEST_APPLESS_MAIN(tst_Auditions)

#include "tst_Auditions.moc"
