// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/RoundGainReductionMeterController.h"
#include "controls/RoundMeterController.h"
#include "controls/RoundShapes.h"
#include "tests/controls/MeterTesting.h"
#include "tests/support/Columns.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QPainter>

using namespace CommonController_MemAPI;
using namespace MeterTesting;

namespace {

const QColor Unlit(0x33, 0x33, 0x33);
const QColor Over(0xfc, 0x67, 0x69);
const QColor Upper(0xf9, 0xe2, 0x43);
const QColor Lower(0x39, 0xca, 0x74);
const QColor Ground(Qt::white);

/// As the editor places it: 12 by 318, with a bar of 302 pixels from y 16 on and a lamp at the top.
class RoundProbe : public RoundMeterController
{
public:
    RoundProbe()
    {
        resize(12, 318);
        setPalette(meterPalette());
    }
};

/// 102 pixels high, two for each segment.
class ReductionProbe : public RoundGainReductionMeterController
{
public:
    ReductionProbe()
    {
        resize(12, 102);
        setPalette(meterPalette());
    }
};

/// From the top of a RoundProbe, where the bar begins that shows so many segments.
int topOf(int segments) { return qRound(16 + 302.0 * (51 - segments) / 51); }

/// The rows of a picture as they are lit along \a x.
QList<QColor> column(const QImage& image, int x)
{
    QList<QColor> colours;
    for (int y = 0; y < image.height(); ++y)
        colours.append(image.pixelColor(x, y));
    return colours;
}

} // namespace

class tst_RoundMeters : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNewMeterShowsItsTrackOnly();
    void endsAreRound();
    void lampGrowsWhenLit();
    void theBarReachesItsLevel_data();
    void theBarReachesItsLevel();
    void shortBarsStayInsideTheTrack();
    void theEndKeepsItsOutline_data();
    void theEndKeepsItsOutline();
    void theBarIsSymmetric_data();
    void theBarIsSymmetric();
    void gainReductionStartsEmpty();
    void gainReductionFillsFromTheTop_data();
    void gainReductionFillsFromTheTop();
    void gainReductionHasNoOver();
    void aTickRepaintsItsStripOnly();
    void copiesHaveThePixelsOfFilling_data();
    void copiesHaveThePixelsOfFilling();
};

void tst_RoundMeters::aNewMeterShowsItsTrackOnly()
{
    RoundProbe meter;
    const QImage image = shown(meter);
    for (int y = 0; y < image.height(); ++y) {
        for (const int x : {0, 3, 8, 11})
            QCOMPARE(image.pixelColor(x, y), Ground);
    }
    for (int y = 18; y < 316; ++y) {
        for (int x = 4; x < 8; ++x)
            QCOMPARE(image.pixelColor(x, y), Unlit);
    }
    QCOMPARE(image.pixelColor(5, 3), Unlit); // the unlit lamp, 4 by 4
    QCOMPARE(image.pixelColor(5, 0), Ground);
    QCOMPARE(image.pixelColor(5, 5), Ground);
    QCOMPARE(image.pixelColor(5, 10), Ground);
}

void tst_RoundMeters::endsAreRound()
{
    RoundProbe meter;
    meter.setMeterWidth(10);
    meter.setValue(0);
    const QImage image = shown(meter);
    for (const int y : {16, 317}) {
        QCOMPARE(image.pixelColor(1, y), Ground);
        QCOMPARE(image.pixelColor(10, y), Ground);
        QVERIFY(image.pixelColor(5, y) != Ground);
    }
    // The round end of a level lies on the track.
    meter.setValue(-300);
    const int top = topOf(16);
    QCOMPARE(shown(meter).pixelColor(1, top), Unlit);
    QVERIFY(shown(meter).pixelColor(5, top) != Unlit);
    QCOMPARE(shown(meter).pixelColor(1, top + 5), Lower);
}

void tst_RoundMeters::lampGrowsWhenLit()
{
    RoundProbe meter;
    meter.setValue(0);
    QCOMPARE(shown(meter).pixelColor(5, 3), Unlit);
    QCOMPARE(shown(meter).pixelColor(3, 3), Ground);
    meter.setValue(1);
    const QImage image = shown(meter);
    QCOMPARE(image.pixelColor(5, 3), Over);
    for (const int x : {3, 8}) { // 6 by 6; these are its antialiased edge
        QVERIFY(image.pixelColor(x, 3).red() > 0xf0);
        QVERIFY(image.pixelColor(x, 3).green() < 0x90);
    }
    QCOMPARE(image.pixelColor(2, 3), Ground);
    QVERIFY(image.pixelColor(5, 0) != Ground);
    QCOMPARE(image.pixelColor(5, 6), Ground);
    QVERIFY(image.pixelColor(3, 0) != Over); // round
}

void tst_RoundMeters::theBarReachesItsLevel_data()
{
    addColumns<int, int>("value", "segments");
    QTest::newRow("-60.0") << -600 << 1;
    QTest::newRow("-30.0") << -300 << 16;
    QTest::newRow("-18.0") << -180 << 24;
    QTest::newRow("-10.0") << -100 << 32;
    QTest::newRow("-5.0") << -50 << 42;
    QTest::newRow("0") << 0 << 51;
    QTest::newRow("over") << 100 << 51;
}

void tst_RoundMeters::theBarReachesItsLevel()
{
    QFETCH(int, value);
    QFETCH(int, segments);
    RoundProbe meter;
    meter.setValue(value);
    const QList<QColor> middle = column(shown(meter), 5);
    const int top = topOf(segments);
    for (int y = 18; y < top; ++y)
        QCOMPARE(middle[y], Unlit);
    for (int y = top + 2; y < 316; ++y)
        QCOMPARE(middle[y], y < topOf(24) ? Upper : Lower);
}

void tst_RoundMeters::shortBarsStayInsideTheTrack()
{
    RoundProbe meter;
    meter.resize(12, 60); // less than a pixel for each segment
    meter.setMeterWidth(12);
    const QImage empty = shown(meter);
    for (int value = -600; value < -400; value += 20) {
        meter.setValue(value);
        const QImage lit = shown(meter);
        for (int y = 0; y < lit.height(); ++y) {
            for (int x = 0; x < lit.width(); ++x) {
                if (empty.pixelColor(x, y) == Ground)
                    QCOMPARE(lit.pixelColor(x, y), Ground);
            }
        }
    }
}

void tst_RoundMeters::theEndKeepsItsOutline_data()
{
    addColumns<double, double>("ratio", "scale");
    for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
        for (const double scale : {1.0, 1.3, 2.0})
            QTest::addRow("%g at %g", scale, ratio) << ratio << scale;
    }
}

void tst_RoundMeters::theEndKeepsItsOutline()
{
    QFETCH(double, ratio);
    QFETCH(double, scale);
    RoundProbe meter;
    meter.setScale(scale);
    meter.resize(qRound(12 * scale), qRound(318 * scale));
    QSet<QByteArray> outlines;
    // Levels well inside one zone, in which the end has the same colours around it.
    for (const int value : {-480, -440, -420, -390, -375, -345, -315, -300}) {
        meter.setValue(value);
        const QImage image = shown(meter, ratio);
        const QList<QColor> middle = column(image, image.width() / 2);
        const auto first = static_cast<int>(
            std::find_if(middle.begin(), middle.end(),
                         [](QColor c) { return c.green() > 0x80 && c.red() < 0x80; }) -
            middle.begin());
        QVERIFY(first < image.height() - 20);
        const QImage end = image.copy(0, first - 2, image.width(), 10);
        outlines.insert(
            QByteArray(reinterpret_cast<const char*>(end.constBits()), end.sizeInBytes()));
    }
    QCOMPARE(outlines.size(), 1);
}

void tst_RoundMeters::theBarIsSymmetric_data()
{
    QTest::addColumn<double>("ratio");
    for (const double ratio : {1.0, 1.5, 2.0})
        QTest::addRow("%g", ratio) << ratio;
}

void tst_RoundMeters::theBarIsSymmetric()
{
    QFETCH(double, ratio);
    RoundProbe meter;
    meter.setValue(5);
    const QImage image = shown(meter, ratio);
    const QImage mirrored = image.mirrored(true, false);
    for (int y = static_cast<int>(10 * ratio); y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int left = image.pixelColor(x, y).green();
            const int right = mirrored.pixelColor(x, y).green();
            if (std::abs(left - right) > 2)
                QCOMPARE(std::pair(QPoint(x, y), left), std::pair(QPoint(x, y), right));
        }
    }
}

void tst_RoundMeters::gainReductionStartsEmpty()
{
    ReductionProbe meter;
    const QImage image = shown(meter);
    for (int y = 2; y < 100; ++y)
        QCOMPARE(image.pixelColor(5, y), Unlit);
}

void tst_RoundMeters::gainReductionFillsFromTheTop_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("bottom"); // two pixels for each segment that a level meter lacks
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("5 dB") << -50 << 18;
    QTest::newRow("18 dB") << -180 << 54;
    QTest::newRow("30 dB") << -300 << 70;
    QTest::newRow("all") << -1270 << 102;
    QTest::newRow("positive") << 300 << 0;
}

void tst_RoundMeters::gainReductionFillsFromTheTop()
{
    QFETCH(int, value);
    QFETCH(int, bottom);
    ReductionProbe meter;
    meter.setValue(value);
    const QList<QColor> middle = column(shown(meter), 5);
    for (int y = 2; y < bottom - 2; ++y)
        QCOMPARE(middle[y], Upper);
    for (int y = std::max(2, bottom); y < 100; ++y)
        QCOMPARE(middle[y], Unlit);
}

void tst_RoundMeters::gainReductionHasNoOver()
{
    ReductionProbe meter;
    const QImage before = shown(meter);
    meter.setValue(500);
    QCOMPARE(shown(meter), before);
}

void tst_RoundMeters::aTickRepaintsItsStripOnly()
{
    RoundProbe meter;
    meter.setValue(-300);
    meter.show();
    QVERIFY(QTest::qWaitForWindowExposed(&meter));
    PaintRecorder paints(meter);
    paints.take();
    meter.setValue(-285); // one segment, about 6 pixels, and twice the width for a round end
    const QRegion painted = paints.take();
    QVERIFY(!painted.isEmpty());
    QCOMPARE_LE(area(painted), 6 * (6 + 8 + 3));
    meter.setValue(-286);
    paints.take();
    meter.setValue(-288);
    QVERIFY(paints.take().isEmpty());
}

void tst_RoundMeters::copiesHaveThePixelsOfFilling_data()
{
    addColumns<double, QPointF, QBrush>("ratio", "offset", "brush");
    const std::pair<const char*, QBrush> brushes[] = {{"opaque", Lower},
                                                      {"translucent", QColor(252, 103, 105, 90)}};
    for (const double ratio : {0.5, 1.0, 1.25, 1.5, 2.0}) {
        for (const QPointF& offset : {QPointF(), QPointF(3, 5), QPointF(0.3, 0.7)}) {
            for (const auto& [name, brush] : brushes)
                QTest::addRow("%s at %g, moved by %g", name, ratio, offset.x())
                    << ratio << offset << brush;
        }
    }
}

void tst_RoundMeters::copiesHaveThePixelsOfFilling()
{
    QFETCH(double, ratio);
    QFETCH(QPointF, offset);
    QFETCH(QBrush, brush);
    // A painter with a clip, here one that clips nothing away, has its shapes filled.
    const auto drawn = [&](bool isClipped, double level) {
        QImage image(QSize(40, 240), QImage::Format_RGB32);
        image.fill(Unlit);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        if (isClipped)
            painter.setClipRect(image.rect());
        painter.scale(ratio, ratio);
        painter.translate(offset);
        const QRectF track = RoundShapes::snapped(painter, {2, 3, 6, 100});
        const QRectF zone = RoundShapes::snapped(painter, {0, 20, 20, 60});
        RoundShapes::fill(painter, {20.2, 4.4, 5, 6}, brush);
        QRectF lit = track;
        lit.setTop(RoundShapes::snapped(painter, {0, 0, 10, level}).bottom());
        RoundShapes::fillPart(painter, lit, track, zone, brush);
        lit = track.translated(10, 0);
        lit.setBottom(RoundShapes::snapped(painter, {0, 0, 10, level}).bottom());
        RoundShapes::fillPart(painter, lit, track.translated(10, 0), QRectF(), brush);
        return image;
    };
    for (const double level : {0.0, 5.0, 8.0, 12.0, 50.5, 97.0, 101.0, 103.0})
        QCOMPARE(drawn(false, level), drawn(true, level));
}

ZOLTA_TEST_MAIN(tst_RoundMeters)

#include "tst_RoundMeters.moc"
