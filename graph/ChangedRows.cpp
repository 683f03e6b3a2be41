// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/ChangedRows.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr QRgb OddBytes = 0x00ff00ff;

/// The four channels of a pixel, each in 16 bits.
using Channels = std::uint64_t;

constexpr Channels OddWords = 0x00ff00ff00ff00ff;
constexpr Channels Halves = 0x0080008000800080;

Channels channels(QRgb pixel) { return (pixel & OddBytes) | Channels{pixel >> 8 & OddBytes} << 32; }

QRgb pixel(Channels channels)
{
    return static_cast<QRgb>(channels) | static_cast<QRgb>(channels >> 32) << 8;
}

/// \a top over \a bottom, where \a share of 255 parts are covered.
Channels blend(Channels bottom, Channels top, unsigned int share)
{
    const Channels mixed = top * share + bottom * (255 - share) + Halves;
    return (mixed + (mixed >> 8 & OddWords)) >> 8 & OddWords;
}

/// What Qt's rasteriser makes of a premultiplied pixel over an opaque one.
QRgb over(Channels top, QRgb bottom)
{
    const Channels faded = channels(bottom) * (255 - (top >> 48));
    return pixel(top + ((faded + (faded >> 8 & OddWords) + Halves) >> 8 & OddWords));
}

const QRgb* lineOf(const QImage& image, int row)
{
    return reinterpret_cast<const QRgb*>(image.constScanLine(row));
}

/// Asks for a range's first pixels ahead of time: the next range lies too far away for the
/// processor to see it coming.
void prefetch(const GridOnGround::Pixel* pixel)
{
    constexpr int lineSize = 64 / static_cast<int>(sizeof(GridOnGround::Pixel));
    __builtin_prefetch(pixel);
    __builtin_prefetch(pixel + lineSize);
}

} // namespace

GridOnGround::GridOnGround(const QImage& grid, const QImage& ground, const QPoint& corner)
    : m_size(grid.size())
    , m_pixels(static_cast<std::size_t>(grid.width()) * static_cast<std::size_t>(grid.height()))
{
    // In strips, so that the ends of all columns of a strip stay in the processor's cache.
    constexpr int strip = 16;
    for (int left = 0; left < m_size.width(); left += strip) {
        const int right = std::min(left + strip, m_size.width());
        for (int y = 0; y < m_size.height(); ++y) {
            const QRgb* top = lineOf(grid, y);
            const QRgb* bottom =
                ground.isNull() ? nullptr : lineOf(ground, corner.y() + y) + corner.x();
            Pixel* pixel = m_pixels.data() + qsizetype{left} * m_size.height() + y;
            for (int x = left; x < right; ++x, pixel += m_size.height())
                *pixel = {top[x], bottom ? bottom[x] : 0};
        }
    }
}

void ChangedRows::addDifference(const CurveStroke& before, const CurveStroke& after)
{
    m_changes[m_count++] = {&before, &after};
}

ChangedRows::Range ChangedRows::changedRows(const CurveStroke::Cover& before,
                                            const CurveStroke::Cover& after)
{
    const auto rows = [](const CurveStroke::Cover& cover) { return Range{cover.first, cover.end}; };
    if (before.first == before.end)
        return rows(after);
    if (after.first == after.end)
        return rows(before);
    if (before.first == after.first && before.end == after.end &&
        std::equal(before.shares, before.shares + (before.end - before.first), after.shares))
        return {0, 0};
    return {std::min(before.first, after.first), std::max(before.end, after.end)};
}

std::vector<ChangedRows::Place> ChangedRows::places(int columns) const
{
    std::vector<Place> places;
    for (int x = 0; x < columns; ++x) {
        const std::size_t first = places.size();
        for (const Change& change : std::span(m_changes.data(), m_count)) {
            const Range rows = changedRows(change.before->column(x), change.after->column(x));
            if (rows.first == rows.end)
                continue;
            Range* last = places.size() > first ? &places.back().rows : nullptr;
            if (last && rows.first <= last->end && last->first <= rows.end)
                *last = {std::min(rows.first, last->first), std::max(rows.end, last->end)};
            else
                places.push_back({x, rows});
        }
    }
    return places;
}

/// The strokes that meet a range of rows, in the order of drawing.
class ChangedRows::Covers
{
public:
    Covers(std::span<const ColoredStroke> strokes, const Place& place)
    {
        for (const ColoredStroke& item : strokes) {
            const CurveStroke::Cover cover = item.stroke->column(place.column);
            if (cover.first < place.rows.end && place.rows.first < cover.end)
                *m_end++ = {cover, channels(item.color)};
        }
    }

    /// What they make of a pixel beneath.
    Channels drawn(int row, QRgb grid) const
    {
        Channels pixel = channels(grid);
        for (const Item* item = m_items.data(); item != m_end; ++item) {
            const CurveStroke::Cover& cover = item->cover;
            if (row >= cover.first && row < cover.end)
                pixel = blend(pixel, item->color, cover.shares[row - cover.first]);
        }
        return pixel;
    }

private:
    struct Item
    {
        CurveStroke::Cover cover;
        Channels color;
    };

    std::array<Item, MaximumStrokes> m_items;
    Item* m_end = m_items.data();
};

void ChangedRows::draw(const GridOnGround& ground, std::span<const ColoredStroke> strokes,
                       QImage& picture) const
{
    constexpr std::size_t ahead = 12;
    const std::vector<Place> changed = places(picture.width());
    const auto begin = [&](std::size_t i) {
        return ground.at(changed[i].column, changed[i].rows.first);
    };
    const qsizetype line = picture.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
    auto* const bits = reinterpret_cast<QRgb*>(picture.bits());
    for (std::size_t i = 0; i < changed.size(); ++i) {
        if (i + ahead < changed.size())
            prefetch(begin(i + ahead));
        const auto [column, rows] = changed[i];
        const Covers covers(strokes, changed[i]);
        const GridOnGround::Pixel* below = begin(i);
        QRgb* pixel = bits + rows.first * line + column;
        for (int row = rows.first; row < rows.end; ++row, ++below, pixel += line)
            *pixel = over(covers.drawn(row, below->grid), below->ground);
    }
}
