// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FaderController.h"
#include "controls/KnobController.h"
#include "controls/PushButtonController.h"
#include "controls/TextEditController.h"
#include "host/model/EditHistory.h"
#include "hosting/HostMemory.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QLineEdit>
#include <QWheelEvent>

using namespace Qt::StringLiterals;
using namespace CommonController_MemAPI;

namespace {

constexpr unsigned short lowGain = 0x0103;
constexpr unsigned short middle2Frequency = 0x010A;
constexpr unsigned short middle2Gain = 0x010B;
constexpr unsigned short driveId = 0x011B;

} // namespace

// Controls that are bound to the memory are operated as a user does it.
class tst_EditHistory : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aDragIsOneStep();
    void dragOfTwoParametersIsOneStep();
    void dragThatComesBackLeavesNothing();
    void shiftDuringADragDoesNotSplitIt();
    void wheelBursts_data();
    void wheelBursts();
    void keysAreOneStep();
    void typedValueIsOneStep();
    void leavingAFieldIsApartFromTheNextDrag();
    void loadIsOneStep();
    void innerStepsAddToTheOuter();
    void restoreIsNoStep();
    void unchangedWriteIsNoStep();
    void writesOutsideOfGesturesStandAlone();
    void effectFollowsItsStep();
    void newEditDropsWhatWasUndone();

private:
    template <typename Control> Control* control(unsigned short parameter, const QRect& place);
    void drag(QWidget* widget, int from, int to);
    static void turnWheel(QWidget* widget, int notches, quint64 time);
    int value(unsigned short parameter, int ch = 0);
    void write(unsigned short parameter, int value, int ch = 0);
    QUndoStack& stack() { return m_history->stack(); }
    QString undoText() { return stack().undoText(); }

    std::unique_ptr<HostMemory> m_memory;
    std::unique_ptr<EditHistory> m_history;
    std::unique_ptr<QWidget> m_window;
};

void tst_EditHistory::init()
{
    TestObject::init();
    m_window.reset();
    m_history.reset();
    m_memory = std::make_unique<HostMemory>();
    m_history = std::make_unique<EditHistory>(*m_memory);
    m_window = std::make_unique<QWidget>();
    m_window->resize(300, 300);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

template <typename Control>
Control* tst_EditHistory::control(unsigned short parameter, const QRect& place)
{
    auto* control = new Control(m_window.get());
    control->setMemAPIValue(m_memory.get(), parameter, 0, 0);
    control->setGeometry(place);
    control->show();
    return control;
}

// A text field is dragged like a fader: up is more.
void tst_EditHistory::drag(QWidget* widget, int from, int to)
{
    QTest::mousePress(widget, Qt::LeftButton, {}, QPoint(10, from));
    const int direction = to > from ? 1 : -1;
    for (int y = from; y != to; y += direction)
        QTest::mouseMove(widget, QPoint(10, y + direction));
    QTest::mouseRelease(widget, Qt::LeftButton, {}, QPoint(10, to));
}

void tst_EditHistory::turnWheel(QWidget* widget, int notches, quint64 time)
{
    const QPointF middle = QRectF(widget->rect()).center();
    QWheelEvent event(middle, widget->mapToGlobal(middle), QPoint(), QPoint(0, 120 * notches),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    event.setTimestamp(time);
    QApplication::sendEvent(widget, &event);
}

int tst_EditHistory::value(unsigned short parameter, int ch)
{
    int value = 0;
    m_memory->getValue(parameter, static_cast<unsigned short>(ch), &value, 0);
    return value;
}

void tst_EditHistory::write(unsigned short parameter, int value, int ch)
{
    m_memory->setValue(parameter, static_cast<unsigned short>(ch), value, 0, 0, 1);
}

void tst_EditHistory::aDragIsOneStep()
{
    auto* text = control<TextEditController>(middle2Gain, QRect(0, 0, 80, 200));
    drag(text, 150, 100);
    const int after = value(middle2Gain);
    QVERIFY(after > 10);
    QCOMPARE(stack().count(), 1);
    QCOMPARE(undoText(), u"Middle 2 gain"_s);
    stack().undo();
    QCOMPARE(value(middle2Gain), 0);
    QCOMPARE(text->string(), u"0.0"_s); // the controls follow
    stack().redo();
    QCOMPARE(value(middle2Gain), after);
}

// As a handle in a graph does it.
void tst_EditHistory::dragOfTwoParametersIsOneStep()
{
    QTest::mousePress(m_window.get(), Qt::LeftButton);
    for (int i = 1; i <= 5; ++i) {
        write(middle2Frequency, 641 + i);
        write(middle2Gain, i);
    }
    QTest::mouseRelease(m_window.get(), Qt::LeftButton);
    QCOMPARE(stack().count(), 1);
    QCOMPARE(undoText(), u"Middle 2 frequency, Middle 2 gain"_s);
    stack().undo();
    QCOMPARE(value(middle2Frequency), 641);
    QCOMPARE(value(middle2Gain), 0);
}

void tst_EditHistory::dragThatComesBackLeavesNothing()
{
    write(lowGain, 7);
    QApplication::processEvents();
    QTest::mousePress(m_window.get(), Qt::LeftButton);
    for (const int now : {8, 9, 8, 7})
        write(lowGain, now);
    QTest::mouseRelease(m_window.get(), Qt::LeftButton);
    QCOMPARE(stack().count(), 1);
    stack().undo();
    QCOMPARE(value(lowGain), 0);
}

void tst_EditHistory::shiftDuringADragDoesNotSplitIt()
{
    auto* text = control<TextEditController>(lowGain, QRect(0, 0, 80, 200));
    QTest::mousePress(text, Qt::LeftButton, {}, QPoint(10, 150));
    QTest::mouseMove(text, QPoint(10, 130));
    QTest::keyPress(text, Qt::Key_Shift);
    QTest::mouseMove(text, QPoint(10, 100));
    QTest::keyPress(text, Qt::Key_A);
    QTest::mouseMove(text, QPoint(10, 90));
    QTest::mouseRelease(text, Qt::LeftButton, {}, QPoint(10, 90));
    QVERIFY(value(lowGain) > 0);
    QCOMPARE(stack().count(), 1);
}

void tst_EditHistory::wheelBursts_data()
{
    using Turns = QList<std::pair<unsigned short, quint64>>;
    QTest::addColumn<Turns>("turns"); // of which parameter, when
    QTest::addColumn<int>("steps");
    constexpr unsigned short level = stripId(StripParameter::Level);
    constexpr quint64 pause = GestureWatch::maxPause;
    QTest::newRow("without a pause")
        << Turns{{level, 10'000}, {level, 10'900}, {level, 11'800}, {level, 12'700}} << 1;
    QTest::newRow("after a pause")
        << Turns{{level, 10'000}, {level, 10'000 + pause}, {level, 10'001 + 2 * pause}} << 2;
    QTest::newRow("at another parameter")
        << Turns{{level, 10'000}, {lowGain, 10'100}, {level, 10'200}} << 3;
}

void tst_EditHistory::wheelBursts()
{
    using Turns = QList<std::pair<unsigned short, quint64>>;
    QFETCH(const Turns, turns);
    auto* level = control<FaderController>(stripId(StripParameter::Level), QRect(0, 0, 40, 200));
    auto* gain = control<FaderController>(lowGain, QRect(50, 0, 40, 200));
    for (const auto& [parameter, time] : turns) {
        turnWheel(parameter == lowGain ? gain : level, 1, time);
        QApplication::processEvents();
    }
    QTEST(stack().count(), "steps");
    QCOMPARE(undoText(), u"Level"_s);
    while (stack().canUndo())
        stack().undo();
    QCOMPARE(value(stripId(StripParameter::Level)), unityLevel);
}

void tst_EditHistory::keysAreOneStep()
{
    auto* fader = control<FaderController>(lowGain, QRect(0, 0, 40, 200));
    fader->setFocus();
    for (int i = 0; i < 4; ++i)
        QTest::keyClick(fader, Qt::Key_Up);
    QTest::keyClick(fader, Qt::Key_PageUp);
    QCOMPARE(value(lowGain), 14);
    QCOMPARE(stack().count(), 1);
    stack().undo();
    QCOMPARE(value(lowGain), 0);
}

void tst_EditHistory::typedValueIsOneStep()
{
    auto* text = control<TextEditController>(lowGain, QRect(0, 0, 80, 20));
    QTest::mouseDClick(text, Qt::LeftButton);
    auto* field = text->findChild<QLineEdit*>();
    QVERIFY(field && field->isVisible());
    QTest::keyClicks(field, u"12.5"_s);
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(value(lowGain), 125);
    QCOMPARE(stack().count(), 1);
    QCOMPARE(undoText(), u"Low gain"_s);
}

void tst_EditHistory::leavingAFieldIsApartFromTheNextDrag()
{
    auto* text = control<TextEditController>(lowGain, QRect(0, 0, 80, 20));
    auto* fader = control<FaderController>(middle2Gain, QRect(100, 0, 40, 200));
    fader->setOperationType(FaderController::Jump);
    QTest::mouseDClick(text, Qt::LeftButton);
    QTest::keyClicks(text->findChild<QLineEdit*>(), u"3"_s);
    fader->setFocus(Qt::MouseFocusReason); // as the press below does before it is delivered
    QTest::mousePress(fader, Qt::LeftButton, {}, QPoint(20, 20));
    write(middle2Gain, 40);
    QTest::mouseRelease(fader, Qt::LeftButton, {}, QPoint(20, 20));
    QCOMPARE(value(lowGain), 30);
    QCOMPARE(stack().count(), 2);
    QCOMPARE(undoText(), u"Middle 2 gain"_s);
    stack().undo();
    QCOMPARE(undoText(), u"Low gain"_s);
}

void tst_EditHistory::loadIsOneStep()
{
    HostMemory::Values values = m_memory->values(2);
    values[2] = 30;
    values[10] = -40;
    values[24] = 5;
    {
        const EditHistory::Step step(*m_history, u"Load something"_s);
        m_memory->write(2, values);
    }
    QCOMPARE(stack().count(), 1);
    QCOMPARE(undoText(), u"Load something"_s);
    stack().undo();
    QCOMPARE(m_memory->values(2), HostMemory().values(2));
    stack().redo();
    QCOMPARE(m_memory->values(2), values);
}

void tst_EditHistory::innerStepsAddToTheOuter()
{
    {
        const EditHistory::Step outer(*m_history, u"Outer"_s);
        write(lowGain, 1);
        {
            const EditHistory::Step inner(*m_history, u"Inner"_s);
            write(middle2Gain, 1);
        }
        write(driveId, 1);
    }
    QCOMPARE(stack().count(), 1);
    QCOMPARE(undoText(), u"Outer"_s);
}

void tst_EditHistory::restoreIsNoStep()
{
    const EditHistory::Pause pause(*m_history);
    write(lowGain, 12);
    {
        const EditHistory::Step step(*m_history, u"Inside"_s);
        write(driveId, 1);
    }
    QCOMPARE(stack().count(), 0);
}

void tst_EditHistory::unchangedWriteIsNoStep()
{
    QTest::mousePress(m_window.get(), Qt::LeftButton);
    write(lowGain, 0);
    QTest::mouseRelease(m_window.get(), Qt::LeftButton);
    {
        const EditHistory::Step step(*m_history, u"Nothing"_s);
        m_memory->reset(0);
    }
    QCOMPARE(stack().count(), 0);
}

// As assistive technology makes them.
void tst_EditHistory::writesOutsideOfGesturesStandAlone()
{
    QTest::mouseClick(m_window.get(), Qt::LeftButton);
    QApplication::processEvents();
    write(lowGain, 1);
    write(lowGain, 2);
    QCOMPARE(stack().count(), 2);
}

void tst_EditHistory::effectFollowsItsStep()
{
    QList<bool> calls;
    {
        EditHistory::Step step(*m_history, u"Switch"_s);
        step.setEffect([&calls](bool forward) { calls << forward; });
    }
    QCOMPARE(stack().count(), 1);
    stack().undo();
    stack().redo();
    QCOMPARE(calls, (QList<bool>{false, true}));
}

void tst_EditHistory::newEditDropsWhatWasUndone()
{
    auto* text = control<TextEditController>(lowGain, QRect(0, 0, 80, 200));
    drag(text, 150, 100);
    drag(text, 150, 120);
    stack().undo();
    drag(text, 100, 150);
    QVERIFY(!stack().canRedo());
    QCOMPARE(stack().count(), 2);
}

ZOLTA_TEST_MAIN(tst_EditHistory)

#include "tst_EditHistory.moc"
