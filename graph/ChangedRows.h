// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/CurveRaster.h"

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QRgb>

#include <array>
#include <cstdint>
#include <span>
#include <vector>

/// A grid and the ground beneath it, as strokes are drawn between them. Pixels are premultiplied,
/// and lie tile after tile (CurveStroke::TileWidth), the channels of a row of a tile each by
/// itself, as they are computed with.
class GridOnGround
{
public:
    /// Blue, green, red and alpha of the pixels of a row of a tile.
    using Channels = std::array<std::array<std::uint8_t, CurveStroke::TileWidth>, 4>;

    struct Row
    {
        Channels grid;
        Channels ground; ///< opaque, or 0
    };

    /// Of \a grid, in the format ARGB32_Premultiplied, and \a ground, whose pixel at \a corner lies
    /// beneath the left top one. Without a ground the pixels beneath are empty.
    GridOnGround() = default;
    GridOnGround(const QImage& grid, const QImage& ground, const QPoint& corner);

    const Row& at(int tile, int row) const
    {
        return m_rows[static_cast<std::size_t>(tile) * m_rowCount + static_cast<std::size_t>(row)];
    }

private:
    std::size_t m_rowCount = 0; ///< of a tile
    std::vector<Row> m_rows;
};

/// A stroke in an opaque colour.
struct ColoredStroke
{
    const CurveStroke* stroke;
    QRgb color;
};

/// The rows of tiles of a picture in which strokes have changed. It refers to the strokes.
class ChangedRows
{
public:
    /// How many strokes can be added.
    static constexpr std::size_t MaximumStrokes = 14;
    /// Of a rectangle that draw() returns: so wide that what copying it costs are its pixels.
    static constexpr int StripWidth = 512;

    void clear() { m_count = 0; }
    /// All rows that \a stroke crosses.
    void add(const CurveStroke& stroke) { addDifference(Nothing, stroke); }
    /// The rows in which two strokes differ.
    void addDifference(const CurveStroke& before, const CurveStroke& after);

    /// Draws, within these rows, \a strokes one above the other onto the grid, and lays that over
    /// the ground. \a picture takes the result; it is of the same size and 32 bits deep. Returns
    /// rectangles that contain these rows, one for each StripWidth columns with some of them.
    std::vector<QRect> draw(const GridOnGround& ground, std::span<const ColoredStroke> strokes,
                            QImage& picture) const;

private:
    struct Place
    {
        int tile;
        int row;
    };
    struct Change
    {
        const CurveStroke* before;
        const CurveStroke* after;
    };

    /// Tile by tile; one that several strokes changed may come several times.
    std::vector<Place> places(int tiles) const;
    static std::vector<QRect> bounds(std::span<const Place> places);

    inline static const CurveStroke Nothing;

    std::size_t m_count = 0;
    std::array<Change, MaximumStrokes> m_changes;
};
