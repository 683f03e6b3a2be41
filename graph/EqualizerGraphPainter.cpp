// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/EqualizerGraphPainter.h"

#include "effect/PixelRounding.h"
#include "equalizer/EqualizerBands.h"
#include "equalizer/PlotAxes.h"
#include "graph/WideRegisters.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <array>
#include <cmath>
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
constexpr double MarkRadius = 5.5;
constexpr double ThinLine = 1.0;
constexpr double ThickLine = 1.5;

constexpr std::size_t TotalCurve = EqualizerBands::Count;
constexpr std::size_t CurveCount = TotalCurve + 1;

/// How far beyond the plot a curve is followed, in plot heights: far enough for the part within to
/// be straight, near enough for any pixel coordinate to be exact.
constexpr double CurveReach = 16.0;

QRectF plotRect(const PlotAxes& axes)
{
    return {axes.left(), axes.top(), axes.width(), axes.height()};
}

QRect clipRect(const PlotAxes& axes, double pixelRatio)
{
    const QRectF plot = plotRect(axes);
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

bool isOn(const EqualizerBands& bands, int band)
{
    return band >= 0 && band < EqualizerBands::Count && bands[band].on;
}

/// The bands' responses, then the total, in pixels of the picture.
std::array<std::vector<QPointF>, CurveCount> sampleCurves(const EqualizerBands& bands,
                                                          const PlotAxes& axes, double pixelRatio)
{
    const EqualizerResponse response = bands.response();
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
    for (int i = -step; i <= axes.width() + step; i += step) {
        const double x = axes.left() + i;
        const EqualizerResponse::Levels levels =
            response.levels(axes.frequency(x), bands.sampleRate());
        for (std::size_t band = 0; band < levels.band.size(); ++band)
            append(curves[band], x, levels.band[band]);
        append(curves[TotalCurve], x, levels.total);
    }
    return curves;
}

void drawHandles(QPainter& painter, const EqualizerBands& bands, const PlotAxes& axes,
                 int editedBand)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(plotRect(axes));
    painter.setPen(Qt::NoPen);
    const double radius = HandleRadius * axes.unit();
    const auto draw = [&](int band, const QColor& brush) {
        painter.setBrush(brush);
        painter.drawEllipse(EqualizerGraphPainter::handle(bands, band, axes), radius, radius);
    };
    for (int band = 0; band < EqualizerBands::Count; ++band)
        if (bands[band].on && band != editedBand)
            draw(band, dimColor(band));
    if (isOn(bands, editedBand))
        draw(editedBand, color(editedBand));
}

/// Within the clip of drawHandles().
void drawMark(QPainter& painter, const EqualizerBands& bands, const PlotAxes& axes, int band)
{
    const double radius = MarkRadius * axes.unit();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color(band), ThickLine * axes.unit()));
    painter.drawEllipse(EqualizerGraphPainter::handle(bands, band, axes), radius, radius);
}

} // namespace

QPointF EqualizerGraphPainter::handle(const EqualizerBands& bands, int band, const PlotAxes& axes)
{
    const double x = axes.x(bands[band].frequency);
    if (bands.hasGain(band))
        return {x, axes.y(bands[band].gain)};
    if (bands.isPass(band))
        return {x, axes.centre()};
    return {};
}

QRectF EqualizerGraphPainter::markRect(const EqualizerBands& bands, int band, const PlotAxes& axes)
{
    const double reach = (MarkRadius + ThickLine / 2.0) * axes.unit();
    const QPointF centre = handle(bands, band, axes);
    return QRectF(centre - QPointF(reach, reach), QSizeF(2.0 * reach, 2.0 * reach)) &
           plotRect(axes);
}

void EqualizerGraphPainter::paint(QPainter& painter, QSize size, const EqualizerBands& bands,
                                  const PlotAxes& axes, int editedBand, int focusedBand)
{
    if (axes.width() <= 0.0 || axes.height() <= 0.0)
        return;
    GridKey key{size, painter.device()->devicePixelRatioF(), axes.range(), painter.font()};
    if (key != m_gridKey) {
        m_gridKey = std::move(key);
        drawGrid(axes);
    }
    drawCurves(bands, axes, editedBand);
    painter.drawImage(QPointF(), m_picture);
    drawHandles(painter, bands, axes, editedBand);
    if (isOn(bands, focusedBand))
        drawMark(painter, bands, axes, focusedBand);
}

void EqualizerGraphPainter::drawGrid(const PlotAxes& axes)
{
    m_grid = QImage(QSizeF(m_gridKey.size * m_gridKey.pixelRatio).toSize(),
                    QImage::Format_ARGB32_Premultiplied);
    m_grid.setDevicePixelRatio(m_gridKey.pixelRatio);
    m_grid.fill(Qt::transparent);
    QPainter painter(&m_grid);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    drawGridLines(painter, axes);
    QFont font = m_gridKey.font;
    font.setPixelSize(std::max(roundToPixel(LabelSize * axes.unit()), 1));
    painter.setFont(font);
    drawLabels(painter, axes);
    painter.end();

    m_picture = m_grid.copy();
    m_raster.setClip(clipRect(axes, m_gridKey.pixelRatio) & m_grid.rect());
    m_curves = {};
    m_shown.clear();
}

void EqualizerGraphPainter::drawCurves(const EqualizerBands& bands, const PlotAxes& axes,
                                       int editedBand)
{
    releaseWideRegisters();
    auto points = sampleCurves(bands, axes, m_gridKey.pixelRatio);
    std::vector<Shown> shown = shownCurves(bands, editedBand);
    const bool same = shown == m_shown && std::all_of(shown.begin(), shown.end(), [&](auto& item) {
                          return points[item.curve] == m_curves[item.curve].points;
                      });
    if (same)
        return;

    for (const Shown& item : m_shown)
        m_curves[item.curve].stroke.erase(m_picture, m_grid);
    m_shown = std::move(shown);
    const double unit = axes.unit() * m_gridKey.pixelRatio;
    for (const Shown& item : m_shown) {
        Curve& curve = m_curves[item.curve];
        setCurve(curve, std::move(points[item.curve]), item.width * unit);
        curve.stroke.draw(m_picture, item.color);
    }
}

std::vector<EqualizerGraphPainter::Shown>
EqualizerGraphPainter::shownCurves(const EqualizerBands& bands, int editedBand)
{
    std::vector<Shown> shown;
    for (int band = 0; band < EqualizerBands::Count; ++band)
        if (bands[band].on && band != editedBand)
            shown.push_back({static_cast<std::size_t>(band), dimColor(band), ThinLine});
    shown.push_back({TotalCurve, TotalLineColor, ThickLine});
    if (isOn(bands, editedBand))
        shown.push_back({static_cast<std::size_t>(editedBand), color(editedBand), ThickLine});
    return shown;
}

void EqualizerGraphPainter::setCurve(Curve& curve, std::vector<QPointF>&& points, double width)
{
    if (points == curve.points && width == curve.width)
        return;
    curve.stroke = m_raster.stroke(points, width);
    curve.points = std::move(points);
    curve.width = width;
}
