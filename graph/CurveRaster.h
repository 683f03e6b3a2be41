// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>
#include <QRect>

#include <array>
#include <limits>
#include <span>
#include <vector>

/// The pixels of an antialiased stroke, in tiles as wide as registers are: of each tile the rows
/// that the stroke crosses, and for each of their pixels the share of its area that the stroke
/// covers.
struct CurveStroke
{
    /// In pixels. Tiles begin at column 0, TileWidth and so on.
    static constexpr int TileWidth = 16;
    /// Of a row of a tile, in 1/255.
    using Shares = std::array<unsigned char, TileWidth>;

    struct Tile
    {
        int first = 0; ///< row
        int end = 0;   ///< the row after the last
        int start = 0; ///< of its rows in `shares`
    };

    /// The rows that the stroke crosses in a tile, the first one's shares at `shares`.
    struct Cover
    {
        int first;
        int end; ///< the row after the last
        const Shares* shares;

        bool contains(int row) const { return row >= first && row < end; }
        /// All 0 in rows that the stroke does not cross.
        const Shares& at(int row) const
        {
            static constexpr Shares none = {};
            return contains(row) ? shares[row - first] : none;
        }
    };
    Cover tile(int tile) const
    {
        const auto index = static_cast<std::size_t>(tile) - static_cast<std::size_t>(firstTile);
        if (index >= tiles.size())
            return {0, 0, nullptr};
        const Tile& found = tiles[index];
        return {found.first, found.end, shares.data() + found.start};
    }

    int firstTile = 0;
    std::vector<Tile> tiles;
    std::vector<Shares> shares; ///< of all tiles, one after the other
};

/// Scan-converts strokes of response curves.
///
/// A pixel is covered by as much of its area as the stroke has, with flat ends and bevelled joins.
/// QPainter computes the same, but its scan converter walks a list along each row of pixels and so
/// is slow for strokes that run along a row, as these do. This one goes by columns, and touches in
/// each only the few pixels that the stroke crosses; the columns of a tile are summed together.
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
    /// Rows of a tile of the clip; none when last is before first.
    struct Rows
    {
        int first;
        int last;
    };
    static constexpr Rows Untouched = {std::numeric_limits<int>::max(), -1};
    using Cells [[gnu::vector_size(CurveStroke::TileWidth * sizeof(float))]] = float;

    void addEdge(QPointF from, QPointF to);
    void addInside(QPointF from, QPointF to);
    void touch(double left, double right, double top, double bottom);
    CurveStroke takeTouched();

    QRect m_clip;
    QPoint m_origin; ///< the left top pixel of the first tile; all coordinates are from there
    /// Tile after tile, m_tileSize each: a row of cells for a row of pixels, and two for what lies
    /// on and below the bottom edge.
    std::vector<Cells> m_cells;
    std::size_t m_tileSize = 0;
    std::vector<Rows> m_touched;
};
