// SPDX-License-Identifier: GPL-3.0-or-later
// The transport bar's end of an audio session, on a machine without a sound device.
#include "host/audio/AudioSession.h"
#include "host/meters/MixerMeters.h"
#include "host/model/AudioTransport.h"
#include "host/model/LiveMixer.h"
#include "host/model/MixerModel.h"
#include "hosting/HostMemory.h"
#include "tests/host/audio/SoundFiles.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QSignalSpy>
#include <QTemporaryDir>

using SoundFiles::Sound;

class tst_AudioTransport : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensAFile();
    void fileGoesToTheMarkedStrip();
    void stripThatPlaysTheFileKeepsIt();
    void feedingIsNoStepOfTheHistory();
    void badFileIsAnError();
    void errorOfTheDeviceIsShown();
    void seeksWithinTheFile();
    void metersShowWhatTheSourceIs();
    void metersOfTheTestSignalFollowTheStrip();

private:
    struct Fixture
    {
        HostMemory memory;
        MixerModel mixerModel{memory};
        LiveMixer mixer;
        AudioSession session{mixer};
        int marked = 0;
        AudioTransport transport{session, mixerModel, [this] { return marked; }};
    };

    QString file() const;

    QTemporaryDir m_folder;
};

// Two seconds.
QString tst_AudioTransport::file() const
{
    const Sound sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 2, SoundFiles::noise(192000)};
    return SoundFiles::write(m_folder.filePath(QStringLiteral("in.wav")), sound);
}

void tst_AudioTransport::opensAFile()
{
    Fixture f;
    QSignalSpy changes(&f.transport, &Transport::changed);
    QCOMPARE(f.transport.file(), QString());
    QCOMPARE(f.transport.length(), 0.0);
    const QString name = file();
    f.transport.open(name);
    QCOMPARE(f.transport.file(), name);
    QCOMPARE(f.transport.length(), 2.0);
    QCOMPARE(f.transport.state(), Transport::State::Stopped);
    QVERIFY(!changes.isEmpty());
}

void tst_AudioTransport::fileGoesToTheMarkedStrip()
{
    Fixture f;
    f.marked = 5;
    f.transport.open(file());
    QCOMPARE(f.memory.strip(4, StripParameter::Source), int(SourceFile));
    QCOMPARE(f.memory.strip(0, StripParameter::Source), int(SourceTestSignal));
}

void tst_AudioTransport::stripThatPlaysTheFileKeepsIt()
{
    Fixture f;
    f.memory.setStrip(2, StripParameter::Source, SourceFile);
    f.transport.open(file());
    QCOMPARE(f.memory.strip(0, StripParameter::Source), int(SourceTestSignal));
}

void tst_AudioTransport::feedingIsNoStepOfTheHistory()
{
    Fixture f;
    f.transport.open(file());
    f.transport.feed(2, true);
    QCOMPARE(f.memory.strip(2, StripParameter::Source), int(SourceInput1));
    QVERIFY(!f.mixerModel.history().stack().canUndo());
}

void tst_AudioTransport::badFileIsAnError()
{
    Fixture f;
    f.transport.open(m_folder.filePath(QStringLiteral("nowhere.wav")));
    QCOMPARE(f.transport.state(), Transport::State::Error);
    QVERIFY(f.transport.error().contains(QLatin1String("nowhere.wav")));
    QCOMPARE(f.memory.strip(0, StripParameter::Source), int(SourceTestSignal));
    f.transport.open(file());
    QCOMPARE(f.transport.state(), Transport::State::Stopped);
    QCOMPARE(f.transport.error(), QString());
}

void tst_AudioTransport::errorOfTheDeviceIsShown()
{
    Fixture f;
    AudioDevice::Settings settings;
    settings.device = QStringLiteral("a device that nobody has");
    f.session.setDevice(settings);
    f.transport.open(file());
    f.transport.play();
    QCOMPARE(f.transport.state(), Transport::State::Error);
    QVERIFY(!f.transport.error().isEmpty());
    QCOMPARE(f.transport.device(), -1);
}

void tst_AudioTransport::seeksWithinTheFile()
{
    Fixture f;
    f.transport.open(file());
    f.transport.seek(1.25);
    QCOMPARE(f.transport.position(), 1.25);
    f.transport.seek(100.0);
    QCOMPARE(f.transport.position(), 2.0);
    f.transport.seek(-1.0);
    QCOMPARE(f.transport.position(), 0.0);
}

// A strip whose sound comes from a file that does not play shows silence, never the test signal.
void tst_AudioTransport::metersShowWhatTheSourceIs()
{
    Fixture f;
    f.memory.setStrip(2, StripParameter::Source, SourceFile);
    MixerMeters meters(f.mixerModel, f.mixer.engine());
    const auto highest = [&meters, &f](int channel) {
        int result = MeterLevels::lowest;
        for (int tick = 0; tick < 30; ++tick)
            result = std::max(
                result, meters.read(channel, f.memory.values(channel), 48000, 1.0 / 30.0).send);
        return result;
    };
    QVERIFY(highest(0) > -300);
    QCOMPARE(highest(2), int(MeterLevels::lowest));
    QCOMPARE(highest(3), int(MeterLevels::lowest));
    f.mixer.follow(f.mixerModel);
    f.mixer.prepare(48000, false);
    std::vector<float> left(4800, 0.1F);
    std::vector<float> right(4800, 0.01F);
    float* const channels[] = {left.data(), right.data()};
    f.mixer.process(channels, 2, channels, 2, 4800);
    QCOMPARE(meters.read(2, f.memory.values(2), 48000, 0.03).send, -200);
    QCOMPARE(meters.read(3, f.memory.values(3), 48000, 0.03).send, -400);
}

// A pair sounds as its first channel is set, and past the equalizer while that is off.
void tst_AudioTransport::metersOfTheTestSignalFollowTheStrip()
{
    Fixture f;
    MixerMeters meters(f.mixerModel, f.mixer.engine());
    HostMemory::Values values = f.memory.values(0);
    values[25] = -200;
    f.memory.write(0, values);
    const auto difference = [&meters, &f](int channel) {
        MeterLevels levels;
        for (int tick = 0; tick < 60; ++tick)
            levels = meters.read(channel, f.memory.values(channel), 48000, 1.0 / 30.0);
        return levels.returned - levels.send;
    };
    QVERIFY(std::abs(difference(0) + 200) <= 1);
    QVERIFY(std::abs(difference(1) + 200) <= 1);
    f.memory.setStrip(0, StripParameter::EqualizerOn, 0);
    QCOMPARE(difference(0), 0);
    QCOMPARE(difference(1), 0);
    f.memory.setStrip(0, StripParameter::EqualizerOn, 1);
    f.memory.setStrip(0, StripParameter::Stereo, 0);
    QVERIFY(std::abs(difference(0) + 200) <= 1);
    QCOMPARE(difference(1), 0);
}

ZOLTA_TEST_MAIN(tst_AudioTransport)
#include "tst_AudioTransport.moc"
