// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/PlotAxes.h"
#include "tests/support/TestObject.h"

#include <cmath>

namespace {

bool isNear(double a, double b) { return std::abs(a - b) < 1e-9 * std::max(1.0, std::abs(b)); }

} // namespace

class tst_PlotAxes : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void rectangleAtTheDesignSize();
    void rectangleScalesWithTheHeight();
    void frequencies();
    void gains();
    void inverses();
    void edgesBelongToThePlot();
    void nothingIsInsideAPlotWithoutRoom();
};

void tst_PlotAxes::rectangleAtTheDesignSize()
{
    const PlotAxes axes(679, 192, 12);
    QCOMPARE(axes.unit(), 1.0);
    QCOMPARE(axes.left(), 43.5);
    QCOMPARE(axes.top(), 9.5);
    QCOMPARE(axes.width(), 621.0);
    QCOMPARE(axes.height(), 154.0);
    QCOMPARE(axes.right(), 664.5);
    QCOMPARE(axes.bottom(), 163.5);
    QCOMPARE(axes.centre(), 86.5);
    QCOMPARE(axes.range(), 12.0);
}

void tst_PlotAxes::rectangleScalesWithTheHeight()
{
    // The width gives way to the margins, which follow the height.
    const PlotAxes axes(1000, 384, 40);
    QCOMPARE(axes.unit(), 2.0);
    QCOMPARE(axes.left(), 87.0);
    QCOMPARE(axes.top(), 19.0);
    QCOMPARE(axes.width(), 884.0);
    QCOMPARE(axes.height(), 308.0);
    const PlotAxes odd(500, 96, 2);
    QCOMPARE(odd.left(), 21.75);
    QCOMPARE(odd.width(), 471.0);
    QCOMPARE(odd.bottom(), 81.75);
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
}

void tst_PlotAxes::nothingIsInsideAPlotWithoutRoom()
{
    const PlotAxes narrow(30, 192, 12);
    for (int x = -50; x < 100; ++x)
        QVERIFY(!narrow.contains(x, 86));
}

QTEST_APPLESS_MAIN(tst_PlotAxes)

#include "tst_PlotAxes.moc"
