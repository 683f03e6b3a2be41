// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/graph/AnalogModel.h"
#include "tests/graph/GraphFixture.h"
#include "tests/graph/GraphPicture.h"
#include "tests/support/TestObject.h"

#include <limits>

using Graph = ZoltaEqualizerGraph;

namespace {

/// A band's raw values; type stands for the outer bands, quality for the middle ones.
struct RawBand
{
    int on;
    int type;
    int quality;
    int frequency;
    int gain;
};
using RawBands = std::array<RawBand, 6>;

constexpr RawBand Off = {0, 3, 250, 600, 0};

RawBands only(int band, const RawBand& raw)
{
    RawBands bands = {Off, Off, Off, Off, Off, Off};
    bands[static_cast<std::size_t>(band)] = raw;
    return bands;
}

const RawBands Everything = {{{1, 2, 0, 230, 50},
                              {1, 0, 100, 400, -80},
                              {1, 0, 350, 560, 60},
                              {1, 0, 300, 760, -30},
                              {1, 0, 150, 950, 90},
                              {1, 3, 0, 1050, -40}}};

void arrange(GraphFixture& f, const RawBands& bands)
{
    for (int i = 0; i < 6; ++i) {
        const RawBand& raw = bands[static_cast<std::size_t>(i)];
        f.set(onName(i), raw.on);
        f.set(typeName(i), i == 0 || i == 5 ? raw.type : raw.quality);
        f.setBand(i, raw.frequency, raw.gain);
    }
}

AnalogModel::Settings settings(const RawBands& bands)
{
    AnalogModel::Settings result;
    for (std::size_t i = 0; i < 6; ++i)
        result[i] = {bands[i].on != 0, bands[i].type, quality(bands[i].quality),
                     hertz(bands[i].frequency), decibels(bands[i].gain)};
    return result;
}

QSize scaled(double scale) { return (QSizeF(GraphFixture::DesignSize) * scale).toSize(); }

/// The grid alone. Neither of the two pictures that it is the darker of has a curve where the other
/// has one; the handle of the second is at the right edge.
QImage gridPicture(const GraphFixture& like)
{
    GraphFixture f(like.graph->size());
    f.bind();
    f.graph->setZoom(like.graph->zoom());
    arrange(f, only(0, {0, 2, 0, 1200, 120}));
    QImage grid = f.picture();
    f.set(onName(0), 1);
    const QImage other = f.picture();
    for (int y = 0; y < grid.height(); ++y)
        for (int x = 0; x < grid.width(); ++x) {
            const QRgb a = grid.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            grid.setPixel(x, y,
                          qRgb(std::min(qRed(a), qRed(b)), std::min(qGreen(a), qGreen(b)),
                               std::min(qBlue(a), qBlue(b))));
        }
    return grid;
}

/// Compares a curve of the graph's picture with where it should be.
class CurveCheck
{
public:
    /// How much of a pixel the curve covers, given what the grid alone looks like there.
    using Weight = std::function<double(QRgb pixel, QRgb grid)>;

    /// \a width is the line's, in units of the plot.
    CurveCheck(const GraphFixture& f, const DrawnCurve& curve, double width = 1.5)
        : m_picture(f.picture())
        , m_grid(gridPicture(f))
        , m_expected(curve.picture(f, width))
        , m_plot(f.plot())
    {
        for (int band = 0; band < 6; ++band)
            m_handles.push_back(f.graph->getTargetPoint(targetOf(band)));
    }

    /// The greatest distance, in pixels, between the middles of what is covered and what should be
    /// in a column. Left out are columns in which a handle may hide the curve and those in which it
    /// leaves the plot. Looking no farther than 4 units from the curve keeps out the places where
    /// several bands' colours add up to a grey.
    double worst(const Weight& weight)
    {
        const double ratio = m_picture.devicePixelRatio();
        const auto top = static_cast<int>(std::ceil(m_plot.top * ratio + 1));
        const auto bottom = static_cast<int>(m_plot.bottom * ratio - 1);
        const auto reach = static_cast<int>(std::ceil(4 * m_plot.u * ratio));
        double worst = 0.0;
        for (int x = 0; x < m_picture.width(); ++x) {
            int first = top;
            int last = bottom;
            while (first < last && qRed(m_expected.pixel(x, first)) == 0)
                ++first;
            while (first < last && qRed(m_expected.pixel(x, last)) == 0)
                --last;
            if (!isClear(x) || first == top || last == bottom || first == last)
                continue;
            ++m_columns;
            const double expected = middle(x, first, last, whiteOnBlack, m_expected);
            const double found = middle(x, std::max(first - reach, top),
                                        std::min(last + reach, bottom), weight, m_picture);
            worst = std::max(worst, std::abs(found - expected));
        }
        return worst;
    }
    /// How many columns were looked at.
    int columns() const { return m_columns; }

private:
    static double whiteOnBlack(QRgb pixel, QRgb)
    {
        return std::max(0.0, qRed(pixel) / 255.0 - 0.125);
    }

    double middle(int x, int first, int last, const Weight& weight, const QImage& picture) const
    {
        double sum = 0.0;
        double moment = 0.0;
        for (int y = first; y <= last; ++y) {
            const double w = weight(picture.pixel(x, y), m_grid.pixel(x, y));
            sum += w;
            moment += w * (y + 0.5);
        }
        return sum > 0.3 ? moment / sum : -1e6;
    }

    bool isClear(int x) const
    {
        const double place = (x + 0.5) / m_picture.devicePixelRatio();
        if (place < m_plot.left + 2 * m_plot.u + 1 || place > m_plot.right - 5 * m_plot.u - 1)
            return false;
        return std::none_of(m_handles.begin(), m_handles.end(), [&](const QPointF& handle) {
            return std::abs(handle.x() - place) < 3.5 * m_plot.u + 1;
        });
    }

    QImage m_picture;
    QImage m_grid;
    QImage m_expected;
    Plot m_plot;
    std::vector<QPointF> m_handles;
    int m_columns = 0;
};

/// How much of a pixel the white line covers. The darkened colours of the bands have a channel of
/// less than an eighth of white's, so that an eighth and less counts as nothing.
double whiteCover(QRgb pixel, QRgb grid)
{
    const auto channel = [](int now, int before) { return double(now - before) / (255 - before); };
    const double cover =
        std::min({channel(qRed(pixel), qRed(grid)), channel(qGreen(pixel), qGreen(grid)),
                  channel(qBlue(pixel), qBlue(grid))});
    return std::max(0.0, cover - 0.125);
}

/// The middle and the width of what is brighter than black along a line of pixels around \a at.
std::pair<double, double> ink(const QImage& picture, bool vertical, double across, double at,
                              double reach)
{
    double sum = 0.0;
    double moment = 0.0;
    for (int i = static_cast<int>(at - reach); i < at + reach; ++i) {
        const auto fixed = static_cast<int>(across);
        const QColor color = vertical ? picture.pixelColor(i, fixed) : picture.pixelColor(fixed, i);
        const double share = color.redF() / FrameColor.redF();
        sum += share;
        moment += share * (i + 0.5);
    }
    return {moment / sum, sum};
}

/// Counts the paint events of a widget.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QObject* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }
    int count = 0;
};

} // namespace

class tst_EqualizerGraphPainting : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void totalFollowsTheResponse_data();
    void totalFollowsTheResponse();
    void bandFollowsItsOwnResponse_data();
    void bandFollowsItsOwnResponse();
    void totalOfUnknownTypeKeepsTheDesign();
    void bandAboveTheTopIsFlat();

    void bandColors_data();
    void bandColors();
    void laterBandsAreAboveEarlierOnes();
    void editTargetAtADisabledBand();
    void nothingOutsideThePlot();
    void twentyDecibelsAtFourIsClipped();
    void lineWidths();
    void handles();
    void allBandsOff();
    void gridLines_data();
    void gridLines();
    void oddSizes();
    void oddSampleRates();

    void editedHandleIsOnTop();
    void handlesAreClipped();

    void resizedGraphIsDrawnAnew();
    void fontChangeReachesTheLabels();
    void repaintsOnlyOnChange();
    void everyChangeLeavesAFreshPicture();
};

void tst_EqualizerGraphPainting::initTestCase()
{
    // The program runs once at each of several pixel ratios.
    const double ratio = qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1")).toDouble();
    QCOMPARE(GraphFixture().graph->devicePixelRatioF(), ratio);
}

void tst_EqualizerGraphPainting::totalFollowsTheResponse_data()
{
    QTest::addColumn<RawBands>("bands");
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("zoom");
    QTest::addColumn<int>("rate");
    // Alone, a band's own line is hidden below the total, and the middles differ by what becomes
    // of the faintest pixels. Together, lines that run beside the total shift what looks white by
    // up to half a pixel more.
    QTest::addColumn<double>("limit");
    const auto add = [](const char* name, const RawBands& bands, double limit = 0.4) {
        for (const double scale : {0.5, 1.0, 1.5, 2.0, 4.0})
            if (scale < 4.0 || GraphFixture().graph->devicePixelRatioF() == 1.0)
                QTest::addRow("%s at %g", name, scale) << bands << scale << 3 << 44100 << limit;
    };
    for (const int gain : {-90, -30, 40, 100})
        for (const int type : {2, 3}) {
            add(qPrintable(QStringLiteral("low shelf %1 %2").arg(type).arg(gain)),
                only(0, {1, type, 0, 400, gain}));
            add(qPrintable(QStringLiteral("high shelf %1 %2").arg(type).arg(gain)),
                only(5, {1, type, 0, 850, gain}));
        }
    for (const int type : {0, 1}) {
        add(qPrintable(QStringLiteral("high pass %1").arg(type)), only(0, {1, type, 0, 300, 120}));
        add(qPrintable(QStringLiteral("low pass %1").arg(type)), only(5, {1, type, 0, 1000, 120}));
    }
    for (int band = 1; band < 5; ++band)
        for (const int gain : {-80, 110})
            add(qPrintable(QStringLiteral("middle %1 %2").arg(band).arg(gain)),
                only(band, {1, 0, 60 * band + 60, 250 * band + 10, gain}));
    add("everything", Everything, 0.75);
    for (int zoom = 0; zoom < 7; ++zoom)
        QTest::addRow("everything at zoom %d", zoom) << Everything << 2.0 << zoom << 44100 << 0.75;
    RawBands high = Everything;
    high[4] = {1, 0, 120, 1150, 100};
    for (const int rate : {44100, 48000, 96000})
        QTest::addRow("everything at %d Hz", rate) << high << 2.0 << 3 << rate << 0.75;
}

void tst_EqualizerGraphPainting::totalFollowsTheResponse()
{
    QFETCH(RawBands, bands);
    QFETCH(double, scale);
    QFETCH(int, zoom);
    QFETCH(int, rate);
    QFETCH(double, limit);
    GraphFixture f(scaled(scale));
    f.bind();
    f.graph->setZoom(zoom);
    f.graph->setFs(rate);
    arrange(f, bands);
    const AnalogModel::Settings model = settings(bands);
    const DrawnCurve curve(f.plot(), f.graph->devicePixelRatioF(),
                           [&](double hz) { return AnalogModel::total(model, hz, rate); });
    CurveCheck check(f, curve);
    const double worst = check.worst(whiteCover);
    QVERIFY2(worst < limit, qPrintable(QString::number(worst)));
    QVERIFY(check.columns() > 0.2 * f.plot().width * f.graph->devicePixelRatioF());
}

void tst_EqualizerGraphPainting::bandFollowsItsOwnResponse_data()
{
    QTest::addColumn<int>("band");
    QTest::addColumn<int>("type");
    for (int band = 0; band < 6; ++band)
        for (const int type : {0, 1, 2, 3})
            if (band == 0 || band == 5 || type == 0)
                QTest::addRow("band %d type %d", band, type) << band << type;
}

void tst_EqualizerGraphPainting::bandFollowsItsOwnResponse()
{
    QFETCH(int, band);
    QFETCH(int, type);
    RawBands bands = Everything;
    bands[static_cast<std::size_t>(band)].type = type;
    GraphFixture f(scaled(2));
    f.bind();
    arrange(f, bands);
    // The edited band is on top, so that nothing but the handles hides it.
    f.graph->setEditTarget(targetOf(band));
    const auto model = settings(bands)[static_cast<std::size_t>(band)];
    const DrawnCurve curve(f.plot(), f.graph->devicePixelRatioF(),
                           [&](double hz) { return AnalogModel::level(model, band, hz, 44100); });
    CurveCheck check(f, curve);
    const QColor color = fullColor(band);
    const double worst = check.worst([&](QRgb pixel, QRgb) {
        const int off = std::abs(qRed(pixel) - color.red()) +
                        std::abs(qGreen(pixel) - color.green()) +
                        std::abs(qBlue(pixel) - color.blue());
        return std::max(0.0, 1.0 - off / 40.0);
    });
    QVERIFY2(worst < 1.0, qPrintable(QString::number(worst)));
    QVERIFY(check.columns() > 200);
}

void tst_EqualizerGraphPainting::totalOfUnknownTypeKeepsTheDesign()
{
    const RawBands bands = only(0, {1, 2, 0, 400, 90});
    GraphFixture f(scaled(2));
    f.bind();
    arrange(f, bands);
    const AnalogModel::Settings model = settings(bands);
    const DrawnCurve curve(f.plot(), f.graph->devicePixelRatioF(),
                           [&](double hz) { return AnalogModel::total(model, hz, 44100); });
    f.set(typeName(0), 8);
    f.setBand(0, 900, -50);
    CurveCheck check(f, curve);
    QVERIFY(check.worst(whiteCover) < 0.5);
}

void tst_EqualizerGraphPainting::bandAboveTheTopIsFlat()
{
    GraphFixture f(scaled(2));
    f.bind();
    arrange(f, only(2, {1, 0, 250, 1200, 100}));
    f.graph->setFs(32000);
    // The band's gain is above the flat line of its filter, which is centred below 16 kHz.
    const QImage picture = f.picture();
    QVERIFY(whiteness(colorAt(picture, {200, f.plot().centre})) > 0.9);
    QVERIFY(isNear(f.graph->getTargetPoint(targetOf(2)), {f.plot().right, f.plot().y(10)}));
}

void tst_EqualizerGraphPainting::bandColors_data()
{
    QTest::addColumn<int>("band");
    for (int band = 0; band < 6; ++band)
        QTest::addRow("%d", band) << band;
}

void tst_EqualizerGraphPainting::bandColors()
{
    QFETCH(int, band);
    GraphFixture f(scaled(4));
    f.bind();
    arrange(f, only(band, {1, 3, 300, 600, 60}));
    const QPointF handle = f.graph->getTargetPoint(targetOf(band));
    QCOMPARE(colorAt(f.picture(), handle), dimColor(band).rgb());
    f.graph->setEditTarget(targetOf(band));
    QCOMPARE(colorAt(f.picture(), handle), fullColor(band).rgb());

    // The line itself, away from the handle and from the total, which a second band lifts.
    const int other = band == 2 ? 3 : 2;
    f.set(onName(other), 1);
    f.set(qualityName(other), 0);
    f.setBand(other, band == 0 ? 300 : 500, 40);
    const double hz = band == 0 ? 150 : band == 5 ? 4000 : 700;
    const AnalogModel::BandSettings model = {true, 3, quality(300), hertz(600), 6.0};
    const double y = f.plot().y(AnalogModel::level(model, band, hz, 44100));
    const QPointF place(f.plot().x(hz), y);
    QCOMPARE(colorAt(f.picture(), place), fullColor(band).rgb());
    f.graph->setEditTarget(Graph::EditTargetNone);
    QCOMPARE(colorAt(f.picture(), place), dimColor(band).rgb());
}

void tst_EqualizerGraphPainting::laterBandsAreAboveEarlierOnes()
{
    GraphFixture f(scaled(4));
    f.bind();
    // Bands 1 to 4 on the same curve, out of the way of the total.
    for (int band = 0; band < 6; ++band) {
        f.set(onName(band), band == 0 || band == 5 ? 0 : 1);
        f.setBand(band, 600, 50);
    }
    const QPointF place(
        f.plot().x(500),
        f.plot().y(AnalogModel::level({true, 3, quality(250), hertz(600), 5.0}, 1, 500, 44100)));
    f.graph->setEditTarget(Graph::EditTargetMiddle1);
    QCOMPARE(colorAt(f.picture(), place), fullColor(1).rgb());
    f.graph->setEditTarget(Graph::EditTargetNone);
    // Alone, a band and the total are the same curve.
    for (int top = 4; top >= 1; --top) {
        QCOMPARE(colorAt(f.picture(), place),
                 top == 1 ? QColor(Qt::white).rgb() : dimColor(top).rgb());
        QCOMPARE(colorAt(f.picture(), f.graph->getTargetPoint(targetOf(top))), dimColor(top).rgb());
        f.set(onName(top), 0);
    }
}

void tst_EqualizerGraphPainting::editTargetAtADisabledBand()
{
    GraphFixture f;
    f.bind();
    arrange(f, Everything);
    for (int band = 0; band < 6; ++band) {
        f.graph->setEditTarget(Graph::EditTargetNone);
        f.set(onName(band), 0);
        const QImage without = f.picture();
        f.graph->setEditTarget(targetOf(band));
        QCOMPARE(f.picture(), without);
        f.set(onName(band), 1);
    }
}

void tst_EqualizerGraphPainting::nothingOutsideThePlot()
{
    const std::array<QSize, 7> sizes = {scaled(0.5),    scaled(1),       scaled(1.5),   scaled(2),
                                        QSize(333, 97), QSize(501, 203), QSize(100, 40)};
    for (int zoom = 0; zoom < 7; ++zoom) {
        GraphFixture f(sizes[static_cast<std::size_t>(zoom)]);
        f.bind();
        f.graph->setZoom(zoom);
        f.solo(-1);
        const QImage grid = f.picture();
        arrange(f, Everything);
        f.setBand(0, 0, 200);
        f.setBand(1, 1200, -200);
        f.setBand(2, 0, -200);
        f.graph->setEditTarget(Graph::EditTargetMiddle2);
        const QImage picture = f.picture();
        const double ratio = picture.devicePixelRatio();
        const QRectF plot(f.plot().rect().topLeft() * ratio, f.plot().rect().size() * ratio);
        // A pixel at an edge belongs to the plot if at least half of it does.
        const QRectF inside = plot.adjusted(-0.5, -0.5, 0.5, 0.5);
        std::vector<QPoint> changed;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (picture.pixel(x, y) != grid.pixel(x, y) && !inside.contains(QRectF(x, y, 1, 1)))
                    changed.emplace_back(x, y);
        QCOMPARE(changed, std::vector<QPoint>());
    }
}

void tst_EqualizerGraphPainting::twentyDecibelsAtFourIsClipped()
{
    GraphFixture f(scaled(2));
    f.bind();
    f.graph->setZoom(5);
    arrange(f, only(2, {1, 0, 250, 600, 200}));
    const QImage picture = f.picture();
    const double ratio = picture.devicePixelRatio();
    // Across the middle of the bell nothing white is in the plot, and nothing above it.
    for (int y = 0; y < picture.height(); ++y) {
        const int x = static_cast<int>(f.plot().x(hertz(600) * 1.02) * ratio);
        QVERIFY(whiteness(picture.pixel(x, y)) <= whiteness(FrameColor.rgb()) + 0.01);
    }
    // Where it leaves through the top edge it is drawn up to that edge.
    const double top = f.plot().top * ratio;
    int reaching = 0;
    for (int x = 0; x < picture.width(); ++x)
        reaching += whiteness(picture.pixel(x, static_cast<int>(top + 1))) > 0.9;
    QVERIFY(reaching >= 2);
    QVERIFY(reaching < 0.05 * picture.width());
}

void tst_EqualizerGraphPainting::lineWidths()
{
    for (const double scale : {0.5, 1.0, 1.5, 2.0, 4.0}) {
        GraphFixture f(scaled(scale));
        f.bind();
        // The low band's line is flat at 25 Hz, and lies between two rows of the grid.
        const auto coverage = [&](const QColor& color, double level) {
            const QImage picture = f.picture();
            const double ratio = picture.devicePixelRatio();
            const double u = f.plot().u * ratio;
            const int x = static_cast<int>(f.plot().x(25) * ratio);
            const double y = f.plot().y(level) * ratio;
            double sum = 0.0;
            for (int row = static_cast<int>(y - 3 * u - 1); row < y + 3 * u + 1; ++row)
                sum += std::min(picture.pixelColor(x, row).redF() / color.redF(),
                                picture.pixelColor(x, row).blueF() / color.blueF());
            return sum / u;
        };
        // The first middle band takes the total away.
        arrange(f, only(0, {1, 3, 0, 1100, 45}));
        f.set(onName(1), 1);
        f.set(qualityName(1), 0);
        f.setBand(1, 100, -40);
        f.graph->setEditTarget(Graph::EditTargetLow);
        QVERIFY(std::abs(coverage(fullColor(0), 4.5) - 1.5) < 0.06);
        f.graph->setEditTarget(Graph::EditTargetNone);
        QVERIFY(std::abs(coverage(dimColor(0), 4.5) - 1.0) < 0.06);
        f.solo(0);
        QVERIFY(std::abs(coverage(Qt::white, 4.5) - 1.5) < 0.06);
    }
}

void tst_EqualizerGraphPainting::handles()
{
    for (int band = 0; band < 6; ++band)
        for (const double scale : {0.5, 1.0, 2.0, 4.0}) {
            GraphFixture f(scaled(scale));
            f.bind();
            // A handle off the curve, between grid lines.
            arrange(f, only(band, {1, 3, 500, 625, 45}));
            f.graph->setEditTarget(targetOf(band));
            const QImage picture = f.picture();
            const double ratio = picture.devicePixelRatio();
            const QPointF centre = QPointF(f.plot().x(hertz(625)), f.plot().y(4.5)) * ratio;
            const double radius = 3.0 * f.plot().u * ratio;
            const QRect box =
                QRectF(centre - QPointF(radius, radius), QSizeF(2, 2) * radius).toRect();
            for (int y = box.top(); y <= box.bottom(); ++y)
                for (int x = box.left(); x <= box.right(); ++x)
                    if (QLineF(centre, {x + 0.5, y + 0.5}).length() < radius - 1.0)
                        QCOMPARE(picture.pixelColor(x, y), fullColor(band));
            // Above it the column is clear of it; a bell's flanks run below.
            QVERIFY(colorAt(picture, (centre - QPointF(0, radius + 1.0)) / ratio) !=
                    fullColor(band).rgb());
        }
}

void tst_EqualizerGraphPainting::allBandsOff()
{
    for (const double scale : {1.0, 2.0}) {
        GraphFixture f(scaled(scale));
        f.bind();
        arrange(f, Everything);
        f.solo(-1);
        const QImage picture = f.picture();
        // The total is white, and everything else grey: the grid and the labels have little colour.
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                const QColor pixel = picture.pixelColor(x, y);
                const auto [least, most] = std::minmax({pixel.red(), pixel.green(), pixel.blue()});
                QVERIFY(most - least <= 0x84 - 0x67);
            }
        const DrawnCurve flat(f.plot(), picture.devicePixelRatio(), [](double) { return 0.0; });
        CurveCheck check(f, flat);
        QVERIFY(check.worst(whiteCover) < 0.5);
        QVERIFY(check.columns() > 400);
    }
}

void tst_EqualizerGraphPainting::gridLines_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.5, 2.0, 4.0})
        QTest::addRow("%g", scale) << scale;
}

void tst_EqualizerGraphPainting::gridLines()
{
    QFETCH(double, scale);
    GraphFixture f(scaled(scale));
    f.bind();
    f.solo(-1);
    const QImage picture = f.picture();
    const double ratio = picture.devicePixelRatio();
    const Plot plot = f.plot();
    const double width = plot.u * ratio;
    std::vector<double> rows;
    for (int row = 0; row <= 8; ++row)
        rows.push_back((plot.top + plot.height * row / 8) * ratio);
    std::vector<double> columns = {plot.left * ratio, plot.right * ratio, plot.x(10000) * ratio};
    for (const double decade : {10.0, 100.0, 1000.0})
        for (int digit = 1; digit < 10; ++digit)
            if (digit * decade > 20)
                columns.push_back(plot.x(digit * decade) * ratio);
    QCOMPARE(columns.size(), std::size_t(28));

    // Between two columns, and between two rows. The row of 0 dB is below the total.
    for (const double y : rows) {
        const auto [middle, ink_] = ink(picture, false, plot.x(25) * ratio, y, width + 1);
        QVERIFY(std::abs(middle - y) < 0.1);
        QVERIFY(y == rows[4] || std::abs(ink_ - width) < 0.1);
    }
    const double between = (plot.top + plot.height / 16) * ratio;
    for (const double x : columns) {
        const auto [middle, ink_] = ink(picture, true, between, x, width + 1);
        QVERIFY(std::abs(middle - x) < 0.1);
        QVERIFY(std::abs(ink_ - width) < 0.1);
    }
    // Nothing is brighter away from the lines.
    const auto isFar = [&](double at, const std::vector<double>& lines) {
        return std::none_of(lines.begin(), lines.end(),
                            [&](double line) { return std::abs(at + 0.5 - line) < width + 1; });
    };
    for (int x = static_cast<int>(plot.left * ratio); x < picture.width(); ++x)
        QVERIFY(!isFar(x, columns) || qRed(picture.pixel(x, static_cast<int>(between))) == 0);
    for (int y = 0; y < plot.bottom * ratio; ++y)
        QVERIFY(!isFar(y, rows) ||
                qRed(picture.pixel(static_cast<int>(plot.x(27) * ratio), y)) == 0);
}

void tst_EqualizerGraphPainting::oddSizes()
{
    for (const QSize size : {QSize(0, 0),
                             {1, 1},
                             {50, 10},
                             {1, 1000},
                             {1000, 1},
                             {58, 192},
                             {59, 192},
                             {0, 50},
                             {50, 0},
                             {3, 3},
                             {6, 20},
                             {2000, 2}}) {
        GraphFixture f(size);
        f.bind();
        arrange(f, Everything);
        f.graph->setEditTarget(Graph::EditTargetMiddle1);
        f.editor.show();
        f.graph->repaint();
        QVERIFY(size.isEmpty() || !f.picture().isNull());
        f.graph->getPointTarget(QPoint(0, 0));
    }
}

void tst_EqualizerGraphPainting::oddSampleRates()
{
    GraphFixture f;
    f.bind();
    arrange(f, Everything);
    const QImage before = f.picture();
    for (const int rate : {0, 1, -1, -44100, 19, 20, 21, 1000, 40000,
                           std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        f.graph->setFs(rate);
        for (const int type : {0, 1, 2, 3}) {
            f.set(typeName(0), type);
            f.set(typeName(5), type);
            f.picture();
        }
        f.graph->setFs(44100);
        arrange(f, Everything);
        QCOMPARE(f.picture(), before);
    }
}

void tst_EqualizerGraphPainting::editedHandleIsOnTop()
{
    GraphFixture f(scaled(2));
    f.bind();
    for (int band = 0; band < 6; ++band) {
        f.graph->setEditTarget(targetOf(band));
        QCOMPARE(colorAt(f.picture(), f.graph->getTargetPoint(targetOf(0))), fullColor(band).rgb());
    }
    f.graph->setEditTarget(Graph::EditTargetNone);
    QCOMPARE(colorAt(f.picture(), f.graph->getTargetPoint(targetOf(0))), dimColor(5).rgb());
}

void tst_EqualizerGraphPainting::handlesAreClipped()
{
    GraphFixture f(scaled(4));
    f.bind();
    arrange(f, only(2, {1, 0, 250, 0, 0}));
    const double reach = 8.0; // of 12 pixels
    const QImage picture = f.picture();
    const QPointF handle = f.graph->getTargetPoint(targetOf(2));
    QCOMPARE(colorAt(picture, handle + QPointF(reach, 5)), dimColor(2).rgb());
    QCOMPARE(colorAt(picture, handle + QPointF(-reach, 5)), QColor(Qt::black).rgb());
    // A handle above the range is not drawn at all.
    f.graph->setZoom(6);
    f.setBand(2, 600, 200);
    QVERIFY(f.graph->getTargetPoint(targetOf(2)).y() < 0);
    const QImage clipped = f.picture();
    for (int y = 0; y < f.plot().top - 3; ++y)
        QCOMPARE(colorAt(clipped, {f.plot().x(hertz(600)), double(y)}), QColor(Qt::black).rgb());
}

void tst_EqualizerGraphPainting::resizedGraphIsDrawnAnew()
{
    GraphFixture f(scaled(2));
    f.bind();
    arrange(f, Everything);
    f.picture();
    for (const QSize size : {scaled(1), QSize(400, 300), scaled(2), QSize(400, 301)}) {
        f.graph->resize(size);
        GraphFixture fresh(size);
        fresh.bind();
        arrange(fresh, Everything);
        QCOMPARE(f.picture(), fresh.picture());
    }
}

void tst_EqualizerGraphPainting::fontChangeReachesTheLabels()
{
    GraphFixture f;
    f.bind();
    const QImage before = f.picture();
    QFont font = f.graph->font();
    font.setBold(!font.bold());
    f.graph->setFont(font);
    QVERIFY(f.picture() != before);
    // The labels' size is the graph's own.
    font.setBold(!font.bold());
    font.setPixelSize(40);
    f.graph->setFont(font);
    QCOMPARE(f.picture(), before);
}

void tst_EqualizerGraphPainting::repaintsOnlyOnChange()
{
    GraphFixture f;
    auto* beside = new QWidget(&f.editor);
    beside->setGeometry(0, 300, 10, 10);
    f.editor.resize(700, 320);
    f.bind();
    PaintCounter graph(f.graph);
    PaintCounter sentinel(beside);
    f.editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f.editor));
    QTRY_VERIFY(graph.count > 0 && sentinel.count > 0);

    // Widgets of one window are painted together: once the one beside has been, the graph has been
    // if it had to.
    const auto paints = [&](const std::function<void()>& action) {
        graph.count = 0;
        sentinel.count = 0;
        action();
        beside->update();
        return QTest::qWaitFor([&] { return sentinel.count > 0; }) ? graph.count : -1;
    };
    paints([] {});
    QCOMPARE(paints([] {}), 0);
    const unsigned short id = f.host.id(frequencyName(1));

    QCOMPARE(paints([&] { f.graph->setFs(44100); }), 0);
    QCOMPARE(paints([&] { f.graph->setCh(0); }), 0);
    QCOMPARE(paints([&] { f.graph->setEditTarget(Graph::EditTargetNone); }), 0);
    QCOMPARE(paints([&] { f.graph->setZoom(7); }), 0);
    QCOMPARE(paints([&] { f.graph->setZoom(-1); }), 0);
    QCOMPARE(paints([&] { f.graph->Update(id, 1, 3, nullptr); }), 0);
    QCOMPARE(paints([&] { f.graph->UpdateProperty(id, 0, 1, 2, 3, true, nullptr); }), 0);

    QCOMPARE(paints([&] { f.graph->setFs(48000); }), 1);
    QCOMPARE(paints([&] { f.graph->setEditTarget(Graph::EditTargetHigh); }), 1);
    QCOMPARE(paints([&] { f.graph->setZoom(4); }), 1);
    QCOMPARE(paints([&] { f.graph->zoomUp(); }), 1);
    QCOMPARE(paints([&] { f.graph->zoomDown(); }), 1);
    for (const int number : SlotNumbers)
        QCOMPARE(paints([&] { f.set(TestHost::name(number), 1); }), 1);
    QCOMPARE(paints([&] { f.graph->Update(0, 0, 3, nullptr); }), 1);
    // A burst of changes is one paint.
    QCOMPARE(paints([&] {
                 for (int raw = 0; raw < 100; ++raw)
                     f.set(gainName(2), raw);
             }),
             1);
    QCOMPARE(paints([&] { f.graph->setCh(1); }), 1);
    f.graph->setZoom(6);
    paints([] {});
    QCOMPARE(paints([&] { f.graph->zoomUp(); }), 0);
    f.graph->setZoom(0);
    paints([] {});
    QCOMPARE(paints([&] { f.graph->zoomDown(); }), 0);
}

void tst_EqualizerGraphPainting::everyChangeLeavesAFreshPicture()
{
    // Strokes are kept and erased between repaints; a graph that has seen nothing before must not
    // look any different.
    GraphFixture fixture;
    fixture.bind();
    std::mt19937 random(20);
    const auto pick = [&](int count) { return static_cast<int>(random() % unsigned(count)); };
    int target = 0;
    for (int step = 0; step < 120; ++step) {
        const int band = pick(6);
        switch (pick(6)) {
        case 0:
            fixture.set(onName(band), pick(2));
            break;
        case 1:
            fixture.set(frequencyName(band), pick(1201));
            break;
        case 2:
            fixture.set(gainName(band), pick(401) - 200);
            break;
        case 3:
            fixture.set(typeName(band), band == 0 || band == 5 ? pick(4) : pick(501));
            break;
        case 4:
            fixture.graph->setZoom(pick(7));
            break;
        default:
            target = pick(7);
            break;
        }
        fixture.graph->setEditTarget(static_cast<ZoltaEqualizerGraph::EditTarget>(target));

        GraphFixture fresh;
        for (int number = 1; number <= 24; ++number)
            fresh.host.set(TestHost::name(number), 0,
                           fixture.host.value(TestHost::name(number), 0));
        fresh.bind();
        fresh.graph->setZoom(fixture.graph->zoom());
        fresh.graph->setEditTarget(static_cast<ZoltaEqualizerGraph::EditTarget>(target));
        QCOMPARE(fixture.picture(), fresh.picture());
    }
}

ZOLTA_TEST_MAIN(tst_EqualizerGraphPainting)

#include "tst_EqualizerGraphPainting.moc"
