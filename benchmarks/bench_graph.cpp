// SPDX-License-Identifier: GPL-3.0-or-later
// A repaint of the equalizer graph, beside two plot libraries that draw the same seven curves over
// the same grid in a widget of the same size. All three repaint a shown window of Qt's offscreen
// platform, whose raster engine is also what a desktop window is painted with. "Repaint" draws the
// same picture again; "Moved" changes the gain of one band, and so one curve and the total, first.
// graphMoved is what the editor does when a host writes that value: all that follows until nothing
// is left to do, the knob and the text included. graphMovedWhole repaints all of the graph instead
// of what changed. graphBlit copies one opaque picture of the graph's size to a window.
#include "editor/ZoltaEditor.h"
#include "equalizer/BandDesign.h"
#include "equalizer/EqualizerBands.h"
#include "equalizer/PlotAxes.h"
#include "graph/ZoltaEqualizerGraph.h"
#include "hosting/HostMemory.h"
#include "hosting/HostModel.h"

#include <QApplication>
#include <QChart>
#include <QChartView>
#include <QLineSeries>
#include <QLogValueAxis>
#include <QPainter>
#include <QPixmap>
#include <QValueAxis>

#include <qcustomplot.h>

#include <benchmark/benchmark.h>

namespace {

constexpr QSize GraphSize(679, 192);
constexpr double Range = 12.0;
constexpr int CurveCount = 7;
const std::array<QColor, CurveCount> Colors = {QColor(0xED, 0x1C, 0x24), QColor(0xED, 0x6B, 0x1C),
                                               QColor(0xFE, 0xBA, 0x24), QColor(0x11, 0xB5, 0x19),
                                               QColor(0x14, 0xA8, 0xAD), QColor(0x95, 0x19, 0xD0),
                                               QColor(0xFF, 0xFF, 0xFF)};

struct Setting
{
    const char* name;
    double position;
};
/// Every band on and away from 0 dB.
constexpr std::array<Setting, 6> Gains = {{{"fx_rackfx_prm_3", 0.7},
                                           {"fx_rackfx_prm_7", 0.3},
                                           {"fx_rackfx_prm_11", 0.65},
                                           {"fx_rackfx_prm_15", 0.4},
                                           {"fx_rackfx_prm_19", 0.6},
                                           {"fx_rackfx_prm_23", 0.35}}};

constexpr int MovedBand = 2;
/// Where the moved band's gain goes to and fro.
constexpr std::array<double, 2> MovedPositions = {0.66, 0.65};

/// An editor on the host's memory, as the host opens it.
class BoundEditor
{
public:
    explicit BoundEditor(double scale)
    {
        m_editor.setModelInfo(&m_model);
        m_editor.initialize();
        m_editor.setMemAPI(&m_memory);
        m_editor.setCh(0, 0);
        for (const Setting& gain : Gains)
            write(gain.name, gain.position);
        m_editor.setScale(scale);
        m_editor.show();
        QApplication::processEvents();
    }
    ~BoundEditor() { m_editor.setMemAPI(nullptr); }

    void write(const char* name, double position)
    {
        unsigned short id = 0;
        m_editor.getParameter(name, &id, nullptr);
        int minimum = 0;
        int maximum = 0;
        m_memory.getRange(id, 0, &minimum, &maximum);
        m_memory.setValue(
            id, 0, BandDesign::rawValue(static_cast<float>(position), minimum, maximum), 0, 0, 1);
    }

    ZoltaEqualizerGraph* graph() { return m_editor.findChild<ZoltaEqualizerGraph*>(); }

private:
    HostMemory m_memory;
    HostModel m_model{m_memory};
    ZoltaEditor m_editor;
};

/// The seven curves, in Hz and dB, sampled as the graph samples them.
using Curves = std::array<QVector<QPointF>, CurveCount>;

Curves curves(double scale, double movedPosition = Gains[MovedBand].position)
{
    EqualizerBands bands;
    for (int band = 0; band < EqualizerBands::Count; ++band)
        bands[band].gain =
            BandDesign::gain(static_cast<float>(Gains[static_cast<std::size_t>(band)].position));
    bands[MovedBand].gain = BandDesign::gain(static_cast<float>(movedPosition));
    bands.designAll();

    const PlotAxes axes(GraphSize.width() * scale, GraphSize.height() * scale, Range);
    const EqualizerResponse response = bands.response();
    const int step = static_cast<int>(3.0 * axes.unit());
    Curves curves;
    for (int x = 0; x <= axes.width(); x += step) {
        const double frequency = axes.frequency(axes.left() + x);
        const EqualizerResponse::Levels levels = response.levels(frequency, bands.sampleRate());
        for (std::size_t band = 0; band < levels.band.size(); ++band)
            curves[band].append({frequency, levels.band[band]});
        curves.back().append({frequency, levels.total});
    }
    return curves;
}

QPen curvePen(std::size_t curve, double scale)
{
    return QPen(Colors[curve], curve == CurveCount - 1 ? 1.5 * scale : scale);
}

QPen gridPen(double scale) { return QPen(QColor(0x67, 0x77, 0x84), scale); }

template <typename Repaint> void repaintGraph(benchmark::State& state, bool move, Repaint repaint)
{
    BoundEditor editor(static_cast<double>(state.range(0)));
    ZoltaEqualizerGraph* graph = editor.graph();
    std::size_t turn = 0;
    for (auto _ : state) {
        if (move)
            editor.write(Gains[MovedBand].name, MovedPositions[turn ^= 1]);
        repaint(graph);
    }
}

void repaintAll(ZoltaEqualizerGraph* graph) { graph->repaint(); }
void repaintAsNeeded(ZoltaEqualizerGraph*) { QApplication::processEvents(); }

void graphRepaint(benchmark::State& state) { repaintGraph(state, false, repaintAll); }
void graphMoved(benchmark::State& state) { repaintGraph(state, true, repaintAsNeeded); }
void graphMovedWhole(benchmark::State& state) { repaintGraph(state, true, repaintAll); }

class Picture : public QWidget
{
public:
    explicit Picture(QSize size)
        : m_pixmap(size)
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
        m_pixmap.fill(Qt::black);
        resize(size);
    }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).drawPixmap(0, 0, m_pixmap); }

private:
    QPixmap m_pixmap;
};

void graphBlit(benchmark::State& state)
{
    Picture picture(GraphSize * static_cast<double>(state.range(0)));
    picture.show();
    QApplication::processEvents();
    for (auto _ : state)
        picture.repaint();
}

std::array<Curves, 2> movedCurves(double scale)
{
    return {curves(scale, MovedPositions[0]), curves(scale, MovedPositions[1])};
}

void repaintChart(benchmark::State& state, bool move)
{
    const auto scale = static_cast<double>(state.range(0));
    auto* chart = new QChart;
    chart->legend()->hide();
    chart->setMargins({});
    chart->setBackgroundRoundness(0.0);
    chart->setBackgroundBrush(Qt::black);
    auto* x = new QLogValueAxis;
    x->setRange(20.0, 20000.0);
    x->setMinorTickCount(8);
    auto* y = new QValueAxis;
    y->setRange(-Range, Range);
    y->setTickCount(9);
    for (QAbstractAxis* axis : {static_cast<QAbstractAxis*>(x), static_cast<QAbstractAxis*>(y)}) {
        axis->setGridLinePen(gridPen(scale));
        axis->setMinorGridLinePen(gridPen(scale));
        axis->setLabelsColor(Qt::white);
    }
    chart->addAxis(x, Qt::AlignBottom);
    chart->addAxis(y, Qt::AlignLeft);
    const Curves data = curves(scale);
    std::array<QLineSeries*, CurveCount> series{};
    for (std::size_t curve = 0; curve < data.size(); ++curve) {
        series[curve] = new QLineSeries;
        series[curve]->replace(data[curve]);
        series[curve]->setPen(curvePen(curve, scale));
        chart->addSeries(series[curve]);
        series[curve]->attachAxis(x);
        series[curve]->attachAxis(y);
    }
    QChartView view(chart);
    view.setRenderHint(QPainter::Antialiasing);
    view.setFrameShape(QFrame::NoFrame);
    view.resize(GraphSize * scale);
    view.show();
    QApplication::processEvents();

    const std::array<Curves, 2> moved = movedCurves(scale);
    std::size_t turn = 0;
    for (auto _ : state) {
        if (move) {
            turn ^= 1;
            series[MovedBand]->replace(moved[turn][MovedBand]);
            series.back()->replace(moved[turn].back());
        }
        view.viewport()->repaint();
    }
}

void chartRepaint(benchmark::State& state) { repaintChart(state, false); }
void chartMoved(benchmark::State& state) { repaintChart(state, true); }

QSharedPointer<QCPGraphDataContainer> plotData(const QVector<QPointF>& curve)
{
    const QSharedPointer<QCPGraphDataContainer> data(new QCPGraphDataContainer);
    for (const QPointF& point : curve)
        data->add(QCPGraphData(point.x(), point.y()));
    return data;
}

void repaintCustomPlot(benchmark::State& state, bool move)
{
    const auto scale = static_cast<double>(state.range(0));
    QCustomPlot plot;
    plot.setAntialiasedElements(QCP::aeAll);
    plot.setBackground(Qt::black);
    const QSharedPointer<QCPAxisTickerLog> decades(new QCPAxisTickerLog);
    decades->setSubTickCount(8);
    const QSharedPointer<QCPAxisTickerFixed> steps(new QCPAxisTickerFixed);
    steps->setTickStep(Range / 4.0);
    plot.xAxis->setScaleType(QCPAxis::stLogarithmic);
    plot.xAxis->setTicker(decades);
    plot.xAxis->setRange(20.0, 20000.0);
    plot.yAxis->setTicker(steps);
    plot.yAxis->setRange(-Range, Range);
    for (QCPAxis* axis : {plot.xAxis, plot.yAxis}) {
        axis->grid()->setPen(gridPen(scale));
        axis->grid()->setSubGridPen(gridPen(scale));
        axis->grid()->setZeroLinePen(gridPen(scale));
        axis->setTickLabelColor(Qt::white);
    }
    plot.xAxis->grid()->setSubGridVisible(true);
    const Curves data = curves(scale);
    for (std::size_t curve = 0; curve < data.size(); ++curve) {
        QCPGraph* graph = plot.addGraph();
        graph->setData(plotData(data[curve]));
        graph->setPen(curvePen(curve, scale));
    }
    plot.resize(GraphSize * scale);
    plot.show();
    QApplication::processEvents();

    std::array<std::array<QSharedPointer<QCPGraphDataContainer>, 2>, 2> moved;
    for (std::size_t i = 0; const Curves& each : movedCurves(scale))
        moved[i++] = {plotData(each[MovedBand]), plotData(each.back())};
    std::size_t turn = 0;
    for (auto _ : state) {
        if (move) {
            turn ^= 1;
            plot.graph(MovedBand)->setData(moved[turn][0]);
            plot.graph(CurveCount - 1)->setData(moved[turn][1]);
        }
        plot.replot(QCustomPlot::rpImmediateRefresh);
    }
}

void customPlotRepaint(benchmark::State& state) { repaintCustomPlot(state, false); }
void customPlotMoved(benchmark::State& state) { repaintCustomPlot(state, true); }

} // namespace

void atEveryScale(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(1)->Arg(2)->Arg(4)->Unit(benchmark::kMicrosecond);
}

BENCHMARK(graphBlit)->Apply(atEveryScale);
BENCHMARK(graphRepaint)->Apply(atEveryScale);
BENCHMARK(chartRepaint)->Apply(atEveryScale);
BENCHMARK(customPlotRepaint)->Apply(atEveryScale);
BENCHMARK(graphMoved)->Apply(atEveryScale);
BENCHMARK(graphMovedWhole)->Apply(atEveryScale);
BENCHMARK(chartMoved)->Apply(atEveryScale);
BENCHMARK(customPlotMoved)->Apply(atEveryScale);

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
