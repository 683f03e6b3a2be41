// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/CurveRaster.h"

#include <QImage>
#include <QPoint>
#include <QRgb>
#include <QSize>

#include <array>
#include <span>
#include <vector>

/// A grid and the ground beneath it, as strokes are drawn between them. Pixels are premultiplied
/// and lie column after column, so that those of a stroke that runs along the rows are near each
/// other.
class GridOnGround
{
public:
    struct Pixel
    {
        QRgb grid;
        QRgb ground; ///< opaque, or 0
    };

    /// Of \a grid, in the format ARGB32_Premultiplied, and \a ground, whose pixel at \a corner lies
    /// beneath the left top one. Without a ground the pixels beneath are empty.
    GridOnGround() = default;
    GridOnGround(const QImage& grid, const QImage& ground, const QPoint& corner);

    QSize size() const { return m_size; }
    const Pixel* at(int column, int row) const
    {
        return m_pixels.data() + qsizetype{column} * m_size.height() + row;
    }

private:
    QSize m_size;
    std::vector<Pixel> m_pixels;
};

/// A stroke in an opaque colour.
struct ColoredStroke
{
    const CurveStroke* stroke;
    QRgb color;
};

/// The pixels of a picture in which strokes have changed. It refers to the strokes.
class ChangedRows
{
public:
    /// How many strokes can be added.
    static constexpr std::size_t MaximumStrokes = 14;

    void clear() { m_count = 0; }
    /// All pixels of \a stroke.
    void add(const CurveStroke& stroke) { addDifference(Nothing, stroke); }
    /// The pixels in which two strokes differ.
    void addDifference(const CurveStroke& before, const CurveStroke& after);

    /// Draws, within these pixels, \a strokes one above the other onto the grid, and lays that over
    /// the ground. \a picture takes the result; it is of the same size and 32 bits deep.
    void draw(const GridOnGround& ground, std::span<const ColoredStroke> strokes,
              QImage& picture) const;

private:
    struct Range
    {
        int first;
        int end; ///< the row after the last
    };
    struct Place
    {
        int column;
        Range rows;
    };
    class Covers;
    struct Change
    {
        const CurveStroke* before;
        const CurveStroke* after;
    };

    static Range changedRows(const CurveStroke::Cover& before, const CurveStroke::Cover& after);
    /// From left to right; two in the same column may have rows in common.
    std::vector<Place> places(int columns) const;

    inline static const CurveStroke Nothing;

    std::size_t m_count = 0;
    std::array<Change, MaximumStrokes> m_changes;
};
