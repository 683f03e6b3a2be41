// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/LinearDrag.h"
#include "tests/support/Columns.h"
#include "tests/support/TestObject.h"

#include <limits>

using CommonController_MemAPI::LinearDrag;

namespace {

constexpr int Largest = std::numeric_limits<int>::max();
constexpr int Smallest = std::numeric_limits<int>::min();

} // namespace

class tst_LinearDrag : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void pixelsPerStep_data();
    void pixelsPerStep();
    void raisesRightAndUp_data();
    void raisesRightAndUp();
    void truncatesStepsTowardsTheStart();
    void dividesByTheScale();
    void fineIsFourTimesSlowerAndIgnoresTheStep();
    void onlyShiftAloneIsFine();
    void reanchorsAtTheLastPoint();
    void doesNotOverflow();
};

void tst_LinearDrag::pixelsPerStep_data()
{
    addColumns<int, int, int>("minimum", "maximum", "pixels");
    QTest::newRow("0..1, lowered to 20") << 0 << 1 << 20;
    QTest::newRow("0..5, lowered to 20") << 0 << 5 << 20;
    QTest::newRow("0..9") << 0 << 9 << 20;
    QTest::newRow("0..10") << 0 << 10 << 18;
    QTest::newRow("-50..50") << -50 << 50 << 1;
    QTest::newRow("0..98") << 0 << 98 << 2;
    QTest::newRow("0..300, raised to 1") << 0 << 300 << 1;
    QTest::newRow("one value") << 7 << 7 << 20;
    QTest::newRow("upside down by one") << 1 << 0 << 1;
    QTest::newRow("upside down") << 9 << 0 << 1;
    QTest::newRow("widest") << Smallest << Largest << 1;
    QTest::newRow("widest, upside down") << Largest << Smallest << 1;
}

void tst_LinearDrag::pixelsPerStep()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QTEST(LinearDrag::pixelsPerStep(minimum, maximum), "pixels");
}

void tst_LinearDrag::raisesRightAndUp_data()
{
    addColumns<QPoint, int>("by", "value");
    QTest::newRow("right") << QPoint(40, 0) << 52;
    QTest::newRow("up") << QPoint(0, -40) << 52;
    QTest::newRow("left") << QPoint(-40, 0) << 48;
    QTest::newRow("down") << QPoint(0, 40) << 48;
    QTest::newRow("right and up") << QPoint(20, -20) << 52;
    QTest::newRow("right and down") << QPoint(30, 30) << 50;
}

void tst_LinearDrag::raisesRightAndUp()
{
    QFETCH(QPoint, by);
    LinearDrag drag;
    drag.begin({7, 9}, 50, false);
    QTEST(drag.valueAt(QPoint(7, 9) + by, 0, 4, 1.0, 1), "value");
}

void tst_LinearDrag::truncatesStepsTowardsTheStart()
{
    LinearDrag drag;
    drag.begin({0, 0}, 3, false);
    QCOMPARE(drag.valueAt({19, 0}, 0, 4, 1.0, 1), 3);
    QCOMPARE(drag.valueAt({-19, 0}, 0, 4, 1.0, 1), 3);
    QCOMPARE(drag.valueAt({20, 0}, 0, 4, 1.0, 1), 4);
    QCOMPARE(drag.valueAt({20, 0}, 0, 4, 1.0, 7), 10);
}

void tst_LinearDrag::dividesByTheScale()
{
    LinearDrag drag;
    drag.begin({0, 0}, 0, false);
    QCOMPARE(drag.valueAt({60, 0}, 0, 4, 1.5, 1), 2);
    QCOMPARE(drag.valueAt({59, 0}, 0, 4, 1.5, 1), 1);
}

void tst_LinearDrag::fineIsFourTimesSlowerAndIgnoresTheStep()
{
    LinearDrag drag;
    drag.begin({0, 0}, 0, true);
    QCOMPARE(drag.valueAt({79, 0}, 0, 4, 1.0, 7), 0);
    QCOMPARE(drag.valueAt({80, 0}, 0, 4, 1.0, 7), 1);
}

void tst_LinearDrag::onlyShiftAloneIsFine()
{
    QVERIFY(LinearDrag::isFine(Qt::ShiftModifier));
    QVERIFY(!LinearDrag::isFine(Qt::NoModifier));
    QVERIFY(!LinearDrag::isFine(Qt::ShiftModifier | Qt::AltModifier));
}

void tst_LinearDrag::reanchorsAtTheLastPoint()
{
    LinearDrag drag;
    drag.begin({0, 0}, 10, false);
    drag.setLastPoint({30, 0});
    drag.reanchor(11, true);
    QVERIFY(drag.isFine());
    QCOMPARE(drag.valueAt({30, 0}, 0, 4, 1.0, 1), 11);
    QCOMPARE(drag.valueAt({110, 0}, 0, 4, 1.0, 1), 12);
}

void tst_LinearDrag::doesNotOverflow()
{
    LinearDrag drag;
    drag.begin({0, 0}, Largest, false);
    QCOMPARE(drag.valueAt({10, 0}, Smallest, Largest, 1.0, Largest), Largest);
    QCOMPARE(drag.valueAt({-10, 0}, Smallest, Largest, 1.0, Largest), Smallest);
    QCOMPARE(drag.valueAt({Smallest, Largest}, Smallest, Largest, 0.5, 1), Smallest);
}

QTEST_APPLESS_MAIN(tst_LinearDrag)

#include "tst_LinearDrag.moc"
