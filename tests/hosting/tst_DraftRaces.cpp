// SPDX-License-Identifier: GPL-3.0-or-later
// What others do beside a file while it is being written, where locks do not keep them from it.
#include "hosting/OutputFile.h"
#include "tests/support/TestObject.h"

#include <QDir>
#include <QTemporaryDir>

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

using Draft = OutputFile::Draft;

class tst_DraftRaces : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void leavesAnothersDraftAlone();
    void obstaclesAreRemoved_data();
    void obstaclesAreRemoved();
    void showsNobodyAPrivateFile_data();
    void showsNobodyAPrivateFile();
    void lastOfTwoUnnamedDraftsCounts();

private:
    QString path(const char* name) const { return m_folder->filePath(QLatin1String(name)); }
    QStringList names() const;
    QString draft() const;
    QByteArray content() const;
    void put(const QString& name, const QByteArray& bytes) const;
    static void write(const OutputFile& file, const QByteArray& bytes);

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_DraftRaces::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
    put(path("file"), "old");
}

QStringList tst_DraftRaces::names() const
{
    return QDir(m_folder->path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

// What "file" is written to, wherever it is or would be.
QString tst_DraftRaces::draft() const
{
    OutputFile output(path("file"));
    if (output.open(Draft::Named) != 0)
        return QString();
    return m_folder->filePath(names().filter(QStringLiteral(".part")).value(0));
}

QByteArray tst_DraftRaces::content() const
{
    QFile input(path("file"));
    return input.open(QIODevice::ReadOnly) ? input.readAll() : QByteArray("unreadable");
}

void tst_DraftRaces::put(const QString& name, const QByteArray& bytes) const
{
    QFile output(name);
    QVERIFY(output.open(QIODevice::WriteOnly) && output.write(bytes) == bytes.size());
}

void tst_DraftRaces::write(const OutputFile& file, const QByteArray& bytes)
{
    QCOMPARE(::write(file.descriptor(), bytes.constData(), size_t(bytes.size())), bytes.size());
}

// Half of what another program writes must not become the file.
void tst_DraftRaces::leavesAnothersDraftAlone()
{
    const QString name = draft();
    {
        OutputFile output(path("file"));
        QCOMPARE(output.open(Draft::Named), 0);
        write(output, "new");
        QVERIFY(QFile::remove(name));
        put(name, "half of anoth");
        QCOMPARE(output.commit(), EBUSY);
    }
    QCOMPARE(content(), QByteArray("old"));
    QVERIFY(QFile::exists(name));
}

void tst_DraftRaces::obstaclesAreRemoved_data()
{
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<Draft>("how");
    for (const char* kind : {"file", "unreadable", "link", "pipe"}) {
        QTest::addRow("%s, named", kind) << QByteArray(kind) << Draft::Named;
        QTest::addRow("%s, unnamed", kind) << QByteArray(kind) << Draft::Unnamed;
    }
}

void tst_DraftRaces::obstaclesAreRemoved()
{
    QFETCH(const QByteArray, kind);
    QFETCH(const Draft, how);
    const QString name = draft();
    const QByteArray bytes = QFile::encodeName(name);
    OutputFile output(path("file"));
    if (how == Draft::Unnamed)
        QCOMPARE(output.open(how), 0);
    if (kind == "link")
        QVERIFY(QFile::link(path("file"), name));
    else if (kind == "pipe")
        QCOMPARE(::mkfifo(bytes.constData(), 0600), 0);
    else
        put(name, "stray");
    if (kind == "unreadable")
        QCOMPARE(::chmod(bytes.constData(), 0), 0);
    if (how == Draft::Named)
        QCOMPARE(output.open(how), 0);
    write(output, "new");
    QCOMPARE(output.commit(), 0);
    QCOMPARE(content(), QByteArray("new"));
    QCOMPARE(names(), QStringList(QStringLiteral("file")));
}

void tst_DraftRaces::showsNobodyAPrivateFile_data()
{
    QTest::addColumn<uint>("mode");
    for (const uint mode : {0600U, 0640U, 0604U})
        QTest::addRow("%o", mode) << mode;
}

void tst_DraftRaces::showsNobodyAPrivateFile()
{
    QFETCH(const uint, mode);
    QCOMPARE(::chmod(QFile::encodeName(path("file")).constData(), mode), 0);
    for (const Draft how : {Draft::Named, Draft::Unnamed}) {
        OutputFile output(path("file"));
        QCOMPARE(output.open(how), 0);
        struct stat status = {};
        QCOMPARE(::fstat(output.descriptor(), &status), 0);
        QCOMPARE(status.st_mode & 07777U, mode);
    }
}

void tst_DraftRaces::lastOfTwoUnnamedDraftsCounts()
{
    OutputFile first(path("file"));
    OutputFile second(path("file"));
    QCOMPARE(first.open(Draft::Unnamed), 0);
    QCOMPARE(second.open(Draft::Unnamed), 0);
    QCOMPARE(names(), QStringList(QStringLiteral("file")));
    write(first, "first");
    write(second, "second");
    QCOMPARE(second.commit(), 0);
    QCOMPARE(first.commit(), 0);
    QCOMPARE(content(), QByteArray("first"));
}

QTEST_APPLESS_MAIN(tst_DraftRaces)

#include "tst_DraftRaces.moc"
