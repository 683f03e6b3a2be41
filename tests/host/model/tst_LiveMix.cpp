// SPDX-License-Identifier: GPL-3.0-or-later
// The mixer as it runs live: one thread writes to the memory while another mixes.
#include "host/model/MixerModel.h"
#include "host/model/SettingsPublisher.h"
#include "hosting/HostMemory.h"
#include "tests/support/TestObject.h"

#include <atomic>
#include <thread>

class tst_LiveMix : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void lastSettingsAreMixedExactly();

private:
    static constexpr int rate = 48000;
    static constexpr std::size_t frames = 64;
    using Block = std::vector<float>;

    void moveEverything(int step);
    void settle();
    std::array<Block, 2> mixUntil(const std::atomic<bool>& written);

    HostMemory m_memory;
    MixerModel m_mixerModel{m_memory};
    MixBus m_bus;
    SettingsPublisher m_publisher{m_mixerModel, m_bus};
};

void tst_LiveMix::moveEverything(int step)
{
    for (int channel = 0; channel < defaultChannelCount; ++channel) {
        const int n = step + channel;
        m_memory.setStrip(channel, StripParameter::Source, n % 3 == 0 ? SourceOff : SourceFile);
        m_memory.setStrip(channel, StripParameter::Stereo, n / 4 % 2);
        m_memory.setStrip(channel, StripParameter::EqualizerOn, n / 2 % 2);
        m_memory.setStrip(channel, StripParameter::Mute, n % 5 == 0 ? 1 : 0);
        m_memory.setStrip(channel, StripParameter::Solo, n % 7 == 0 ? 1 : 0);
        m_memory.setStrip(channel, StripParameter::Level, 37 * n % (highestLevel + 1));
        ChannelValues values = m_memory.values(channel);
        const auto parameter = static_cast<std::size_t>(n) % values.size();
        const Parameter& entry = parameterTable[parameter];
        values[parameter] = n % 2 == 0 ? entry.maximum : entry.minimum;
        m_memory.write(channel, values);
        m_mixerModel.auditions().watch(channel);
        m_mixerModel.auditions().setBypassed(channel, n % 2 == 0);
        m_mixerModel.auditions().setBand(channel, n % 7 - 1);
    }
}

// A pair at 0 dB, a mono strip 30 dB and its equalizer 20 dB below, a muted one, and none else.
void tst_LiveMix::settle()
{
    for (int channel = 0; channel < defaultChannelCount; ++channel) {
        m_mixerModel.auditions().setBypassed(channel, false);
        m_mixerModel.auditions().setBand(channel, noBand);
        m_memory.reset(channel);
        for (std::size_t i = 0; i < stripParameterCount; ++i)
            m_memory.setStrip(channel, StripParameter(i), stripTable[i].defaultValue);
        m_memory.setStrip(channel, StripParameter::Source, channel < 4 ? SourceFile : SourceOff);
    }
    m_memory.setStrip(2, StripParameter::Stereo, 0);
    m_memory.setStrip(2, StripParameter::Level, 100);
    m_memory.setStrip(3, StripParameter::Mute, 1);
    ChannelValues values = m_memory.values(2);
    values[25] = -200;
    m_memory.write(2, values);
}

// What is heard a second after the last setting; nothing if there was ever a sample that is none.
std::array<tst_LiveMix::Block, 2> tst_LiveMix::mixUntil(const std::atomic<bool>& written)
{
    const std::array<Block, 2> given = {Block(frames, 0.5F), Block(frames, 0.25F)};
    const std::array<const float*, 2> inputs = {given[0].data(), given[1].data()};
    std::array<Block, 2> heard = {Block(frames), Block(frames)};
    const std::array<float*, 2> outputs = {heard[0].data(), heard[1].data()};
    for (int left = rate; left > 0; left -= written ? int(frames) : 0) {
        m_bus.process(inputs, outputs, frames);
        for (const Block& block : heard)
            if (!std::all_of(block.begin(), block.end(), [](float x) { return std::isfinite(x); }))
                return {};
    }
    return heard;
}

void tst_LiveMix::lastSettingsAreMixedExactly()
{
    m_bus.prepare(rate, false);
    std::atomic<bool> written = false;
    std::array<Block, 2> heard;
    std::thread audio([&] { heard = mixUntil(written); });
    bool plausible = true;
    for (int step = 0; step < 100 || (step < 100000 && m_bus.engine().blocks() < 100); ++step) {
        moveEverything(step);
        m_publisher.publish();
        plausible = plausible && m_bus.engine().levels(0).send >= MeterLevels::lowest;
    }
    settle();
    m_publisher.publish();
    written = true;
    audio.join();
    QVERIFY(plausible);
    const float mono = 0.05F * static_cast<float>(stripGain(100));
    QCOMPARE(heard[0], Block(frames, 0.5F + mono));
    QCOMPARE(heard[1], Block(frames, 0.25F + mono));
}

QTEST_GUILESS_MAIN(tst_LiveMix)
#include "tst_LiveMix.moc"
