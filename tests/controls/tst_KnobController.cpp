// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/KnobController.h"

#include "tests/controls/ControlTesting.h"
#include "tests/support/ImageDifference.h"
#include "tests/support/TestObject.h"
#include "tests/widgets/SvgFiles.h"

#include <QAccessible>
#include <QApplication>
#include <QPainter>
#include <QSignalSpy>
#include <QSvgRenderer>

#include <cmath>
#include <limits>

using namespace ControlTesting;
using CommonController_MemAPI::KnobController;
using Knob = Ledgered<KnobController>;

namespace {

constexpr int Largest = std::numeric_limits<int>::max();
constexpr int Smallest = std::numeric_limits<int>::min();

// On the rim of a knob of 100 by 100.
constexpr QPointF At12(50, 10);
constexpr QPointF At3(90, 50);
constexpr QPointF At6(50, 90);
constexpr QPointF At9(10, 50);
constexpr QPointF Between5And6(57, 90);
constexpr QPointF Between6And7(43, 90);

constexpr char Dial[] = "<circle cx=\"20\" cy=\"20\" r=\"17.5\" fill=\"#8a9199\" stroke=\"#fff\"/>"
                        "<path d=\"M20 4 L20 15\" stroke=\"#0394D0\" stroke-width=\"3\"/>";
constexpr char Shade[] = "<circle cx=\"15\" cy=\"15\" r=\"12\" fill=\"#ff0000\"/>";

/// The point at \a clock degrees clockwise from 12 o'clock.
QPointF onClock(QPointF centre, double clock, double radius)
{
    const double angle = clock * std::acos(-1.0) / 180.0;
    return centre + QPointF(std::sin(angle), -std::cos(angle)) * radius;
}

/// What \a draw makes on black.
template <class Draw> QImage reference(QSize size, double ratio, Draw draw)
{
    QImage image(QSize(static_cast<int>(std::ceil(size.width() * ratio)),
                       static_cast<int>(std::ceil(size.height() * ratio))),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter);
    return image;
}

QPen indexPen(QColor colour, double width)
{
    return {colour, width, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin};
}

/// Takes what its children leave.
class Window : public QWidget
{
public:
    QList<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { keys << event->key(); }
    void keyReleaseEvent(QKeyEvent* event) override { keys << -event->key(); }
};

} // namespace

class tst_KnobController : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void propertiesAreClamped_data();
    void propertiesAreClamped();
    void insideAndOutsideMoveEachOther();
    void settersRepaintOnChangeOnly();

    void pressPointsAtTheValue_data();
    void pressPointsAtTheValue();
    void pressInTheDeadZoneTakesTheNearerEnd();
    void pressPointsByAnyAngles();
    void pressWithControlAmongOthersDoesNotPoint();
    void circularDragTurns();
    void circularDragCrossesTheLeftSide();
    void fineDragTurnsAQuarter();
    void changeOfFinenessDoesNotJump();
    void changeOfFinenessPointsAgain();
    void relativeDragDoesNotJump();
    void linearDrag_data();
    void linearDrag();
    void linearDragOnZeroToOneTakes20Pixels();

    void controlDoubleClickResets();
    void plainDoubleClickDoesNothing();

    void wheelTurns_data();
    void wheelTurns();
    void fineWheel();

    void keys_data();
    void keys();
    void keyReleases_data();
    void keyReleases();

    void modifiersAreReported();

    void gesturesAreBracketed();
    void dragCanEndWhileItStarts_data();
    void dragCanEndWhileItStarts();
    void hostMayDisableInTheMiddleOfAMove();
    void everyFailureIsSurvived();
    void oneValueRangeDoesNotCrash();
    void widestRangeDoesNotOverflow();

    void paintsTheMinimumAtSevenAndTheMaximumAtFive();
    void paintsTheIndexLineByTheColourGroup();
    void paintsThePicturesAtEveryRatio_data();
    void paintsThePicturesAtEveryRatio();
    void paintsTheTurnedPictureAtEveryRatio_data();
    void paintsTheTurnedPictureAtEveryRatio();
    void paintsADisabledKnobTranslucent_data();
    void paintsADisabledKnobTranslucent();
    void paintsABlurredShadow();
    void brokenPicturesAreLeftOut();
    void paintingAsksTheHostOnce();

    void accessibility();
    void accessibleName();
    void valueChangesAreAnnounced();

private:
    SvgFiles m_files;
    QString m_dial;
    QString m_shade;
    QString m_plain;
};

void tst_KnobController::initTestCase()
{
    m_dial = m_files.picture("dial.svg", 40, 40, Dial);
    m_shade = m_files.picture("shade.svg", 30, 30, Shade);
    m_plain = m_files.plain("plain.svg", 60, 60, "#204060");
}

void tst_KnobController::propertiesAreClamped_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("stored");
    const auto row = [](const char* property, double value, double stored) {
        QTest::addRow("%s %g", property, value) << QByteArray(property) << value << stored;
    };
    for (const char* angle : {"startAngle", "spanAngle"}) {
        row(angle, 360.5, 360.0);
        row(angle, -1.0, 0.0);
        row(angle, 45.5, 45.5);
        row(angle, std::nan(""), 0.0);
    }
    for (const char* length : {"inside", "outside", "thick", "shadowBlur"}) {
        row(length, -0.5, 0.0);
        row(length, 300.25, 300.25);
    }
    row("knobDisableOpacity", -1.0, 0.0);
    row("knobDisableOpacity", 1.5, 1.0);
    row("knobDisableOpacity", 0.25, 0.25);
}

void tst_KnobController::propertiesAreClamped()
{
    QFETCH(QByteArray, property);
    QFETCH(double, value);
    KnobController knob;
    QVERIFY(knob.setProperty(property.constData(), value));
    QTEST(knob.property(property.constData()).toDouble(), "stored");
}

void tst_KnobController::insideAndOutsideMoveEachOther()
{
    KnobController knob;
    knob.setInside(20.0);
    QCOMPARE(knob.inside(), 20.0);
    QCOMPARE(knob.outside(), 20.0);
    knob.setOutside(8.0);
    QCOMPARE(knob.inside(), 8.0);
    QCOMPARE(knob.outside(), 8.0);
    knob.setOutside(-3.0);
    QCOMPARE(knob.inside(), 0.0);
    QCOMPARE(knob.outside(), 0.0);
}

void tst_KnobController::settersRepaintOnChangeOnly()
{
    Ledger ledger;
    QWidget window;
    Knob knob(ledger, &window);
    knob.setGeometry(0, 0, 100, 100);
    window.resize(300, 200);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));

    QVERIFY(!repaints(knob, [&] { knob.setStartAngle(210.0); }));
    QVERIFY(repaints(knob, [&] { knob.setStartAngle(200.0); }));
    QVERIFY(repaints(knob, [&] { knob.setSpanAngle(90.0); }));
    QVERIFY(repaints(knob, [&] { knob.setInside(5.0); }));
    QVERIFY(repaints(knob, [&] { knob.setOutside(25.0); }));
    QVERIFY(repaints(knob, [&] { knob.setThick(3.0); }));
    QVERIFY(!repaints(knob, [&] { knob.setThick(3.0); }));
    QVERIFY(!repaints(knob, [&] { knob.setShadowBlur(3.0); }));
    QVERIFY(repaints(knob, [&] { knob.setShadowSvg(m_shade); }));
    QVERIFY(repaints(knob, [&] { knob.setShadowBlur(4.0); }));
    QVERIFY(repaints(knob, [&] { knob.setKnobSvg(m_dial); }));
    QVERIFY(!repaints(knob, [&] { knob.setKnobSvg(m_dial); }));
    QVERIFY(!repaints(knob, [&] { knob.setKnobDisableOpacity(0.5); }));
    QVERIFY(repaints(knob, [&] { knob.setEnabled(false); }));
    QVERIFY(repaints(knob, [&] { knob.setKnobDisableOpacity(0.25); }));
    QVERIFY(repaints(knob, [&] { knob.setEnabled(true); }));
    QVERIFY(repaints(knob, [&] { knob.setKnobType(KnobController::RotateKnob); }));
    QVERIFY(repaints(knob, [&] { knob.setValue(3); }));
    QVERIFY(!repaints(knob, [&] { knob.setValue(3); }));
    QVERIFY(repaints(knob, [&] { knob.setScale(2.0); }));
    QVERIFY(!repaints(knob, [&] { knob.setScale(2.0); }));
    QVERIFY(!repaints(knob, [&] { knob.setOperationType(KnobController::Linear); }));
    QVERIFY(!repaints(knob, [&] { knob.setValueChangeStep(7); }));
}

void tst_KnobController::pressPointsAtTheValue_data()
{
    QTest::addColumn<QPointF>("point");
    QTest::addColumn<int>("value");
    QTest::newRow("9 o'clock") << At9 << 60;
    QTest::newRow("12 o'clock") << At12 << 150;
    QTest::newRow("3 o'clock") << At3 << 240;
    QTest::newRow("12 o'clock, rounded") << QPointF(50.4, 9.6) << 150;
    QTest::newRow("far outside") << QPointF(50, -5000) << 150;
}

void tst_KnobController::pressPointsAtTheValue()
{
    QFETCH(QPointF, point);
    KnobController knob;
    knob.resize(100, 100);
    knob.setMaximumValue(300);
    press(knob, point);
    QTEST(knob.value(), "value");
}

void tst_KnobController::pressInTheDeadZoneTakesTheNearerEnd()
{
    KnobController knob;
    knob.resize(100, 100);
    knob.setValue(50);
    press(knob, Between5And6);
    QCOMPARE(knob.value(), 100);
    release(knob, Between5And6);
    press(knob, Between6And7);
    QCOMPARE(knob.value(), 0);
}

void tst_KnobController::pressPointsByAnyAngles()
{
    KnobController knob;
    knob.resize(100, 100);
    knob.setMaximumValue(180);
    knob.setStartAngle(270.0);
    knob.setSpanAngle(180.0);
    press(knob, At12);
    QCOMPARE(knob.value(), 90);
    release(knob, At12);
    press(knob, At9 + QPointF(0, 1));
    QCOMPARE(knob.value(), 0);
    release(knob, At9);
    knob.setStartAngle(0.0);
    knob.setSpanAngle(360.0);
    press(knob, At9);
    QCOMPARE(knob.value(), 135);
}

void tst_KnobController::pressWithControlAmongOthersDoesNotPoint()
{
    KnobController knob;
    knob.resize(100, 100);
    QSignalSpy drags(&knob, &KnobController::drag);
    press(knob, At12, Qt::ControlModifier | Qt::AltModifier);
    QCOMPARE(knob.value(), 0);
    QCOMPARE(drags.count(), 1);
    release(knob, At12);
    press(knob, At12, Qt::ShiftModifier);
    QCOMPARE(knob.value(), 0);
    release(knob, At12);
    press(knob, At12, Qt::ShiftModifier | Qt::AltModifier);
    QCOMPARE(knob.value(), 50);
}

void tst_KnobController::circularDragTurns()
{
    KnobController knob;
    knob.resize(100, 100);
    knob.setMaximumValue(300);
    press(knob, At12);
    moveTo(knob, At3);
    QCOMPARE(knob.value(), 240);
    moveTo(knob, At6);
    QCOMPARE(knob.value(), 300);
    moveTo(knob, At3);
    QCOMPARE(knob.value(), 240);
    moveTo(knob, At12);
    moveTo(knob, At9);
    QCOMPARE(knob.value(), 60);
}

void tst_KnobController::circularDragCrossesTheLeftSide()
{
    KnobController knob;
    knob.resize(100, 100);
    knob.setMaximumValue(300);
    knob.setOperationType(KnobController::RelativeCircular);
    knob.setValue(150);
    press(knob, {10, 45});
    moveTo(knob, {10, 55});
    QCOMPARE(knob.value(), 136);
    moveTo(knob, {10, 45});
    QCOMPARE(knob.value(), 150);
}

void tst_KnobController::fineDragTurnsAQuarter()
{
    KnobController knob;
    knob.resize(100, 100);
    knob.setMaximumValue(300);
    knob.setValue(100);
    press(knob, At12, Qt::ShiftModifier);
    moveTo(knob, At3, Qt::ShiftModifier);
    QCOMPARE(knob.value(), 122);
}

void tst_KnobController::changeOfFinenessDoesNotJump()
{
    KnobController knob;
    knob.resize(100, 100);
    knob.setMaximumValue(300);
    knob.setOperationType(KnobController::RelativeCircular);
    press(knob, At9);
    moveTo(knob, At12);
    QCOMPARE(knob.value(), 90);
    moveTo(knob, At3, Qt::ShiftModifier);
    QCOMPARE(knob.value(), 112);
    moveTo(knob, At6);
    QCOMPARE(knob.value(), 202);
}

void tst_KnobController::changeOfFinenessPointsAgain()
{
    // Turning on from where the pointer was last, after pointing at where it is: on purpose.
    KnobController knob;
    knob.resize(100, 100);
    knob.setMaximumValue(300);
    press(knob, At9, Qt::ShiftModifier);
    QCOMPARE(knob.value(), 0);
    moveTo(knob, At12);
    QCOMPARE(knob.value(), 240);
}

void tst_KnobController::relativeDragDoesNotJump()
{
    KnobController knob;
    knob.resize(100, 100);
    knob.setMaximumValue(300);
    knob.setOperationType(KnobController::RelativeCircular);
    knob.setValue(30);
    press(knob, At3);
    QCOMPARE(knob.value(), 30);
    moveTo(knob, At6);
    QCOMPARE(knob.value(), 120);
}

void tst_KnobController::linearDrag_data()
{
    QTest::addColumn<QPointF>("by");
    QTest::addColumn<int>("step");
    QTest::addColumn<bool>("fine");
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("value");
    QTest::newRow("right") << QPointF(30, 0) << 1 << false << 1.0 << 80;
    QTest::newRow("up") << QPointF(0, -30) << 1 << false << 1.0 << 80;
    QTest::newRow("left") << QPointF(-30, 0) << 1 << false << 1.0 << 20;
    QTest::newRow("down, beyond") << QPointF(0, 300) << 1 << false << 1.0 << 0;
    QTest::newRow("coarse") << QPointF(10, 0) << 4 << false << 1.0 << 90;
    QTest::newRow("fine") << QPointF(30, 0) << 4 << true << 1.0 << 57;
    QTest::newRow("scaled") << QPointF(30, 0) << 1 << false << 2.0 << 65;
}

void tst_KnobController::linearDrag()
{
    QFETCH(QPointF, by);
    QFETCH(int, step);
    QFETCH(bool, fine);
    QFETCH(double, scale);
    KnobController knob;
    knob.resize(100, 100);
    knob.setOperationType(KnobController::Linear);
    knob.setValueChangeStep(step);
    knob.setScale(scale);
    knob.setValue(50);
    const Qt::KeyboardModifiers modifiers = fine ? Qt::ShiftModifier : Qt::NoModifier;
    press(knob, At12, modifiers);
    QCOMPARE(knob.value(), 50);
    moveTo(knob, At12 + by, modifiers);
    QTEST(knob.value(), "value");
}

void tst_KnobController::linearDragOnZeroToOneTakes20Pixels()
{
    KnobController knob;
    knob.resize(100, 100);
    knob.setMaximumValue(1);
    knob.setOperationType(KnobController::Linear);
    press(knob, {50, 50});
    moveTo(knob, {69, 50});
    QCOMPARE(knob.value(), 0);
    moveTo(knob, {70, 50});
    QCOMPARE(knob.value(), 1);
}

void tst_KnobController::controlDoubleClickResets()
{
    Ledger ledger;
    Knob knob(ledger);
    knob.resize(100, 100);
    knob.setDefaultValue(70);
    sendMouse(knob, QEvent::MouseButtonDblClick, At12, Qt::LeftButton, Qt::LeftButton,
              Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(knob.value(), 70);
    QCOMPARE(ledger.begun, 1);
    QCOMPARE(ledger.ended, 1);
}

void tst_KnobController::plainDoubleClickDoesNothing()
{
    Ledger ledger;
    Knob knob(ledger);
    knob.resize(100, 100);
    sendMouse(knob, QEvent::MouseButtonDblClick, At12, Qt::LeftButton, Qt::LeftButton, {});
    moveTo(knob, At3);
    release(knob, At3);
    QCOMPARE(knob.value(), 0);
    QCOMPARE(ledger.begun, 0);
}

void tst_KnobController::wheelTurns_data()
{
    QTest::addColumn<QPoint>("angle");
    QTest::addColumn<int>("step");
    QTest::addColumn<bool>("inverted");
    QTest::addColumn<int>("value");
    QTest::newRow("coarse") << QPoint(0, 120) << 6 << false << 56;
}

void tst_KnobController::wheelTurns()
{
    QFETCH(QPoint, angle);
    QFETCH(int, step);
    QFETCH(bool, inverted);
    Ledger ledger;
    Knob knob(ledger);
    knob.setValue(50);
    knob.setValueChangeStep(step);
    wheel(knob, angle, {}, inverted);
    QTEST(knob.value(), "value");
    QCOMPARE(ledger.begun, 1);
    QCOMPARE(ledger.ended, 1);
}

void tst_KnobController::fineWheel()
{
    KnobController knob;
    knob.setValue(50);
    for (int i = 0; i < 3; ++i)
        wheel(knob, {0, 120}, Qt::ShiftModifier);
    QCOMPARE(knob.value(), 51);
    knob.setValueChangeStep(2);
    for (int i = 0; i < 3; ++i)
        wheel(knob, {0, 120}, Qt::ShiftModifier);
    QCOMPARE(knob.value(), 54);
}

void tst_KnobController::keys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("value");
    QTest::newRow("Home") << int(Qt::Key_Home) << -200;
    QTest::newRow("End") << int(Qt::Key_End) << 200;
    QTest::newRow("Left") << int(Qt::Key_Left) << 49;
    QTest::newRow("Down") << int(Qt::Key_Down) << 49;
    QTest::newRow("Right") << int(Qt::Key_Right) << 51;
    QTest::newRow("Up") << int(Qt::Key_Up) << 51;
    QTest::newRow("Page Up") << int(Qt::Key_PageUp) << 80;
    QTest::newRow("Page Down") << int(Qt::Key_PageDown) << 20;
}

void tst_KnobController::keys()
{
    QFETCH(int, key);
    TestHost host;
    host.addParameter(Parameter, -200, 200, 50);
    Ledger ledger;
    Knob knob(ledger);
    bind(knob, host);
    knob.setValueChangeStep(3);
    QVERIFY(ControlTesting::key(knob, Qt::Key(key)));
    QTEST(host.value(Parameter, 0), "value");
    QCOMPARE(ledger.begun, 1);
    QCOMPARE(ledger.ended, 1);
}

void tst_KnobController::keyReleases_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("accepted");
    for (const Qt::Key key :
         {Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown})
        QTest::addRow("%x", key) << int(key) << true;
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_End, Qt::Key_A})
        QTest::addRow("%x, passed on", key) << int(key) << false;
}

void tst_KnobController::keyReleases()
{
    QFETCH(int, key);
    QFETCH(bool, accepted);
    Window window;
    KnobController knob(&window);
    ControlTesting::key(knob, Qt::Key(key), {}, QEvent::KeyRelease);
    QCOMPARE(window.keys.isEmpty(), accepted);
}

void tst_KnobController::modifiersAreReported()
{
    KnobController knob;
    knob.resize(100, 100);
    AbstractController* reported = nullptr;
    Qt::KeyboardModifiers held;
    int count = 0;
    connect(&knob, &KnobController::modifiersChange, this,
            [&](AbstractController* controller, Qt::KeyboardModifiers modifiers) {
                reported = controller;
                held = modifiers;
                ++count;
            });
    key(knob, Qt::Key_Up);
    wheel(knob, {0, 120});
    QCOMPARE(count, 0);
    key(knob, Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(count, 1);
    QCOMPARE(reported, &knob);
    QCOMPARE(held, Qt::KeyboardModifiers(Qt::AltModifier));
    key(knob, Qt::Key_Home, Qt::AltModifier);
    key(knob, Qt::Key_Home, Qt::AltModifier);
    QCOMPARE(count, 2);
    wheel(knob, {0, 120}, Qt::AltModifier);
    QCOMPARE(count, 3);
    wheel(knob, {0, 20}, Qt::AltModifier);
    QCOMPARE(count, 3);
    press(knob, At12, Qt::AltModifier);
    QCOMPARE(count, 3);
    moveTo(knob, At3, Qt::AltModifier);
    QCOMPARE(count, 4);
    knob.setOperationType(KnobController::Linear);
    moveTo(knob, At6, Qt::AltModifier);
    QCOMPARE(count, 5);
}

void tst_KnobController::gesturesAreBracketed()
{
    TestHost host;
    host.addParameter(Parameter, 0, 300, 0);
    Ledger ledger;
    Knob knob(ledger);
    knob.resize(100, 100);
    bind(knob, host);
    QSignalSpy drags(&knob, &KnobController::drag);
    QSignalSpy changes(&knob, qOverload<int>(&KnobController::valueChanged));
    press(knob, At12);
    QCOMPARE(ledger.open(), 1);
    moveTo(knob, At3);
    key(knob, Qt::Key_Up);
    QCOMPARE(ledger.open(), 1);
    release(knob, At3);
    QCOMPARE(ledger.open(), 0);
    QCOMPARE(ledger.begun, 2);
    QCOMPARE(drags, (QList<QVariantList>{{true}, {false}}));
    QCOMPARE(changes, (QList<QVariantList>{{150}, {240}, {241}}));
    const std::vector<TestHost::Write> writes = {
        {Parameter, 0, 150}, {Parameter, 0, 240}, {Parameter, 0, 241}};
    QCOMPARE(host.writes(), writes);
    release(knob, At3);
    QCOMPARE(drags.count(), 2);
    QCOMPARE(ledger.ended, 2);
}

void tst_KnobController::dragCanEndWhileItStarts_data()
{
    QTest::addColumn<QString>("how");
    for (const QString& how : Interruptions) {
        if (!how.contains(QLatin1String("destroyed")) && !how.contains(QLatin1String("pressed")))
            QTest::addRow("%s", qPrintable(how)) << how;
    }
}

void tst_KnobController::dragCanEndWhileItStarts()
{
    QFETCH(QString, how);
    TestHost host;
    host.addParameter(Parameter, 0, 300, 0);
    Ledger ledger;
    auto window = std::make_unique<QWidget>();
    QPointer<Knob> knob = new Knob(ledger, window.get());
    knob->setGeometry(0, 0, 100, 100);
    bind(*knob, host);
    window->show();
    QSignalSpy drags(knob.data(), &KnobController::drag);
    const auto once =
        connect(knob.data(), qOverload<int>(&KnobController::valueChanged), this, [&] {
            if (ledger.open() > 0)
                interrupt(how, window, knob, host);
        });
    press(*knob, At12);
    disconnect(once);
    QCOMPARE(drags.count(), 0);
    moveTo(*knob, At3);
    release(*knob, At3);
    QCOMPARE(ledger.begun, 1);
    QCOMPARE(ledger.ended, 1);
}

void tst_KnobController::hostMayDisableInTheMiddleOfAMove()
{
    TestHost host;
    host.addParameter(Parameter, 0, 300, 0);
    Ledger ledger;
    Knob knob(ledger);
    knob.resize(100, 100);
    bind(knob, host);
    QSignalSpy drags(&knob, &KnobController::drag);
    press(knob, At12);
    connect(&knob, qOverload<int>(&KnobController::valueChanged), &knob,
            [&knob] { knob.setEnabled(false); });
    moveTo(knob, At3);
    moveTo(knob, At6);
    QCOMPARE(drags.count(), 2);
    QCOMPARE(ledger.ended, 1);
    QCOMPARE(host.value(Parameter, 0), 240);
}

void tst_KnobController::everyFailureIsSurvived()
{
    for (const auto type :
         {KnobController::Circular, KnobController::Linear, KnobController::RelativeCircular}) {
        for (int n = 1;; ++n) {
            TestHost host;
            host.addParameter(Parameter, 0, 300, 20);
            host.failAnyCall(n);
            Ledger ledger;
            {
                Knob knob(ledger);
                knob.resize(100, 100);
                knob.setOperationType(type);
                bind(knob, host);
                press(knob, At12);
                moveTo(knob, At3, Qt::ShiftModifier);
                moveTo(knob, At6, Qt::AltModifier);
                release(knob, At6);
                press(knob, At12, Qt::ControlModifier);
                wheel(knob, {0, 240}, Qt::ShiftModifier);
                key(knob, Qt::Key_PageUp, Qt::AltModifier);
                key(knob, Qt::Key_End);
                painted(knob);
                press(knob, At9);
                bind(knob, host, "fx_rackfx_prm_3", 1);
                QCOMPARE(ledger.open(), 0);
                press(knob, At9);
                unbind(knob);
            }
            QCOMPARE(ledger.open(), 0);
            QCOMPARE(ledger.begun, 7);
            if (host.callCount() < n)
                break;
        }
    }
}

void tst_KnobController::oneValueRangeDoesNotCrash()
{
    KnobController knob;
    knob.resize(100, 100);
    knob.setMaximumValue(0);
    QSignalSpy modifiers(&knob, &KnobController::modifiersChange);
    for (const auto type : {KnobController::LineIndex, KnobController::RotateKnob}) {
        knob.setKnobType(type);
        knob.setKnobSvg(m_dial);
        press(knob, At12, Qt::AltModifier);
        moveTo(knob, At3, Qt::AltModifier);
        release(knob, At3);
        press(knob, At12, Qt::ControlModifier);
        wheel(knob, {0, 120}, Qt::AltModifier);
        painted(knob);
    }
    knob.setSpanAngle(0.0);
    press(knob, At12);
    moveTo(knob, At3);
    painted(knob);
    QCOMPARE(knob.value(), 0);
    QCOMPARE(modifiers.count(), 0);
}

void tst_KnobController::widestRangeDoesNotOverflow()
{
    TestHost host;
    host.addParameter(Parameter, Smallest, Largest, 0);
    KnobController knob;
    knob.resize(100, 100);
    knob.setValueChangeStep(Largest);
    bind(knob, host);
    key(knob, Qt::Key_End);
    key(knob, Qt::Key_PageUp);
    wheel(knob, {0, 1200000});
    QCOMPARE(knob.value(), Largest);
    key(knob, Qt::Key_PageDown);
    key(knob, Qt::Key_Down);
    wheel(knob, {0, -1200000});
    QCOMPARE(knob.value(), Smallest);
    press(knob, At12);
    QCOMPARE(knob.value(), 0);
    release(knob, At12);
    knob.setOperationType(KnobController::Linear);
    press(knob, At12);
    moveTo(knob, {70, -900});
    QCOMPARE(knob.value(), Largest);
    painted(knob);
}

void tst_KnobController::paintsTheMinimumAtSevenAndTheMaximumAtFive()
{
    KnobController knob;
    knob.resize(100, 80);
    QPalette palette;
    palette.setColor(QPalette::Inactive, QPalette::WindowText, Qt::white);
    knob.setPalette(palette);
    knob.setScale(2.0);
    for (const auto& [value, clock] : {std::pair(0, 210.0), {50, 0.0}, {75, 75.0}, {100, 150.0}}) {
        knob.setValue(value);
        const QImage expected = reference(knob.size(), 2.0, [clock = clock](QPainter& painter) {
            painter.setPen(indexPen(Qt::white, 4.0));
            painter.drawLine(QLineF(onClock({50, 40}, clock, 8.0), onClock({50, 40}, clock, 28.0)));
        });
        QVERIFY(imageDifference(painted(knob, 2.0), expected) <= 8);
    }
}

void tst_KnobController::paintsTheIndexLineByTheColourGroup()
{
    QWidget window;
    KnobController knob(&window);
    knob.setGeometry(0, 0, 100, 100);
    QPalette palette;
    palette.setColor(QPalette::Inactive, QPalette::WindowText, Qt::red);
    palette.setColor(QPalette::Active, QPalette::WindowText, Qt::green);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, Qt::blue);
    knob.setPalette(palette);
    knob.setThick(6.0);
    knob.setValue(50);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const QPoint onLine(50, 41);
    knob.clearFocus();
    QCOMPARE(painted(knob).pixelColor(onLine), QColor(Qt::red));
    knob.setFocus();
    QCOMPARE(painted(knob).pixelColor(onLine), QColor(Qt::green));
    knob.setEnabled(false);
    QCOMPARE(painted(knob).pixelColor(onLine), QColor(Qt::blue));
    knob.setEnabled(true);
    knob.setKnobType(KnobController::RotateKnob);
    QCOMPARE(painted(knob).pixelColor(onLine), QColor(Qt::black));
}

void tst_KnobController::paintsThePicturesAtEveryRatio_data()
{
    QTest::addColumn<double>("ratio");
    QTest::addColumn<double>("scale");
    for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
        for (const double scale : {1.0, 1.5})
            QTest::addRow("%g at scale %g", ratio, scale) << ratio << scale;
    }
}

void tst_KnobController::paintsThePicturesAtEveryRatio()
{
    QFETCH(double, ratio);
    QFETCH(double, scale);
    KnobController knob;
    knob.resize(101, 90);
    knob.setBackgroundSvg(m_plain);
    knob.setKnobSvg(m_dial);
    QPalette palette;
    palette.setColor(QPalette::WindowText, Qt::transparent);
    knob.setPalette(palette);
    knob.setScale(scale);
    const QImage expected = reference(knob.size(), ratio, [&](QPainter& painter) {
        for (const auto& [file, side] : {std::pair(m_plain, 60.0), {m_dial, 40.0}}) {
            const double length = side * scale;
            QSvgRenderer(file).render(&painter,
                                      QRectF(50.5 - length / 2, 45 - length / 2, length, length));
        }
    });
    QVERIFY(imageDifference(painted(knob, ratio), expected) <= 1);
    QVERIFY(imageDifference(painted(knob, ratio), expected) <= 1);
}

void tst_KnobController::paintsTheTurnedPictureAtEveryRatio_data()
{
    paintsThePicturesAtEveryRatio_data();
}

void tst_KnobController::paintsTheTurnedPictureAtEveryRatio()
{
    QFETCH(double, ratio);
    QFETCH(double, scale);
    KnobController knob;
    knob.resize(101, 90);
    knob.setKnobType(KnobController::RotateKnob);
    knob.setKnobSvg(m_dial);
    knob.setScale(scale);
    for (const auto& [value, clock] : {std::pair(0, 210.0), {50, 360.0}, {25, 285.0}}) {
        knob.setValue(value);
        const QImage expected = reference(knob.size(), ratio, [&, turn = clock](QPainter& painter) {
            const double length = 40.0 * scale;
            painter.translate(50.5, 45.0);
            painter.rotate(turn);
            QSvgRenderer(m_dial).render(&painter, QRectF(-length / 2, -length / 2, length, length));
        });
        QVERIFY(imageDifference(painted(knob, ratio), expected) <= 1);
        QVERIFY(imageDifference(painted(knob, ratio), expected) <= 1);
    }
}

void tst_KnobController::paintsADisabledKnobTranslucent_data()
{
    QTest::addColumn<KnobController::KnobType>("type");
    QTest::newRow("line") << KnobController::LineIndex;
    QTest::newRow("turned") << KnobController::RotateKnob;
}

void tst_KnobController::paintsADisabledKnobTranslucent()
{
    QFETCH(KnobController::KnobType, type);
    KnobController knob;
    knob.resize(60, 60);
    knob.setKnobType(type);
    // Two layers, of which the lower must not shine through.
    knob.setKnobSvg(m_files.picture("two.svg", 40, 40,
                                    "<rect width=\"40\" height=\"40\" fill=\"#ff0000\"/>"
                                    "<rect width=\"40\" height=\"40\" fill=\"#00ff00\"/>"));
    knob.setKnobDisableOpacity(0.5);
    const QPoint spot(30, 20);
    QCOMPARE(painted(knob).pixelColor(spot), QColor(0, 255, 0));
    knob.setEnabled(false);
    const QColor faded = painted(knob).pixelColor(spot);
    QCOMPARE(faded.red(), 0);
    QVERIFY(std::abs(faded.green() - 128) <= 1);
}

void tst_KnobController::paintsABlurredShadow()
{
    KnobController knob;
    knob.resize(60, 60);
    knob.setThick(0.0);
    knob.setShadowBlur(0.0);
    knob.setShadowSvg(m_shade);
    const QPoint inside(30, 30);
    const QPoint beside(30, 15);
    QCOMPARE(painted(knob).pixelColor(inside), QColor(Qt::red));
    QCOMPARE(painted(knob).pixelColor(beside), QColor(Qt::black));
    knob.setShadowBlur(6.0);
    QVERIFY(painted(knob).pixelColor(beside).red() > 20);
    QVERIFY(painted(knob).pixelColor(inside).red() > 200);
    const int narrow = painted(knob).pixelColor(30, 8).red();
    knob.setScale(2.0);
    knob.setShadowBlur(3.0);
    knob.setScale(1.0);
    QVERIFY(painted(knob).pixelColor(30, 8).red() <= narrow);
}

void tst_KnobController::brokenPicturesAreLeftOut()
{
    KnobController knob;
    knob.resize(60, 60);
    knob.setThick(0.0);
    const QImage blank = painted(knob);
    const QString broken = m_files.file("broken.svg", "<svg><rect");
    for (const QString& path : {m_files.missing(), broken}) {
        knob.setKnobSvg(path);
        knob.setShadowSvg(path);
        knob.setBackgroundSvg(path);
        for (const auto type : {KnobController::LineIndex, KnobController::RotateKnob}) {
            knob.setKnobType(type);
            QCOMPARE(imageDifference(painted(knob), blank), 0);
        }
    }
    QCOMPARE(knob.knobSvg(), broken);
}

void tst_KnobController::paintingAsksTheHostOnce()
{
    TestHost host;
    host.addParameter(Parameter, 0, 300, 20);
    KnobController knob;
    knob.resize(60, 60);
    bind(knob, host);
    host.resetLedger();
    painted(knob);
    QCOMPARE(host.count(TestHost::Operation::GetValue), 1);
    QVERIFY(host.callCount() <= 3);
}

void tst_KnobController::accessibility()
{
    TestHost host;
    host.addParameter(Parameter, -20, 60, 10);
    host.setFormatter([](const QByteArray&, unsigned short, int value) {
        return QByteArray::number(value) + " dB";
    });
    Ledger ledger;
    QWidget window;
    Knob knob(ledger, &window);
    bind(knob, host);
    window.show();
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&knob);
    QVERIFY(interface);
    QCOMPARE(interface->role(), QAccessible::Dial);
    QCOMPARE(interface->text(QAccessible::Value), QStringLiteral("10 dB"));
    QVERIFY(!interface->textInterface());
    QVERIFY(!interface->editableTextInterface());
    QVERIFY(interface->state().focusable);

    QAccessibleValueInterface* number = interface->valueInterface();
    QVERIFY(number);
    QCOMPARE(number->currentValue(), QVariant(10));
    QCOMPARE(number->minimumValue(), QVariant(-20));
    QCOMPARE(number->maximumValue(), QVariant(60));
    QCOMPARE(number->minimumStepSize(), QVariant(1));
    number->setCurrentValue(25.4);
    QCOMPARE(host.value(Parameter, 0), 25);
    number->setCurrentValue(1e300);
    QCOMPARE(host.value(Parameter, 0), 60);
    number->setCurrentValue(QStringLiteral("loud"));
    QCOMPARE(host.value(Parameter, 0), 60);

    QAccessibleActionInterface* action = interface->actionInterface();
    QVERIFY(action);
    const QString increase = QAccessibleActionInterface::increaseAction();
    const QString decrease = QAccessibleActionInterface::decreaseAction();
    QVERIFY(action->actionNames().contains(increase));
    QVERIFY(action->actionNames().contains(decrease));
    action->doAction(decrease);
    QCOMPARE(host.value(Parameter, 0), 59);
    action->doAction(increase);
    QCOMPARE(host.value(Parameter, 0), 60);
    QCOMPARE(ledger.begun, 4);
    QCOMPARE(ledger.ended, 4);

    knob.setEnabled(false);
    QVERIFY(!action->actionNames().contains(increase));
    action->doAction(decrease);
    number->setCurrentValue(0);
    QCOMPARE(host.value(Parameter, 0), 60);
}

void tst_KnobController::accessibleName()
{
    TestHost host;
    QWidget window;
    KnobController knob(&window);
    knob.setObjectName(QStringLiteral("m_pLowGainKnob"));
    const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&knob);
    QCOMPARE(interface->text(QAccessible::Name), QStringLiteral("m_pLowGainKnob"));
    bind(knob, host, "fx_rackfx_prm_3");
    QCOMPARE(interface->text(QAccessible::Name), QStringLiteral("Parameter 3039"));
    knob.setAccessibleName(QStringLiteral("Low gain"));
    QCOMPARE(interface->text(QAccessible::Name), QStringLiteral("Low gain"));
}

void tst_KnobController::valueChangesAreAnnounced()
{
    TestHost host;
    KnobController knob;
    bind(knob, host, "fx_rackfx_prm_3");
    const Announcements announcements;
    host.set("fx_rackfx_prm_3", 0, 33);
    key(knob, Qt::Key_Up);
    const QList<std::pair<const QObject*, QVariant>> expected = {{&knob, 33}, {&knob, 34}};
    QCOMPARE(announcements.values(), expected);
}

ZOLTA_TEST_MAIN(tst_KnobController)

#include "tst_KnobController.moc"
