// SPDX-License-Identifier: GPL-3.0-or-later
// Plays through a sound server of its own, on both kinds of devices.
#include "host/audio/AudioCallback.h"
#include "host/audio/JackDevice.h"
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

class tst_AudioDevice : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void choosesTheRate_data() { addDevices(); }
    void choosesTheRate();
    void playsEverySample_data() { addDevices(); }
    void playsEverySample();
    void playsWhatComesIn_data();
    void playsWhatComesIn();
    void saysWhatCannotBeOpened_data() { addDevices(); }
    void saysWhatCannotBeOpened();
    void leavesADeviceThatDoesNotRespond_data();
    void leavesADeviceThatDoesNotRespond();
    void jackIsForOneOfThemOnly();

private:
    static AudioDeviceSettings settings(bool live = false)
    {
        return {QStringLiteral("jack:ears"), 0, 0, live};
    }
    static void addDevices();
    void open(bool directly, std::chrono::milliseconds patience = std::chrono::seconds(20));
    void play(Player* player, bool live = false);
    /// One that outlives the device, whose thread goes on after a row's last line.
    template <typename... Arguments> Player& newPlayer(Arguments... arguments)
    {
        m_player = std::make_unique<Player>(arguments...);
        return *m_player;
    }

    std::unique_ptr<JackServer> m_server;
    std::unique_ptr<JackEars> m_ears;
    std::unique_ptr<Player> m_player;
    std::unique_ptr<AudioDevice> m_device;
};

void tst_AudioDevice::initTestCase()
{
    m_server = std::make_unique<JackServer>();
    QVERIFY2(m_server->isRunning(), qPrintable(m_server->errorText()));
}

void tst_AudioDevice::init()
{
    TestObject::init();
    m_ears = std::make_unique<JackEars>("ears");
    QVERIFY(m_ears->isOpen());
}

void tst_AudioDevice::cleanup()
{
    m_server->thaw();
    m_device.reset();
    m_ears.reset();
}

void tst_AudioDevice::addDevices()
{
    QTest::addColumn<bool>("directly");
    QTest::newRow("JackDevice") << true;
    QTest::newRow("RtAudioDevice") << false;
}

void tst_AudioDevice::open(bool directly, std::chrono::milliseconds patience)
{
    if (directly)
        m_device = std::make_unique<JackDevice>(patience);
    else
        m_device = std::make_unique<RtAudioDevice>(std::vector{RtAudio::UNIX_JACK}, patience);
}

void tst_AudioDevice::play(Player* player, bool live)
{
    const Status opened = m_device->open(settings(live), 0);
    QVERIFY2(opened.isOk(), qPrintable(opened.error()));
    const Status started = m_device->start(*player);
    QVERIFY2(started.isOk(), qPrintable(started.error()));
    QTRY_VERIFY_WITH_TIMEOUT(m_ears->heard() > 15000, 30000);
}

void tst_AudioDevice::choosesTheRate()
{
    QFETCH(const bool, directly);
    open(directly);
    QCOMPARE(m_device->rateFor(settings(), 0), JackServer::rate);
    QCOMPARE(m_device->rateFor(settings(), 44100), JackServer::rate);
    QCOMPARE(m_device->rateFor({QStringLiteral("nobody"), 0, 0, false}, 48000), 0);
}

// On each side its own, and as many calls as there are blocks.
void tst_AudioDevice::playsEverySample()
{
    QFETCH(const bool, directly);
    open(directly);
    Player& player = newPlayer();
    play(&player);
    QCOMPARE(m_device->name(), QStringLiteral("jack:ears"));
    QCOMPARE(m_device->rate(), JackServer::rate);
    QVERIFY(m_device->status().isOk());
    QVERIFY(m_device->calls() >= 15000 / JackServer::block);
    QVERIFY(m_ears->hears(0, 10000, player.samples));
    QVERIFY(m_ears->hears(1, 10000, player.samples, 0.5F));
}

// More come in than go out.
void tst_AudioDevice::playsWhatComesIn_data()
{
    QTest::addColumn<bool>("directly");
    QTest::addColumn<int>("input");
    for (const int input : {1, 2, 3, 4})
        QTest::addRow("JackDevice, input %d", input) << true << input;
    QTest::addRow("RtAudioDevice") << false << 3;
}

void tst_AudioDevice::playsWhatComesIn()
{
    QFETCH(const bool, directly);
    QFETCH(const int, input);
    open(directly);
    Player& player = newPlayer(static_cast<std::size_t>(input) - 1);
    m_ears.reset();
    m_ears = std::make_unique<JackEars>("ears", player.samples);
    play(&player, true);
    QVERIFY(m_ears->hears(0, 10000, player.samples, 1.0F / static_cast<float>(input)));
}

void tst_AudioDevice::saysWhatCannotBeOpened()
{
    QFETCH(const bool, directly);
    open(directly);
    QCOMPARE(m_device->open({QStringLiteral("nothing"), 0, 0, false}, 0).error(),
             QStringLiteral("There is no sound device \"nothing\"; --devices shows them all."));
    QCOMPARE(m_device->open({QStringLiteral("ears"), 44100, 0, false}, 0).error(),
             QStringLiteral("The sound device jack:ears cannot be used: it does not run at 44100 "
                            "Hz."));
}

void tst_AudioDevice::leavesADeviceThatDoesNotRespond_data()
{
    QTest::addColumn<bool>("directly");
    QTest::addColumn<QString>("error");
    QTest::newRow("JackDevice") << true << "The sound device jack:ears is not responding.";
    QTest::newRow("RtAudioDevice")
        << false << "No sound device can be used while jack:ears is not responding.";
}

void tst_AudioDevice::leavesADeviceThatDoesNotRespond()
{
    QFETCH(const bool, directly);
    open(directly, std::chrono::seconds(1));
    Player& player = newPlayer();
    play(&player);
    m_server->freeze();
    m_device->close();
    QTEST(m_device->open(settings(), 0).error(), "error");
    m_server->thaw();
    QTRY_VERIFY_WITH_TIMEOUT(m_device->open(settings(), 0).isOk(), 30000);
    const std::size_t heard = m_ears->heard();
    QVERIFY(m_device->start(player).isOk());
    QTRY_VERIFY_WITH_TIMEOUT(m_ears->heard() > heard + 8000, 30000);
    QVERIFY(m_ears->hears(0, 2000, player.samples));
}

void tst_AudioDevice::jackIsForOneOfThemOnly()
{
    for (const AudioDeviceInfo& device : RtAudioDevice().list())
        QVERIFY2(device.system() != QLatin1String("jack"), qPrintable(device.name));
}

QTEST_GUILESS_MAIN(tst_AudioDevice)

#include "tst_AudioDevice.moc"
