// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/WheelAccumulator.h"
#include "tests/support/Columns.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QWheelEvent>

#include <limits>

using CommonController_MemAPI::WheelAccumulator;

Q_DECLARE_METATYPE(Qt::KeyboardModifiers)

namespace {

constexpr int Largest = std::numeric_limits<int>::max();
constexpr int Smallest = std::numeric_limits<int>::min();

QWheelEvent turned(QPoint angle, Qt::KeyboardModifiers modifiers = {}, bool inverted = false)
{
    return {{}, {}, {}, angle, Qt::NoButton, modifiers, Qt::NoScrollPhase, inverted};
}

/// Whether \a wheel has \a remainder left: one step comes with just what is missing, none with
/// less.
bool keeps(const WheelAccumulator& wheel, int remainder, int divisor = 120)
{
    const int sign = remainder < 0 ? -1 : 1;
    WheelAccumulator enough = wheel;
    WheelAccumulator tooLittle = wheel;
    return enough.take(sign * divisor - remainder, divisor) == sign &&
           tooLittle.take(sign * (divisor - 1) - remainder, divisor) == 0;
}

} // namespace

class tst_WheelAccumulator : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsTheLargerComponent_data();
    void readsTheLargerComponent();
    void followsTheWheelWhereTheSystemInvertsIt();
    void keepsTheRemainder_data();
    void keepsTheRemainder();
    void discardsTheRemainderOnReversal();
    void keepsTheRemainderOnNoMovement();
    void addsUpFineMovements();
    void makesSteps_data();
    void makesSteps();
    void doesNotOverflow();
};

void tst_WheelAccumulator::readsTheLargerComponent_data()
{
    addColumns<QPoint, int>("angle", "delta");
    QTest::newRow("vertical") << QPoint(0, 120) << 120;
    QTest::newRow("horizontal") << QPoint(-120, 0) << -120;
    QTest::newRow("more x") << QPoint(-30, 20) << -30;
    QTest::newRow("more y") << QPoint(20, -30) << -30;
    QTest::newRow("as much") << QPoint(50, -50) << -50;
    QTest::newRow("none") << QPoint() << 0;
    QTest::newRow("smallest") << QPoint(Smallest, Largest) << Smallest;
}

void tst_WheelAccumulator::readsTheLargerComponent()
{
    QFETCH(QPoint, angle);
    QTEST(WheelAccumulator::delta(turned(angle)), "delta");
}

void tst_WheelAccumulator::followsTheWheelWhereTheSystemInvertsIt()
{
    QCOMPARE(WheelAccumulator::delta(turned({0, -120}, {}, true)), 120);
    QCOMPARE(WheelAccumulator::delta(turned({30, 0}, {}, true)), -30);
    QCOMPARE(WheelAccumulator::delta(turned({0, Smallest}, {}, true)), Largest);
}

void tst_WheelAccumulator::keepsTheRemainder_data()
{
    addColumns<int, int, int, int>("delta", "divisor", "steps", "remainder");
    QTest::newRow("less") << 119 << 120 << 0 << 119;
    QTest::newRow("just") << 120 << 120 << 1 << 0;
    QTest::newRow("more") << 250 << 120 << 2 << 10;
    QTest::newRow("back, less") << -119 << 120 << 0 << -119;
    QTest::newRow("back, more") << -130 << 120 << -1 << -10;
    QTest::newRow("fine") << 370 << 360 << 1 << 10;
}

void tst_WheelAccumulator::keepsTheRemainder()
{
    QFETCH(int, delta);
    QFETCH(int, divisor);
    QFETCH(int, steps);
    WheelAccumulator wheel;
    QCOMPARE(wheel.take(delta, divisor), std::int64_t{steps});
    QFETCH(int, remainder);
    QVERIFY(keeps(wheel, remainder, divisor));
}

void tst_WheelAccumulator::discardsTheRemainderOnReversal()
{
    WheelAccumulator wheel;
    wheel.take(100, 120);
    QCOMPARE(wheel.take(-30, 120), std::int64_t{0});
    QVERIFY(keeps(wheel, -30));
    QCOMPARE(wheel.take(119, 120), std::int64_t{0});
    QVERIFY(keeps(wheel, 119));
}

void tst_WheelAccumulator::keepsTheRemainderOnNoMovement()
{
    WheelAccumulator wheel;
    wheel.take(-100, 120);
    QCOMPARE(wheel.take(0, 120), std::int64_t{0});
    QVERIFY(keeps(wheel, -100));
}

void tst_WheelAccumulator::addsUpFineMovements()
{
    WheelAccumulator wheel;
    std::int64_t steps = 0;
    for (int i = 0; i < 48; ++i)
        steps += wheel.take(15, 120);
    QCOMPARE(steps, std::int64_t{6});
    QVERIFY(keeps(wheel, 0));
}

void tst_WheelAccumulator::makesSteps_data()
{
    addColumns<int, int, Qt::KeyboardModifiers, int>("notches", "valueStep", "modifiers", "steps");
    const Qt::KeyboardModifiers none;
    const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
    QTest::newRow("one") << 3 << 1 << none << 3;
    QTest::newRow("coarse") << 3 << 5 << none << 15;
    QTest::newRow("fine one") << 3 << 1 << shift << 1;
    QTest::newRow("fine one, too little") << 2 << 1 << shift << 0;
    QTest::newRow("fine coarse") << 3 << 2 << shift << 3;
    QTest::newRow("fine among others") << -3 << 1 << (shift | Qt::ControlModifier) << -1;
    QTest::newRow("other modifiers") << -3 << 2 << Qt::KeyboardModifiers(Qt::AltModifier) << -6;
}

void tst_WheelAccumulator::makesSteps()
{
    QFETCH(int, notches);
    QFETCH(int, valueStep);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(int, steps);
    WheelAccumulator wheel;
    std::int64_t sum = 0;
    for (int i = 0; i < std::abs(notches); ++i)
        sum += wheel.steps(turned({0, notches > 0 ? 120 : -120}, modifiers), valueStep);
    QCOMPARE(sum, std::int64_t{steps});
}

void tst_WheelAccumulator::doesNotOverflow()
{
    WheelAccumulator wheel;
    wheel.take(119, 120);
    QCOMPARE(wheel.take(Largest, 120), (std::int64_t{Largest} + 119) / 120);
    QCOMPARE(wheel.steps(turned({0, Smallest}), Largest),
             std::int64_t{Smallest} / 120 * std::int64_t{Largest});
}

ZOLTA_TEST_MAIN(tst_WheelAccumulator)

#include "tst_WheelAccumulator.moc"
