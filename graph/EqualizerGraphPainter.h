// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/EqualizerBands.h"
#include "graph/ChangedRows.h"
#include "graph/CurveRaster.h"
#include "widgets/SvgRasters.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QRegion>
#include <QSize>

#include <array>
#include <vector>

class GraphView;
class QPainter;

/// Draws the grid, the response curves and the bands' handles of the equalizer graph.
///
/// The curves are evaluated from the filters' coefficients for every repaint, in paint() or ahead
/// of it in prepare(). What is drawn is kept: the grid with its labels and the ground beneath,
/// until size, pixel ratio, zoom, font or ground change, and each curve's stroke, until the curve
/// itself differs from the one evaluated before. Where a curve changed, and only there, the picture
/// of grid and curves is made anew. It holds the ground, too, while that is known, and is copied
/// then instead of blended.
class EqualizerGraphPainter
{
public:
    /// Evaluates the curves for the next paint(), and returns what of the view will differ then
    /// from what was painted or prepared last, in pixels of the widget; all of the plot if that is
    /// not known. \a pixelRatio is the widget's.
    QRegion prepare(const GraphView& view, int editedBand, double pixelRatio);
    /// What was prepared holds no longer: bands or edited band are others.
    void forgetPrepared() { m_isPrepared = false; }

    /// Paints \a view with the painter of its widget. \a editedBand is drawn in its full colour and
    /// above the others; the handle of \a focusedBand gets a ring in its full colour. A negative
    /// number means none. \a ground is what lies beneath all of the view, pixel by pixel, and where
    /// its first pixel lies from that of the view, if that is known; its image is opaque and in the
    /// format RGB32.
    void paint(QPainter& painter, const GraphView& view, int editedBand, int focusedBand = -1,
               const SvgRaster& ground = {});

private:
    /// What the picture depends on apart from the curves.
    struct GridKey
    {
        QSize size;
        double pixelRatio = 0.0;
        double range = 0.0;
        QFont font;
        qint64 ground = 0; ///< its image's cacheKey()
        QPoint groundOffset;
        bool operator==(const GridKey&) const = default;
    };

    /// A curve as it was last scan-converted.
    struct Curve
    {
        std::vector<QPointF> points; ///< in pixels of the picture
        double width = 0.0;
        CurveStroke stroke;
        CurveStroke before; ///< the stroke that this one replaced
    };
    /// A curve that is shown, in the order of drawing.
    struct Shown
    {
        std::size_t curve;
        QColor color;
        double width; ///< in units of the plot
        bool operator==(const Shown&) const = default;
    };

    void drawGrid(const GraphView& view, const SvgRaster& ground);
    QImage gridPicture(const GraphView& view) const;
    /// Returns the rectangles of the picture that may have changed.
    std::vector<QRect> drawCurves(const GraphView& view, int editedBand);
    static const Shown* find(const std::vector<Shown>& shown, std::size_t curve);
    static std::vector<Shown> shownCurves(const GraphView& view, int editedBand);
    void setCurve(Curve& curve, std::vector<QPointF>&& points, double width);
    std::vector<QRect> drawChanges();
    /// Takes the handles' places over; returns those that they left and entered.
    QRegion moveHandles(const GraphView& view);

    GridKey m_gridKey;
    GridOnGround m_grid;
    QImage m_picture; ///< the grid with the shown curves, on the ground
    CurveRaster m_raster;
    std::array<Curve, 7> m_curves; ///< the bands', then the total
    std::vector<Shown> m_shown;
    ChangedRows m_changed;
    std::array<QRectF, EqualizerBands::Count> m_handles; ///< with their marks; empty if off
    bool m_isPrepared = false;
};
