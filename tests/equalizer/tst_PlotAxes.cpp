// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/PlotAxes.h"
#include "tests/support/TestObject.h"

#include <QPointF>
#include <QRectF>

#include <cmath>

namespace {

bool isNear(double a, double b) { return std::abs(a - b) < 1e-9 * std::max(1.0, std::abs(b)); }

} // namespace

class tst_PlotAxes : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void rectangle_data();
    void rectangle();
    void frequencies();
    void gains();
    void inverses();
    void edgesBelongToThePlot();
};

void tst_PlotAxes::rectangle_data()
{
    QTest::addColumn<double>("width");
    QTest::addColumn<double>("height");
    QTest::addColumn<QRectF>("plot");
    QTest::newRow("design size") << 679.0 << 192.0 << QRectF(43.5, 9.5, 621.0, 154.0);
    // The width gives way to the margins, which follow the height.
    QTest::newRow("high") << 1000.0 << 384.0 << QRectF(87.0, 19.0, 884.0, 308.0);
    QTest::newRow("low") << 500.0 << 96.0 << QRectF(21.75, 4.75, 471.0, 77.0);
}

void tst_PlotAxes::rectangle()
{
    QFETCH(const double, width);
    QFETCH(const double, height);
    QFETCH(const QRectF, plot);
    const PlotAxes axes(width, height, 12);
    QCOMPARE(axes.unit(), height / 192.0);
    QCOMPARE(QRectF(axes.left(), axes.top(), axes.width(), axes.height()), plot);
    QCOMPARE(QPointF(axes.right(), axes.bottom()), plot.bottomRight());
    QCOMPARE(axes.centre(), plot.center().y());
    QCOMPARE(axes.range(), 12.0);
}

void tst_PlotAxes::frequencies()
{
    const PlotAxes axes(679, 192, 12);
    QVERIFY(isNear(axes.x(20), 43.5));
    QVERIFY(isNear(axes.x(200), 250.5));
    QVERIFY(isNear(axes.x(2000), 457.5));
    QVERIFY(isNear(axes.x(20000), 664.5));
    QVERIFY(isNear(axes.x(200000), 871.5));
    QVERIFY(isNear(axes.frequency(250.5), 200.0));
    QVERIFY(isNear(axes.frequency(43.5 - 207.0), 2.0));
}

void tst_PlotAxes::gains()
{
    const PlotAxes axes(679, 192, 4);
    QCOMPARE(axes.y(4), 9.5);
    QCOMPARE(axes.y(0), 86.5);
    QCOMPARE(axes.y(-4), 163.5);
    QCOMPARE(axes.y(1), 67.25);
    QCOMPARE(axes.y(20), -298.5);
    QVERIFY(isNear(axes.gain(67.25), 1.0));
    QVERIFY(isNear(axes.gain(-298.5), 20.0));
}

void tst_PlotAxes::inverses()
{
    for (const double range : {40.0, 12.0, 2.0}) {
        const PlotAxes axes(777, 311, range);
        for (double hz = 20; hz <= 20000; hz *= 1.3)
            QVERIFY(isNear(axes.frequency(axes.x(hz)), hz));
        for (double db = -25; db <= 25; db += 0.7)
            QVERIFY(std::abs(axes.gain(axes.y(db)) - db) < 1e-9);
    }
}

void tst_PlotAxes::edgesBelongToThePlot()
{
    const PlotAxes axes(679, 192, 12);
    for (const double x : {43.5, 300.0, 664.5})
        for (const double y : {9.5, 80.0, 163.5})
            QVERIFY(axes.contains(x, y));
    for (const double x : {43.4, 664.6})
        QVERIFY(!axes.contains(x, 80));
    for (const double y : {9.4, 163.6})
        QVERIFY(!axes.contains(300, y));
    const PlotAxes withoutRoom(30, 192, 12);
    for (int x = -50; x < 100; ++x)
        QVERIFY(!withoutRoom.contains(x, 86));
}

QTEST_APPLESS_MAIN(tst_PlotAxes)

#include "tst_PlotAxes.moc"
