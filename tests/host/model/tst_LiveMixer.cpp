// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ChannelProcessor.h"
#include "host/model/LiveMixer.h"
#include "host/model/MixerModel.h"
#include "hosting/HostMemory.h"
#include "tests/engine/EngineTesting.h"
#include "tests/host/audio/SoundFiles.h"
#include "tests/support/TestObject.h"

#include <QApplication>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

class tst_LiveMixer : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void nothingIsHeardThatNoStripPlays();
    void pairPlaysItsSides();
    void equalizesAsTheStripIsSet();
    void equalizerOffLetsEveryBitPast();
    void faderScales();
    void muteAndSoloSilence();
    void strippedPairsAreHeardOnBothSides();
    void stripsAddUp();
    void monoFileIsHeardOnBothSides();
    void oneOutputHearsTheLeft();
    void furtherOutputsAreSilent();
    void inputsGoByNumber();
    void inputsAreSilentWhileAFilePlays();
    void blocksMakeNoDifference();
    void driveHoldsTheOthersBack();
    void changesDoNotClick_data();
    void changesDoNotClick();

private:
    using Block = std::vector<float>;

    void set(int channel, StripParameter parameter, int value)
    {
        m_memory->setStrip(channel, parameter, value);
    }
    std::vector<Block> play(const std::vector<Block>& given, bool live = false, int part = 0,
                            std::size_t outputs = 2);
    static Block noise(std::size_t frames);

    std::unique_ptr<HostMemory> m_memory;
    std::unique_ptr<MixerModel> m_mixerModel;
    std::unique_ptr<LiveMixer> m_mixer;
};

void tst_LiveMixer::init()
{
    TestObject::init();
    m_mixer.reset();
    m_mixerModel.reset();
    m_memory = std::make_unique<HostMemory>();
    m_mixerModel = std::make_unique<MixerModel>(*m_memory);
    m_mixer = std::make_unique<LiveMixer>();
    set(0, StripParameter::Source, SourceFile);
}

// Begins anew with the settings of the moment; in parts of so many frames, or in one.
std::vector<tst_LiveMixer::Block> tst_LiveMixer::play(const std::vector<Block>& given, bool live,
                                                      int part, std::size_t outputs)
{
    m_mixer->follow(*m_mixerModel);
    m_mixer->prepare(48000, live);
    const int frames = static_cast<int>(given[0].size());
    part = part > 0 ? part : frames;
    std::vector<Block> heard(outputs, Block(given[0].size(), 99.0F));
    for (int done = 0; done < frames; done += part) {
        std::vector<const float*> in;
        std::vector<float*> out;
        for (const Block& each : given)
            in.push_back(each.data() + done);
        for (Block& each : heard)
            out.push_back(each.data() + done);
        m_mixer->process(in.data(), static_cast<int>(in.size()), out.data(),
                         static_cast<int>(out.size()), std::min(part, frames - done));
    }
    return heard;
}

tst_LiveMixer::Block tst_LiveMixer::noise(std::size_t frames)
{
    const std::vector<double> samples = SoundFiles::noise(frames);
    return {samples.begin(), samples.end()};
}

void tst_LiveMixer::nothingIsHeardThatNoStripPlays()
{
    set(0, StripParameter::Source, SourceOff);
    const std::vector<Block> heard = play({noise(1000), noise(1000)});
    QCOMPARE(heard[0], Block(1000, 0.0F));
    QCOMPARE(heard[1], Block(1000, 0.0F));
}

void tst_LiveMixer::pairPlaysItsSides()
{
    const Block left = noise(1000);
    const Block right(left.rbegin(), left.rend());
    const std::vector<Block> heard = play({left, right});
    QCOMPARE(heard[0], left);
    QCOMPARE(heard[1], right);
}

void tst_LiveMixer::equalizesAsTheStripIsSet()
{
    HostMemory::Values values = m_memory->values(0);
    values[10] = 80;
    values[24] = -30;
    m_memory->write(0, values);
    const Block given = noise(1000);
    const auto processor = std::make_unique<ChannelProcessor>();
    processor->setValues(values);
    std::vector<double> expected(given.begin(), given.end());
    processor->process(expected);
    const std::vector<Block> heard = play({given, given});
    QCOMPARE(heard[0], Block(expected.begin(), expected.end()));
    QCOMPARE(heard[1], heard[0]);
}

void tst_LiveMixer::equalizerOffLetsEveryBitPast()
{
    HostMemory::Values values = m_memory->values(0);
    for (const std::size_t level : {2, 6, 10, 14, 18, 22, 24, 25})
        values[level] = 100;
    values[26] = 1;
    m_memory->write(0, values);
    set(0, StripParameter::EqualizerOn, 0);
    const Block given = noise(1000);
    QCOMPARE(play({given, given})[0], given);
}

void tst_LiveMixer::faderScales()
{
    set(0, StripParameter::Level, 240); // 60 steps of 0.1 dB below 0 dB
    const std::vector<Block> heard = play({Block(1000, 0.5F), Block(1000, -0.5F)});
    const double expected = 0.5 * std::pow(10.0, -6.0 / 20.0);
    QVERIFY(std::abs(heard[0][999] - expected) < 1e-7);
    QVERIFY(std::abs(heard[1][0] + expected) < 1e-7);
    set(0, StripParameter::Level, 0);
    QCOMPARE(play({Block(100, 0.5F), Block(100, 0.5F)})[0], Block(100, 0.0F));
}

void tst_LiveMixer::muteAndSoloSilence()
{
    const Block silence(100, 0.0F);
    const Block sound(100, 0.5F);
    set(0, StripParameter::Mute, 1);
    QCOMPARE(play({sound, sound})[0], silence);
    set(0, StripParameter::Mute, 0);
    set(2, StripParameter::Solo, 1);
    QCOMPARE(play({sound, sound})[0], silence);
    set(0, StripParameter::Solo, 1);
    QCOMPARE(play({sound, sound})[0], sound);
}

void tst_LiveMixer::strippedPairsAreHeardOnBothSides()
{
    set(0, StripParameter::Stereo, 0);
    const std::vector<Block> heard = play({Block(100, 0.5F), Block(100, 0.25F)});
    QCOMPARE(heard[0], Block(100, 0.5F));
    QCOMPARE(heard[1], Block(100, 0.5F));
}

void tst_LiveMixer::stripsAddUp()
{
    set(4, StripParameter::Source, SourceFile);
    const std::vector<Block> heard = play({Block(100, 0.25F), Block(100, -0.125F)});
    QCOMPARE(heard[0], Block(100, 0.5F));
    QCOMPARE(heard[1], Block(100, -0.25F));
}

void tst_LiveMixer::monoFileIsHeardOnBothSides()
{
    const Block given = noise(500);
    QCOMPARE(play({given}), std::vector<Block>({given, given}));
}

void tst_LiveMixer::oneOutputHearsTheLeft()
{
    const Block left = noise(500);
    QCOMPARE(play({left, Block(500, 0.5F)}, false, 0, 1), std::vector<Block>({left}));
}

void tst_LiveMixer::furtherOutputsAreSilent()
{
    const Block given = noise(500);
    QCOMPARE(play({given, given}, false, 0, 3)[2], Block(500, 0.0F));
}

void tst_LiveMixer::inputsGoByNumber()
{
    set(0, StripParameter::Source, SourceInput1 + 1);
    const std::vector<Block> heard =
        play({Block(100, 0.1F), Block(100, 0.2F), Block(100, 0.3F)}, true);
    QCOMPARE(heard[0], Block(100, 0.2F));
    QCOMPARE(heard[1], Block(100, 0.3F));
    const std::vector<Block> inputs = {Block(100, 0.1F), Block(100, 0.2F), Block(100, 0.3F),
                                       Block(100, 0.4F), Block(100, 0.5F), Block(100, 0.6F),
                                       Block(100, 0.7F), Block(100, 0.8F)};
    set(0, StripParameter::Source, SourceInput1 + 6);
    QCOMPARE(play(inputs, true), std::vector<Block>({inputs[6], inputs[7]}));
    set(0, StripParameter::Source, SourceInput1 + 5);
    QCOMPARE(play({Block(100, 0.1F), Block(100, 0.2F)}, true)[0], Block(100, 0.0F));
    set(0, StripParameter::Source, SourceFile);
    QCOMPARE(play({Block(100, 0.1F), Block(100, 0.2F)}, true)[0], Block(100, 0.0F));
}

void tst_LiveMixer::inputsAreSilentWhileAFilePlays()
{
    set(0, StripParameter::Source, SourceInput1);
    QCOMPARE(play({Block(100, 0.5F), Block(100, 0.5F)})[0], Block(100, 0.0F));
}

void tst_LiveMixer::blocksMakeNoDifference()
{
    HostMemory::Values values = m_memory->values(0);
    values[10] = 80;
    m_memory->write(0, values);
    const Block given = noise(3000);
    const std::vector<Block> whole = play({given, given});
    for (const int part : {1, 64, 255, 1024})
        QCOMPARE(play({given, given}, false, part), whole);
}

void tst_LiveMixer::driveHoldsTheOthersBack()
{
    for (const int channel : {0, 4}) {
        set(channel, StripParameter::Stereo, 0);
        set(channel, StripParameter::Source, SourceFile);
    }
    HostMemory::Values values = m_memory->values(4);
    values[26] = 1;
    m_memory->write(4, values);
    constexpr std::size_t place = 2000;
    Block impulse(3000);
    impulse[place] = 0.01F;
    const Block heard = play({impulse, impulse})[0];
    QVERIFY(heard[place + Drive::latency] > 0.015F); // both; one alone has 0.01 at the most
    QVERIFY(std::abs(heard[place]) < 1e-4F);
    values[26] = 0;
    m_memory->write(4, values);
    QCOMPARE(play({impulse, impulse})[0][place], 0.02F);
}

void tst_LiveMixer::changesDoNotClick_data()
{
    QTest::addColumn<int>("parameter");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("frames");
    for (const int frames : {1, 16, 257}) {
        const auto row = [frames](const char* name, StripParameter parameter, int value) {
            QTest::addRow("%s, blocks of %d", name, frames) << int(parameter) << value << frames;
        };
        row("fader", StripParameter::Level, 0);
        row("mute", StripParameter::Mute, 1);
        row("source", StripParameter::Source, SourceOff);
        row("mono", StripParameter::Stereo, 0);
        row("equalizer", StripParameter::EqualizerOn, 0);
    }
}

// Beside the click of a sound that is cut off, however short the blocks are.
void tst_LiveMixer::changesDoNotClick()
{
    QFETCH(const int, parameter);
    QFETCH(const int, value);
    QFETCH(const int, frames);
    constexpr int rate = 48000;
    constexpr int change = 9600 / 257 * 257;
    HostMemory::Values values = m_memory->values(0);
    values[24] = -60;
    m_memory->write(0, values);
    m_mixer->follow(*m_mixerModel);
    m_mixer->prepare(rate, false);
    EngineTesting::Block heard;
    const EngineTesting::Block tone = EngineTesting::sine(150.0, rate, change + 4800, 0.5);
    for (int done = 0; done + frames <= int(tone.size()); done += frames) {
        if (done >= change && done < change + frames) {
            set(0, static_cast<StripParameter>(parameter), value);
            QTest::qWait(20);
        }
        Block left(tone.begin() + done, tone.begin() + done + frames);
        Block right = left;
        float* const channels[] = {left.data(), right.data()};
        m_mixer->process(channels, 2, channels, 2, frames);
        heard.insert(heard.end(), left.begin(), left.end());
    }
    EngineTesting::Block cut = tone;
    std::fill(cut.begin() + change + 30, cut.end(), 0.0);
    const double splice = EngineTesting::click(cut, change / 2, rate);
    const double peak = EngineTesting::click(heard, change / 2, rate);
    QVERIFY(splice > 0.01);
    QVERIFY2(peak < 0.001 * splice, qPrintable(QStringLiteral("%1 of %2").arg(peak).arg(splice)));
}

ZOLTA_TEST_MAIN(tst_LiveMixer)
#include "tst_LiveMixer.moc"
