// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/MixBus.h"
#include "tests/engine/EngineTesting.h"
#include "tests/engine/RealtimeTrap.h"
#include "tests/support/TestObject.h"

#include <memory>
#include <mutex>
#include <random>

using namespace EngineTesting;

class tst_MixBus : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void stripsWithoutSourceAreSilent();
    void routes_data();
    void routes();
    void inputsGoByNumber();
    void eachKindOfSourceIsSilentWhileTheOtherPlays();
    void gainsScaleAndStripsAddUp();
    void equalizes();
    void blocksMakeNoDifference();
    void gainChangesWithinTheRampsLength();
    void gainTurnsBackFromWhereItIs();
    void newRouteComesInOnceTheOldOneIsOut();
    void sidesHaveTheirOwnLevels();
    void masterHasTheLastWord();
    void outputLevelsAreWhatComesOut();
    void driveHoldsTheOthersBack();
    void driveOfASilentStripHoldsNobodyBack();
    void prepareForgetsWhatWasHeard();
    void changesDoNotClick_data();
    void changesDoNotClick();
    void everyChannelIsHeard_data();
    void everyChannelIsHeard();
    void channelsComeAndGoWithoutClicks_data();
    void channelsComeAndGoWithoutClicks();
    void channelThatComesBackBeginsAnew();
    void stripThatRestedIsInStep_data();
    void stripThatRestedIsInStep();
    void trapsAreSet();
    void neitherAllocatesNorLocks();

private:
    using Samples = std::vector<float>;
    static constexpr int rate = 48000;
    static constexpr std::size_t rampLength = 480;

    void setCount(int count);
    void setStrip(std::size_t channel, const MixBus::Strip& strip);
    std::vector<Samples> play(const std::vector<Samples>& inputs, std::size_t part = 0,
                              std::size_t outputs = 2);
    static MixBus::Strip file(int number, bool left = true, bool right = true, double gain = 1.0);
    static Samples tone(std::size_t frames);

    std::unique_ptr<MixBus> m_bus;
    MixBus::Strips m_strips;
};

void tst_MixBus::init()
{
    TestObject::init();
    m_bus = std::make_unique<MixBus>();
    m_strips = {};
}

void tst_MixBus::setCount(int count)
{
    m_strips.count = count;
    m_bus->publish(m_strips);
}

void tst_MixBus::setStrip(std::size_t channel, const MixBus::Strip& strip)
{
    m_strips[channel] = strip;
    m_bus->publish(m_strips);
}

// Goes on where the last call ended; in parts of so many frames, or in one.
std::vector<tst_MixBus::Samples> tst_MixBus::play(const std::vector<Samples>& inputs,
                                                  std::size_t part, std::size_t outputs)
{
    const std::size_t frames = inputs[0].size();
    part = part > 0 ? part : frames;
    std::vector<Samples> heard(outputs, Samples(frames, 99.0F));
    for (std::size_t done = 0; done < frames; done += part) {
        std::vector<const float*> in;
        std::vector<float*> out;
        for (const Samples& each : inputs)
            in.push_back(each.data() + done);
        for (Samples& each : heard)
            out.push_back(each.data() + done);
        m_bus->process(in, out, std::min(part, frames - done));
    }
    return heard;
}

MixBus::Strip tst_MixBus::file(int number, bool left, bool right, double gain)
{
    return {{MixBus::Source::File, number}, left ? gain : 0.0, right ? gain : 0.0};
}

tst_MixBus::Samples tst_MixBus::tone(std::size_t frames)
{
    const Block block = sine(150.0, rate, frames, 0.5);
    return {block.begin(), block.end()};
}

void tst_MixBus::stripsWithoutSourceAreSilent()
{
    setStrip(0, {{}, 1.0, 1.0});
    m_bus->prepare(rate, false);
    QCOMPARE(play({tone(1000), tone(1000)}), std::vector<Samples>(2, Samples(1000, 0.0F)));
}

void tst_MixBus::routes_data()
{
    QTest::addColumn<QList<int>>("route"); // number, left, right
    QTest::addColumn<int>("inputs");
    QTest::addColumn<QList<float>>("heard"); // of inputs at 0.5 and 0.25
    using Route = QList<int>;
    using Heard = QList<float>;
    QTest::newRow("left") << Route{0, 1, 0} << 2 << Heard{0.5F, 0.0F};
    QTest::newRow("right") << Route{1, 0, 1} << 2 << Heard{0.0F, 0.25F};
    QTest::newRow("both sides") << Route{1, 1, 1} << 2 << Heard{0.25F, 0.25F};
    QTest::newRow("mono file") << Route{1, 1, 1} << 1 << Heard{0.5F, 0.5F};
    QTest::newRow("one output") << Route{0, 1, 1} << 2 << Heard{0.5F};
    QTest::newRow("more outputs") << Route{0, 1, 1} << 2 << Heard{0.5F, 0.5F, 0.0F};
}

void tst_MixBus::routes()
{
    QFETCH(const QList<int>, route);
    QFETCH(const int, inputs);
    QFETCH(const QList<float>, heard);
    setStrip(3, file(route[0], route[1] != 0, route[2] != 0));
    m_bus->prepare(rate, false);
    std::vector<Samples> given = {Samples(300, 0.5F), Samples(300, 0.25F)};
    given.resize(static_cast<std::size_t>(inputs));
    std::vector<Samples> expected;
    for (const float level : heard)
        expected.emplace_back(300, level);
    QCOMPARE(play(given, 0, expected.size()), expected);
}

void tst_MixBus::inputsGoByNumber()
{
    std::vector<Samples> given;
    for (int i = 1; i <= maxChannelCount; ++i)
        given.emplace_back(100, 0.01F * static_cast<float>(i));
    for (int number = 0; number < maxChannelCount; ++number) {
        setStrip(0, {{MixBus::Source::Input, number}, 1.0});
        m_bus->prepare(rate, true);
        QCOMPARE(play(given)[0], given[static_cast<std::size_t>(number)]);
    }
    given.resize(2);
    QCOMPARE(play(given)[0], Samples(100, 0.0F));
}

void tst_MixBus::eachKindOfSourceIsSilentWhileTheOtherPlays()
{
    setStrip(0, file(0));
    m_bus->prepare(rate, true);
    QCOMPARE(play({tone(100)})[0], Samples(100, 0.0F));
    setStrip(0, {{MixBus::Source::Input, 0}, 1.0, 1.0});
    m_bus->prepare(rate, false);
    QCOMPARE(play({tone(100)})[0], Samples(100, 0.0F));
}

void tst_MixBus::gainsScaleAndStripsAddUp()
{
    setStrip(0, file(0, true, false, 0.5));
    setStrip(7, file(1, true, true, 2.0));
    m_bus->prepare(rate, false);
    const std::vector<Samples> heard = play({Samples(100, 0.25F), Samples(100, -0.125F)});
    QCOMPARE(heard[0], Samples(100, -0.125F));
    QCOMPARE(heard[1], Samples(100, -0.25F));
}

void tst_MixBus::equalizes()
{
    const Values values = valuesFrom(QStringLiteral("11=80 25=-30"));
    setStrip(2, file(0));
    m_bus->publish(2, values);
    m_bus->prepare(rate, false);
    const Samples given = tone(1000);
    const auto processor = std::make_unique<ChannelProcessor>();
    processor->setValues(values);
    Block expected(given.begin(), given.end());
    processor->process(expected);
    QCOMPARE(play({given})[0], Samples(expected.begin(), expected.end()));
    QCOMPARE(m_bus->engine().levels(0), MeterLevels{});
    QVERIFY(m_bus->engine().levels(2).send > -100);
}

void tst_MixBus::blocksMakeNoDifference()
{
    setStrip(0, file(0, true, false));
    setStrip(1, file(1, false, true, 0.5));
    m_bus->publish(0, valuesFrom(QStringLiteral("11=80 27=1")));
    const Block given = noise(3000, 0.25);
    const std::vector<Samples> inputs(2, Samples(given.begin(), given.end()));
    m_bus->prepare(rate, false);
    const std::vector<Samples> whole = play(inputs);
    for (const std::size_t part : {1U, 64U, 255U, 1024U}) {
        m_bus->prepare(rate, false);
        QCOMPARE(play(inputs, part), whole);
    }
}

void tst_MixBus::gainChangesWithinTheRampsLength()
{
    setStrip(0, file(0));
    m_bus->prepare(rate, false);
    play({Samples(100, 0.5F)});
    setStrip(0, file(0, true, true, 0.5));
    const Samples heard = play({Samples(1000, 0.5F)}, 100)[0];
    QVERIFY(heard[0] < 0.5F && heard[0] > 0.499F);
    QCOMPARE(heard[rampLength / 2 - 1], 0.375F);
    QVERIFY(heard[rampLength - 2] > 0.25F);
    QCOMPARE(Samples(heard.begin() + rampLength - 1, heard.end()), Samples(521, 0.25F));
    QVERIFY(std::is_sorted(heard.rbegin(), heard.rend()));
}

void tst_MixBus::gainTurnsBackFromWhereItIs()
{
    setStrip(0, file(0));
    m_bus->prepare(rate, false);
    setStrip(0, file(0, true, true, 0.0));
    QCOMPARE(play({Samples(rampLength / 2, 0.5F)})[0].back(), 0.25F);
    setStrip(0, file(0));
    const Samples heard = play({Samples(rampLength, 0.5F)})[0];
    QVERIFY(heard[0] >= 0.25F && heard[0] < 0.251F);
    QVERIFY(std::is_sorted(heard.begin(), heard.end()));
    QCOMPARE(heard.back(), 0.5F);
}

void tst_MixBus::newRouteComesInOnceTheOldOneIsOut()
{
    setStrip(0, file(0));
    m_bus->prepare(rate, false);
    const std::vector<Samples> inputs = {Samples(1536, 0.5F), Samples(1536, -0.5F)};
    play(inputs);
    setStrip(0, file(1));
    const Samples heard = play(inputs, 16)[0];
    QVERIFY(heard[rampLength - 2] > 0.0F);
    QCOMPARE(heard[rampLength - 1], 0.0F);
    QVERIFY(heard[rampLength + 16] < 0.0F);
    QVERIFY(heard[2 * rampLength - 2] > -0.5F);
    QCOMPARE(Samples(heard.begin() + 2 * rampLength - 1, heard.end()),
             Samples(1536 - 2 * rampLength + 1, -0.5F));
}

void tst_MixBus::sidesHaveTheirOwnLevels()
{
    setStrip(0, {{MixBus::Source::File, 0}, 1.0, 0.25});
    m_bus->prepare(rate, false);
    const std::vector<Samples> heard = play({Samples(100, 0.5F)});
    QCOMPARE(heard[0], Samples(100, 0.5F));
    QCOMPARE(heard[1], Samples(100, 0.125F));
}

void tst_MixBus::masterHasTheLastWord()
{
    setStrip(0, file(0, true, false));
    setStrip(1, file(1, false, true));
    const std::vector<Samples> given = {Samples(1000, 0.5F), Samples(1000, -0.25F)};
    m_bus->publish(MixBus::Master{0.5, false});
    m_bus->prepare(rate, false);
    QCOMPARE(play(given)[0], Samples(1000, 0.25F));
    m_bus->publish(MixBus::Master{1.0, true});
    std::vector<Samples> heard = play(given);
    QVERIFY(heard[0].front() > 0.24F && heard[0].front() < 0.26F);
    for (const Samples& side : heard)
        QCOMPARE(side.back(), 0.125F);
    m_bus->publish(MixBus::Master{0.0, false});
    heard = play(given);
    QCOMPARE(heard[1].back(), 0.0F);
    m_bus->publish(MixBus::Master{});
    play(given);
    QCOMPARE(play(given), given);
}

void tst_MixBus::outputLevelsAreWhatComesOut()
{
    setStrip(0, file(0, true, false));
    setStrip(1, file(1, false, true, 2.0));
    m_bus->publish(MixBus::Master{0.5, false});
    m_bus->prepare(rate, false);
    QCOMPARE(m_bus->outputLevels(), MeterLevels{});
    play({Samples(100, 1.0F), Samples(100, -0.5F)});
    QCOMPARE(m_bus->outputLevels(), (MeterLevels{-60, -60}));
    m_bus->prepare(rate, false);
    QCOMPARE(m_bus->outputLevels(), MeterLevels{});
}

void tst_MixBus::driveHoldsTheOthersBack()
{
    setStrip(0, file(0));
    setStrip(4, file(0));
    m_bus->publish(4, valuesFrom(QStringLiteral("27=1")));
    m_bus->prepare(rate, false);
    play({Samples(1000, 0.0F)}); // the delay is in force
    constexpr std::size_t place = 200;
    Samples impulse(1000);
    impulse[place] = 0.01F;
    const Samples heard = play({impulse})[0];
    QVERIFY(heard[place + Drive::latency] > 0.015F); // both; one alone has 0.01 at the most
    QVERIFY(std::abs(heard[place]) < 1e-4F);
    m_bus->publish(4, defaults());
    m_bus->prepare(rate, false);
    QCOMPARE(play({impulse})[0][place], 0.02F);
}

void tst_MixBus::driveOfASilentStripHoldsNobodyBack()
{
    setStrip(0, file(0));
    setStrip(4, {{MixBus::Source::Input, 0}, 1.0});
    m_bus->publish(4, valuesFrom(QStringLiteral("27=1")));
    m_bus->prepare(rate, false);
    const Samples given = tone(2000);
    QCOMPARE(play({given})[0], given);
}

void tst_MixBus::prepareForgetsWhatWasHeard()
{
    setStrip(0, file(0));
    m_bus->publish(0, valuesFrom(QStringLiteral("3=60 27=1")));
    m_bus->prepare(rate, false);
    play({tone(1000)});
    m_bus->prepare(rate, false);
    QCOMPARE(play({Samples(500, 0.0F)})[0], Samples(500, 0.0F));
}

void tst_MixBus::changesDoNotClick_data()
{
    QTest::addColumn<int>("change");
    QTest::addColumn<int>("frames");
    int change = 0;
    for (const char* name : {"gain", "source", "side", "values", "master", "mono"}) {
        for (const int frames : {1, 16, 257})
            QTest::addRow("%s, blocks of %d", name, frames) << change << frames;
        ++change;
    }
}

// Beside the click of a sound that is cut off, however short the blocks are.
void tst_MixBus::changesDoNotClick()
{
    QFETCH(const int, change);
    QFETCH(const int, frames);
    constexpr std::size_t place = 9600 / 257 * 257;
    const Samples given = tone(place + 4800);
    setStrip(0, file(0));
    m_bus->publish(0, valuesFrom(QStringLiteral("25=-60")));
    m_bus->prepare(rate, false);
    const auto part = static_cast<std::size_t>(frames);
    Samples heard = play({Samples(given.begin(), given.begin() + place)}, part)[0];
    if (change == 3)
        m_bus->publish(0, defaults());
    else if (change > 3)
        m_bus->publish(MixBus::Master{change == 4 ? 0.0 : 1.0, change == 5});
    else
        setStrip(0, change == 0   ? file(0, true, true, 0.0)
                    : change == 1 ? MixBus::Strip{{}, 1.0, 1.0}
                                  : file(0, false, true));
    const Samples rest = play({Samples(given.begin() + place, given.end())}, part)[0];
    heard.insert(heard.end(), rest.begin(), rest.end());
    Block cut(given.begin(), given.end());
    std::fill(cut.begin() + place + 30, cut.end(), 0.0);
    const double splice = click(cut, place / 2, rate);
    const double peak = click(Block(heard.begin(), heard.end()), place / 2, rate);
    QVERIFY(splice > 0.01);
    QVERIFY2(peak < 0.001 * splice, qPrintable(QStringLiteral("%1 of %2").arg(peak).arg(splice)));
}

void tst_MixBus::everyChannelIsHeard_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {2, 8, 32})
        QTest::addRow("%d", count) << count;
}

// Each at its own level; those beyond the count are silent, whatever their strips say.
void tst_MixBus::everyChannelIsHeard()
{
    QFETCH(const int, count);
    for (std::size_t i = 0; i < maxChannelCount; ++i)
        m_strips[i] = {{MixBus::Source::File, 0}, 1.0 / double(i + 1), double(i)};
    setCount(count);
    m_bus->publish(count - 1, valuesFrom(QStringLiteral("26=200")));
    m_bus->prepare(rate, false);
    double left = 10.0 / count - 1.0 / count;
    double right = 9.0 * (count - 1);
    for (int i = 0; i < count; ++i) {
        left += 1.0 / (i + 1);
        right += i;
    }
    const std::vector<Samples> heard = play({Samples(1000, 0.001F)});
    COMPARE_NEAR(double(heard[0].back()), 0.001 * left, 1e-7);
    COMPARE_NEAR(double(heard[1].back()), 0.001 * right, 1e-5);
    for (int i = 0; i < maxChannelCount; ++i)
        QCOMPARE(m_bus->engine().levels(i).send, i < count ? -600 : MeterLevels::lowest);
    QCOMPARE(m_bus->engine().levels(count - 1).returned, -400);
}

void tst_MixBus::channelsComeAndGoWithoutClicks_data()
{
    QTest::addColumn<QList<int>>("counts"); // one after the other, each for 300 samples
    QTest::addColumn<int>("last");          // how many are heard in the end
    using Counts = QList<int>;
    QTest::newRow("come") << Counts{2, 32} << 32;
    QTest::newRow("go") << Counts{32, 2} << 2;
    QTest::newRow("go and come back on the way") << Counts{32, 2, 32} << 32;
    QTest::newRow("come and go on the way") << Counts{2, 32, 2} << 2;
    QTest::newRow("less and less") << Counts{32, 24, 16, 8, 2} << 2;
    QTest::newRow("there and back") << Counts{8, 4, 16, 2, 32, 8} << 8;
}

void tst_MixBus::channelsComeAndGoWithoutClicks()
{
    QFETCH(const QList<int>, counts);
    QFETCH(const int, last);
    constexpr float level = 0.01F;
    for (std::size_t i = 0; i < maxChannelCount; ++i)
        m_strips[i] = file(0);
    setCount(counts[0]);
    m_bus->prepare(rate, false);
    Samples heard = play({Samples(300, level)})[0];
    QCOMPARE(heard.back(), float(counts[0]) * level);
    for (const int count : counts.sliced(1)) {
        setCount(count);
        const Samples next = play({Samples(300, level)}, 100)[0];
        heard.insert(heard.end(), next.begin(), next.end());
    }
    const Samples rest = play({Samples(2 * rampLength, level)}, 64)[0];
    heard.insert(heard.end(), rest.begin(), rest.end());
    const float steepest = 3.0F * 32.0F * level / float(rampLength);
    for (std::size_t i = 1; i < heard.size(); ++i)
        QVERIFY2(std::abs(heard[i] - heard[i - 1]) <= steepest, QByteArray::number(int(i)));
    COMPARE_NEAR(double(heard.back()), double(float(last) * level), 1e-6);
}

// With its newest settings at once, and nothing of what it held before.
void tst_MixBus::channelThatComesBackBeginsAnew()
{
    setStrip(9, file(0));
    setCount(10);
    m_bus->publish(9, valuesFrom(QStringLiteral("3=200 27=1")));
    m_bus->prepare(rate, false);
    play({tone(4096)});
    QVERIFY(m_bus->engine().levels(9).send > MeterLevels::lowest);
    setCount(8);
    play({tone(4096)});
    QCOMPARE(m_bus->engine().levels(9).send, MeterLevels::lowest);
    QCOMPARE(play({tone(256)})[0], Samples(256, 0.0F));
    m_bus->publish(9, defaults());
    setCount(10);
    QCOMPARE(play({Samples(2 * rampLength, 0.0F)})[0], Samples(2 * rampLength, 0.0F));
    QCOMPARE(play({Samples(300, 0.5F)})[0], Samples(300, 0.5F));
}

void tst_MixBus::stripThatRestedIsInStep_data()
{
    QTest::addColumn<QString>("settings"); // of another strip
    QTest::newRow("clean") << QString();
    QTest::newRow("held back") << QStringLiteral("27=1");
}

// A strip whose input was missing goes on as one whose input was silent.
void tst_MixBus::stripThatRestedIsInStep()
{
    QFETCH(const QString, settings);
    const auto heard = [&](std::size_t inputs) {
        m_bus = std::make_unique<MixBus>();
        m_bus->publish(4, valuesFrom(settings));
        setStrip(4, {{MixBus::Source::Input, 0}, 0.0, 0.0});
        setStrip(0, {{MixBus::Source::Input, 3}, 1.0, 0.5});
        m_bus->prepare(rate, true);
        play(std::vector<Samples>(inputs, Samples(2000, 0.0F)), 64);
        return play(std::vector<Samples>(4, tone(2000)), 64);
    };
    QCOMPARE(heard(1), heard(4));
}

void tst_MixBus::trapsAreSet()
{
    const RealtimeTrap trap;
    std::mutex mutex;
    const std::lock_guard guard(mutex);
    const auto block = std::make_unique<Block>(10);
    const std::pair counted(trap.allocations() > 0, trap.locks());
    QCOMPARE(counted, std::pair(true, 1));
}

// While everything that a strip has is moved.
void tst_MixBus::neitherAllocatesNorLocks()
{
    m_bus->prepare(rate, false);
    m_bus->tap(3).listen();
    std::minstd_rand generator(5);
    Samples left = tone(4096);
    Samples right = tone(4096);
    const std::array<const float*, 2> inputs = {left.data(), right.data()};
    const std::array<float*, 2> outputs = {left.data(), right.data()};
    for (int round = 0; round < 100; ++round) {
        for (int channel = 0; channel < maxChannelCount; ++channel) {
            Values values{};
            std::transform(parameterTable.begin(), parameterTable.end(), values.begin(),
                           [&](const Parameter& p) {
                               return std::uniform_int_distribution(p.minimum,
                                                                    p.maximum)(generator);
                           });
            m_bus->publish(channel, values);
        }
        m_bus->publish(MixBus::Master{round / 50.0, round % 7 == 0});
        if (round % 4 == 0)
            setCount(2 + 2 * (7 * round % 16));
        m_bus->publish(round % maxChannelCount,
                       Audition{round % 2 == 0, round % 3 == 0, round % 7 - 1, round % 5 == 0});
        setStrip(static_cast<std::size_t>(round % maxChannelCount),
                 file(round % 3, round % 5 != 0, round % 2 != 0, round / 100.0));
        for (const std::size_t frames : {16U, 256U, 1000U}) {
            const RealtimeTrap trap;
            m_bus->process(inputs, outputs, frames);
            QCOMPARE(std::pair(trap.allocations(), trap.locks()), std::pair(0, 0));
        }
    }
}

QTEST_APPLESS_MAIN(tst_MixBus)
#include "tst_MixBus.moc"
