// SPDX-License-Identifier: GPL-3.0-or-later
// Lets every system call by which files are saved fail, as on disks that are full, broken or
// read-only, and saves where no file can be.
#include "tests/support/ProgramRunner.h"
#include "tests/support/TestObject.h"
#include "tests/walls/Writers.h"

#include <QDir>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <utility>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using TracedRun::Act;
using TracedRun::Outcome;

namespace {

enum class Place { Folder, Pipe, FullDevice, ReadOnlyFolder, SmallDisk };

constexpr std::array<std::pair<Place, const char*>, 5> places = {
    {{Place::Folder, "a folder"},
     {Place::Pipe, "a pipe"},
     {Place::FullDevice, "a full device"},
     {Place::ReadOnlyFolder, "in a folder that is read-only"},
     {Place::SmallDisk, "where files must be small"}}};

void limitFiles(rlim_t size)
{
    rlimit limit = {};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = size;
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

// Instead of the file, or around it.
void prepare(const QString& file, Place place)
{
    const QByteArray name = QFile::encodeName(file);
    const QByteArray folder = QFile::encodeName(QFileInfo(file).path());
    if (place == Place::Folder)
        QVERIFY(QFile::remove(file) && QDir().mkdir(file));
    else if (place == Place::Pipe)
        QVERIFY(QFile::remove(file) && ::mkfifo(name.constData(), 0600) == 0);
    else if (place == Place::FullDevice)
        QVERIFY(QFile::remove(file) && QFile::link(QStringLiteral("/dev/full"), file));
    else if (place == Place::ReadOnlyFolder)
        QCOMPARE(::chmod(folder.constData(), 0555), 0);
    else
        limitFiles(10);
}

void restore(const QString& file)
{
    limitFiles(RLIM_INFINITY);
    ::chmod(QFile::encodeName(QFileInfo(file).path()).constData(), 0700);
}

mode_t kindOf(const QString& file)
{
    struct stat status = {};
    ::lstat(QFile::encodeName(file).constData(), &status);
    return status.st_mode & S_IFMT;
}

} // namespace

class tst_FailingWriters : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { ::signal(SIGXFSZ, SIG_IGN); }
    void everyCallMayFail_data();
    void everyCallMayFail();
    void placesWithoutAFile_data();
    void placesWithoutAFile();
    void fullOutput_data();
    void fullOutput();

private:
    static QString problemAt(const WriterFolder& folder, int error, std::size_t call);
};

void tst_FailingWriters::everyCallMayFail_data()
{
    QTest::addColumn<std::size_t>("index");
    QTest::addColumn<int>("error");
    const std::vector<Writer> all = writers();
    for (std::size_t i = 0; i < all.size(); ++i) {
        for (const int error : {ENOSPC, EROFS, EIO}) {
            if (!all[i].isProgram || error == ENOSPC)
                QTest::addRow("%s: %s", all[i].name, std::strerror(error)) << i << error;
        }
    }
}

// Either it is saved nevertheless, or the old version is left and a sentence says why.
void tst_FailingWriters::everyCallMayFail()
{
    QFETCH(const std::size_t, index);
    QFETCH(const int, error);
    const Writer writer = writers()[index];
    const WriterFolder folder(writer);
    QCOMPARE(folder.problem(), QString());
    for (std::size_t call = 0; call < folder.calls().size(); call += writer.isProgram ? 2 : 1) {
        const QString problem = problemAt(folder, error, call);
        QVERIFY2(problem.isEmpty(),
                 qPrintable(QStringLiteral("Call %1, %2: %3")
                                .arg(QString::number(call),
                                     QString::fromStdString(folder.calls()[call].name), problem)));
    }
}

QString tst_FailingWriters::problemAt(const WriterFolder& folder, int error, std::size_t call)
{
    folder.reset();
    const Outcome outcome = folder.save(Act::Fail, call, error);
    const bool isSaved = folder.bytes() == folder.newBytes();
    const QString said = QString::fromStdString(outcome.output);
    if (!isSaved && folder.bytes() != folder.oldBytes())
        return QStringLiteral("the old file is lost: ") + said;
    if (!isSaved && (!said.contains(folder.file()) ||
                     !said.contains(QString::fromLocal8Bit(std::strerror(error)))))
        return QStringLiteral("file or reason are missing in: ") + said;
    if (isSaved != (outcome.code == 0) && !folder.hasWindows()) // they work on
        return QStringLiteral("the exit code is %1").arg(outcome.code);
    // Who may not remove a file leaves it.
    const bool mayLitter = folder.calls()[call].name.starts_with("unlink");
    if (!folder.isTidy() && !mayLitter)
        return folder.names().join(QLatin1Char(' ')) + QLatin1String(" is left");
    if (isSaved && folder.isTidy())
        return QString();
    if (folder.save().code != 0 || folder.bytes() != folder.newBytes() || !folder.isTidy())
        return QStringLiteral("nothing can be saved afterwards");
    return QString();
}

void tst_FailingWriters::placesWithoutAFile_data()
{
    QTest::addColumn<std::size_t>("index");
    QTest::addColumn<Place>("place");
    const std::vector<Writer> all = writers();
    for (std::size_t i = 0; i < all.size(); ++i) {
        for (const auto& [place, name] : places) {
            if (!all[i].isProgram || (place == Place::FullDevice && !all[i].hasWindows))
                QTest::addRow("%s: %s", all[i].name, name) << i << place;
        }
    }
}

void tst_FailingWriters::placesWithoutAFile()
{
    QFETCH(const std::size_t, index);
    QFETCH(const Place, place);
    if (place == Place::ReadOnlyFolder && ::geteuid() == 0)
        QSKIP("root may write anywhere");
    const Writer writer = writers()[index];
    const WriterFolder folder(writer);
    QCOMPARE(folder.problem(), QString());
    folder.reset();
    prepare(folder.file(), place);
    const mode_t kind = kindOf(folder.file());
    const Outcome outcome = folder.save();
    restore(folder.file());
    const QString said = QString::fromStdString(outcome.output);
    QVERIFY2(outcome.code > 0 && said.contains(folder.file()), qPrintable(said));
    QCOMPARE(kindOf(folder.file()), kind);
    QVERIFY2(folder.isTidy(), qPrintable(folder.names().join(QLatin1Char(' '))));
    if (kind == S_IFREG)
        QCOMPARE(folder.bytes(), folder.oldBytes());
}

void tst_FailingWriters::fullOutput_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("expected");
    QTest::newRow("help") << "--help"
                          << "zolta-host: The text cannot be printed: No space left on device.\n";
    QTest::newRow("list") << "--list"
                          << "zolta-host: The list cannot be printed: No space left on device.\n";
}

void tst_FailingWriters::fullOutput()
{
    QFETCH(const QString, option);
    const QTemporaryDir folder;
    QProcess process;
    ProgramRunner(QStringLiteral(HOST_PROGRAM), folder.path()).prepare(&process);
    process.setStandardOutputFile(QStringLiteral("/dev/full"));
    process.setArguments({option});
    process.start();
    QVERIFY(process.waitForFinished(120000));
    QTEST(QString::fromUtf8(process.readAllStandardError()), "expected");
    QCOMPARE(process.exitCode(), 1);
}

QTEST_GUILESS_MAIN(tst_FailingWriters)

#include "tst_FailingWriters.moc"
