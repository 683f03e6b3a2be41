// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PushButtonController.h"
#include "host/window/AnalyzerView.h"
#include "host/window/EditorPresets.h"
#include "host/window/EditorToolBar.h"
#include "host/window/EditorWindow.h"
#include "host/window/HostTheme.h"
#include "host/window/Mixer.h"
#include "host/window/MixerStrip.h"
#include "host/window/MixerWindow.h"
#include "host/window/ParameterListModel.h"
#include "host/window/ResponseView.h"
#include "tests/host/window/WindowTesting.h"
#include "tests/support/TestObject.h"
#include "widgets/ChannelNameEdit.h"

#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QStatusBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace WindowTesting;

class tst_EditorWindow : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void showsEditorAndTable();
    void typedValueReachesTheEditor();
    void nonsenseIsExplained();
    void zoomScalesTheEditor();
    void zoomShortcutsStep();
    void choicesReachTheEditor_data();
    void choicesReachTheEditor();
    void modesAreKeptForTheNextEditor();
    void unusualSampleRateIsShown();
    void measuredResponseIsSwitched();
    void measuredResponseTakesBackWhatItAdded();
    void analyzerTakesThePlaceOfTheMeasuredResponse();
    void analyzerStandsBelowTheEditorsPlot();
    void windowFollowsTheZoom();
    void panelsYieldToTheZoom();
    void menuTellsTheTwoZoomsApart();
    void valuesAreEditedByTheirKind();
    void rowsFollowTheFont();
    void parametersAreSwitched();
    void editorIsSeenWholeWithoutParameters();
    void parametersCanBeNarrow();
    void parametersTakeWhatRoomThereIs();
    void overflowOfTheBarShowsAnArrow();
    void titleSaysTheChannels();
    void resetWritesDefaults();
    void mixerOpensAChannelOnce();
    void closingDetaches();
    void closesWhileItShowsAnError();
    void mixerComesBack();
    void languageIsChosenInTheMenu();
    void windowsSpeakTheChosenLanguage();
    void everyTextIsTranslated();
    void valuesAreReadableInEveryLanguage();
    void switchingTheLanguageChangesNoSetting();

private:
    static void expectRaise();
    EditorWindow* openWindow(int channel = 0, bool stereo = true);
    EditorWindow* openWithParameters(int channel = 0);
    static QSize roomOf(const QWidget* window);
    static QDockWidget* dockOf(const QWidget* panel);
    static int extentOf(const QWidget* panel);
    static QWidget* editorOf(const EditorWindow* window);
    static QComboBox* choice(const EditorWindow* window, const QString& item);
    static void choose(const EditorWindow* window, const QString& item)
    {
        choice(window, item)->setCurrentText(item);
    }
    static QStringList calls(const EditorWindow* window)
    {
        return editorOf(window)->property("calls").toStringList();
    }
    static void trigger(const QMainWindow* window, const char* action)
    {
        WindowTesting::choose(actionOf(window, QLatin1String(action)));
    }
    void speak(Language language)
    {
        m_mixer.language.choose(language);
        QCoreApplication::sendPostedEvents();
    }

    Mixer m_mixer;
    std::unique_ptr<MixerWindow> m_window;
};

void tst_EditorWindow::initTestCase()
{
    applyHostTheme();
    loadStandIn(m_mixer);
    m_window = std::make_unique<MixerWindow>(m_mixer, EditorSettings());
}

void tst_EditorWindow::cleanup()
{
    m_window.reset();
    m_mixer.language.choose(Language::English);
    for (int ch = 0; ch < defaultChannelCount; ++ch) {
        m_mixer.memory.reset(ch);
        m_mixer.memory.setStrip(ch, StripParameter::Stereo, 1);
    }
    m_window = std::make_unique<MixerWindow>(m_mixer, EditorSettings());
}

// A window that is open already is raised, which the offscreen platform says it cannot do.
void tst_EditorWindow::expectRaise()
{
    QTest::ignoreMessage(QtWarningMsg, "This plugin does not support raise()");
}

EditorWindow* tst_EditorWindow::openWindow(int channel, bool stereo)
{
    EditorWindow* window = m_window->openEditor(channel, stereo);
    if (!window || !QTest::qWaitForWindowExposed(window))
        qFatal("no window");
    return window;
}

EditorWindow* tst_EditorWindow::openWithParameters(int channel)
{
    EditorWindow* window = openWindow(channel);
    trigger(window, "Parameters");
    return window;
}

// What the screen has for a window inside its frame.
QSize tst_EditorWindow::roomOf(const QWidget* window)
{
    return window->screen()->availableSize() - (window->frameSize() - window->size());
}

QDockWidget* tst_EditorWindow::dockOf(const QWidget* panel)
{
    return qobject_cast<QDockWidget*>(panel->parentWidget());
}

// What a panel above or below the editor takes of the window's height.
int tst_EditorWindow::extentOf(const QWidget* panel)
{
    const QWidget* window = panel->window();
    return dockOf(panel)->height() +
           window->style()->pixelMetric(QStyle::PM_DockWidgetSeparatorExtent, nullptr, window);
}

QWidget* tst_EditorWindow::editorOf(const EditorWindow* window)
{
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        if (widget->property("calls").isValid())
            return widget;
    }
    qFatal("no editor");
}

QComboBox* tst_EditorWindow::choice(const EditorWindow* window, const QString& item)
{
    for (QComboBox* box : window->findChildren<QComboBox*>()) {
        if (box->findText(item) >= 0)
            return box;
    }
    qFatal("no choice of %s", qPrintable(item));
}

void tst_EditorWindow::showsEditorAndTable()
{
    EditorWindow* window = openWindow();
    QVERIFY(editorOf(window)->isVisible());
    QCOMPARE(editorOf(window)->size(), QSize(400, 240));
    QCOMPARE(window->width(), 400);
    const auto* table = window->findChild<QTableView*>();
    QVERIFY(!table->isVisible());
    trigger(window, "Parameters");
    QVERIFY(table->isVisible());
    window->resize(window->width(), roomOf(window).height());
    QCOMPARE(table->model()->rowCount(), 27);
    QTRY_COMPARE(table->verticalScrollBar()->maximum(), 0); // all rows are in sight
}

void tst_EditorWindow::typedValueReachesTheEditor()
{
    EditorWindow* window = openWithParameters(2);
    auto* table = window->findChild<QTableView*>();
    const QModelIndex cell = table->model()->index(2, ParameterListModel::ValueColumn);
    table->setCurrentIndex(cell);
    table->edit(cell);
    auto* field = table->viewport()->findChild<QLineEdit*>();
    QVERIFY(field);
    QTest::keyClicks(field, u"6 dB"_s);
    QTest::keyClick(field, Qt::Key_Return);
    QTRY_COMPARE(m_mixer.memory.values(2)[2], 60);
    QCOMPARE(cell.data().toString(), u"+6.0"_s);
    QVERIFY(calls(window).contains(u"Update 259 2 60 +6.0"_s));
}

void tst_EditorWindow::nonsenseIsExplained()
{
    EditorWindow* window = openWindow();
    auto* model = window->findChild<QTableView*>()->model();
    QVERIFY(!model->setData(model->index(2, ParameterListModel::ValueColumn), u"loud"_s));
    QCOMPARE(window->statusBar()->currentMessage(),
             u"\"loud\" is not a value of Low gain: enter a value from "
             "-20.0 to +20.0 dB."_s);
    QCOMPARE(m_mixer.memory.values(0)[2], 0);
}

void tst_EditorWindow::zoomScalesTheEditor()
{
    EditorWindow* window = openWindow();
    auto* zoom = window->findChild<QSpinBox*>();
    const auto* area = window->findChild<QScrollArea*>();
    QCOMPARE(zoom->value(), 100);
    QCOMPARE(zoom->minimum(), 50);
    QCOMPARE(zoom->maximum(), 400);
    zoom->setValue(50);
    QCOMPARE(editorOf(window)->size(), QSize(200, 120));
    QTRY_COMPARE(area->horizontalScrollBar()->maximum(), 0);
    zoom->setValue(400);
    QCOMPARE(editorOf(window)->size(), QSize(1600, 960));
    QTRY_COMPARE(area->horizontalScrollBar()->maximum(), 1600 - area->viewport()->width());
    QTRY_COMPARE(area->verticalScrollBar()->maximum(), 960 - area->viewport()->height());
}

void tst_EditorWindow::zoomShortcutsStep()
{
    EditorWindow* window = openWindow();
    auto* zoom = window->findChild<QSpinBox*>();
    trigger(window, "Zoom In");
    QCOMPARE(zoom->value(), 125);
    QCOMPARE(editorOf(window)->size(), QSize(500, 300));
    trigger(window, "Zoom Out");
    trigger(window, "Zoom Out");
    QCOMPARE(zoom->value(), 75);
    trigger(window, "Actual Size");
    QCOMPARE(zoom->value(), 100);
}

void tst_EditorWindow::choicesReachTheEditor_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("call");
    const auto row = [](const char* item, const char* call) {
        QTest::newRow(item) << QString::fromLatin1(item) << QString::fromLatin1(call);
    };
    row("Mono", "setCh 0 -1");
    row("44100 Hz", "setFs 44100");
    row("192000 Hz", "setFs 192000");
    row("Relative circular", "setDialEditMode 1");
    row("Circular", "setDialEditMode 0");
    row("Jump", "setSliderEditMode 1");
    row("Touch", "setSliderEditMode 2");
    row("Ramp", "setSliderEditMode 3");
}

void tst_EditorWindow::choicesReachTheEditor()
{
    QFETCH(const QString, item);
    QFETCH(const QString, call);
    EditorWindow* window = openWindow();
    QVERIFY(!calls(window).contains(call));
    choose(window, item);
    QVERIFY(calls(window).contains(call));
}

// A click on a knob that turns in a circle would jump to where it was clicked.
void tst_EditorWindow::modesAreKeptForTheNextEditor()
{
    QTemporaryDir folder;
    const QString file = folder.filePath(u"editors.json"_s);
    QVERIFY(m_mixer.settings.open(file).isOk());
    EditorWindow* window = openWindow();
    QVERIFY(calls(window).contains(u"setDialEditMode 2"_s));
    QVERIFY(calls(window).contains(u"setSliderEditMode 0"_s));
    choose(window, u"Relative circular"_s);
    choose(window, u"Ramp"_s);
    QVERIFY(calls(openWindow(2)).contains(u"setDialEditMode 1"_s));
    SettingsFile next;
    QVERIFY(next.open(file).isOk());
    EditorSettings settings;
    settings.takeModes(next);
    QCOMPARE(settings.dialMode, 1);
    QCOMPARE(settings.sliderMode, 3);
    next.setPreference(u"dialMode"_s, 7);
    next.setPreference(u"sliderMode"_s, u"fast"_s);
    settings = {};
    settings.takeModes(next);
    QCOMPARE(settings.dialMode, 2);
    QCOMPARE(settings.sliderMode, 0);
    m_mixer.settings = {};
}

void tst_EditorWindow::unusualSampleRateIsShown()
{
    EditorSettings settings;
    settings.sampleRate = 32000;
    m_window = std::make_unique<MixerWindow>(m_mixer, settings);
    EditorWindow* window = openWindow();
    QCOMPARE(choice(window, u"44100 Hz"_s)->currentText(), u"32000 Hz"_s);
}

void tst_EditorWindow::measuredResponseIsSwitched()
{
    EditorWindow* window = openWindow(2);
    auto* view = window->findChild<ResponseView*>();
    const int height = window->height();
    QVERIFY(!view->isVisible());
    QTest::keyClick(window, Qt::Key_R, Qt::ControlModifier);
    QVERIFY(view->isVisible());
    QCOMPARE(window->height(), std::min(height + extentOf(view), roomOf(window).height()));
    const QImage before = view->grab().toImage();
    choose(window, u"44100 Hz"_s);
    QVERIFY(view->grab().toImage() != before); // other frequencies
    trigger(window, "Measured Response");
    QVERIFY(!view->isVisible());
    QVERIFY(window->height() <= height);
}

void tst_EditorWindow::measuredResponseTakesBackWhatItAdded()
{
    EditorWindow* window = openWindow(2);
    const auto* view = window->findChild<ResponseView*>();
    const int highest = roomOf(window).height();
    for (const int height : {400, highest - 100, highest}) {
        window->resize(700, height);
        window->setMeasured(true);
        QCOMPARE(window->height(), std::min(height + extentOf(view), highest));
        QCOMPARE(view->height(), ResponseView::viewHeight);
        window->setMeasured(false);
        QCOMPARE(window->height(), height);
    }
}

void tst_EditorWindow::analyzerTakesThePlaceOfTheMeasuredResponse()
{
    EditorWindow* window = openWindow(2);
    const auto* view = window->findChild<AnalyzerView*>();
    const auto* response = window->findChild<ResponseView*>();
    const QAction* item = actionOf(window, u"Analyzer"_s);
    const int height = window->height();
    QTest::keyClick(window, Qt::Key_R, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(view->isVisible() && item->isChecked());
    trigger(window, "Measured Response");
    QVERIFY(!view->isVisible() && !item->isChecked() && response->isVisible());
    trigger(window, "Analyzer");
    QVERIFY(view->isVisible() && !response->isVisible());
    const QByteArray state = window->saveState();
    trigger(window, "Analyzer");
    QVERIFY(!view->isVisible() && !item->isChecked());
    QCOMPARE(window->height(), height);
    window->restoreState(state);
    QVERIFY(view->isVisible() && item->isChecked());
}

void tst_EditorWindow::analyzerStandsBelowTheEditorsPlot()
{
    EditorWindow* window = openWindow();
    window->setAnalyzer(true);
    const auto* view = window->findChild<AnalyzerView*>();
    const QWidget* stage = editorOf(window)->parentWidget();
    for (const double scale : {1.0, 1.5}) {
        window->setScale(scale);
        const double left = view->mapFrom(window, stage->mapTo(window, QPoint())).x() +
                            stage->width() * 137.5 / 977.0;
        QVERIFY(std::abs(view->plot().area.left() - left) <= 1.0);
    }
}

void tst_EditorWindow::windowFollowsTheZoom()
{
    EditorWindow* window = openWindow();
    const auto* area = window->findChild<QScrollArea*>();
    const QSize before = window->size();
    for (const double scale : {1.5, 1.0, 0.5, 1.25, 1.0}) {
        window->setScale(scale);
        QCOMPARE(area->maximumViewportSize().height(), qRound(240 * scale));
        QCOMPARE(area->maximumViewportSize().width(),
                 std::max(qRound(400 * scale), window->minimumSizeHint().width()));
        QTRY_COMPARE(area->horizontalScrollBar()->maximum(), 0);
        QCOMPARE(area->verticalScrollBar()->maximum(), 0);
    }
    QCOMPARE(window->size(), before);
    window->setScale(4.0);
    QCOMPARE(window->size(), roomOf(window));
    QCOMPARE(window->pos(), window->screen()->availableGeometry().topLeft());
    window->setScale(1.0);
    QCOMPARE(window->size(), before);
    window->showMaximized();
    const QSize maximized = window->size();
    window->setScale(4.0);
    QCOMPARE(window->size(), maximized);
}

// Nothing of the editor is cut as long as a panel can be smaller, and where it scrolls downwards
// the bar does not lie on it.
void tst_EditorWindow::panelsYieldToTheZoom()
{
    EditorWindow* window = openWindow();
    const auto* area = window->findChild<QScrollArea*>();
    const auto* table = window->findChild<QTableView*>();
    window->setScale(0.5);
    trigger(window, "Parameters");
    QVERIFY(table->width() > 400);
    window->setScale(1.25);
    QCOMPARE(area->maximumViewportSize().width(), 500);
    QCOMPARE_LT(table->width(), 300);
    trigger(window, "Parameters");
    window->findChild<ResponseView*>()->setMinimumHeight(300);
    window->setMeasured(true);
    window->setScale(1.75); // 420 high, with the response and the bars more than the screen
    QTRY_COMPARE_GT(area->verticalScrollBar()->maximum(), 0);
    QCOMPARE(area->horizontalScrollBar()->maximum(), 0);
}

void tst_EditorWindow::menuTellsTheTwoZoomsApart()
{
    const EditorWindow* window = openWindow();
    const QAction* in = actionOf(window, u"Zoom In"_s);
    QCOMPARE(actionOf(window, u"UI Zoom"_s)->menu(), in->parent());
    QVERIFY(actionOf(window, u"Graph Range"_s)
                ->menu()
                ->actions()
                .contains(actionOf(window, u"\u00b140 dB"_s)));
}

// Numbers in a field that is aligned as they are, choices from a list, switches by a box.
void tst_EditorWindow::valuesAreEditedByTheirKind()
{
    EditorWindow* window = openWithParameters();
    auto* table = window->findChild<QTableView*>();
    const auto cell = [table](int row) {
        return table->model()->index(row, ParameterListModel::ValueColumn);
    };
    const auto edit = [&](int row) {
        table->setCurrentIndex(cell(row));
        QTest::keyClick(table, Qt::Key_F2);
    };
    edit(1);
    const auto* field = table->viewport()->findChild<QLineEdit*>();
    QVERIFY(field && field->alignment().testFlag(Qt::AlignRight));
    QCOMPARE(field->accessibleName(), u"Low frequency"_s);
    edit(0);
    auto* list = table->viewport()->findChild<QComboBox*>();
    QVERIFY(list);
    QCOMPARE(list->currentText(), u"Shelf 12"_s);
    QTRY_VERIFY(list->view()->isVisible());
    QTest::keyClick(list->view(), Qt::Key_Home);
    QTest::keyClick(list->view(), Qt::Key_Return);
    QTRY_COMPARE(m_mixer.memory.values(0)[0], 0);
    QTRY_VERIFY(!table->viewport()->findChild<QComboBox*>());
    table->setFocus();
    edit(3);
    QVERIFY(!table->viewport()->findChild<QLineEdit*>());
    QCOMPARE(cell(3).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    QTest::keyClick(table, Qt::Key_Space);
    QCOMPARE(m_mixer.memory.values(0)[3], 0);
    QTest::keyClick(table, Qt::Key_Space);
    QCOMPARE(m_mixer.memory.values(0)[3], 1);
}

void tst_EditorWindow::rowsFollowTheFont()
{
    EditorWindow* window = openWithParameters();
    auto* table = window->findChild<QTableView*>();
    for (const int pixels : {10, 14, 30}) {
        QFont font = table->font();
        font.setPixelSize(pixels);
        table->setFont(font);
        QCOMPARE_GE(table->rowHeight(0), table->fontMetrics().height());
        QCOMPARE_LE(table->rowHeight(26), table->fontMetrics().height() + 6);
    }
}

void tst_EditorWindow::parametersAreSwitched()
{
    EditorWindow* window = openWindow();
    const auto* table = window->findChild<QTableView*>();
    const QAction* item = actionOf(window, u"Parameters"_s);
    QVERIFY(!item->isChecked());
    QTest::keyClick(window, Qt::Key_L, Qt::ControlModifier);
    QVERIFY(item->isChecked());
    QVERIFY(table->isVisible());
    QVERIFY(table->width() > 300);
    QCOMPARE(window->findChild<QScrollArea*>()->width(), 400);
    const int width = window->width();
    for (int times = 0; times < 2; ++times) {
        QTest::keyClick(window, Qt::Key_L, Qt::ControlModifier);
        QVERIFY(!table->isVisible());
        QCOMPARE(window->width(), 400); // the editor's
        QTest::keyClick(window, Qt::Key_L, Qt::ControlModifier);
        QCOMPARE(window->width(), width);
    }
}

void tst_EditorWindow::editorIsSeenWholeWithoutParameters()
{
    EditorWindow* window = openWithParameters();
    window->setScale(1.75);
    QVERIFY(window->findChild<QScrollArea*>()->maximumViewportSize().width() < 700);
    trigger(window, "Parameters");
    QTRY_COMPARE(window->findChild<QScrollArea*>()->maximumViewportSize().width(), 700);
}

void tst_EditorWindow::parametersCanBeNarrow()
{
    EditorWindow* window = openWithParameters();
    const auto* table = window->findChild<QTableView*>();
    window->resizeDocks({dockOf(table)}, {260}, Qt::Horizontal);
    QTRY_COMPARE(table->width(), 260);
    for (int column = 0; column < table->model()->columnCount(); ++column)
        QVERIFY(table->columnWidth(column) >=
                static_cast<const QAbstractItemView*>(table)->sizeHintForColumn(column));
    QVERIFY(table->columnViewportPosition(ParameterListModel::UnitColumn) <
            table->viewport()->width()); // values are in sight
    window->resizeDocks({dockOf(table)}, {1000}, Qt::Horizontal);
    QTRY_COMPARE(table->horizontalScrollBar()->maximum(), 0);
}

void tst_EditorWindow::parametersTakeWhatRoomThereIs()
{
    EditorSettings settings;
    settings.scale = 1.5; // 600 of the screen's 800 pixels
    m_window = std::make_unique<MixerWindow>(m_mixer, settings);
    EditorWindow* window = openWindow();
    const auto* table = window->findChild<QTableView*>();
    QVERIFY(!table->isVisible());
    QCOMPARE(window->width(), 600);
    trigger(window, "Parameters");
    QVERIFY(table->isVisible());
    QCOMPARE(table->width(), 260);
    QCOMPARE(window->width(), roomOf(window).width());
    trigger(window, "Parameters");
    QCOMPARE(window->width(), 600);
}

void tst_EditorWindow::overflowOfTheBarShowsAnArrow()
{
    EditorWindow* window = openWindow();
    const auto* bar = window->findChild<EditorToolBar*>();
    auto* key = bar->findChild<QToolButton*>(u"qt_toolbar_ext_button"_s);
    QTRY_VERIFY(key && key->isVisible());
    const QImage picture = key->grab().toImage();
    int bright = 0;
    for (int y = 2; y < picture.height() - 2; ++y) {
        for (int x = 2; x < picture.width() - 2; ++x)
            bright += qGray(picture.pixel(x, y)) > 150;
    }
    QVERIFY(bright > 5);
}

void tst_EditorWindow::titleSaysTheChannels()
{
    EditorWindow* window = openWindow(4);
    QCOMPARE(window->windowTitle(), u"Channels 5 + 6 - Equalizer"_s);
    choose(window, u"Mono"_s);
    QCOMPARE(window->windowTitle(), u"Channel 5 - Equalizer"_s);
}

void tst_EditorWindow::resetWritesDefaults()
{
    EditorWindow* window = openWindow(1, false);
    m_mixer.memory.setValue(0x0103, 1, 50, 0, 0, 1);
    m_mixer.memory.setValue(0x0103, 0, 50, 0, 0, 1);
    trigger(window, "Reset to Defaults");
    QCOMPARE(m_mixer.memory.values(1), HostMemory().values(1));
    QCOMPARE(m_mixer.memory.values(0)[2], 50);
}

void tst_EditorWindow::mixerOpensAChannelOnce()
{
    m_mixer.memory.setStrip(2, StripParameter::Stereo, 0);
    m_window->show();
    auto* edit = named<QAbstractButton>(stripOf(m_window.get(), 3), u"Editor of Channel 4"_s);
    QTest::mouseClick(edit, Qt::LeftButton);
    expectRaise();
    EditorWindow* window = m_window->openEditor(3, false);
    QVERIFY(window->isVisible());
    QCOMPARE(window->windowTitle(), u"Channel 4 - Equalizer"_s);
    expectRaise();
    QTest::mouseClick(edit, Qt::LeftButton);
    expectRaise();
    QCOMPARE(m_window->openEditor(3, false), window);
    EditorWindow* first = m_window->openEditor(2, false);
    QVERIFY(first != window);
    expectRaise();
    QCOMPARE(m_window->openEditor(2, true), first);
    QVERIFY(calls(first).contains(u"setCh 2 3"_s));
}

void tst_EditorWindow::closingDetaches()
{
    QPointer<EditorWindow> window = openWindow();
    window->close(); // the stand-in warns when it was not detached, which fails the test
    QTRY_VERIFY(!window);
    m_mixer.memory.reset(0); // calls nobody who is not there any more
    QVERIFY(m_window->openEditor(0, true));
}

void tst_EditorWindow::closesWhileItShowsAnError()
{
    const QPointer<EditorWindow> window = openWindow();
    QTimer::singleShot(0, window, [&] { window->close(); });
    window->presets().load({QStringLiteral("no such preset")});
    QVERIFY(!window);
}

void tst_EditorWindow::mixerComesBack()
{
    EditorWindow* window = openWindow();
    QVERIFY(!m_window->isVisible());
    trigger(window, "Mixer");
    QVERIFY(m_window->isVisible());
}

void tst_EditorWindow::languageIsChosenInTheMenu()
{
    EditorWindow* window = openWindow();
    const std::vector<QMainWindow*> windows = {window, openWindow(3), m_window.get()};
    for (const Language chosen : {Language::German, Language::Japanese, Language::English}) {
        actionOf(window, nameOf(chosen))->trigger();
        QCoreApplication::sendPostedEvents();
        QCOMPARE(m_mixer.language.current(), chosen);
        for (const QMainWindow* shown : windows) {
            for (const Language language : languages)
                QCOMPARE(actionOf(shown, nameOf(language))->isChecked(), language == chosen);
        }
    }
}

void tst_EditorWindow::windowsSpeakTheChosenLanguage()
{
    EditorWindow* window = openWindow(4);
    speak(Language::German);
    QCOMPARE(window->windowTitle(), u"Kanäle 5 + 6 - Equalizer"_s);
    QVERIFY(actionOf(window, u"Zustand laden ..."_s));
    QVERIFY(choice(window, u"Relativ kreisförmig"_s));
    const QAbstractItemModel* table = window->findChild<QTableView*>()->model();
    QCOMPARE(table->headerData(1, Qt::Horizontal).toString(), u"Wert"_s);
    QCOMPARE(table->index(2, 0).data().toString(), u"Tiefen: Gain"_s);
    QCOMPARE(table->index(2, 1).data(Qt::ToolTipRole).toString(), u"-20.0 bis +20.0 dB"_s);
    QCOMPARE(m_window->windowTitle(), u"Mischpult"_s);
    QCOMPARE(stripOf(m_window.get(), 7)->findChild<ChannelNameEdit*>()->text(), u"Kanal 8"_s);
    EditorWindow* opened = openWindow(1, false); // one that opens later speaks it, too
    QCOMPARE(opened->windowTitle(), u"Kanal 2 - Equalizer"_s);
    speak(Language::English);
    QCOMPARE(window->windowTitle(), u"Channels 5 + 6 - Equalizer"_s);
    QCOMPARE(table->headerData(1, Qt::Horizontal).toString(), u"Value"_s);
    QVERIFY(actionOf(window, u"Load State..."_s));
}

// In Japanese no text of the windows is made of Latin letters alone.
void tst_EditorWindow::everyTextIsTranslated()
{
    static const QRegularExpression japanese(u"[\\x{3040}-\\x{30ff}\\x{4e00}-\\x{9fff}]"_s);
    EditorWindow* window = openWindow();
    speak(Language::Japanese);
    QStringList texts{window->windowTitle(), m_window->windowTitle()};
    const std::vector<QMainWindow*> windows = {window, m_window.get()};
    for (const QMainWindow* shown : windows) {
        for (const QAction* found : shown->findChildren<QAction*>()) {
            if (!found->isCheckable() && !found->text().isEmpty())
                texts << found->text();
        }
        for (const QLabel* label : shown->findChildren<QLabel*>()) {
            static const QRegularExpression letters(u"[^\\d:/ ]"_s);
            if (label->text().contains(letters))
                texts << label->text();
        }
    }
    for (const QComboBox* box : window->findChildren<QComboBox*>()) {
        if (!box->itemText(0).endsWith("Hz"_L1))
            texts << box->itemText(0);
    }
    const QAbstractItemModel* table = window->findChild<QTableView*>()->model();
    for (int column = 0; column < table->columnCount(); ++column)
        texts << table->headerData(column, Qt::Horizontal).toString();
    for (int row = 0; row < table->rowCount(); ++row)
        texts << table->index(row, 0).data().toString();
    for (const QString& text : texts)
        QVERIFY2(japanese.match(text).hasMatch(), qPrintable(text));
    QVERIFY(texts.size() > 50);
}

void tst_EditorWindow::valuesAreReadableInEveryLanguage()
{
    EditorWindow* window = openWithParameters();
    const auto* table = window->findChild<QTableView*>();
    for (const Language language : languages) {
        speak(language);
        const int needed = static_cast<const QAbstractItemView*>(table)->sizeHintForColumn(
            ParameterListModel::ValueColumn);
        QTRY_VERIFY2(table->columnWidth(ParameterListModel::ValueColumn) >= needed,
                     qPrintable(codeOf(language)));
    }
}

void tst_EditorWindow::switchingTheLanguageChangesNoSetting()
{
    EditorWindow* window = openWindow(0, false);
    choose(window, u"Linear"_s);
    editorOf(window)->setProperty("calls", QStringList());
    speak(Language::German);
    QCOMPARE(calls(window), QStringList());
    QVERIFY(!window->settings().stereo);
    QCOMPARE(choice(window, u"Linear"_s)->currentIndex(), 2);
}

ZOLTA_TEST_MAIN(tst_EditorWindow)

#include "tst_EditorWindow.moc"
