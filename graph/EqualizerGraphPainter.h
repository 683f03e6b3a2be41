// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/CurveRaster.h"

#include <QFont>
#include <QImage>
#include <QPointF>
#include <QSize>

class EqualizerBands;
class PlotAxes;
class QPainter;

/// Draws the grid, the response curves and the bands' handles of the equalizer graph.
///
/// The curves are evaluated from the filters' coefficients on every call. The grid and its labels
/// are kept as a picture, and made anew when size, pixel ratio, zoom or font change.
class EqualizerGraphPainter
{
public:
    /// Where the handle of \a band stands: on its gain, or on 0 dB for a pass filter. A low or high
    /// band of an unknown type has its handle at (0, 0).
    static QPointF handle(const EqualizerBands& bands, int band, const PlotAxes& axes);

    /// Paints a widget of \a size with its painter. \a editedBand is drawn in its full colour and
    /// above the others; a negative number means none.
    void paint(QPainter& painter, QSize size, const EqualizerBands& bands, const PlotAxes& axes,
               int editedBand);

private:
    /// What the picture of the grid depends on.
    struct GridKey
    {
        QSize size;
        double pixelRatio = 0.0;
        double range = 0.0;
        QFont font;
        bool operator==(const GridKey&) const = default;
    };

    void drawGrid(const PlotAxes& axes);
    void drawCurves(const EqualizerBands& bands, const PlotAxes& axes, int editedBand);

    GridKey m_gridKey;
    QImage m_grid;
    QImage m_picture; ///< the grid with the curves
    CurveRaster m_raster;
};
