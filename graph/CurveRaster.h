// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>
#include <QRect>

#include <limits>
#include <span>
#include <vector>

/// The pixels of an antialiased stroke: in each column a run of pixels, one above the other, each
/// with the share of its area that the stroke covers in 1/255.
struct CurveStroke
{
    struct Run
    {
        int first = 0; ///< row
        int count = 0;
        int start = 0; ///< of its pixels in `coverage`
    };

    /// What of a column the stroke covers, its first row at `shares`; first and end are 0 if
    /// nothing.
    struct Cover
    {
        int first;
        int end; ///< the row after the last
        const unsigned char* shares;
    };
    Cover column(int column) const
    {
        const auto run = static_cast<std::size_t>(column) - static_cast<std::size_t>(left);
        if (run >= runs.size())
            return {0, 0, nullptr};
        const Run& found = runs[run];
        return {found.first, found.first + found.count, coverage.data() + found.start};
    }

    int left = 0; ///< the first run's column
    std::vector<Run> runs;
    std::vector<unsigned char> coverage; ///< of all runs, one after the other
};

/// Scan-converts strokes of response curves.
///
/// A pixel is covered by as much of its area as the stroke has, with flat ends and bevelled joins.
/// QPainter computes the same, but its scan converter walks a list along each row of pixels and so
/// is slow for strokes that run along a row, as these do. This one goes by columns, and touches in
/// each only the few pixels that the stroke crosses.
///
/// An edge of a stroke's outline that runs to the right adds the area below it, one that runs to
/// the left takes it away; what lies between remains. Summing a column from the top gives the
/// coverage.
class CurveRaster
{
public:
    /// Strokes are clipped to \a clip, in pixels.
    void setClip(const QRect& clip);

    /// The stroke of the line through \a points, in pixels. All coordinates must be finite.
    CurveStroke stroke(std::span<const QPointF> points, double width);

private:
    /// Rows of a column of the clip; none when last is before first.
    struct Rows
    {
        int first;
        int last;
    };
    static constexpr Rows Untouched = {std::numeric_limits<int>::max(), -1};

    void addEdge(QPointF from, QPointF to);
    void addInside(QPointF from, QPointF to);
    void addInColumn(int column, double width, double top, double bottom);
    CurveStroke takeTouched();
    std::vector<CurveStroke::Run> touchedRuns();

    QRect m_clip;
    /// Column after column, m_columnSize each: a cell a row, and two for what lies on and below the
    /// bottom edge.
    std::vector<float> m_cells;
    std::size_t m_columnSize = 0;
    std::vector<Rows> m_touched;
};
