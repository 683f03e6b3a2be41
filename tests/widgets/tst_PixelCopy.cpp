// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Columns.h"
#include "tests/support/TestObject.h"
#include "widgets/PixelCopy.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QRegion>

namespace {

constexpr QSize Size(60, 50);
const QRect Source(3, 2, 40, 30);
constexpr QPoint Target(7, 9);
const QRect Clip(10, 12, 25, 18);
const QRect Covered(15, 14, 12, 9);

/// Every pixel another one, in all degrees of translucency.
QImage picture()
{
    QImage image(Size, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, QColor(4 * x, 5 * y, 2 * (x + y), (37 * x + 11 * y) % 256));
    }
    return image;
}

QImage ground()
{
    QImage image(Size, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, QColor(255 - 4 * x, 3 * y, (7 * x * y) % 256));
    }
    return image;
}

/// What a plain copy leaves of the ground within \a region.
QImage expected(const QRegion& region, double opacity)
{
    QImage image = ground();
    for (const QRect& rect : region) {
        QPainter painter(&image);
        painter.setClipRect(rect);
        painter.setOpacity(opacity);
        painter.drawImage(Target, picture(), Source);
    }
    return image;
}

} // namespace

class tst_PixelCopy : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void copiesPixels_data();
    void copiesPixels();
};

void tst_PixelCopy::copiesPixels_data()
{
    addColumns<QRegion, bool, double, QTransform>("places", "isClipped", "opacity", "transform");
    const QRegion everything(QRect(QPoint(), Size));
    QRegion rows;
    for (int y = 0; y < Size.height(); y += 7)
        rows += QRect(y, y, 20, 3);
    const QRegion apart = QRegion(0, 0, 12, 14) | QRegion(30, 20, 5, 9) | QRegion(59, 49, 1, 1);
    const std::pair<const char*, QRegion> places[] = {
        {"everywhere", everything}, {"in three places", apart}, {"in rows", rows}};
    const std::pair<const char*, QTransform> transforms[] = {
        {"plain", {}},
        {"moved", QTransform::fromTranslate(-5, 8)},
        {"moved by a fraction", QTransform::fromTranslate(1.5, 0.25)},
        {"scaled", QTransform::fromScale(1.25, 3)}};
    for (const auto& [placeName, region] : places) {
        for (const auto& [name, transform] : transforms) {
            for (const double opacity : {1.0, 0.6}) {
                for (const bool isClipped : {false, true})
                    QTest::addRow("%s, %s, %g%s", placeName, name, opacity,
                                  isClipped ? ", clipped" : "")
                        << region << isClipped << opacity << transform;
            }
        }
    }
}

void tst_PixelCopy::copiesPixels()
{
    QFETCH(QRegion, places);
    QFETCH(bool, isClipped);
    QFETCH(double, opacity);
    QFETCH(QTransform, transform);
    for (const QRect& covered : {QRect(), Covered, QRect(QPoint(), Size)}) {
        QImage image = ground();
        QPainter painter(&image);
        painter.paintEngine()->setSystemClip(places);
        if (isClipped)
            painter.setClipRect(Clip);
        painter.setTransform(transform);
        painter.setOpacity(0.3);
        copyPixels(painter, Target, picture(), Source, opacity, covered);

        QCOMPARE(painter.worldTransform(), transform);
        QCOMPARE(painter.opacity(), 0.3);
        QCOMPARE(painter.hasClipping(), isClipped);
        painter.end();
        QCOMPARE(image, expected((isClipped ? places & Clip : places) - covered, opacity));
    }
}

ZOLTA_TEST_MAIN(tst_PixelCopy)

#include "tst_PixelCopy.moc"
