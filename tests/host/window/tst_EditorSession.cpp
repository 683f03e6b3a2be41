// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/EditorSession.h"
#include "host/window/Mixer.h"
#include "tests/host/window/WindowTesting.h"
#include "tests/hosting/StateBytes.h"
#include "tests/support/TestFiles.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

using namespace WindowTesting;

class tst_EditorSession : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { loadStandIn(m_mixer); }
    void drivesTheEditorInOrder();
    void opensNothingForUnknownChannels();
    void switchesReachTheEditor();
    void stageFollowsTheEditor();
    void detachesBeforeDeleting();
    void survivesAnEditorThatIsGone();
    void loadsOnlyItsOwnChannel_data();
    void loadsOnlyItsOwnChannel();
    void badFilesChangeNothing_data();
    void badFilesChangeNothing();
    void savesTheRightBytes();
    void pictureIsTheEditor();
    void editorsFindTheirMapsAgain();
    void mapIsReadAgainByTheNextRun();
    void readsTheMetersOfItsChannels_data();
    void readsTheMetersOfItsChannels();

private:
    std::unique_ptr<EditorSession> open(const EditorSettings& settings);
    std::unique_ptr<EditorSession> open(int channel = 0, bool stereo = true)
    {
        EditorSettings settings;
        settings.channel = channel;
        settings.stereo = stereo;
        return open(settings);
    }
    QStringList calls() const;
    QObject* editor() const { return m_stage->children().constFirst(); }
    HostMemory::Values scatteredValues() const;
    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

    Mixer m_mixer;
    std::unique_ptr<QWidget> m_stage;
    QTemporaryDir m_folder;
};

std::unique_ptr<EditorSession> tst_EditorSession::open(const EditorSettings& settings)
{
    m_stage = std::make_unique<QWidget>();
    return EditorSession::open(m_mixer, settings, m_stage.get());
}

// What the host called on the editor since the last time this was asked.
QStringList tst_EditorSession::calls() const
{
    const QStringList calls = editor()->property("calls").toStringList();
    editor()->setProperty("calls", QStringList());
    return calls;
}

// A different value inside the range of every parameter.
HostMemory::Values tst_EditorSession::scatteredValues() const
{
    HostMemory::Values values{};
    for (std::size_t i = 0; i < parameterCount; ++i) {
        const Parameter& parameter = parameterTable[i];
        const int steps = parameter.maximum - parameter.minimum + 1;
        values[i] = parameter.minimum + static_cast<int>(37 * i + 11) % steps;
    }
    return values;
}

void tst_EditorSession::drivesTheEditorInOrder()
{
    EditorSettings settings;
    settings.channel = 2;
    settings.sampleRate = 96000;
    settings.scale = 1.5;
    settings.dialMode = 1;
    settings.sliderMode = 3;
    const auto session = open(settings);
    QVERIFY(session);
    QCOMPARE(calls(),
             (QStringList{u"setModelInfo"_s, u"setMemAPI"_s, u"setCh 2 3"_s, u"setStereo 1"_s,
                          u"setOn 1"_s, u"setFs 96000"_s, u"setDialEditMode 1"_s,
                          u"setSliderEditMode 3"_s, u"setScale 1.5"_s}));
}

void tst_EditorSession::opensNothingForUnknownChannels() { QVERIFY(!open(8)); }

void tst_EditorSession::switchesReachTheEditor()
{
    const auto session = open(3, false);
    QVERIFY(calls().contains(u"setCh 3 -1"_s));
    session->setStereo(true);
    session->setStereo(false);
    session->setSampleRate(192000);
    session->setDialMode(2);
    session->setSliderMode(1);
    session->setScale(0.5);
    QCOMPARE(calls(), (QStringList{u"setCh 3 2"_s, u"setStereo 1"_s, u"setCh 3 -1"_s,
                                   u"setStereo 0"_s, u"setFs 192000"_s, u"setDialEditMode 2"_s,
                                   u"setSliderEditMode 1"_s, u"setScale 0.5"_s}));
    QCOMPARE(session->settings().sampleRate, 192000);
    QCOMPARE(session->settings().scale, 0.5);
}

void tst_EditorSession::stageFollowsTheEditor()
{
    const auto session = open();
    for (const int percent : {100, 125, 75}) {
        session->setScale(percent / 100.0);
        QCOMPARE(m_stage->size(), QSize(4 * percent, 12 * percent / 5));
    }
}

void tst_EditorSession::detachesBeforeDeleting()
{
    auto session = open();
    QVERIFY(m_mixer.memory.meters().hasObservers());
    session.reset(); // the stand-in warns when it was not detached, which fails the test
    QVERIFY(m_stage->children().isEmpty());
    m_mixer.memory.reset(0); // calls nobody who is not there any more
    QVERIFY(!m_mixer.memory.meters().hasObservers());
    QCOMPARE(metersRead(m_mixer), QList<int>());
}

void tst_EditorSession::survivesAnEditorThatIsGone()
{
    auto session = open();
    QTest::ignoreMessage(QtWarningMsg, "The host deleted the editor without detaching it");
    m_stage.reset();
    session.reset();
    m_mixer.memory = HostMemory(); // without the observers that the dead editor left behind
}

void tst_EditorSession::loadsOnlyItsOwnChannel_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << path("session.state");
    QTest::newRow("preset") << path("session.vstpreset");
}

void tst_EditorSession::loadsOnlyItsOwnChannel()
{
    QFETCH(const QString, name);
    const auto session = open(1);
    m_mixer.memory.write(1, scatteredValues());
    QCOMPARE(session->saveState(name).error(), QString());
    for (int ch = 0; ch < defaultChannelCount; ++ch)
        m_mixer.memory.reset(ch);
    QCOMPARE(session->loadState(name).error(), QString());
    for (int ch = 0; ch < defaultChannelCount; ++ch)
        QCOMPARE(m_mixer.memory.values(ch), ch == 1 ? scatteredValues() : HostMemory().values(ch));
    m_mixer.memory.reset(1);
}

// What else can be wrong with a file is up to StateFile.
void tst_EditorSession::badFilesChangeNothing_data()
{
    QTest::addColumn<QByteArray>("bytes");
    using namespace StateBytes;
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("nan at the end") << stateWith(26, QByteArray::fromHex("7fc00000"));
    QTest::newRow("foreign preset") << presetOf(state(0.9F), QByteArray(32, 'A'));
}

void tst_EditorSession::badFilesChangeNothing()
{
    QFETCH(const QByteArray, bytes);
    const QString file = TestFiles::write(path("bad.state"), bytes);
    const auto session = open();
    for (int ch = 0; ch < defaultChannelCount; ++ch)
        m_mixer.memory.write(ch, scatteredValues());
    calls();
    const QString error = session->loadState(file).error();
    QVERIFY2(error.startsWith(u"The state file %1 "_s.arg(file)), qPrintable(error));
    for (int ch = 0; ch < defaultChannelCount; ++ch)
        QCOMPARE(m_mixer.memory.values(ch), scatteredValues());
    QCOMPARE(calls(), QStringList());
}

void tst_EditorSession::savesTheRightBytes()
{
    const auto session = open();
    m_mixer.memory.reset(0);
    m_mixer.memory.setValue(0x0103, 0, 200, 0, 0, 1);  // low gain at its top: entry 1
    m_mixer.memory.setValue(0x0102, 0, 300, 0, 0, 1);  // low frequency at a quarter: entry 2
    m_mixer.memory.setValue(0x0119, 0, -200, 0, 0, 1); // input level at its bottom: entry 24
    QCOMPARE(session->saveState(path("bytes.state")).error(), QString());
    const QByteArray bytes = TestFiles::read(path("bytes.state"));
    QCOMPARE(bytes.size(), 116);
    QCOMPARE(bytes.left(4), "2620"_ba);
    const auto entry = [&bytes](int number) { return bytes.mid(4 + 4 * number, 4).toHex(); };
    QCOMPARE(entry(1), "3f800000"_ba);
    QCOMPARE(entry(2), "3e800000"_ba);
    QCOMPARE(entry(24), "00000000"_ba);
    QCOMPARE(entry(27), "00000000"_ba);
}

void tst_EditorSession::pictureIsTheEditor()
{
    EditorSettings settings;
    settings.scale = 2.0;
    const auto session = open(settings);
    m_mixer.memory.setValue(0x0119, 0, -200, 0, 0, 1);
    m_mixer.memory.setValue(0x011A, 0, 200, 0, 0, 1);
    const QImage picture = session->picture();
    QCOMPARE(picture.size(), QSize(800, 480));
    QCOMPARE(picture.devicePixelRatio(), 1.0);
    const double step = 800 / 27.0;
    QCOMPARE(picture.pixelColor(int(24.5 * step), 5), QColor(0x2a, 0x2e, 0x34));
    QCOMPARE(picture.pixelColor(int(25.5 * step), 5), QColor(0x03, 0x94, 0xD0));
}

void tst_EditorSession::editorsFindTheirMapsAgain()
{
    const auto mapOf = [](int channel) { return QVariantMap{{u"GraphZoom"_s, channel}}; };
    for (int channel = 0; channel < defaultChannelCount; ++channel) {
        const auto session = open(channel);
        QVERIFY(!calls().contains(u"setEditorSettings"_s));
        editor()->setProperty("settings", mapOf(channel));
    }
    for (int channel = 0; channel < defaultChannelCount; ++channel) {
        auto session = open(channel);
        QCOMPARE(editor()->property("settings").toMap(), mapOf(channel));
        editor()->setProperty("settings", QVariant());
        session.reset();
        session = open(channel);
        QVERIFY(!calls().contains(u"setEditorSettings"_s));
    }
}

void tst_EditorSession::mapIsReadAgainByTheNextRun()
{
    const QString file = path("editors.json");
    Mixer first;
    loadStandIn(first);
    QCOMPARE(first.settings.open(file).error(), QString());
    m_stage = std::make_unique<QWidget>();
    auto session = EditorSession::open(first, {}, m_stage.get());
    editor()->setProperty("settings", QVariantMap{{u"GraphZoom"_s, 2}});
    session.reset();
    SettingsFile next;
    QCOMPARE(next.open(file).error(), QString());
    QCOMPARE(next.map(0), (SettingsFile::Map{{u"GraphZoom"_s, 2}}));
}

void tst_EditorSession::readsTheMetersOfItsChannels_data()
{
    QTest::addColumn<int>("channel");
    QTest::addColumn<bool>("stereo");
    QTest::addColumn<QList<int>>("expected");
    QTest::newRow("first pair") << 0 << true << QList<int>{0, 1};
    QTest::newRow("second of a pair") << 5 << true << QList<int>{4, 5};
    QTest::newRow("mono") << 6 << false << QList<int>{6};
}

void tst_EditorSession::readsTheMetersOfItsChannels()
{
    QFETCH(const int, channel);
    QFETCH(const bool, stereo);
    const auto session = open(channel);
    session->setStereo(stereo);
    QTEST(metersRead(m_mixer), "expected");
    m_mixer.meters.advance(0.1);
    QCOMPARE(editor()->property("meters").toList().size(), 128);
}

ZOLTA_TEST_MAIN(tst_EditorSession)

#include "tst_EditorSession.moc"
