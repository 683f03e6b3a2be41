// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FaderController.h"
#include "controls/KnobController.h"
#include "controls/PeakMeterController.h"
#include "controls/PullDownButtonController.h"
#include "controls/TextEditController.h"
#include "engine/MixBus.h"
#include "host/audio/AudioSession.h"
#include "host/window/EditorWindow.h"
#include "host/window/EqualizerThumbnail.h"
#include "host/window/HostTheme.h"
#include "host/window/Mixer.h"
#include "host/window/MixerStrip.h"
#include "host/window/MixerWindow.h"
#include "host/window/StripMeters.h"
#include "tests/host/audio/FakeDevice.h"
#include "tests/host/window/WindowTesting.h"
#include "tests/support/TestObject.h"
#include "widgets/ChannelNameEdit.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QSlider>
#include <QStatusBar>
#include <QTimer>

using namespace CommonController_MemAPI;
using namespace WindowTesting;

namespace {

constexpr unsigned short middle2Gain = 0x010B;

} // namespace

class tst_MixerWindow : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void pairsShowOneStrip();
    void monoShowsBothStrips();
    void keysSwitch_data();
    void keysSwitch();
    void faderDragIsOneStep();
    void typedLevelIsOneStep();
    void sourceIsChosenInItsMenu();
    void undoKeysInEveryWindow();
    void knobDragInTheEditorIsOneStep();
    void undoReachesEveryWindow();
    void doubleClickRenames();
    void everyControlHasAName();
    void namesFollowTheChannel();
    void tabVisitsTheControls();
    void focusMarksTheStrip();
    void clickOnAControlMarksTheStrip_data();
    void clickOnAControlMarksTheStrip();
    void focusThatComesBackMarksNothing();
    void curveOpensTheEditor();
    void editorHasTheFocus();
    void editorFollowsTheWidth();
    void editorOfASecondChannelShowsThePair();
    void editorOfASecondChannelClosesForThePair();
    void firstEditorTakesTheSecondsPlace();
    void widthChosenInTheEditorIsAStep();
    void metersShowWhatLeavesTheFader_data();
    void metersShowWhatLeavesTheFader();
    void metersKnowTheOtherStrips();
    void peaksStayForAWhile();
    void metersRunWhileSomethingShows();
    void copyAndPasteThroughTheMenu();
    void pasteOfNonsenseIsExplained();
    void pasteFollowsTheClipboard();
    void compareInTheEditorWindow();
    void editorSaysWhetherAudioPlays();

private:
    MixerStrip* strip(int channel) const { return stripOf(m_window.get(), channel); }
    QUndoStack& stack() { return m_mixer->mixerModel.history().stack(); }
    int value(int channel, StripParameter parameter) const
    {
        return m_mixer->memory.strip(channel, parameter);
    }
    static void activate(QWidget* window);
    void sendMeters(int channel, int send, int returned);
    int meterOf(int channel) const
    {
        return strip(channel)->findChild<MeterController*>()->value();
    }

    std::unique_ptr<Mixer> m_mixer;
    std::unique_ptr<MixerWindow> m_window;
};

void tst_MixerWindow::initTestCase() { applyHostTheme(); }

void tst_MixerWindow::init()
{
    TestObject::init();
    m_mixer = std::make_unique<Mixer>();
    QCOMPARE(m_mixer->library.load(QStringLiteral(HOST_REAL_PLUGIN)).error(), QString());
    EditorSettings settings;
    settings.dialMode = 2; // knobs are dragged up and down
    m_window = std::make_unique<MixerWindow>(*m_mixer, settings);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QCoreApplication::processEvents(); // the groups' buttons join them
}

void tst_MixerWindow::cleanup()
{
    m_window.reset();
    m_mixer.reset();
}

void tst_MixerWindow::activate(QWidget* window)
{
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
}

void tst_MixerWindow::sendMeters(int channel, int send, int returned)
{
    std::vector<int> words(HostModel::meterWordCount, MeterLevels::lowest);
    for (std::size_t side = 0; side < 2; ++side) {
        const std::size_t word = 2 * static_cast<std::size_t>(channel) + side;
        words[HostModel::sendMeter + word] = send;
        words[HostModel::returnMeter + word] = returned;
    }
    m_mixer->memory.meters().notify(words);
}

void tst_MixerWindow::pairsShowOneStrip()
{
    for (int ch = 0; ch < channelCount; ++ch) {
        QCOMPARE(strip(ch)->isVisible(), ch % 2 == 0);
        QCOMPARE(strip(ch)->findChildren<PeakMeterController*>().size(), 2);
    }
    const auto bars = strip(0)->findChildren<MeterController*>();
    QCOMPARE(std::count_if(bars.begin(), bars.end(), [](auto* m) { return m->isVisible(); }), 4);
}

void tst_MixerWindow::monoShowsBothStrips()
{
    QTest::mouseClick(named<QAbstractButton>(strip(2), QStringLiteral("Channel 2 mono")),
                      Qt::LeftButton);
    QCOMPARE(value(2, StripParameter::Stereo), 0);
    QVERIFY(strip(2)->isVisible() && strip(3)->isVisible());
    QCOMPARE(stack().undoText(), QStringLiteral("Mono/stereo"));
    // From the other channel's strip the pair comes together again.
    auto* stereo = named<QAbstractButton>(strip(3), QStringLiteral("Channel 3 stereo"));
    QTRY_VERIFY(!stereo->isChecked());
    QTest::mouseClick(stereo, Qt::LeftButton);
    QCOMPARE(value(2, StripParameter::Stereo), 1);
    QVERIFY(strip(2)->isVisible() && !strip(3)->isVisible());
    QCOMPARE(stack().count(), 2);
    stack().undo();
    QVERIFY(strip(3)->isVisible());
    QTRY_VERIFY(named<QAbstractButton>(strip(2), QStringLiteral("Channel 2 mono"))->isChecked());
}

void tst_MixerWindow::keysSwitch_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("parameter");
    QTest::addColumn<QString>("step");
    QTest::newRow("equalizer") << "Equalizer of Channel 4"
                               << static_cast<int>(StripParameter::EqualizerOn) << "Equalizer on";
    QTest::newRow("mute") << "Mute of Channel 4" << static_cast<int>(StripParameter::Mute)
                          << "Mute";
    QTest::newRow("solo") << "Solo of Channel 4" << static_cast<int>(StripParameter::Solo)
                          << "Solo";
}

void tst_MixerWindow::keysSwitch()
{
    QFETCH(const QString, key);
    QFETCH(const int, parameter);
    QFETCH(const QString, step);
    const auto which = static_cast<StripParameter>(parameter);
    auto* button = named<QAbstractButton>(strip(4), key);
    const int before = value(4, which);
    QCOMPARE(button->isChecked(), before != 0);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(value(4, which), 1 - before);
    QCOMPARE(stack().count(), 1);
    QCOMPARE(stack().undoText(), step);
    stack().undo();
    QCOMPARE(button->isChecked(), before != 0);
}

void tst_MixerWindow::faderDragIsOneStep()
{
    auto* fader = strip(0)->findChild<FaderController*>();
    // At 0 dB the cap's middle is a quarter of the travel below the top.
    const int y = 28 + (280 - 56) / 4;
    QTest::mousePress(fader, Qt::LeftButton, {}, QPoint(17, y));
    for (int i = 1; i <= 56; ++i)
        QTest::mouseMove(fader, QPoint(17, y + i));
    QTest::mouseRelease(fader, Qt::LeftButton, {}, QPoint(17, y + 56));
    QCOMPARE(value(0, StripParameter::Level), 200);
    QCOMPARE(strip(0)->findChild<TextEditController*>()->string(), QStringLiteral("-10.0"));
    QCOMPARE(stack().count(), 1);
    actionOf(m_window.get(), QStringLiteral("Undo Level"))->trigger();
    QCOMPARE(value(0, StripParameter::Level), unityLevel);
    actionOf(m_window.get(), QStringLiteral("Redo Level"))->trigger();
    QCOMPARE(value(0, StripParameter::Level), 200);
}

void tst_MixerWindow::typedLevelIsOneStep()
{
    auto* level = strip(6)->findChild<TextEditController*>();
    QTest::mouseDClick(level, Qt::LeftButton);
    auto* field = level->findChild<QLineEdit*>();
    field->selectAll();
    QTest::keyClicks(field, QStringLiteral("-6.5"));
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(value(6, StripParameter::Level), 235);
    QCOMPARE(stack().count(), 1);
}

void tst_MixerWindow::sourceIsChosenInItsMenu()
{
    auto* source = strip(0)->findChild<PullDownButtonController*>();
    QCOMPARE(source->currentText(), QStringLiteral("Test signal"));
    QCOMPARE(source->textList().size(), SourceOff + 1);
    QTimer::singleShot(0, this, [] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            qFatal("no menu");
        for (int i = 0; i < 3; ++i)
            QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        menu->close();
    });
    source->openPullDown();
    QCOMPARE(value(0, StripParameter::Source), 3);
    QCOMPARE(source->currentText(), QStringLiteral("Input 2"));
    QCOMPARE(stack().count(), 1);
    QCOMPARE(stack().undoText(), QStringLiteral("Source"));
}

void tst_MixerWindow::undoKeysInEveryWindow()
{
    EditorWindow* editor = m_window->openEditor(0, true);
    const std::vector<const QMainWindow*> windows = {m_window.get(), editor};
    for (const QMainWindow* window : windows) {
        QCOMPARE(actionOf(window, QStringLiteral("Undo"))->shortcut(),
                 QKeySequence(QStringLiteral("Ctrl+Z")));
        QCOMPARE(actionOf(window, QStringLiteral("Redo"))->shortcut(),
                 QKeySequence(QStringLiteral("Ctrl+Shift+Z")));
        QVERIFY(!actionOf(window, QStringLiteral("Undo"))->isEnabled());
    }
    QTest::mouseClick(named<QAbstractButton>(strip(0), QStringLiteral("Mute of Channel 0")),
                      Qt::LeftButton);
    for (QMainWindow* window :
         {static_cast<QMainWindow*>(m_window.get()), static_cast<QMainWindow*>(editor)}) {
        activate(window);
        QTest::keyClick(window, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(value(0, StripParameter::Mute), 0);
        QTest::keyClick(window, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(value(0, StripParameter::Mute), 1);
    }
    QCOMPARE(stack().count(), 1);
}

void tst_MixerWindow::knobDragInTheEditorIsOneStep()
{
    EditorWindow* editor = m_window->openEditor(0, true);
    QVERIFY(QTest::qWaitForWindowExposed(editor));
    auto* knob = editor->findChild<QWidget*>(QStringLiteral("m_pMiddle2GainKnob"));
    QVERIFY(knob);
    const QPoint middle = knob->rect().center();
    for (int drag = 1; drag <= 2; ++drag) {
        QTest::mousePress(knob, Qt::LeftButton, {}, middle);
        for (int i = 1; i <= 20; ++i)
            QTest::mouseMove(knob, middle - QPoint(0, i));
        QTest::mouseRelease(knob, Qt::LeftButton, {}, middle - QPoint(0, 20));
        QCOMPARE(stack().count(), drag);
    }
    QCOMPARE(stack().undoText(), QStringLiteral("Middle 2 gain"));
    QVERIFY(m_mixer->memory.values(0)[10] > 0);
    actionOf(editor, QStringLiteral("Undo Middle 2 gain"))->trigger();
    actionOf(editor, QStringLiteral("Undo Middle 2 gain"))->trigger();
    QCOMPARE(m_mixer->memory.values(0), HostMemory().values(0));
}

void tst_MixerWindow::undoReachesEveryWindow()
{
    EditorWindow* editor = m_window->openEditor(2, true);
    m_mixer->memory.setValue(middle2Gain, 2, 50, 0, 0, 1);
    const QImage curved = strip(2)->findChild<EqualizerThumbnail*>()->grab().toImage();
    actionOf(m_window.get(), QStringLiteral("Undo"))->trigger();
    QVERIFY(strip(2)->findChild<EqualizerThumbnail*>()->grab().toImage() != curved);
    QVERIFY(!actionOf(editor, QStringLiteral("Undo"))->isEnabled());
    QVERIFY(actionOf(editor, QStringLiteral("Redo Middle 2 gain"))->isEnabled());
}

void tst_MixerWindow::doubleClickRenames()
{
    auto* name = strip(4)->findChild<ChannelNameEdit*>();
    QCOMPARE(name->text(), QStringLiteral("Channel 4"));
    activate(m_window.get());
    QTest::mouseDClick(name, Qt::LeftButton);
    QTest::keyClicks(name, QStringLiteral("Bass"));
    QTest::keyClick(name, Qt::Key_Return);
    m_window->setFocus();
    QCOMPARE(m_mixer->mixerModel.name(4), QStringLiteral("Bass"));
    QCOMPARE(stack().count(), 1);
    QCOMPARE(stack().undoText(), QStringLiteral("Rename"));
    stack().undo();
    QCOMPARE(name->text(), QStringLiteral("Channel 4"));
    // Leaving the field as it was is no edit.
    QTest::mouseDClick(name, Qt::LeftButton);
    QTest::keyClick(name, Qt::Key_Return);
    m_window->setFocus();
    QCOMPARE(m_mixer->mixerModel.name(4), QString());
    QVERIFY(!stack().canUndo());
}

void tst_MixerWindow::everyControlHasAName()
{
    QStringList names;
    for (const QWidget* widget : m_window->findChildren<QWidget*>()) {
        const bool isControl = dynamic_cast<const AbstractController*>(widget) ||
                               qobject_cast<const QComboBox*>(widget) ||
                               qobject_cast<const QSlider*>(widget);
        if (!isControl)
            continue;
        QVERIFY2(!widget->accessibleName().isEmpty(), widget->metaObject()->className());
        names << widget->accessibleName();
    }
    QCOMPARE(names.size(), channelCount * 14 + 5);
}

void tst_MixerWindow::namesFollowTheChannel()
{
    m_mixer->mixerModel.setName(0, QStringLiteral("Kick"));
    QVERIFY(named<FaderController>(strip(0), QStringLiteral("Fader of Kick")));
    m_mixer->language.choose(Language::German);
    QCoreApplication::sendPostedEvents();
    QVERIFY(named<FaderController>(strip(0), QStringLiteral("Fader von Kick")));
    QVERIFY(named<FaderController>(strip(2), QStringLiteral("Fader von Kanal 2")));
    m_mixer->language.choose(Language::English);
}

void tst_MixerWindow::tabVisitsTheControls()
{
    activate(m_window.get());
    QStringList visited;
    for (int i = 0; i < 12; ++i) {
        QTest::keyClick(m_window.get(), Qt::Key_Tab);
        const QWidget* focused = QApplication::focusWidget();
        if (focused && strip(0)->isAncestorOf(focused))
            visited << focused->accessibleName();
    }
    for (const char* name :
         {"Source of Channel 0", "Channel 0 mono", "Equalizer of Channel 0", "Editor of Channel 0",
          "Mute of Channel 0", "Solo of Channel 0", "Fader of Channel 0", "Level of Channel 0"})
        QVERIFY2(visited.contains(QLatin1String(name)), name);
}

void tst_MixerWindow::focusMarksTheStrip()
{
    activate(m_window.get());
    QCOMPARE(m_window->selectedChannel(), 0);
    strip(4)->findChild<FaderController*>()->setFocus();
    QCOMPARE(m_window->selectedChannel(), 4);
    QTest::mouseClick(strip(6), Qt::LeftButton, {}, QPoint(3, 300));
    QCOMPARE(m_window->selectedChannel(), 6);
    m_mixer->memory.setStrip(6, StripParameter::Stereo, 0);
    QTest::mouseClick(strip(7), Qt::LeftButton, {}, QPoint(3, 300));
    m_mixer->memory.setStrip(6, StripParameter::Stereo, 1); // the strip disappears
    QCOMPARE(m_window->selectedChannel(), 6);
}

void tst_MixerWindow::clickOnAControlMarksTheStrip_data()
{
    QTest::addColumn<QString>("control");
    for (const char* name :
         {"Source of Channel 6", "Channel 6 mono", "Equalizer of Channel 6", "Mute of Channel 6",
          "Solo of Channel 6", "Fader of Channel 6", "Level of Channel 6", "Meter of channel 6"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void tst_MixerWindow::clickOnAControlMarksTheStrip()
{
    QFETCH(const QString, control);
    m_mixer->memory.setValue(middle2Gain, 0, 50, 0, 0, 1);
    QTest::mousePress(named<QWidget>(strip(6), control), Qt::RightButton);
    QCOMPARE(m_window->selectedChannel(), 6);
    actionOf(m_window.get(), QStringLiteral("Reset Equalizer"))->trigger();
    QCOMPARE(m_mixer->memory.values(0)[10], 50);
}

void tst_MixerWindow::focusThatComesBackMarksNothing()
{
    activate(m_window.get());
    strip(4)->findChild<FaderController*>()->setFocus();
    QTest::mouseClick(named<QAbstractButton>(strip(6), QStringLiteral("Mute of Channel 6")),
                      Qt::LeftButton);
    EditorWindow* editor = m_window->openEditor(0, true);
    QVERIFY(QTest::qWaitForWindowActive(editor));
    activate(m_window.get());
    QVERIFY(strip(4)->findChild<FaderController*>()->hasFocus());
    QCOMPARE(m_window->selectedChannel(), 6);
}

void tst_MixerWindow::curveOpensTheEditor()
{
    QTest::mouseClick(strip(2)->findChild<EqualizerThumbnail*>(), Qt::LeftButton);
    QCOMPARE(m_window->editors().size(), 1);
    QCOMPARE(m_window->editors()[0]->settings().channel, 2);
    QVERIFY(m_window->editors()[0]->settings().stereo);
}

void tst_MixerWindow::editorHasTheFocus()
{
    EditorWindow* editor = m_window->openEditor(0, true);
    QVERIFY(QTest::qWaitForWindowActive(editor));
    QVERIFY(QApplication::focusWidget());
    QCOMPARE(QByteArray(QApplication::focusWidget()->metaObject()->className()),
             QByteArray("ZoltaEditor"));
}

void tst_MixerWindow::editorFollowsTheWidth()
{
    EditorWindow* editor = m_window->openEditor(2, true);
    m_mixer->memory.setStrip(2, StripParameter::Stereo, 0);
    QVERIFY(!editor->settings().stereo);
    stack().undo();
    QVERIFY(editor->settings().stereo);
}

void tst_MixerWindow::editorOfASecondChannelShowsThePair()
{
    EditorWindow* editor = m_window->openEditor(1, true);
    QCOMPARE(editor->settings().channel, 0);
    QCOMPARE(m_window->editors(), QList<EditorWindow*>{editor});
    m_mixer->memory.setStrip(0, StripParameter::Stereo, 0);
    EditorWindow* second = m_window->openEditor(1, false);
    QCOMPARE(second->settings().channel, 1);
}

void tst_MixerWindow::editorOfASecondChannelClosesForThePair()
{
    m_mixer->memory.setStrip(2, StripParameter::Stereo, 0);
    EditorWindow* first = m_window->openEditor(2, false);
    const QPointer<EditorWindow> second = m_window->openEditor(3, false);
    m_mixer->memory.setStrip(2, StripParameter::Stereo, 1);
    QTRY_VERIFY(!second);
    QCOMPARE(m_window->editors(), QList<EditorWindow*>{first});
    QVERIFY(first->settings().stereo);
}

void tst_MixerWindow::firstEditorTakesTheSecondsPlace()
{
    m_mixer->memory.setStrip(2, StripParameter::Stereo, 0);
    const QPointer<EditorWindow> second = m_window->openEditor(3, false);
    second->setScale(0.75);
    const QRect place(30, 40, 640, 480);
    second->setGeometry(place);
    m_window->hide();
    QSignalSpy ending(m_window.get(), &MixerWindow::ending);
    m_mixer->memory.setStrip(2, StripParameter::Stereo, 1);
    QTRY_VERIFY(!second);
    QCOMPARE(ending.count(), 0); // there is always a window
    QCOMPARE(m_window->editors().size(), 1);
    EditorWindow* first = m_window->editors()[0];
    QCOMPARE(first->settings().channel, 2);
    QVERIFY(first->settings().stereo);
    QCOMPARE(first->settings().scale, 0.75);
    QCOMPARE(first->geometry(), place);
}

void tst_MixerWindow::widthChosenInTheEditorIsAStep()
{
    EditorWindow* editor = m_window->openEditor(2, true);
    for (QComboBox* box : editor->findChildren<QComboBox*>()) {
        if (box->findText(QStringLiteral("Mono")) < 0)
            continue;
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Down);
    }
    QCOMPARE(value(2, StripParameter::Stereo), 0);
    QVERIFY(strip(3)->isVisible());
    QCOMPARE(stack().count(), 1);
}

void tst_MixerWindow::metersShowWhatLeavesTheFader_data()
{
    using Writes = std::vector<std::pair<StripParameter, int>>;
    QTest::addColumn<Writes>("writes"); // to the first strip
    QTest::addColumn<int>("send");
    QTest::addColumn<int>("returned");
    QTest::addColumn<int>("shown");
    QTest::newRow("0 dB") << Writes{} << -100 << -200 << -200;
    QTest::newRow("+4 dB") << Writes{{StripParameter::Level, 340}} << -100 << -200 << -160;
    QTest::newRow("+4 dB, past the equalizer")
        << Writes{{StripParameter::Level, 340}, {StripParameter::EqualizerOn, 0}} << -100 << -200
        << -60;
    QTest::newRow("fader down") << Writes{{StripParameter::Level, 0}} << 0 << 0 << -1270;
    QTest::newRow("muted") << Writes{{StripParameter::Mute, 1}} << 0 << 0 << -1270;
    QTest::newRow("silence") << Writes{} << -1270 << -1270 << -1270;
}

void tst_MixerWindow::metersShowWhatLeavesTheFader()
{
    using Writes = std::vector<std::pair<StripParameter, int>>;
    QFETCH(const Writes, writes);
    QFETCH(const int, send);
    QFETCH(const int, returned);
    for (const auto& [parameter, value] : writes)
        m_mixer->memory.setStrip(0, parameter, value);
    sendMeters(0, send, returned);
    QTEST(meterOf(0), "shown");
}

void tst_MixerWindow::metersKnowTheOtherStrips()
{
    m_mixer->memory.setStrip(2, StripParameter::Solo, 1);
    sendMeters(0, 0, 0);
    QCOMPARE(meterOf(0), -1270);
    m_mixer->memory.setStrip(2, StripParameter::Solo, 0);
    sendMeters(1, -30, -30); // the pair's other side
    const auto bars = strip(0)->findChildren<MeterController*>();
    QVERIFY(std::any_of(bars.begin(), bars.end(), [](auto* m) { return m->value() == -30; }));
}

void tst_MixerWindow::peaksStayForAWhile()
{
    const auto* peak = strip(0)->findChild<PeakMeterController*>();
    sendMeters(0, -60, -60);
    for (int i = 0; i < StripMeters::peakHold; ++i)
        sendMeters(0, -300, -300);
    QCOMPARE(peak->value(), -60);
    sendMeters(0, -300, -300);
    QCOMPARE(peak->value(), -300);
}

void tst_MixerWindow::metersRunWhileSomethingShows()
{
    QVERIFY(m_mixer->meters.isRunning());
    m_window->hide();
    QVERIFY(!m_mixer->meters.isRunning());
    QVERIFY(!m_mixer->memory.meters().hasObservers());
    m_window->show();
    QVERIFY(m_mixer->meters.isRunning());
}

void tst_MixerWindow::copyAndPasteThroughTheMenu()
{
    m_mixer->memory.setValue(middle2Gain, 0, 50, 0, 0, 1);
    actionOf(m_window.get(), QStringLiteral("Copy Equalizer"))->trigger();
    QTest::mouseClick(strip(4), Qt::LeftButton, {}, QPoint(3, 300));
    actionOf(m_window.get(), QStringLiteral("Paste Equalizer"))->trigger();
    QCOMPARE(m_mixer->memory.values(4), m_mixer->memory.values(0));
    actionOf(m_window.get(), QStringLiteral("Reset Equalizer"))->trigger();
    QCOMPARE(m_mixer->memory.values(4), HostMemory().values(4));
    QCOMPARE(stack().undoText(), QStringLiteral("Reset"));
    stack().undo();
    QCOMPARE(m_mixer->memory.values(4)[10], 50);
}

void tst_MixerWindow::pasteOfNonsenseIsExplained()
{
    QApplication::clipboard()->setText(QStringLiteral("nonsense"));
    actionOf(m_window.get(), QStringLiteral("Paste Equalizer"))->trigger();
    QCOMPARE(m_window->statusBar()->currentMessage(),
             QStringLiteral("Cannot paste. The clipboard holds no equalizer settings."));
}

void tst_MixerWindow::pasteFollowsTheClipboard()
{
    const EditorWindow* editor = m_window->openEditor(0, true);
    const QAction* inMixer = actionOf(m_window.get(), QStringLiteral("Paste Equalizer"));
    const QAction* inEditor = actionOf(editor, QStringLiteral("Paste Settings"));
    QApplication::clipboard()->setImage(QImage(2, 2, QImage::Format_RGB32));
    QVERIFY(!inMixer->isEnabled() && !inEditor->isEnabled());
    m_mixer->mixerModel.copyToClipboard(0);
    QVERIFY(inMixer->isEnabled() && inEditor->isEnabled());
    QApplication::clipboard()->clear();
    QVERIFY(!inMixer->isEnabled() && !inEditor->isEnabled());
}

void tst_MixerWindow::compareInTheEditorWindow()
{
    EditorWindow* editor = m_window->openEditor(0, true);
    QAction* a = actionOf(editor, QStringLiteral("A"));
    QAction* b = actionOf(editor, QStringLiteral("B"));
    QVERIFY(a->isCheckable() && a->isChecked());
    m_mixer->memory.setValue(middle2Gain, 0, 50, 0, 0, 1);
    b->trigger();
    QVERIFY(b->isChecked());
    QCOMPARE(m_mixer->memory.values(0)[10], 0);
    actionOf(editor, QStringLiteral("Copy A to B"))->trigger();
    QCOMPARE(m_mixer->memory.values(0)[10], 50);
    actionOf(editor, QStringLiteral("Switch between A and B"))->trigger();
    QVERIFY(a->isChecked());
    for (int i = 0; i < 3; ++i)
        actionOf(editor, QStringLiteral("Undo"))->trigger();
    QVERIFY(a->isChecked());
    QCOMPARE(m_mixer->memory.values(0)[10], 50);
}

void tst_MixerWindow::editorSaysWhetherAudioPlays()
{
    EditorWindow* editor = m_window->openEditor(0, true);
    const auto saysNoAudio = [editor] {
        const auto labels = editor->findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(),
                           [](QLabel* l) { return l->text() == QLatin1String("No audio"); });
    };
    MixBus bus;
    AudioSession session(bus, std::make_unique<FakeDevice>(), std::chrono::hours(1));
    session.setDevice({QString(), 0, 0, true});
    m_mixer->mixerModel.setTransport(&session);
    QVERIFY(saysNoAudio());
    QVERIFY(session.play().isOk());
    QVERIFY(!saysNoAudio());
    session.stop();
    QVERIFY(saysNoAudio());
}

ZOLTA_TEST_MAIN(tst_MixerWindow)

#include "tst_MixerWindow.moc"
