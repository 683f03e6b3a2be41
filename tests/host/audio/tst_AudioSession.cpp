// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/MixBus.h"
#include "host/audio/AudioRenderer.h"
#include "host/audio/AudioSession.h"
#include "tests/engine/EngineTesting.h"
#include "tests/host/audio/FakeDevice.h"
#include "tests/host/audio/SoundFiles.h"
#include "tests/support/TestObject.h"

#include <QSignalSpy>
#include <QTemporaryDir>

#include <memory>

using SoundFiles::Sound;

class tst_AudioSession : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void soundsAsRendered_data();
    void soundsAsRendered();
    void convertsTheFilesRate();
    void loops();
    void stopsAndGoesOn();
    void goesToAPosition();
    void settingsOfTheStartAreInForceAtOnce();
    void playsWhatComesIn();
    void fileEndsWhatComesIn();
    void saysWhatCannotBePlayed();
    void saysThatRatesAreTooFarApart();
    void badFileLeavesWhatPlays();
    void saysThatAFileWasCutShort();
    void saysThatTheDeviceDoesNotRespond();
    void saysThatTheDeviceWasDisconnected();
    void playsOnADeviceThatIsBack();
    void doesNotWaitOnceItIsStopped();
    void goesOnWithAnotherOutput();

private:
    using Samples = std::vector<float>;

    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }
    QString writeNoise(const char* name, std::size_t frames, int channels = 2) const;
    void open(std::chrono::milliseconds patience);
    Samples rendered(const QString& file, const ChannelValues& values) const;
    static bool isNear(const Samples& a, const Samples& b);

    QTemporaryDir m_folder;
    std::unique_ptr<MixBus> m_bus;
    std::unique_ptr<AudioSession> m_session;
    FakeDevice* m_device = nullptr; // the session's
};

void tst_AudioSession::init()
{
    TestObject::init();
    m_session.reset();
    m_bus = std::make_unique<MixBus>();
    MixBus::Strips strips;
    for (int side = 0; side < 2; ++side)
        strips[static_cast<std::size_t>(side)] = {
            {MixBus::Source::File, side}, side == 0 ? 1.0 : 0.0, side == 1 ? 1.0 : 0.0};
    m_bus->publish(strips);
    open(std::chrono::hours(1));
}

void tst_AudioSession::open(std::chrono::milliseconds patience)
{
    auto device = std::make_unique<FakeDevice>();
    m_device = device.get();
    m_session = std::make_unique<AudioSession>(*m_bus, std::move(device), patience);
}

QString tst_AudioSession::writeNoise(const char* name, std::size_t frames, int channels) const
{
    const auto count = frames * static_cast<std::size_t>(channels);
    return SoundFiles::write(path(name), Sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, channels,
                                               SoundFiles::noise(count)});
}

// The first channel as a run without a device makes it of the file.
tst_AudioSession::Samples tst_AudioSession::rendered(const QString& file,
                                                     const ChannelValues& values) const
{
    const QString output = path("rendered.wav");
    AudioRenderer renderer({file, output, values, true});
    if (!renderer.run({}).isOk())
        return {};
    const std::vector<double> samples = SoundFiles::read(output).channel(0);
    return {samples.begin(), samples.end()};
}

bool tst_AudioSession::isNear(const Samples& a, const Samples& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](float x, float y) { return std::abs(x - y) <= 1e-6F; });
}

void tst_AudioSession::soundsAsRendered_data()
{
    QTest::addColumn<QString>("settings");
    QTest::addColumn<int>("channels");
    const QString equalized = QStringLiteral("3=60 7=-45 11=80 15=-120 23=60 26=-30");
    QTest::newRow("flat") << QString() << 2;
    QTest::newRow("equalized") << equalized << 2;
    QTest::newRow("mono file") << equalized << 1;
    QTest::newRow("three channels") << equalized << 3;
}

// Sample by sample, to the end.
void tst_AudioSession::soundsAsRendered()
{
    QFETCH(const QString, settings);
    QFETCH(const int, channels);
    const ChannelValues values = EngineTesting::valuesFrom(settings);
    for (const int channel : {0, 1})
        m_bus->publish(channel, values);
    const QString file = writeNoise("in.wav", 20000, channels);
    QVERIFY(m_session->openFile(file).isOk());
    QCOMPARE(m_session->file(), file);
    QSignalSpy finished(m_session.get(), &AudioSession::finished);
    QVERIFY(m_session->play().isOk());
    QCOMPARE(m_session->state(), AudioSession::State::Playing);
    const auto heard = m_device->call(20000);
    QVERIFY(isNear(heard[0], rendered(file, values)));
    QCOMPARE(heard[0] == heard[1], channels == 1);
    m_device->call(1); // beyond the end
    QVERIFY(finished.wait(30000));
    QCOMPARE(m_session->state(), AudioSession::State::Stopped);
    QCOMPARE(m_session->position(), 0.0);
    QVERIFY(!m_device->isPlaying());
}

void tst_AudioSession::convertsTheFilesRate()
{
    SoundFiles::write(path("slow.wav"), Sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 44100, 1,
                                              SoundFiles::sine(1000.0, 44100, 44100)});
    QVERIFY(m_session->openFile(path("slow.wav")).isOk());
    QCOMPARE(m_session->duration(), 1.0);
    QCOMPARE(m_session->expectedRate(), 48000);
    QVERIFY(m_session->play().isOk());
    const Samples heard = m_device->call(50000)[0];
    const std::vector<double> expected = SoundFiles::sine(1000.0, 48000, 36000);
    for (std::size_t i = 12000; i < expected.size(); ++i)
        QVERIFY(std::abs(double(heard[i]) - expected[i]) < 1e-3);
    QCOMPARE(Samples(heard.begin() + 48050, heard.end()), Samples(1950, 0.0F));
}

void tst_AudioSession::loops()
{
    const QString file = writeNoise("short.wav", 7001);
    m_session->setLooping(true);
    QVERIFY(m_session->openFile(file).isOk());
    QVERIFY(m_session->play().isOk());
    const Samples once = rendered(file, defaultValues());
    for (int round = 0; round < 4; ++round)
        QVERIFY(isNear(m_device->call(7001)[0], once));
    m_device->call(480);
    QCOMPARE(m_session->position(), 0.01);
}

void tst_AudioSession::stopsAndGoesOn()
{
    const QString file = writeNoise("in.wav", 96000);
    QVERIFY(m_session->openFile(file).isOk());
    QSignalSpy changes(m_session.get(), &AudioSession::changed);
    QSignalSpy positions(m_session.get(), &AudioSession::positionChanged);
    QVERIFY(m_session->play().isOk());
    QCOMPARE(changes.count(), 1);
    m_device->call(4800);
    QVERIFY(positions.wait(30000));
    QCOMPARE(positions.first().first().toDouble(), 0.1);
    m_session->stop();
    QCOMPARE(changes.count(), 2);
    QCOMPARE(m_session->position(), 0.1);
    QVERIFY(!m_device->isPlaying());
    QVERIFY(m_session->play().isOk());
    const Samples all = rendered(file, defaultValues());
    QVERIFY(isNear(m_device->call(2000)[0], {all.begin() + 4800, all.begin() + 6800}));
}

void tst_AudioSession::goesToAPosition()
{
    const QString file = writeNoise("in.wav", 96000);
    const Samples all = rendered(file, defaultValues());
    QVERIFY(m_session->openFile(file).isOk());
    m_session->setPosition(1.5);
    QCOMPARE(m_session->position(), 1.5);
    QVERIFY(m_session->play().isOk());
    QVERIFY(isNear(m_device->call(2000)[0], {all.begin() + 72000, all.begin() + 74000}));
    m_session->setPosition(0.5);
    QCOMPARE(m_session->state(), AudioSession::State::Playing);
    QVERIFY(isNear(m_device->call(2000)[0], {all.begin() + 24000, all.begin() + 26000}));
    m_session->stop();
    m_session->setPosition(99.0);
    QCOMPARE(m_session->position(), 2.0);
    m_session->setPosition(-1.0);
    QCOMPARE(m_session->position(), 0.0);
}

void tst_AudioSession::settingsOfTheStartAreInForceAtOnce()
{
    connect(m_session.get(), &AudioSession::starting, this, [this] {
        MixBus::Strips strips;
        strips[0] = {{MixBus::Source::File, 0}, 0.5, 0.5};
        m_bus->publish(strips);
    });
    SoundFiles::write(path("in.wav"), Sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 1,
                                            std::vector<double>(1000, 0.25)});
    QVERIFY(m_session->openFile(path("in.wav")).isOk());
    QVERIFY(m_session->play().isOk());
    QCOMPARE(m_device->call(1000)[1], Samples(1000, 0.125F));
}

void tst_AudioSession::playsWhatComesIn()
{
    MixBus::Strips strips;
    strips[0] = {{MixBus::Source::Input, 2}, 1.0, 1.0};
    m_bus->publish(strips);
    m_session->setDevice({QString(), 0, 0, true});
    QVERIFY(m_session->play().isOk());
    QVERIFY(m_device->isLive());
    const Samples silence(1000, 0.0F);
    const Samples sound(1000, 0.5F);
    QCOMPARE(m_device->call(1000, {silence, silence, sound})[0], sound);
    QCOMPARE(m_session->position(), 0.0);
    m_session->setPosition(1.0);
    QVERIFY(m_device->isPlaying());
}

void tst_AudioSession::fileEndsWhatComesIn()
{
    m_session->setDevice({QString(), 0, 0, true});
    QVERIFY(m_session->play().isOk());
    QSignalSpy opened(m_session.get(), &AudioSession::fileOpened);
    QVERIFY(m_session->openFile(writeNoise("in.wav", 1000)).isOk());
    QCOMPARE(opened.count(), 1);
    QVERIFY(!m_device->isPlaying());
    QVERIFY(m_session->play().isOk());
    QVERIFY(!m_device->isLive());
}

void tst_AudioSession::saysWhatCannotBePlayed()
{
    QSignalSpy errors(m_session.get(), &AudioSession::failed);
    QCOMPARE(m_session->play().error(), QStringLiteral("There is no sound file to play."));
    const Status missing = m_session->openFile(path("nowhere.wav"));
    QCOMPARE(missing.error(),
             QStringLiteral("The sound file %1 cannot be read: No such file or directory.")
                 .arg(path("nowhere.wav")));
    QCOMPARE(errors.value(1).value(0).toString(), missing.error());
    QCOMPARE(m_session->file(), QString());
    QVERIFY(m_session->openFile(writeNoise("in.wav", 20000)).isOk());
    QCOMPARE(m_session->error(), QString());
    m_session->setDevice({QStringLiteral("nothing like it"), 0, 0, false});
    QCOMPARE(m_session->expectedRate(), 0);
    QCOMPARE(m_session->output(), -1);
    QVERIFY(!m_session->play().isOk());
    m_session->setDevice({});
    m_device->setStartError(QStringLiteral("It does not start."));
    QCOMPARE(m_session->play().error(), QStringLiteral("It does not start."));
    QCOMPARE(errors.count(), 4);
    QCOMPARE(m_session->state(), AudioSession::State::Stopped);
    m_device->setStartError({});
    QVERIFY(m_session->play().isOk());
    QCOMPARE(m_session->error(), QString());
    m_device->setStartError(QStringLiteral("It does not go on."));
    m_session->setPosition(0.1);
    QCOMPARE(m_session->state(), AudioSession::State::Stopped);
    QCOMPARE(m_session->error(), QStringLiteral("It does not go on."));
}

// Looped, a file of which nothing is heard would be read for ever.
void tst_AudioSession::saysThatRatesAreTooFarApart()
{
    const QString file = path("in.wav");
    SoundFiles::write(file, Sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 187, 2, SoundFiles::noise(200)});
    QVERIFY(m_session->openFile(file).isOk());
    m_session->setLooping(true);
    QCOMPARE(
        m_session->play().error(),
        QStringLiteral(
            "The sound file %1 has a sampling rate of 187 Hz and cannot be played at 48000 Hz.")
            .arg(file));
    QCOMPARE(m_session->state(), AudioSession::State::Stopped);
    QVERIFY(!m_device->isPlaying());
    SoundFiles::write(file, Sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 188, 2, SoundFiles::noise(200)});
    QVERIFY(m_session->openFile(file).isOk());
    QVERIFY(m_session->play().isOk());
}

void tst_AudioSession::badFileLeavesWhatPlays()
{
    const QString good = writeNoise("in.wav", 20000);
    QVERIFY(m_session->openFile(good).isOk());
    QVERIFY(m_session->play().isOk());
    SoundFiles::writeBytes(path("bad.wav"), "no sound");
    QVERIFY(!m_session->openFile(path("bad.wav")).isOk());
    QVERIFY(m_device->isPlaying());
    QCOMPARE(m_session->file(), good);
    QCOMPARE(m_session->error(), QString());
}

void tst_AudioSession::saysThatAFileWasCutShort()
{
    const QString whole =
        SoundFiles::write(path("whole.flac"), Sound{SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 48000, 2,
                                                    SoundFiles::noise(40000)});
    const QByteArray bytes = SoundFiles::bytesOf(whole);
    SoundFiles::writeBytes(path("short.flac"), bytes.left(bytes.size() / 2));
    QVERIFY(m_session->openFile(path("short.flac")).isOk());
    QSignalSpy errors(m_session.get(), &AudioSession::failed);
    QVERIFY(m_session->play().isOk());
    m_device->call(20000);
    QVERIFY(errors.wait(30000));
    QVERIFY(errors.value(0).value(0).toString().contains(QLatin1String("It is cut short")));
    QCOMPARE(m_session->error(), QString()); // nothing is wrong with the device
    QCOMPARE(m_session->state(), AudioSession::State::Stopped);
}

void tst_AudioSession::saysThatTheDeviceDoesNotRespond()
{
    open(std::chrono::milliseconds(0));
    QVERIFY(m_session->openFile(writeNoise("in.wav", 20000)).isOk());
    QVERIFY(m_session->play().isOk());
    QSignalSpy changes(m_session.get(), &AudioSession::changed);
    QVERIFY(changes.wait(30000));
    QCOMPARE(m_session->state(), AudioSession::State::Stalled);
    QCOMPARE(m_session->error(),
             QStringLiteral("The sound device fake:Speakers is not responding."));
    m_device->call(100);
    QVERIFY(changes.wait(30000));
    QCOMPARE(m_session->state(), AudioSession::State::Playing);
    QCOMPARE(m_session->error(), QString());
    QVERIFY(changes.wait(30000));
    m_session->stop();
    QCOMPARE(m_session->state(), AudioSession::State::Stopped);
}

void tst_AudioSession::saysThatTheDeviceWasDisconnected()
{
    QVERIFY(m_session->openFile(writeNoise("in.wav", 20000)).isOk());
    QVERIFY(m_session->play().isOk());
    QSignalSpy errors(m_session.get(), &AudioSession::failed);
    m_device->setError(QStringLiteral("It was disconnected."));
    QVERIFY(errors.wait(30000));
    QCOMPARE(m_session->error(), QStringLiteral("It was disconnected."));
    QCOMPARE(m_session->state(), AudioSession::State::Stopped);
    m_device->setError({});
    QVERIFY(m_session->play().isOk());
    QVERIFY(m_device->isPlaying());
}

// From where it was, or was sent meanwhile, on the same device.
void tst_AudioSession::playsOnADeviceThatIsBack()
{
    const QString file = writeNoise("in.wav", 96000);
    const Samples all = rendered(file, defaultValues());
    QVERIFY(m_session->openFile(file).isOk());
    m_session->setOutput(1);
    QVERIFY(m_session->play().isOk());
    QSignalSpy errors(m_session.get(), &AudioSession::failed);
    for (const int frame : {4800, 48000}) {
        m_session->setPosition(frame / 48000.0);
        m_device->call(2400);
        m_device->setGone(true);
        QVERIFY(errors.wait(30000));
        QCOMPARE(m_session->state(), AudioSession::State::Waiting);
        QCOMPARE(m_session->error(), QStringLiteral("It has gone."));
        QVERIFY(!m_device->isPlaying());
        QCOMPARE(m_session->position(), (frame + 2400) / 48000.0);
        m_session->setPosition(frame / 48000.0);
        QCOMPARE(m_session->state(), AudioSession::State::Waiting);
        m_device->setGone(false);
        QTRY_COMPARE_WITH_TIMEOUT(m_session->state(), AudioSession::State::Playing, 30000);
        QCOMPARE(m_session->error(), QString());
        QCOMPARE(m_device->name(), QStringLiteral("fake:Phones"));
        QVERIFY(isNear(m_device->call(2000)[0], {all.begin() + frame, all.begin() + frame + 2000}));
    }
    QCOMPARE(errors.count(), 2);
}

void tst_AudioSession::doesNotWaitOnceItIsStopped()
{
    QVERIFY(m_session->openFile(writeNoise("in.wav", 96000)).isOk());
    QVERIFY(m_session->play().isOk());
    m_device->call(4800);
    m_device->setGone(true);
    QTRY_COMPARE_WITH_TIMEOUT(m_session->state(), AudioSession::State::Waiting, 30000);
    m_session->stop();
    QCOMPARE(m_session->state(), AudioSession::State::Stopped);
    QCOMPARE(m_session->position(), 0.1);
    QVERIFY(!m_session->play().isOk());
    QCOMPARE(m_session->state(), AudioSession::State::Stopped);
    m_device->setGone(false);
    QVERIFY(m_session->play().isOk());
}

void tst_AudioSession::goesOnWithAnotherOutput()
{
    QCOMPARE(m_session->outputs(),
             (QStringList{QStringLiteral("fake:Speakers"), QStringLiteral("fake:Phones")}));
    QCOMPARE(m_session->output(), 0);
    QSignalSpy changes(m_session.get(), &AudioSession::changed);
    m_session->setOutput(1);
    QCOMPARE(m_session->output(), 1);
    QCOMPARE(changes.count(), 1);
    QVERIFY(!m_device->isPlaying());
    QVERIFY(m_session->openFile(writeNoise("in.wav", 20000)).isOk());
    QVERIFY(m_session->play().isOk());
    QCOMPARE(m_device->name(), QStringLiteral("fake:Phones"));
    m_device->call(4800);
    m_session->setOutput(0);
    QCOMPARE(m_device->name(), QStringLiteral("fake:Speakers"));
    QVERIFY(m_device->isPlaying());
    QCOMPARE(m_session->position(), 0.1);
    m_session->setOutput(2);
    QCOMPARE(m_session->output(), 0);
}

QTEST_GUILESS_MAIN(tst_AudioSession)

#include "tst_AudioSession.moc"
