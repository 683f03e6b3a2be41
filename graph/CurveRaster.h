// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QRect>

#include <span>
#include <vector>

/// Draws antialiased strokes of response curves into a picture.
///
/// A pixel takes as much of the colour as the stroke covers of its area, with flat ends and
/// bevelled joins. QPainter draws the same, but its scan converter walks a list along each row of
/// pixels and so is slow for strokes that run along a row, as these do. This one goes by columns,
/// and touches in each only the few pixels that the stroke crosses.
///
/// An edge of a stroke's outline that runs to the right adds the area below it, one that runs to
/// the left takes it away; what lies between remains. Summing a column from the top gives the
/// coverage.
class CurveRaster
{
public:
    /// Strokes are clipped to \a clip, in pixels of the pictures drawn into, which must contain it.
    void setClip(const QRect& clip);

    /// Draws the line through \a points, in pixels, in an opaque \a color onto \a picture, whose
    /// format is ARGB32_Premultiplied. All coordinates must be finite.
    void stroke(QImage& picture, std::span<const QPointF> points, double width, QColor color);

private:
    struct Rows
    {
        int first;
        int last;
    };

    void addEdge(QPointF from, QPointF to);
    void addInside(QPointF from, QPointF to);
    void addInColumn(int column, double width, double y0, double y1);
    void addInRow(int column, double width, double y);
    void blendColumn(QImage& picture, int column, QRgb color);
    float* cells(int column);

    QRect m_clip;
    std::vector<float> m_cells;  ///< column after column; each has one row more than the clip
    std::vector<Rows> m_touched; ///< of each column, empty when last is before first
};
