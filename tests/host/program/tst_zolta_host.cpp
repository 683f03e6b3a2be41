// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the program itself.
#include "tests/hosting/StateBytes.h"
#include "tests/support/ProgramRunner.h"
#include "tests/support/TestFiles.h"
#include "tests/support/TestObject.h"

#include <QDir>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <csignal>

#include <unistd.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

class tst_zolta_host : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void helpGoesToStandardOutput();
    void listShowsEveryParameter();
    void listFollowsSettings();
    void loadsStateBeforeSettings();
    void savesAndLoadsBitForBit();
    void screenshotHasTheEditorsSize();
    void saysThatThereIsNoDisplay();
    void saysThatTheDisplayDoesNotAnswer();
    void saysItsVersion();
    void refusesAMissingPlugin();
    void refusesABadState();
    void refusesAPipeAsState();
    void refusesArguments();
    void refusesNamesThatAreNotText();
    void speaksTheLanguageAskedFor();
    void saysWhatCannotBeWritten();
    void picturesShowMetersOnDemand();
    void headlessRunsLeaveTheUsersFilesAlone();
    void headlessRunsListWhatIsHeardOfAChannel();
    void signalsEndAsTheLastWindowDoes_data();
    void signalsEndAsTheLastWindowDoes();
    void sessionOfAProgramThatCrashedIsFree();

private:
    ProgramResult run(const QStringList& arguments) const { return m_program.run(arguments); }
    ProgramResult runWithPlugin(const QStringList& arguments) const;
    ProgramResult runWithPlugin(const char* words, const QString& file = QString()) const;
    void startWindows(QProcess* process, const QStringList& arguments) const;
    static bool catches(const QProcess& process, int number);
    static QString end(QProcess* process, int number);
    static QString lowGainIn(const QString& file);
    QString path(const QString& name) const { return m_folder.filePath(name); }
    QString write(const QString& name, const QByteArray& bytes) const
    {
        return TestFiles::write(path(name), bytes);
    }
    static QString rawValue(const ProgramResult& result, int number);

    QTemporaryDir m_folder;
    ProgramRunner m_program{QStringLiteral(HOST_PROGRAM), m_folder.path()};
};

ProgramResult tst_zolta_host::runWithPlugin(const QStringList& arguments) const
{
    return run(
        QStringList{u"--plugin"_s, QStringLiteral(HOST_TEST_PLUGINS "/libhost_stand_in.so")} +
        arguments);
}

// Words separated by blanks, the last of which is the name of a file if there is one.
ProgramResult tst_zolta_host::runWithPlugin(const char* words, const QString& file) const
{
    const QStringList arguments = QString::fromLatin1(words).split(QLatin1Char(' '));
    return runWithPlugin(file.isEmpty() ? arguments : arguments + QStringList(file));
}

// With the signals as a desktop starts programs, however this test was started.
void tst_zolta_host::startWindows(QProcess* process, const QStringList& arguments) const
{
    m_program.prepare(process);
    process->setProcessEnvironment(m_program.offscreen());
    process->setArguments(
        QStringList{u"--plugin"_s, QStringLiteral(HOST_TEST_PLUGINS "/libhost_stand_in.so")} +
        arguments);
    process->setChildProcessModifier([] {
        for (const int number : {SIGINT, SIGTERM, SIGHUP})
            ::signal(number, SIG_DFL);
    });
    process->start();
}

bool tst_zolta_host::catches(const QProcess& process, int number)
{
    const QByteArray status = TestFiles::read(u"/proc/%1/status"_s.arg(process.processId()));
    const qsizetype place = status.indexOf("SigCgt:") + 7;
    const quint64 caught =
        status.mid(place, status.indexOf('\n', place) - place).trimmed().toULongLong(nullptr, 16);
    return (caught >> (number - 1) & 1) != 0;
}

// Sends a signal once the program is ready for it; what the program said before it ended well.
QString tst_zolta_host::end(QProcess* process, int number)
{
    if (!process->waitForStarted() ||
        !QTest::qWaitFor([&] { return catches(*process, number); }, 60000) ||
        ::kill(static_cast<pid_t>(process->processId()), number) != 0 ||
        !process->waitForFinished(60000))
        return u"no end"_s;
    if (process->exitStatus() != QProcess::NormalExit || process->exitCode() != 0)
        return u"a bad end: %1"_s.arg(process->exitCode());
    const QStringList lines =
        QString::fromLocal8Bit(process->readAllStandardError()).split(QLatin1Char('\n'));
    return lines.filter(u"zolta-host:"_s).join(QLatin1Char('\n'));
}

QString tst_zolta_host::lowGainIn(const QString& file)
{
    const QJsonObject saved = QJsonDocument::fromJson(TestFiles::read(file)).object();
    return saved[u"channels"_s][0][u"equalizer"_s][u"Low gain"_s].toString();
}

// The raw value of a parameter in the output of --list.
QString tst_zolta_host::rawValue(const ProgramResult& result, int number)
{
    return result.output.split(QLatin1Char('\n'))
        .value(number - 1)
        .split(QLatin1Char('\t'))
        .value(5);
}

void tst_zolta_host::helpGoesToStandardOutput()
{
    const ProgramResult result = run({u"--help"_s});
    QCOMPARE(result.code, 0);
    QVERIFY(result.output.startsWith("Usage: zolta-host [options] [SOUND]\n"_L1));
    QCOMPARE(result.errors, QString());
}

void tst_zolta_host::listShowsEveryParameter()
{
    const ProgramResult result = runWithPlugin("--list");
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.code, 0);
    QVERIFY(result.output.endsWith(QLatin1Char('\n')));
    const QStringList lines = result.output.chopped(1).split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 27);
    for (int i = 0; i < 27; ++i) {
        const QStringList fields = lines[i].split(QLatin1Char('\t'));
        QCOMPARE(fields.size(), 7);
        QCOMPARE(fields[0], u"fx_rackfx_prm_%1"_s.arg(i + 1));
        QCOMPARE(fields[1].toInt(), 257 + i);
        QVERIFY(fields[2].toInt() < fields[3].toInt());
        QVERIFY(fields[4].toInt() >= fields[2].toInt() && fields[4].toInt() <= fields[3].toInt());
        QCOMPARE(fields[5], fields[4]);
        QVERIFY(!fields[6].isEmpty());
    }
    QCOMPARE(lines[1], u"fx_rackfx_prm_2\t258\t0\t1200\t241\t241\t80"_s);
    QCOMPARE(lines[26], u"fx_rackfx_prm_27\t283\t0\t1\t0\t0\tClean"_s);
}

void tst_zolta_host::listFollowsSettings()
{
    const ProgramResult result =
        runWithPlugin("--channel 3 --list --set fx_rackfx_prm_2=1,25kHz "
                      "--set fx_rackfx_prm_3=@-15 --set fx_rackfx_prm_27=drive");
    QCOMPARE(result.code, 0);
    const QStringList lines = result.output.split(QLatin1Char('\n'));
    QCOMPARE(lines[1], u"fx_rackfx_prm_2\t258\t0\t1200\t241\t718\t1.25k"_s);
    QCOMPARE(lines[2], u"fx_rackfx_prm_3\t259\t-200\t200\t0\t-15\t-1.5"_s);
    QCOMPARE(lines[26], u"fx_rackfx_prm_27\t283\t0\t1\t0\t1\tDrive"_s);
}

void tst_zolta_host::loadsStateBeforeSettings()
{
    const QString file = write(u"half.state"_s, StateBytes::state(0.5F));
    const ProgramResult result = runWithPlugin("--list --set fx_rackfx_prm_2=@7 --state", file);
    QCOMPARE(result.code, 0);
    QCOMPARE(rawValue(result, 2), u"7"_s);
    QCOMPARE(rawValue(result, 3), u"0"_s);
    QCOMPARE(rawValue(result, 6), u"600"_s);
    QCOMPARE(rawValue(result, 5), u"250"_s);
}

void tst_zolta_host::savesAndLoadsBitForBit()
{
    const QString first = u"a.state"_s;
    const QString second = u"b.vstpreset"_s;
    QStringList settings;
    for (int number = 1; number <= 27; ++number)
        settings << u"--set"_s << u"fx_rackfx_prm_%1=@%2"_s.arg(number).arg(number % 2);
    settings << u"--set"_s << u"fx_rackfx_prm_6=@1111"_s;
    const ProgramResult saved =
        runWithPlugin(settings + QStringList{u"--list"_s, u"--save-state"_s, path(first)});
    QCOMPARE(saved.code, 0);
    const ProgramResult loaded = runWithPlugin({u"--channel"_s, u"5"_s, u"--state"_s, path(first),
                                                u"--list"_s, u"--save-state"_s, path(second)});
    QCOMPARE(loaded.code, 0);
    QCOMPARE(loaded.output, saved.output);
    const auto stateIn = [](const QByteArray& bytes) {
        return bytes.startsWith("VST3") ? bytes.mid(48, 116) : bytes;
    };
    QCOMPARE(stateIn(TestFiles::read(path(first))).size(), 116);
    QCOMPARE(stateIn(TestFiles::read(path(second))), stateIn(TestFiles::read(path(first))));
}

void tst_zolta_host::screenshotHasTheEditorsSize()
{
    const QString file = path(u"shot.png"_s);
    for (const auto& [scale, size] :
         {std::pair{"0.5", QSize(200, 120)}, {"1.33", QSize(532, 319)}, {"4", QSize(1600, 960)}}) {
        const ProgramResult result =
            runWithPlugin({u"--scale"_s, QLatin1String(scale), u"--screenshot"_s, file});
        QCOMPARE(result.code, 0);
        QCOMPARE(result.errors, QString());
        QCOMPARE(QImage(file).size(), size);
    }
}

void tst_zolta_host::speaksTheLanguageAskedFor()
{
    const auto errorIn = [this](const char* language) {
        const QString nowhere = path(u"nowhere.json"_s);
        return runWithPlugin(
                   {u"--language"_s, QLatin1String(language), u"--list"_s, u"--session"_s, nowhere})
            .errors;
    };
    QVERIFY(!errorIn("en").isEmpty());
    QVERIFY(errorIn("de") != errorIn("en"));
    QVERIFY(errorIn("ja") != errorIn("en"));
}

void tst_zolta_host::saysThatThereIsNoDisplay()
{
    const ProgramResult result = runWithPlugin(QStringList());
    QCOMPARE(result.code, 2);
    QCOMPARE(result.output, QString());
    QCOMPARE(result.errors, u"zolta-host: There is no display to open a window on (DISPLAY and "
                            "WAYLAND_DISPLAY are not set). Without one, use --list, --save-state "
                            "FILE, --screenshot FILE.png, --render IN OUT or --help.\n"_s);
}

void tst_zolta_host::saysThatTheDisplayDoesNotAnswer()
{
    QProcess process;
    m_program.prepare(&process);
    QProcessEnvironment environment = m_program.environment();
    environment.insert(u"DISPLAY"_s, u":6123"_s);
    process.setProcessEnvironment(environment);
    process.start();
    QVERIFY(process.waitForFinished(60000));
    const QString errors = QString::fromUtf8(process.readAllStandardError());
    QVERIFY2(errors.startsWith("zolta-host: No window can be opened: the display"_L1) &&
                 errors.count(u'\n') == 1,
             qPrintable(errors));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 2);
}

void tst_zolta_host::saysItsVersion()
{
    const ProgramResult version = run({u"--version"_s});
    QCOMPARE(version.output, u"zolta-host " ZOLTA_VERSION "\n"_s);
    QCOMPARE(version.code, 0);
    QCOMPARE(run({u"-h"_s}).output, run({u"--help"_s}).output);
}

void tst_zolta_host::refusesAMissingPlugin()
{
    const QString file = path(u"nowhere.so"_s);
    const ProgramResult result = run({u"--plugin"_s, file, u"--list"_s});
    QCOMPARE(result.code, 1);
    QCOMPARE(result.output, QString());
    QCOMPARE(result.errors, u"zolta-host: The plug-in %1 does not exist.\n"_s.arg(file));
}

void tst_zolta_host::refusesABadState()
{
    using namespace StateBytes;
    const QString file = write(u"bad.state"_s, presetOf(state(), QByteArray(32, '7')));
    const QString kept = write(u"kept.state"_s, "kept");
    const ProgramResult result =
        runWithPlugin({u"--state"_s, file, u"--list"_s, u"--save-state"_s, kept});
    QCOMPARE(result.code, 1);
    QCOMPARE(result.output, QString());
    QCOMPARE(result.errors, u"zolta-host: The state file %1 is a preset of another plug-in (class "
                            "77777777777777777777777777777777, not "
                            "56535464787042657175616C697A6572).\n"_s.arg(file));
    QCOMPARE(TestFiles::read(kept), "kept"_ba);
}

// Nobody writes to it: reading would never end.
void tst_zolta_host::refusesAPipeAsState()
{
    const QString pipe = path(u"pipe"_s);
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const ProgramResult result = runWithPlugin("--list --state", pipe);
    QCOMPARE(result.code, 1);
    QCOMPARE(result.errors, u"zolta-host: The state file %1 is not a regular file.\n"_s.arg(pipe));
}

void tst_zolta_host::refusesArguments()
{
    const ProgramResult result = runWithPlugin("--loud --list");
    QCOMPARE(result.code, 2);
    QCOMPARE(result.output, QString());
    QCOMPARE(result.errors, u"zolta-host: Unknown option 'loud'.\n"_s);
    QCOMPARE(runWithPlugin("more again --language de").errors,
             u"zolta-host: Eine Datei zu viel: „again“. Abspielen lässt sich eine "
             "Audiodatei, und --render nimmt zwei.\n"_s);
}

// As text, the name would be another file's.
void tst_zolta_host::refusesNamesThatAreNotText()
{
    const QString other = write(u"a\ufffd"_s, "another file");
    const QStringList words = {u"-c"_s, u"exec \"$0\" --save-state \"$(printf 'a\\377')\""_s,
                               QStringLiteral(HOST_PROGRAM)};
    const ProgramResult result = ProgramRunner(u"/bin/sh"_s, m_folder.path()).run(words);
    QCOMPARE(result.code, 2);
    QCOMPARE(result.errors, u"zolta-host: The argument \"a\ufffd\" is not valid "
                            "UTF-8. Rename the file, or use another one.\n"_s);
    QCOMPARE(TestFiles::read(other), "another file"_ba);
}

void tst_zolta_host::saysWhatCannotBeWritten()
{
    const QString nowhere = path(u"no/folder/file"_s);
    for (const QString& option : {u"--save-state"_s, u"--screenshot"_s}) {
        const ProgramResult result = runWithPlugin({option, nowhere});
        QCOMPARE(result.code, 1);
        QCOMPARE(result.errors, u"zolta-host: The file %1 cannot be written: No such file or "
                                "directory.\n"_s.arg(nowhere));
    }
}

// The stand-in draws its return meter as a white line along the top.
void tst_zolta_host::picturesShowMetersOnDemand()
{
    const auto lineOf = [this](const QString& name, const QStringList& arguments) {
        const ProgramResult result =
            runWithPlugin(arguments + QStringList{u"--screenshot"_s, path(name)});
        const QImage picture(path(name));
        int length = 0;
        while (result.code == 0 && length < picture.width() &&
               picture.pixelColor(length, 0) == QColor(Qt::white))
            ++length;
        return length;
    };
    const QString option = u"--meters"_s;
    const QString on = u"on"_s;
    QCOMPARE(lineOf(u"plain.png"_s, {}), 0);
    QCOMPARE(lineOf(u"off.png"_s, {option, u"off"_s}), 0);
    const int length = lineOf(u"on.png"_s, {option, on});
    QVERIFY2(length > 200 && length < 400, qPrintable(QString::number(length)));
    QCOMPARE(lineOf(u"again.png"_s, {option, on}), length);
    QCOMPARE(TestFiles::read(path(u"again.png"_s)), TestFiles::read(path(u"on.png"_s)));
    const int quiet =
        lineOf(u"quiet.png"_s, {option, on, u"--set"_s, u"fx_rackfx_prm_26=-12.7 dB"_s});
    QVERIFY2(std::abs(length - quiet - 40) <= 1, qPrintable(QString::number(quiet)));
}

void tst_zolta_host::headlessRunsLeaveTheUsersFilesAlone()
{
    for (const QString& name : {u"zolta/editors.json"_s, u"zolta-host/session.json"_s}) {
        const QString file = write(name, "damaged");
        const ProgramResult result = runWithPlugin("--list");
        QCOMPARE(result.code, 0);
        QCOMPARE(result.errors, QString());
        QCOMPARE(TestFiles::read(file), "damaged"_ba);
        QVERIFY(QFile::remove(file));
        QCOMPARE(runWithPlugin("--list").code, 0);
        QVERIFY(!QFile::exists(file));
    }
}

// The second channel of a pair sounds as the first one is set.
void tst_zolta_host::headlessRunsListWhatIsHeardOfAChannel()
{
    const QByteArray bytes =
        "{\"zolta-session\": 1, \"channels\": [{\"equalizer\": {\"Low gain\": \"+7.5\"}}, "
        "{\"equalizer\": {\"Low gain\": \"-3.0\"}}]}";
    const QString file = write(u"pair.json"_s, bytes);
    for (const char* words : {"--list --session", "--list --channel 1 --session"})
        QCOMPARE(rawValue(runWithPlugin(words, file), 3), u"75"_s);
    QCOMPARE(rawValue(runWithPlugin("--list --channel 1 --mono --session", file), 3), u"-30"_s);
    QCOMPARE(TestFiles::read(file), bytes);

    const QString big =
        write(u"big.json"_s, R"({"zolta-session": 2, "mixer": {"channels": 16}, "channels": [)" +
                                 QByteArray("{}, ").repeated(14) +
                                 R"({"equalizer": {"Low gain": "+6.0"}}]})");
    QCOMPARE(rawValue(runWithPlugin("--list --channel 15 --session", big), 3), u"60"_s);
    QCOMPARE(rawValue(runWithPlugin("--list --channels 32 --channel 31 --session", big), 3),
             u"0"_s);
    const ProgramResult beyond = runWithPlugin("--list --channel 16 --session", big);
    QCOMPARE(beyond.code, 1);
    QCOMPARE(beyond.errors, u"zolta-host: --channel must be a whole number from 0 to 15, not "
                            "\"16\": the mixer has 16 channels.\n"_s);

    const QString bad = write(u"bad.json"_s, "{}");
    const ProgramResult result = runWithPlugin("--list --session", bad);
    QCOMPARE(result.code, 1);
    QCOMPARE(result.errors, u"zolta-host: The session %1 is damaged. The file is not a session "
                            "file.\n"_s.arg(bad));
    QCOMPARE(TestFiles::namesIn(m_folder.path()).filter(u"bad.json"_s), QStringList(u"bad.json"_s));
}

void tst_zolta_host::signalsEndAsTheLastWindowDoes_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("Control-C") << SIGINT;
    QTest::newRow("terminate") << SIGTERM;
    QTest::newRow("hang-up") << SIGHUP;
}

void tst_zolta_host::signalsEndAsTheLastWindowDoes()
{
    QFETCH(const int, number);
    const QString file = path(u"ended-by-%1.json"_s.arg(number));
    QProcess process;
    startWindows(&process, {u"--session"_s, file, u"--set"_s, u"fx_rackfx_prm_3=+6"_s});
    QCOMPARE(end(&process, number), QString());
    QCOMPARE(lowGainIn(file), u"+6.0"_s);
    const QJsonObject saved = QJsonDocument::fromJson(TestFiles::read(file)).object();
    QCOMPARE(saved[u"editors"_s].toArray().size(), 1);
    QVERIFY(!QFile::exists(file + u".lock"_s));
}

void tst_zolta_host::sessionOfAProgramThatCrashedIsFree()
{
    const QString file = path(u"crashed.json"_s);
    const QStringList arguments = {u"--session"_s, file, u"--set"_s, u"fx_rackfx_prm_3=+6"_s};
    QProcess first;
    startWindows(&first, arguments);
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(file + u".lock"_s), 60000);
    first.kill();
    QVERIFY(first.waitForFinished(60000));
    // A program that is killed while it looks for sound devices keeps the lock of JACK's own files,
    // and every program that looks for them later would wait for ever.
    QDir(u"/dev/shm/jack_db-%1"_s.arg(::getuid())).removeRecursively();
    QVERIFY(QFile::exists(file + u".lock"_s));
    QProcess second;
    startWindows(&second, arguments);
    QCOMPARE(end(&second, SIGTERM), QString());
    QCOMPARE(lowGainIn(file), u"+6.0"_s);
}

QTEST_GUILESS_MAIN(tst_zolta_host)

#include "tst_zolta_host.moc"
