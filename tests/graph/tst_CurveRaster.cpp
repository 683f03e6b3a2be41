// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/ChangedRows.h"
#include "graph/CurveRaster.h"
#include "tests/support/Columns.h"
#include "tests/support/ImageDifference.h"
#include "tests/support/TestObject.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <numbers>
#include <vector>

using Points = std::vector<QPointF>;

namespace {

constexpr QSize PictureSize(64, 48);
const QRect Whole(QPoint(0, 0), PictureSize);

QImage blank(QColor color = Qt::black)
{
    QImage image(PictureSize, QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    return image;
}

/// Draws a stroke onto what an image shows.
void draw(const CurveStroke& stroke, QImage& image, QColor color)
{
    ChangedRows rows;
    rows.add(stroke);
    const ColoredStroke colored{&stroke, color.rgb()};
    rows.draw(GridOnGround(image, {}, {}), {&colored, 1}, image);
}

QImage stroked(const Points& points, double width, const QRect& clip = Whole)
{
    QImage image = blank();
    CurveRaster raster;
    raster.setClip(clip);
    draw(raster.stroke(points, width), image, Qt::white);
    return image;
}

/// Every pixel another one, in all degrees of translucency.
QImage colorful()
{
    QImage image = blank(Qt::transparent);
    for (int y = 0; y < PictureSize.height(); ++y)
        for (int x = 0; x < PictureSize.width(); ++x)
            image.setPixelColor(x, y, QColor(3 * x, 5 * y, x + y, 4 * x));
    return image;
}

int share(const QImage& image, int x, int y) { return qRed(image.pixel(x, y)); }

/// Whether something holds for every pixel.
bool everywhere(const std::function<bool(int x, int y)>& holds)
{
    for (int y = 0; y < PictureSize.height(); ++y)
        for (int x = 0; x < PictureSize.width(); ++x)
            if (!holds(x, y))
                return false;
    return true;
}

/// The stroke as the union of its pieces: a rectangle for each segment, and at each join the
/// triangle between the two rectangles' outer corners.
class Reference
{
public:
    Reference(const Points& points, double width)
    {
        QPointF before;
        for (std::size_t i = 1; i < points.size(); ++i) {
            const QPointF a = points[i - 1];
            const QPointF b = points[i];
            const double length = std::hypot(b.x() - a.x(), b.y() - a.y());
            if (length == 0.0)
                continue;
            const QPointF side = QPointF(a.y() - b.y(), b.x() - a.x()) * (width / 2.0 / length);
            m_pieces.push_back({a - side, b - side, b + side, a + side});
            if (!before.isNull()) {
                const double turn = before.x() * side.y() - before.y() * side.x();
                const double outer = turn > 0.0 ? -1.0 : 1.0;
                m_pieces.push_back({a, a + outer * before, a + outer * side});
            }
            before = side;
        }
    }

    struct Cover
    {
        std::vector<double> stroke;  ///< share of each pixel that the stroke covers
        std::vector<double> overlap; ///< share that the pieces cover a second time
    };

    /// Exact in height, and a mean over 256 lines in each pixel's width: a vertical edge is wrong
    /// by up to 1/512, a slanted one by far less.
    Cover cover() const
    {
        constexpr int lines = 256;
        Cover cover;
        const auto pixels = static_cast<std::size_t>(PictureSize.width() * PictureSize.height());
        cover.stroke.assign(pixels, 0.0);
        cover.overlap.assign(pixels, 0.0);
        for (int line = 0; line < PictureSize.width() * lines; ++line) {
            const double x = (line + 0.5) / lines;
            std::vector<Interval> pieces = crossings(x);
            add(cover.overlap, line / lines, pieces, 1.0 / lines);
            unite(pieces);
            add(cover.overlap, line / lines, pieces, -1.0 / lines);
            add(cover.stroke, line / lines, pieces, 1.0 / lines);
        }
        return cover;
    }

private:
    using Interval = std::pair<double, double>;
    using Polygon = std::vector<QPointF>;

    /// Where a vertical line is inside each of the pieces, which are convex.
    std::vector<Interval> crossings(double x) const
    {
        std::vector<Interval> result;
        for (const Polygon& polygon : m_pieces) {
            double low = 1e300;
            double high = -1e300;
            for (std::size_t i = 0; i < polygon.size(); ++i) {
                const QPointF a = polygon[i];
                const QPointF b = polygon[(i + 1) % polygon.size()];
                if ((a.x() <= x) == (b.x() <= x))
                    continue;
                const double y = a.y() + (b.y() - a.y()) * (x - a.x()) / (b.x() - a.x());
                low = std::min(low, y);
                high = std::max(high, y);
            }
            if (low < high)
                result.emplace_back(low, high);
        }
        return result;
    }

    static void unite(std::vector<Interval>& intervals)
    {
        std::sort(intervals.begin(), intervals.end());
        std::vector<Interval> united;
        for (const Interval& interval : intervals) {
            if (!united.empty() && interval.first <= united.back().second)
                united.back().second = std::max(united.back().second, interval.second);
            else
                united.push_back(interval);
        }
        intervals = united;
    }

    static void add(std::vector<double>& cover, int column, const std::vector<Interval>& intervals,
                    double weight)
    {
        for (const auto& [low, high] : intervals) {
            const int first = std::max(static_cast<int>(std::floor(low)), 0);
            for (int row = first; row < PictureSize.height() && row < high; ++row) {
                const double inside = std::min(high, row + 1.0) - std::max(low, double(row));
                cover[static_cast<std::size_t>(row * PictureSize.width() + column)] +=
                    weight * std::max(inside, 0.0);
            }
        }
    }

    std::vector<Polygon> m_pieces;
};

/// How much a picture's coverage differs from the reference, in 255ths: below it, and above it
/// beyond what is counted twice where pieces overlap.
struct Error
{
    double below = 0.0;
    double above = 0.0;
    double aboveUnion = 0.0;
};

Error errorOf(const QImage& image, const Points& points, double width, const QRect& clip = Whole)
{
    const Reference::Cover cover = Reference(points, width).cover();
    Error error;
    for (int y = clip.top(); y <= clip.bottom(); ++y)
        for (int x = clip.left(); x <= clip.right(); ++x) {
            const auto pixel = static_cast<std::size_t>(y * PictureSize.width() + x);
            const double off = share(image, x, y) - 255.0 * cover.stroke[pixel];
            const double twice = 255.0 * std::min(cover.overlap[pixel], 1.0 - cover.stroke[pixel]);
            error.below = std::max(error.below, -off);
            error.above = std::max(error.above, off - twice);
            error.aboveUnion = std::max(error.aboveUnion, off);
        }
    return error;
}

/// Rounding to 255ths is half a part, the reference's lines another half.
constexpr double Rounding = 1.01;

const std::array<double, 7> Widths = {0.5, 0.75, 1.0, 1.5, 3.0, 4.7, 8.0};

} // namespace

class tst_CurveRaster : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void curvesCoverTheirArea_data();
    void curvesCoverTheirArea();
    void alongPixels();
    void lineToTheLeft();
    void clippedOnEverySide_data();
    void clippedOnEverySide();
    void farOutside();
    void nothingOutsideTheClip();
    void clipChange();
    void emptyClip();
    void degenerateInputs();
    void strokesOverOneAnother();
    void opaqueOnTransparent();
    void erasingBringsTheBackgroundBack();
    void changedStroke_data();
    void changedStroke();
    void overTheGround();
};

void tst_CurveRaster::curvesCoverTheirArea_data()
{
    QTest::addColumn<Points>("curve");
    QTest::addColumn<std::vector<double>>("widths");
    // What a pixel holds of overlapping segments may count twice, never more: how much of that.
    QTest::addColumn<double>("overlap");
    const std::vector<double> all(Widths.begin(), Widths.end());
    const double any = 256.0;

    for (const double degrees : {0.0, 0.5, 3.0, 26.565, 45.0, 60.0, 89.0, 89.9, 90.0, -1.0, -17.0,
                                 -73.0, -89.5, -90.0, 120.0, 200.0}) {
        const double angle = degrees * std::numbers::pi / 180.0;
        const QPointF along(std::cos(angle), -std::sin(angle));
        const QPointF middle(31.37, 24.81);
        QTest::addRow("line at %g degrees", degrees)
            << Points{middle - 19.3 * along, middle + 18.6 * along} << all << Rounding;
    }
    for (const double dx : {0.001, 0.03, 0.4, 0.999, 1.0, 1.7, -0.2})
        QTest::addRow("steep %g", dx) << Points{{30.6, 4.3}, {30.6 + dx, 43.9}} << all << Rounding;
    // As the graph draws them: a step is at least twice as long as a line is wide. The gentle
    // turns' overlap is two parts for turns of less than a third radian.
    for (const double step : {1.0, 1.5, 3.0, 6.0})
        for (const double height : {0.5, 4.0, 12.0}) {
            Points curve;
            for (double x = -step; x <= PictureSize.width() + step; x += step)
                curve.emplace_back(x + 0.5, 24.2 + height * std::sin(x / 9.0));
            QTest::addRow("wave of %g in steps of %g", height, step)
                << curve << std::vector{step / 3.0, step / 2.0} << (height < 1.0 ? 2.0 : any);
        }
    for (const double step : {0.9, 2.0, 5.0, 11.0})
        for (const double height : {9.0, 20.0, 36.0}) {
            Points zigzag;
            for (int i = 0; 5.0 + i * step < 59.0; ++i)
                zigzag.emplace_back(5.0 + i * step, 24.3 + (i % 2 ? height : -height) / 2.0);
            QTest::addRow("zigzag of %g in steps of %g", height, step) << zigzag << all << any;
        }
}

void tst_CurveRaster::curvesCoverTheirArea()
{
    QFETCH(Points, curve);
    QFETCH(std::vector<double>, widths);
    QFETCH(double, overlap);
    for (const double width : widths) {
        const Error error = errorOf(stroked(curve, width), curve, width);
        QVERIFY(error.below < Rounding);
        QVERIFY(error.above < Rounding);
        QVERIFY(error.aboveUnion <= overlap);
    }
}

void tst_CurveRaster::alongPixels()
{
    const auto isRun = [](const Points& line, int left, int top, int right, int bottom, int value) {
        const QImage image = stroked(line, 1.0);
        const QRect run(QPoint(left, top), QPoint(right - 1, bottom - 1));
        return everywhere(
            [&](int x, int y) { return share(image, x, y) == (run.contains(x, y) ? value : 0); });
    };
    QVERIFY(isRun({{10, 20.5}, {30, 20.5}}, 10, 20, 30, 21, 255));
    QVERIFY(isRun({{10, 20}, {30, 20}}, 10, 19, 30, 21, 128));
    QVERIFY(isRun({{10, 20.5}, {50, 20.5}, {30, 20.5}}, 10, 20, 50, 21, 255));
    QVERIFY(isRun({{20.5, -1e5}, {20.5, 1e5}}, 20, 0, 21, 48, 255));
}

void tst_CurveRaster::lineToTheLeft()
{
    const Points right = {{5.2, 7.9}, {22.4, 30.1}, {40.8, 12.6}, {58.3, 21.0}};
    const Points left(right.rbegin(), right.rend());
    for (const double width : Widths)
        QVERIFY(imageDifference(stroked(right, width), stroked(left, width)) <= 1);
}

void tst_CurveRaster::clippedOnEverySide_data()
{
    QTest::addColumn<QRect>("clip");
    QTest::newRow("left") << QRect(20, 0, 44, 48);
    QTest::newRow("right") << QRect(0, 0, 33, 48);
    QTest::newRow("top") << QRect(0, 21, 64, 27);
    QTest::newRow("bottom") << QRect(0, 0, 64, 25);
    QTest::newRow("all") << QRect(15, 18, 31, 13);
    QTest::newRow("one pixel") << QRect(30, 24, 1, 1);
    QTest::newRow("one row") << QRect(0, 24, 64, 1);
    QTest::newRow("one column") << QRect(31, 0, 1, 48);
}

void tst_CurveRaster::clippedOnEverySide()
{
    QFETCH(QRect, clip);
    const std::array<Points, 4> curves = {
        Points{{-5, 3}, {20, 30}, {31.5, 5}, {31.9, 44}, {70, 20}},
        Points{{10, 60}, {32, -20}, {50, 70}},
        Points{{30.5, -100}, {30.8, 200}},
        Points{{-10, 24.7}, {80, 24.2}},
    };
    for (const Points& curve : curves)
        for (const double width : Widths) {
            const QImage whole = stroked(curve, width);
            const QImage clipped = stroked(curve, width, clip);
            // Sums in another order: the last rounding may differ.
            QVERIFY(everywhere([&](int x, int y) {
                return clip.contains(x, y)
                           ? std::abs(share(clipped, x, y) - share(whole, x, y)) <= 1
                           : share(clipped, x, y) == 0;
            }));
        }
}

void tst_CurveRaster::farOutside()
{
    for (const double far : {1e3, 1e6, 1e9}) {
        const QImage blackPicture = blank();
        QCOMPARE(stroked({{-far, -far}, {far, -far}}, 3.0), blackPicture);
        QCOMPARE(stroked({{-far, far}, {far, far}}, 3.0), blackPicture);
        QCOMPARE(stroked({{-far, -far}, {-far, far}}, 3.0), blackPicture);
        QCOMPARE(stroked({{far, -far}, {far, far}}, 3.0), blackPicture);
    }
}

void tst_CurveRaster::nothingOutsideTheClip()
{
    QImage image = blank(QColor(1, 2, 3));
    CurveRaster raster;
    const QRect clip(7, 5, 40, 30);
    raster.setClip(clip);
    draw(raster.stroke(Points{{-20, -20}, {80, 70}, {10, 80}, {50, -40}}, 8.0), image, Qt::red);
    int changed = 0;
    for (int y = 0; y < PictureSize.height(); ++y)
        for (int x = 0; x < PictureSize.width(); ++x) {
            const bool same = image.pixel(x, y) == qRgb(1, 2, 3);
            QVERIFY(same || clip.contains(x, y));
            changed += !same;
        }
    QVERIFY(changed > 100);
}

// Nor must anything of a stroke show in the next.
void tst_CurveRaster::clipChange()
{
    const Points curve = {{-10, 70}, {20, -30}, {40, 90}, {60, 9}};
    CurveRaster raster;
    for (const QRect clip : {QRect(0, 0, 10, 10), QRect(20, 5, 40, 40), Whole, QRect(5, 20, 3, 9),
                             QRect(), QRect(20, 5, 40, 40)}) {
        QImage image = blank();
        raster.setClip(clip);
        draw(raster.stroke(curve, 2.5), image, Qt::white);
        QCOMPARE(image, stroked(curve, 2.5, clip));
    }
}

void tst_CurveRaster::emptyClip()
{
    const Points curve = {{3, 4}, {30, 40}};
    QImage image = blank();
    CurveRaster raster;
    draw(raster.stroke(curve, 2.0), image, Qt::white);
    for (const QRect clip :
         {QRect(), QRect(5, 5, 0, 10), QRect(5, 5, 10, 0), QRect(5, 5, -3, -3)}) {
        raster.setClip(clip);
        draw(raster.stroke(curve, 2.0), image, Qt::white);
    }
    QCOMPARE(image, blank());
}

void tst_CurveRaster::degenerateInputs()
{
    QCOMPARE(stroked({}, 2.0), blank());
    QCOMPARE(stroked({{20, 20}}, 2.0), blank());
    QCOMPARE(stroked({{20, 20}, {20, 20}, {20, 20}}, 2.0), blank());
    QCOMPARE(stroked({{20, 20}, {40, 30}}, 0.0), blank());
    // Equal points in between count once.
    const Points repeated = {{5, 5}, {5, 5}, {30, 40}, {30, 40}, {30, 40}, {60, 9}, {60, 9}};
    QCOMPARE(stroked(repeated, 3.0), stroked({{5, 5}, {30, 40}, {60, 9}}, 3.0));
}

void tst_CurveRaster::strokesOverOneAnother()
{
    const Points first = {{2, 10.3}, {60, 33.2}};
    const Points second = {{2, 40.1}, {33, 12.7}, {60, 20.9}};
    const QColor below(0x14, 0xA8, 0xAD);
    const QColor above(0xED, 0x6B, 0x1C);
    const QColor ground(40, 70, 10);
    QImage image = blank(ground);
    CurveRaster raster;
    raster.setClip(Whole);
    draw(raster.stroke(first, 5.0), image, below);
    draw(raster.stroke(second, 3.0), image, above);

    const QImage firstShare = stroked(first, 5.0);
    const QImage secondShare = stroked(second, 3.0);
    QVERIFY(everywhere([&](int x, int y) {
        const double a = share(firstShare, x, y) / 255.0;
        const double b = share(secondShare, x, y) / 255.0;
        // Two roundings, the first one shared out by the second.
        const auto isMixed = [&](int found, int g, int lower, int upper) {
            return std::abs(found - (b * upper + (1.0 - b) * (a * lower + (1.0 - a) * g))) <= 1.0;
        };
        const QRgb pixel = image.pixel(x, y);
        return isMixed(qRed(pixel), 40, 0x14, 0xED) && isMixed(qGreen(pixel), 70, 0xA8, 0x6B) &&
               isMixed(qBlue(pixel), 10, 0xAD, 0x1C) && qAlpha(pixel) == 255;
    }));
}

void tst_CurveRaster::opaqueOnTransparent()
{
    const Points curve = {{2, 10.3}, {60, 33.2}};
    QImage image = blank(Qt::transparent);
    CurveRaster raster;
    raster.setClip(Whole);
    draw(raster.stroke(curve, 2.6), image, QColor(255, 128, 0));
    const QImage shares = stroked(curve, 2.6);
    const auto* pixels = reinterpret_cast<const QRgb*>(image.constBits());
    QVERIFY(everywhere([&](int x, int y) {
        const QRgb premultiplied = pixels[y * image.bytesPerLine() / 4 + x];
        const int cover = share(shares, x, y);
        return qAlpha(premultiplied) == cover && qRed(premultiplied) == cover &&
               std::abs(qGreen(premultiplied) - cover * 128 / 255.0) <= 0.5 &&
               qBlue(premultiplied) == 0;
    }));
}

void tst_CurveRaster::erasingBringsTheBackgroundBack()
{
    const QImage background = colorful();
    CurveRaster raster;
    raster.setClip(QRect(4, 3, 50, 40));
    const CurveStroke stroke = raster.stroke(Points{{-10, 7}, {20, 30}, {40, -9}, {80, 9}}, 5.0);
    QImage image = background;
    draw(stroke, image, Qt::white);
    QVERIFY(image != background);
    ChangedRows rows;
    rows.add(stroke);
    rows.draw(GridOnGround(background, {}, {}), {}, image);
    QCOMPARE(image, background);
}

// Where two strokes differ, and only there, the picture of the one becomes that of the other.
void tst_CurveRaster::changedStroke_data()
{
    addColumns<Points, Points>("before", "after");
    const Points wave = {{-3, 20}, {15, 12.5}, {33, 31}, {50, 24}, {70, 26}};
    const Points farther = {{-3, 40}, {15, 42.5}, {33, 41}, {50, 44}, {70, 46}};
    const Points bent = {{-3, 20}, {15, 12.5}, {33, 33}, {50, 24}, {70, 26}};
    QTest::newRow("nothing") << wave << wave;
    QTest::newRow("a part") << wave << bent;
    QTest::newRow("all of it") << wave << farther;
    QTest::newRow("it was not there") << Points() << wave;
    QTest::newRow("it has gone") << wave << Points();
}

void tst_CurveRaster::changedStroke()
{
    QFETCH(Points, before);
    QFETCH(Points, after);
    CurveRaster raster;
    raster.setClip(QRect(4, 3, 50, 40));
    const CurveStroke old = raster.stroke(before, 4.0);
    const CurveStroke now = raster.stroke(after, 4.0);
    const CurveStroke other = raster.stroke(Points{{2, 10.3}, {60, 33.2}}, 3.0);
    const QImage ground = colorful().convertToFormat(QImage::Format_RGB32);
    const GridOnGround grid(colorful(), ground, {});
    const auto draw = [&](const CurveStroke& stroke, const ChangedRows& rows, QImage& image) {
        const std::array strokes = {ColoredStroke{&stroke, qRgb(9, 200, 30)},
                                    ColoredStroke{&other, qRgb(250, 100, 3)}};
        rows.draw(grid, strokes, image);
    };
    ChangedRows all;
    for (const CurveStroke* stroke : {&old, &now, &other})
        all.add(*stroke);
    QImage image = ground;
    QPainter(&image).drawImage(0, 0, colorful());
    QImage expected = image;
    draw(old, all, image);
    ChangedRows rows;
    rows.addDifference(old, now);
    draw(now, rows, image);
    draw(now, all, expected);
    QCOMPARE(image, expected);
}

// What is drawn on a ground is what a painter lays over it.
void tst_CurveRaster::overTheGround()
{
    constexpr QPoint corner(7, 5);
    QImage ground(PictureSize + QSize(20, 10), QImage::Format_RGB32);
    for (int y = 0; y < ground.height(); ++y)
        for (int x = 0; x < ground.width(); ++x)
            ground.setPixel(x, y, qRgb(255 - 2 * x, 3 * y, (5 * x * y) % 256));
    CurveRaster raster;
    raster.setClip(Whole);
    const CurveStroke stroke = raster.stroke(Points{{2, 10.3}, {33, 40}, {60, 23.2}}, 9.0);
    ChangedRows rows;
    rows.add(stroke);
    const ColoredStroke colored{&stroke, qRgb(255, 128, 0)};

    QImage image = ground.copy(QRect(corner, PictureSize));
    QPainter(&image).drawImage(0, 0, colorful());
    rows.draw(GridOnGround(colorful(), ground, corner), {&colored, 1}, image);

    QImage layer = colorful();
    draw(stroke, layer, QColor(255, 128, 0));
    QImage expected = ground.copy(QRect(corner, PictureSize));
    QPainter(&expected).drawImage(0, 0, layer);
    QCOMPARE(image, expected);
}

QTEST_APPLESS_MAIN(tst_CurveRaster)

#include "tst_CurveRaster.moc"
