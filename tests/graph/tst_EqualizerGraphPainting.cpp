// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/graph/GraphFocus.h"
#include "tests/graph/GraphPicture.h"
#include "tests/support/TestObject.h"

#include <QGraphicsProxyWidget>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QScopeGuard>
#include <QScreen>

#include <limits>
#include <numeric>

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
/// The middle bands one on the other.
const RawBands Stacked = {{Off,
                           {1, 0, 250, 600, 50},
                           {1, 0, 250, 600, 50},
                           {1, 0, 250, 600, 50},
                           {1, 0, 250, 600, 50},
                           Off}};

void arrange(const GraphFixture& f, const RawBands& bands)
{
    for (int i = 0; i < 6; ++i) {
        const RawBand& raw = bands[static_cast<std::size_t>(i)];
        f.set(onName(i), raw.on);
        f.set(typeName(i), i == 0 || i == 5 ? raw.type : raw.quality);
        f.set(frequencyName(i), raw.frequency);
        f.set(gainName(i), raw.gain);
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

/// What a picture shows of the plot, and beside it.
struct Case
{
    RawBands bands;
    QSize size = scaled(2);
    int zoom = 3;
    int rate = 44100;
    int edited = -1;  ///< a band, or negative
    int focused = -1; ///< likewise
};

/// How many pixels differ by more than a sixteenth of the way from black to white.
int differingPixels(const QImage& a, const QImage& b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            count += channelDifference(a.pixel(x, y), b.pixel(x, y)) > 16;
    return count;
}

QImage without(QImage picture, const QRect& pixels)
{
    picture.setDevicePixelRatio(1.0);
    QPainter(&picture).fillRect(pixels, Qt::black);
    return picture;
}

/// Counts the paint events of a widget.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QObject* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            ++count;
            region = static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
    int count = 0;
    QRegion region; ///< of the last one
};

QImage shown(const QWidget& window)
{
    return window.screen()->grabWindow(window.winId()).toImage();
}

int area(const QRegion& region)
{
    return std::accumulate(region.begin(), region.end(), 0, [](int sum, const QRect& rect) {
        return sum + rect.width() * rect.height();
    });
}

/// Another value for some parameter of a band.
void changeAny(const GraphFixture& f, const std::function<int(int)>& pick)
{
    const int band = pick(6);
    switch (pick(4)) {
    case 0:
        return f.set(onName(band), pick(2));
    case 1:
        return f.set(frequencyName(band), pick(1201));
    case 2:
        return f.set(gainName(band), pick(401) - 200);
    default:
        return f.set(typeName(band), band == 0 || band == 5 ? pick(4) : pick(501));
    }
}

} // namespace

Q_DECLARE_METATYPE(Case)

class tst_EqualizerGraphPainting : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void picture_data();
    void picture();
    void oddSizes();
    void oddSampleRates();
    void fontChangeReachesTheLabels();
    void repaintsOnlyOnChange();
    void everyChangeLeavesAFreshPicture();
    void windowShowsEveryChange();
    void sceneShowsEveryChange();
    void smallChangeIsASmallRepaint();
};

void tst_EqualizerGraphPainting::initTestCase()
{
    // The program runs once at each of several pixel ratios.
    const double ratio = qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1")).toDouble();
    QCOMPARE(GraphFixture().graph->devicePixelRatioF(), ratio);
}

void tst_EqualizerGraphPainting::picture_data()
{
    QTest::addColumn<Case>("c");
    const bool isFine = GraphFixture().graph->devicePixelRatioF() > 1.0;
    const auto add = [&](const QString& name, const Case& c) {
        if (!isFine || c.size.height() < scaled(4).height())
            QTest::newRow(qPrintable(name)) << c;
    };
    for (const int gain : {-90, -30, 40, 100})
        for (const int type : {2, 3}) {
            const QString what = QStringLiteral("shelf %1 %2").arg(type).arg(gain);
            add(QStringLiteral("low ") + what, {only(0, {1, type, 0, 400, gain})});
            add(QStringLiteral("high ") + what, {only(5, {1, type, 0, 850, gain})});
        }
    for (const int type : {0, 1}) {
        add(QStringLiteral("high pass %1").arg(type), {only(0, {1, type, 0, 300, 120})});
        add(QStringLiteral("low pass %1").arg(type), {only(5, {1, type, 0, 1000, 120})});
    }
    for (int band = 1; band < 5; ++band)
        for (const int gain : {-80, 110})
            add(QStringLiteral("middle %1 %2").arg(band).arg(gain),
                {only(band, {1, 0, 60 * band + 60, 250 * band + 10, gain})});
    for (const QSize size : {scaled(0.5), scaled(1), scaled(1.5), scaled(4), {333, 97}, {501, 203}})
        add(QStringLiteral("size %1x%2").arg(size.width()).arg(size.height()), {Everything, size});
    for (int zoom = 0; zoom < 7; ++zoom)
        add(QStringLiteral("zoom %1").arg(zoom), {Everything, scaled(2), zoom});
    RawBands high = Everything;
    high[4] = {1, 0, 120, 1150, 100};
    for (const int rate : {44100, 48000, 96000})
        add(QStringLiteral("%1 Hz").arg(rate), {high, scaled(2), 3, rate});
    RawBands allOff = Everything;
    for (int band = 0; band < 6; ++band) {
        const auto number = static_cast<std::size_t>(band);
        RawBands oneOff = Everything;
        oneOff[number].on = 0;
        allOff[number].on = 0;
        add(QStringLiteral("band %1 is edited").arg(band), {Everything, scaled(2), 3, 44100, band});
        add(QStringLiteral("edit target at disabled band %1").arg(band),
            {oneOff, scaled(2), 3, 44100, band});
        add(QStringLiteral("band %1 has the focus").arg(band),
            {Everything, scaled(1.0 + band % 2), 3, 44100, 2, band});
    }
    for (const int edited : {-1, 1, 2, 4})
        add(QStringLiteral("stacked, %1 is edited").arg(edited),
            {Stacked, scaled(4), 3, 44100, edited});
    add(QStringLiteral("all bands off"), {allOff});
    add(QStringLiteral("twenty decibels at four"), {only(2, {1, 0, 250, 600, 200}), scaled(2), 5});
    add(QStringLiteral("handle at the left edge"), {only(2, {1, 0, 250, 0, 0}), scaled(4)});
    add(QStringLiteral("mark at the right edge"),
        {only(2, {1, 0, 250, 1200, 0}), scaled(2), 5, 44100, -1, 2});
    add(QStringLiteral("mark at the top"),
        {only(2, {1, 0, 250, 600, 40}), scaled(2), 5, 44100, -1, 2});
    add(QStringLiteral("mark above the top"),
        {only(2, {1, 0, 250, 600, 200}), scaled(2), 5, 44100, -1, 2});
}

void tst_EqualizerGraphPainting::picture()
{
    QFETCH(const Case, c);
    ActiveGraph f(c.size);
    f.graph->setZoom(c.zoom);
    f.graph->setFs(c.rate);
    arrange(f, c.bands);
    f.graph->setEditTarget(targetOf(c.edited));
    if (c.focused >= 0)
        QVERIFY(f.focus(c.focused));
    const QImage found = f.picture();
    const QImage expected =
        PaintedGraph{settings(c.bands), c.edited, c.focused, double(c.rate)}.picture(f);
    f.graph->clearFocus();
    f.solo(-1);
    const QImage flat = f.picture();

    // A pixel at an edge belongs to the plot if at least half of it does. QPainter, too, takes a
    // line that is not wider than a pixel for a little less or more than it covers.
    const double ratio = found.devicePixelRatio();
    const QRectF plot(f.plot().rect().topLeft() * ratio, f.plot().rect().size() * ratio);
    const QRect inside(
        QPoint(int(std::ceil(plot.left() - 0.5)), int(std::ceil(plot.top() - 0.5))),
        QPoint(int(std::floor(plot.right() - 0.5)), int(std::floor(plot.bottom() - 0.5))));
    const bool isThin = f.plot().u * ratio <= 1.0;
    QVERIFY(imageDifference(found.copy(inside), expected.copy(inside)) < 96);
    QVERIFY(differingPixels(found.copy(inside), expected.copy(inside)) < (isThin ? 1000 : 120));
    QCOMPARE(without(found, inside), without(flat, inside));
}

void tst_EqualizerGraphPainting::oddSizes()
{
    for (const auto& [width, height] : {std::pair(0, 0),
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
        const QSize size(width, height);
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
        switch (pick(7)) {
        case 0:
            fixture.graph->setZoom(pick(7));
            break;
        case 1:
            fixture.graph->resize(scaled(1.0 + pick(2)));
            break;
        case 2:
            target = pick(8); // 7 is none
            break;
        default:
            changeAny(fixture, pick);
            break;
        }
        fixture.graph->setEditTarget(static_cast<ZoltaEqualizerGraph::EditTarget>(target));

        GraphFixture fresh(fixture.graph->size());
        for (int number = 1; number <= 24; ++number)
            fresh.host.set(TestHost::name(number), 0,
                           fixture.host.value(TestHost::name(number), 0));
        fresh.bind();
        fresh.graph->setZoom(fixture.graph->zoom());
        fresh.graph->setEditTarget(static_cast<ZoltaEqualizerGraph::EditTarget>(target));
        QCOMPARE(fixture.picture(), fresh.picture());
    }
}

// Only what a change moves is repainted: nothing else may be left to repaint.
void tst_EqualizerGraphPainting::windowShowsEveryChange()
{
    GraphFixture f(scaled(1.5));
    f.bind();
    f.editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f.editor));
    std::mt19937 random(21);
    const auto pick = [&](int count) { return static_cast<int>(random() % unsigned(count)); };
    for (int step = 0; step < 200; ++step) {
        for (int changes = pick(3); changes >= 0; --changes) {
            changeAny(f, pick);
            switch (pick(12)) {
            case 0:
                f.picture();
                break;
            case 1:
                f.graph->repaint(QRect(pick(600), pick(200), 90, 60));
                break;
            case 2:
                f.editor.hide();
                f.editor.show();
                break;
            case 3:
                f.graph->setEditTarget(targetOf(pick(6)));
                break;
            case 4:
                f.graph->setZoom(pick(7));
                break;
            case 5:
                f.graph->setUpdatesEnabled(false);
                f.editor.update();
                QApplication::processEvents();
                f.graph->setFs(40000 + pick(9000));
                f.graph->setUpdatesEnabled(true);
                break;
            default:
                break;
            }
        }
        QApplication::processEvents();
        const QImage found = shown(f.editor);
        f.editor.repaint();
        QCOMPARE(found, shown(f.editor));
    }
}

void tst_EqualizerGraphPainting::sceneShowsEveryChange()
{
    GraphFixture f;
    f.bind();
    QGraphicsScene scene;
    QGraphicsProxyWidget* const proxy = scene.addWidget(&f.editor);
    const auto release = qScopeGuard([&] { proxy->setWidget(nullptr); });
    QGraphicsView view(&scene);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    for (const int gain : {30, 40, -200, 120}) {
        f.set(gainName(2), gain);
        QTest::qWait(0);
        const QImage found = shown(view);
        proxy->update();
        QTest::qWait(0);
        QCOMPARE(found, shown(view));
    }
}

void tst_EqualizerGraphPainting::smallChangeIsASmallRepaint()
{
    GraphFixture f(scaled(2));
    f.bind();
    arrange(f, Everything);
    f.editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f.editor));
    PaintCounter graph(f.graph);
    const auto painted = [&](int band, int gain) {
        graph.region = {};
        f.set(gainName(band), gain);
        QApplication::processEvents();
        return double(area(graph.region)) / area(f.plot().rect().toAlignedRect());
    };
    const double small = painted(2, 61);
    QVERIFY(small > 0.0);
    QVERIFY(small < 0.4);
    QVERIFY(painted(2, -200) > small);
}

ZOLTA_TEST_MAIN(tst_EqualizerGraphPainting)

#include "tst_EqualizerGraphPainting.moc"
