// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/AudioDevices.h"
#include "tests/support/TestObject.h"

class tst_AudioDevices : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void chooses_data();
    void chooses();
    void refuses_data();
    void refuses();
    void tabulates();

private:
    static std::vector<AudioDeviceInfo> devices();
};

std::vector<AudioDeviceInfo> tst_AudioDevices::devices()
{
    const auto device = [](const char* name, int outputs, int inputs) {
        AudioDeviceInfo info;
        info.name = QString::fromLatin1(name);
        info.outputs = outputs;
        info.inputs = inputs;
        info.preferredRate = 48000;
        info.rates = {44100, 48000};
        return info;
    };
    std::vector<AudioDeviceInfo> all = {device("jack:microphone", 0, 1), device("jack:first", 2, 0),
                                        device("jack:system", 2, 2), device("alsa:hw:Card,0", 8, 8),
                                        device("alsa:system two", 2, 2)};
    all[2].isDefaultOutput = true;
    all[3].isDefaultOutput = true;
    return all;
}

void tst_AudioDevices::chooses_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("default") << ""
                             << "jack:system";
    QTest::newRow("full name") << "alsa:hw:Card,0"
                               << "alsa:hw:Card,0";
    QTest::newRow("without system") << "hw:Card,0"
                                    << "alsa:hw:Card,0";
    QTest::newRow("exact before similar") << "System"
                                          << "jack:system";
    QTest::newRow("part") << "card"
                          << "alsa:hw:Card,0";
}

void tst_AudioDevices::chooses()
{
    QFETCH(const QString, text);
    const std::vector<AudioDeviceInfo> all = devices();
    const auto choice = AudioDevices::choose(all, text);
    QVERIFY2(choice.isOk(), qPrintable(choice.error()));
    QTEST(choice.value()->name, "expected");
}

void tst_AudioDevices::refuses_data()
{
    QTest::addColumn<bool>("any");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("none at all")
        << false << ""
        << "There is no sound device to play on. Connect one, or start the "
           "sound server (PipeWire, PulseAudio or JACK), and play again.";
    QTest::newRow("unknown") << true << "piano"
                             << "There is no sound device \"piano\"; --devices shows them all.";
    QTest::newRow("several") << true << "alsa"
                             << "\"alsa\" may mean several sound devices: alsa:hw:Card,0, "
                                "alsa:system two.";
}

void tst_AudioDevices::refuses()
{
    QFETCH(const bool, any);
    QFETCH(const QString, text);
    const std::vector<AudioDeviceInfo> all = any ? devices() : std::vector<AudioDeviceInfo>();
    QTEST(AudioDevices::choose(all, text).error(), "expected");
}

void tst_AudioDevices::tabulates()
{
    std::vector<AudioDeviceInfo> all = devices();
    all[2].isDefaultInput = true;
    all.resize(3);
    QCOMPARE(AudioDevices::table(all), QByteArray("jack:microphone\t0\t1\t48000\t\n"
                                                  "jack:first\t2\t0\t48000\t\n"
                                                  "jack:system\t2\t2\t48000\tdefault output, "
                                                  "default input\n"));
}

QTEST_APPLESS_MAIN(tst_AudioDevices)

#include "tst_AudioDevices.moc"
