// SPDX-License-Identifier: GPL-3.0-or-later
// Plays through a sound server of its own.
#include "host/audio/AudioRenderer.h"
#include "host/audio/AudioSession.h"
#include "host/model/LiveMixer.h"
#include "host/model/MixerModel.h"
#include "host/program/ChannelSettings.h"
#include "hosting/HostMemory.h"
#include "tests/host/audio/JackServer.h"
#include "tests/host/audio/SoundFiles.h"
#include "tests/support/TestObject.h"

#include <QSignalSpy>
#include <QTemporaryDir>

#include <algorithm>

using SoundFiles::Sound;

class tst_AudioSession : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void soundsAsRendered_data();
    void soundsAsRendered();
    void oneChannelIsHeardOnBothSides();
    void convertsTheFilesRate();
    void loops();
    void stopsAndGoesOn();
    void goesToAPosition();
    void followsTheMemory();
    void playsWhatComesIn_data();
    void playsWhatComesIn();
    void saysWhatCannotBePlayed();
    void saysThatAFileWasCutShort();
    void saysThatTheDeviceHangs();
    void leavesADeviceThatHangs();
    void outlivesItsDevice();

private:
    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }
    AudioDevice::Settings settings(bool live = false) const;
    QString writeNoise(const char* name, std::size_t frames, int channels = 2) const;
    std::vector<float> rendered(const QString& file, int channel) const;
    void playUntilTheDeviceHangs();
    static bool matches(const std::vector<float>& heard, const std::vector<float>& expected,
                        float tolerance = 1e-6F);

    QTemporaryDir m_folder;
    std::unique_ptr<JackServer> m_server;
    std::unique_ptr<JackDevice> m_device;
    std::unique_ptr<HostMemory> m_memory;
    std::unique_ptr<MixerModel> m_mixerModel;
    std::unique_ptr<LiveMixer> m_mixer;
    std::unique_ptr<AudioSession> m_session;
};

void tst_AudioSession::initTestCase()
{
    m_server = std::make_unique<JackServer>();
    QVERIFY2(m_server->isRunning(), qPrintable(m_server->errorText()));
}

void tst_AudioSession::init()
{
    TestObject::init();
    m_device = std::make_unique<JackDevice>("ears");
    QVERIFY(m_device->isOpen());
    m_memory = std::make_unique<HostMemory>();
    m_memory->setStrip(0, StripParameter::Source, SourceFile);
    m_mixerModel = std::make_unique<MixerModel>(*m_memory);
    m_mixer = std::make_unique<LiveMixer>();
    m_mixer->follow(*m_mixerModel);
    m_session = std::make_unique<AudioSession>(*m_mixer);
    m_session->setDevice(settings());
}

void tst_AudioSession::cleanup()
{
    m_server->thaw();
    m_session.reset();
    m_mixer.reset();
    m_mixerModel.reset();
    m_device.reset();
}

AudioDevice::Settings tst_AudioSession::settings(bool live) const
{
    return {QStringLiteral("jack:ears"), 0, 0, live};
}

QString tst_AudioSession::writeNoise(const char* name, std::size_t frames, int channels) const
{
    const auto count = frames * static_cast<std::size_t>(channels);
    Sound sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, channels, SoundFiles::noise(count)};
    sound.samples.front() = 0.25; // the first frame that is not silent is the first one
    return SoundFiles::write(path(name), sound);
}

// What a run without a device makes of the file with the memory's settings.
std::vector<float> tst_AudioSession::rendered(const QString& file, int channel) const
{
    const QString output = path("rendered.wav");
    AudioRenderer renderer({file, output, m_memory->values(0), true});
    if (!renderer.run({}).isEmpty())
        return {};
    const std::vector<double> samples = SoundFiles::read(output).channel(channel);
    return {samples.begin(), samples.end()};
}

// Sample by sample. A busy server connects a program a few of its cycles late.
bool tst_AudioSession::matches(const std::vector<float>& heard, const std::vector<float>& expected,
                               float tolerance)
{
    const auto isNear = [tolerance](float a, float b) { return std::abs(a - b) <= tolerance; };
    constexpr std::size_t certain = 64;
    constexpr std::size_t latest = 4 * JackServer::block;
    if (expected.size() < latest + certain || heard.size() + latest < expected.size())
        return false;
    std::size_t start = 0;
    while (start < latest && !std::equal(heard.begin(), heard.begin() + certain,
                                         expected.begin() + std::ptrdiff_t(start), isNear))
        start += JackServer::block;
    for (std::size_t i = start; i < expected.size(); ++i) {
        if (!isNear(heard[i - start], expected[i])) {
            qInfo("sample %zu: %g instead of %g", i, double(heard[i - start]), double(expected[i]));
            return false;
        }
    }
    return true;
}

void tst_AudioSession::soundsAsRendered_data()
{
    QTest::addColumn<QList<int>>("settings");
    QTest::newRow("flat") << QList<int>{};
    QTest::newRow("equalized") << QList<int>{3, 60, 7, -45, 11, 80, 15, -120, 23, 60, 26, -30};
}

// Sample by sample, and without a gap.
void tst_AudioSession::soundsAsRendered()
{
    QFETCH(const QList<int>, settings);
    HostMemory::Values values = m_memory->values(0);
    for (qsizetype i = 0; i < settings.size(); i += 2)
        values[static_cast<std::size_t>(settings[i]) - 1] = settings[i + 1];
    m_memory->write(0, values);
    m_mixer->follow(*m_mixerModel);
    const QString file = writeNoise("in.wav", 50000);
    QVERIFY2(m_session->openFile(file), qPrintable(m_session->errorText()));
    QSignalSpy finished(m_session.get(), &AudioSession::finished);
    QVERIFY2(m_session->play(), qPrintable(m_session->errorText()));
    QCOMPARE(m_session->state(), AudioSession::State::Playing);
    QCOMPARE(m_session->deviceRate(), 48000);
    QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, 30000);
    QCOMPARE(m_session->state(), AudioSession::State::Stopped);
    QCOMPARE(m_session->position(), 0.0);
    QVERIFY(matches(m_device->channel(0), rendered(file, 0)));
    QVERIFY(matches(m_device->channel(1), rendered(file, 1)));
}

void tst_AudioSession::oneChannelIsHeardOnBothSides()
{
    const QString file = writeNoise("mono.wav", 20000, 1);
    QVERIFY(m_session->openFile(file));
    QVERIFY2(m_session->play(), qPrintable(m_session->errorText()));
    QTRY_VERIFY_WITH_TIMEOUT(m_device->heard() > 20000, 30000);
    QVERIFY(matches(m_device->channel(0), rendered(file, 0)));
    QCOMPARE(m_device->channel(1), m_device->channel(0));
}

void tst_AudioSession::convertsTheFilesRate()
{
    SoundFiles::write(path("slow.wav"), Sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 44100, 1,
                                              SoundFiles::sine(1000.0, 44100, 44100)});
    QVERIFY(m_session->openFile(path("slow.wav")));
    QCOMPARE(m_session->duration(), 1.0);
    QCOMPARE(m_session->expectedRate(), 48000);
    QSignalSpy finished(m_session.get(), &AudioSession::finished);
    QVERIFY(m_session->play());
    QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, 30000);
    const std::vector<float> heard = m_device->channel(0);
    const auto silent = [](float sample) { return sample == 0.0F; };
    const auto end = std::find_if_not(heard.rbegin(), heard.rend(), silent).base() - heard.begin();
    QVERIFY2(std::abs(end - 48000) < 50, qPrintable(QString::number(end)));
    double real = 0.0;
    double imaginary = 0.0;
    for (std::size_t i = 12000; i < 36000; ++i) {
        const double angle = 2.0 * M_PI * 1000.0 * static_cast<double>(i) / 48000.0;
        real += double(heard[i]) * std::cos(angle);
        imaginary += double(heard[i]) * std::sin(angle);
    }
    const double amplitude = std::hypot(real, imaginary) / 12000.0;
    QVERIFY2(std::abs(amplitude - 0.25) < 1e-3, qPrintable(QString::number(amplitude)));
}

void tst_AudioSession::loops()
{
    const QString file = writeNoise("short.wav", 7001);
    m_session->setLooping(true);
    QVERIFY(m_session->openFile(file));
    QVERIFY(m_session->play());
    QTRY_VERIFY_WITH_TIMEOUT(m_device->heard() > 4 * 7001, 30000);
    QVERIFY(m_session->position() < m_session->duration());
    m_session->stop();
    const std::vector<float> once = rendered(file, 0);
    std::vector<float> expected;
    for (int i = 0; i < 4; ++i)
        expected.insert(expected.end(), once.begin(), once.end());
    QVERIFY(matches(m_device->channel(0), expected));
}

void tst_AudioSession::stopsAndGoesOn()
{
    QVERIFY(m_session->openFile(writeNoise("in.wav", 480000)));
    QSignalSpy states(m_session.get(), &AudioSession::stateChanged);
    QSignalSpy positions(m_session.get(), &AudioSession::positionChanged);
    QVERIFY(m_session->play());
    QTRY_VERIFY_WITH_TIMEOUT(positions.count() >= 3, 30000);
    m_session->stop();
    QCOMPARE(states.count(), 2);
    const double stopped = m_session->position();
    QVERIFY(stopped > 0.0 && stopped < 10.0);
    QCOMPARE(m_session->deviceRate(), 0);
    m_device->clear();
    QVERIFY(m_session->play());
    QTRY_VERIFY_WITH_TIMEOUT(m_device->heard() > 2000, 30000);
    const std::vector<double> file = SoundFiles::read(path("in.wav")).channel(0);
    const auto start = static_cast<std::ptrdiff_t>(std::lround(stopped * 48000));
    QVERIFY(matches(m_device->channel(0), {file.begin() + start, file.begin() + start + 2000}));
}

void tst_AudioSession::goesToAPosition()
{
    QVERIFY(m_session->openFile(writeNoise("in.wav", 96000)));
    m_session->setPosition(1.5);
    QCOMPARE(m_session->position(), 1.5);
    QVERIFY(m_session->play());
    QTRY_VERIFY_WITH_TIMEOUT(m_device->heard() > 2000, 30000);
    const std::vector<double> file = SoundFiles::read(path("in.wav")).channel(0);
    QVERIFY(matches(m_device->channel(0), {file.begin() + 72000, file.begin() + 74000}));
    m_session->stop();
    m_session->setPosition(99.0);
    QCOMPARE(m_session->position(), 2.0);
    m_session->setPosition(-1.0);
    QCOMPARE(m_session->position(), 0.0);
}

void tst_AudioSession::followsTheMemory()
{
    SoundFiles::write(path("in.wav"), Sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 1,
                                            std::vector<double>(480000, 0.25)});
    QVERIFY(m_session->openFile(path("in.wav")));
    QVERIFY(m_session->play());
    QTRY_VERIFY_WITH_TIMEOUT(m_device->heard() > 2000, 30000);
    HostMemory::Values values = m_memory->values(0);
    values[25] = 60;
    m_memory->write(0, values);
    QTRY_VERIFY_WITH_TIMEOUT(std::abs(m_device->channel(1).back() - 0.498816F) < 1e-4F, 5000);
}

// More come in than go out.
void tst_AudioSession::playsWhatComesIn_data()
{
    QTest::addColumn<int>("input");
    for (const int input : {1, 2, 3, 4})
        QTest::addRow("input %d", input) << input;
}

void tst_AudioSession::playsWhatComesIn()
{
    QFETCH(const int, input);
    std::vector<float> given(48000);
    const std::vector<double> noise = SoundFiles::noise(given.size());
    std::copy(noise.begin(), noise.end(), given.begin());
    m_device->play(given);
    HostMemory::Values values = m_memory->values(0);
    values[25] = -200;
    m_memory->write(0, values);
    m_memory->setStrip(0, StripParameter::Source, SourceInput1 + input - 1);
    m_mixer->follow(*m_mixerModel);
    m_session->setDevice(settings(true));
    QVERIFY2(m_session->play(), qPrintable(m_session->errorText()));
    QTRY_VERIFY_WITH_TIMEOUT(m_device->heard() > 20000, 30000);
    QCOMPARE(m_session->position(), 0.0);
    m_session->stop();
    const std::vector<float> heard = m_device->channel(0);
    const float part = 10.0F * static_cast<float>(input);
    std::size_t start = 0;
    while (start < given.size() && std::abs(heard[1000] - given[start] / part) > 1e-8F)
        ++start;
    for (std::size_t i = 0; i < 10000; ++i)
        QVERIFY(std::abs(heard[1000 + i] - given[(start + i) % given.size()] / part) < 1e-7F);
}

void tst_AudioSession::saysWhatCannotBePlayed()
{
    QSignalSpy errors(m_session.get(), &AudioSession::failed);
    QVERIFY(!m_session->play());
    QCOMPARE(m_session->errorText(), QStringLiteral("There is no sound file to play."));
    QVERIFY(!m_session->openFile(path("nowhere.wav")));
    QCOMPARE(m_session->errorText(),
             QStringLiteral("The sound file %1 cannot be read: No such file or directory.")
                 .arg(path("nowhere.wav")));
    QVERIFY(m_session->openFile(writeNoise("in.wav", 20000)));
    QCOMPARE(m_session->errorText(), QString());
    m_session->setDevice({QStringLiteral("nothing like it"), 0, 0, false});
    QVERIFY(!m_session->play());
    QCOMPARE(m_session->errorText(), QStringLiteral("There is no sound device \"nothing like it\"; "
                                                    "--devices shows them all."));
    m_session->setDevice({QStringLiteral("ears"), 44100, 0, false});
    QVERIFY(!m_session->play());
    QCOMPARE(m_session->errorText(), QStringLiteral("The sound device jack:ears cannot be used: it "
                                                    "does not run at 44100 Hz."));
    QCOMPARE(errors.count(), 4);
    QCOMPARE(m_session->state(), AudioSession::State::Stopped);
    m_session->setDevice(settings());
    QVERIFY(m_session->play());
    QTRY_VERIFY_WITH_TIMEOUT(m_device->heard() > 10000, 30000);
}

void tst_AudioSession::saysThatAFileWasCutShort()
{
    const QString whole =
        SoundFiles::write(path("whole.flac"), Sound{SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 48000, 2,
                                                    SoundFiles::noise(200000)});
    const QByteArray bytes = SoundFiles::bytesOf(whole);
    SoundFiles::writeBytes(path("short.flac"), bytes.left(bytes.size() / 2));
    QVERIFY(m_session->openFile(path("short.flac")));
    QSignalSpy errors(m_session.get(), &AudioSession::failed);
    QVERIFY(m_session->play());
    QTRY_COMPARE_WITH_TIMEOUT(errors.count(), 1, 30000);
    QVERIFY(m_session->errorText().contains(QLatin1String("it is cut short")));
    QCOMPARE(m_session->state(), AudioSession::State::Stopped);
}

void tst_AudioSession::playUntilTheDeviceHangs()
{
    QVERIFY(m_session->openFile(writeNoise("in.wav", 480000)));
    m_session->setPatience(300);
    QVERIFY(m_session->play());
    QTRY_VERIFY_WITH_TIMEOUT(m_device->heard() > 2000, 30000);
    m_server->freeze();
    QTRY_COMPARE_WITH_TIMEOUT(m_session->state(), AudioSession::State::Stalled, 30000);
}

void tst_AudioSession::saysThatTheDeviceHangs()
{
    playUntilTheDeviceHangs();
    if (QTest::currentTestFailed())
        return;
    QCOMPARE(m_session->errorText(),
             QStringLiteral("The sound device jack:ears takes no sound at the moment."));
    QCOMPARE(m_session->deviceRate(), 48000);
    m_server->thaw();
    QTRY_COMPARE_WITH_TIMEOUT(m_session->state(), AudioSession::State::Playing, 30000);
    QCOMPARE(m_session->errorText(), QString());
    const std::size_t heard = m_device->heard();
    QTRY_VERIFY_WITH_TIMEOUT(m_device->heard() > heard + 2000, 30000);
}

void tst_AudioSession::leavesADeviceThatHangs()
{
    playUntilTheDeviceHangs();
    if (QTest::currentTestFailed())
        return;
    m_session->stop();
    QCOMPARE(m_session->state(), AudioSession::State::Stopped);
    QVERIFY(!m_session->play());
    QCOMPARE(m_session->errorText(),
             QStringLiteral("No sound device can be used while jack:ears does not answer."));
    m_server->thaw();
    QTRY_VERIFY_WITH_TIMEOUT(m_session->play(), 30000);
    const std::size_t heard = m_device->heard();
    QTRY_VERIFY_WITH_TIMEOUT(m_device->heard() > heard + 2000, 30000);
}

// The server dies while it plays; a new one is played on as if nothing had happened. Last, because
// the device's own client dies with the server.
void tst_AudioSession::outlivesItsDevice()
{
    QVERIFY(m_session->openFile(writeNoise("in.wav", 480000)));
    QSignalSpy errors(m_session.get(), &AudioSession::failed);
    QVERIFY(m_session->play());
    QTRY_VERIFY_WITH_TIMEOUT(m_device->heard() > 2000, 30000);
    m_server->kill();
    QTRY_COMPARE_WITH_TIMEOUT(errors.count(), 1, 30000);
    QCOMPARE(m_session->errorText(),
             QStringLiteral("The sound device jack:ears cannot be used: it is gone."));
    QCOMPARE(m_session->state(), AudioSession::State::Stopped);
    QVERIFY(!m_session->play());
    m_device.reset();
    m_server = std::make_unique<JackServer>();
    QVERIFY2(m_server->isRunning(), qPrintable(m_server->errorText()));
    m_device = std::make_unique<JackDevice>("ears");
    QVERIFY(m_device->isOpen());
    QVERIFY2(m_session->play(), qPrintable(m_session->errorText()));
    QTRY_VERIFY_WITH_TIMEOUT(m_device->heard() > 2000, 30000);
}

QTEST_GUILESS_MAIN(tst_AudioSession)

#include "tst_AudioSession.moc"
