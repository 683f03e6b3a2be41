// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/CurveRaster.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <utility>

namespace {

constexpr int TileWidth = CurveStroke::TileWidth;

using Cells [[gnu::vector_size(TileWidth * sizeof(float))]] = float;

/// From a cell to that of the row below.
constexpr int RowStep = TileWidth;

/// Adds what of a row lies below an edge, \a width wide and in the mean at \a middle, to the cells
/// of that row and of the next.
inline void addRow(float* cell, int row, double width, double middle)
{
    const double within = width * (row + 1 - middle);
    cell[0] += static_cast<float>(within);
    cell[RowStep] += static_cast<float>(width - within);
}

/// The same for an edge that crosses several rows.
void addRows(float* cell, double width, double top, double bottom)
{
    const int first = static_cast<int>(top);
    const int last = static_cast<int>(bottom);
    const double perRow = width / (bottom - top);
    addRow(cell, first, perRow * (first + 1 - top), (top + first + 1) / 2.0);
    for (int row = first + 1; row < last; ++row)
        addRow(cell += RowStep, row, perRow, row + 0.5);
    addRow(cell + RowStep, last, perRow * (bottom - last), (last + bottom) / 2.0);
}

void addInColumn(float* column, double width, double top, double bottom)
{
    const int first = static_cast<int>(top);
    float* cell = column + first * RowStep;
    if (first == static_cast<int>(bottom))
        addRow(cell, first, width, (top + bottom) / 2.0);
    else
        addRows(cell, width, top, bottom);
}

CurveStroke::Shares sharesOf(const Cells& covered)
{
    using Integers [[gnu::vector_size(TileWidth * sizeof(int))]] = int;
    using Shorts [[gnu::vector_size(TileWidth * sizeof(std::uint16_t))]] = std::uint16_t;
    using Chars [[gnu::vector_size(TileWidth)]] = unsigned char;
    constexpr int whole = 255;
    constexpr int sign = 31; // shifting by it makes all bits the sign's
    Integers shares = __builtin_convertvector(covered * float{whole} + 0.5F, Integers);
    shares &= ~(shares >> sign);
    shares = (shares | (whole - shares) >> sign) & whole;
    const Shorts narrowed = __builtin_convertvector(shares, Shorts);
    return std::bit_cast<CurveStroke::Shares>(__builtin_convertvector(narrowed, Chars));
}

} // namespace

void CurveRaster::setClip(const QRect& clip)
{
    m_clip = clip;
    m_origin = QPoint(clip.left() & -TileWidth, clip.top());
    const int columns = clip.isEmpty() ? 0 : clip.right() + 1 - m_origin.x();
    const auto tiles = static_cast<std::size_t>((columns + TileWidth - 1) / TileWidth);
    m_tileSize = static_cast<std::size_t>(std::max(clip.height(), 0)) + 2;
    m_cells.assign(tiles * m_tileSize, Cells{});
    m_touched.assign(tiles, Untouched);
}

CurveStroke CurveRaster::stroke(std::span<const QPointF> points, double width)
{
    if (m_clip.isEmpty() || points.empty())
        return {};
    QPointF end = points.front() - m_origin;
    QPointF endSide; // from the line to the lower side of the outline
    for (const QPointF& point : points.subspan(1)) {
        const QPointF start = std::exchange(end, point - m_origin);
        const QPointF along = end - start;
        const double length = std::hypot(along.x(), along.y());
        if (length == 0.0)
            continue;
        const QPointF startSide =
            std::exchange(endSide, QPointF(-along.y(), along.x()) * (width / 2.0 / length));
        addEdge(start - startSide, start - endSide);
        addEdge(start - endSide, end - endSide);
        addEdge(end + endSide, start + endSide);
        addEdge(start + endSide, start + startSide);
    }
    addEdge(end - endSide, end + endSide);
    return takeTouched();
}

void CurveRaster::addEdge(QPointF from, QPointF to)
{
    const double height = m_clip.height();
    const auto inside = [&](double y) { return y >= 0.0 && y <= height; };
    if (inside(from.y()) && inside(to.y())) {
        addInside(from, to);
        return;
    }

    // Above the clip an edge acts as if it ran along the top, below it along the bottom, so the
    // edge is cut where it crosses either.
    std::array<double, 4> cuts = {0.0, 1.0, 1.0, 1.0};
    std::size_t count = 1;
    for (const double border : {0.0, height}) {
        const double cut = (border - from.y()) / (to.y() - from.y());
        if (cut > 0.0 && cut < 1.0)
            cuts[count++] = cut;
    }
    std::sort(cuts.begin(), cuts.end());
    const auto at = [&](double part) {
        const QPointF point = from + (to - from) * part;
        return QPointF(point.x(), std::clamp(point.y(), 0.0, height));
    };
    for (std::size_t i = 0; i < count; ++i)
        addInside(at(cuts[i]), at(cuts[i + 1]));
}

void CurveRaster::addInside(QPointF from, QPointF to)
{
    const double sign = from.x() <= to.x() ? 1.0 : -1.0;
    if (sign < 0.0)
        std::swap(from, to);
    const double left = m_clip.left() - m_origin.x();
    const double right = std::min(to.x(), left + m_clip.width());
    double x = std::max(from.x(), left);
    if (x >= right)
        return;
    const double slope = (to.y() - from.y()) / (to.x() - from.x());
    const double lowest = std::max(from.y(), to.y());
    const double highest = std::min(from.y(), to.y());
    touch(x, right, highest, lowest);
    // The line's own end points bound what rounding makes of the points between them.
    const auto yAt = [&](double at) {
        return std::clamp(from.y() + (at - from.x()) * slope, highest, lowest);
    };
    double y = yAt(x);
    for (int column = static_cast<int>(x); x < right; ++column) {
        const double nextX = std::min(column + 1.0, right);
        const double nextY = yAt(nextX);
        Cells* const tile = &m_cells[static_cast<std::size_t>(column / TileWidth) * m_tileSize];
        addInColumn(reinterpret_cast<float*>(tile) + column % TileWidth, sign * (nextX - x),
                    std::min(y, nextY), std::max(y, nextY));
        x = nextX;
        y = nextY;
    }
}

void CurveRaster::touch(double left, double right, double top, double bottom)
{
    const int first = static_cast<int>(top);
    const int last = static_cast<int>(bottom);
    for (int column = static_cast<int>(left) / TileWidth * TileWidth; column < right;
         column += TileWidth) {
        Rows& touched = m_touched[static_cast<std::size_t>(column / TileWidth)];
        touched.first = std::min(touched.first, first);
        touched.last = std::max(touched.last, last);
    }
}

CurveStroke CurveRaster::takeTouched()
{
    CurveStroke stroke;
    stroke.firstTile = m_origin.x() / TileWidth;
    stroke.tiles.reserve(m_touched.size());
    for (std::size_t i = 0; i < m_touched.size(); ++i) {
        const Rows touched = std::exchange(m_touched[i], Untouched);
        const int end = std::min(touched.last + 1, m_clip.height());
        const auto start = static_cast<int>(stroke.shares.size());
        if (touched.first < end)
            stroke.tiles.push_back({m_origin.y() + touched.first, m_origin.y() + end, start});
        else
            stroke.tiles.push_back({0, 0, start});
        Cells covered = {};
        for (int row = touched.first; row <= touched.last + 1; ++row) {
            Cells& cells = m_cells[i * m_tileSize + static_cast<std::size_t>(row)];
            covered += cells;
            cells = Cells{};
            if (row < end)
                stroke.shares.push_back(sharesOf(covered));
        }
    }
    return stroke;
}
