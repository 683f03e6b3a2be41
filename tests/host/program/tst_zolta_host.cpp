// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the program itself.
#include "tests/hosting/StateBytes.h"
#include "tests/support/ProgramRunner.h"
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

class tst_zolta_host : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void helpGoesToStandardOutput();
    void listShowsEveryParameter();
    void listFollowsSettings();
    void loadsStateBeforeSettings();
    void savesAndLoadsBitForBit_data();
    void savesAndLoadsBitForBit();
    void savesWhatListShows();
    void screenshotHasTheEditorsSize_data();
    void screenshotHasTheEditorsSize();
    void screenshotShowsTheSettings();
    void doesEverythingInOneRun();
    void saysThatThereIsNoDisplay();
    void refusesAMissingPlugin();
    void refusesABadState();
    void refusesAPipeAsState();
    void refusesArguments();
    void refusesNamesThatAreNotText();
    void speaksTheLanguageAskedFor();
    void saysWhatCannotBeWritten_data();
    void saysWhatCannotBeWritten();
    void picturesShowMetersOnDemand();
    void headlessRunsLeaveTheUsersFilesAlone_data();
    void headlessRunsLeaveTheUsersFilesAlone();
    void opensWindowsOnAPlatform();
    void headlessRunsListWhatIsHeardOfAChannel();
    void headlessRunsLeaveABadSessionAlone_data();
    void headlessRunsLeaveABadSessionAlone();
    void windowsKeepDamagedFilesAside_data();
    void windowsKeepDamagedFilesAside();
    void signalsEndAsTheLastWindowDoes_data();
    void signalsEndAsTheLastWindowDoes();
    void secondProgramSavesNothing();
    void sessionOfAProgramThatCrashedIsFree();

private:
    ProgramResult run(const QStringList& arguments) const { return m_program.run(arguments); }
    ProgramResult runWithPlugin(const QStringList& arguments) const;
    ProgramResult runWithPlugin(const char* words, const QString& file = QString()) const;
    ProgramResult runWindows() const;
    void startWindows(QProcess* process, const QStringList& arguments) const;
    static bool catches(const QProcess& process, int number);
    static QString end(QProcess* process, int number);
    static QString lowGainIn(const QString& file);
    QString path(const QString& name) const { return m_folder.filePath(name); }
    QString write(const QString& name, const QByteArray& bytes) const;
    static QByteArray contentOf(const QString& file);
    static QString rawValue(const ProgramResult& result, int number);

    QTemporaryDir m_folder;
    ProgramRunner m_program{QStringLiteral(HOST_PROGRAM), m_folder.path()};
};

ProgramResult tst_zolta_host::runWithPlugin(const QStringList& arguments) const
{
    return run(QStringList{QStringLiteral("--plugin"),
                           QStringLiteral(HOST_TEST_PLUGINS "/libhost_stand_in.so")} +
               arguments);
}

// Words separated by blanks, the last of which is the name of a file if there is one.
ProgramResult tst_zolta_host::runWithPlugin(const char* words, const QString& file) const
{
    const QStringList arguments = QString::fromLatin1(words).split(QLatin1Char(' '));
    return runWithPlugin(file.isEmpty() ? arguments : arguments + QStringList(file));
}

// With windows, of a program that ends by itself because it does not find its state.
ProgramResult tst_zolta_host::runWindows() const
{
    return m_program.runOffscreen(
        {QStringLiteral("--plugin"), QStringLiteral(HOST_TEST_PLUGINS "/libhost_stand_in.so"),
         QStringLiteral("--state"), path(QStringLiteral("missing.state"))});
}

// With the signals as a desktop starts programs, however this test was started.
void tst_zolta_host::startWindows(QProcess* process, const QStringList& arguments) const
{
    m_program.prepare(process);
    process->setProcessEnvironment(m_program.offscreen());
    process->setArguments(QStringList{QStringLiteral("--plugin"),
                                      QStringLiteral(HOST_TEST_PLUGINS "/libhost_stand_in.so")} +
                          arguments);
    process->setChildProcessModifier([] {
        for (const int number : {SIGINT, SIGTERM, SIGHUP})
            ::signal(number, SIG_DFL);
    });
    process->start();
}

bool tst_zolta_host::catches(const QProcess& process, int number)
{
    const QByteArray status = contentOf(QStringLiteral("/proc/%1/status").arg(process.processId()));
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
        return QStringLiteral("no end");
    if (process->exitStatus() != QProcess::NormalExit || process->exitCode() != 0)
        return QStringLiteral("a bad end: %1").arg(process->exitCode());
    const QStringList lines =
        QString::fromLocal8Bit(process->readAllStandardError()).split(QLatin1Char('\n'));
    return lines.filter(QStringLiteral("zolta-host:")).join(QLatin1Char('\n'));
}

QString tst_zolta_host::lowGainIn(const QString& file)
{
    const QJsonObject saved = QJsonDocument::fromJson(contentOf(file)).object();
    return saved[QStringLiteral("channels")][0][QStringLiteral("equalizer")]
                [QStringLiteral("Low gain")]
                    .toString();
}

QString tst_zolta_host::write(const QString& name, const QByteArray& bytes) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

QByteArray tst_zolta_host::contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
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
    const ProgramResult result = run({QStringLiteral("--help")});
    QCOMPARE(result.code, 0);
    QVERIFY(result.output.startsWith(QLatin1String("Usage: zolta-host [options]\n")));
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
        QCOMPARE(fields[0], QStringLiteral("fx_rackfx_prm_%1").arg(i + 1));
        QCOMPARE(fields[1].toInt(), 257 + i);
        QVERIFY(fields[2].toInt() < fields[3].toInt());
        QVERIFY(fields[4].toInt() >= fields[2].toInt() && fields[4].toInt() <= fields[3].toInt());
        QCOMPARE(fields[5], fields[4]);
        QVERIFY(!fields[6].isEmpty());
    }
    QCOMPARE(lines[1], QStringLiteral("fx_rackfx_prm_2\t258\t0\t1200\t241\t241\t80"));
    QCOMPARE(lines[26], QStringLiteral("fx_rackfx_prm_27\t283\t0\t1\t0\t0\tClean"));
}

void tst_zolta_host::listFollowsSettings()
{
    const ProgramResult result =
        runWithPlugin("--channel 3 --list --set fx_rackfx_prm_2=1,25kHz "
                      "--set fx_rackfx_prm_3=@-15 --set fx_rackfx_prm_27=drive");
    QCOMPARE(result.code, 0);
    const QStringList lines = result.output.split(QLatin1Char('\n'));
    QCOMPARE(lines[1], QStringLiteral("fx_rackfx_prm_2\t258\t0\t1200\t241\t718\t1.25k"));
    QCOMPARE(lines[2], QStringLiteral("fx_rackfx_prm_3\t259\t-200\t200\t0\t-15\t-1.5"));
    QCOMPARE(lines[26], QStringLiteral("fx_rackfx_prm_27\t283\t0\t1\t0\t1\tDrive"));
}

void tst_zolta_host::loadsStateBeforeSettings()
{
    const QString file = write(QStringLiteral("half.state"), StateBytes::state(0.5F));
    const ProgramResult result = runWithPlugin("--list --set fx_rackfx_prm_2=@7 --state", file);
    QCOMPARE(result.code, 0);
    QCOMPARE(rawValue(result, 2), QStringLiteral("7"));
    QCOMPARE(rawValue(result, 3), QStringLiteral("0"));
    QCOMPARE(rawValue(result, 6), QStringLiteral("600"));
    QCOMPARE(rawValue(result, 5), QStringLiteral("250"));
}

void tst_zolta_host::savesAndLoadsBitForBit_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("plain to plain") << "a.state"
                                    << "b.state";
    QTest::newRow("plain to preset") << "a.state"
                                     << "b.vstpreset";
    QTest::newRow("preset to plain") << "a.vstpreset"
                                     << "b.state";
    QTest::newRow("preset to preset") << "a.vstpreset"
                                      << "b.vstpreset";
}

void tst_zolta_host::savesAndLoadsBitForBit()
{
    QFETCH(const QString, first);
    QFETCH(const QString, second);
    QStringList settings;
    for (int number = 1; number <= 27; ++number)
        settings << QStringLiteral("--set")
                 << QStringLiteral("fx_rackfx_prm_%1=@%2").arg(number).arg(number % 2);
    settings << QStringLiteral("--set") << QStringLiteral("fx_rackfx_prm_6=@1111");
    const ProgramResult saved =
        runWithPlugin(settings + QStringList{QStringLiteral("--list"),
                                             QStringLiteral("--save-state"), path(first)});
    QCOMPARE(saved.code, 0);
    const ProgramResult loaded = runWithPlugin(
        {QStringLiteral("--channel"), QStringLiteral("5"), QStringLiteral("--state"), path(first),
         QStringLiteral("--list"), QStringLiteral("--save-state"), path(second)});
    QCOMPARE(loaded.code, 0);
    QCOMPARE(loaded.output, saved.output);
    const auto stateIn = [](const QByteArray& bytes) {
        return bytes.startsWith("VST3") ? bytes.mid(48, 116) : bytes;
    };
    QCOMPARE(stateIn(contentOf(path(first))).size(), 116);
    QCOMPARE(stateIn(contentOf(path(second))), stateIn(contentOf(path(first))));
}

void tst_zolta_host::savesWhatListShows()
{
    const ProgramResult result =
        runWithPlugin("--set fx_rackfx_prm_4=off --set fx_rackfx_prm_3=+20 "
                      "--set fx_rackfx_prm_2=@300 --save-state relative.state");
    QCOMPARE(result.code, 0);
    QCOMPARE(result.output, QString());
    const QByteArray bytes = contentOf(path(QStringLiteral("relative.state")));
    QCOMPARE(bytes.size(), 116);
    QCOMPARE(bytes.left(16).toHex(' '),
             QByteArray("32 36 32 30 00 00 00 00 3f 80 00 00 3e 80 00 00"));
}

void tst_zolta_host::screenshotHasTheEditorsSize_data()
{
    QTest::addColumn<QString>("scale");
    QTest::addColumn<QSize>("expected");
    QTest::newRow("half") << "0.5" << QSize(200, 120);
    QTest::newRow("one") << "1" << QSize(400, 240);
    QTest::newRow("odd") << "1.33" << QSize(532, 319);
    QTest::newRow("four") << "4" << QSize(1600, 960);
}

void tst_zolta_host::screenshotHasTheEditorsSize()
{
    QFETCH(const QString, scale);
    const QString file = path(QStringLiteral("shot.png"));
    const ProgramResult result =
        runWithPlugin({QStringLiteral("--scale"), scale, QStringLiteral("--screenshot"), file});
    QCOMPARE(result.code, 0);
    QCOMPARE(result.errors, QString());
    QTEST(QImage(file).size(), "expected");
}

void tst_zolta_host::screenshotShowsTheSettings()
{
    const QString file = path(QStringLiteral("settings.png"));
    const ProgramResult result =
        runWithPlugin("--set fx_rackfx_prm_3=+20 --set fx_rackfx_prm_7=-20 --screenshot", file);
    QCOMPARE(result.code, 0);
    const QImage picture(file);
    QCOMPARE(picture.pixelColor(int(2.5 * 400 / 27), 3), QColor(0x03, 0x94, 0xD0));
    QCOMPARE(picture.pixelColor(int(6.5 * 400 / 27), 236), QColor(0x2a, 0x2e, 0x34));
}

void tst_zolta_host::doesEverythingInOneRun()
{
    const ProgramResult result = runWithPlugin(
        "--mono --sample-rate 96000 --list --save-state all.state --screenshot all.png");
    QCOMPARE(result.code, 0);
    QCOMPARE(result.output.count(QLatin1Char('\n')), 27);
    QCOMPARE(contentOf(path(QStringLiteral("all.state"))).size(), 116);
    QCOMPARE(QImage(path(QStringLiteral("all.png"))).size(), QSize(400, 240));
}

void tst_zolta_host::speaksTheLanguageAskedFor()
{
    const auto errorIn = [this](const char* language) {
        const QString nowhere = path(QStringLiteral("nowhere.json"));
        return runWithPlugin({QStringLiteral("--language"), QLatin1String(language),
                              QStringLiteral("--list"), QStringLiteral("--session"), nowhere})
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
    QCOMPARE(result.errors,
             QStringLiteral("zolta-host: There is no display to open a window on (DISPLAY and "
                            "WAYLAND_DISPLAY are not set). Without one, use --list, --save-state "
                            "FILE, --screenshot FILE.png, --render IN OUT or --help.\n"));
}

void tst_zolta_host::refusesAMissingPlugin()
{
    const QString file = path(QStringLiteral("nowhere.so"));
    const ProgramResult result = run({QStringLiteral("--plugin"), file, QStringLiteral("--list")});
    QCOMPARE(result.code, 1);
    QCOMPARE(result.output, QString());
    QCOMPARE(result.errors,
             QStringLiteral("zolta-host: The plug-in %1 does not exist.\n").arg(file));
}

void tst_zolta_host::refusesABadState()
{
    using namespace StateBytes;
    const QString file = write(QStringLiteral("bad.state"), presetOf(state(), QByteArray(32, '7')));
    const QString kept = write(QStringLiteral("kept.state"), "kept");
    const ProgramResult result =
        runWithPlugin({QStringLiteral("--state"), file, QStringLiteral("--list"),
                       QStringLiteral("--save-state"), kept});
    QCOMPARE(result.code, 1);
    QCOMPARE(result.output, QString());
    QCOMPARE(result.errors,
             QStringLiteral("zolta-host: The state file %1 is a preset of another plug-in (class "
                            "77777777777777777777777777777777, not "
                            "56535464787042657175616C697A6572).\n")
                 .arg(file));
    QCOMPARE(contentOf(kept), QByteArray("kept"));
}

// Nobody writes to it: reading would never end.
void tst_zolta_host::refusesAPipeAsState()
{
    const QString pipe = path(QStringLiteral("pipe"));
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const ProgramResult result = runWithPlugin("--list --state", pipe);
    QCOMPARE(result.code, 1);
    QCOMPARE(result.errors,
             QStringLiteral("zolta-host: The state file %1 is not a regular file.\n").arg(pipe));
}

void tst_zolta_host::refusesArguments()
{
    const ProgramResult result = runWithPlugin("--loud --list");
    QCOMPARE(result.code, 2);
    QCOMPARE(result.output, QString());
    QCOMPARE(result.errors, QStringLiteral("zolta-host: Unknown option 'loud'.\n"));
    QCOMPARE(runWithPlugin("more --language de").errors,
             QStringLiteral("zolta-host: Unbekannte Option \"more\".\n"));
}

// As text, the name would be another file's.
void tst_zolta_host::refusesNamesThatAreNotText()
{
    const QString other = write(QStringLiteral("a\ufffd"), "another file");
    const QStringList words = {QStringLiteral("-c"),
                               QStringLiteral("exec \"$0\" --save-state \"$(printf 'a\\377')\""),
                               QStringLiteral(HOST_PROGRAM)};
    const ProgramResult result =
        ProgramRunner(QStringLiteral("/bin/sh"), m_folder.path()).run(words);
    QCOMPARE(result.code, 2);
    QCOMPARE(result.errors, QStringLiteral("zolta-host: The argument \"a\ufffd\" is not valid "
                                           "UTF-8. Rename the file, or use another one.\n"));
    QCOMPARE(contentOf(other), QByteArray("another file"));
}

void tst_zolta_host::saysWhatCannotBeWritten_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("expected");
    const QString nowhere = path(QStringLiteral("no/folder/file"));
    const QString expected =
        QStringLiteral("The file %1 cannot be written: No such file or directory.").arg(nowhere);
    QTest::newRow("state") << "--save-state" << nowhere << expected;
    QTest::newRow("picture") << "--screenshot" << nowhere << expected;
}

void tst_zolta_host::saysWhatCannotBeWritten()
{
    QFETCH(const QString, option);
    QFETCH(const QString, file);
    QFETCH(const QString, expected);
    const ProgramResult result = runWithPlugin({option, file});
    QCOMPARE(result.code, 1);
    QCOMPARE(result.errors, QStringLiteral("zolta-host: %1\n").arg(expected));
}

// The stand-in draws its return meter as a white line along the top.
void tst_zolta_host::picturesShowMetersOnDemand()
{
    const auto lineOf = [this](const QString& name, const QStringList& arguments) {
        const ProgramResult result =
            runWithPlugin(arguments + QStringList{QStringLiteral("--screenshot"), path(name)});
        const QImage picture(path(name));
        int length = 0;
        while (result.code == 0 && length < picture.width() &&
               picture.pixelColor(length, 0) == QColor(Qt::white))
            ++length;
        return length;
    };
    const QString option = QStringLiteral("--meters");
    const QString on = QStringLiteral("on");
    QCOMPARE(lineOf(QStringLiteral("plain.png"), {}), 0);
    QCOMPARE(lineOf(QStringLiteral("off.png"), {option, QStringLiteral("off")}), 0);
    const int length = lineOf(QStringLiteral("on.png"), {option, on});
    QVERIFY2(length > 200 && length < 400, qPrintable(QString::number(length)));
    QCOMPARE(lineOf(QStringLiteral("again.png"), {option, on}), length);
    QCOMPARE(contentOf(path(QStringLiteral("again.png"))),
             contentOf(path(QStringLiteral("on.png"))));
    const int quiet =
        lineOf(QStringLiteral("quiet.png"),
               {option, on, QStringLiteral("--set"), QStringLiteral("fx_rackfx_prm_26=-12.7 dB")});
    QVERIFY2(std::abs(length - quiet - 40) <= 1, qPrintable(QString::number(quiet)));
}

void tst_zolta_host::headlessRunsLeaveTheUsersFilesAlone_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("settings") << "zolta/editors.json";
    QTest::newRow("session") << "zolta-host/session.json";
}

void tst_zolta_host::headlessRunsLeaveTheUsersFilesAlone()
{
    QFETCH(const QString, name);
    QVERIFY(QDir().mkpath(QFileInfo(path(name)).path()));
    const QString file = write(name, "damaged");
    const ProgramResult result = runWithPlugin("--list");
    QCOMPARE(result.code, 0);
    QCOMPARE(result.errors, QString());
    QCOMPARE(contentOf(file), QByteArray("damaged"));
    QVERIFY(QFile::remove(file));
    QCOMPARE(runWithPlugin("--list").code, 0);
    QVERIFY(!QFile::exists(file));
}

void tst_zolta_host::windowsKeepDamagedFilesAside_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected");
    QTest::newRow("settings") << "zolta/editors.json"
                              << "The editors' settings in %1 are damaged and ignored. ";
    QTest::newRow("session") << "zolta-host/session.json"
                             << "The session %1 is damaged. ";
}

void tst_zolta_host::windowsKeepDamagedFilesAside()
{
    QFETCH(const QString, name);
    QFETCH(const QString, expected);
    QVERIFY(QDir().mkpath(QFileInfo(path(name)).path()));
    const QString file = write(name, "damaged");
    const QString errors = runWindows().errors;
    QVERIFY2(errors.contains(QLatin1String("zolta-host: ") + expected.arg(file)),
             qPrintable(errors));
    QVERIFY(!QFile::exists(file));
    QCOMPARE(contentOf(file + QStringLiteral(".damaged")), QByteArray("damaged"));
}

void tst_zolta_host::opensWindowsOnAPlatform()
{
    const ProgramResult result = runWindows();
    QCOMPARE(result.code, 1);
    QVERIFY(
        result.errors.contains(QStringLiteral("The state file %1 cannot be read: No such file or "
                                              "directory.")
                                   .arg(path(QStringLiteral("missing.state")))));
}

// The second channel of a pair sounds as the first one is set.
void tst_zolta_host::headlessRunsListWhatIsHeardOfAChannel()
{
    const QByteArray bytes =
        "{\"zolta-session\": 1, \"channels\": [{\"equalizer\": {\"Low gain\": \"+7.5\"}}, "
        "{\"equalizer\": {\"Low gain\": \"-3.0\"}}]}";
    const QString file = write(QStringLiteral("pair.json"), bytes);
    for (const char* words : {"--list --session", "--list --channel 1 --session"})
        QCOMPARE(rawValue(runWithPlugin(words, file), 3), QStringLiteral("75"));
    QCOMPARE(rawValue(runWithPlugin("--list --channel 1 --mono --session", file), 3),
             QStringLiteral("-30"));
    QCOMPARE(contentOf(file), bytes);
}

void tst_zolta_host::headlessRunsLeaveABadSessionAlone_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    QTest::newRow("damaged") << QByteArray("{}")
                             << "The session %1 is damaged. The file is not a session file.";
    QTest::newRow("later")
        << QByteArray("{\"zolta-session\": 2}")
        << "The session %1 cannot be read. The file has version 2, which this program "
           "does not know.";
}

void tst_zolta_host::headlessRunsLeaveABadSessionAlone()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, reason);
    const QString file = write(QStringLiteral("bad.json"), bytes);
    const ProgramResult result = runWithPlugin("--list --session", file);
    QCOMPARE(result.code, 1);
    QCOMPARE(result.output, QString());
    QCOMPARE(result.errors, QStringLiteral("zolta-host: %1\n").arg(reason.arg(file)));
    QCOMPARE(contentOf(file), bytes);
    QVERIFY(!QFile::exists(file + QStringLiteral(".damaged")));
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
    const QString file = path(QStringLiteral("ended-by-%1.json").arg(number));
    QProcess process;
    startWindows(&process, {QStringLiteral("--session"), file, QStringLiteral("--set"),
                            QStringLiteral("fx_rackfx_prm_3=+6")});
    QCOMPARE(end(&process, number), QString());
    QCOMPARE(lowGainIn(file), QStringLiteral("+6.0"));
    const QJsonObject saved = QJsonDocument::fromJson(contentOf(file)).object();
    QCOMPARE(saved[QStringLiteral("editors")].toArray().size(), 1);
    QVERIFY(!QFile::exists(file + QStringLiteral(".lock")));
}

void tst_zolta_host::secondProgramSavesNothing()
{
    const QString file = path(QStringLiteral("shared.json"));
    const auto arguments = [&file](const char* gain) {
        return QStringList{QStringLiteral("--session"), file, QStringLiteral("--set"),
                           QStringLiteral("fx_rackfx_prm_3=") + QLatin1String(gain)};
    };
    QProcess first;
    startWindows(&first, arguments("+6"));
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(file + QStringLiteral(".lock")), 60000);
    QProcess second;
    startWindows(&second, arguments("-6"));
    QCOMPARE(end(&second, SIGTERM),
             QStringLiteral("zolta-host: Another program has the session %1 open, as its lock file "
                            "%1.lock says. Changes made here will not be saved.")
                 .arg(file));
    QVERIFY(!QFile::exists(file));
    QCOMPARE(end(&first, SIGTERM), QString());
    QCOMPARE(lowGainIn(file), QStringLiteral("+6.0"));
}

void tst_zolta_host::sessionOfAProgramThatCrashedIsFree()
{
    const QString file = path(QStringLiteral("crashed.json"));
    const QStringList arguments = {QStringLiteral("--session"), file, QStringLiteral("--set"),
                                   QStringLiteral("fx_rackfx_prm_3=+6")};
    QProcess first;
    startWindows(&first, arguments);
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(file + QStringLiteral(".lock")), 60000);
    first.kill();
    QVERIFY(first.waitForFinished(60000));
    // A program that is killed while it looks for sound devices keeps the lock of JACK's own files,
    // and every program that looks for them later would wait for ever.
    QDir(QStringLiteral("/dev/shm/jack_db-%1").arg(::getuid())).removeRecursively();
    QVERIFY(QFile::exists(file + QStringLiteral(".lock")));
    QProcess second;
    startWindows(&second, arguments);
    QCOMPARE(end(&second, SIGTERM), QString());
    QCOMPARE(lowGainIn(file), QStringLiteral("+6.0"));
}

QTEST_GUILESS_MAIN(tst_zolta_host)

#include "tst_zolta_host.moc"
