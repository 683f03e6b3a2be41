// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/ChangedRows.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace {

constexpr std::size_t Lanes = CurveStroke::TileWidth;

using Bytes [[gnu::vector_size(Lanes)]] = std::uint8_t;
using Words [[gnu::vector_size(2 * Lanes)]] = std::uint16_t;
using Pixels [[gnu::vector_size(4 * Lanes)]] = QRgb;

int tileCount(const QImage& image) { return (image.width() + int{Lanes} - 1) / int{Lanes}; }

/// How many columns of a tile an image has.
int columnCount(const QImage& image, int tile)
{
    return std::min(image.width() - tile * int{Lanes}, int{Lanes});
}

/// The channels of the pixels of a row, each in 16 bits: blue, green, red and alpha.
class RowOfPixels
{
public:
    explicit RowOfPixels(const GridOnGround::Channels& channels)
    {
        for (std::size_t i = 0; i < m_channels.size(); ++i)
            m_channels[i] = __builtin_convertvector(std::bit_cast<Bytes>(channels[i]), Words);
    }

    /// Lays an opaque colour over the pixels, where a share of 255 parts is covered.
    void blend(QRgb color, const CurveStroke::Shares& shares)
    {
        const Words share = __builtin_convertvector(std::bit_cast<Bytes>(shares), Words);
        for (Words& channel : m_channels) {
            const auto top = static_cast<std::uint16_t>(color & 0xff);
            const Words mixed = share * top + channel * (255 - share) + 128;
            channel = (mixed + (mixed >> 8)) >> 8;
            color >>= 8;
        }
    }

    /// Lays the pixels over opaque ones, as Qt's rasteriser does.
    void layOn(const GridOnGround::Channels& ground)
    {
        const Words translucence = 255 - m_channels.back();
        for (std::size_t i = 0; i < m_channels.size(); ++i) {
            const Words below = __builtin_convertvector(std::bit_cast<Bytes>(ground[i]), Words);
            const Words faded = below * translucence;
            m_channels[i] += (faded + (faded >> 8) + 128) >> 8;
        }
    }

    std::array<QRgb, Lanes> pixels() const
    {
        const auto& [blue, green, red, alpha] = m_channels;
        const Words low = blue | green << 8;
        const Words high = red | alpha << 8;
        return std::bit_cast<std::array<QRgb, Lanes>>(__builtin_convertvector(low, Pixels) |
                                                      __builtin_convertvector(high, Pixels) << 16);
    }

private:
    std::array<Words, 4> m_channels;
};

const QRgb* lineOf(const QImage& image, int row)
{
    return reinterpret_cast<const QRgb*>(image.constScanLine(row));
}

/// Of up to Lanes pixels.
GridOnGround::Channels channels(const QRgb* line, int count)
{
    Pixels pixels = {};
    std::memcpy(&pixels, line, static_cast<std::size_t>(count) * sizeof(QRgb));
    GridOnGround::Channels channels;
    for (auto& channel : channels) {
        const Words words = __builtin_convertvector(pixels & 0xff, Words);
        channel =
            std::bit_cast<std::array<std::uint8_t, Lanes>>(__builtin_convertvector(words, Bytes));
        pixels >>= 8;
    }
    return channels;
}

} // namespace

GridOnGround::GridOnGround(const QImage& grid, const QImage& ground, const QPoint& corner)
    : m_rowCount(static_cast<std::size_t>(grid.height()))
    , m_rows(static_cast<std::size_t>(tileCount(grid)) * m_rowCount)
{
    auto row = m_rows.begin();
    for (int tile = 0; tile < tileCount(grid); ++tile) {
        const int left = tile * int{Lanes};
        const int count = columnCount(grid, tile);
        for (int y = 0; y < grid.height(); ++y, ++row) {
            row->grid = channels(lineOf(grid, y) + left, count);
            if (!ground.isNull())
                row->ground = channels(lineOf(ground, corner.y() + y) + corner.x() + left, count);
        }
    }
}

void ChangedRows::addDifference(const CurveStroke& before, const CurveStroke& after)
{
    m_changes[m_count++] = {&before, &after};
}

std::vector<ChangedRows::Place> ChangedRows::places(int tiles) const
{
    std::vector<Place> places;
    for (int tile = 0; tile < tiles; ++tile) {
        for (const Change& change : std::span(m_changes.data(), m_count)) {
            const CurveStroke::Cover before = change.before->tile(tile);
            const CurveStroke::Cover after = change.after->tile(tile);
            const bool isNew = before.first == before.end;
            const bool isGone = after.first == after.end;
            const int end = std::max(before.end, after.end);
            int row = isNew    ? after.first
                      : isGone ? before.first
                               : std::min(before.first, after.first);
            for (; row < end; ++row)
                if (before.at(row) != after.at(row))
                    places.push_back({tile, row});
        }
    }
    return places;
}

std::vector<QRect> ChangedRows::bounds(std::span<const Place> places)
{
    std::vector<QRect> bounds;
    int strip = -1;
    for (const auto& [tile, row] : places) {
        const int column = tile * int{Lanes};
        if (std::exchange(strip, column / StripWidth) != strip) {
            bounds.emplace_back(column, row, int{Lanes}, 1);
            continue;
        }
        QRect& rect = bounds.back();
        rect.setCoords(rect.left(), std::min(rect.top(), row), column + int{Lanes} - 1,
                       std::max(rect.bottom(), row));
    }
    return bounds;
}

std::vector<QRect> ChangedRows::draw(const GridOnGround& ground,
                                     std::span<const ColoredStroke> strokes, QImage& picture) const
{
    const std::vector<Place> changed = places(tileCount(picture));
    const qsizetype line = picture.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
    auto* const bits = reinterpret_cast<QRgb*>(picture.bits());
    for (const auto& [tile, row] : changed) {
        const GridOnGround::Row& below = ground.at(tile, row);
        RowOfPixels drawn(below.grid);
        for (const ColoredStroke& item : strokes) {
            const CurveStroke::Cover cover = item.stroke->tile(tile);
            if (cover.contains(row))
                drawn.blend(item.color, cover.at(row));
        }
        drawn.layOn(below.ground);
        const std::array<QRgb, Lanes> pixels = drawn.pixels();
        std::copy_n(pixels.begin(), columnCount(picture, tile),
                    bits + row * line + tile * int{Lanes});
    }
    return bounds(changed);
}
