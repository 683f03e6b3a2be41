// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/PeakDisplay.h"
#include "host/window/StripMeters.h"
#include "tests/support/TestObject.h"

#include <QImage>

#include <cmath>

class tst_StripMeters : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void readWhatTheyShow_data();
    void readWhatTheyShow();
    void displayTakesTheHigherSide();
    void keyClearsTheDisplay();

private:
    static bool isLit(QRgb color) { return qGreen(color) > 0x80; }
};

void tst_StripMeters::readWhatTheyShow_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 2.0}) {
        for (const int level : {0, -3, -6, -9, -12, -15, -18, -24, -30, -40, -50})
            QTest::addRow("%d dB, scale %g", level, scale) << level << scale;
    }
}

// The bar ends at the mark of its level: beside a tick, and there only.
void tst_StripMeters::readWhatTheyShow()
{
    QFETCH(const int, level);
    QFETCH(const double, scale);
    StripMeters meters;
    meters.resize(38, 284);
    meters.show(0, 10 * level);
    QImage picture(meters.size() * scale, QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::black);
    meters.render(&picture);
    const auto bar = static_cast<int>(scale * (meters.width() - 8));
    int top = static_cast<int>(scale * 32);
    while (top < picture.height() && !isLit(picture.pixel(bar, top)))
        ++top;
    QVERIFY(std::abs(top / scale - meters.positionOf(10 * level)) <= 1.5);
    const auto tick = static_cast<int>(scale * (meters.width() - 22.5));
    const auto tickRow = static_cast<int>(scale * meters.positionOf(10 * level));
    QVERIFY(qGray(picture.pixel(tick, tickRow)) > 0x30);
}

void tst_StripMeters::displayTakesTheHigherSide()
{
    StripMeters meters;
    meters.setPair(true);
    meters.show(0, -200);
    meters.show(1, -100);
    meters.show(0, -300);
    QCOMPARE(meters.display().highest(), -100);
    meters.show(1, 0);
    QVERIFY(!meters.display().hasClipped()); // full scale is not too much
    meters.show(1, 1);
    QVERIFY(meters.display().hasClipped());
}

void tst_StripMeters::keyClearsTheDisplay()
{
    StripMeters meters;
    meters.show(0, 20);
    QTest::keyClick(&meters.display(), Qt::Key_Space);
    QVERIFY(!meters.display().hasClipped());
    meters.show(0, -50);
    QCOMPARE(meters.display().text(), QStringLiteral("-5.0"));
}

ZOLTA_TEST_MAIN(tst_StripMeters)

#include "tst_StripMeters.moc"
