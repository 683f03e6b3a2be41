// SPDX-License-Identifier: GPL-3.0-or-later
// Runs "zolta-host --render" itself.
#include "tests/host/audio/SoundFiles.h"
#include "tests/hosting/StateBytes.h"
#include "tests/support/ProgramRunner.h"
#include "tests/support/TestObject.h"

#include <QDir>
#include <QTemporaryDir>

#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using SoundFiles::Sound;

class tst_zolta_render : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void needsNoDisplayAndNoPlugin();
    void stateAndSettingsCountAsInTheEditor();
    void takesSettingsFromASession_data();
    void takesSettingsFromASession();
    void saysWhatIsWrong_data();
    void saysWhatIsWrong();
    void warnsAboutClippingAndDamage();
    void saysThatTheDiskIsFull();
    void replacesOnlyWhatItMay_data();
    void replacesOnlyWhatItMay();
    void controlCLeavesNothing();
    void showsProgressOnATerminalOnly();

private:
    ProgramRunner program() const { return {QStringLiteral(HOST_PROGRAM), m_folder->path()}; }
    ProgramResult run(const QStringList& arguments) const { return program().run(arguments); }
    QString path(const char* name) const { return m_folder->filePath(QLatin1String(name)); }
    bool writesInFolder(const QProcess& process) const;
    QString writeNoise(const char* name, std::size_t frames = 20000) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_zolta_render::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
}

QString tst_zolta_render::writeNoise(const char* name, std::size_t frames) const
{
    return SoundFiles::write(path(name), Sound{SF_FORMAT_WAV | SF_FORMAT_PCM_16, 48000, 2,
                                               SoundFiles::noise(2 * frames)});
}

// The file that is being written may have no name yet.
bool tst_zolta_render::writesInFolder(const QProcess& process) const
{
    const QDir open(u"/proc/%1/fd"_s.arg(process.processId()));
    for (const QFileInfo& info : open.entryInfoList(QDir::AllEntries | QDir::System)) {
        const QString target = info.symLinkTarget();
        if (target.startsWith(m_folder->path() + QLatin1Char('/')) &&
            !target.endsWith("/in.wav"_L1))
            return true;
    }
    return false;
}

// A pipe sees no progress.
void tst_zolta_render::needsNoDisplayAndNoPlugin()
{
    writeNoise("in.wav");
    const ProgramResult result = run({u"--render"_s, u"in.wav"_s, u"out.flac"_s});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.output, u"Wrote out.flac: 0.4 seconds, 48000 Hz, channels: 2.\n"_s);
    QCOMPARE(result.code, 0);
    QCOMPARE(SoundFiles::read(path("out.flac")).samples, SoundFiles::read(path("in.wav")).samples);
}

// The editor saves a state, and what it lists for that state renders alike.
void tst_zolta_render::stateAndSettingsCountAsInTheEditor()
{
    writeNoise("in.wav");
    QStringList settings;
    for (int number = 1; number <= 27; ++number) {
        const int band = (number - 1) / 4;
        const bool gain = number % 4 == 3 && number < 25;
        settings << u"--set"_s
                 << u"fx_rackfx_prm_%1=@%2"_s.arg(number).arg(gain ? 9 * band - 20 : 1);
    }
    for (const char* setting :
         {"fx_rackfx_prm_2=@300", "fx_rackfx_prm_6=@500", "fx_rackfx_prm_10=@644",
          "fx_rackfx_prm_14=@777", "fx_rackfx_prm_18=@901", "fx_rackfx_prm_22=@1003",
          "fx_rackfx_prm_9=@333", "fx_rackfx_prm_21=@2"})
        settings << u"--set"_s << QString::fromLatin1(setting);
    const QStringList render = {u"--render"_s, u"in.wav"_s};
    const ProgramResult saved = run(settings + QStringList{u"--save-state"_s, u"a.vstpreset"_s});
    QCOMPARE(saved.errors, QString());
    QCOMPARE(saved.code, 0);
    QCOMPARE(run(render + QStringList{u"state.wav"_s, u"--state"_s, u"a.vstpreset"_s}).errors,
             QString());
    QCOMPARE(run(render + QStringList(u"set.wav"_s) + settings).errors, QString());
    QCOMPARE(SoundFiles::bytesOf(path("state.wav")), SoundFiles::bytesOf(path("set.wav")));
    QVERIFY(SoundFiles::bytesOf(path("set.wav")) != SoundFiles::bytesOf(path("in.wav")));
}

void tst_zolta_render::takesSettingsFromASession_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<int>("level"); // dB
    QTest::newRow("first channel") << "" << -6;
    QTest::newRow("second of a pair") << "--channel 1" << -6;
    QTest::newRow("mono channel") << "--channel 3" << -12;
    QTest::newRow("setting over it") << "--channel 3 --set fx_rackfx_prm_26=-20" << -20;
    QTest::newRow("state over it") << "--channel 3 --state flat.state" << 0;
}

void tst_zolta_render::takesSettingsFromASession()
{
    QFETCH(const QString, words);
    QFETCH(const int, level);
    writeNoise("in.wav");
    const QByteArray bytes =
        R"({"zolta-session": 1, "channels": [)"
        R"({"equalizer": {"Output level": "-6.0"}}, {"equalizer": {"Output level": "+3.0"}},)"
        R"({"strip": {"stereo": "Mono"}}, {"equalizer": {"Output level": "-12.0"}}]})";
    SoundFiles::writeBytes(path("s.json"), bytes);
    QCOMPARE(run({u"--list"_s, u"--save-state"_s, u"flat.state"_s}).code, 0);
    const ProgramResult result =
        run(u"--render in.wav out.wav --float --session s.json %1"_s.arg(words).split(
            QLatin1Char(' '), Qt::SkipEmptyParts));
    QCOMPARE(result.errors, QString());
    const std::vector<double> before = SoundFiles::read(path("in.wav")).samples;
    const std::vector<double> after = SoundFiles::read(path("out.wav")).samples;
    QCOMPARE(after.size(), before.size());
    for (std::size_t i = 0; i < before.size(); ++i)
        QVERIFY(std::abs(after[i] - before[i] * std::pow(10.0, level / 20.0)) < 1e-6);
    QCOMPARE(SoundFiles::bytesOf(path("s.json")), bytes);
}

void tst_zolta_render::saysWhatIsWrong_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* words, const char* expected) {
        QTest::newRow(words) << QString::fromLatin1(words) << QString::fromLatin1(expected);
    };
    row("nowhere.wav out.wav",
        "The sound file nowhere.wav cannot be read: No such file or directory.");
    row("in.wav in.wav", "The sound file in.wav cannot be written: it is also the input file.");
    row("in.wav no/out.wav",
        "The sound file no/out.wav cannot be written: No such file or directory.");
    row("in.wav folder.wav", "The sound file folder.wav cannot be written: it is a folder.");
    row("in.wav /proc/out.wav",
        "The sound file /proc/out.wav cannot be written: No such file or directory.");
    row("in.wav out.wav --state bad.state",
        "The state file bad.state is cut short: it holds 100 of the 116 bytes of a state.");
    row("in.wav out.wav --session nowhere.json",
        "The session nowhere.json cannot be read: No such file or directory.");
    row("in.wav out.wav --session bad.json",
        "The session bad.json is damaged. The file is not a session file.");
    row("in.wav out.wav --session four.json --channel 4",
        "--channel must be a whole number from 0 to 3, not \"4\": the mixer has 4 channels.");
    row("many.wav out.flac",
        "The sound file out.flac cannot be written: its format does not take 20 channels at 48000 "
        "Hz.");
    row("fast.wav out.ogg",
        "The sound file out.ogg cannot be written: its format does not take 1 channels at 384000 "
        "Hz.");
    row("emptyfast.wav out.ogg",
        "The sound file out.ogg cannot be written: its format does not take 1 channels at 384000 "
        "Hz.");
    row("hundreds.wav out.ogg",
        "The sound file out.ogg cannot be written: its format does not take 300 channels at 48000 "
        "Hz.");
}

void tst_zolta_render::saysWhatIsWrong()
{
    QFETCH(const QString, words);
    QFETCH(const QString, expected);
    writeNoise("in.wav");
    SoundFiles::write(path("many.wav"),
                      Sound{SF_FORMAT_WAV | SF_FORMAT_PCM_16, 48000, 20, SoundFiles::noise(2000)});
    SoundFiles::write(path("fast.wav"),
                      Sound{SF_FORMAT_WAV | SF_FORMAT_PCM_16, 384000, 1, SoundFiles::noise(2000)});
    SoundFiles::write(path("emptyfast.wav"),
                      Sound{SF_FORMAT_WAV | SF_FORMAT_PCM_16, 384000, 1, {}});
    SoundFiles::write(path("hundreds.wav"),
                      Sound{SF_FORMAT_WAV | SF_FORMAT_PCM_16, 48000, 300, SoundFiles::noise(9000)});
    QVERIFY(QDir(m_folder->path()).mkdir(u"folder.wav"_s));
    SoundFiles::writeBytes(path("bad.state"), StateBytes::state().left(100));
    SoundFiles::writeBytes(path("bad.json"), "{}");
    SoundFiles::writeBytes(path("four.json"), R"({"zolta-session": 2, "mixer": {"channels": 4}})");
    const ProgramResult result = run(QStringList(u"--render"_s) + words.split(QLatin1Char(' ')));
    QCOMPARE(result.errors, u"zolta-host: %1\n"_s.arg(expected));
    QCOMPARE(result.code, 1);
    QCOMPARE(SoundFiles::bytesOf(path("bad.json")), "{}"_ba);
}

// Names are said as they are, also where they look like gaps in a sentence.
void tst_zolta_render::warnsAboutClippingAndDamage()
{
    Sound sound{SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 2, std::vector<double>(2000, 0.25)};
    sound.samples[2 * 700 + 1] = std::nan("");
    sound.samples[2 * 900] = 1.5;
    SoundFiles::write(path("in%1%2%3.wav"), sound);
    const ProgramResult result = run({u"--render"_s, u"in%1%2%3.wav"_s, u"out%1%2%3.flac"_s});
    QCOMPARE(result.code, 0);
    QCOMPARE(result.errors,
             "zolta-host: Warning: Samples in in%1%2%3.wav that are NaN or larger than 1e+15 and "
             "count as 0: 1; the first is in frame 700 of channel 1.\n"
             "zolta-host: Warning: Clipped samples in out%1%2%3.flac: 1; a lower output level or "
             "--float avoids clipping.\n"_L1);
}

// A limit on the size of files stands in for a disk that is full.
void tst_zolta_render::saysThatTheDiskIsFull()
{
    writeNoise("in.wav", 200000);
    SoundFiles::writeBytes(path("out.wav"), "old");
    QProcess process;
    program().prepare(&process);
    process.setArguments({u"--render"_s, u"in.wav"_s, u"out.wav"_s, u"--overwrite"_s});
    process.setChildProcessModifier([] {
        const rlimit limit = {300000, 300000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ::signal(SIGXFSZ, SIG_IGN);
    });
    process.start();
    QVERIFY(process.waitForFinished(120000));
    QCOMPARE(QString::fromUtf8(process.readAllStandardError()),
             u"zolta-host: The sound file out.wav cannot be written: File too "
             "large.\n"_s);
    QCOMPARE(process.exitCode(), 1);
    QCOMPARE(SoundFiles::bytesOf(path("out.wav")), "old"_ba);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 2);
}

void tst_zolta_render::replacesOnlyWhatItMay_data()
{
    QTest::addColumn<QByteArray>("answer"); // on a terminal; empty: there is none
    QTest::addColumn<bool>("overwrite");
    QTest::addColumn<bool>("replaced");
    QTest::newRow("no terminal") << QByteArray() << false << false;
    QTest::newRow("no terminal, told to") << QByteArray() << true << true;
    QTest::newRow("yes") << "y\n"_ba << false << true;
    QTest::newRow("no") << "n\n"_ba << false << false;
    QTest::newRow("nothing") << "\n"_ba << false << false;
}

void tst_zolta_render::replacesOnlyWhatItMay()
{
    QFETCH(const QByteArray, answer);
    QFETCH(const bool, overwrite);
    QFETCH(const bool, replaced);
    writeNoise("in.wav");
    SoundFiles::writeBytes(path("out.wav"), "old");
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
    QVERIFY(terminal >= 0 && ::grantpt(terminal) == 0 && ::unlockpt(terminal) == 0);
    const int line = ::open(::ptsname(terminal), O_RDWR | O_NOCTTY);
    QProcess process;
    program().prepare(&process);
    QStringList arguments{u"--render"_s, u"in.wav"_s, u"out.wav"_s};
    process.setArguments(overwrite ? arguments << u"--overwrite"_s : arguments);
    if (!answer.isEmpty()) {
        process.setChildProcessModifier([line] {
            ::dup2(line, STDIN_FILENO);
            ::dup2(line, STDERR_FILENO);
        });
        QCOMPARE(::write(terminal, answer.constData(), static_cast<std::size_t>(answer.size())),
                 ssize_t(answer.size()));
    }
    process.start();
    QVERIFY(process.waitForFinished(120000));
    ::close(line);
    ::close(terminal);
    QCOMPARE(process.exitCode(), replaced ? 0 : 1);
    QCOMPARE(SoundFiles::bytesOf(path("out.wav")) == "old"_ba, !replaced);
    if (answer.isEmpty() && !replaced)
        QCOMPARE(QString::fromUtf8(process.readAllStandardError()),
                 u"zolta-host: The file out.wav exists and is left as it is. Choose another name, "
                 "or use --overwrite to replace it.\n"_s);
}

void tst_zolta_render::controlCLeavesNothing()
{
    writeNoise("in.wav", 20000000);
    QProcess process;
    program().prepare(&process);
    process.setArguments({u"--render"_s, u"in.wav"_s, u"out.wav"_s});
    process.start();
    QTRY_VERIFY(writesInFolder(process));
    QCOMPARE(::kill(static_cast<pid_t>(process.processId()), SIGINT), 0);
    QVERIFY(process.waitForFinished(120000));
    QCOMPARE(process.exitStatus(), QProcess::CrashExit);
    QCOMPARE(process.exitCode(), SIGINT);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList(u"in.wav"_s));
}

void tst_zolta_render::showsProgressOnATerminalOnly()
{
    writeNoise("in.wav");
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
    QVERIFY(terminal >= 0 && ::grantpt(terminal) == 0 && ::unlockpt(terminal) == 0);
    const int line = ::open(::ptsname(terminal), O_RDWR | O_NOCTTY);
    QProcess process;
    program().prepare(&process);
    process.setArguments({u"--render"_s, u"in.wav"_s, u"out.wav"_s});
    process.setChildProcessModifier([line] { ::dup2(line, STDERR_FILENO); });
    process.start();
    QVERIFY(process.waitForFinished(120000));
    char bytes[4096] = {};
    const ssize_t count = ::read(terminal, bytes, sizeof bytes);
    ::close(line);
    ::close(terminal);
    const QByteArray shown(bytes, count);
    QVERIFY2(shown.startsWith("\r[") && shown.contains(" %"), shown.constData());
    QVERIFY2(shown.endsWith("\r\033[K"), shown.constData());
    QCOMPARE(process.exitCode(), 0);
}

QTEST_GUILESS_MAIN(tst_zolta_render)

#include "tst_zolta_render.moc"
