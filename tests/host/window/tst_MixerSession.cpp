// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/EditorWindow.h"
#include "host/window/Mixer.h"
#include "host/window/MixerSession.h"
#include "host/window/MixerWindow.h"
#include "host/window/ResponseView.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <functional>

using Change = std::function<void(Mixer&, MixerWindow&, EditorWindow*)>;

class tst_MixerSession : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void missingFileChangesNothing();
    void everythingComesBack();
    void windowsComeBack();
    void historyIsEmptyAfterwards();
    void lastWindowSaves();
    void quitSavesWhatIsOpen();
    void changesAreSavedAfterAWhile_data();
    void changesAreSavedAfterAWhile();
    void aChangeIsNotSavedAtOnce();
    void damagedFileIsKeptAside_data();
    void damagedFileIsKeptAside();
    void secondDamagedFileTakesAnotherName();
    void damagedFilesKeepOddNames();
    void folderIsLeftAlone();
    void laterVersionIsLeftAlone();
    void readingChangesNoFile();
    void sessionOfAnotherProgramIsNotSaved();
    void damageIsLeftToTheProgramThatWasFirst();
    void missingKeysKeepDefaults();
    void unknownKeysAreKept();
    void failedWriteLeavesTheOldFile();
    void failedWriteAsksBeforeTheLastWindowCloses();
    void failedWriteAsksBeforeTheProgramEnds();
    void unchangedSessionIsNotWritten();
    void nothingIsWrittenWithoutAFile();
    void earlierSessionsOpen();
    void uselessGeometryIsIgnored();

private:
    QByteArray content(const QString& file) const;
    void write(const QString& file, const QByteArray& bytes) const;
    QJsonObject saved() const { return QJsonDocument::fromJson(content(m_file)).object(); }
    void load(Mixer& mixer) const;
    static bool isMeasured(const EditorWindow* editor);

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
    std::unique_ptr<Mixer> m_mixer;
};

void tst_MixerSession::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
    m_file = m_folder->filePath(QStringLiteral("deep/session.json"));
    m_mixer = std::make_unique<Mixer>();
    load(*m_mixer);
}

void tst_MixerSession::cleanup()
{
    m_mixer.reset();
    m_folder.reset();
}

void tst_MixerSession::load(Mixer& mixer) const
{
    QCOMPARE(mixer.library.load(QStringLiteral(HOST_TEST_PLUGINS "/libhost_stand_in.so")).error(),
             QString());
}

bool tst_MixerSession::isMeasured(const EditorWindow* editor)
{
    return editor->findChild<ResponseView*>()->isVisible();
}

QByteArray tst_MixerSession::content(const QString& file) const
{
    QFile input(file);
    return input.open(QIODevice::ReadOnly) ? input.readAll() : QByteArray();
}

void tst_MixerSession::write(const QString& file, const QByteArray& bytes) const
{
    QDir().mkpath(QFileInfo(file).path());
    QFile output(file);
    QVERIFY(output.open(QIODevice::WriteOnly));
    output.write(bytes);
}

void tst_MixerSession::missingFileChangesNothing()
{
    MixerSession session(*m_mixer);
    QCOMPARE(session.open(m_file).error(), QString());
    QVERIFY(!QFile::exists(m_file));
    QCOMPARE(m_mixer->memory.values(0), HostMemory().values(0));
    QVERIFY(session.save());
    QVERIFY(QFile::exists(m_file));
}

void tst_MixerSession::everythingComesBack()
{
    auto session = std::make_unique<MixerSession>(*m_mixer);
    QCOMPARE(session->open(m_file).error(), QString());
    HostMemory::Values values[channelCount];
    for (int ch = 0; ch < channelCount; ++ch) {
        m_mixer->mixerModel.setName(ch, QStringLiteral("Name \"%1\" \u97f3").arg(ch));
        for (std::size_t i = 0; i < stripParameterCount; ++i) {
            const int steps = stripTable[i].maximum + 1;
            m_mixer->memory.setStrip(ch, static_cast<StripParameter>(i), (37 * ch + 11) % steps);
        }
        for (std::size_t i = 0; i < parameterCount; ++i) {
            const Parameter& p = parameterTable[i];
            values[ch][i] =
                p.minimum + (29 * ch + static_cast<int>(7 * i)) % (p.maximum - p.minimum + 1);
        }
        m_mixer->memory.write(ch, values[ch]);
        m_mixer->settings.keep(ch, {{QStringLiteral("GraphZoom"), ch}});
    }
    m_mixer->mixerModel.compare().choose(3, true);
    QVERIFY(session->save());
    session.reset();

    Mixer fresh;
    MixerSession restored(fresh);
    QCOMPARE(restored.open(m_file).error(), QString());
    for (int ch = 0; ch < channelCount; ++ch) {
        QCOMPARE(fresh.mixerModel.name(ch), m_mixer->mixerModel.name(ch));
        QCOMPARE(fresh.memory.values(ch), m_mixer->memory.values(ch));
        for (std::size_t i = 0; i < stripParameterCount; ++i)
            QCOMPARE(fresh.memory.strip(ch, static_cast<StripParameter>(i)),
                     m_mixer->memory.strip(ch, static_cast<StripParameter>(i)));
        QCOMPARE(fresh.settings.map(ch).value(QStringLiteral("GraphZoom")).toInt(), ch);
        QCOMPARE(fresh.mixerModel.compare().isB(ch), ch == 3);
    }
    QCOMPARE(fresh.memory.values(3), HostMemory().values(3));
    fresh.mixerModel.compare().choose(3, false);
    QCOMPARE(fresh.memory.values(3), values[3]);
}

void tst_MixerSession::windowsComeBack()
{
    {
        MixerWindow window(*m_mixer, EditorSettings());
        MixerSession session(*m_mixer);
        QVERIFY(session.open(m_file).isOk());
        QVERIFY(!session.restoreWindows(window));
        window.show();
        window.resize(700, 410);
        window.move(30, 20);
        EditorWindow* editor = window.openEditor(3, false);
        editor->setScale(1.5);
        editor->setMeasured(true);
        auto* parameters = editor->findChild<QDockWidget*>(QStringLiteral("parameters"));
        editor->addDockWidget(Qt::LeftDockWidgetArea, parameters);
        editor->resize(644, 433);
        editor->move(12, 34);
        window.openEditor(6, true);
        QVERIFY(session.save());
    }
    Mixer fresh;
    load(fresh);
    MixerWindow window(fresh, EditorSettings());
    MixerSession session(fresh);
    QCOMPARE(session.open(m_file).error(), QString());
    window.show();
    QVERIFY(session.restoreWindows(window));
    QCOMPARE(window.size(), QSize(700, 410));
    QCOMPARE(window.pos(), QPoint(30, 20));
    const QList<EditorWindow*> editors = window.editors();
    QCOMPARE(editors.size(), 2);
    QCOMPARE(editors[0]->settings().channel, 3);
    QVERIFY(!editors[0]->settings().stereo);
    QCOMPARE(editors[0]->settings().scale, 1.5);
    QVERIFY(isMeasured(editors[0]));
    QVERIFY(!isMeasured(editors[1]));
    auto* parameters = editors[0]->findChild<QDockWidget*>(QStringLiteral("parameters"));
    QCOMPARE(editors[0]->dockWidgetArea(parameters), Qt::LeftDockWidgetArea);
    QCOMPARE(editors[0]->size(), QSize(644, 433));
    QCOMPARE(editors[0]->pos(), QPoint(12, 34));
    QCOMPARE(editors[1]->settings().channel, 6);
    QVERIFY(editors[1]->settings().stereo);
}

void tst_MixerSession::historyIsEmptyAfterwards()
{
    m_mixer->memory.setStrip(2, StripParameter::Level, 111);
    auto session = std::make_unique<MixerSession>(*m_mixer);
    QVERIFY(session->open(m_file).isOk());
    QVERIFY(session->save());
    session.reset();
    MixerSession again(*m_mixer);
    QCOMPARE(again.open(m_file).error(), QString());
    QCOMPARE(m_mixer->mixerModel.history().stack().count(), 0);
}

void tst_MixerSession::lastWindowSaves()
{
    MixerWindow window(*m_mixer, EditorSettings());
    MixerSession session(*m_mixer);
    QVERIFY(session.open(m_file).isOk());
    session.restoreWindows(window);
    window.show();
    EditorWindow* editor = window.openEditor(1, true);
    window.close();
    QVERIFY(!QFile::exists(m_file)); // the editor is still open
    m_mixer->mixerModel.rename(0, QStringLiteral("Late"));
    editor->close();
    QCOMPARE(saved()[QStringLiteral("channels")][0][QStringLiteral("name")].toString(),
             QStringLiteral("Late"));
    QCOMPARE(saved()[QStringLiteral("editors")].toArray().size(), 1);
}

void tst_MixerSession::quitSavesWhatIsOpen()
{
    MixerWindow window(*m_mixer, EditorSettings());
    MixerSession session(*m_mixer);
    QVERIFY(session.open(m_file).isOk());
    session.restoreWindows(window);
    window.show();
    window.openEditor(1, true);
    window.openEditor(5, true);
    window.quit();
    QVERIFY(!window.isVisible());
    QCOMPARE(saved()[QStringLiteral("editors")].toArray().size(), 2);
}

void tst_MixerSession::changesAreSavedAfterAWhile_data()
{
    QTest::addColumn<Change>("change");
    const auto row = [](const char* name, const Change& change) { QTest::newRow(name) << change; };
    row("edit", [](Mixer& mixer, MixerWindow&, EditorWindow*) {
        mixer.memory.setStrip(0, StripParameter::Mute, 1);
    });
    row("change that is no edit",
        [](Mixer& mixer, MixerWindow&, EditorWindow*) { mixer.mixerModel.feed(0, false); });
    row("editor opened",
        [](Mixer&, MixerWindow& window, EditorWindow*) { window.openEditor(4, true); });
    row("editor moved", [](Mixer&, MixerWindow&, EditorWindow* editor) {
        editor->move(editor->pos() + QPoint(5, 5));
    });
    row("window resized", [](Mixer&, MixerWindow& window, EditorWindow*) {
        window.resize(window.size() - QSize(5, 5));
    });
    row("editor closed", [](Mixer&, MixerWindow&, EditorWindow* editor) { editor->close(); });
}

void tst_MixerSession::changesAreSavedAfterAWhile()
{
    QFETCH(const Change, change);
    MixerWindow window(*m_mixer, EditorSettings());
    MixerSession session(*m_mixer, {}, 0);
    QVERIFY(session.open(m_file).isOk());
    session.restoreWindows(window);
    window.show();
    EditorWindow* editor = window.openEditor(2, true);
    QTRY_VERIFY(QFile::exists(m_file));
    QCoreApplication::processEvents();
    QVERIFY(QFile::remove(m_file));
    QCoreApplication::processEvents();
    QVERIFY(!QFile::exists(m_file)); // nothing has changed
    change(*m_mixer, window, editor);
    QTRY_VERIFY(QFile::exists(m_file));
}

void tst_MixerSession::aChangeIsNotSavedAtOnce()
{
    MixerWindow window(*m_mixer, EditorSettings());
    MixerSession session(*m_mixer);
    QVERIFY(session.open(m_file).isOk());
    session.restoreWindows(window);
    m_mixer->memory.setStrip(0, StripParameter::Mute, 1);
    QCoreApplication::processEvents();
    QVERIFY(!QFile::exists(m_file));
}

void tst_MixerSession::damagedFileIsKeptAside_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const QByteArray& bytes, const char* reason) {
        QTest::newRow(name) << bytes << QString::fromLatin1(reason);
    };
    const auto session = [](const QByteArray& rest) {
        return "{\"zolta-session\": 1, " + rest + "}";
    };
    row("empty", "", "illegal value at byte 0");
    row("cut", "{\"zolta-session\": 1, \"chan", "at byte");
    row("no session", "{}", "The file is not a session file.");
    row("list", "[]", "The file is not a session file.");
    row("version 0", "{\"zolta-session\": 0}",
        "The file has version 0, which this program does not know.");
    row("channels", session("\"channels\": 3"), "channels must be a list.");
    row("nine channels", session("\"channels\": [{},{},{},{},{},{},{},{},{}]"),
        "channels has 9 entries, but the mixer has 8 channels.");
    row("channel", session("\"channels\": [{}, []]"), "channels[1] must be an object.");
    row("name", session("\"channels\": [{\"name\": 3}]"), "channels[0].name must be text.");
    row("strip", session("\"channels\": [{\"strip\": \"x\"}]"),
        "channels[0].strip must be an object.");
    row("level type", session("\"channels\": [{},{},{},{\"strip\": {\"level\": -3.5}}]"),
        "channels[3].strip.level must be text.");
    row("level", session("\"channels\": [{\"strip\": {\"level\": \"loud\"}}]"),
        "channels[0].strip.level cannot be set to \"loud\".");
    row("equalizer", session("\"channels\": [{\"equalizer\": {\"Low gain\": 3}}]"),
        "channels[0].equalizer cannot be read. The value of \"Low gain\" must be text.");
    row("chosen", session("\"channels\": [{\"compare\": {\"chosen\": \"C\"}}]"),
        "channels[0].compare.chosen must be A or B.");
    row("other", session("\"channels\": [{\"compare\": {\"other\": true}}]"),
        "channels[0].compare.other must be an object.");
    row("map", session("\"channels\": [{\"editor\": [1]}]"),
        "channels[0].editor must be an object.");
    row("geometry", session("\"mixer\": {\"geometry\": [1, 2]}"), "mixer.geometry must be text.");
    row("editor", session("\"editors\": [4]"), "editors[0] must be an object.");
    row("channel of an editor", session("\"editors\": [{\"channel\": 8}]"),
        "editors[0].channel is 8, but must be between 0 and 7.");
    row("stereo", session("\"editors\": [{\"channel\": 1, \"stereo\": 1}]"),
        "editors[0].stereo must be true or false.");
    row("measured", session("\"editors\": [{\"measured\": 1}]"),
        "editors[0].measured must be true or false.");
    row("geometry of an editor", session("\"editors\": [{\"geometry\": 1}]"),
        "editors[0].geometry must be text.");
    row("state", session("\"editors\": [{\"state\": {}}]"), "editors[0].state must be text.");
    row("scale", session("\"editors\": [{\"scale\": 100}]"),
        "editors[0].scale is 100, but must be between 0.5 and 4.");
}

void tst_MixerSession::damagedFileIsKeptAside()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, reason);
    write(m_file, bytes);
    MixerSession session(*m_mixer);
    const QString error = session.open(m_file).error();
    QVERIFY2(
        error.startsWith(
            QStringLiteral("The session %1 is damaged. ").arg(QDir::toNativeSeparators(m_file))),
        qPrintable(error));
    QVERIFY2(error.contains(reason), qPrintable(error));
    QVERIFY(!QFile::exists(m_file));
    QCOMPARE(content(m_file + QStringLiteral(".damaged")), bytes);
    for (int ch = 0; ch < channelCount; ++ch)
        QCOMPARE(m_mixer->memory.values(ch), HostMemory().values(ch));
    QVERIFY(session.save());
    QVERIFY(QFile::exists(m_file));
    QCOMPARE(content(m_file + QStringLiteral(".damaged")), bytes);
}

void tst_MixerSession::secondDamagedFileTakesAnotherName()
{
    write(m_file + QStringLiteral(".damaged"), "first");
    write(m_file, "second");
    MixerSession session(*m_mixer);
    QVERIFY(session.open(m_file).error().contains(QStringLiteral("session.json.damaged-2")));
    QCOMPARE(content(m_file + QStringLiteral(".damaged")), QByteArray("first"));
    QCOMPARE(content(m_file + QStringLiteral(".damaged-2")), QByteArray("second"));
}

// What looks like a place to fill in is a part of the name.
void tst_MixerSession::damagedFilesKeepOddNames()
{
    const QString file = m_folder->filePath(QStringLiteral("100%1%2.json"));
    write(file + QStringLiteral(".damaged"), "first");
    write(file, "second");
    MixerSession session(*m_mixer);
    QVERIFY(session.open(file).error().contains(QStringLiteral("100%1%2.json.damaged-2")));
    QCOMPARE(content(file + QStringLiteral(".damaged-2")), QByteArray("second"));
}

void tst_MixerSession::folderIsLeftAlone()
{
    MixerSession session(*m_mixer);
    QVERIFY(session.open(m_folder->path()).error().contains(QStringLiteral("cannot be read")));
    QVERIFY(session.save());
    QVERIFY(QFileInfo(m_folder->path()).isDir());
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList());
}

void tst_MixerSession::laterVersionIsLeftAlone()
{
    const QByteArray bytes = "{\"zolta-session\": 2, \"channels\": 8}";
    write(m_file, bytes);
    MixerSession session(*m_mixer);
    QCOMPARE(session.open(m_file).error(),
             QStringLiteral("The session %1 cannot be read. The file has version 2, which this "
                            "program does not know. The file is left alone, and nothing will be "
                            "saved.")
                 .arg(QDir::toNativeSeparators(m_file)));
    m_mixer->mixerModel.setName(0, QStringLiteral("New"));
    QVERIFY(session.save());
    QCOMPARE(content(m_file), bytes);
    QVERIFY(!QFile::exists(m_file + QStringLiteral(".damaged")));
}

void tst_MixerSession::readingChangesNoFile()
{
    MixerSession session(*m_mixer);
    QVERIFY2(session.read(m_file).error().contains(QStringLiteral("cannot be read: No such file")),
             "a file that is not there");
    write(m_file, "damaged");
    QCOMPARE(
        session.read(m_file).error(),
        QStringLiteral("The session %1 is damaged. The file is not valid JSON: illegal value at "
                       "byte 1.")
            .arg(m_file));
    QVERIFY(session.save());
    QCOMPARE(content(m_file), QByteArray("damaged"));
    write(m_file, "{\"zolta-session\": 1, \"channels\": [{\"name\": \"Read\"}]}");
    const QByteArray before = content(m_file);
    QCOMPARE(session.read(m_file).error(), QString());
    QCOMPARE(m_mixer->mixerModel.name(0), QStringLiteral("Read"));
    m_mixer->mixerModel.setName(0, QStringLiteral("New"));
    QVERIFY(session.save());
    QCOMPARE(content(m_file), before);
}

void tst_MixerSession::sessionOfAnotherProgramIsNotSaved()
{
    auto first = std::make_unique<MixerSession>(*m_mixer);
    QCOMPARE(first->open(m_file).error(), QString());
    m_mixer->mixerModel.setName(0, QStringLiteral("First"));
    QVERIFY(first->save());
    const QByteArray before = content(m_file);

    Mixer other;
    MixerSession second(other);
    QCOMPARE(
        second.open(m_file).error(),
        QStringLiteral("Another program has the session %1 open, as its lock file %1.lock says. "
                       "Changes made here will not be saved.")
            .arg(QDir::toNativeSeparators(m_file)));
    QVERIFY(!second.isNew());
    QCOMPARE(other.mixerModel.name(0), QStringLiteral("First"));
    other.mixerModel.setName(0, QStringLiteral("Second"));
    QVERIFY(second.save());
    QCOMPARE(content(m_file), before);

    first.reset();
    MixerSession third(other);
    QCOMPARE(third.open(m_file).error(), QString());
    other.mixerModel.setName(0, QStringLiteral("Third"));
    QVERIFY(third.save());
    QVERIFY(content(m_file) != before);
}

void tst_MixerSession::damageIsLeftToTheProgramThatWasFirst()
{
    MixerSession first(*m_mixer);
    QCOMPARE(first.open(m_file).error(), QString());
    write(m_file, "damaged");
    Mixer other;
    MixerSession second(other);
    QVERIFY(second.open(m_file).error().contains(QStringLiteral("The file is left alone")));
    QVERIFY(second.save());
    QCOMPARE(content(m_file), QByteArray("damaged"));
}

void tst_MixerSession::missingKeysKeepDefaults()
{
    write(m_file, "{\"zolta-session\": 1, \"channels\": [{}, {\"equalizer\": {\"Low gain\": "
                  "\"+6.0\"}, \"strip\": {\"mute\": \"on\"}}]}");
    MixerSession session(*m_mixer);
    QCOMPARE(session.open(m_file).error(), QString());
    HostMemory::Values expected = HostMemory().values(1);
    expected[2] = 60;
    QCOMPARE(m_mixer->memory.values(1), expected);
    QCOMPARE(m_mixer->memory.strip(1, StripParameter::Mute), 1);
    QCOMPARE(m_mixer->memory.strip(1, StripParameter::Level), unityLevel);
}

void tst_MixerSession::unknownKeysAreKept()
{
    write(m_file, "{\"zolta-session\": 1, \"colour\": \"red\", \"channels\": [{\"icon\": [1]}], "
                  "\"mixer\": {\"skin\": 3}}");
    MixerSession session(*m_mixer);
    QCOMPARE(session.open(m_file).error(), QString());
    m_mixer->mixerModel.setName(0, QStringLiteral("New"));
    QVERIFY(session.save());
    QCOMPARE(saved()[QStringLiteral("colour")].toString(), QStringLiteral("red"));
    const QJsonValue first = saved()[QStringLiteral("channels")][0];
    QCOMPARE(first[QStringLiteral("icon")].toArray(), QJsonArray{1});
    QCOMPARE(first[QStringLiteral("name")].toString(), QStringLiteral("New"));
    QCOMPARE(saved()[QStringLiteral("mixer")][QStringLiteral("skin")].toInt(), 3);
}

// The file is written beside the old one first; where that does not work, the old one stays whole.
void tst_MixerSession::failedWriteLeavesTheOldFile()
{
    QString said;
    MixerSession session(*m_mixer, [&said](const QString& error) { said = error; });
    QVERIFY(session.open(m_file).isOk());
    QVERIFY(session.save());
    const QByteArray before = content(m_file);
    const QString folder = QFileInfo(m_file).path();
    const QString moved = m_folder->filePath(QStringLiteral("moved"));
    QVERIFY(QDir().rename(folder, moved));
    write(folder, "a file in the folder's place");
    m_mixer->mixerModel.setName(0, QStringLiteral("Changed"));
    QVERIFY(!session.save());
    QVERIFY2(said.contains(QStringLiteral("cannot be written")), qPrintable(said));
    QCOMPARE(content(moved + QStringLiteral("/session.json")), before);
    QCOMPARE(content(folder), QByteArray("a file in the folder's place"));
    QVERIFY(QFile::remove(folder) && QDir().rename(moved, folder));
}

void tst_MixerSession::failedWriteAsksBeforeTheLastWindowCloses()
{
    write(QFileInfo(m_file).path(), "a file in the folder's place");
    MixerWindow window(*m_mixer, EditorSettings());
    QStringList said;
    MixerSession session(*m_mixer, [&said](const QString& error) { said << error; });
    QVERIFY(session.open(m_file).isOk());
    session.restoreWindows(window);
    window.show();
    QStringList asked;
    bool answer = false;
    session.setAsker([&](const QString& error) {
        asked << error;
        return answer;
    });
    EditorWindow* editor = window.openEditor(1, true);
    QVERIFY(window.close()); // not the last one
    QCOMPARE(asked, QStringList());
    QVERIFY(!editor->close());
    QVERIFY(editor->isVisible());
    QCOMPARE(asked.size(), 1);
    QVERIFY2(asked[0].contains(QStringLiteral("cannot be written")), qPrintable(asked[0]));
    answer = true;
    QVERIFY(editor->close());
    QCOMPARE(asked.size(), 2);
    QCOMPARE(said, QStringList());
    window.show();
    session.setAsker({});
    QVERIFY(window.close());
    QCOMPARE(said, QStringList(asked[0]));
}

void tst_MixerSession::failedWriteAsksBeforeTheProgramEnds()
{
    write(QFileInfo(m_file).path(), "a file in the folder's place");
    MixerWindow window(*m_mixer, EditorSettings());
    MixerSession session(*m_mixer);
    QVERIFY(session.open(m_file).isOk());
    session.restoreWindows(window);
    window.show();
    EditorWindow* editor = window.openEditor(1, true);
    int asked = 0;
    bool answer = false;
    session.setAsker([&](const QString&) {
        ++asked;
        return answer;
    });
    window.quit();
    QCOMPARE(asked, 1);
    QVERIFY(window.isVisible());
    QVERIFY(editor->isVisible());
    QVERIFY(editor->close()); // not the last one
    answer = true;
    window.quit();
    QCOMPARE(asked, 2);
    QVERIFY(!window.isVisible());
}

void tst_MixerSession::unchangedSessionIsNotWritten()
{
    MixerSession session(*m_mixer);
    QVERIFY(session.open(m_file).isOk());
    QVERIFY(session.save());
    write(m_file, "touched");
    QVERIFY(session.save());
    QCOMPARE(content(m_file), QByteArray("touched"));
    m_mixer->mixerModel.setName(7, QStringLiteral("Now"));
    QVERIFY(session.save());
    QVERIFY(content(m_file) != QByteArray("touched"));
}

void tst_MixerSession::nothingIsWrittenWithoutAFile()
{
    MixerSession session(*m_mixer);
    QVERIFY(session.save());
    QVERIFY(!QFile::exists(m_file));
}

// They kept rectangles in place of the windows' geometry and state.
void tst_MixerSession::earlierSessionsOpen()
{
    write(m_file, "{\"zolta-session\": 1, \"mixer\": {\"place\": [90000, 90000, 400, 300]}, "
                  "\"editors\": [{\"channel\": 2, \"place\": [1, 2, 500, 400], "
                  "\"measured\": true}, {\"channel\": 4, \"measured\": false}]}");
    MixerWindow window(*m_mixer, EditorSettings());
    const QRect before = window.geometry();
    MixerSession session(*m_mixer);
    QCOMPARE(session.open(m_file).error(), QString());
    QVERIFY(session.restoreWindows(window));
    QCOMPARE(window.geometry(), before);
    QCOMPARE(window.editors().size(), 2);
    QVERIFY(isMeasured(window.editors()[0]));
    QVERIFY(!isMeasured(window.editors()[1]));
}

void tst_MixerSession::uselessGeometryIsIgnored()
{
    write(m_file, "{\"zolta-session\": 1, \"mixer\": {\"geometry\": \"AAAA\"}, \"editors\": "
                  "[{\"channel\": 2, \"geometry\": \"?\", \"state\": \"/////w==\"}]}");
    MixerWindow window(*m_mixer, EditorSettings());
    const QRect before = window.geometry();
    MixerSession session(*m_mixer);
    QCOMPARE(session.open(m_file).error(), QString());
    QVERIFY(session.restoreWindows(window));
    QCOMPARE(window.geometry(), before);
    QVERIFY(
        window.editors()[0]->findChild<QDockWidget*>(QStringLiteral("parameters"))->isVisible());
}

ZOLTA_TEST_MAIN(tst_MixerSession)

#include "tst_MixerSession.moc"
