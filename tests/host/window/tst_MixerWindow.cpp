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
#include "host/window/MasterStrip.h"
#include "host/window/Mixer.h"
#include "host/window/MixerStrip.h"
#include "host/window/MixerWindow.h"
#include "host/window/PeakDisplay.h"
#include "host/window/StripMeters.h"
#include "host/window/WindowPlaces.h"
#include "tests/host/audio/FakeDevice.h"
#include "tests/host/window/WindowTesting.h"
#include "tests/support/TestObject.h"
#include "widgets/ChannelNameEdit.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QStatusBar>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace CommonController_MemAPI;
using namespace WindowTesting;

class tst_MixerWindow : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void pairsShowOneStrip();
    void monoShowsBothStrips();
    void keysSwitch();
    void faderDragIsOneStep();
    void sourceIsChosenInItsMenu();
    void undoKeysInEveryWindow();
    void knobDragInTheEditorIsOneStep();
    void doubleClickRenames();
    void everyControlHasAName();
    void namesFollowTheChannel();
    void tabVisitsTheControls();
    void focusMarksTheStrip();
    void clickOnAControlMarksTheStrip();
    void focusThatComesBackMarksNothing();
    void editorHasTheFocus();
    void editorOfASecondChannelShowsThePair();
    void editorOfASecondChannelClosesForThePair();
    void firstEditorTakesTheSecondsPlace();
    void widthChosenInTheEditorIsAStep();
    void metersShowWhatLeavesTheFader_data();
    void metersShowWhatLeavesTheFader();
    void metersKnowTheOtherStrips();
    void peaksStayForAWhile();
    void highestLevelStaysUntilItIsClicked();
    void soloShowsWhatItSilences();
    void stripsStayWhereTheyAre();
    void fadersGrowWithTheWindow();
    void masterIsOperated();
    void metersRunWhileSomethingShows();
    void windowsStandSideBySide_data();
    void windowsStandSideBySide();
    void copyAndPasteThroughTheMenu();
    void pasteFollowsTheClipboard();
    void compareInTheEditorWindow();
    void editorSaysWhetherAudioPlays();

private:
    MixerStrip* strip(int channel) const { return stripOf(m_window.get(), channel); }
    FaderController* fader(int channel) const
    {
        return named<FaderController>(strip(channel),
                                      QStringLiteral("Fader of Channel %1").arg(channel + 1));
    }
    QUndoStack& stack() { return m_mixer->mixerModel.history().stack(); }
    int value(int channel, StripParameter parameter) const
    {
        return m_mixer->memory.strip(channel, parameter);
    }
    void set(int channel, StripParameter parameter, int value)
    {
        m_mixer->memory.setStrip(channel, parameter, value);
    }
    int gain(int channel) const { return m_mixer->memory.values(channel)[10]; }
    void setGain(int channel, int value)
    {
        m_mixer->memory.setValue(0x010B, static_cast<unsigned short>(channel), value, 0, 0, 1);
    }
    void click(int channel, const char* key)
    {
        QTest::mouseClick(named<QAbstractButton>(strip(channel), QLatin1String(key)),
                          Qt::LeftButton);
    }
    void clickBeside(int channel)
    {
        QTest::mouseClick(strip(channel), Qt::LeftButton, {}, QPoint(3, 300));
    }
    void trigger(const char* action) { actionOf(m_window.get(), QLatin1String(action))->trigger(); }
    static void drag(QWidget* widget, const QPoint& from, int down);
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
    m_window = std::make_unique<MixerWindow>(*m_mixer, EditorSettings());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QCoreApplication::processEvents(); // the groups' buttons join them
}

void tst_MixerWindow::cleanup()
{
    m_window.reset();
    m_mixer.reset();
}

void tst_MixerWindow::drag(QWidget* widget, const QPoint& from, int down)
{
    QTest::mousePress(widget, Qt::LeftButton, {}, from);
    for (int i = 1; i <= std::abs(down); ++i)
        QTest::mouseMove(widget, from + QPoint(0, down > 0 ? i : -i));
    QTest::mouseRelease(widget, Qt::LeftButton, {}, from + QPoint(0, down));
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
    for (int ch = 0; ch < defaultChannelCount; ++ch) {
        QCOMPARE(strip(ch)->isVisible(), ch % 2 == 0);
        QCOMPARE(strip(ch)->findChildren<PeakMeterController*>().size(), 2);
    }
    const auto bars = strip(0)->findChildren<MeterController*>();
    QCOMPARE(std::count_if(bars.begin(), bars.end(), [](auto* m) { return m->isVisible(); }), 4);
}

void tst_MixerWindow::monoShowsBothStrips()
{
    click(2, "Channel 3 mono");
    QCOMPARE(value(2, StripParameter::Stereo), 0);
    QVERIFY(strip(2)->isVisible() && strip(3)->isVisible());
    QCOMPARE(stack().undoText(), u"Mono/stereo"_s);
    // From the other channel's strip the pair comes together again.
    QTRY_VERIFY(!named<QAbstractButton>(strip(3), u"Channel 4 stereo"_s)->isChecked());
    click(3, "Channel 4 stereo");
    QCOMPARE(value(2, StripParameter::Stereo), 1);
    QVERIFY(strip(2)->isVisible() && !strip(3)->isVisible());
    QCOMPARE(stack().count(), 2);
    stack().undo();
    QVERIFY(strip(3)->isVisible());
    QTRY_VERIFY(named<QAbstractButton>(strip(2), u"Channel 3 mono"_s)->isChecked());
}

void tst_MixerWindow::keysSwitch()
{
    const auto switches = [this](const char* key, StripParameter parameter, const QString& step) {
        const auto* button = named<QAbstractButton>(strip(4), QLatin1String(key));
        const int before = value(4, parameter);
        QCOMPARE(button->isChecked(), before != 0);
        click(4, key);
        QCOMPARE(value(4, parameter), 1 - before);
        QCOMPARE(stack().count(), 1);
        QCOMPARE(stack().undoText(), step);
        stack().undo();
        QCOMPARE(button->isChecked(), before != 0);
    };
    switches("Equalizer of Channel 5", StripParameter::EqualizerOn, u"Equalizer on"_s);
    switches("Mute of Channel 5", StripParameter::Mute, u"Mute"_s);
    switches("Solo of Channel 5", StripParameter::Solo, u"Solo"_s);
}

void tst_MixerWindow::faderDragIsOneStep()
{
    // At 0 dB the cap's middle is a quarter of the travel below the top.
    const int quarter = (fader(0)->height() - 56) / 4;
    drag(fader(0), QPoint(17, 28 + quarter), quarter);
    QCOMPARE(value(0, StripParameter::Level), 200);
    QCOMPARE(strip(0)->findChild<TextEditController*>()->string(), u"-10.0"_s);
    QCOMPARE(stack().count(), 1);
    trigger("Undo Level");
    QCOMPARE(value(0, StripParameter::Level), unityLevel);
    trigger("Redo Level");
    QCOMPARE(value(0, StripParameter::Level), 200);
}

void tst_MixerWindow::sourceIsChosenInItsMenu()
{
    auto* source = strip(0)->findChild<PullDownButtonController*>();
    QCOMPARE(source->currentText(), u"Off"_s);
    set(0, StripParameter::Source, SourceTestSignal);
    stack().clear();
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
    QCOMPARE(source->currentText(), u"Input 2"_s);
    QCOMPARE(stack().count(), 1);
    QCOMPARE(stack().undoText(), u"Source"_s);
}

void tst_MixerWindow::undoKeysInEveryWindow()
{
    EditorWindow* editor = m_window->openEditor(0, true);
    const std::vector<QMainWindow*> windows = {m_window.get(), editor};
    for (const QMainWindow* window : windows) {
        QCOMPARE(actionOf(window, u"Undo"_s)->shortcut(), QKeySequence(u"Ctrl+Z"_s));
        QCOMPARE(actionOf(window, u"Redo"_s)->shortcut(), QKeySequence(u"Ctrl+Shift+Z"_s));
        QVERIFY(!actionOf(window, u"Undo"_s)->isEnabled());
    }
    setGain(0, 50);
    const QImage curved = strip(0)->findChild<EqualizerThumbnail*>()->grab().toImage();
    trigger("Undo");
    QVERIFY(strip(0)->findChild<EqualizerThumbnail*>()->grab().toImage() != curved);
    QVERIFY(actionOf(editor, u"Redo Middle 2 gain"_s)->isEnabled());
    click(0, "Mute of Channel 1");
    for (QMainWindow* window : windows) {
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
    auto* knob = editor->findChild<QWidget*>(u"m_pMiddle2GainKnob"_s);
    QVERIFY(knob);
    for (int drags = 1; drags <= 2; ++drags) {
        drag(knob, knob->rect().center(), -20);
        QCOMPARE(stack().count(), drags);
    }
    QCOMPARE(stack().undoText(), u"Middle 2 gain"_s);
    QVERIFY(gain(0) > 0);
    actionOf(editor, u"Undo Middle 2 gain"_s)->trigger();
    actionOf(editor, u"Undo Middle 2 gain"_s)->trigger();
    QCOMPARE(m_mixer->memory.values(0), HostMemory().values(0));
}

void tst_MixerWindow::doubleClickRenames()
{
    auto* name = strip(4)->findChild<ChannelNameEdit*>();
    QCOMPARE(name->text(), u"Channel 5"_s);
    activate(m_window.get());
    QTest::mouseDClick(name, Qt::LeftButton);
    QTest::keyClicks(name, u"Bass"_s);
    QTest::keyClick(name, Qt::Key_Return);
    m_window->setFocus();
    QCOMPARE(m_mixer->mixerModel.name(4), u"Bass"_s);
    QCOMPARE(stack().count(), 1);
    QCOMPARE(stack().undoText(), u"Rename"_s);
    stack().undo();
    QCOMPARE(name->text(), u"Channel 5"_s);
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
    QCOMPARE(names.size(), defaultChannelCount * 15 + 16);
}

void tst_MixerWindow::namesFollowTheChannel()
{
    m_mixer->mixerModel.setName(0, u"Kick"_s);
    QVERIFY(named<FaderController>(strip(0), u"Fader of Kick"_s));
    m_mixer->language.choose(Language::German);
    QCoreApplication::sendPostedEvents();
    QVERIFY(named<FaderController>(strip(0), u"Fader von Kick"_s));
    QVERIFY(named<FaderController>(strip(2), u"Fader von Kanal 3"_s));
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
         {"Source of Channel 1", "Channel 1 mono", "Equalizer of Channel 1", "Editor of Channel 1",
          "Mute of Channel 1", "Solo of Channel 1", "Fader of Channel 1", "Level of Channel 1"})
        QVERIFY2(visited.contains(QLatin1String(name)), name);
}

void tst_MixerWindow::focusMarksTheStrip()
{
    activate(m_window.get());
    QCOMPARE(m_window->selectedChannel(), 0);
    fader(4)->setFocus();
    QCOMPARE(m_window->selectedChannel(), 4);
    clickBeside(6);
    QCOMPARE(m_window->selectedChannel(), 6);
    set(6, StripParameter::Stereo, 0);
    clickBeside(7);
    set(6, StripParameter::Stereo, 1); // the strip disappears
    QCOMPARE(m_window->selectedChannel(), 6);
}

void tst_MixerWindow::clickOnAControlMarksTheStrip()
{
    setGain(0, 50);
    for (const char* control :
         {"Source of Channel 7", "Channel 7 mono", "Equalizer of Channel 7", "Mute of Channel 7",
          "Solo of Channel 7", "Fader of Channel 7", "Level of Channel 7", "Meter of channel 7"}) {
        clickBeside(0);
        QTest::mousePress(named<QWidget>(strip(6), QLatin1String(control)), Qt::RightButton);
        QVERIFY2(m_window->selectedChannel() == 6, control);
    }
    trigger("Reset Equalizer");
    QCOMPARE(gain(0), 50);
}

void tst_MixerWindow::focusThatComesBackMarksNothing()
{
    activate(m_window.get());
    fader(4)->setFocus();
    click(6, "Mute of Channel 7");
    EditorWindow* editor = m_window->openEditor(0, true);
    QVERIFY(QTest::qWaitForWindowActive(editor));
    activate(m_window.get());
    QVERIFY(fader(4)->hasFocus());
    QCOMPARE(m_window->selectedChannel(), 6);
}

void tst_MixerWindow::editorHasTheFocus()
{
    EditorWindow* editor = m_window->openEditor(0, true);
    QVERIFY(QTest::qWaitForWindowActive(editor));
    QVERIFY(QApplication::focusWidget());
    QCOMPARE(QByteArray(QApplication::focusWidget()->metaObject()->className()), "ZoltaEditor"_ba);
}

void tst_MixerWindow::editorOfASecondChannelShowsThePair()
{
    QTest::mouseClick(strip(0)->findChild<EqualizerThumbnail*>(), Qt::LeftButton);
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
    EditorWindow* editor = m_window->openEditor(1, true);
    QCOMPARE(editor->settings().channel, 0);
    QVERIFY(editor->settings().stereo);
    QCOMPARE(m_window->editors(), QList<EditorWindow*>{editor});
    set(0, StripParameter::Stereo, 0);
    EditorWindow* second = m_window->openEditor(1, false);
    QCOMPARE(second->settings().channel, 1);
}

void tst_MixerWindow::editorOfASecondChannelClosesForThePair()
{
    set(2, StripParameter::Stereo, 0);
    EditorWindow* first = m_window->openEditor(2, false);
    const QPointer<EditorWindow> second = m_window->openEditor(3, false);
    set(2, StripParameter::Stereo, 1);
    QTRY_VERIFY(!second);
    QCOMPARE(m_window->editors(), QList<EditorWindow*>{first});
    QVERIFY(first->settings().stereo);
}

void tst_MixerWindow::firstEditorTakesTheSecondsPlace()
{
    set(2, StripParameter::Stereo, 0);
    const QPointer<EditorWindow> second = m_window->openEditor(3, false);
    second->setScale(0.75);
    const QRect place(30, 40, 640, 480);
    second->setGeometry(place);
    m_window->hide();
    QSignalSpy ending(m_window.get(), &MixerWindow::ending);
    set(2, StripParameter::Stereo, 1);
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
        if (box->findText(u"Mono"_s) < 0)
            continue;
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Down);
    }
    QCOMPARE(value(2, StripParameter::Stereo), 0);
    QVERIFY(strip(3)->isVisible() && !editor->settings().stereo);
    QCOMPARE(stack().count(), 1);
    stack().undo();
    QVERIFY(editor->settings().stereo);
}

void tst_MixerWindow::metersShowWhatLeavesTheFader_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<bool>("equalized");
    QTest::addColumn<bool>("muted");
    QTest::addColumn<int>("send");
    QTest::addColumn<int>("returned");
    QTest::addColumn<int>("shown");
    QTest::newRow("0 dB") << 300 << true << false << -100 << -200 << -200;
    QTest::newRow("+4 dB") << 340 << true << false << -100 << -200 << -160;
    QTest::newRow("+4 dB, past the equalizer") << 340 << false << false << -100 << -200 << -60;
    QTest::newRow("fader down") << 0 << true << false << 0 << 0 << -1270;
    QTest::newRow("muted") << 300 << true << true << 0 << 0 << -1270;
    QTest::newRow("silence") << 300 << true << false << -1270 << -1270 << -1270;
}

void tst_MixerWindow::metersShowWhatLeavesTheFader()
{
    QFETCH(const int, level);
    QFETCH(const bool, equalized);
    QFETCH(const bool, muted);
    QFETCH(const int, send);
    QFETCH(const int, returned);
    set(0, StripParameter::Level, level);
    set(0, StripParameter::EqualizerOn, equalized);
    set(0, StripParameter::Mute, muted);
    sendMeters(0, send, returned);
    QTEST(meterOf(0), "shown");
}

void tst_MixerWindow::metersKnowTheOtherStrips()
{
    set(2, StripParameter::Solo, 1);
    sendMeters(0, 0, 0);
    QCOMPARE(meterOf(0), -1270);
    set(2, StripParameter::Solo, 0);
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

void tst_MixerWindow::highestLevelStaysUntilItIsClicked()
{
    auto* display = strip(0)->findChild<PeakDisplay*>();
    QCOMPARE(display->accessibleName(), u"Highest level of Channel 1"_s);
    QTest::mouseClick(display, Qt::LeftButton);
    sendMeters(0, -60, -60);
    sendMeters(0, -300, -300);
    QCOMPARE(display->text(), u"-6.0"_s);
    QVERIFY(!display->hasClipped());
    sendMeters(0, 15, 15);
    sendMeters(0, -300, -300);
    QCOMPARE(display->text(), u"+1.5"_s);
    QCOMPARE(display->accessibleDescription(), u"+1.5 dB, clipped"_s);
    QTest::mouseClick(display, Qt::LeftButton);
    QVERIFY(!display->hasClipped());
    QCOMPARE(display->text(), u"-\u221e"_s);
}

void tst_MixerWindow::soloShowsWhatItSilences()
{
    const QImage before = strip(0)->grab().toImage();
    set(2, StripParameter::Solo, 1);
    const QImage silenced = strip(0)->grab().toImage();
    QVERIFY(silenced != before);
    set(0, StripParameter::Solo, 1);
    set(2, StripParameter::Solo, 0);
    set(0, StripParameter::Solo, 0);
    QCOMPARE(strip(0)->grab().toImage(), before);
    set(0, StripParameter::Mute, 1); // is no silencing by others
    const QRect foot(0, strip(0)->height() - 26, strip(0)->width(), 16);
    QCOMPARE(strip(0)->grab().toImage().copy(foot), before.copy(foot));
}

// A pair that becomes mono pushes what is right of it, and nothing else.
void tst_MixerWindow::stripsStayWhereTheyAre()
{
    const QPoint first = strip(0)->mapTo(m_window.get(), QPoint());
    const QPoint second = strip(2)->mapTo(m_window.get(), QPoint());
    QVERIFY(first.x() < 10);
    set(2, StripParameter::Stereo, 0);
    QTRY_VERIFY(strip(3)->x() > strip(2)->x());
    QCOMPARE(strip(0)->mapTo(m_window.get(), QPoint()), first);
    QCOMPARE(strip(2)->mapTo(m_window.get(), QPoint()), second);
}

void tst_MixerWindow::fadersGrowWithTheWindow()
{
    m_window->resize(m_window->width(), 900);
    QTRY_VERIFY(strip(0)->height() > 700);
    const int tall = fader(0)->height();
    m_window->resize(m_window->width(), 700);
    QTRY_COMPARE(fader(0)->height(), tall - 200);
    // The cap is where the value is.
    const int quarter = (fader(0)->height() - 56) / 4;
    drag(fader(0), QPoint(17, 28 + quarter), -quarter - 4);
    QCOMPARE(value(0, StripParameter::Level), highestLevel);
}

void tst_MixerWindow::masterIsOperated()
{
    const auto* master = m_window->findChild<MasterStrip*>();
    const HostMemory& memory = m_mixer->memory;
    const std::pair<const char*, MasterParameter> keys[] = {
        {"Mute of the master", MasterParameter::Mute},
        {"Plays 20 dB quieter", MasterParameter::Dim},
        {"Plays both sides as one", MasterParameter::Mono}};
    for (const auto& [name, parameter] : keys) {
        QTest::mouseClick(named<QAbstractButton>(master, QLatin1String(name)), Qt::LeftButton);
        QCOMPARE(memory.master(parameter), 1);
        stack().undo();
        QCOMPARE(memory.master(parameter), 0);
    }
    auto* masterFader = named<FaderController>(master, u"Fader of the master"_s);
    const int quarter = (masterFader->height() - 56) / 4;
    drag(masterFader, QPoint(17, 28 + quarter), quarter);
    QVERIFY(memory.master(MasterParameter::Level) < unityLevel);
    QCOMPARE(stack().undoText(), u"Master level"_s);
    QCOMPARE(master->findChildren<PeakDisplay*>().size(), 1);
}

void tst_MixerWindow::metersRunWhileSomethingShows()
{
    QCOMPARE(metersRead(*m_mixer).size(), defaultChannelCount);
    m_window->hide();
    QCOMPARE(metersRead(*m_mixer), QList<int>());
    QVERIFY(!m_mixer->memory.meters().hasObservers());
    m_window->show();
    QVERIFY(m_mixer->memory.meters().hasObservers());
    QCOMPARE(metersRead(*m_mixer).size(), defaultChannelCount);
}

void tst_MixerWindow::windowsStandSideBySide_data()
{
    QTest::addColumn<QSize>("room");
    QTest::addColumn<double>("scale"); // of the editor
    QTest::newRow("1920 x 1080") << QSize(1920, 1080) << 1.0;
    QTest::newRow("1600 x 900") << QSize(1600, 900) << 1.0;
    QTest::newRow("1366 x 768, with a bar of the desktop") << QSize(1366, 728) << 0.75;
    QTest::newRow("1280 x 720") << QSize(1280, 720) << 0.5;
}

void tst_MixerWindow::windowsStandSideBySide()
{
    QFETCH(const QSize, room);
    const QRect place(QPoint(10, 20), room);
    EditorWindow* editor = m_window->openEditor(0, true);
    placeSideBySide(*m_window, *editor, place);
    const QRect mixer = m_window->frameGeometry();
    QVERIFY(!mixer.intersects(editor->frameGeometry()));
    QVERIFY(place.contains(mixer));
    QVERIFY(place.contains(editor->frameGeometry()));
    QTEST(editor->settings().scale, "scale");
    QCOMPARE_GE(m_window->height(), editor->height());
    const auto* area = editor->findChild<QScrollArea*>();
    QTRY_COMPARE(area->horizontalScrollBar()->maximum(), 0);
    QVERIFY(mixer.width() >= 4 * MixerStrip::stripWidth); // all pairs are in sight
}

void tst_MixerWindow::copyAndPasteThroughTheMenu()
{
    setGain(0, 50);
    trigger("Copy Equalizer");
    clickBeside(4);
    trigger("Paste Equalizer");
    QCOMPARE(m_mixer->memory.values(4), m_mixer->memory.values(0));
    trigger("Reset Equalizer");
    QCOMPARE(m_mixer->memory.values(4), HostMemory().values(4));
    QCOMPARE(stack().undoText(), u"Reset"_s);
    stack().undo();
    QCOMPARE(gain(4), 50);
}

void tst_MixerWindow::pasteFollowsTheClipboard()
{
    const EditorWindow* editor = m_window->openEditor(0, true);
    const QAction* inMixer = actionOf(m_window.get(), u"Paste Equalizer"_s);
    const QAction* inEditor = actionOf(editor, u"Paste Settings"_s);
    QApplication::clipboard()->setImage(QImage(2, 2, QImage::Format_RGB32));
    QVERIFY(!inMixer->isEnabled() && !inEditor->isEnabled());
    m_mixer->mixerModel.copyToClipboard(0);
    QVERIFY(inMixer->isEnabled() && inEditor->isEnabled());
    QApplication::clipboard()->setText(u"nonsense"_s);
    trigger("Paste Equalizer");
    QCOMPARE(m_window->statusBar()->currentMessage(),
             u"Cannot paste. The clipboard holds no equalizer settings."_s);
    QApplication::clipboard()->clear();
    QVERIFY(!inMixer->isEnabled() && !inEditor->isEnabled());
}

void tst_MixerWindow::compareInTheEditorWindow()
{
    EditorWindow* editor = m_window->openEditor(0, true);
    QAction* a = actionOf(editor, u"A"_s);
    QAction* b = actionOf(editor, u"B"_s);
    QVERIFY(a->isCheckable() && a->isChecked());
    setGain(0, 50);
    b->trigger();
    QVERIFY(b->isChecked());
    QCOMPARE(gain(0), 0);
    actionOf(editor, u"Copy A to B"_s)->trigger();
    QCOMPARE(gain(0), 50);
    actionOf(editor, u"Switch between A and B"_s)->trigger();
    QVERIFY(a->isChecked());
    for (int i = 0; i < 3; ++i)
        actionOf(editor, u"Undo"_s)->trigger();
    QVERIFY(a->isChecked());
    QCOMPARE(gain(0), 50);
}

void tst_MixerWindow::editorSaysWhetherAudioPlays()
{
    EditorWindow* editor = m_window->openEditor(0, true);
    const auto saysNoAudio = [editor] {
        const auto labels = editor->findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(),
                           [](QLabel* l) { return l->text() == "No audio"_L1; });
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
