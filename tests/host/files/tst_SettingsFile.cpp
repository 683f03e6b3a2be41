// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/files/SettingsFile.h"
#include "tests/support/TestFiles.h"
#include "tests/support/TestObject.h"

#include <QStandardPaths>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class tst_SettingsFile : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { cleanup(); }
    void cleanup();
    void standsWithTheUsersSettings();
    void keepsMapsForTheNextRun();
    void keepsEveryKindOfValue_data();
    void keepsEveryKindOfValue();
    void preferencesStandBesideTheMaps();
    void withoutAFileMapsLastForTheRun();
    void writesOnlyChanges();
    void damagedFilesAreIgnoredAndKeptAside_data();
    void damagedFilesAreIgnoredAndKeptAside();
    void keepsEveryDamagedFile();
    void whatCannotBeReadIsLeftAlone();
    void laterVersionsAreLeftAlone();
    void saysWhatCannotBeWritten();

private:
    QString path() const { return m_folder->filePath(u"deep/down/editors.json"_s); }
    void write(const QByteArray& bytes) const { TestFiles::write(path(), bytes); }
    static SettingsFile::Map zoom(int value) { return {{u"GraphZoom"_s, value}}; }

    std::unique_ptr<QTemporaryDir> m_folder;
};

// Each test has an empty folder.
void tst_SettingsFile::cleanup() { m_folder = std::make_unique<QTemporaryDir>(); }

void tst_SettingsFile::standsWithTheUsersSettings()
{
    QStandardPaths::setTestModeEnabled(true);
    const QString file = SettingsFile::standardFile();
    QCOMPARE(file, QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                       u"/zolta/editors.json"_s);
    QVERIFY(QDir::isAbsolutePath(file));
    QStandardPaths::setTestModeEnabled(false);
}

void tst_SettingsFile::keepsMapsForTheNextRun()
{
    const SettingsFile::Map one = zoom(3);
    const SettingsFile::Map two{{u"GraphZoom"_s, 6}, {u"Other"_s, true}};
    SettingsFile first;
    QCOMPARE(first.open(path()).error(), QString());
    QCOMPARE(first.map(0), SettingsFile::Map());
    first.keep(0, {});
    QVERIFY(QDir(m_folder->path()).isEmpty());
    first.keep(0, one);
    first.keep(6, one);
    first.keep(6, {});
    first.keep(7, two);
    SettingsFile second;
    QCOMPARE(second.open(path()).error(), QString());
    QCOMPARE(second.map(0), one);
    QCOMPARE(second.map(1), SettingsFile::Map());
    QCOMPARE(second.map(6), SettingsFile::Map());
    QCOMPARE(second.map(7), two);
    QCOMPARE(TestFiles::namesIn(QFileInfo(path()).path()), QStringList(u"editors.json"_s));
}

void tst_SettingsFile::keepsEveryKindOfValue_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("integer") << QVariant(-12);
    QTest::newRow("fraction") << QVariant(0.1);
    QTest::newRow("truth") << QVariant(true);
    QTest::newRow("text") << QVariant(u"\"日本語\" \\ \n"_s);
    QTest::newRow("list") << QVariant(QVariantList{1, u"two"_s, 3.5});
    QTest::newRow("map") << QVariant(QVariantMap{{u"a"_s, u"b"_s}});
}

void tst_SettingsFile::keepsEveryKindOfValue()
{
    QFETCH(const QVariant, value);
    SettingsFile first;
    QVERIFY(first.open(path()).isOk());
    first.keep(2, {{u"key"_s, value}});
    SettingsFile second;
    QCOMPARE(second.open(path()).error(), QString());
    QCOMPARE(second.map(2).value(u"key"_s), value);
}

void tst_SettingsFile::preferencesStandBesideTheMaps()
{
    SettingsFile first;
    QVERIFY(first.open(path()).isOk());
    QCOMPARE(first.preference(u"mode"_s, 2), QVariant(2));
    first.keep(3, zoom(1));
    first.setPreference(u"mode"_s, 1);
    first.setPreference(u"files"_s, QStringList{u"a.wav"_s, u"b.wav"_s});
    SettingsFile second;
    QCOMPARE(second.open(path()).error(), QString());
    QCOMPARE(second.map(3), zoom(1));
    QCOMPARE(second.preference(u"mode"_s, 2), QVariant(1));
    QCOMPARE(second.preference(u"files"_s).toStringList(), (QStringList{u"a.wav"_s, u"b.wav"_s}));
    QVERIFY(QFile::remove(path()));
    second.setPreference(u"mode"_s, 1);
    QVERIFY(!QFile::exists(path())); // nothing has changed
    write(R"({"version": 1, "channels": {}, "preferences": "none"})");
    QCOMPARE(second.open(path()).error(), QString());
    QCOMPARE(second.preference(u"mode"_s), QVariant());
}

void tst_SettingsFile::withoutAFileMapsLastForTheRun()
{
    SettingsFile settings;
    settings.keep(4, zoom(2));
    QCOMPARE(settings.map(4), zoom(2));
    QVERIFY(QDir(m_folder->path()).isEmpty());
}

void tst_SettingsFile::writesOnlyChanges()
{
    SettingsFile settings;
    QVERIFY(settings.open(path()).isOk());
    settings.keep(1, zoom(1));
    QVERIFY(QFile::remove(path()));
    settings.keep(1, zoom(1));
    QVERIFY(!QFile::exists(path()));
    settings.keep(1, zoom(2));
    QVERIFY(QFile::exists(path()));
}

void tst_SettingsFile::damagedFilesAreIgnoredAndKeptAside_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const QByteArray& bytes, const char* reason) {
        QTest::newRow(name) << bytes << QString::fromLatin1(reason);
    };
    row("empty", "", "The file is not valid JSON: illegal value at byte 0.");
    row("text", "hello", "The file is not valid JSON: illegal value at byte 1.");
    row("zeros", QByteArray(100, '\0'), "The file is not valid JSON: illegal value at byte 1.");
    row("cut short", R"({"version": 1, "channels": {"0": {"GraphZo)",
        "The file is not valid JSON: unterminated string at byte 43.");
    row("no map", "[1, 2]", "The file is not a settings file of version 1.");
    row("no version", R"({"channels": {}})", "The file is not a settings file of version 1.");
    row("version 0", R"({"version": 0, "channels": {}})",
        "The file is not a settings file of version 1.");
    row("no channels", R"({"version": 1})", "The file has no channels.");
    row("channels are a list", R"({"version": 1, "channels": []})", "The file has no channels.");
    row("channel beyond", R"({"version": 1, "channels": {"0": {"GraphZoom": 1}, "32": {}}})",
        "\"32\" is not a channel with settings.");
    row("channel is no number", R"({"version": 1, "channels": {"one": {}}})",
        "\"one\" is not a channel with settings.");
    row("channel is no map", R"({"version": 1, "channels": {"1": 3}})",
        "\"1\" is not a channel with settings.");
    row("too long", QByteArray((1 << 20) + 1, ' '), "The file is too long.");
}

void tst_SettingsFile::damagedFilesAreIgnoredAndKeptAside()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, reason);
    write(bytes);
    SettingsFile settings;
    QCOMPARE(settings.open(path()).error(),
             u"The editors' settings in %1 are damaged and ignored. %2 The file is "
             "kept as %1.damaged."_s.arg(path(), reason));
    for (int channel = 0; channel < 8; ++channel)
        QCOMPARE(settings.map(channel), SettingsFile::Map());
    QVERIFY(!QFile::exists(path()));
    QCOMPARE(TestFiles::read(path() + u".damaged"_s), bytes);
    settings.keep(3, zoom(5));
    SettingsFile next;
    QCOMPARE(next.open(path()).error(), QString());
    QCOMPARE(next.map(3), zoom(5));
}

void tst_SettingsFile::keepsEveryDamagedFile()
{
    for (const char* bytes : {"first", "second", "third"}) {
        write(bytes);
        QVERIFY(!SettingsFile().open(path()).isOk());
    }
    QCOMPARE(TestFiles::read(path() + u".damaged"_s), "first"_ba);
    QCOMPARE(TestFiles::read(path() + u".damaged-2"_s), "second"_ba);
    QCOMPARE(TestFiles::read(path() + u".damaged-3"_s), "third"_ba);
}

void tst_SettingsFile::whatCannotBeReadIsLeftAlone()
{
    QVERIFY(QDir().mkpath(path())); // a folder of that name
    SettingsFile settings;
    const QString error = settings.open(path()).error();
    QVERIFY2(error.startsWith(u"The editors' settings in %1 cannot be read because %1 is not a "
                              "regular file."_s.arg(path())),
             qPrintable(error));
    QString report;
    settings.setReporter([&report](const QString& sentence) { report = sentence; });
    settings.keep(0, zoom(5));
    QCOMPARE(report, QString());
    QCOMPARE(settings.map(0), zoom(5));
    QVERIFY(QFileInfo(path()).isDir());
    QVERIFY(QDir(path()).isEmpty());
}

void tst_SettingsFile::laterVersionsAreLeftAlone()
{
    const QByteArray bytes = R"({"version": 2, "channels": {"0": {"GraphZoom": 1}}})";
    write(bytes);
    SettingsFile settings;
    QCOMPARE(settings.open(path()).error(),
             u"The editors' settings in %1 were saved by a later version of this "
             "program. They are left alone, and no settings will be saved."_s.arg(path()));
    settings.keep(0, zoom(5));
    QCOMPARE(TestFiles::read(path()), bytes);
    QCOMPARE(QFileInfo(path()).dir().entryList(QDir::Files).size(), 1);
}

void tst_SettingsFile::saysWhatCannotBeWritten()
{
    QFile inTheWay(m_folder->filePath(u"deep"_s));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    SettingsFile settings;
    QStringList reports;
    settings.setReporter([&reports](const QString& sentence) { reports << sentence; });
    QCOMPARE(settings.open(path()).error(), QString());
    settings.keep(0, zoom(5));
    QCOMPARE(reports.size(), 1);
    QVERIFY2(reports[0].startsWith(u"The editors' settings cannot be saved. The file %1 cannot be "
                                   "written: "_s.arg(path())),
             qPrintable(reports[0]));
}

QTEST_GUILESS_MAIN(tst_SettingsFile)

#include "tst_SettingsFile.moc"
