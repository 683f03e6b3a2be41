// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/DataTable.h"
#include "tests/support/TestObject.h"
#include "widgets/PrerenderedSvg.h"

#include <QFile>

#include <algorithm>

namespace {

constexpr QSize Size(40, 40);

/// A picture of \a width columns whose pixels are repeated \a colours.
QImage imageOf(const QList<QRgb>& colours, int width, QImage::Format format)
{
    QImage image(width, 6, format);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, colours[(y * width + x) % colours.size()]);
    return image;
}

QByteArray bytesOf(const QImage& image)
{
    PrerenderedSvg svg({20, 10}, {-0.25, 0.0, 1.5, 1.0});
    svg.add(Size, {image, {-3, 7}});
    return svg.bytes();
}

QImage simpleImage() { return imageOf({0xff102030, 0xff405060}, 3, QImage::Format_RGB32); }

} // namespace

class tst_PrerenderedSvg : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesBackWhatWasAdded_data();
    void givesBackWhatWasAdded();
    void storesEqualPixelsOnce();
    void tellsSizesApart();
    void refusesBytesThatEndEarly();
    void refusesPixelsThatDoNotFit_data();
    void refusesPixelsThatDoNotFit();
    void isFoundForResourcesOnly();
};

void tst_PrerenderedSvg::givesBackWhatWasAdded_data()
{
    addColumns<QList<QRgb>, int, QImage::Format>("colours", "width", "format");
    constexpr auto alpha = QImage::Format_ARGB32_Premultiplied;
    const QList<QRgb> nothing(1, 0);
    const QList<QRgb> changing = {1, 2, 3, 4, 5, 6, 7};
    QTest::newRow("one pixel a row") << changing << 1 << alpha;
    QTest::newRow("nothing but one colour") << nothing << 9 << alpha;
    QTest::newRow("no two neighbours equal") << changing << 9 << alpha;
    QTest::newRow("pairs") << QList<QRgb>{1, 1, 2, 2} << 9 << alpha;
    QTest::newRow("runs at the start") << QList<QRgb>{1, 1, 1, 1, 2, 3} << 9 << alpha;
    QTest::newRow("runs at the end") << QList<QRgb>{2, 3, 3, 2, 1, 1, 1} << 7 << alpha;
    QTest::newRow("run after run") << QList<QRgb>{1, 1, 1, 2, 2, 2, 2, 3, 3, 3} << 11 << alpha;
    QTest::newRow("opaque") << QList<QRgb>{0xff010203} << 5 << QImage::Format_RGB32;
}

void tst_PrerenderedSvg::givesBackWhatWasAdded()
{
    QFETCH(QList<QRgb>, colours);
    QFETCH(int, width);
    QFETCH(QImage::Format, format);
    const QImage image = imageOf(colours, width, format);
    const QByteArray bytes = bytesOf(image);
    const auto svg = PrerenderedSvg::read(bytes);
    QVERIFY(svg);
    QCOMPARE(svg->defaultSize(), QSize(20, 10));
    QCOMPARE(svg->extent(), QRectF(-0.25, 0.0, 1.5, 1.0));
    const auto raster = svg->raster(Size);
    QVERIFY(raster);
    QCOMPARE(raster->offset, QPoint(-3, 7));
    QCOMPARE(raster->image.format(), format);
    QCOMPARE(raster->image, image);
}

void tst_PrerenderedSvg::storesEqualPixelsOnce()
{
    QImage ground(500, 500, QImage::Format_RGB32);
    ground.fill(Qt::darkGray);
    QCOMPARE_LT(bytesOf(ground).size(), 200);
}

void tst_PrerenderedSvg::tellsSizesApart()
{
    PrerenderedSvg svg({20, 10}, {});
    for (const int width : {4, 8})
        svg.add({width, 4}, {imageOf({5, 6}, width, QImage::Format_RGB32), {}});
    const QByteArray bytes = svg.bytes();
    const auto read = PrerenderedSvg::read(bytes);
    QVERIFY(read);
    QCOMPARE(read->raster({4, 4})->image.width(), 4);
    QCOMPARE(read->raster({8, 4})->image.width(), 8);
    for (const QSize& other : {QSize(4, 8), QSize(6, 4), QSize(20, 10), QSize()})
        QVERIFY(!read->raster(other));
}

void tst_PrerenderedSvg::refusesBytesThatEndEarly()
{
    const QByteArray bytes = bytesOf(simpleImage());
    QVERIFY(PrerenderedSvg::read(bytes));
    for (qsizetype length = 0; length < bytes.size(); ++length)
        QVERIFY2(!PrerenderedSvg::read(bytes.left(length)), QByteArray::number(length));
}

void tst_PrerenderedSvg::refusesPixelsThatDoNotFit_data()
{
    QTest::addColumn<int>("head");
    QTest::newRow("too many pixels") << 2 * 19;
    QTest::newRow("too few pixels") << 2 * 17;
    QTest::newRow("a run that is too long") << 2 * 19 + 1;
    QTest::newRow("a run that is too short") << 2 * 17 + 1;
    QTest::newRow("no pixels") << 0;
}

void tst_PrerenderedSvg::refusesPixelsThatDoNotFit()
{
    QFETCH(int, head);
    QByteArray bytes = bytesOf(simpleImage());
    char* first = bytes.data() + bytes.size() - 18 * 4 - 4;
    QCOMPARE(*first, char(2 * 18));
    *first = static_cast<char>(head);
    const auto svg = PrerenderedSvg::read(bytes);
    QVERIFY(svg);
    QVERIFY(!svg->raster(Size));
}

void tst_PrerenderedSvg::isFoundForResourcesOnly()
{
    for (const char* path : {"", ":", ":/image/none.svg", "/image/none.svg", "picture.svg"})
        QVERIFY2(!PrerenderedSvg::find(QString::fromLatin1(path)), path);
}

QTEST_APPLESS_MAIN(tst_PrerenderedSvg)
#include "tst_PrerenderedSvg.moc"
