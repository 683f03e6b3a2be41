// SPDX-License-Identifier: GPL-3.0-or-later
// What the strips' settings sound like, through the bus that they are published to.
#include "host/model/MixerModel.h"
#include "host/model/SettingsPublisher.h"
#include "hosting/HostMemory.h"
#include "tests/support/TestObject.h"

#include <QApplication>

#include <memory>
#include <vector>

class tst_SettingsPublisher : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void testSignalAndOffAreSilent();
    void pairPlaysItsSides();
    void monoStripsAreHeardOnBothSides();
    void equalizesAsTheStripIsSet();
    void equalizerOffLetsEveryBitPast();
    void pairIsComparedAsOne();
    void faderScales();
    void balanceTurnsDownOneSide();
    void masterHasTheLastWord();
    void muteAndSoloSilence();
    void inputsGoByNumber();
    void everyChannelIsPublished_data();
    void everyChannelIsPublished();
    void writesArriveTogetherWithTheEventLoop();
    void publishesAtOnceWhatChanged();

private:
    using Block = std::vector<float>;

    struct Fixture
    {
        HostMemory memory;
        MixerModel mixerModel{memory};
        MixBus bus;
        SettingsPublisher publisher{mixerModel, bus};
    };

    void set(int channel, StripParameter parameter, int value)
    {
        m_f->memory.setStrip(channel, parameter, value);
    }
    std::vector<Block> play(std::vector<float> levels, bool live = false);
    std::vector<Block> process(const std::vector<float>& levels);
    static Block steady(float level) { return Block(frames, level); }

    static constexpr std::size_t frames = 600;
    std::unique_ptr<Fixture> m_f;
};

void tst_SettingsPublisher::init()
{
    TestObject::init();
    m_f = std::make_unique<Fixture>();
    set(0, StripParameter::Source, SourceFile);
}

// What is heard of steady inputs, with the settings of the moment from the first sample on.
std::vector<tst_SettingsPublisher::Block> tst_SettingsPublisher::play(std::vector<float> levels,
                                                                      bool live)
{
    m_f->publisher.publish();
    m_f->bus.prepare(48000, live);
    return process(levels);
}

std::vector<tst_SettingsPublisher::Block>
tst_SettingsPublisher::process(const std::vector<float>& levels)
{
    std::vector<Block> given;
    std::vector<const float*> inputs;
    for (const float level : levels)
        given.push_back(steady(level));
    for (const Block& block : given)
        inputs.push_back(block.data());
    std::vector<Block> heard(2, steady(99.0F));
    const std::array<float*, 2> outputs = {heard[0].data(), heard[1].data()};
    m_f->bus.process(inputs, outputs, frames);
    return heard;
}

void tst_SettingsPublisher::testSignalAndOffAreSilent()
{
    for (const int source : {int(SourceTestSignal), int(SourceOff)}) {
        set(0, StripParameter::Source, source);
        for (const bool live : {false, true})
            QCOMPARE(play({0.5F, 0.25F}, live), std::vector<Block>(2, steady(0.0F)));
    }
}

void tst_SettingsPublisher::pairPlaysItsSides()
{
    QCOMPARE(play({0.5F, 0.25F}), (std::vector<Block>{steady(0.5F), steady(0.25F)}));
}

void tst_SettingsPublisher::monoStripsAreHeardOnBothSides()
{
    set(0, StripParameter::Stereo, 0);
    QCOMPARE(play({0.5F, 0.25F}), std::vector<Block>(2, steady(0.5F)));
    set(1, StripParameter::Source, SourceFile);
    QCOMPARE(play({0.5F, 0.25F}), std::vector<Block>(2, steady(0.75F)));
}

// The second channel of a pair is set as the first one.
void tst_SettingsPublisher::equalizesAsTheStripIsSet()
{
    ChannelValues values = m_f->memory.values(0);
    values[25] = -200;
    m_f->memory.write(0, values);
    values[25] = 100;
    m_f->memory.write(1, values);
    QCOMPARE(play({0.5F, 0.25F}), (std::vector<Block>{steady(0.05F), steady(0.025F)}));
}

void tst_SettingsPublisher::equalizerOffLetsEveryBitPast()
{
    ChannelValues values = m_f->memory.values(0);
    for (const std::size_t level : {2, 6, 10, 14, 18, 22, 24, 25})
        values[level] = 100;
    values[26] = 1;
    m_f->memory.write(0, values);
    set(0, StripParameter::EqualizerOn, 0);
    QCOMPARE(play({0.3F, 0.7F}), (std::vector<Block>{steady(0.3F), steady(0.7F)}));
}

// Past the equalizer, which is 6 dB louder, and only as long as somebody watches.
void tst_SettingsPublisher::pairIsComparedAsOne()
{
    ChannelValues values = m_f->memory.values(0);
    values[25] = 60;
    m_f->memory.write(0, values);
    AuditionModel& auditions = m_f->mixerModel.auditions();
    const auto isPast = [this](float left, float right) {
        m_f->publisher.publish();
        process({0.25F, 0.125F}); // the fade
        const std::vector<Block> heard = process({0.25F, 0.125F});
        return heard == std::vector<Block>{steady(left), steady(right)};
    };
    play({0.25F, 0.125F});
    auditions.setBypassed(0, true);
    QVERIFY(!isPast(0.25F, 0.125F));
    auditions.watch(0);
    auditions.setBypassed(0, true);
    QVERIFY(isPast(0.25F, 0.125F));
    auditions.setBand(0, 2); // which changes nothing
    QVERIFY(isPast(0.0F, 0.0F));
    auditions.setBand(0, noBand);
    set(0, StripParameter::Stereo, 0);
    set(1, StripParameter::Source, SourceFile);
    QVERIFY(isPast(0.375F, 0.375F)); // the second one has no equalizer of that kind
    auditions.unwatch(0);
    QVERIFY(!isPast(0.375F, 0.375F));
    QCOMPARE(auditions.of(0), Audition());
}

void tst_SettingsPublisher::faderScales()
{
    set(0, StripParameter::Level, 100); // 20 dB below 0 dB
    QCOMPARE(stripLevelTenths(100), -300);
    QCOMPARE(play({0.5F, 0.5F})[1], steady(0.5F * static_cast<float>(stripGain(100))));
    set(0, StripParameter::Level, 0);
    QCOMPARE(play({0.5F, 0.5F})[0], steady(0.0F));
}

// Of a pair as of a mono strip.
void tst_SettingsPublisher::balanceTurnsDownOneSide()
{
    set(0, StripParameter::Balance, 50);
    QCOMPARE(play({0.5F, 0.5F}), (std::vector<Block>{steady(0.25F), steady(0.5F)}));
    set(0, StripParameter::Balance, -100);
    QCOMPARE(play({0.5F, 0.5F}), (std::vector<Block>{steady(0.5F), steady(0.0F)}));
    set(0, StripParameter::Stereo, 0);
    QCOMPARE(play({0.5F, 0.25F}), (std::vector<Block>{steady(0.5F), steady(0.0F)}));
}

void tst_SettingsPublisher::masterHasTheLastWord()
{
    HostMemory& memory = m_f->memory;
    memory.setMaster(MasterParameter::Level, 100);
    QCOMPARE(play({1.0F, 1.0F})[0], steady(static_cast<float>(stripGain(100))));
    memory.setMaster(MasterParameter::Level, unityLevel);
    memory.setMaster(MasterParameter::Dim, 1);
    QCOMPARE(play({0.5F, 0.5F})[1], steady(0.05F));
    memory.setMaster(MasterParameter::Dim, 0);
    memory.setMaster(MasterParameter::Mono, 1);
    QCOMPARE(play({0.5F, 0.25F}), (std::vector<Block>{steady(0.375F), steady(0.375F)}));
    memory.setMaster(MasterParameter::Mute, 1);
    QCOMPARE(play({0.5F, 0.25F}), (std::vector<Block>{steady(0.0F), steady(0.0F)}));
}

void tst_SettingsPublisher::muteAndSoloSilence()
{
    set(0, StripParameter::Mute, 1);
    QCOMPARE(play({0.5F, 0.5F})[0], steady(0.0F));
    set(0, StripParameter::Mute, 0);
    set(2, StripParameter::Solo, 1);
    QCOMPARE(play({0.5F, 0.5F})[0], steady(0.0F));
    set(0, StripParameter::Solo, 1);
    QCOMPARE(play({0.5F, 0.5F})[0], steady(0.5F));
}

void tst_SettingsPublisher::inputsGoByNumber()
{
    const std::vector<float> inputs = {0.1F, 0.2F, 0.3F, 0.4F, 0.5F, 0.6F, 0.7F, 0.8F};
    for (int input = 0; input < 8; input += 7) {
        set(0, StripParameter::Stereo, 0);
        set(0, StripParameter::Source, SourceInput1 + input);
        QCOMPARE(play(inputs, true)[0], steady(inputs[static_cast<std::size_t>(input)]));
    }
    set(0, StripParameter::Stereo, 1);
    set(0, StripParameter::Source, SourceInput1 + 1);
    QCOMPARE(play(inputs, true), (std::vector<Block>{steady(0.2F), steady(0.3F)}));
    QCOMPARE(play(inputs, false)[0], steady(0.0F));
}

void tst_SettingsPublisher::everyChannelIsPublished_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {2, 8, 32})
        QTest::addRow("%d", count) << count;
}

void tst_SettingsPublisher::everyChannelIsPublished()
{
    QFETCH(const int, count);
    for (int channel = 0; channel < maxChannelCount; channel += 2) {
        set(channel, StripParameter::Source, SourceInput1 + channel);
        set(channel, StripParameter::Solo, channel >= count ? 1 : 0); // of one that is gone
    }
    m_f->memory.setChannelCount(count);
    float sum = 0.0F;
    std::vector<float> inputs;
    for (int input = 0; input < maxChannelCount; ++input) {
        inputs.push_back(0.001F * float(input + 1));
        sum += input % 2 == 0 && input < count ? inputs.back() : 0.0F;
    }
    QCOMPARE(play(inputs, true)[0].back(), sum);
    m_f->memory.setChannelCount(2);
    QCoreApplication::processEvents();
    process(inputs); // the others are faded out
    QCOMPARE(process(inputs)[0], steady(inputs[0]));
}

void tst_SettingsPublisher::writesArriveTogetherWithTheEventLoop()
{
    play({0.5F, 0.5F});
    set(0, StripParameter::Mute, 1);
    QCOMPARE(process({0.5F, 0.5F})[0], steady(0.5F));
    QCoreApplication::processEvents();
    QCOMPARE(process({0.5F, 0.5F})[0].back(), 0.0F);
    set(0, StripParameter::Mute, 0);
    QCoreApplication::processEvents();
    QCOMPARE(process({0.5F, 0.5F})[0].back(), 0.5F);
}

void tst_SettingsPublisher::publishesAtOnceWhatChanged()
{
    play({0.5F, 0.5F});
    set(0, StripParameter::Mute, 1);
    m_f->publisher.publish();
    QCOMPARE(process({0.5F, 0.5F})[0].back(), 0.0F);
}

ZOLTA_TEST_MAIN(tst_SettingsPublisher)
#include "tst_SettingsPublisher.moc"
