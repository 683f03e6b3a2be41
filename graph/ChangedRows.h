// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/CurveRaster.h"

#include <QImage>

#include <array>
#include <span>
#include <vector>

/// The pixels of a picture in which strokes have changed: in each column a few ranges of rows, none
/// of which meets another. All pictures are of the same size and 32 bits deep.
class ChangedRows
{
public:
    /// How many strokes can be added.
    static constexpr std::size_t MaximumStrokes = 7;

    struct Range
    {
        int first;
        int end; ///< the row after the last
    };

    /// Nothing has changed in a picture of so many columns.
    void reset(int columns);
    /// A stroke that was \a before and is \a after; either may be empty.
    void add(const CurveStroke& before, const CurveStroke& after);
    /// The ranges of a column.
    std::span<const Range> column(int column) const;

    /// Draws, within these pixels, \a stroke in an opaque \a color onto \a picture, in the format
    /// ARGB32_Premultiplied.
    void draw(const CurveStroke& stroke, QColor color, QImage& picture) const;
    /// Copies these pixels from one picture to another.
    void copy(const QImage& from, QImage& to) const;
    /// Lays these pixels of \a picture, in the format ARGB32_Premultiplied, over those of \a
    /// ground, in which \a corner corresponds to its left top one.
    void lay(const QImage& picture, const QImage& ground, const QPoint& corner, QImage& to) const;

private:
    struct Column
    {
        std::size_t count = 0;
        std::array<Range, MaximumStrokes> ranges;
    };

    void insert(int column, Range range);

    std::vector<Column> m_columns;
};
