// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/LockedFile.h"
#include "hosting/OutputFile.h"
#include "tests/support/TestObject.h"

#include <QDir>
#include <QTemporaryDir>

#include <csignal>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

class tst_OutputFile : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void linksAreFollowed_data();
    void linksAreFollowed();
    void loopOfLinksIsAnError();
    void keepsTheMode_data();
    void keepsTheMode();
    void keepsTheGroup();
    void removesWhatAKilledProgramLeft();
    void leavesTheDraftOfARunningProgramAlone();
    void leavesAPipeAlone();

private:
    QString path(const char* name) const { return m_folder->filePath(QLatin1String(name)); }
    QStringList names() const;
    static QByteArray contentOf(const QString& file);
    static void put(const QString& file, const QByteArray& bytes);
    static struct stat statusOf(const QString& file);
    QString strayDraft() const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_OutputFile::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
}

QStringList tst_OutputFile::names() const
{
    return QDir(m_folder->path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

QByteArray tst_OutputFile::contentOf(const QString& file)
{
    QFile input(file);
    return input.open(QIODevice::ReadOnly) ? input.readAll() : QByteArray();
}

void tst_OutputFile::put(const QString& file, const QByteArray& bytes)
{
    QFile output(file);
    QVERIFY(output.open(QIODevice::WriteOnly) && output.write(bytes) == bytes.size());
}

struct stat tst_OutputFile::statusOf(const QString& file)
{
    struct stat status = {};
    ::stat(QFile::encodeName(file).constData(), &status);
    return status;
}

void tst_OutputFile::linksAreFollowed_data()
{
    QTest::addColumn<bool>("exists");
    QTest::newRow("to a file") << true;
    QTest::newRow("to nothing yet") << false;
}

void tst_OutputFile::linksAreFollowed()
{
    QFETCH(const bool, exists);
    if (exists)
        put(path("target"), "old");
    QVERIFY(QFile::link(QStringLiteral("target"), path("second")));
    QVERIFY(QFile::link(path("second"), path("first")));
    QCOMPARE(writeFile(path("first"), "new").error(), QString());
    QCOMPARE(contentOf(path("target")), QByteArray("new"));
    QVERIFY(QFileInfo(path("first")).isSymLink() && QFileInfo(path("second")).isSymLink());
    QVERIFY(!QFileInfo(path("target")).isSymLink());
}

void tst_OutputFile::loopOfLinksIsAnError()
{
    QVERIFY(QFile::link(path("b"), path("a")));
    QVERIFY(QFile::link(path("a"), path("b")));
    QCOMPARE(writeFile(path("a"), "new").error(),
             QStringLiteral("The file %1 cannot be written: Too many levels of symbolic links.")
                 .arg(path("a")));
    QVERIFY(QFileInfo(path("a")).isSymLink() && QFileInfo(path("b")).isSymLink());
    QCOMPARE(names().size(), 2);
}

void tst_OutputFile::keepsTheMode_data()
{
    QTest::addColumn<uint>("mode");
    for (const uint mode : {0600U, 0640U, 0664U, 0755U})
        QTest::addRow("%o", mode) << mode;
}

void tst_OutputFile::keepsTheMode()
{
    QFETCH(const uint, mode);
    put(path("file"), "old");
    QCOMPARE(::chmod(QFile::encodeName(path("file")).constData(), mode), 0);
    QCOMPARE(writeFile(path("file"), "new").error(), QString());
    QCOMPARE(statusOf(path("file")).st_mode & 07777U, mode);
}

void tst_OutputFile::keepsTheGroup()
{
    if (::geteuid() != 0)
        QSKIP("only root may give files to any group");
    put(path("file"), "old");
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
    QCOMPARE(names(), QStringList(QStringLiteral("pipe-fed")));
    QCOMPARE(contentOf(path("pipe-fed")), QByteArray("new"));
}

void tst_OutputFile::leavesTheDraftOfARunningProgramAlone()
{
    const QString draft = strayDraft();
    const LockedFile running(QFile::encodeName(m_folder->filePath(draft)).toStdString(), O_RDONLY);
    QVERIFY(running.isOpen());
    QCOMPARE(writeFile(path("pipe-fed"), "new").error(),
             QStringLiteral("The file %1 cannot be written: Device or resource busy.")
                 .arg(path("pipe-fed")));
    QCOMPARE(names(), QStringList(draft));
}

void tst_OutputFile::leavesAPipeAlone()
{
    QCOMPARE(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    QVERIFY(!writeFile(path("pipe"), "new").isOk());
    QCOMPARE(names(), QStringList(QStringLiteral("pipe")));
}

QTEST_APPLESS_MAIN(tst_OutputFile)

#include "tst_OutputFile.moc"
