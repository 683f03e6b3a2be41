// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/CurveRaster.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

/// How many columns ahead memory is asked for: one lies too far from the next for the processor to
/// see them coming.
constexpr std::size_t ColumnsAhead = 24;

/// Adds what of a row lies below an edge, \a width wide and in the mean at \a middle, to the cells
/// of that row and of the next.
inline void addRow(float* cell, int row, double width, double middle)
{
    const double within = width * (row + 1 - middle);
    cell[0] += static_cast<float>(within);
    cell[1] += static_cast<float>(width - within);
}

/// The same for an edge that crosses several rows.
void addRows(float* cell, double width, double top, double bottom)
{
    const int first = static_cast<int>(top);
    const int last = static_cast<int>(bottom);
    const double perRow = width / (bottom - top);
    addRow(cell++, first, perRow * (first + 1 - top), (top + first + 1) / 2.0);
    for (int row = first + 1; row < last; ++row)
        addRow(cell++, row, perRow, row + 0.5);
    addRow(cell, last, perRow * (bottom - last), (last + bottom) / 2.0);
}

} // namespace

void CurveRaster::setClip(const QRect& clip)
{
    m_clip = clip;
    const auto columns = static_cast<std::size_t>(std::max(clip.width(), 0));
    m_columnSize = static_cast<std::size_t>(std::max(clip.height(), 0)) + 2;
    m_cells.assign(columns * m_columnSize, 0.0F);
    m_touched.assign(columns, Untouched);
}

CurveStroke CurveRaster::stroke(std::span<const QPointF> points, double width)
{
    if (m_clip.isEmpty() || points.empty())
        return {};
    QPointF end = points.front() - m_clip.topLeft();
    QPointF endSide; // from the line to the lower side of the outline
    for (const QPointF& point : points.subspan(1)) {
        const QPointF start = std::exchange(end, point - m_clip.topLeft());
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

inline void CurveRaster::addInColumn(int column, double width, double top, double bottom)
{
    const int first = static_cast<int>(top);
    const int last = static_cast<int>(bottom);
    Rows& touched = m_touched.data()[column];
    touched.first = std::min(touched.first, first);
    touched.last = std::max(touched.last, last);

    float* cell = m_cells.data() + static_cast<std::size_t>(column) * m_columnSize + first;
    __builtin_prefetch(cell + ColumnsAhead * m_columnSize);
    if (first == last)
        addRow(cell, first, width, (top + bottom) / 2.0);
    else
        addRows(cell, width, top, bottom);
}

void CurveRaster::addInside(QPointF from, QPointF to)
{
    const double sign = from.x() <= to.x() ? 1.0 : -1.0;
    if (sign < 0.0)
        std::swap(from, to);
    const double right = std::min(to.x(), static_cast<double>(m_clip.width()));
    double x = std::max(from.x(), 0.0);
    if (x >= right)
        return;
    const double slope = (to.y() - from.y()) / (to.x() - from.x());
    const double lowest = std::max(from.y(), to.y());
    const double highest = std::min(from.y(), to.y());
    // The line's own end points bound what rounding makes of the points between them.
    const auto yAt = [&](double at) {
        return std::clamp(from.y() + (at - from.x()) * slope, highest, lowest);
    };
    double y = yAt(x);
    for (int column = static_cast<int>(x); x < right; ++column) {
        const double nextX = std::min(column + 1.0, right);
        const double nextY = yAt(nextX);
        addInColumn(column, sign * (nextX - x), std::min(y, nextY), std::max(y, nextY));
        x = nextX;
        y = nextY;
    }
}

CurveStroke CurveRaster::takeTouched()
{
    CurveStroke stroke;
    stroke.left = m_clip.left();
    stroke.runs = touchedRuns();
    stroke.coverage.resize(static_cast<std::size_t>(stroke.runs.back().start) +
                           static_cast<std::size_t>(stroke.runs.back().count));
    unsigned char* share = stroke.coverage.data();
    float* column = m_cells.data();
    for (const CurveStroke::Run& run : stroke.runs) {
        float* cell = column + (run.first - m_clip.top());
        float covered = 0.0F;
        for (int row = 0; row < run.count; ++row) {
            covered += std::exchange(*cell++, 0.0F);
            *share++ = static_cast<unsigned char>(std::clamp(covered, 0.0F, 1.0F) * 255.0F + 0.5F);
        }
        *cell = 0.0F;
        column += m_columnSize;
    }
    return stroke;
}

std::vector<CurveStroke::Run> CurveRaster::touchedRuns()
{
    std::vector<CurveStroke::Run> runs;
    runs.reserve(m_touched.size());
    int start = 0;
    for (Rows& rows : m_touched) {
        const Rows touched = std::exchange(rows, Untouched);
        const int count = std::min(touched.last, m_clip.height() - 1) - touched.first + 1;
        if (count <= 0) {
            runs.push_back({m_clip.top(), 0, start});
            continue;
        }
        runs.push_back({m_clip.top() + touched.first, count, start});
        start += count;
    }
    return runs;
}
