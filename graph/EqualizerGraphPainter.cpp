// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/EqualizerGraphPainter.h"

#include "effect/PixelRounding.h"
#include "graph/GraphView.h"
#include "graph/WideRegisters.h"
#include "widgets/PixelCopy.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace {

constexpr QColor FrameColor(0x67, 0x77, 0x84);
constexpr QColor LowColor(0xED, 0x1C, 0x24);
constexpr QColor Middle1Color(0xED, 0x6B, 0x1C);
constexpr QColor Middle2Color(0xFE, 0xBA, 0x24);
constexpr QColor Middle3Color(0x11, 0xB5, 0x19);
constexpr QColor Middle4Color(0x14, 0xA8, 0xAD);
constexpr QColor HighColor(0x95, 0x19, 0xD0);
constexpr QColor TotalLineColor(0xFF, 0xFF, 0xFF);
constexpr std::array<QColor, EqualizerBands::Count> BandColors = {
    LowColor, Middle1Color, Middle2Color, Middle3Color, Middle4Color, HighColor};
constexpr QColor LabelColor(0x9A, 0xA8, 0xB4);
constexpr int DimFactor = 150;

constexpr std::array<int, 26> GridFrequencies = {
    30,  40,  50,  60,   70,   80,   90,   100,  200,  300,  400,  500,  600,
    700, 800, 900, 1000, 2000, 3000, 4000, 5000, 6000, 7000, 8000, 9000, 10000};

struct FrequencyLabel
{
    double frequency;
    const char* text;
};
constexpr std::array<FrequencyLabel, 10> FrequencyLabels = {{{20.0, "20"},
                                                             {50.0, "50"},
                                                             {100.0, "100"},
                                                             {200.0, "200"},
                                                             {500.0, "500"},
                                                             {1000.0, "1k"},
                                                             {2000.0, "2k"},
                                                             {5000.0, "5k"},
                                                             {10000.0, "10k"},
                                                             {20000.0, "20k"}}};
constexpr int RowsAboveZero = 4;
constexpr int GridRows = 2 * RowsAboveZero;

// In units of the plot's height, as all lengths here.
constexpr double LabelSize = 12.0;
constexpr double SampleStep = 3.0;
constexpr double HandleRadius = 3.0;
constexpr double ThinLine = 1.0;
constexpr double ThickLine = 1.5;

constexpr std::size_t TotalCurve = EqualizerBands::Count;
constexpr std::size_t CurveCount = TotalCurve + 1;

/// How far beyond the plot a curve is followed, in plot heights: far enough for the part within to
/// be straight, near enough for any pixel coordinate to be exact.
constexpr double CurveReach = 16.0;

QRect clipRect(const GraphView& view, double pixelRatio)
{
    const QRectF plot = view.plotRect();
    return QRectF(plot.topLeft() * pixelRatio, plot.size() * pixelRatio).toRect();
}

void drawGridLines(QPainter& painter, const PlotAxes& axes)
{
    painter.setPen(QPen(FrameColor, axes.unit()));
    for (int row = 0; row <= GridRows; ++row) {
        const double y = axes.top() + axes.height() * row / GridRows;
        painter.drawLine(QLineF(axes.left(), y, axes.right(), y));
    }
    const auto drawVertical = [&](double x) {
        painter.drawLine(QLineF(x, axes.top(), x, axes.bottom()));
    };
    drawVertical(axes.left());
    drawVertical(axes.right());
    for (const int frequency : GridFrequencies)
        drawVertical(axes.x(frequency));
}

/// The label of a grid row, 0 at the top. Fractions are cut off, deliberately: a range of 2 dB
/// reads "+2", "+1", "+1", "+0", "0dB" and so on.
QString levelLabel(int row, double range)
{
    const int steps = RowsAboveZero - row;
    if (steps == 0)
        return QStringLiteral("0dB");
    const int level = static_cast<int>(range * std::abs(steps) / RowsAboveZero);
    return (steps > 0 ? QLatin1Char('+') : QLatin1Char('-')) + QString::number(level);
}

void drawLabels(QPainter& painter, const PlotAxes& axes)
{
    const double u = axes.unit();
    const double lineHeight = 16.0 * u;
    painter.setPen(LabelColor);
    for (int row = 0; row <= GridRows; ++row) {
        const double y = axes.top() + axes.height() * row / GridRows;
        painter.drawText(QRectF(0.0, y - lineHeight / 2.0, axes.left() - 6.0 * u, lineHeight),
                         Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip,
                         levelLabel(row, axes.range()));
    }
    for (const FrequencyLabel& label : FrequencyLabels)
        painter.drawText(QRectF(axes.x(label.frequency) - 20.0 * u, axes.bottom() + 5.0 * u,
                                40.0 * u, lineHeight),
                         Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextDontClip,
                         QLatin1String(label.text));
}

QColor color(int band) { return BandColors[static_cast<std::size_t>(band)]; }

QColor dimColor(int band) { return color(band).darker(DimFactor); }

/// The bands' responses, then the total, in pixels of the picture.
std::array<std::vector<QPointF>, CurveCount> sampleCurves(const GraphView& view, double pixelRatio)
{
    const PlotAxes& axes = view.axes();
    const EqualizerResponse response = view.bands().response();
    const double reach = CurveReach * axes.height();
    const auto append = [&](std::vector<QPointF>& curve, double x, double level) {
        const double y = axes.y(level);
        if (std::isfinite(y))
            curve.push_back(
                QPointF(x, std::clamp(y, axes.centre() - reach, axes.centre() + reach)) *
                pixelRatio);
    };

    std::array<std::vector<QPointF>, CurveCount> curves;
    const int step = std::max(static_cast<int>(SampleStep * axes.unit()), 1);
    for (std::vector<QPointF>& curve : curves)
        curve.reserve(static_cast<std::size_t>(axes.width()) / static_cast<std::size_t>(step) + 4);
    for (int i = -step; i <= axes.width() + step; i += step) {
        const double x = axes.left() + i;
        const EqualizerResponse::Levels levels =
            response.levels(axes.frequency(x), view.bands().sampleRate());
        for (std::size_t band = 0; band < levels.band.size(); ++band)
            append(curves[band], x, levels.band[band]);
        append(curves[TotalCurve], x, levels.total);
    }
    return curves;
}

void drawHandles(QPainter& painter, const GraphView& view, int editedBand)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(view.plotRect());
    painter.setPen(Qt::NoPen);
    const double radius = HandleRadius * view.axes().unit();
    const auto draw = [&](int band, const QColor& brush) {
        painter.setBrush(brush);
        painter.drawEllipse(view.handle(band), radius, radius);
    };
    for (int band = 0; band < EqualizerBands::Count; ++band)
        if (view.isOn(band) && band != editedBand)
            draw(band, dimColor(band));
    if (view.isOn(editedBand))
        draw(editedBand, color(editedBand));
}

/// Within the clip of drawHandles().
void drawMark(QPainter& painter, const GraphView& view, int band)
{
    const double radius = GraphView::MarkRadius * view.axes().unit();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color(band), GraphView::MarkWidth * view.axes().unit()));
    painter.drawEllipse(view.handle(band), radius, radius);
}

} // namespace

QRegion EqualizerGraphPainter::prepare(const GraphView& view, int editedBand, double pixelRatio)
{
    if (m_gridKey.size != view.size() || m_gridKey.pixelRatio != pixelRatio ||
        m_gridKey.range != view.axes().range())
        return view.plotRect().toAlignedRect();
    QRegion changed = moveHandles(view);
    for (const QRect& rect : drawCurves(view, editedBand)) {
        const QRectF place(QPointF(rect.topLeft()) / pixelRatio, QSizeF(rect.size()) / pixelRatio);
        changed += place.toAlignedRect().adjusted(-1, -1, 1, 1); // a picture may be smoothed
    }
    m_isPrepared = true;
    return changed;
}

void EqualizerGraphPainter::paint(QPainter& painter, const GraphView& view, int editedBand,
                                  int focusedBand, const SvgRaster& ground)
{
    const PlotAxes& axes = view.axes();
    const QPoint corner = painter.deviceTransform().map(QPointF()).toPoint();
    if (axes.width() <= 0.0 || axes.height() <= 0.0) {
        const QSize size = (QSizeF(view.size()) * painter.device()->devicePixelRatioF()).toSize();
        if (!ground.image.isNull())
            copyPixels(painter, corner, ground.image, QRect(-ground.offset, size),
                       painter.opacity());
        return;
    }
    GridKey key{view.size(),
                painter.device()->devicePixelRatioF(),
                axes.range(),
                painter.font(),
                ground.image.cacheKey(),
                ground.offset};
    if (key != m_gridKey) {
        m_gridKey = std::move(key);
        m_isPrepared = false;
        drawGrid(view, ground);
    }
    if (!std::exchange(m_isPrepared, false)) {
        moveHandles(view);
        drawCurves(view, editedBand);
    }
    if (ground.image.isNull())
        painter.drawImage(QPointF(), m_picture);
    else
        copyPixels(painter, corner, m_picture, m_picture.rect(), painter.opacity());
    drawHandles(painter, view, editedBand);
    if (view.isOn(focusedBand))
        drawMark(painter, view, focusedBand);
}

void EqualizerGraphPainter::drawGrid(const GraphView& view, const SvgRaster& ground)
{
    QImage grid = gridPicture(view);
    grid.setDevicePixelRatio(1.0);
    m_grid = GridOnGround(grid, ground.image, -ground.offset);
    if (ground.image.isNull()) {
        m_picture = std::move(grid);
        m_picture.setDevicePixelRatio(m_gridKey.pixelRatio);
    } else {
        m_picture = ground.image.copy(QRect(-ground.offset, grid.size()));
        QPainter(&m_picture).drawImage(0, 0, grid);
    }
    m_raster.setClip(clipRect(view, m_gridKey.pixelRatio) & m_picture.rect());
    m_curves = {};
    m_shown.clear();
}

QImage EqualizerGraphPainter::gridPicture(const GraphView& view) const
{
    QImage grid(QSizeF(m_gridKey.size * m_gridKey.pixelRatio).toSize(),
                QImage::Format_ARGB32_Premultiplied);
    grid.setDevicePixelRatio(m_gridKey.pixelRatio);
    grid.fill(Qt::transparent);
    QPainter painter(&grid);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    drawGridLines(painter, view.axes());
    QFont font = m_gridKey.font;
    font.setPixelSize(std::max(roundToPixel(LabelSize * view.axes().unit()), 1));
    painter.setFont(font);
    drawLabels(painter, view.axes());
    return grid;
}

std::vector<QRect> EqualizerGraphPainter::drawCurves(const GraphView& view, int editedBand)
{
    releaseWideRegisters();
    auto points = sampleCurves(view, m_gridKey.pixelRatio);
    std::vector<Shown> shown = shownCurves(view, editedBand);
    const bool isRearranged = shown != m_shown;
    const double unit = view.axes().unit() * m_gridKey.pixelRatio;
    m_changed.clear();
    for (std::size_t i = 0; i < m_curves.size(); ++i) {
        const Shown* now = find(shown, i);
        Curve& curve = m_curves[i];
        const bool isAnother =
            now && (points[i] != curve.points || now->width * unit != curve.width);
        if (isAnother)
            setCurve(curve, std::move(points[i]), now->width * unit);
        if (isRearranged && (now || find(m_shown, i)))
            m_changed.add(curve.stroke);
        if (isAnother)
            m_changed.addDifference(curve.before, curve.stroke);
    }
    m_shown = std::move(shown);
    return drawChanges();
}

const EqualizerGraphPainter::Shown* EqualizerGraphPainter::find(const std::vector<Shown>& shown,
                                                                std::size_t curve)
{
    const auto found = std::find_if(shown.begin(), shown.end(),
                                    [curve](const Shown& item) { return item.curve == curve; });
    return found == shown.end() ? nullptr : &*found;
}

std::vector<EqualizerGraphPainter::Shown> EqualizerGraphPainter::shownCurves(const GraphView& view,
                                                                             int editedBand)
{
    std::vector<Shown> shown;
    for (int band = 0; band < EqualizerBands::Count; ++band)
        if (view.isOn(band) && band != editedBand)
            shown.push_back({static_cast<std::size_t>(band), dimColor(band), ThinLine});
    shown.push_back({TotalCurve, TotalLineColor, ThickLine});
    if (view.isOn(editedBand))
        shown.push_back({static_cast<std::size_t>(editedBand), color(editedBand), ThickLine});
    return shown;
}

void EqualizerGraphPainter::setCurve(Curve& curve, std::vector<QPointF>&& points, double width)
{
    curve.points = std::move(points);
    curve.width = width;
    curve.before = std::exchange(curve.stroke, m_raster.stroke(curve.points, width));
}

std::vector<QRect> EqualizerGraphPainter::drawChanges()
{
    std::vector<ColoredStroke> strokes;
    for (const Shown& item : m_shown)
        strokes.push_back({&m_curves[item.curve].stroke, item.color.rgb()});
    return m_changed.draw(m_grid, strokes, m_picture);
}

QRegion EqualizerGraphPainter::moveHandles(const GraphView& view)
{
    QRegion moved;
    for (int band = 0; band < EqualizerBands::Count; ++band) {
        const QRectF now = view.markRect(band);
        const QRectF before = std::exchange(m_handles[static_cast<std::size_t>(band)], now);
        if (now != before)
            moved += QRegion(before.toAlignedRect()) + now.toAlignedRect();
    }
    return moved;
}
