// SPDX-License-Identifier: GPL-3.0-or-later
// Runs "zolta-host --audio" and its kin against a sound server of its own.
#include "tests/host/audio/JackServer.h"
#include "tests/host/audio/SoundFiles.h"
#include "tests/support/TestObject.h"

#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using SoundFiles::Sound;

class tst_zolta_audio : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void listsDevices();
    void playsBesideTheWindows();
    void playsLive();
    void saysThatTheFileIsMissing();
    void missingDeviceLeavesTheWindows();
    void playsOnANewServer();

private:
    void start(const QStringList& arguments);
    bool runsUntilTerminated();
    QString errors();
    bool hearsTheFile(int side) const;
    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder;
    std::unique_ptr<JackServer> m_server;
    std::unique_ptr<JackEars> m_ears;
    std::unique_ptr<QProcess> m_program;
    QString m_errors;
};

void tst_zolta_audio::initTestCase()
{
    m_server = std::make_unique<JackServer>();
    QVERIFY2(m_server->isRunning(), qPrintable(m_server->errorText()));
    Sound sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 2, SoundFiles::noise(960000)};
    sound.samples.front() = 0.25;
    SoundFiles::write(path("in.wav"), sound);
}

void tst_zolta_audio::init()
{
    TestObject::init();
    m_ears = std::make_unique<JackEars>("ears");
    QVERIFY(m_ears->isOpen());
    m_errors.clear();
}

void tst_zolta_audio::cleanup()
{
    if (m_program) {
        m_program->kill();
        m_program->waitForFinished();
    }
    m_program.reset();
    m_ears.reset();
}

void tst_zolta_audio::start(const QStringList& arguments)
{
    m_program = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    // This platform complains about every window that cannot have the size that it asks for.
    environment.insert(u"QT_LOGGING_RULES"_s, u"default.warning=false"_s);
    for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"})
        environment.insert(QLatin1String(name), m_folder.path());
    m_program->setProcessEnvironment(environment);
    m_program->setWorkingDirectory(m_folder.path());
    m_program->start(QStringLiteral(HOST_PROGRAM), arguments);
}

// A program that an error has ended would not end well any more.
bool tst_zolta_audio::runsUntilTerminated()
{
    m_program->terminate();
    return m_program->waitForFinished() && m_program->exitStatus() == QProcess::NormalExit &&
           m_program->exitCode() == 0;
}

QString tst_zolta_audio::errors()
{
    m_errors += QString::fromUtf8(m_program->readAllStandardError());
    return m_errors;
}

void tst_zolta_audio::listsDevices()
{
    start({u"--devices"_s});
    QVERIFY(m_program->waitForFinished());
    QCOMPARE(m_program->exitCode(), 0);
    const QString output = QString::fromUtf8(m_program->readAllStandardOutput());
    QVERIFY2(output.contains("jack:ears\t2\t4\t48000\t"_L1), qPrintable(output));
    QVERIFY2(output.contains("jack:system\t"_L1), qPrintable(output));
    QCOMPARE(errors(), QString());
}

// The levels make the difference from the file known without an equalizer of the test's own. A
// cycle that a busy machine misses is a gap: then it is played once more.
void tst_zolta_audio::playsBesideTheWindows()
{
    bool isSame = false;
    for (int attempt = 0; attempt < 3 && !isSame; ++attempt) {
        cleanup();
        init();
        start({u"--audio"_s, u"in.wav"_s, u"--device"_s, u"ears"_s, u"--set"_s,
               u"fx_rackfx_prm_26=-20"_s});
        QTRY_VERIFY2_WITH_TIMEOUT(m_ears->heard() > 20000, qPrintable(errors()), 30000);
        QCOMPARE(m_program->state(), QProcess::Running);
        QCOMPARE(errors(), QString());
        isSame = hearsTheFile(0) && hearsTheFile(1);
    }
    QVERIFY(isSame);
}

bool tst_zolta_audio::hearsTheFile(int side) const
{
    const std::vector<float> heard = m_ears->channel(side);
    const std::vector<double> file = SoundFiles::read(path("in.wav")).channel(side);
    return std::equal(heard.begin(), heard.begin() + 20000, file.begin(),
                      [](float a, double b) { return std::abs(double(a) - b / 10.0) < 1e-6; });
}

void tst_zolta_audio::playsLive()
{
    m_ears.reset();
    m_ears = std::make_unique<JackEars>("ears", std::vector<float>(100, 0.5F));
    start({u"--live"_s, u"--device"_s, u"ears"_s, u"--block"_s, u"256"_s, u"--set"_s,
           u"fx_rackfx_prm_25=+6"_s});
    QTRY_VERIFY2_WITH_TIMEOUT(m_ears->heard() > 10000, qPrintable(errors()), 30000);
    QVERIFY(std::abs(m_ears->channel(0)[9999] - 0.9976312F) < 1e-4F);
    QVERIFY(std::abs(m_ears->channel(1)[9999] - 0.4988156F) < 1e-4F);
    QCOMPARE(errors(), QString());
}

void tst_zolta_audio::saysThatTheFileIsMissing()
{
    start({u"--audio"_s, u"nowhere.wav"_s});
    QVERIFY(m_program->waitForFinished());
    QCOMPARE(m_program->exitCode(), 1);
    QCOMPARE(errors(), u"zolta-host: The sound file nowhere.wav cannot be read: No "
                       "such file or directory.\n"_s);
}

void tst_zolta_audio::missingDeviceLeavesTheWindows()
{
    start({u"--audio"_s, u"in.wav"_s, u"--device"_s, u"nothing"_s});
    const QString expected =
        u"zolta-host: There is no sound device \"nothing\"; --devices shows them all.\n"_s;
    QTRY_COMPARE_WITH_TIMEOUT(errors(), expected, 30000);
    QVERIFY(runsUntilTerminated());
}

void tst_zolta_audio::playsOnANewServer()
{
    start({u"--audio"_s, u"in.wav"_s, u"--loop"_s, u"--device"_s, u"ears"_s});
    QTRY_VERIFY2_WITH_TIMEOUT(m_ears->heard() > 2000, qPrintable(errors()), 30000);
    m_server->kill();
    m_ears.reset();
    QTRY_VERIFY2_WITH_TIMEOUT(errors().endsWith(QLatin1String(
                                  "zolta-host: The sound device jack:ears was disconnected. It "
                                  "plays on as soon as it is back.\n")),
                              qPrintable(m_errors), 30000);
    m_server = std::make_unique<JackServer>();
    QVERIFY2(m_server->isRunning(), qPrintable(m_server->errorText()));
    m_ears = std::make_unique<JackEars>("ears");
    QTRY_VERIFY2_WITH_TIMEOUT(m_ears->heard() > 2000, qPrintable(errors()), 30000);
    QVERIFY(runsUntilTerminated());
}

QTEST_GUILESS_MAIN(tst_zolta_audio)

#include "tst_zolta_audio.moc"
