// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/LockedFile.h"
#include "hosting/OutputFile.h"
#include "tests/support/TestFiles.h"
#include "tests/support/TestObject.h"

#include <QTemporaryDir>

#include <csignal>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class tst_OutputFile : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void linksAreFollowed();
    void loopOfLinksIsAnError();
    void keepsTheMode();
    void keepsTheGroup();
    void removesWhatAKilledProgramLeft();
    void leavesTheDraftOfARunningProgramAlone();
    void leavesAPipeAlone();

private:
    QString path(const char* name) const { return m_folder->filePath(QLatin1String(name)); }
    QStringList names() const { return TestFiles::namesIn(m_folder->path()); }
    static struct stat statusOf(const QString& file);
    QString strayDraft() const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_OutputFile::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
}

struct stat tst_OutputFile::statusOf(const QString& file)
{
    struct stat status = {};
    ::stat(QFile::encodeName(file).constData(), &status);
    return status;
}

void tst_OutputFile::linksAreFollowed()
{
    QVERIFY(QFile::link(u"target"_s, path("second"))); // there is no target yet
    QVERIFY(QFile::link(path("second"), path("first")));
    for (const QByteArray& bytes : {"first"_ba, "second"_ba}) {
        QCOMPARE(writeFile(path("first"), bytes).error(), QString());
        QCOMPARE(TestFiles::read(path("target")), bytes);
    }
    QVERIFY(QFileInfo(path("first")).isSymLink() && QFileInfo(path("second")).isSymLink());
    QVERIFY(!QFileInfo(path("target")).isSymLink());
}

void tst_OutputFile::loopOfLinksIsAnError()
{
    QVERIFY(QFile::link(path("b"), path("a")));
    QVERIFY(QFile::link(path("a"), path("b")));
    QCOMPARE(writeFile(path("a"), "new").error(),
             u"The file %1 cannot be written: Too many levels of symbolic links."_s.arg(path("a")));
    QVERIFY(QFileInfo(path("a")).isSymLink() && QFileInfo(path("b")).isSymLink());
    QCOMPARE(names().size(), 2);
}

void tst_OutputFile::keepsTheMode()
{
    TestFiles::write(path("file"), "old");
    for (const uint mode : {0600U, 0640U, 0664U, 0755U}) {
        QCOMPARE(::chmod(QFile::encodeName(path("file")).constData(), mode), 0);
        QCOMPARE(writeFile(path("file"), "new").error(), QString());
        QCOMPARE(statusOf(path("file")).st_mode & 07777U, mode);
    }
}

void tst_OutputFile::keepsTheGroup()
{
    if (::geteuid() != 0)
        QSKIP("only root may give files to any group");
    TestFiles::write(path("file"), "old");
    QCOMPARE(::chown(QFile::encodeName(path("file")).constData(), 12, 34), 0);
    QCOMPARE(writeFile(path("file"), "new").error(), QString());
    QCOMPARE(statusOf(path("file")).st_uid, 12U);
    QCOMPARE(statusOf(path("file")).st_gid, 34U);
}

// What another program has beside the file while it writes it, once it was killed.
QString tst_OutputFile::strayDraft() const
{
    const QByteArray file = QFile::encodeName(path("pipe-fed"));
    const pid_t child = ::fork();
    if (child == 0) {
        ::signal(SIGXFSZ, SIG_DFL);
        const rlimit limit = {4, 4};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ::_exit(writeFile(QFile::decodeName(file), "longer than that").isOk() ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    const QStringList left = names();
    return WIFSIGNALED(status) && left.size() == 1 ? left[0] : QString();
}

void tst_OutputFile::removesWhatAKilledProgramLeft()
{
    QVERIFY(!strayDraft().isEmpty());
    QCOMPARE(writeFile(path("pipe-fed"), "new").error(), QString());
    QCOMPARE(names(), QStringList(u"pipe-fed"_s));
    QCOMPARE(TestFiles::read(path("pipe-fed")), "new"_ba);
}

void tst_OutputFile::leavesTheDraftOfARunningProgramAlone()
{
    const QString draft = strayDraft();
    const LockedFile running(QFile::encodeName(m_folder->filePath(draft)).toStdString(), O_RDONLY);
    QVERIFY(running.isOpen());
    QCOMPARE(writeFile(path("pipe-fed"), "new").error(),
             u"The file %1 cannot be written: Device or resource busy."_s.arg(path("pipe-fed")));
    QCOMPARE(names(), QStringList(draft));
}

void tst_OutputFile::leavesAPipeAlone()
{
    QCOMPARE(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    QVERIFY(!writeFile(path("pipe"), "new").isOk());
    QCOMPARE(names(), QStringList(u"pipe"_s));
}

QTEST_APPLESS_MAIN(tst_OutputFile)

#include "tst_OutputFile.moc"
