// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ButtonGroupController.h"
#include "controls/KnobController.h"
#include "host/window/EditorStage.h"
#include "host/window/EditorWindow.h"
#include "host/window/HostTheme.h"
#include "host/window/MixerWindow.h"
#include "host/window/PeakDisplay.h"
#include "tests/host/window/WindowTesting.h"
#include "tests/support/TestObject.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QTableView>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace WindowTesting;
using CommonController_MemAPI::ButtonGroupController;
using CommonController_MemAPI::KnobController;

/// The mixer's windows without a mouse.
class tst_KeyboardWalk : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { m_mixerWindow.reset(); }
    void tabGoesRound_data();
    void tabGoesRound();
    void arrowsChooseTheWidth();
    void spacePresses();
    void tableIsLeft_data();
    void tableIsLeft();
    void focusIsMarked();
    void helpIsReached_data();
    void helpIsReached();

private:
    QMainWindow* openWindow(const QString& kind);
    static QList<QWidget*> walk(QWidget* window, Qt::Key key);
    static QList<QWidget*> stopsOf(const QWidget* window);
    static bool isVisited(const QWidget* stop, const QList<QWidget*>& way);

    Mixer m_mixer;
    std::unique_ptr<MixerWindow> m_mixerWindow;
};

void tst_KeyboardWalk::initTestCase()
{
    applyHostTheme();
    QVERIFY(m_mixer.library.load(QStringLiteral(HOST_REAL_PLUGIN)).isOk());
}

void tst_KeyboardWalk::init()
{
    TestObject::init();
    m_mixerWindow = std::make_unique<MixerWindow>(m_mixer, EditorSettings());
}

// "mixer", or an editor with one of its panels.
QMainWindow* tst_KeyboardWalk::openWindow(const QString& kind)
{
    QMainWindow* window = m_mixerWindow.get();
    if (kind == "mixer"_L1) {
        window->show();
    } else {
        window = m_mixerWindow->openEditor(0, true);
        choose(actionOf(window, kind));
        window->resize(1300, 900); // whatever the screen has: every button has room on its bar
    }
    QApplication::setActiveWindow(window);
    if (!QTest::qWaitForWindowActive(window))
        qFatal("no window");
    return window;
}

// What has the focus, step by step, until the walk is where it began.
QList<QWidget*> tst_KeyboardWalk::walk(QWidget* window, Qt::Key key)
{
    constexpr int mostSteps = 400;
    QList<QWidget*> visited;
    for (int step = 0; step < mostSteps; ++step) {
        QWidget* focused = QApplication::focusWidget();
        if (!focused || focused->window() != window)
            qFatal("the walk left the window after %lld steps", visited.size());
        if (visited.isEmpty() || visited.last() != focused)
            visited << focused;
        if (visited.size() > 1 && focused == visited.first())
            return visited;
        QTest::keyClick(focused, key);
    }
    qFatal("the walk does not come round: %s", qPrintable(visited.last()->accessibleName()));
}

// What Tab stops at by its policy, and the editor's knobs, which it walks by itself.
QList<QWidget*> tst_KeyboardWalk::stopsOf(const QWidget* window)
{
    QList<QWidget*> stops;
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        const bool stop = widget->focusPolicy() & Qt::TabFocus && !widget->focusProxy() &&
                          !qobject_cast<EditorStage*>(widget);
        if ((stop || qobject_cast<KnobController*>(widget)) && widget->isVisible() &&
            widget->isEnabled() && widget->window() == window)
            stops << widget;
    }
    return stops;
}

// Of keys of which one is down Tab visits that one, and the arrow keys go on from there.
bool tst_KeyboardWalk::isVisited(const QWidget* stop, const QList<QWidget*>& way)
{
    return std::ranges::any_of(way, [stop](const QWidget* visited) {
        return visited == stop || (qobject_cast<ButtonGroupController*>(stop->parentWidget()) &&
                                   visited->parentWidget() == stop->parentWidget());
    });
}

void tst_KeyboardWalk::tabGoesRound_data()
{
    QTest::addColumn<QString>("window");
    QTest::addColumn<int>("fewest");
    QTest::newRow("mixer") << u"mixer"_s << 30;
    QTest::newRow("parameters") << u"Parameters"_s << 50;
    QTest::newRow("analyzer") << u"Analyzer"_s << 55;
}

void tst_KeyboardWalk::tabGoesRound()
{
    QFETCH(const QString, window);
    QFETCH(const int, fewest);
    QMainWindow* shown = openWindow(window);
    const QList<QWidget*> stops = stopsOf(shown);
    const auto first = std::ranges::find_if(
        stops, [](const QWidget* stop) { return !qobject_cast<const KnobController*>(stop); });
    QVERIFY(first != stops.end());
    (*first)->setFocus(Qt::TabFocusReason);
    const QList<QWidget*> way = walk(shown, Qt::Key_Tab);
    for (const QWidget* stop : stops)
        QVERIFY2(isVisited(stop, way), qPrintable(stop->accessibleName() + u' ' +
                                                  QLatin1String(stop->metaObject()->className())));
    for (QWidget* stop : way) {
        const QAccessibleInterface* told = QAccessible::queryAccessibleInterface(stop);
        QVERIFY2(
            told && !told->text(QAccessible::Name).isEmpty(),
            qPrintable(QLatin1String(stop->metaObject()->className()) + u' ' + stop->objectName()));
    }
    QCOMPARE_GE(way.size(), fewest);
    QCOMPARE(walk(shown, Qt::Key_Backtab).size(), way.size());
}

void tst_KeyboardWalk::arrowsChooseTheWidth()
{
    const QMainWindow* mixer = openWindow(u"mixer"_s);
    auto* stereo = named<QAbstractButton>(mixer, u"Channel 3 stereo"_s);
    stereo->setFocus();
    QTest::keyClick(stereo, Qt::Key_Left);
    const QWidget* mono = named<QAbstractButton>(mixer, u"Channel 3 mono"_s);
    QVERIFY(mono->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QCOMPARE(m_mixer.memory.strip(2, StripParameter::Stereo), 0);
    m_mixer.memory.setStrip(2, StripParameter::Stereo, 1);
}

// The lamps of the meters, A and B, the analyzer's switches.
void tst_KeyboardWalk::spacePresses()
{
    const auto press = [](QWidget* key) {
        key->setFocus(Qt::TabFocusReason);
        QTest::keyClick(key, Qt::Key_Space);
    };
    const QMainWindow* mixer = openWindow(u"mixer"_s);
    auto* lamp = named<PeakDisplay>(mixer, u"Highest level of the master"_s);
    lamp->take(30);
    QVERIFY(lamp->hasClipped());
    press(lamp);
    QVERIFY(!lamp->hasClipped());
    const QMainWindow* editor = openWindow(u"Analyzer"_s);
    const auto buttonOf = [editor](const QString& text) -> QToolButton* {
        for (QToolButton* button : editor->findChildren<QToolButton*>()) {
            if (button->text() == text && button->isVisible())
                return button;
        }
        qFatal("no button %s", qPrintable(text));
    };
    press(buttonOf(u"B"_s));
    QVERIFY(m_mixer.mixerModel.compare().isB(0));
    press(buttonOf(u"A"_s));
    QVERIFY(!m_mixer.mixerModel.compare().isB(0));
    const bool held = m_mixer.analyzer.settings().peaks;
    press(buttonOf(u"Peak hold"_s));
    QCOMPARE(m_mixer.analyzer.settings().peaks, !held);
}

void tst_KeyboardWalk::tableIsLeft_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Tab") << Qt::Key_Tab;
    QTest::newRow("Backtab") << Qt::Key_Backtab;
    QTest::newRow("Escape") << Qt::Key_Escape;
}

void tst_KeyboardWalk::tableIsLeft()
{
    QFETCH(const Qt::Key, key);
    const QMainWindow* window = openWindow(u"Parameters"_s);
    auto* table = window->findChild<QTableView*>();
    table->setFocus();
    table->setCurrentIndex(table->model()->index(1, 1));
    QTest::keyClick(table, key);
    QVERIFY(QApplication::focusWidget() && !table->hasFocus());
    table->setFocus();
    QTest::keyClick(table, Qt::Key_F2); // out of the field first
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(table->hasFocus());
    QTest::keyClick(table, key);
    QVERIFY(!table->hasFocus());
}

// Nobody looks for the focus: around or in each control something changes when it comes.
void tst_KeyboardWalk::focusIsMarked()
{
    QMainWindow* mixer = openWindow(u"mixer"_s);
    for (QWidget* control : stopsOf(mixer)) {
        const QRect place =
            QRect(control->mapTo(mixer, QPoint()), control->size()).adjusted(-4, -4, 4, 4);
        const auto picture = [&] { return mixer->grab(place).toImage(); };
        mixer->setFocus();
        QCoreApplication::processEvents();
        const QImage before = picture();
        control->setFocus(Qt::TabFocusReason);
        QCoreApplication::processEvents();
        QVERIFY2(picture() != before, qPrintable(control->accessibleName()));
    }
}

void tst_KeyboardWalk::helpIsReached_data()
{
    QTest::addColumn<QString>("window");
    QTest::newRow("mixer") << u"mixer"_s;
    QTest::newRow("editor") << u"Parameters"_s;
}

// Alt+H, A, and Escape closes it again.
void tst_KeyboardWalk::helpIsReached()
{
    QFETCH(const QString, window);
    QMainWindow* shown = openWindow(window);
    QTest::keyClick(shown, Qt::Key_H, Qt::AltModifier);
    QWidget* menu = QApplication::activePopupWidget();
    QVERIFY(menu);
    QTest::keyClick(menu, Qt::Key_A);
    const QPointer<QDialog> about = shown->findChild<QDialog*>();
    QVERIFY(about && about->isVisible());
    QTest::keyClick(about, Qt::Key_Escape);
    QTRY_VERIFY(!about);
}

ZOLTA_TEST_MAIN(tst_KeyboardWalk)

#include "tst_KeyboardWalk.moc"
