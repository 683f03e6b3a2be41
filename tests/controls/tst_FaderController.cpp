// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FaderController.h"
#include "tests/controls/MeterTesting.h"
#include "tests/support/TestHost.h"
#include "tests/support/TestObject.h"
#include "tests/widgets/SvgFiles.h"

#include <QAccessible>
#include <QApplication>
#include <QGraphicsBlurEffect>
#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QPainter>
#include <QSignalSpy>
#include <QSvgRenderer>
#include <QWheelEvent>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>

using namespace CommonController_MemAPI;
using namespace MeterTesting;

namespace {

const QByteArray Parameter = TestHost::name(25);

/// A fader that keeps a ledger of its gestures and whose timers are run by hand.
class Probe : public FaderController
{
public:
    using FaderController::FaderController;

    void beginEdit() override { ++m_open; }
    void endEdit() override
    {
        --m_open;
        ++m_closed;
    }

    /// Edits begun and not ended.
    int open() const { return m_open; }
    int closed() const { return m_closed; }

    /// The delay of the timer that runs, -1 if none does.
    int pendingDelay(int timer) const
    {
        const auto* pending = timers().at(timer);
        return pending->isActive() ? pending->interval() : -1;
    }
    int rampDelay() const { return pendingDelay(1); }
    /// Lets a running timer expire now.
    void expire(int timer)
    {
        QTimer* pending = timers().at(timer);
        QVERIFY(pending->isActive());
        pending->stop();
        QMetaObject::invokeMethod(pending, "timeout");
    }
    void expireRamp() { expire(1); }

private:
    // In the order in which the fader makes them: double click, ramp.
    QList<QTimer*> timers() const { return findChildren<QTimer*>(); }

    int m_open = 0;
    int m_closed = 0;
};

/// What a fader said of itself, in order.
struct Ledger
{
    explicit Ledger(Probe& fader)
        : values(&fader, qOverload<int>(&FaderController::valueChanged))
        , modifiers(&fader, &FaderController::modifiersChange)
        , drags(&fader, &FaderController::drag)
    {}

    QList<bool> takeDrags()
    {
        QList<bool> taken;
        for (const QVariantList& arguments : std::as_const(drags))
            taken.append(arguments[0].toBool());
        drags.clear();
        return taken;
    }

    QSignalSpy values;
    QSignalSpy modifiers;
    QSignalSpy drags;
};

void wheel(QWidget& widget, QPoint angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
           bool inverted = false)
{
    QWheelEvent event(QPointF(5, 5), widget.mapToGlobal(QPointF(5, 5)), QPoint(), angle,
                      Qt::NoButton, modifiers, Qt::NoScrollPhase, inverted);
    event.ignore();
    QApplication::sendEvent(&widget, &event);
    QVERIFY(event.isAccepted());
}

/// Whether \a widget takes the key.
bool key(QWidget& widget, Qt::Key which, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
         QEvent::Type type = QEvent::KeyPress)
{
    QKeyEvent event(type, which, modifiers);
    return QApplication::sendEvent(&widget, &event) && event.isAccepted();
}

void mouse(QEvent::Type type, QWidget& widget, QPoint point, Qt::MouseButton button,
           Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    const bool isMove = type == QEvent::MouseMove;
    const bool isRelease = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, point, widget.mapToGlobal(point), isMove ? Qt::NoButton : button,
                      isRelease ? Qt::NoButton : button, modifiers);
    QApplication::sendEvent(&widget, &event);
}

void move(QWidget& widget, QPoint point, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    mouse(QEvent::MouseMove, widget, point, Qt::LeftButton, modifiers);
}

void press(QWidget& widget, QPoint point, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    mouse(QEvent::MouseButtonPress, widget, point, Qt::LeftButton, modifiers);
}

void release(QWidget& widget, QPoint point = {}, Qt::MouseButton button = Qt::LeftButton)
{
    mouse(QEvent::MouseButtonRelease, widget, point, button);
}

void click(QWidget& widget, QPoint point, Qt::MouseButton button = Qt::LeftButton)
{
    mouse(QEvent::MouseButtonPress, widget, point, button);
    release(widget, point, button);
}

/// The second of two quick clicks.
void doubleClick(QWidget& widget, QPoint point, Qt::MouseButton button = Qt::LeftButton)
{
    mouse(QEvent::MouseButtonDblClick, widget, point, button);
    release(widget, point, button);
}

} // namespace

/// The fader under test is 40 by 220 with a knob of 20 by 20, so that it travels 200 pixels, two
/// for each step of its range of 0 to 100; its knob's middle lies at y = 210 - 2 value. Lying, it
/// is 220 by 40, with the middle at x = 10 + 2 value.
class tst_FaderController : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void settersRepaint();
    void settersClamp();
    void touchBesideTheKnobDoesNothing();
    void touchDragsTheKnob();
    void withoutAPictureThereIsNoKnob();
    void jumpMovesToThePointerAndDrags();
    void relativeDragsFromAnywhere();
    void rampGoesStepByStep();
    void rampDownAndFine();
    void rampReadsThePointer();
    void rampStopsAtTheRelease();
    void rampStaysOnTheKnob();
    void rampRunsOnItsTimers();
    void reverseInvertsEverything();
    void lyingFader();
    void fineDragIsAQuarter();
    void fineChangeDoesNotJump();
    void controlPressResets_data();
    void controlPressResets();
    void doubleClickResets();
    void doubleClickAfterAJumpIsIgnored();
    void doubleClickPendingEnds();
    void keys_data();
    void keys();
    void homeAndEndGoOn();
    void modifiersAreReported();
    void gestureEndedByAListener();
    void noTravel();
    void oneValueRange();
    void widestRange();
    void boundDragWritesToTheHost();
    void rebindingEndsTheGesture();
    void failingHost();
    void paintsKnobAtItsPlace_data();
    void paintsKnobAtItsPlace();
    void paintsShadowUnderTheKnob();
    void paintsBackgroundInTheMiddle();
    void paintsDisabledKnobTranslucent();
    void paintsAtEveryPixelRatio_data();
    void paintsAtEveryPixelRatio();
    void paintingReadsTheHostAFewTimes();
    void badPicturesAreBlank();
    void accessibility();

private:
    std::unique_ptr<Probe> fader(FaderController::OperationType type,
                                 Qt::Orientation orientation = Qt::Vertical) const;

    SvgFiles m_files;
    QString m_knob;
    QString m_shadow;
    QString m_track;
};

void tst_FaderController::initTestCase()
{
    m_knob = m_files.plain("knob.svg", 20, 20, "#0000ff");
    m_shadow = m_files.plain("shadow.svg", 24, 24, "#000000");
    m_track = m_files.plain("track.svg", 4, 200, "#808080");
}

std::unique_ptr<Probe> tst_FaderController::fader(FaderController::OperationType type,
                                                  Qt::Orientation orientation) const
{
    auto made = std::make_unique<Probe>();
    made->resize(orientation == Qt::Vertical ? QSize(40, 220) : QSize(220, 40));
    made->setOrientation(orientation);
    made->setKnobSvg(m_knob);
    made->setOperationType(type);
    return made;
}

void tst_FaderController::settersRepaint()
{
    Probe fader;
    fader.resize(40, 220);
    fader.show();
    QVERIFY(QTest::qWaitForWindowExposed(&fader));
    PaintRecorder paints(fader);
    paints.take();
    const QRegion all = fader.rect();
    const auto repaints = [&](const char* name, const QVariant& value) {
        fader.setProperty(name, value);
        return paints.take() == all;
    };
    QVERIFY(!repaints("shadowBlur", 3.0)); // there is no shadow yet
    QVERIFY(!repaints("knobDisableOpacity", 0.5));
    for (const auto& [name, path] :
         {std::pair("knobSvg", m_knob), {"shadowSvg", m_shadow}, {"backgroundSvg", m_track}}) {
        QVERIFY(repaints(name, path));
        QVERIFY(!repaints(name, path));
    }
    QVERIFY(repaints("shadowBlur", 4.0));
    QVERIFY(!repaints("shadowBlur", 4.0));
    QVERIFY(!repaints("knobDisableOpacity", 0.6)); // enabled
    fader.setEnabled(false);
    QCOMPARE(paints.take(), all);
    QVERIFY(repaints("knobDisableOpacity", 0.7));
    QVERIFY(repaints("reverse", true));
    QVERIFY(!repaints("reverse", true));
    QVERIFY(repaints("orientation", int(Qt::Horizontal)));
    QVERIFY(!repaints("orientation", int(Qt::Horizontal)));
    fader.setScale(2.0);
    QCOMPARE(paints.take(), all);
    fader.setValue(5);
    QCOMPARE(paints.take(), all);
}

void tst_FaderController::settersClamp()
{
    Probe fader;
    fader.setShadowBlur(-1.0);
    QCOMPARE(fader.shadowBlur(), 0.0);
    fader.setKnobDisableOpacity(7.0);
    QCOMPARE(fader.knobDisableOpacity(), 1.0);
    fader.setKnobDisableOpacity(-7.0);
    QCOMPARE(fader.knobDisableOpacity(), 0.0);
    fader.setShadowBlur(3.0);
    fader.setShadowBlur(std::nan(""));
    QCOMPARE(fader.shadowBlur(), 0.0);
    fader.setKnobDisableOpacity(0.5);
    fader.setKnobDisableOpacity(std::nan(""));
    QCOMPARE(fader.knobDisableOpacity(), 0.0);
}

void tst_FaderController::touchBesideTheKnobDoesNothing()
{
    const auto probe = fader(FaderController::Touch);
    probe->setValue(50); // the knob covers y 100 to 120
    Ledger ledger(*probe);
    for (const QPoint point : {QPoint(20, 98), QPoint(20, 122), QPoint(8, 110), QPoint(32, 110)}) {
        press(*probe, point);
        move(*probe, point + QPoint(0, 30));
        release(*probe, point);
    }
    QCOMPARE(probe->value(), 50);
    QVERIFY(ledger.takeDrags().isEmpty());
    QCOMPARE(ledger.values.count(), 0);
    QCOMPARE(probe->closed(), 0);
}

void tst_FaderController::touchDragsTheKnob()
{
    const auto probe = fader(FaderController::Touch);
    probe->setValue(50);
    Ledger ledger(*probe);
    press(*probe, QPoint(20, 118));
    QCOMPARE(probe->value(), 50);
    QCOMPARE(ledger.takeDrags(), QList<bool>{true});
    QCOMPARE(probe->open(), 1);
    move(*probe, QPoint(20, 97)); // 21 up: 0.605, bin 61 of 101
    QCOMPARE(probe->value(), 61);
    move(*probe, QPoint(20, 118));
    QCOMPARE(probe->value(), 50);
    move(*probe, QPoint(20, -500));
    QCOMPARE(probe->value(), 100);
    move(*probe, QPoint(20, 900));
    QCOMPARE(probe->value(), 0);
    release(*probe);
    QCOMPARE(ledger.takeDrags(), QList<bool>{false});
    QCOMPARE(probe->open(), 0);
    QCOMPARE(probe->closed(), 1);
    move(*probe, QPoint(20, 10));
    QCOMPARE(probe->value(), 0);
}

void tst_FaderController::withoutAPictureThereIsNoKnob()
{
    Probe probe;
    probe.resize(40, 220);
    Ledger ledger(probe);
    for (int y = 0; y < 220; y += 5)
        click(probe, QPoint(20, y));
    QVERIFY(ledger.takeDrags().isEmpty());
}

void tst_FaderController::jumpMovesToThePointerAndDrags()
{
    const auto probe = fader(FaderController::Jump);
    Ledger ledger(*probe);
    press(*probe, QPoint(20, 109)); // 0.505
    QCOMPARE(probe->value(), 51);
    QCOMPARE(ledger.takeDrags(), QList<bool>{true});
    QCOMPARE(probe->open(), 1);
    move(*probe, QPoint(20, 69)); // 40 up: 0.2 of the travel
    QCOMPARE(probe->value(), 71);
    release(*probe);
    QCOMPARE(ledger.takeDrags(), QList<bool>{false});
    QCOMPARE(probe->closed(), 1);
    press(*probe, QPoint(20, 2));
    QCOMPARE(probe->value(), 100);
    release(*probe);

    // On the knob it does not jump.
    probe->setValue(50);
    press(*probe, QPoint(20, 101));
    QCOMPARE(probe->value(), 50);
    release(*probe);
}

void tst_FaderController::relativeDragsFromAnywhere()
{
    const auto probe = fader(FaderController::Relative);
    probe->setValue(20);
    Ledger ledger(*probe);
    press(*probe, QPoint(2, 15));
    QCOMPARE(probe->value(), 20);
    QCOMPARE(ledger.takeDrags(), QList<bool>{true});
    move(*probe, QPoint(30, -46)); // 61 up: 0.305 more
    QCOMPARE(probe->value(), 51);
    release(*probe);
    QCOMPARE(ledger.takeDrags(), QList<bool>{false});
    QCOMPARE(probe->closed(), 1);
}

void tst_FaderController::rampGoesStepByStep()
{
    const auto probe = fader(FaderController::Ramp);
    Ledger ledger(*probe);
    press(*probe, QPoint(20, 210 - 2 * 37));
    QCOMPARE(ledger.takeDrags(), QList<bool>{true});
    QCOMPARE(probe->value(), 5);
    QCOMPARE(probe->rampDelay(), 300);
    for (const int wanted : {10, 15, 20, 25, 30, 35, 37}) {
        probe->expireRamp();
        QCOMPARE(probe->value(), wanted);
        QCOMPARE(probe->rampDelay(), 100);
    }
    probe->expireRamp();
    QCOMPARE(probe->value(), 37);
    QCOMPARE(probe->rampDelay(), -1);
    QCOMPARE(ledger.values.count(), 8);
    QCOMPARE(probe->open(), 1);
    release(*probe);
    QCOMPARE(ledger.takeDrags(), QList<bool>{false});
    QCOMPARE(probe->closed(), 1);
}

void tst_FaderController::rampDownAndFine()
{
    const auto probe = fader(FaderController::Ramp);
    probe->setValue(100);
    probe->show();
    QVERIFY(QTest::qWaitForWindowExposed(probe.get()));
    press(*probe, QPoint(20, 210 - 2 * 92));
    QCOMPARE(probe->value(), 95);
    QTest::keyPress(probe->windowHandle(), Qt::Key_Shift, Qt::ShiftModifier);
    QCOMPARE(QGuiApplication::keyboardModifiers(), Qt::ShiftModifier);
    Ledger ledger(*probe);
    probe->expireRamp();
    QCOMPARE(probe->value(), 94);
    QCOMPARE(ledger.modifiers.count(), 1);
    QCOMPARE(ledger.modifiers[0][1].value<Qt::KeyboardModifiers>(), Qt::ShiftModifier);
    QTest::keyRelease(probe->windowHandle(), Qt::Key_Shift);
    probe->expireRamp();
    QCOMPARE(probe->value(), 92);
    QCOMPARE(ledger.modifiers.count(), 1);
    release(*probe);
}

void tst_FaderController::rampReadsThePointer()
{
    const auto probe = fader(FaderController::Ramp);
    press(*probe, QPoint(20, 10));
    QCOMPARE(probe->value(), 5);
    move(*probe, QPoint(20, 210 - 2 * 8));
    QCOMPARE(probe->value(), 5);
    probe->expireRamp();
    QCOMPARE(probe->value(), 8);
    // Beyond the end of the travel it goes as far as the range.
    move(*probe, QPoint(20, 900));
    for (int i = 0; i < 2; ++i)
        probe->expireRamp();
    QCOMPARE(probe->value(), 0);
    probe->expireRamp();
    QCOMPARE(probe->rampDelay(), -1);
    release(*probe);
}

void tst_FaderController::rampStopsAtTheRelease()
{
    const auto probe = fader(FaderController::Ramp);
    press(*probe, QPoint(20, 10));
    QCOMPARE(probe->rampDelay(), 300);
    release(*probe);
    QCOMPARE(probe->rampDelay(), -1);
    QMetaObject::invokeMethod(probe.get(), "ramp");
    QCOMPARE(probe->value(), 5);
    QCOMPARE(probe->rampDelay(), -1);

    press(*probe, QPoint(20, 10));
    QCOMPARE(probe->value(), 10);
    probe->setOperationType(FaderController::Touch);
    probe->expireRamp();
    QCOMPARE(probe->value(), 10);
    QCOMPARE(probe->rampDelay(), -1);
    release(*probe);
    QCOMPARE(probe->open(), 0);
}

void tst_FaderController::rampStaysOnTheKnob()
{
    const auto probe = fader(FaderController::Ramp);
    probe->setValue(50);
    press(*probe, QPoint(20, 110));
    QCOMPARE(probe->value(), 50);
    QCOMPARE(probe->rampDelay(), -1);
    release(*probe);
    QCOMPARE(probe->closed(), 1);
}

void tst_FaderController::rampRunsOnItsTimers()
{
    const auto probe = fader(FaderController::Ramp);
    press(*probe, QPoint(20, 210 - 2 * 12));
    QCOMPARE(probe->value(), 5);
    QTRY_COMPARE(probe->value(), 12);
    release(*probe);
}

void tst_FaderController::reverseInvertsEverything()
{
    const auto probe = fader(FaderController::Touch);
    probe->setReverse(true);
    probe->setValue(20); // the knob's middle lies at y = 10 + 2 value = 50
    press(*probe, QPoint(20, 50));
    QCOMPARE(probe->open(), 1);
    move(*probe, QPoint(20, 91)); // 41 down: 0.205 more
    QCOMPARE(probe->value(), 40);
    release(*probe);

    probe->setOperationType(FaderController::Jump);
    press(*probe, QPoint(20, 10 + 2 * 75 + 1));
    QCOMPARE(probe->value(), 76);
    release(*probe);

    probe->setValue(50);
    wheel(*probe, {0, 120});
    QCOMPARE(probe->value(), 49);
    key(*probe, Qt::Key_Up);
    QCOMPARE(probe->value(), 48);
    key(*probe, Qt::Key_Down);
    QCOMPARE(probe->value(), 49);
    key(*probe, Qt::Key_PageUp);
    QCOMPARE(probe->value(), 39);
    key(*probe, Qt::Key_PageDown);
    QCOMPARE(probe->value(), 49);

    probe->setValue(0);
    QCOMPARE(shown(*probe).pixelColor(20, 10), QColor(0, 0, 255));
    probe->setOperationType(FaderController::Ramp);
    press(*probe, QPoint(20, 10 + 2 * 3));
    QCOMPARE(probe->value(), 3);
    release(*probe);
}

void tst_FaderController::lyingFader()
{
    const auto probe = fader(FaderController::Touch, Qt::Horizontal);
    probe->setValue(50); // the knob covers x 100 to 120
    press(*probe, QPoint(110, 20));
    move(*probe, QPoint(151, 60));
    QCOMPARE(probe->value(), 71);
    release(*probe);
    QCOMPARE(shown(*probe).pixelColor(152, 20), QColor(0, 0, 255));

    probe->setOperationType(FaderController::Jump);
    press(*probe, QPoint(10 + 2 * 25 + 1, 20));
    QCOMPARE(probe->value(), 25);
    release(*probe);
    probe->setReverse(true);
    press(*probe, QPoint(10 + 2 * 25 - 1, 20));
    QCOMPARE(probe->value(), 76);
    release(*probe);
    probe->setOperationType(FaderController::Ramp);
    press(*probe, QPoint(210 - 2 * 80, 20));
    QCOMPARE(probe->value(), 80);
    release(*probe);
}

void tst_FaderController::fineDragIsAQuarter()
{
    const auto probe = fader(FaderController::Relative);
    probe->setValue(20);
    press(*probe, QPoint(20, 100), Qt::ShiftModifier);
    move(*probe, QPoint(20, 18), Qt::ShiftModifier); // 82 up: 0.41 / 4 = 0.1025
    QCOMPARE(probe->value(), 30);
    release(*probe);
}

void tst_FaderController::fineChangeDoesNotJump()
{
    const auto probe = fader(FaderController::Relative);
    probe->setValue(20);
    press(*probe, QPoint(20, 100));
    move(*probe, QPoint(20, 59)); // 0.205
    QCOMPARE(probe->value(), 40);
    move(*probe, QPoint(20, 58), Qt::ShiftModifier);
    QCOMPARE(probe->value(), 40);
    move(*probe, QPoint(20, 17), Qt::ShiftModifier); // 42 from the anchor: 0.0525
    QCOMPARE(probe->value(), 45);
    move(*probe, QPoint(20, 16));
    QCOMPARE(probe->value(), 45);
    move(*probe, QPoint(20, 16 - 41));
    QCOMPARE(probe->value(), 66); // 42 from the anchor: 0.21
    release(*probe);
}

void tst_FaderController::controlPressResets_data()
{
    QTest::addColumn<FaderController::OperationType>("type");
    QTest::addColumn<bool>("resetsBeside");
    QTest::addColumn<bool>("dragsBeside");
    QTest::newRow("Touch") << FaderController::Touch << false << false;
    QTest::newRow("Jump") << FaderController::Jump << true << false;
    QTest::newRow("Ramp") << FaderController::Ramp << false << true;
    QTest::newRow("Relative") << FaderController::Relative << false << true;
}

void tst_FaderController::controlPressResets()
{
    QFETCH(FaderController::OperationType, type);
    QFETCH(bool, resetsBeside);
    QFETCH(bool, dragsBeside);
    const auto probe = fader(type);
    probe->setDefaultValue(30);
    probe->setValue(50);
    {
        Ledger ledger(*probe);
        press(*probe, QPoint(20, 110), Qt::ControlModifier);
        QCOMPARE(probe->value(), 30);
        QCOMPARE(probe->closed(), 1);
        QCOMPARE(probe->open(), 0);
        QCOMPARE(ledger.modifiers.count(), 1);
        QCOMPARE(ledger.modifiers[0][0].value<AbstractController*>(), probe.get());
        QCOMPARE(ledger.modifiers[0][1].value<Qt::KeyboardModifiers>(), Qt::ControlModifier);
        QVERIFY(ledger.takeDrags().isEmpty());
        release(*probe);
    }
    probe->setValue(50);
    Ledger ledger(*probe);
    press(*probe, QPoint(20, 20), Qt::ControlModifier);
    QCOMPARE(probe->value() == 30, resetsBeside);
    QCOMPARE(!ledger.takeDrags().isEmpty(), dragsBeside);
    release(*probe);
    QCOMPARE(probe->open(), 0);
}

void tst_FaderController::doubleClickResets()
{
    const auto probe = fader(FaderController::Touch);
    probe->setDefaultValue(30);
    probe->setValue(50);
    doubleClick(*probe, QPoint(20, 110));
    QCOMPARE(probe->value(), 50);
    probe->setEnableDoubleClick(true);
    doubleClick(*probe, QPoint(20, 60));
    QCOMPARE(probe->value(), 50);
    doubleClick(*probe, QPoint(20, 110), Qt::RightButton);
    QCOMPARE(probe->value(), 50);
    doubleClick(*probe, QPoint(20, 110));
    QCOMPARE(probe->value(), 30);
    QCOMPARE(probe->open(), 0);
}

void tst_FaderController::doubleClickAfterAJumpIsIgnored()
{
    const auto probe = fader(FaderController::Jump);
    probe->setEnableDoubleClick(true);
    probe->setDefaultValue(30);
    const QPoint point(20, 109);
    press(*probe, point); // jumps to 51: now the knob lies under the pointer
    release(*probe, point);
    QCOMPARE(probe->pendingDelay(0), QApplication::doubleClickInterval());
    doubleClick(*probe, point);
    QCOMPARE(probe->value(), 51);
    probe->expire(0);
    doubleClick(*probe, point);
    QCOMPARE(probe->value(), 30);
}

void tst_FaderController::doubleClickPendingEnds()
{
    const auto probe = fader(FaderController::Jump);
    press(*probe, QPoint(20, 100));
    release(*probe);
    QCOMPARE(probe->pendingDelay(0), -1); // nothing to wait for
    probe->setEnableDoubleClick(true);
    press(*probe, QPoint(20, 50));
    release(*probe);
    QVERIFY(probe->pendingDelay(0) > 0);
}

void tst_FaderController::keys_data()
{
    QTest::addColumn<Qt::Key>("which");
    QTest::addColumn<int>("standing");
    QTest::addColumn<int>("lying");
    QTest::newRow("Up") << Qt::Key_Up << 51 << 50;
    QTest::newRow("Down") << Qt::Key_Down << 49 << 50;
    QTest::newRow("Right") << Qt::Key_Right << 50 << 51;
    QTest::newRow("Left") << Qt::Key_Left << 50 << 49;
    QTest::newRow("Page Up") << Qt::Key_PageUp << 60 << 60;
    QTest::newRow("Page Down") << Qt::Key_PageDown << 40 << 40;
}

void tst_FaderController::keys()
{
    QFETCH(Qt::Key, which);
    QFETCH(int, standing);
    QFETCH(int, lying);
    for (const Qt::Orientation orientation : {Qt::Vertical, Qt::Horizontal}) {
        const int wanted = orientation == Qt::Vertical ? standing : lying;
        for (const bool reverse : {false, true}) {
            const auto probe = fader(FaderController::Touch, orientation);
            probe->setReverse(reverse);
            probe->setValue(50);
            QVERIFY(key(*probe, which));
            QCOMPARE(probe->value(), reverse ? 100 - wanted : wanted);
            QCOMPARE(probe->closed(), wanted == 50 ? 0 : 1);
            QCOMPARE(probe->open(), 0);
            QVERIFY(key(*probe, which, Qt::NoModifier, QEvent::KeyRelease));
            probe->setEnabled(false);
            QVERIFY(!key(*probe, which));
            QVERIFY(!key(*probe, which, Qt::NoModifier, QEvent::KeyRelease));
        }
    }
}

void tst_FaderController::homeAndEndGoOn()
{
    const auto probe = fader(FaderController::Touch);
    probe->setValue(50);
    for (const Qt::Key which :
         {Qt::Key_Home, Qt::Key_End, Qt::Key_Space, Qt::Key_A, Qt::Key_Return, Qt::Key_Escape}) {
        QVERIFY(!key(*probe, which));
        QVERIFY(!key(*probe, which, Qt::NoModifier, QEvent::KeyRelease));
    }
    QCOMPARE(probe->value(), 50);
    QCOMPARE(probe->closed(), 0);
}

void tst_FaderController::modifiersAreReported()
{
    const auto probe = fader(FaderController::Jump);
    probe->setValue(50);
    Ledger ledger(*probe);
    key(*probe, Qt::Key_Up);
    wheel(*probe, {0, 120});
    QCOMPARE(ledger.modifiers.count(), 0);
    key(*probe, Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(ledger.modifiers.count(), 1);
    QCOMPARE(ledger.modifiers.last()[1].value<Qt::KeyboardModifiers>(), Qt::AltModifier);
    wheel(*probe, {0, 120}, Qt::ControlModifier);
    QCOMPARE(ledger.modifiers.count(), 2);
    press(*probe, QPoint(20, 10), Qt::AltModifier);
    QCOMPARE(ledger.modifiers.count(), 3);
    move(*probe, QPoint(20, 50), Qt::AltModifier);
    QCOMPARE(ledger.modifiers.count(), 4);
    move(*probe, QPoint(21, 50), Qt::AltModifier); // along the wrong axis
    QCOMPARE(ledger.modifiers.count(), 4);
    release(*probe);
    probe->setValue(100);
    key(*probe, Qt::Key_Up, Qt::AltModifier); // no change at the end
    QCOMPARE(ledger.modifiers.count(), 4);
}

void tst_FaderController::gestureEndedByAListener()
{
    for (const auto type :
         {FaderController::Jump, FaderController::Ramp, FaderController::Relative}) {
        const auto probe = fader(type);
        Ledger ledger(*probe);
        connect(probe.get(), qOverload<int>(&FaderController::valueChanged), probe.get(),
                [&] { probe->setEnabled(false); });
        press(*probe, QPoint(20, 100));
        move(*probe, QPoint(20, 50));
        release(*probe);
        QCOMPARE(probe->open(), 0);
        QCOMPARE(probe->rampDelay(), -1);
        const QList<bool> drags = ledger.takeDrags();
        QVERIFY(drags.size() % 2 == 0);
        for (int i = 0; i < drags.size(); ++i)
            QCOMPARE(drags[i], i % 2 == 0);
    }
}

void tst_FaderController::noTravel()
{
    for (const auto type : {FaderController::Touch, FaderController::Jump, FaderController::Ramp,
                            FaderController::Relative}) {
        for (const int height : {20, 10, 1}) {
            const auto probe = fader(type);
            probe->resize(40, height);
            probe->setValue(50);
            press(*probe, QPoint(20, height / 2));
            move(*probe, QPoint(20, 100));
            release(*probe);
            press(*probe, QPoint(1, 1));
            release(*probe);
            QCOMPARE(probe->value(), 50);
            QCOMPARE(probe->open(), 0);
            shown(*probe);
        }
    }
}

void tst_FaderController::oneValueRange()
{
    for (const auto type : {FaderController::Touch, FaderController::Jump, FaderController::Ramp,
                            FaderController::Relative}) {
        const auto probe = fader(type);
        probe->setMinimumValue(100);
        QCOMPARE(probe->minimumValue(), probe->maximumValue());
        press(*probe, QPoint(20, 50), Qt::AltModifier);
        move(*probe, QPoint(20, 100), Qt::AltModifier);
        QCOMPARE(probe->rampDelay(), -1);
        release(*probe);
        press(*probe, QPoint(20, 210), Qt::ControlModifier);
        wheel(*probe, {0, 120});
        key(*probe, Qt::Key_PageUp);
        QCOMPARE(probe->value(), 100);
        QCOMPARE(probe->open(), 0);
        QCOMPARE(shown(*probe).pixelColor(20, 210), QColor(0, 0, 255));
    }
}

void tst_FaderController::widestRange()
{
    constexpr int smallest = std::numeric_limits<int>::min();
    constexpr int largest = std::numeric_limits<int>::max();
    const auto probe = fader(FaderController::Jump);
    probe->setMinimumValue(smallest);
    probe->setMaximumValue(largest);
    press(*probe, QPoint(20, 0));
    QCOMPARE(probe->value(), largest);
    move(*probe, QPoint(20, 900));
    QCOMPARE(probe->value(), smallest);
    release(*probe);
    key(*probe, Qt::Key_PageDown);
    QCOMPARE(probe->value(), smallest);
    wheel(*probe, {0, -1200000});
    QCOMPARE(probe->value(), smallest);
    key(*probe, Qt::Key_PageUp);
    QCOMPARE(probe->value(), smallest + 10);
    probe->setValue(largest);
    key(*probe, Qt::Key_Up);
    wheel(*probe, {0, 1200000});
    QCOMPARE(probe->value(), largest);
    probe->setOperationType(FaderController::Ramp);
    press(*probe, QPoint(20, 210));
    QCOMPARE(probe->value(), largest - 5);
    release(*probe);
    shown(*probe);
}

void tst_FaderController::boundDragWritesToTheHost()
{
    TestHost host;
    host.setRange(Parameter, 0, 100);
    host.set(Parameter, 1, 50);
    const auto probe = fader(FaderController::Touch);
    probe->setMemAPIValue(host.memory(), host.id(Parameter), 1, 0);
    Ledger ledger(*probe);
    press(*probe, QPoint(20, 110));
    move(*probe, QPoint(20, 91)); // 19 up: 0.595, rounded
    QCOMPARE(host.value(Parameter, 1), 60);
    QVERIFY(host.writes() == (std::vector<TestHost::Write>{{Parameter, 1, 60}}));
    const TestHost::Call call = host.calls(TestHost::Operation::SetValue).front();
    QCOMPARE(call.trailing1, 0);
    QCOMPARE(call.trailing2, 1);
    QCOMPARE(ledger.values.count(), 1);
    release(*probe);
    host.setNotifying(false);
    key(*probe, Qt::Key_Up);
    QCOMPARE(ledger.values.count(), 1); // the host did not say so
    QCOMPARE(probe->value(), 61);
}

void tst_FaderController::rebindingEndsTheGesture()
{
    TestHost host;
    host.setRange(Parameter, 0, 100);
    const auto probe = fader(FaderController::Ramp);
    probe->setMemAPIValue(host.memory(), host.id(Parameter), 1, 0);
    host.set(Parameter, 1, 0);
    Ledger ledger(*probe);
    press(*probe, QPoint(20, 10));
    QCOMPARE(host.value(Parameter, 1), 5);
    // The same address again is no rebinding.
    probe->setMemAPIValue(host.memory(), host.id(Parameter), 1, 0);
    QCOMPARE(probe->open(), 1);
    probe->setMemAPIValue(nullptr, 0, 0, 0);
    QCOMPARE(probe->open(), 0);
    QCOMPARE(probe->rampDelay(), -1);
    QCOMPARE(ledger.takeDrags(), (QList<bool>{true, false}));
    QCOMPARE(host.observerCount(), 0);
}

void tst_FaderController::failingHost()
{
    for (const auto type : {FaderController::Touch, FaderController::Jump, FaderController::Ramp,
                            FaderController::Relative}) {
        for (int n = 1;; ++n) {
            TestHost host;
            host.failAnyCall(n);
            {
                const auto probe = fader(type);
                probe->setEnableDoubleClick(true);
                probe->setMemAPIValue(host.memory(), host.id(Parameter), 0, 0);
                Ledger ledger(*probe);
                shown(*probe);
                press(*probe, QPoint(20, 30), Qt::AltModifier);
                if (probe->rampDelay() >= 0)
                    probe->expireRamp();
                move(*probe, QPoint(20, 60), Qt::ShiftModifier);
                release(*probe);
                press(*probe, QPoint(20, 110), Qt::ControlModifier);
                release(*probe);
                wheel(*probe, {0, 120});
                key(*probe, Qt::Key_PageUp, Qt::AltModifier);
                doubleClick(*probe, QPoint(20, 110));
                QCOMPARE(probe->open(), 0);
                const QList<bool> drags = ledger.takeDrags();
                QVERIFY(drags.size() % 2 == 0);
                probe->setMemAPIValue(nullptr, 0, 0, 0);
            }
            if (host.callCount() < n)
                break;
            QVERIFY(n < 500);
        }
    }
}

void tst_FaderController::paintsKnobAtItsPlace_data()
{
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<bool>("reverse");
    QTest::addColumn<int>("value");
    QTest::addColumn<double>("scale");
    for (const Qt::Orientation orientation : {Qt::Vertical, Qt::Horizontal}) {
        for (const bool reverse : {false, true}) {
            for (const int value : {0, 25, 50, 100}) {
                for (const double scale : {1.0, 2.0})
                    QTest::addRow("%d, %d, %d at %g", orientation, reverse, value, scale)
                        << orientation << reverse << value << scale;
            }
        }
    }
}

void tst_FaderController::paintsKnobAtItsPlace()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(bool, reverse);
    QFETCH(int, value);
    QFETCH(double, scale);
    const auto probe = fader(FaderController::Touch, orientation);
    probe->setReverse(reverse);
    probe->setValue(value);
    probe->setScale(scale);
    probe->resize(probe->size() * scale);

    const int fromMinimum = qRound(2 * value * scale);
    const int length = qRound(220 * scale);
    const int side = qRound(20 * scale);
    const int across = qRound(10 * scale);
    const bool fromStart = (orientation == Qt::Horizontal) != reverse;
    const int along = fromStart ? fromMinimum : length - side - fromMinimum;
    const QRect wanted = orientation == Qt::Vertical ? QRect(across, along, side, side)
                                                     : QRect(along, across, side, side);
    const QImage image = shown(*probe);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = wanted.contains(x, y) ? QColor(0, 0, 255) : QColor(Qt::white);
            if (image.pixelColor(x, y) != colour)
                QCOMPARE(std::pair(QPoint(x, y), image.pixelColor(x, y)),
                         std::pair(QPoint(x, y), colour));
        }
    }
}

void tst_FaderController::paintsShadowUnderTheKnob()
{
    const auto probe = fader(FaderController::Touch);
    probe->setShadowSvg(m_shadow);
    probe->setShadowBlur(3.0);
    for (const int value : {0, 50, 53, 100}) {
        probe->setValue(value);
        const QPoint knob(10, 200 - 2 * value);
        // The shadow in a pixmap of the fader's size, blurred as a whole.
        QPixmap sheet(probe->size());
        sheet.fill(Qt::transparent);
        QPainter painter(&sheet);
        QSvgRenderer(m_shadow).render(&painter, QRectF(knob - QPoint(2, 2), QSizeF(24, 24)));
        painter.end();
        QGraphicsScene scene;
        auto* effect = new QGraphicsBlurEffect;
        effect->setBlurRadius(3.0);
        scene.addPixmap(sheet)->setGraphicsEffect(effect);
        QImage wanted(probe->size(), QImage::Format_ARGB32_Premultiplied);
        wanted.fill(Qt::white);
        painter.begin(&wanted);
        scene.render(&painter, wanted.rect(), wanted.rect());
        QSvgRenderer(m_knob).render(&painter, QRectF(knob, QSizeF(20, 20)));
        painter.end();

        const QImage seen = shown(*probe);
        for (int y = 0; y < seen.height(); ++y) {
            for (int x = 0; x < seen.width(); ++x)
                QVERIFY(std::abs(seen.pixelColor(x, y).red() - wanted.pixelColor(x, y).red()) <= 1);
        }
    }
}

void tst_FaderController::paintsBackgroundInTheMiddle()
{
    Probe probe;
    probe.resize(40, 220);
    probe.setBackgroundSvg(m_track);
    const QImage image = shown(probe);
    QCOMPARE(image.pixelColor(18, 10), QColor(0x80, 0x80, 0x80));
    QCOMPARE(image.pixelColor(21, 209), QColor(0x80, 0x80, 0x80));
    QCOMPARE(image.pixelColor(17, 100), QColor(Qt::white));
    QCOMPARE(image.pixelColor(22, 100), QColor(Qt::white));
    QCOMPARE(image.pixelColor(20, 9), QColor(Qt::white));
    QCOMPARE(image.pixelColor(20, 210), QColor(Qt::white));
}

void tst_FaderController::paintsDisabledKnobTranslucent()
{
    const auto probe = fader(FaderController::Touch);
    probe->setBackgroundSvg(m_track);
    probe->setKnobDisableOpacity(0.5);
    QCOMPARE(shown(*probe).pixelColor(12, 210), QColor(0, 0, 255));
    probe->setEnabled(false);
    const QColor seen = shown(*probe).pixelColor(12, 210);
    QVERIFY(std::abs(seen.red() - 127) <= 1);
    QCOMPARE(seen.blue(), 255);
    QCOMPARE(shown(*probe).pixelColor(20, 50), QColor(0x80, 0x80, 0x80));
    probe->setKnobDisableOpacity(1.0);
    QCOMPARE(shown(*probe).pixelColor(12, 210), QColor(0, 0, 255));
    probe->setKnobDisableOpacity(0.0);
    QCOMPARE(shown(*probe).pixelColor(12, 210), QColor(Qt::white));
}

void tst_FaderController::paintsAtEveryPixelRatio_data()
{
    QTest::addColumn<double>("ratio");
    for (const double ratio : {1.0, 1.25, 1.5, 2.0})
        QTest::addRow("%g", ratio) << ratio;
}

void tst_FaderController::paintsAtEveryPixelRatio()
{
    QFETCH(double, ratio);
    const auto probe = fader(FaderController::Touch);
    for (int value = 0; value <= 100; ++value) {
        probe->setValue(value);
        const QImage image = shown(*probe, ratio);
        // The upper and lower edges of the knob are sharp, wherever it stands.
        for (int y = 0; y < image.height(); ++y) {
            const QColor row = image.pixelColor(image.width() / 2, y);
            QVERIFY(row == QColor(Qt::white) || row == QColor(0, 0, 255));
        }
    }
}

void tst_FaderController::paintingReadsTheHostAFewTimes()
{
    TestHost host;
    const auto probe = fader(FaderController::Touch);
    probe->setShadowSvg(m_shadow);
    probe->setMemAPIValue(host.memory(), host.id(Parameter), 0, 0);
    host.resetLedger();
    shown(*probe);
    QCOMPARE(host.count(TestHost::Operation::GetValue), 1);
    QCOMPARE_LE(host.count(TestHost::Operation::GetRange), 3);
}

void tst_FaderController::badPicturesAreBlank()
{
    const auto probe = fader(FaderController::Touch);
    probe->setKnobSvg(m_files.missing());
    probe->setShadowSvg(m_files.file("broken.svg", "<svg"));
    probe->setBackgroundSvg(m_files.directory());
    QImage blank(probe->size(), QImage::Format_ARGB32_Premultiplied);
    blank.fill(Qt::white);
    QCOMPARE(shown(*probe), blank);
    QCOMPARE(probe->knobSvg(), m_files.missing());
}

void tst_FaderController::accessibility()
{
    QAccessible::setActive(true);
    TestHost host;
    host.setFormatter([](const QByteArray&, unsigned short, int value) {
        return QByteArray::number(value / 10.0, 'f', 1) + " dB";
    });
    const auto probe = fader(FaderController::Touch);
    probe->setAccessibleName(QStringLiteral("Volume"));
    probe->setMemAPIValue(host.memory(), host.id(Parameter), 0, 0);
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(probe.get());
    QVERIFY(interface);
    QCOMPARE(interface->role(), QAccessible::Slider);
    QCOMPARE(interface->text(QAccessible::Name), QStringLiteral("Volume"));
    QCOMPARE(interface->text(QAccessible::Value), QStringLiteral("0.0 dB"));
    QVERIFY(!interface->textInterface());
    QVERIFY(interface->valueInterface());
    QCOMPARE(interface->valueInterface()->minimumValue().toInt(), -200);
    QCOMPARE(interface->valueInterface()->maximumValue().toInt(), 200);
    QVERIFY(interface->actionInterface());
    interface->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    QCOMPARE(host.value(Parameter, 0), 1);
    interface->actionInterface()->doAction(QAccessibleActionInterface::decreaseAction());
    QCOMPARE(host.value(Parameter, 0), 0);
    interface->valueInterface()->setCurrentValue(55);
    QCOMPARE(host.value(Parameter, 0), 55);
    QCOMPARE(probe->closed(), 3);
    QCOMPARE(probe->open(), 0);
}

ZOLTA_TEST_MAIN(tst_FaderController)

#include "tst_FaderController.moc"
