// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/engine/EngineTesting.h"
#include "tests/support/TestObject.h"

#include <cstring>
#include <limits>

using namespace EngineTesting;

/// Two channels side by side, and stretches of silence, give the bits of one channel by itself
/// whose samples come one at a time.
class tst_ChannelPair : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void runsAsTwoChannels_data();
    void runsAsTwoChannels();
    void everySettingRunsAsTwoChannels();
    void changesRunAsInTwoChannels();
    void oddSamplesStayInTheirChannel();
    void silenceIsComputed_data();
    void silenceIsComputed();
    void driveWakesUp_data();
    void driveWakesUp();

private:
    using Stereo = std::array<Block, 2>;
    using Processors = std::array<ChannelProcessor, 2>;
    static constexpr std::array<std::size_t, 7> lengths = {1, 2, 7, 64, 129, 256, 1000};

    static bool isSame(const Block& a, const Block& b);
    static Stereo signal(std::size_t count);
    static void runPair(Processors* pair, Stereo* blocks, std::size_t length);
    static void runEach(Processors* each, Stereo* blocks);
    static void setBoth(Processors* processors, const Values& left, const Values& right);
    static Values randomValues(std::minstd_rand* generator);
};

// Zeros differ by their signs.
bool tst_ChannelPair::isSame(const Block& a, const Block& b)
{
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0;
}

tst_ChannelPair::Stereo tst_ChannelPair::signal(std::size_t count)
{
    const Block both = noise(2 * count);
    const auto middle = both.begin() + static_cast<std::ptrdiff_t>(count);
    return {Block(both.begin(), middle), Block(middle, both.end())};
}

void tst_ChannelPair::runPair(Processors* pair, Stereo* blocks, std::size_t length)
{
    auto& [left, right] = *blocks;
    for (std::size_t done = 0; done < left.size(); done += length) {
        const std::size_t count = std::min(length, left.size() - done);
        ChannelProcessor::processPair(&(*pair)[0], &(*pair)[1],
                                      std::span(left).subspan(done, count),
                                      std::span(right).subspan(done, count));
    }
}

void tst_ChannelPair::runEach(Processors* each, Stereo* blocks)
{
    for (std::size_t c = 0; c < each->size(); ++c) {
        for (double& sample : (*blocks)[c])
            (*each)[c].process({&sample, 1});
    }
}

void tst_ChannelPair::setBoth(Processors* processors, const Values& left, const Values& right)
{
    (*processors)[0].setValues(left);
    (*processors)[1].setValues(right);
}

Values tst_ChannelPair::randomValues(std::minstd_rand* generator)
{
    Values values{};
    std::transform(parameterTable.begin(), parameterTable.end(), values.begin(),
                   [generator](const Parameter& p) {
                       return std::uniform_int_distribution(p.minimum, p.maximum)(*generator);
                   });
    return values;
}

void tst_ChannelPair::runsAsTwoChannels_data()
{
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    const QString mixed = QStringLiteral("3=60 7=-60 11=30 15=-30 19=100 23=-100");
    const QString boosts = QStringLiteral("3=60 7=60 11=60 15=60 19=60 23=60");
    const QString cuts = QStringLiteral("3=-60 7=-60 11=-60 15=-60 19=-60 23=-60");
    const QString drive = QStringLiteral(" 27=1 25=80");
    QTest::newRow("mixed") << mixed << mixed;
    QTest::newRow("boosts") << boosts << boosts;
    QTest::newRow("cuts") << cuts << cuts;
    QTest::newRow("a boost beside a cut") << boosts << cuts;
    QTest::newRow("different amounts") << boosts << QStringLiteral("7=1 11=2 15=3 19=4 23=-90");
    QTest::newRow("pass filters") << QStringLiteral("1=0 7=30 21=1") << QStringLiteral("1=1 7=9");
    QTest::newRow("a band left out") << boosts << QStringLiteral("3=60 7=60 12=0 15=60 19=60");
    QTest::newRow("two bands") << QStringLiteral("7=60 11=60") << QStringLiteral("7=60 11=60");
    QTest::newRow("flat beside all") << QString() << mixed;
    QTest::newRow("drive") << mixed + drive << mixed + drive;
    QTest::newRow("drive on one side") << boosts + drive << boosts;
    QTest::newRow("levels") << QStringLiteral("25=-60 26=30") << QStringLiteral("26=-200");
}

void tst_ChannelPair::runsAsTwoChannels()
{
    QFETCH(const QString, left);
    QFETCH(const QString, right);
    Processors each;
    setBoth(&each, valuesFrom(left), valuesFrom(right));
    Stereo expected = signal(2000);
    runEach(&each, &expected);
    for (const std::size_t length : lengths) {
        Processors pair;
        setBoth(&pair, valuesFrom(left), valuesFrom(right));
        Stereo blocks = signal(2000);
        runPair(&pair, &blocks, length);
        QVERIFY(isSame(blocks[0], expected[0]));
        QVERIFY(isSame(blocks[1], expected[1]));
    }
}

// Each parameter at its ends, with the others at work.
void tst_ChannelPair::everySettingRunsAsTwoChannels()
{
    for (std::size_t i = 0; i < parameterTable.size(); ++i) {
        for (const int value : {parameterTable[i].minimum, parameterTable[i].maximum}) {
            Values values = valuesFrom(QStringLiteral("3=60 7=-60 11=30 15=-30 19=99 23=-99"));
            values[i] = value;
            Processors pair;
            Processors each;
            setBoth(&pair, values, values);
            setBoth(&each, values, values);
            Stereo blocks = signal(300);
            Stereo expected = blocks;
            runPair(&pair, &blocks, 300);
            runEach(&each, &expected);
            QVERIFY2(isSame(blocks[0], expected[0]) && isSame(blocks[1], expected[1]),
                     qPrintable(QString::number(i + 1)));
        }
    }
}

// Random ones, some of which both channels get, in the middle of the changes before.
void tst_ChannelPair::changesRunAsInTwoChannels()
{
    std::minstd_rand generator(11);
    Processors pair;
    Processors each;
    for (int round = 0; round < 60; ++round) {
        const Values left = randomValues(&generator);
        const Values right = round % 3 == 0 ? randomValues(&generator) : left;
        setBoth(&pair, left, right);
        setBoth(&each, left, right);
        const std::size_t count = round % 4 == 0 ? 2500 : 137;
        Stereo blocks = signal(count);
        Stereo expected = blocks;
        runPair(&pair, &blocks, lengths[static_cast<std::size_t>(round) % lengths.size()]);
        runEach(&each, &expected);
        QVERIFY(isSame(blocks[0], expected[0]));
        QVERIFY(isSame(blocks[1], expected[1]));
    }
}

void tst_ChannelPair::oddSamplesStayInTheirChannel()
{
    const Values values = valuesFrom(QStringLiteral("3=60 7=60 11=200 25=200 27=1"));
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinite = std::numeric_limits<double>::infinity();
    for (const double sample : {none, infinite, -infinite, 1e300, 1e-310, -0.0}) {
        Processors pair;
        Processors each;
        setBoth(&pair, values, values);
        setBoth(&each, values, values);
        Stereo blocks = signal(1000);
        for (const std::size_t i : {0, 499, 500, 999})
            blocks[i % 2][i] = sample;
        Stereo expected = blocks;
        runPair(&pair, &blocks, 100);
        runEach(&each, &expected);
        QVERIFY(isSame(blocks[0], expected[0]));
        QVERIFY(isSame(blocks[1], expected[1]));
    }
}

void tst_ChannelPair::silenceIsComputed_data()
{
    QTest::addColumn<QString>("settings");
    QTest::addColumn<double>("sample");
    const QString bands = QStringLiteral("5=0 3=60 7=60 11=-60 15=30 19=-30 23=60 2=1000 6=1000 ");
    QTest::newRow("zeros") << bands << 0.0;
    QTest::newRow("zeros, with levels") << bands + QStringLiteral("25=60 26=-60") << 0.0;
    QTest::newRow("negative zeros") << bands << -0.0;
    QTest::newRow("lowest numbers") << bands << 1e-310;
    QTest::newRow("zeros through two bands") << QStringLiteral("7=60 11=-60 6=1000") << 0.0;
    QTest::newRow("a constant") << bands << 0.25;
    QTest::newRow("a constant at rest") << QString() << 0.25;
}

// A tail that ends in exact silence, and a signal after it.
void tst_ChannelPair::silenceIsComputed()
{
    QFETCH(const QString, settings);
    QFETCH(const double, sample);
    Processors pair;
    Processors each;
    for (Processors* processors : {&pair, &each}) {
        for (ChannelProcessor& processor : *processors)
            processor.setSampleRate(40500.0);
        setBoth(processors, valuesFrom(settings), valuesFrom(settings));
    }
    Stereo blocks = signal(1000);
    for (Block& block : blocks) {
        block.insert(block.begin() + 500, 60000, sample);
        block[30000] = 1.0;
    }
    Stereo expected = blocks;
    runPair(&pair, &blocks, 250);
    runEach(&each, &expected);
    QVERIFY(isSame(blocks[0], expected[0]));
    QVERIFY(isSame(blocks[1], expected[1]));
}

void tst_ChannelPair::driveWakesUp_data()
{
    QTest::addColumn<double>("sample");
    QTest::newRow("zeros") << 0.0;
    QTest::newRow("a constant") << 0.3;
}

// The drive's parts of 128 samples are all steady on one side, and on the other one never two in a
// row: what is taken as heard there is computed here.
void tst_ChannelPair::driveWakesUp()
{
    QFETCH(const double, sample);
    Block in = noise(640);
    in.insert(in.begin() + 128, 448, sample);
    Block out = in;
    Block expected = in;
    Drive steady;
    Drive computed;
    for (Drive* drive : {&steady, &computed}) {
        drive->setSampleRate(48000.0);
        drive->set(true);
        drive->reset();
    }
    steady.process(out);
    computed.process(std::span(expected).first(64));
    computed.process(std::span(expected).subspan(64));
    QVERIFY(isSame(out, expected));
}

QTEST_APPLESS_MAIN(tst_ChannelPair)

#include "tst_ChannelPair.moc"
