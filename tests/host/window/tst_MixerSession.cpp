// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/MixBus.h"
#include "host/audio/AudioSession.h"
#include "host/window/EditorWindow.h"
#include "host/window/Mixer.h"
#include "host/window/MixerSession.h"
#include "host/window/MixerWindow.h"
#include "host/window/ResponseView.h"
#include "tests/host/audio/FakeDevice.h"
#include "tests/host/audio/SoundFiles.h"
#include "tests/host/window/WindowTesting.h"
#include "tests/support/TestFiles.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <functional>

using namespace Qt::StringLiterals;
using Change = std::function<void(Mixer&, MixerWindow&, EditorWindow*)>;

namespace {

// A mixer's window that is shown, and the session that it belongs to.
struct Running
{
    Running(Mixer& mixer, const QString& file, const MixerSession::Reporter& reporter = {},
            int saveDelay = 10000)
        : window(mixer, EditorSettings())
        , session(mixer, reporter, saveDelay)
    {
        QVERIFY(session.open(file).isOk());
        session.restoreWindows(window);
        window.show();
    }

    MixerWindow window;
    MixerSession session;
};

} // namespace

class tst_MixerSession : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void everythingComesBack_data();
    void everythingComesBack();
    void onlyOtherCountsAreWritten();
    void channelsOfAnotherSessionAreForgotten();
    void windowsComeBack();
    void historyIsEmptyAfterwards();
    void lastWindowSaves();
    void quitSavesWhatIsOpen();
    void changesAreSavedAfterAWhile_data();
    void changesAreSavedAfterAWhile();
    void damagedFileIsKeptAside_data();
    void damagedFileIsKeptAside();
    void damagedFilesKeepOddNames();
    void folderIsLeftAlone();
    void laterVersionIsLeftAlone();
    void readingChangesNoFile();
    void missingKeysKeepDefaults();
    void unknownKeysAreKept();
    void failedWriteAsksBeforeTheLastWindowCloses();
    void failedWriteAsksBeforeTheProgramEnds();
    void unchangedSessionIsNotWritten();
    void earlierSessionsOpen();
    void anotherSessionIsOpened();
    void newSessionBeginsAfresh();
    void savingAsGoesOnThere();
    void savingAsNowhereStaysHere();
    void whatIsWrongChangesNothing_data();
    void whatIsWrongChangesNothing();
    void soundComesBack();
    void missingSoundIsNamed();
    void uselessGeometryIsIgnored();

private:
    QJsonObject saved() const { return QJsonDocument::fromJson(TestFiles::read(m_file)).object(); }
    static bool isMeasured(const EditorWindow* editor);

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
    std::unique_ptr<Mixer> m_mixer;
};

void tst_MixerSession::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
    m_file = m_folder->filePath(u"deep/session.json"_s);
    m_mixer = std::make_unique<Mixer>();
    WindowTesting::loadStandIn(*m_mixer);
}

void tst_MixerSession::cleanup()
{
    m_mixer.reset();
    m_folder.reset();
}

bool tst_MixerSession::isMeasured(const EditorWindow* editor)
{
    return editor->findChild<ResponseView*>()->isVisible();
}

void tst_MixerSession::everythingComesBack_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {2, 8, 32})
        QTest::addRow("%d channels", count) << count;
}

void tst_MixerSession::everythingComesBack()
{
    QFETCH(const int, count);
    const int last = count - 1;
    m_mixer->mixerModel.setChannelCount(count);
    auto session = std::make_unique<MixerSession>(*m_mixer);
    QVERIFY(session->save()); // nowhere yet
    QCOMPARE(session->open(m_file).error(), QString());
    m_mixer->mixerModel.setChannelCount(count);
    QCOMPARE(m_mixer->memory.values(0), HostMemory().values(0));
    QVERIFY(!QFile::exists(m_file));
    HostMemory::Values values[maxChannelCount];
    for (int ch = 0; ch < count; ++ch) {
        m_mixer->mixerModel.setName(ch, u"Name \"%1\" \u97f3"_s.arg(ch));
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
        m_mixer->settings.keep(ch, {{u"GraphZoom"_s, ch}});
    }
    m_mixer->mixerModel.compare().choose(last, true);
    AnalyzerSettings spectra;
    spectra.order = AnalyzerSettings::smallestOrder;
    spectra.peaks = true;
    m_mixer->analyzer.setSettings(spectra);
    QVERIFY(session->save());
    session.reset();

    Mixer fresh;
    MixerSession restored(fresh);
    QCOMPARE(restored.open(m_file).error(), QString());
    QCOMPARE(fresh.mixerModel.channelCount(), count);
    QCOMPARE(saved()[u"channels"_s].toArray().size(), count);
    for (int ch = 0; ch < count; ++ch) {
        QCOMPARE(fresh.mixerModel.name(ch), m_mixer->mixerModel.name(ch));
        QCOMPARE(fresh.memory.values(ch), m_mixer->memory.values(ch));
        for (std::size_t i = 0; i < stripParameterCount; ++i)
            QCOMPARE(fresh.memory.strip(ch, static_cast<StripParameter>(i)),
                     m_mixer->memory.strip(ch, static_cast<StripParameter>(i)));
        QCOMPARE(fresh.settings.map(ch).value(u"GraphZoom"_s).toInt(), ch);
        QCOMPARE(fresh.mixerModel.compare().isB(ch), ch == last);
    }
    QCOMPARE(fresh.analyzer.settings(), spectra);
    QCOMPARE(fresh.memory.values(last), HostMemory().values(last));
    fresh.mixerModel.compare().choose(last, false);
    QCOMPARE(fresh.memory.values(last), values[last]);
}

// Earlier programs, which know 8 channels, leave sessions with others alone.
void tst_MixerSession::onlyOtherCountsAreWritten()
{
    MixerSession session(*m_mixer);
    QCOMPARE(session.open(m_file).error(), QString());
    const auto written = [&](int count) {
        m_mixer->mixerModel.setChannelCount(count);
        return session.save() ? std::pair(saved()[u"zolta-session"_s].toInt(),
                                          saved()[u"mixer"_s][u"channels"_s].toInt(-1))
                              : std::pair(0, 0);
    };
    QCOMPARE(written(8), std::pair(1, -1));
    QCOMPARE(written(16), std::pair(2, 16));
    QCOMPARE(written(2), std::pair(2, 2));
    QCOMPARE(written(8), std::pair(1, -1));
}

// Those that a smaller session hides do not come back with the values of the one before.
void tst_MixerSession::channelsOfAnotherSessionAreForgotten()
{
    m_mixer->mixerModel.setChannelCount(32);
    m_mixer->mixerModel.setName(31, u"Old"_s);
    m_mixer->memory.setStrip(31, StripParameter::Mute, 1);
    m_mixer->memory.write(31, HostMemory::Values{});
    m_mixer->mixerModel.compare().choose(31, true);
    TestFiles::write(m_file, R"({"zolta-session": 2, "mixer": {"channels": 4}})");
    MixerSession session(*m_mixer);
    QCOMPARE(session.open(m_file).error(), QString());
    QCOMPARE(m_mixer->mixerModel.channelCount(), 4);
    m_mixer->mixerModel.setChannelCount(32);
    QCOMPARE(m_mixer->mixerModel.name(31), QString());
    QCOMPARE(m_mixer->memory.strip(31, StripParameter::Mute), 0);
    QCOMPARE(m_mixer->memory.values(31), HostMemory().values(0));
    QVERIFY(!m_mixer->mixerModel.compare().isB(31));
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
        auto* parameters = editor->findChild<QDockWidget*>(u"parameters"_s);
        editor->addDockWidget(Qt::LeftDockWidgetArea, parameters);
        editor->resize(644, 473);
        editor->move(12, 34);
        window.openEditor(6, true);
        QVERIFY(session.save());
    }
    Mixer fresh;
    WindowTesting::loadStandIn(fresh);
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
    auto* parameters = editors[0]->findChild<QDockWidget*>(u"parameters"_s);
    QCOMPARE(editors[0]->dockWidgetArea(parameters), Qt::LeftDockWidgetArea);
    QCOMPARE(editors[0]->size(), QSize(644, 473));
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
    Running running(*m_mixer, m_file);
    auto& [window, session] = running;
    EditorWindow* editor = window.openEditor(1, true);
    window.close();
    QCoreApplication::processEvents();
    QVERIFY(!QFile::exists(m_file)); // the editor is still open, and nothing is saved at once
    m_mixer->mixerModel.rename(0, u"Late"_s);
    editor->close();
    QCOMPARE(saved()[u"channels"_s][0][u"name"_s].toString(), u"Late"_s);
    QCOMPARE(saved()[u"editors"_s].toArray().size(), 1);
}

void tst_MixerSession::quitSavesWhatIsOpen()
{
    Running running(*m_mixer, m_file);
    auto& [window, session] = running;
    window.openEditor(1, true);
    window.openEditor(5, true);
    window.quit();
    QVERIFY(!window.isVisible());
    QCOMPARE(saved()[u"editors"_s].toArray().size(), 2);
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
    row("analyzer set", [](Mixer& mixer, MixerWindow&, EditorWindow*) {
        AnalyzerSettings settings;
        settings.peaks = true;
        mixer.analyzer.setSettings(settings);
    });
    row("editor closed", [](Mixer&, MixerWindow&, EditorWindow* editor) { editor->close(); });
}

void tst_MixerSession::changesAreSavedAfterAWhile()
{
    QFETCH(const Change, change);
    Running running(*m_mixer, m_file, {}, 0);
    auto& [window, session] = running;
    EditorWindow* editor = window.openEditor(2, true);
    QTRY_VERIFY(QFile::exists(m_file));
    QCoreApplication::processEvents();
    QVERIFY(QFile::remove(m_file));
    QCoreApplication::processEvents();
    QVERIFY(!QFile::exists(m_file)); // nothing has changed
    change(*m_mixer, window, editor);
    QTRY_VERIFY(QFile::exists(m_file));
}

void tst_MixerSession::damagedFileIsKeptAside_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* name, const QByteArray& bytes, const char* reason) {
        QTest::newRow(name) << bytes << QString::fromLatin1(reason);
    };
    const auto part = [](const char* name, const QByteArray& rest, const char* reason) {
        QTest::newRow(name) << "{\"zolta-session\": 1, " + rest + "}"
                            << QString::fromLatin1(reason);
    };
    row("empty", "", "illegal value at byte 0");
    row("cut", "{\"zolta-session\": 1, \"chan", "at byte");
    row("no session", "{}", "The file is not a session file.");
    row("list", "[]", "The file is not a session file.");
    row("version 0", "{\"zolta-session\": 0}",
        "The file has version 0, which this program does not know.");
    part("channels", R"("channels": 3)", "channels must be a list.");
    part("nine channels", R"("channels": [{},{},{},{},{},{},{},{},{}])",
         "channels has 9 entries, but the mixer has 8 channels.");
    const auto count = [&part](const char* number, const char* reason) {
        part(number, R"("mixer": {"channels": )"_ba + number + "}", reason);
    };
    count("0", "mixer.channels is 0, but must be between 2 and 32.");
    count("34", "mixer.channels is 34, but must be between 2 and 32.");
    count("-1e99", "mixer.channels is -1e+99, but must be between 2 and 32.");
    count("7", "mixer.channels is 7, but must be an even number.");
    count("8.5", "mixer.channels is 8.5, but must be an even number.");
    count("\"8\"", "mixer.channels must be a number.");
    part("three of two channels", R"("mixer": {"channels": 2}, "channels": [{},{},{}])",
         "channels has 3 entries, but the mixer has 2 channels.");
    part("editor of a channel too many",
         R"("mixer": {"channels": 16}, "editors": [{"channel": 16}])",
         "editors[0].channel is 16, but must be between 0 and 15.");
    part("channel", R"("channels": [{}, []])", "channels[1] must be an object.");
    part("name", R"("channels": [{"name": 3}])", "channels[0].name must be text.");
    part("strip", R"("channels": [{"strip": "x"}])", "channels[0].strip must be an object.");
    part("level type", R"("channels": [{},{},{},{"strip": {"level": -3.5}}])",
         "channels[3].strip.level must be text.");
    part("level", R"("channels": [{"strip": {"level": "loud"}}])",
         "channels[0].strip.level cannot be set to \"loud\".");
    part("equalizer", R"("channels": [{"equalizer": {"Low gain": 3}}])",
         "channels[0].equalizer cannot be read. The value of \"Low gain\" must be text.");
    part("chosen", R"("channels": [{"compare": {"chosen": "C"}}])",
         "channels[0].compare.chosen must be A or B.");
    part("other", R"("channels": [{"compare": {"other": true}}])",
         "channels[0].compare.other must be an object.");
    part("map", R"("channels": [{"editor": [1]}])", "channels[0].editor must be an object.");
    part("geometry", R"("mixer": {"geometry": [1, 2]})", "mixer.geometry must be text.");
    part("analyzer", R"("mixer": {"analyzer": 3})", "mixer.analyzer must be an object.");
    part("editor", R"("editors": [4])", "editors[0] must be an object.");
    part("channel of an editor", R"("editors": [{"channel": 8}])",
         "editors[0].channel is 8, but must be between 0 and 7.");
    part("stereo", R"("editors": [{"channel": 1, "stereo": 1}])",
         "editors[0].stereo must be true or false.");
    part("measured", R"("editors": [{"measured": 1}])",
         "editors[0].measured must be true or false.");
    part("geometry of an editor", R"("editors": [{"geometry": 1}])",
         "editors[0].geometry must be text.");
    part("state", R"("editors": [{"state": {}}])", "editors[0].state must be text.");
    part("scale", R"("editors": [{"scale": 100}])",
         "editors[0].scale is 100, but must be between 0.5 and 4.");
}

void tst_MixerSession::damagedFileIsKeptAside()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, reason);
    TestFiles::write(m_file, bytes);
    MixerSession session(*m_mixer);
    const QString error = session.open(m_file).error();
    QVERIFY2(
        error.startsWith(u"The session %1 is damaged. "_s.arg(QDir::toNativeSeparators(m_file))),
        qPrintable(error));
    QVERIFY2(error.contains(reason), qPrintable(error));
    QVERIFY(!QFile::exists(m_file));
    QCOMPARE(TestFiles::read(m_file + u".damaged"_s), bytes);
    for (int ch = 0; ch < defaultChannelCount; ++ch)
        QCOMPARE(m_mixer->memory.values(ch), HostMemory().values(ch));
    QVERIFY(session.save());
    QVERIFY(QFile::exists(m_file));
    QCOMPARE(TestFiles::read(m_file + u".damaged"_s), bytes);
}

// What looks like a place to fill in is a part of the name.
void tst_MixerSession::damagedFilesKeepOddNames()
{
    const QString file = m_folder->filePath(u"100%1%2.json"_s);
    TestFiles::write(file + u".damaged"_s, "first");
    TestFiles::write(file, "second");
    MixerSession session(*m_mixer);
    QVERIFY(session.open(file).error().contains(u"100%1%2.json.damaged-2"_s));
    QCOMPARE(TestFiles::read(file + u".damaged-2"_s), "second"_ba);
}

void tst_MixerSession::folderIsLeftAlone()
{
    MixerSession session(*m_mixer);
    QVERIFY(session.open(m_folder->path()).error().contains(u"cannot be read"_s));
    QVERIFY(session.save());
    QVERIFY(QFileInfo(m_folder->path()).isDir());
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList());
}

void tst_MixerSession::laterVersionIsLeftAlone()
{
    const QByteArray bytes = "{\"zolta-session\": 3, \"channels\": 8}";
    TestFiles::write(m_file, bytes);
    MixerSession session(*m_mixer);
    QCOMPARE(session.open(m_file).error(),
             u"The session %1 cannot be read. The file has version 3, which this "
             "program does not know. The file is left alone, and nothing will be "
             "saved."_s.arg(QDir::toNativeSeparators(m_file)));
    m_mixer->mixerModel.setName(0, u"New"_s);
    QVERIFY(session.save());
    QCOMPARE(TestFiles::read(m_file), bytes);
    QVERIFY(!QFile::exists(m_file + u".damaged"_s));
}

void tst_MixerSession::readingChangesNoFile()
{
    MixerSession session(*m_mixer);
    QVERIFY2(session.read(m_file).error().contains(u"cannot be read: No such file"_s),
             "a file that is not there");
    TestFiles::write(m_file, "damaged");
    QCOMPARE(session.read(m_file).error(),
             u"The session %1 is damaged. The file is not valid JSON: illegal value at "
             "byte 1."_s.arg(m_file));
    QVERIFY(session.save());
    QCOMPARE(TestFiles::read(m_file), "damaged"_ba);
    TestFiles::write(m_file, "{\"zolta-session\": 1, \"channels\": [{\"name\": \"Read\"}]}");
    const QByteArray before = TestFiles::read(m_file);
    QCOMPARE(session.read(m_file).error(), QString());
    QCOMPARE(m_mixer->mixerModel.name(0), u"Read"_s);
    m_mixer->mixerModel.setName(0, u"New"_s);
    QVERIFY(session.save());
    QCOMPARE(TestFiles::read(m_file), before);
}

void tst_MixerSession::missingKeysKeepDefaults()
{
    TestFiles::write(m_file,
                     "{\"zolta-session\": 1, \"channels\": [{}, {\"equalizer\": {\"Low gain\": "
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
    TestFiles::write(m_file,
                     "{\"zolta-session\": 1, \"colour\": \"red\", \"channels\": [{\"icon\": [1]}], "
                     "\"mixer\": {\"skin\": 3}}");
    MixerSession session(*m_mixer);
    QCOMPARE(session.open(m_file).error(), QString());
    m_mixer->mixerModel.setName(0, u"New"_s);
    QVERIFY(session.save());
    QCOMPARE(saved()[u"colour"_s].toString(), u"red"_s);
    const QJsonValue first = saved()[u"channels"_s][0];
    QCOMPARE(first[u"icon"_s].toArray(), QJsonArray{1});
    QCOMPARE(first[u"name"_s].toString(), u"New"_s);
    QCOMPARE(saved()[u"mixer"_s][u"skin"_s].toInt(), 3);
}

void tst_MixerSession::failedWriteAsksBeforeTheLastWindowCloses()
{
    TestFiles::write(QFileInfo(m_file).path(), "a file in the folder's place");
    QStringList said;
    Running running(*m_mixer, m_file, [&said](const QString& error) { said << error; });
    auto& [window, session] = running;
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
    QVERIFY2(asked[0].contains(u"cannot be written"_s), qPrintable(asked[0]));
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
    TestFiles::write(QFileInfo(m_file).path(), "a file in the folder's place");
    Running running(*m_mixer, m_file);
    auto& [window, session] = running;
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
    TestFiles::write(m_file, "touched");
    QVERIFY(session.save());
    QCOMPARE(TestFiles::read(m_file), "touched"_ba);
    m_mixer->mixerModel.setName(7, u"Now"_s);
    QVERIFY(session.save());
    QVERIFY(TestFiles::read(m_file) != "touched"_ba);
}

// They kept rectangles in place of the windows' geometry and state.
void tst_MixerSession::earlierSessionsOpen()
{
    TestFiles::write(m_file,
                     "{\"zolta-session\": 1, \"mixer\": {\"place\": [90000, 90000, 400, 300]}, "
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
    QCOMPARE(m_mixer->analyzer.settings(), AnalyzerSettings());
}

void tst_MixerSession::anotherSessionIsOpened()
{
    const QString other = m_folder->filePath(u"other.json"_s);
    TestFiles::write(other, R"({"zolta-session": 1, "channels": [{"name": "Voice"}],
                                "editors": [{"channel": 4}]})");
    Running running(*m_mixer, m_file);
    auto& [window, session] = running;
    m_mixer->mixerModel.rename(0, u"Drums"_s);
    window.openEditor(0, true);
    Q_EMIT window.openSessionWanted(other);
    QCOMPARE(m_mixer->mixerModel.name(0), u"Voice"_s);
    QCOMPARE(window.editors().size(), 1);
    QCOMPARE(window.editors()[0]->settings().channel, 4);
    QCOMPARE(window.windowTitle(), u"other - Mixer"_s);
    QCOMPARE(saved()[u"channels"_s][0][u"name"_s].toString(), u"Drums"_s);
    QVERIFY(!m_mixer->mixerModel.history().stack().canUndo());
    QCOMPARE(MixerSession::lastFile(m_mixer->settings), other);
    QVERIFY(QFile::exists(other + u".lock"_s) && !QFile::exists(m_file + u".lock"_s));
    m_mixer->mixerModel.rename(0, u"Choir"_s);
    QVERIFY(session.save());
    QVERIFY(TestFiles::read(other).contains("Choir"));
    QVERIFY(QFile::remove(other));
    QCOMPARE(MixerSession::lastFile(m_mixer->settings), SessionFile::standardFile());
}

void tst_MixerSession::newSessionBeginsAfresh()
{
    const QString other = TestFiles::write(m_folder->filePath(u"new.json"_s), "anything");
    Running running(*m_mixer, m_file);
    auto& [window, session] = running;
    m_mixer->mixerModel.rename(0, u"Drums"_s);
    m_mixer->memory.setStrip(3, StripParameter::Mute, 1);
    window.openEditor(0, true);
    Q_EMIT window.newSessionWanted(other);
    QCOMPARE(m_mixer->mixerModel.name(0), QString());
    QCOMPARE(m_mixer->memory.strip(3, StripParameter::Mute), 0);
    QCOMPARE(window.editors().size(), 0);
    QVERIFY(SessionFile::read(other).isOk());
    QCOMPARE(saved()[u"channels"_s][0][u"name"_s].toString(), u"Drums"_s);
}

void tst_MixerSession::savingAsGoesOnThere()
{
    const QString other = TestFiles::write(m_folder->filePath(u"kept.json"_s), "anything");
    Running running(*m_mixer, m_file);
    auto& [window, session] = running;
    m_mixer->mixerModel.rename(0, u"Drums"_s);
    QVERIFY(session.save());
    Q_EMIT window.saveSessionWanted(other);
    QCOMPARE(TestFiles::read(other), TestFiles::read(m_file));
    m_mixer->mixerModel.rename(0, u"Bass"_s);
    QVERIFY(session.save());
    QVERIFY(TestFiles::read(other).contains("Bass") && !TestFiles::read(m_file).contains("Bass"));
    QCOMPARE(m_mixer->mixerModel.name(0), u"Bass"_s);
}

void tst_MixerSession::savingAsNowhereStaysHere()
{
    const QString nowhere =
        TestFiles::write(m_folder->filePath(u"a file"_s), "a file") + u"/session.json"_s;
    QStringList errors;
    Running running(*m_mixer, m_file, [&errors](const QString& error) { errors << error; });
    auto& [window, session] = running;
    m_mixer->mixerModel.rename(0, u"Drums"_s);
    Q_EMIT window.saveSessionWanted(nowhere);
    Q_EMIT window.newSessionWanted(nowhere);
    QCOMPARE(errors.size(), 2);
    QVERIFY2(errors[0].contains("cannot be saved"_L1), qPrintable(errors[0]));
    QCOMPARE(m_mixer->mixerModel.name(0), u"Drums"_s);
    m_mixer->mixerModel.rename(0, u"Bass"_s);
    QVERIFY(session.save());
    QCOMPARE(saved()[u"channels"_s][0][u"name"_s].toString(), u"Bass"_s);
    QCOMPARE(window.windowTitle().section(u" - "_s, 0, 0), u"session"_s);
}

void tst_MixerSession::whatIsWrongChangesNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expected"); // a part of the error
    QTest::newRow("damaged") << "bad.json"
                             << "is damaged";
    QTest::newRow("missing") << "nowhere.json"
                             << "cannot be read";
    QTest::newRow("open in another program") << "taken.json"
                                             << "Another program";
}

void tst_MixerSession::whatIsWrongChangesNothing()
{
    QFETCH(const QString, name);
    QFETCH(const QString, expected);
    TestFiles::write(m_folder->filePath(u"bad.json"_s), "bad");
    SessionData data;
    SessionFile taken;
    QVERIFY(taken.open(m_folder->filePath(u"taken.json"_s), &data).isOk());
    QVERIFY(taken.save(data).isOk());
    QStringList errors;
    Running running(*m_mixer, m_file, [&errors](const QString& error) { errors << error; });
    auto& [window, session] = running;
    m_mixer->mixerModel.rename(0, u"Drums"_s);
    Q_EMIT window.openSessionWanted(m_folder->filePath(name));
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors[0].contains(expected), qPrintable(errors[0]));
    QCOMPARE(m_mixer->mixerModel.name(0), u"Drums"_s);
    QCOMPARE(TestFiles::read(m_folder->filePath(u"bad.json"_s)), "bad"_ba);
    QVERIFY(session.save());
    QCOMPARE(saved()[u"channels"_s][0][u"name"_s].toString(), u"Drums"_s);
}

void tst_MixerSession::soundComesBack()
{
    const QString song =
        SoundFiles::write(m_folder->filePath(u"song.wav"_s), {SF_FORMAT_WAV | SF_FORMAT_FLOAT, 1000,
                                                              1, std::vector<double>(60000, 0.1)});
    const auto run = [this](const auto& act) {
        Mixer mixer;
        WindowTesting::loadStandIn(mixer);
        MixBus bus;
        AudioSession sound(bus, std::make_unique<FakeDevice>(), std::chrono::hours(1));
        Running running(mixer, m_file);
        mixer.mixerModel.setTransport(&sound);
        running.session.restoreSound();
        act(sound);
        QVERIFY(running.session.save());
    };
    run([&](AudioSession& sound) {
        QCOMPARE(sound.file(), QString());
        QVERIFY(sound.openFile(song).isOk());
        sound.setPosition(12.5);
        sound.setLooping(true);
    });
    run([&](AudioSession& sound) {
        QCOMPARE(sound.file(), song);
        QCOMPARE(sound.position(), 12.5);
        QVERIFY(sound.isLooping());
        QCOMPARE(sound.state(), AudioSession::State::Stopped);
    });
}

// It is remembered, so that it comes back where the file does.
void tst_MixerSession::missingSoundIsNamed()
{
    const QString gone = m_folder->filePath(u"gone.wav"_s);
    TestFiles::write(m_folder->filePath(u"s.json"_s),
                     R"({"zolta-session": 1, "audio": {"file": "%1", "position": 2.5}})"_ba.replace(
                         "%1", gone.toUtf8()));
    MixBus bus;
    AudioSession sound(bus, std::make_unique<FakeDevice>(), std::chrono::hours(1));
    Running running(*m_mixer, m_folder->filePath(u"s.json"_s));
    m_mixer->mixerModel.setTransport(&sound);
    QSignalSpy missing(&running.session, &MixerSession::soundMissing);
    running.session.restoreSound();
    QCOMPARE(missing.value(0).value(0).toString(), gone);
    QVERIFY(running.session.save());
    QVERIFY(TestFiles::read(m_folder->filePath(u"s.json"_s)).contains("gone.wav"));
    const QString found = SoundFiles::write(
        m_folder->filePath(u"found.wav"_s),
        {SF_FORMAT_WAV | SF_FORMAT_FLOAT, 1000, 1, std::vector<double>(60000, 0.1)});
    running.session.openSound(found);
    QCOMPARE(sound.file(), found);
    QCOMPARE(sound.position(), 2.5);
}

void tst_MixerSession::uselessGeometryIsIgnored()
{
    TestFiles::write(m_file,
                     "{\"zolta-session\": 1, \"mixer\": {\"geometry\": \"AAAA\"}, \"editors\": "
                     "[{\"channel\": 2, \"geometry\": \"?\", \"state\": \"/////w==\"}]}");
    MixerWindow window(*m_mixer, EditorSettings());
    const QRect before = window.geometry();
    MixerSession session(*m_mixer);
    QCOMPARE(session.open(m_file).error(), QString());
    QVERIFY(session.restoreWindows(window));
    QCOMPARE(window.geometry(), before);
    QVERIFY(!window.editors()[0]->findChild<QDockWidget*>(u"parameters"_s)->isVisible());
}

ZOLTA_TEST_MAIN(tst_MixerSession)

#include "tst_MixerSession.moc"
