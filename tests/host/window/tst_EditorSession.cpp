// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/EditorSession.h"
#include "host/window/Mixer.h"
#include "tests/hosting/StateBytes.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QTemporaryDir>

class tst_EditorSession : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void drivesTheEditorInOrder();
    void opensMono();
    void opensNothingForUnknownChannels();
    void switchesReachTheEditor();
    void stageFollowsTheEditor();
    void detachesBeforeDeleting();
    void survivesAnEditorThatIsGone();
    void savesAndLoadsBack_data();
    void savesAndLoadsBack();
    void loadsOnlyItsOwnChannel();
    void badFilesChangeNothing_data();
    void badFilesChangeNothing();
    void savesTheRightBytes();
    void pictureIsTheEditor();
    void editorFindsItsMapAgain();
    void mapsAreTheChannels();
    void mapIsReadAgainByTheNextRun();
    void readsTheMetersOfItsChannels_data();
    void readsTheMetersOfItsChannels();
    void metersRunWhileASessionIsOpen();

private:
    std::unique_ptr<EditorSession> open(const EditorSettings& settings);
    QStringList calls() const;
    QObject* editor() const { return m_stage->children().constFirst(); }
    HostMemory::Values scatteredValues() const;
    QString path(const QString& name) const { return m_folder.filePath(name); }

    Mixer m_mixer;
    std::unique_ptr<QWidget> m_stage;
    QTemporaryDir m_folder;
};

void tst_EditorSession::initTestCase()
{
    QCOMPARE(m_mixer.library.load(QStringLiteral(HOST_TEST_PLUGINS "/libhost_stand_in.so")).error(),
             QString());
}

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
             (QStringList{QStringLiteral("setModelInfo"), QStringLiteral("setMemAPI"),
                          QStringLiteral("setCh 2 3"), QStringLiteral("setStereo 1"),
                          QStringLiteral("setOn 1"), QStringLiteral("setFs 96000"),
                          QStringLiteral("setDialEditMode 1"),
                          QStringLiteral("setSliderEditMode 3"), QStringLiteral("setScale 1.5")}));
}

void tst_EditorSession::opensMono()
{
    EditorSettings settings;
    settings.channel = 5;
    settings.stereo = false;
    const auto session = open(settings);
    const QStringList called = calls();
    QVERIFY(called.contains(QStringLiteral("setCh 5 -1")));
    QVERIFY(called.contains(QStringLiteral("setStereo 0")));
}

void tst_EditorSession::opensNothingForUnknownChannels()
{
    EditorSettings settings;
    settings.channel = 8;
    QVERIFY(!open(settings));
}

void tst_EditorSession::switchesReachTheEditor()
{
    EditorSettings settings;
    settings.channel = 3;
    const auto session = open(settings);
    calls();
    session->setStereo(false);
    session->setStereo(true);
    session->setSampleRate(192000);
    session->setDialMode(2);
    session->setSliderMode(1);
    session->setScale(0.5);
    QCOMPARE(calls(),
             (QStringList{QStringLiteral("setCh 3 -1"), QStringLiteral("setStereo 0"),
                          QStringLiteral("setCh 3 2"), QStringLiteral("setStereo 1"),
                          QStringLiteral("setFs 192000"), QStringLiteral("setDialEditMode 2"),
                          QStringLiteral("setSliderEditMode 1"), QStringLiteral("setScale 0.5")}));
    QCOMPARE(session->settings().sampleRate, 192000);
    QCOMPARE(session->settings().scale, 0.5);
}

void tst_EditorSession::stageFollowsTheEditor()
{
    const auto session = open({});
    QCOMPARE(m_stage->size(), QSize(400, 240));
    session->setScale(1.25);
    QCOMPARE(m_stage->size(), QSize(500, 300));
    session->setScale(1.0);
    QCOMPARE(m_stage->size(), QSize(400, 240));
}

void tst_EditorSession::detachesBeforeDeleting()
{
    auto session = open({});
    QVERIFY(m_mixer.memory.meters().hasObservers());
    session.reset(); // the stand-in warns when it was not detached, which fails the test
    QVERIFY(m_stage->children().isEmpty());
    m_mixer.memory.reset(0); // calls nobody who is not there any more
    QVERIFY(!m_mixer.memory.meters().hasObservers());
}

void tst_EditorSession::survivesAnEditorThatIsGone()
{
    auto session = open({});
    QTest::ignoreMessage(QtWarningMsg, "The host deleted the editor without detaching it");
    m_stage.reset();
    session.reset();
    m_mixer.memory = HostMemory(); // without the observers that the dead editor left behind
}

void tst_EditorSession::savesAndLoadsBack_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "session.state";
    QTest::newRow("preset") << "session.vstpreset";
}

void tst_EditorSession::savesAndLoadsBack()
{
    QFETCH(const QString, name);
    EditorSettings settings;
    settings.channel = 6;
    const auto session = open(settings);
    const HostMemory::Values values = scatteredValues();
    m_mixer.memory.write(6, values);
    QCOMPARE(session->saveState(path(name)).error(), QString());
    m_mixer.memory.reset(6);
    QVERIFY(m_mixer.memory.values(6) != values);
    QCOMPARE(session->loadState(path(name)).error(), QString());
    QCOMPARE(m_mixer.memory.values(6), values);
}

void tst_EditorSession::loadsOnlyItsOwnChannel()
{
    EditorSettings settings;
    settings.channel = 1;
    const auto session = open(settings);
    m_mixer.memory.write(1, scatteredValues());
    QCOMPARE(session->saveState(path(QStringLiteral("one.state"))).error(), QString());
    for (int ch = 0; ch < channelCount; ++ch)
        m_mixer.memory.reset(ch);
    QCOMPARE(session->loadState(path(QStringLiteral("one.state"))).error(), QString());
    for (int ch = 0; ch < channelCount; ++ch)
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
    const QString file = path(QStringLiteral("bad.state"));
    QFile out(file);
    QVERIFY(out.open(QIODevice::WriteOnly));
    out.write(bytes);
    out.close();
    const auto session = open({});
    std::array<HostMemory::Values, channelCount> before;
    for (int ch = 0; ch < channelCount; ++ch) {
        m_mixer.memory.write(ch, scatteredValues());
        before[static_cast<std::size_t>(ch)] = m_mixer.memory.values(ch);
    }
    calls();
    const QString error = session->loadState(file).error();
    QVERIFY2(error.startsWith(QStringLiteral("The state file %1 ").arg(file)), qPrintable(error));
    for (int ch = 0; ch < channelCount; ++ch)
        QCOMPARE(m_mixer.memory.values(ch), before[static_cast<std::size_t>(ch)]);
    QCOMPARE(calls(), QStringList());
}

void tst_EditorSession::savesTheRightBytes()
{
    const auto session = open({});
    m_mixer.memory.reset(0);
    m_mixer.memory.setValue(0x0103, 0, 200, 0, 0, 1);  // low gain at its top: entry 1
    m_mixer.memory.setValue(0x0102, 0, 300, 0, 0, 1);  // low frequency at a quarter: entry 2
    m_mixer.memory.setValue(0x0119, 0, -200, 0, 0, 1); // input level at its bottom: entry 24
    const QString file = path(QStringLiteral("bytes.state"));
    QCOMPARE(session->saveState(file).error(), QString());
    QFile in(file);
    QVERIFY(in.open(QIODevice::ReadOnly));
    const QByteArray bytes = in.readAll();
    QCOMPARE(bytes.size(), 116);
    QCOMPARE(bytes.left(4), QByteArray("2620"));
    QCOMPARE(bytes.mid(4 + 4 * 1, 4).toHex(), QByteArray("3f800000"));
    QCOMPARE(bytes.mid(4 + 4 * 2, 4).toHex(), QByteArray("3e800000"));
    QCOMPARE(bytes.mid(4 + 4 * 24, 4).toHex(), QByteArray("00000000"));
    QCOMPARE(bytes.mid(4 + 4 * 27, 4).toHex(), QByteArray("00000000"));
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

void tst_EditorSession::editorFindsItsMapAgain()
{
    auto session = open({});
    QVERIFY(!calls().contains(QStringLiteral("setEditorSettings")));
    editor()->setProperty("settings", QVariantMap{{QStringLiteral("GraphZoom"), 4}});
    session.reset();
    session = open({});
    QVERIFY(calls().contains(QStringLiteral("setEditorSettings")));
    QCOMPARE(editor()->property("settings").toMap(),
             (QVariantMap{{QStringLiteral("GraphZoom"), 4}}));
    editor()->setProperty("settings", QVariant());
    session.reset();
    session = open({});
    QVERIFY(!calls().contains(QStringLiteral("setEditorSettings")));
}

void tst_EditorSession::mapsAreTheChannels()
{
    EditorSettings settings;
    for (int channel = 0; channel < channelCount; ++channel) {
        settings.channel = channel;
        const auto session = open(settings);
        editor()->setProperty("settings", QVariantMap{{QStringLiteral("GraphZoom"), channel}});
    }
    for (int channel = 0; channel < channelCount; ++channel) {
        settings.channel = channel;
        const auto session = open(settings);
        QCOMPARE(editor()->property("settings").toMap(),
                 (QVariantMap{{QStringLiteral("GraphZoom"), channel}}));
        editor()->setProperty("settings", QVariant());
    }
}

void tst_EditorSession::mapIsReadAgainByTheNextRun()
{
    const QString file = path(QStringLiteral("editors.json"));
    Mixer first;
    QCOMPARE(first.library.load(QStringLiteral(HOST_TEST_PLUGINS "/libhost_stand_in.so")).error(),
             QString());
    QCOMPARE(first.settings.open(file).error(), QString());
    m_stage = std::make_unique<QWidget>();
    auto session = EditorSession::open(first, {}, m_stage.get());
    editor()->setProperty("settings", QVariantMap{{QStringLiteral("GraphZoom"), 2}});
    session.reset();
    SettingsFile next;
    QCOMPARE(next.open(file).error(), QString());
    QCOMPARE(next.map(0), (SettingsFile::Map{{QStringLiteral("GraphZoom"), 2}}));
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
    EditorSettings settings;
    settings.channel = channel;
    const auto session = open(settings);
    session->setStereo(stereo);
    m_mixer.meters.advance(0.1);
    const QVariantList words = editor()->property("meters").toList();
    QCOMPARE(words.size(), 32);
    QList<int> read;
    for (int i = 0; i < channelCount; ++i) {
        const bool sent = words[2 * i].toInt() > -1270;
        QCOMPARE(words[16 + 2 * i].toInt() > -1270, sent);
        if (sent)
            read << i;
    }
    QTEST(read, "expected");
}

void tst_EditorSession::metersRunWhileASessionIsOpen()
{
    QVERIFY(!m_mixer.meters.isRunning());
    auto session = open({});
    QVERIFY(m_mixer.meters.isRunning());
    m_mixer.meters.setEnabled(false);
    QVERIFY(!m_mixer.meters.isRunning());
    m_mixer.meters.setEnabled(true);
    session.reset();
    QVERIFY(!m_mixer.meters.isRunning());
}

ZOLTA_TEST_MAIN(tst_EditorSession)

#include "tst_EditorSession.moc"
