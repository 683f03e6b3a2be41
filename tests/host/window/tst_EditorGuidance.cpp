// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/EditorWindow.h"
#include "host/window/HostTheme.h"
#include "host/window/MixerWindow.h"
#include "tests/host/window/WindowTesting.h"
#include "tests/support/TestObject.h"

#include <QAccessible>
#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QRegularExpression>
#include <QStatusBar>
#include <QToolTip>

using namespace Qt::StringLiterals;

// What the mixer shows around an editor's controls: tooltips, and the bubble of the curve's
// handles.
class tst_EditorGuidance : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { QToolTip::hideText(); }
    void controlsHaveTips_data();
    void controlsHaveTips();
    void metersSayTheirLevel();
    void everyControlHasATip();
    void handlesAreMarkedUnderThePointer();
    void bubbleFollowsADrag();
    void clickedHandleKeepsTheKeyboard();
    void switchedOffHandlesShowNothing();
    void panelsWordsFit_data();
    void panelsWordsFit();
    void flatIsOneStep_data();
    void flatIsOneStep();
    void onlyAPressOfFlatIsItsStep();
    void undoWaitsForFlat();

private:
    void hover(const QWidget* control) const;
    static void press(QWidget* button, const QString& how);
    static void release(QWidget* button, const QString& how);
    QAccessibleInterface* handle(int band) const
    {
        return QAccessible::queryAccessibleInterface(m_graph)->child(band);
    }
    QPoint placeOf(int band) const { return m_graph->mapFromGlobal(handle(band)->rect().center()); }
    void move(QPoint place, Qt::MouseButtons buttons = {}) const;
    const QLabel* bubble() const { return m_graph->findChild<QLabel*>(u"handleBubble"_s); }
    bool isMarked(int band) const;
    void setValue(int number, int value)
    {
        m_mixer.memory.setValue(parameterId(static_cast<std::size_t>(number - 1)), 0, value, 0, 0,
                                1);
    }

    Mixer m_mixer;
    std::unique_ptr<MixerWindow> m_window;
    EditorWindow* m_editor = nullptr;
    QWidget* m_graph = nullptr;
};

void tst_EditorGuidance::initTestCase()
{
    applyHostTheme();
    QVERIFY(m_mixer.library.load(QStringLiteral(HOST_REAL_PLUGIN)).isOk());
    m_window = std::make_unique<MixerWindow>(m_mixer, EditorSettings());
    m_editor = m_window->openEditor(0, true);
    QVERIFY(QTest::qWaitForWindowExposed(m_editor));
    for (QWidget* part : m_editor->findChildren<QWidget*>()) {
        if (part->inherits("ZoltaEqualizerGraph"))
            m_graph = part;
    }
    QVERIFY(m_graph);
}

void tst_EditorGuidance::init()
{
    TestObject::init();
    m_mixer.memory.reset(0);
    move({1, 1});
}

void tst_EditorGuidance::hover(const QWidget* control) const
{
    const QPoint place = control->rect().center();
    QHelpEvent event(QEvent::ToolTip, place, control->mapToGlobal(place));
    QApplication::sendEvent(const_cast<QWidget*>(control), &event);
}

void tst_EditorGuidance::move(QPoint place, Qt::MouseButtons buttons) const
{
    QMouseEvent event(QEvent::MouseMove, place, m_graph->mapToGlobal(QPointF(place)), Qt::NoButton,
                      buttons, Qt::NoModifier);
    QApplication::sendEvent(m_graph, &event);
}

bool tst_EditorGuidance::isMarked(int band) const
{
    const QPoint place = placeOf(band);
    for (const QWidget* child : m_graph->findChildren<QWidget*>()) {
        if (!child->isWindow() && child->isVisible() && child->geometry().contains(place))
            return true;
    }
    return false;
}

void tst_EditorGuidance::controlsHaveTips_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("headline");
    QTest::addColumn<QString>("hint");
    QTest::newRow("knob") << u"m_pLowFrequencyKnob"_s << u"Low frequency: 80 Hz"_s
                          << u"Ctrl+click: default"_s;
    QTest::newRow("type knob") << u"m_pLowTypeKnob"_s << u"Low type: Shelf 12"_s
                               << u"Double-click"_s;
    QTest::newRow("field") << u"m_pMiddle3FrequencyTextEdit"_s << u"Middle 3 frequency: 2.5 kHz"_s
                           << u"Double-click or Return: type a value"_s;
    QTest::newRow("switch") << u"m_pHighButton"_s << u"High band on"_s << u"Click: switch"_s;
    QTest::newRow("flat") << u"m_pFlatButton"_s << u"Flat"_s << u"Hold for a second"_s;
}

void tst_EditorGuidance::controlsHaveTips()
{
    QFETCH(const QString, control);
    QFETCH(const QString, headline);
    QFETCH(const QString, hint);
    hover(m_editor->findChild<QWidget*>(control));
    QCOMPARE(QToolTip::text().section(u'\n', 0, 0), headline);
    QVERIFY2(QToolTip::text().contains(hint), qPrintable(QToolTip::text()));
    QCOMPARE(m_editor->statusBar()->currentMessage(), headline);
}

void tst_EditorGuidance::metersSayTheirLevel()
{
    hover(m_editor->findChild<QWidget*>(u"m_pInputStereoMeterL"_s));
    static const QRegularExpression level(u"^Input meter, left: -\\d+\\.\\d dB$"_s);
    QVERIFY2(level.match(QToolTip::text()).hasMatch(), qPrintable(QToolTip::text()));
}

void tst_EditorGuidance::everyControlHasATip()
{
    int controls = 0;
    for (const QWidget* control : m_editor->centralWidget()->findChildren<QWidget*>()) {
        const QAccessibleInterface* accessible =
            QAccessible::queryAccessibleInterface(const_cast<QWidget*>(control));
        const QAccessible::Role role = accessible->role();
        const bool isControl = role == QAccessible::Dial || role == QAccessible::SpinBox ||
                               role == QAccessible::Button || role == QAccessible::CheckBox;
        if (!control->isVisible() || !isControl)
            continue;
        ++controls;
        hover(control);
        QVERIFY2(QToolTip::text().startsWith(accessible->text(QAccessible::Name)),
                 qPrintable(control->objectName()));
    }
    QCOMPARE(controls, 20 + 18 + 11); // knobs, fields, buttons but the hidden one of the spectrum
}

void tst_EditorGuidance::handlesAreMarkedUnderThePointer()
{
    QVERIFY(!bubble()->isVisible());
    QTRY_VERIFY(!QToolTip::isVisible());
    for (int band = 0; band < 6; ++band) {
        move(placeOf(band));
        QVERIFY(isMarked(band));
        QVERIFY(bubble()->isVisible());
        QHelpEvent help(QEvent::ToolTip, placeOf(band), m_graph->mapToGlobal(placeOf(band)));
        QApplication::sendEvent(m_graph, &help);
        QVERIFY(!QToolTip::isVisible()); // one of the two is enough
        QVERIFY(bubble()->text().contains(handle(band)->text(QAccessible::Name)));
        QCOMPARE(m_graph->cursor().shape(), Qt::PointingHandCursor);
    }
    move({1, 1});
    QVERIFY(!isMarked(5));
    QVERIFY(!bubble()->isVisible());
    QCOMPARE(m_graph->cursor().shape(), Qt::ArrowCursor);
}

void tst_EditorGuidance::bubbleFollowsADrag()
{
    const QPoint place = placeOf(2);
    QTest::mousePress(m_graph, Qt::LeftButton, {}, place);
    QVERIFY(!isMarked(2));
    QVERIFY(bubble()->text().contains(u"+0.0 dB"_s));
    move(place - QPoint(0, 20), Qt::LeftButton);
    m_graph->repaint();
    QCoreApplication::sendPostedEvents();
    const QStringList parts = handle(2)->text(QAccessible::Value).split(u", "_s);
    QVERIFY(parts[1] != u"+0.0 dB"_s);
    QVERIFY2(bubble()->text().contains(parts[1]), qPrintable(bubble()->text()));
    QVERIFY(bubble()->isVisible());
    QTest::mouseRelease(m_graph, Qt::LeftButton, {}, place - QPoint(0, 20));
    QVERIFY(isMarked(2));
}

void tst_EditorGuidance::clickedHandleKeepsTheKeyboard()
{
    QTest::mouseClick(m_graph, Qt::LeftButton, {}, placeOf(3));
    QVERIFY(handle(3)->state().focused);
    const int before = m_mixer.memory.values(0)[14]; // middle 3's gain
    QTest::keyClick(m_graph, Qt::Key_Up);
    QCOMPARE(m_mixer.memory.values(0)[14], before + 1);
}

void tst_EditorGuidance::switchedOffHandlesShowNothing()
{
    const QPoint place = placeOf(1);
    move(place);
    QVERIFY(bubble()->isVisible());
    setValue(8, 0); // middle 1 off
    m_graph->repaint();
    QCoreApplication::sendPostedEvents();
    QVERIFY(!bubble()->isVisible());
    move(place + QPoint(1, 0));
    QVERIFY(!bubble()->isVisible());
}

void tst_EditorGuidance::panelsWordsFit_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.5, 2.0, 4.0})
        QTest::addRow("%g", scale) << scale;
}

void tst_EditorGuidance::panelsWordsFit()
{
    QFETCH(const double, scale);
    m_editor->setScale(scale);
    const auto* panel = m_editor->findChild<QWidget*>(u"ZoltaEditor"_s);
    int compared = 0;
    for (const QLabel* label : panel->findChildren<QLabel*>()) {
        if (label->text().isEmpty() || label == bubble())
            continue;
        const double width = QFontMetricsF(label->font()).horizontalAdvance(label->text());
        QVERIFY2(width <= label->width(), qPrintable(label->text()));
        ++compared;
    }
    QVERIFY(compared > 20);
    m_editor->setScale(1.0);
}

void tst_EditorGuidance::flatIsOneStep_data()
{
    QTest::addColumn<QString>("how");
    QTest::addColumn<bool>("isHeld");
    for (const char* how : {"mouse", "key"}) {
        QTest::addRow("%s", how) << QString::fromLatin1(how) << false;
        QTest::addRow("%s, held", how) << QString::fromLatin1(how) << true;
    }
    QTest::newRow("assistive technology") << u"assistive technology"_s << false;
}

void tst_EditorGuidance::press(QWidget* button, const QString& how)
{
    if (how == "mouse"_L1)
        QTest::mousePress(button, Qt::LeftButton);
    else if (how == "assistive technology"_L1)
        QAccessible::queryAccessibleInterface(button)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
    else
        QTest::keyPress(button, Qt::Key_Space);
}

void tst_EditorGuidance::release(QWidget* button, const QString& how)
{
    if (how == "mouse"_L1)
        QTest::mouseRelease(button, Qt::LeftButton);
    else if (how != "assistive technology"_L1)
        QTest::keyRelease(button, Qt::Key_Space);
}

// Held for a second it resets more than the gains.
void tst_EditorGuidance::flatIsOneStep()
{
    QFETCH(const QString, how);
    QFETCH(const bool, isHeld);
    auto* button = m_editor->findChild<QWidget*>(u"m_pFlatButton"_s);
    button->setFocus(Qt::TabFocusReason);
    for (const int gain : {3, 7, 11, 15, 19, 23})
        setValue(gain, 50);
    setValue(2, 600);
    const HostMemory::Values before = m_mixer.memory.values(0);
    QUndoStack& history = m_mixer.mixerModel.history().stack();
    history.clear();
    press(button, how);
    QCOMPARE(m_mixer.memory.values(0)[2], 0);
    if (isHeld)
        QTRY_VERIFY(m_mixer.memory.values(0)[1] != 600);
    release(button, how);
    QCOMPARE(history.count(), 1);
    QVERIFY(WindowTesting::actionOf(m_editor, u"Undo Flat"_s)->isEnabled());
    history.undo();
    QCOMPARE(m_mixer.memory.values(0), before);
}

void tst_EditorGuidance::onlyAPressOfFlatIsItsStep()
{
    auto* button = m_editor->findChild<QWidget*>(u"m_pFlatButton"_s);
    button->setFocus(Qt::TabFocusReason);
    m_mixer.memory.reset(0);
    QUndoStack& history = m_mixer.mixerModel.history().stack();
    history.clear();
    QTest::keyPress(button, Qt::Key_K);
    setValue(25, -50);
    QCOMPARE(history.count(), 1);
    QVERIFY(WindowTesting::actionOf(m_editor, u"Undo Input level"_s)->isEnabled());
    QTest::keyRelease(button, Qt::Key_K);
}

void tst_EditorGuidance::undoWaitsForFlat()
{
    auto* button = m_editor->findChild<QWidget*>(u"m_pFlatButton"_s);
    button->setFocus(Qt::TabFocusReason);
    m_mixer.memory.reset(0);
    setValue(3, 50);
    QAction* undo = WindowTesting::actionOf(m_editor, u"Undo Low gain"_s);
    QVERIFY(undo->isEnabled());
    QTest::keyPress(button, Qt::Key_Space);
    QCOMPARE(m_mixer.memory.values(0)[2], 0);
    undo->trigger();
    QCOMPARE(m_mixer.memory.values(0)[2], 0);
    QTest::keyRelease(button, Qt::Key_Space);
    undo->trigger();
    QCOMPARE(m_mixer.memory.values(0)[2], 50);
}

ZOLTA_TEST_MAIN(tst_EditorGuidance)

#include "tst_EditorGuidance.moc"
