// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/KnobController.h"
#include "controls/PushButtonController.h"
#include "controls/TextEditController.h"
#include "editor/FocusMark.h"
#include "editor/ZoltaAbout.h"
#include "editor/ZoltaEditor.h"
#include "graph/ZoltaEqualizerGraph.h"
#include "tests/support/TestHost.h"
#include "tests/support/TestObject.h"

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>

#include <functional>

using namespace CommonController_MemAPI;

/// The editor without a mouse: Tab, keys, and what assistive technology is told.
class tst_EditorKeyboard : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void tabVisitsEverything();
    void tabLeavesAtEitherEnd();
    void backtabGoesTheSameWayBack();
    void tabSkipsWhatIsHidden();
    void focusPoliciesStay();
    void markFramesTheFocusedControl();
    void markIgnoresClicks();
    void keysEditTheFocusedControl();
    void returnOpensTheTextField();
    void escapeClosesTheAboutPanel();
    void everyInteractiveElementHasNameAndValue();
    void namesAreThoseAPersonWouldUse();

private:
    QStringList walk(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Of the control, without its "m_p", or "handle" and its number.
    QString focusName() const;
    template <class Widget> Widget* child(const char* name) const
    {
        return m_editor->findChild<Widget*>(QLatin1String(name));
    }

    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<QWidget> m_window;
    ZoltaEditor* m_editor = nullptr;
};

void tst_EditorKeyboard::init()
{
    TestObject::init();
    m_host = std::make_unique<TestHost>();
    m_window = std::make_unique<QWidget>();
    m_editor = new ZoltaEditor(m_window.get());
    m_editor->setModelInfo(m_host->model());
    m_editor->initialize();
    m_editor->setMemAPI(m_host->memory());
    m_window->resize(m_editor->size());
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_editor->setFocus();
}

void tst_EditorKeyboard::cleanup()
{
    m_window.reset();
    QCOMPARE(m_host->observerCount(), 0);
    m_host.reset();
}

QString tst_EditorKeyboard::focusName() const
{
    const auto* graph = m_editor->findChild<ZoltaEqualizerGraph*>();
    const QWidget* focus = QApplication::focusWidget();
    if (focus == graph)
        return QStringLiteral("handle %1").arg(graph->focusedHandle());
    return focus ? focus->objectName().mid(3) : QString();
}

QStringList tst_EditorKeyboard::walk(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QStringList names;
    for (int i = 0; i < 100; ++i) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        if (!names.isEmpty() && focusName() == names.last())
            break;
        names << focusName();
    }
    return names;
}

void tst_EditorKeyboard::tabVisitsEverything()
{
    QStringList expected = {QStringLiteral("ZoomPlusButton"), QStringLiteral("ZoomMinusButton"),
                            QStringLiteral("AboutButton"),    QStringLiteral("DriveCleanSwitch"),
                            QStringLiteral("InputKnob"),      QStringLiteral("InputTextEdit"),
                            QStringLiteral("OutputKnob"),     QStringLiteral("OutputTextEdit"),
                            QStringLiteral("FlatButton")};
    int handle = 0;
    for (const char* band : {"Low", "Middle1", "Middle2", "Middle3", "Middle4", "High"}) {
        const bool isOuter = ++handle == 1 || handle == 6;
        const QStringList first = {QStringLiteral("QualityKnob"),
                                   QStringLiteral("QualityTextEdit")};
        for (const QString& control :
             (isOuter ? QStringList{QStringLiteral("TypeKnob")} : first) +
                 QStringList{QStringLiteral("FrequencyKnob"), QStringLiteral("FrequencyTextEdit"),
                             QStringLiteral("GainKnob"), QStringLiteral("GainTextEdit"),
                             QStringLiteral("Button")})
            expected << QLatin1String(band) + control;
        expected << QStringLiteral("handle %1").arg(handle);
    }
    QCOMPARE(walk(Qt::Key_Tab), expected);
}

void tst_EditorKeyboard::tabLeavesAtEitherEnd()
{
    auto* before = new QLineEdit(m_window.get());
    auto* after = new QLineEdit(m_window.get());
    QWidget::setTabOrder(before, m_editor);
    QWidget::setTabOrder(m_editor, after);
    before->show();
    after->show();
    walk(Qt::Key_Tab);
    QVERIFY(QApplication::focusWidget() == before || QApplication::focusWidget() == after);
}

void tst_EditorKeyboard::backtabGoesTheSameWayBack()
{
    QStringList forward = walk(Qt::Key_Tab);
    m_editor->setFocus();
    QStringList backward = walk(Qt::Key_Backtab, Qt::ShiftModifier);
    std::reverse(backward.begin(), backward.end());
    QCOMPARE(backward, forward);
}

void tst_EditorKeyboard::tabSkipsWhatIsHidden()
{
    m_host->set("fx_rackfx_prm_1", 0, 0);
    m_host->set("fx_rackfx_prm_12", 0, 0);
    const QStringList names = walk(Qt::Key_Tab);
    QVERIFY(!names.contains(QStringLiteral("LowGainKnob")));
    QVERIFY(!names.contains(QStringLiteral("LowGainTextEdit")));
    QVERIFY(names.contains(QStringLiteral("handle 1")));
    QVERIFY(!names.contains(QStringLiteral("handle 3")));
    QVERIFY(names.contains(QStringLiteral("Middle2Button")));
}

void tst_EditorKeyboard::focusPoliciesStay()
{
    walk(Qt::Key_Tab);
    QCOMPARE(m_editor->focusPolicy(), Qt::ClickFocus);
    QCOMPARE(child<KnobController>("m_pLowGainKnob")->focusPolicy(), Qt::ClickFocus);
    QCOMPARE(child<TextEditController>("m_pLowGainTextEdit")->focusPolicy(), Qt::ClickFocus);
    QCOMPARE(child<PushButtonController>("m_pLowButton")->focusPolicy(), Qt::NoFocus);
}

void tst_EditorKeyboard::markFramesTheFocusedControl()
{
    const auto* mark = m_editor->findChild<FocusMark*>();
    QVERIFY(!mark->isVisible());
    QTest::keyClick(m_editor, Qt::Key_Tab);
    QVERIFY(child<QWidget>("m_pZoomPlusButton")->hasFocus());
    QVERIFY(mark->isVisible());
    QCOMPARE(mark->geometry(), QRect(818, 88, 30, 30));
    const QColor line = m_editor->grab().toImage().pixelColor(833, 88);
    QVERIFY(line.blue() > 150 && line.blue() > line.red() + 80);
    m_editor->setFocus();
    QVERIFY(!mark->isVisible());

    m_editor->setScale(2.0);
    QTest::keyClick(m_editor, Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(mark->geometry(), QRect(1636, 240, 60, 60));
}

void tst_EditorKeyboard::markIgnoresClicks()
{
    QTest::keyClick(m_editor, Qt::Key_Tab);
    auto* graph = m_editor->findChild<ZoltaEqualizerGraph*>();
    const int zoom = graph->zoom();
    auto* plus = child<QWidget>("m_pZoomPlusButton");
    QVERIFY(m_editor->childAt(plus->mapTo(m_editor, QPoint(1, 1))) == plus);
    QTest::mouseClick(plus, Qt::LeftButton);
    QCOMPARE(graph->zoom(), zoom + 1);
    child<KnobController>("m_pLowGainKnob")->setFocus(Qt::MouseFocusReason);
    QVERIFY(!m_editor->findChild<FocusMark*>()->isVisible());
}

void tst_EditorKeyboard::keysEditTheFocusedControl()
{
    child<KnobController>("m_pInputKnob")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    QCOMPARE(m_host->value("fx_rackfx_prm_25", 0), 1);
    m_editor->setFocus();
    for (int i = 0; i < 4; ++i)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(focusName(), QStringLiteral("DriveCleanSwitch"));
    const int drive = m_host->value("fx_rackfx_prm_27", 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QCOMPARE(m_host->value("fx_rackfx_prm_27", 0), 1 - drive);
}

void tst_EditorKeyboard::returnOpensTheTextField()
{
    auto* field = child<TextEditController>("m_pMiddle2GainTextEdit");
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_F2}) {
        field->setFocus();
        QTest::keyClick(field, key);
        auto* line = field->findChild<QLineEdit*>();
        QVERIFY(line->isVisible());
        line->setText(QStringLiteral("37"));
        QTest::keyClick(line, Qt::Key_Return);
        QVERIFY(!line->isVisible());
        QCOMPARE(m_host->value("fx_rackfx_prm_11", 0), 37);
        m_host->set("fx_rackfx_prm_11", 0, 0);
    }
}

void tst_EditorKeyboard::escapeClosesTheAboutPanel()
{
    auto* about = m_editor->findChild<ZoltaAbout*>();
    about->open();
    QVERIFY(about->isVisible());
    QTest::keyClick(m_editor, Qt::Key_Escape);
    QTRY_VERIFY(!about->isVisible());
    QKeyEvent next(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(m_editor, &next);
    QVERIFY(!next.isAccepted()); // is the host's
}

void tst_EditorKeyboard::everyInteractiveElementHasNameAndValue()
{
    int elements = 0;
    const std::function<void(QAccessibleInterface*)> visit = [&](QAccessibleInterface* element) {
        QVERIFY(element);
        const QAccessible::Role role = element->role();
        const bool ranged = role == QAccessible::Dial || role == QAccessible::Slider ||
                            role == QAccessible::SpinBox || role == QAccessible::ProgressBar;
        const bool pressed = role == QAccessible::Button || role == QAccessible::CheckBox;
        if (ranged || pressed) {
            ++elements;
            const QString who = element->object() ? element->object()->objectName() : QString();
            QVERIFY2(!element->text(QAccessible::Name).isEmpty(), qPrintable(who));
            QVERIFY2(!ranged || element->valueInterface(), qPrintable(who));
            QVERIFY2(!ranged || !element->text(QAccessible::Value).isEmpty(), qPrintable(who));
            QVERIFY2(!ranged || element->text(QAccessible::Description) ==
                                    element->text(QAccessible::Value),
                     qPrintable(who));
            QVERIFY2(!ranged || !element->textInterface(), qPrintable(who));
        }
        for (int i = 0; i < element->childCount(); ++i)
            visit(element->child(i));
    };
    visit(QAccessible::queryAccessibleInterface(m_editor));
    // 20 knobs, 18 fields, 12 buttons, 6 meters, 6 handles.
    QCOMPARE(elements, 62);
}

void tst_EditorKeyboard::namesAreThoseAPersonWouldUse()
{
    const auto nameOf = [this](const char* widget) {
        return QAccessible::queryAccessibleInterface(child<QWidget>(widget))
            ->text(QAccessible::Name);
    };
    QCOMPARE(nameOf("m_pMiddle2FrequencyKnob"), QStringLiteral("Middle 2 frequency"));
    QCOMPARE(nameOf("m_pMiddle2FrequencyTextEdit"), QStringLiteral("Middle 2 frequency"));
    QCOMPARE(nameOf("m_pHighButton"), QStringLiteral("High band on"));
    QCOMPARE(nameOf("m_pDriveCleanSwitch"), QStringLiteral("Drive"));
    QCOMPARE(nameOf("m_pInputStereoMeterL"), QStringLiteral("Input meter, left"));
    QCOMPARE(nameOf("m_pInputStereoMeterR"), QStringLiteral("Input meter, right"));
    QCOMPARE(nameOf("m_pOutputStereoMeterR"), QStringLiteral("Output meter, right"));
}

ZOLTA_TEST_MAIN(tst_EditorKeyboard)

#include "tst_EditorKeyboard.moc"
