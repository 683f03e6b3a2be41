// SPDX-License-Identifier: GPL-3.0-or-later
// Plays through a sound server of its own.
#include "host/audio/AudioCallback.h"
#include "host/audio/RtAudioDevice.h"
#include "tests/host/audio/JackServer.h"
#include "tests/host/audio/SoundFiles.h"
#include "tests/support/TestObject.h"

#include <algorithm>
#include <memory>

namespace {

// Plays noise on the left and half of it on the right, or one of the inputs on both.
class Player : public AudioCallback
{
public:
    explicit Player(std::size_t input = 0)
        : m_input(input)
    {
        const std::vector<double> noise = SoundFiles::noise(48000);
        std::copy(noise.begin(), noise.end(), samples.begin());
        samples.front() = 0.25F; // the first frame that is not silent is the first one
    }

    void process(std::span<const float* const> inputs, std::span<float* const> outputs,
                 std::size_t frames) override
    {
        for (std::size_t c = 0; c < outputs.size(); ++c) {
            for (std::size_t i = 0; i < frames; ++i)
                outputs[c][i] = inputs.empty()
                                    ? samples[(m_position + i) % samples.size()] / float(c + 1)
                                    : inputs[m_input][i];
        }
        m_position += frames;
    }

    std::vector<float> samples = std::vector<float>(48000);

private:
    std::size_t m_input;
    std::size_t m_position = 0;
};

} // namespace

class tst_RtAudioDevice : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void choosesTheRate();
    void playsEverySample();
    void playsWhatComesIn_data();
    void playsWhatComesIn();
    void saysWhatCannotBeOpened();
    void leavesADeviceThatDoesNotRespond();
    void saysThatTheBlockSizeChanged();
    void saysThatItWasDisconnected();

private:
    static AudioDeviceSettings settings(bool live = false)
    {
        return {QStringLiteral("jack:ears"), 0, 0, live};
    }
    void play(Player* player, bool live = false);
    static bool matches(const std::vector<float>& heard, const std::vector<float>& given,
                        float factor);

    std::unique_ptr<JackServer> m_server;
    std::unique_ptr<JackDevice> m_ears;
    std::unique_ptr<RtAudioDevice> m_device;
};

void tst_RtAudioDevice::initTestCase()
{
    m_server = std::make_unique<JackServer>();
    QVERIFY2(m_server->isRunning(), qPrintable(m_server->errorText()));
}

void tst_RtAudioDevice::init()
{
    TestObject::init();
    m_ears = std::make_unique<JackDevice>("ears");
    QVERIFY(m_ears->isOpen());
    m_device = std::make_unique<RtAudioDevice>(std::chrono::milliseconds(200));
}

void tst_RtAudioDevice::cleanup()
{
    m_server->thaw();
    m_device.reset();
    m_ears.reset();
}

void tst_RtAudioDevice::play(Player* player, bool live)
{
    const Status opened = m_device->open(settings(live), 0);
    QVERIFY2(opened.isOk(), qPrintable(opened.error()));
    const Status started = m_device->start(*player);
    QVERIFY2(started.isOk(), qPrintable(started.error()));
    QTRY_VERIFY_WITH_TIMEOUT(m_ears->heard() > 20000, 30000);
}

// From some sample on. A busy server connects a program a few of its cycles late.
bool tst_RtAudioDevice::matches(const std::vector<float>& heard, const std::vector<float>& given,
                                float factor)
{
    constexpr std::size_t certain = 10000;
    const auto isNear = [factor](float a, float b) { return std::abs(a - factor * b) < 1e-7F; };
    if (heard.size() < certain)
        return false;
    for (std::size_t start = 0; start < given.size(); ++start) {
        std::size_t i = 0;
        while (i < certain && isNear(heard[i], given[(start + i) % given.size()]))
            ++i;
        if (i == certain)
            return true;
    }
    return false;
}

void tst_RtAudioDevice::choosesTheRate()
{
    QCOMPARE(m_device->rateFor(settings(), 0), JackServer::rate);
    QCOMPARE(m_device->rateFor(settings(), 44100), JackServer::rate);
    QCOMPARE(m_device->rateFor({QStringLiteral("nobody"), 0, 0, false}, 48000), 0);
}

// On each side its own, and as many calls as there are blocks.
void tst_RtAudioDevice::playsEverySample()
{
    Player player;
    play(&player);
    QCOMPARE(m_device->name(), QStringLiteral("jack:ears"));
    QCOMPARE(m_device->rate(), JackServer::rate);
    QVERIFY(m_device->status().isOk());
    QVERIFY(m_device->calls() >= 20000 / JackServer::block);
    m_device->close();
    QVERIFY(matches(m_ears->channel(0), player.samples, 1.0F));
    QVERIFY(matches(m_ears->channel(1), player.samples, 0.5F));
}

// More come in than go out.
void tst_RtAudioDevice::playsWhatComesIn_data()
{
    QTest::addColumn<int>("input");
    for (const int input : {1, 2, 3, 4})
        QTest::addRow("input %d", input) << input;
}

void tst_RtAudioDevice::playsWhatComesIn()
{
    QFETCH(const int, input);
    Player player(static_cast<std::size_t>(input) - 1);
    m_ears->play(player.samples);
    play(&player, true);
    m_device->close();
    std::vector<float> heard = m_ears->channel(0);
    heard.erase(heard.begin(), heard.begin() + 1000);
    QVERIFY(matches(heard, player.samples, 1.0F / static_cast<float>(input)));
}

void tst_RtAudioDevice::saysWhatCannotBeOpened()
{
    QCOMPARE(m_device->open({QStringLiteral("nothing"), 0, 0, false}, 0).error(),
             QStringLiteral("There is no sound device \"nothing\"; --devices shows them all."));
    QCOMPARE(m_device->open({QStringLiteral("ears"), 44100, 0, false}, 0).error(),
             QStringLiteral("The sound device jack:ears cannot be used: it does not run at 44100 "
                            "Hz."));
}

void tst_RtAudioDevice::leavesADeviceThatDoesNotRespond()
{
    Player player;
    play(&player);
    m_server->freeze();
    m_device->close();
    QCOMPARE(m_device->open(settings(), 0).error(),
             QStringLiteral("No sound device can be used while jack:ears is not responding."));
    m_server->thaw();
    QTRY_VERIFY_WITH_TIMEOUT(m_device->open(settings(), 0).isOk(), 30000);
    const std::int64_t calls = m_device->calls();
    QVERIFY(m_device->start(player).isOk());
    QTRY_VERIFY_WITH_TIMEOUT(m_device->calls() > calls, 30000);
    QTRY_VERIFY_WITH_TIMEOUT(m_ears->channel(0).back() != 0.0F, 30000);
}

void tst_RtAudioDevice::saysThatTheBlockSizeChanged()
{
    Player player;
    play(&player);
    m_ears->changeBlock(2 * JackServer::block);
    QTRY_COMPARE_WITH_TIMEOUT(m_device->status().error(),
                              QStringLiteral("The sound device jack:ears has another block size "
                                             "now; stop and play again to use the new size."),
                              30000);
    m_device->close();
    QVERIFY(m_device->open(settings(), 0).isOk());
    QVERIFY(m_device->start(player).isOk());
    QTRY_VERIFY_WITH_TIMEOUT(m_ears->channel(0).back() != 0.0F, 30000);
    m_ears->changeBlock(JackServer::block);
}

// A new server is played on as if nothing had happened. Last, because the ears die with the server.
void tst_RtAudioDevice::saysThatItWasDisconnected()
{
    Player player;
    play(&player);
    m_server->kill();
    QTRY_COMPARE_WITH_TIMEOUT(m_device->status().error(),
                              QStringLiteral("The sound device jack:ears was disconnected."),
                              30000);
    m_device->close();
    QVERIFY(!m_device->open(settings(), 0).isOk());
    m_ears.reset();
    m_server = std::make_unique<JackServer>();
    QVERIFY2(m_server->isRunning(), qPrintable(m_server->errorText()));
    m_ears = std::make_unique<JackDevice>("ears");
    QVERIFY(m_ears->isOpen());
    play(&player);
}

QTEST_GUILESS_MAIN(tst_RtAudioDevice)

#include "tst_RtAudioDevice.moc"
