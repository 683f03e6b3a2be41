// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/SpectrumRaster.h"
#include "tests/support/TestObject.h"

#include <limits>

class tst_SpectrumRaster : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void fillsBelowACurve();
    void linesCoverWhatTheyTouch_data();
    void linesCoverWhatTheyTouch();
    void linesReachHalfWayToTheirNeighbours();
    void dotsAreRound();
    void whatIsOutsideIsCutOff();

private:
    static constexpr int width = 6;
    static constexpr int height = 10;

    int gray(int x, int y) const { return qGray(m_raster.image().pixel(x, y)); }

    SpectrumRaster m_raster;
};

void tst_SpectrumRaster::init()
{
    TestObject::init();
    QImage ground(width, height, QImage::Format_RGB32);
    ground.fill(Qt::black);
    m_raster.setGround(ground, Qt::white);
}

// Fading downwards.
void tst_SpectrumRaster::fillsBelowACurve()
{
    m_raster.fill(std::vector<float>{0.0F, 3.0F, 3.4F, 9.5F, 20.0F, -5.0F});
    const int tops[width] = {0, 3, 4, 10, 10, 0};
    for (int x = 0; x < width; ++x) {
        for (int y = 0; y < height; ++y)
            QCOMPARE(gray(x, y) > 0, y >= tops[x]);
    }
    for (int y = 1; y < height; ++y)
        QVERIFY(gray(0, y) < gray(0, y - 1));
    m_raster.clear();
    QCOMPARE(gray(0, 0), 0);
}

void tst_SpectrumRaster::linesCoverWhatTheyTouch_data()
{
    QTest::addColumn<float>("y");
    QTest::addColumn<float>("thickness");
    QTest::addColumn<QList<int>>("column"); // parts of 256 from y = 3 on
    QTest::newRow("one pixel") << 4.5F << 1.0F << QList<int>{0, 255, 0};
    QTest::newRow("between two") << 4.0F << 1.0F << QList<int>{127, 127, 0};
    QTest::newRow("thin") << 4.5F << 0.5F << QList<int>{0, 127, 0};
    QTest::newRow("thick") << 4.5F << 2.0F << QList<int>{127, 255, 127};
}

void tst_SpectrumRaster::linesCoverWhatTheyTouch()
{
    QFETCH(const float, y);
    QFETCH(const float, thickness);
    QFETCH(const QList<int>, column);
    m_raster.drawLine(std::vector<float>(6, y), thickness, Qt::white);
    for (int i = 0; i < 3; ++i)
        QVERIFY2(std::abs(gray(2, 3 + i) - column[i]) <= 1,
                 qPrintable(QString::number(gray(2, 3 + i))));
}

void tst_SpectrumRaster::linesReachHalfWayToTheirNeighbours()
{
    m_raster.drawLine(std::vector<float>{2.5F, 2.5F, 8.5F, 8.5F}, 1.0F, Qt::white);
    QVERIFY(gray(1, 2) > 250 && gray(1, 5) > 250 && gray(1, 6) == 0);
    QVERIFY(gray(2, 4) == 0 && gray(2, 5) > 250 && gray(2, 8) > 250);
    QVERIFY(gray(0, 3) == 0 && gray(3, 7) == 0 && gray(4, 2) == 0);
}

void tst_SpectrumRaster::dotsAreRound()
{
    m_raster.drawDots(std::vector<QPointF>{{3.0, 5.0}}, 1.5F, QColor(255, 0, 0));
    QCOMPARE(m_raster.image().pixelColor(2, 4), QColor(255, 0, 0));
    QCOMPARE(m_raster.image().pixelColor(3, 5), QColor(255, 0, 0));
    QVERIFY(gray(1, 4) > 0 && gray(1, 4) < gray(2, 4));
    QVERIFY(gray(1, 3) < gray(1, 4));
}

void tst_SpectrumRaster::whatIsOutsideIsCutOff()
{
    m_raster.clear();
    const QImage before = m_raster.image().copy();
    m_raster.drawLine(std::vector<float>{-20.0F, -20.0F, -20.0F}, 2.0F, Qt::white);
    m_raster.drawLine(std::vector<float>{30.0F, 30.0F, 30.0F}, 2.0F, Qt::white);
    m_raster.drawLine(std::vector<float>(), 2.0F, Qt::white);
    m_raster.drawDots(std::vector<QPointF>{{-50.0, 5.0}, {3.0, 90.0}}, 1.5F, Qt::white);
    QCOMPARE(m_raster.image(), before);
    m_raster.drawLine(std::vector<float>(100, 0.0F), 4.0F, Qt::white);
    m_raster.drawDots(std::vector<QPointF>{{0.0, 0.0}, {6.0, 10.0}}, 3.0F, Qt::white);
    QVERIFY(gray(5, 1) > 250 && gray(5, 9) > 250);
}

QTEST_APPLESS_MAIN(tst_SpectrumRaster)
#include "tst_SpectrumRaster.moc"
