// SPDX-License-Identifier: GPL-3.0-or-later
// Opening sound files in the mixer's window, and driving what was opened.
#include "engine/MixBus.h"
#include "host/audio/AudioSession.h"
#include "host/window/EditorWindow.h"
#include "host/window/FileDialogs.h"
#include "host/window/FileMenu.h"
#include "host/window/HostTheme.h"
#include "host/window/MixerWindow.h"
#include "tests/host/audio/FakeDevice.h"
#include "tests/host/audio/SoundFiles.h"
#include "tests/host/window/WindowTesting.h"
#include "tests/support/TestObject.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <QUrl>

#include <functional>
#include <utility>

using namespace Qt::StringLiterals;
using namespace WindowTesting;

class tst_FileMenu : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void droppedFileIsOpened();
    void openedFileIsHeard();
    void recentFilesComeBack();
    void dialogsOpenWhereTheLastFileWas();
    void dialogsGoWithTheirWindow();
    void clickedItemsGoWithTheirWindow_data();
    void clickedItemsGoWithTheirWindow();
    void spacePlaysAndStops();
    void spacePressesTheKeyThatTabLedTo();
    void transportMenuDrives();
    void rendersThroughTheMarkedStrip();
    void renderingCanBeCancelled();
    void sessionsAreAskedFor();
    void replacingIsAsked_data();
    void replacingIsAsked();
    void helpIsShown_data();
    void helpIsShown();

private:
    QString sound(const char* name, std::size_t frames = 4800) const;
    void drop(QWidget* window, const QString& file);
    QStringList recent() const;
    void answer(const QString& file, QString* folder = nullptr,
                const std::function<void()>& next = {});
    int source(int channel) const { return m_mixer->memory.strip(channel, StripParameter::Source); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Mixer> m_mixer;
    std::unique_ptr<MixBus> m_bus;
    std::unique_ptr<AudioSession> m_session;
    std::unique_ptr<MixerWindow> m_window;
    FakeDevice* m_device = nullptr; // the session's
    int m_unanswered = 0;           // dialogs that are still to come
};

void tst_FileMenu::initTestCase()
{
    applyHostTheme();
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void tst_FileMenu::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
    m_mixer = std::make_unique<Mixer>();
    loadStandIn(*m_mixer);
    QVERIFY(m_mixer->settings.open(m_folder->filePath(u"editors.json"_s)).isOk());
    m_bus = std::make_unique<MixBus>();
    auto device = std::make_unique<FakeDevice>();
    m_device = device.get();
    m_session = std::make_unique<AudioSession>(*m_bus, std::move(device), std::chrono::hours(1));
    m_window = std::make_unique<MixerWindow>(*m_mixer, EditorSettings());
    m_mixer->mixerModel.setTransport(m_session.get());
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void tst_FileMenu::cleanup()
{
    QCOMPARE(std::exchange(m_unanswered, 0), 0);
    m_window.reset();
    m_session.reset();
    m_mixer.reset();
}

QString tst_FileMenu::sound(const char* name, std::size_t frames) const
{
    return SoundFiles::write(
        m_folder->filePath(QLatin1String(name)),
        {SF_FORMAT_WAV | SF_FORMAT_FLOAT, 48000, 1, SoundFiles::sine(1000.0, 48000, frames)});
}

void tst_FileMenu::drop(QWidget* window, const QString& file)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file)});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window, &event);
}

QStringList tst_FileMenu::recent() const
{
    for (QMenu* menu : m_window->findChildren<QMenu*>()) {
        if (menu->title().remove(u'&') != "Open Recent"_L1)
            continue;
        Q_EMIT menu->aboutToShow();
        QStringList names;
        for (const QAction* action : menu->actions())
            names << action->text();
        return names;
    }
    return {};
}

// Chooses a file, or nothing, in the dialog that opens next; what comes after it is up to \a next.
// A posted event would come before the dialog.
void tst_FileMenu::answer(const QString& file, QString* folder, const std::function<void()>& next)
{
    ++m_unanswered;
    QTimer::singleShot(1, m_window.get(), [this, file, folder, next] {
        --m_unanswered;
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return answer(file, folder, next);
        if (folder)
            *folder = dialog->directory().absolutePath();
        if (file.isEmpty())
            return dialog->reject();
        auto* name = dialog->findChild<QLineEdit*>(u"fileNameEdit"_s);
        name->setText(file);
        if (next)
            QTimer::singleShot(0, this, next);
        QTest::keyClick(name, Qt::Key_Return);
    });
}

void tst_FileMenu::droppedFileIsOpened()
{
    const QString first = sound("first.wav");
    drop(m_window.get(), first);
    QCOMPARE(m_session->file(), first);
    const QString second = sound("second & third.wav");
    drop(m_window->openEditor(0, true), second);
    QCOMPARE(m_session->file(), second);
    QMimeData text;
    text.setText(u"no file"_s);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &text, Qt::LeftButton, {});
    enter.ignore();
    QCoreApplication::sendEvent(m_window.get(), &enter);
    QVERIFY(!enter.isAccepted());
}

// On the strip that is marked, unless another one plays files already.
void tst_FileMenu::openedFileIsHeard()
{
    QTest::mouseClick(stripOf(m_window.get(), 4), Qt::LeftButton, {}, QPoint(3, 300));
    drop(m_window.get(), sound("a.wav"));
    QCOMPARE(source(4), int(SourceFile));
    QTest::mouseClick(stripOf(m_window.get(), 2), Qt::LeftButton, {}, QPoint(3, 300));
    drop(m_window.get(), sound("b.wav"));
    QCOMPARE(source(2), int(SourceOff));
}

void tst_FileMenu::recentFilesComeBack()
{
    QCOMPARE(recent(), QStringList());
    for (int i = 0; i < FileMenu::maxRecent + 2; ++i)
        drop(m_window.get(), sound(qPrintable(u"%1.wav"_s.arg(i))));
    drop(m_window.get(), sound("5.wav"));
    QStringList expected = {u"5.wav"_s, u"9.wav"_s, u"8.wav"_s, u"7.wav"_s,
                            u"6.wav"_s, u"4.wav"_s, u"3.wav"_s, u"2.wav"_s};
    QCOMPARE(recent(), expected);
    m_window = std::make_unique<MixerWindow>(*m_mixer, EditorSettings());
    QCOMPARE(recent(), expected);
    choose(actionOf(m_window.get(), u"3.wav"_s));
    QCOMPARE(m_session->file(), m_folder->filePath(u"3.wav"_s));
    expected.move(6, 0);
    QCOMPARE(recent(), expected);
}

void tst_FileMenu::dialogsOpenWhereTheLastFileWas()
{
    QVERIFY(QDir(m_folder->path()).mkdir(u"songs"_s));
    const QString file = sound("songs/a.wav");
    QString folder;
    answer(file, &folder);
    choose(actionOf(m_window.get(), u"Open Audio..."_s));
    QCOMPARE(folder, QDir::homePath());
    QCOMPARE(m_session->file(), file);
    answer(QString(), &folder);
    choose(actionOf(m_window.get(), u"Open Audio..."_s));
    QCOMPARE(folder, m_folder->filePath(u"songs"_s));
    QCOMPARE(m_session->file(), file);
    answer(QString(), &folder);
    choose(actionOf(m_window->openEditor(0, true), u"Open Audio..."_s));
    QCOMPARE(folder, m_folder->filePath(u"songs"_s));
    QCOMPARE(m_mixer->settings.preference(u"folder.state"_s), QVariant()); // of other files
}

// Nothing is chosen then.
void tst_FileMenu::dialogsGoWithTheirWindow()
{
    for (const auto ask : {&FileDialogs::open, &FileDialogs::save}) {
        const QPointer<QWidget> window = new QWidget;
        QTimer::singleShot(0, window, [&window] {
            QVERIFY(qobject_cast<QFileDialog*>(QApplication::activeModalWidget()));
            delete window;
        });
        QCOMPARE(ask(window, m_mixer->settings, {u"sound"_s, u"Choose"_s, u"Sound (*.wav)"_s}),
                 QString());
        QVERIFY(!window);
    }
}

void tst_FileMenu::clickedItemsGoWithTheirWindow_data()
{
    QTest::addColumn<QString>("item");
    for (const char* item :
         {"Load State...", "Save State...", "Save as Preset...", "Save the preset"})
        QTest::newRow(item) << QString::fromLatin1(item);
}

// A click opens a dialog, and the window closes before the dialog is answered.
void tst_FileMenu::clickedItemsGoWithTheirWindow()
{
    QFETCH(const QString, item);
    m_mixer->memory.setValue(0x011A, 0, -200, 0, 0, 1); // there is something to save
    const QPointer<EditorWindow> editor = m_window->openEditor(0, false);
    QTimer closing;
    connect(&closing, &QTimer::timeout, editor, [editor] {
        if (QApplication::activeModalWidget())
            editor->close();
    });
    closing.start(0);
    if (item.endsWith(u"..."_s)) {
        QAction* action = actionOf(editor, item);
        auto* menu = qobject_cast<QMenu*>(action->associatedObjects().value(0));
        menu->popup(editor->pos());
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
    } else {
        QTest::mouseClick(named<QToolButton>(editor, item), Qt::LeftButton);
    }
    QVERIFY(editor); // which the menu or button still uses
    QTRY_VERIFY(!editor);
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_FileMenu::spacePlaysAndStops()
{
    drop(m_window.get(), sound("a.wav"));
    EditorWindow* editor = m_window->openEditor(0, true);
    for (QWidget* window : std::initializer_list<QWidget*>{m_window.get(), editor}) {
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window));
        QTest::keyClick(window, Qt::Key_Space);
        QVERIFY(m_device->isPlaying());
        QTest::keyClick(window, Qt::Key_Space);
        QVERIFY(!m_device->isPlaying());
    }
}

void tst_FileMenu::spacePressesTheKeyThatTabLedTo()
{
    drop(m_window.get(), sound("a.wav"));
    auto* mute = named<QAbstractButton>(stripOf(m_window.get(), 0),
                                        u"Mute of %1"_s.arg(m_mixer->mixerModel.shownName(0)));
    mute->setFocus(Qt::TabFocusReason);
    QTest::keyClick(mute, Qt::Key_Space);
    QCOMPARE(m_mixer->memory.strip(0, StripParameter::Mute), 1);
    QVERIFY(!m_device->isPlaying());
    m_window->setFocus(Qt::MouseFocusReason);
    QTest::keyClick(m_window.get(), Qt::Key_Space);
    QVERIFY(m_device->isPlaying());
}

void tst_FileMenu::transportMenuDrives()
{
    drop(m_window.get(), sound("a.wav", 48000));
    QAction* loop = actionOf(m_window.get(), u"Loop"_s);
    loop->trigger();
    QVERIFY(m_session->isLooping() && loop->isChecked());
    QVERIFY(named<QAbstractButton>(m_window.get(), u"Loop"_s)->isChecked());
    m_session->setLooping(false);
    QVERIFY(!loop->isChecked());
    m_session->setPosition(0.5);
    actionOf(m_window.get(), u"Return to Start"_s)->trigger();
    QCOMPARE(m_session->position(), 0.0);
    m_mixer->mixerModel.setTransport(nullptr);
    QVERIFY(!loop->isEnabled());
}

void tst_FileMenu::rendersThroughTheMarkedStrip()
{
    const QAction* item = actionOf(m_window.get(), u"Render To File..."_s);
    QVERIFY(!item->isEnabled());
    drop(m_window.get(), sound("in.wav"));
    QVERIFY(item->isEnabled());
    QTest::mouseClick(stripOf(m_window.get(), 2), Qt::LeftButton, {}, QPoint(3, 300));
    m_mixer->memory.setValue(0x011A, 2, -200, 0, 0, 1); // output level
    QString folder;
    answer(m_folder->filePath(u"out"_s), &folder);
    choose(actionOf(m_window.get(), u"Render To File..."_s));
    const QString out = m_folder->filePath(u"out.wav"_s);
    QTRY_COMPARE(m_window->statusBar()->currentMessage(),
                 u"Wrote %1: 0.1 seconds, 48000 Hz, channels: 1."_s.arg(out));
    const std::vector<double> before = SoundFiles::read(m_folder->filePath(u"in.wav"_s)).samples;
    const std::vector<double> after = SoundFiles::read(out).samples;
    QCOMPARE(after.size(), before.size());
    for (std::size_t i = 0; i < after.size(); ++i)
        QVERIFY(std::abs(after[i] - before[i] / 10.0) < 1e-6);
    QTRY_VERIFY(!m_window->findChild<QProgressDialog*>());
}

void tst_FileMenu::renderingCanBeCancelled()
{
    drop(m_window.get(), sound("in.wav", 10000000));
    SoundFiles::writeBytes(m_folder->filePath(u"out.wav"_s), "old");
    m_window->render(m_folder->filePath(u"out.wav"_s));
    auto* dialog = m_window->findChild<QProgressDialog*>();
    QVERIFY(dialog);
    QTest::mouseClick(dialog->findChild<QAbstractButton*>(), Qt::LeftButton);
    QTRY_VERIFY(!m_window->findChild<QProgressDialog*>());
    QCOMPARE(SoundFiles::bytesOf(m_folder->filePath(u"out.wav"_s)), "old"_ba);
    QCOMPARE(m_window->statusBar()->currentMessage(), QString());
}

void tst_FileMenu::sessionsAreAskedFor()
{
    const QString file = m_folder->filePath(u"mix"_s);
    QSignalSpy begun(m_window.get(), &MixerWindow::newSessionWanted);
    QSignalSpy opened(m_window.get(), &MixerWindow::openSessionWanted);
    QSignalSpy saved(m_window.get(), &MixerWindow::saveSessionWanted);
    answer(file);
    choose(actionOf(m_window.get(), u"New Session..."_s));
    QCOMPARE(begun.value(0).value(0).toString(), file + u".json"_s);
    SoundFiles::writeBytes(file + u".json"_s, "{}");
    answer(file + u".json"_s);
    choose(actionOf(m_window.get(), u"Open Session..."_s));
    QCOMPARE(opened.value(0).value(0).toString(), file + u".json"_s);
    answer(QString());
    choose(actionOf(m_window.get(), u"Save Session As..."_s));
    QCOMPARE(saved.count(), 0);
}

void tst_FileMenu::replacingIsAsked_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("complete");
    QTest::newRow("the name as it is") << u"Save Session As..."_s << u"a.json"_s << u"a.json"_s;
    QTest::newRow("the name with its ending") << u"Save Session As..."_s << u"a"_s << u"a.json"_s;
    QTest::newRow("a sound") << u"Render To File..."_s << u"b"_s << u"b.wav"_s;
}

// First the question is cancelled, then the dialog that comes up again, then all is agreed to.
void tst_FileMenu::replacingIsAsked()
{
    QFETCH(const QString, action);
    QFETCH(const QString, typed);
    QFETCH(const QString, complete);
    drop(m_window.get(), sound("song.wav"));
    SoundFiles::writeBytes(m_folder->filePath(complete), "old");
    QStringList saved;
    connect(m_window.get(), &MixerWindow::saveSessionWanted, this,
            [&saved](const QString& file) { saved << QFileInfo(file).fileName(); });
    QStringList asked;
    bool agrees = false;
    const auto reply = [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        QVERIFY(box);
        asked << box->text();
        QCOMPARE(box->defaultButton()->text(), u"Cancel"_s);
        if (!agrees)
            answer(QString());
        for (QAbstractButton* button : box->buttons()) {
            if (button->text() == (agrees ? u"Replace"_s : u"Cancel"_s))
                return button->click();
        }
        box->reject();
    };
    for (const bool agreed : {false, true}) {
        agrees = agreed;
        answer(m_folder->filePath(typed), nullptr, reply);
        choose(actionOf(m_window.get(), action));
        if (!agreed)
            QCOMPARE(SoundFiles::bytesOf(m_folder->filePath(complete)), "old"_ba);
    }
    QCOMPARE(asked, QStringList(2, u"The file %1 already exists. Replace it?"_s.arg(complete)));
    if (action.startsWith("Save"_L1))
        QCOMPARE(saved, QStringList{complete});
    else
        QTRY_VERIFY(SoundFiles::bytesOf(m_folder->filePath(complete)) != "old"_ba);
}

void tst_FileMenu::helpIsShown_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("part");
    QTest::newRow("guide") << u"Guide"_s << u"Open a song"_s;
    QTest::newRow("keys") << u"Keys and Mouse"_s << u"play or stop"_s;
    QTest::newRow("about") << u"About Zolta"_s << u"Zolta " ZOLTA_VERSION ""_s;
}

void tst_FileMenu::helpIsShown()
{
    QFETCH(const QString, item);
    QFETCH(const QString, part);
    choose(actionOf(m_window.get(), item));
    auto* dialog = m_window->findChild<QDialog*>();
    QVERIFY(dialog && dialog->isVisible());
    QCOMPARE(dialog->windowTitle(), item);
    QVERIFY(dialog->findChild<QLabel*>()->text().contains(part));
    dialog->close();
}

ZOLTA_TEST_MAIN(tst_FileMenu)

#include "tst_FileMenu.moc"
