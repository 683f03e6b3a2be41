// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/CurveRaster.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

/// \a top over \a bottom, where \a share of 255 parts are covered.
QRgb blend(QRgb bottom, QRgb top, unsigned int share)
{
    const auto channel = [&](int shift) {
        const unsigned int mixed =
            (top >> shift & 0xff) * share + (bottom >> shift & 0xff) * (255 - share);
        return (mixed + 127) / 255 << shift;
    };
    return channel(24) | channel(16) | channel(8) | channel(0);
}

} // namespace

void CurveRaster::setClip(const QRect& clip)
{
    if (clip == m_clip)
        return;
    m_clip = clip;
    const auto columns = static_cast<std::size_t>(std::max(clip.width(), 0));
    const auto rows = static_cast<std::size_t>(std::max(clip.height(), 0));
    m_cells.assign(columns * (rows + 1), 0.0F);
    m_touched.assign(columns, {clip.height(), -1});
}

void CurveRaster::stroke(QImage& picture, std::span<const QPointF> points, double width,
                         QColor color)
{
    if (m_clip.isEmpty() || points.empty())
        return;
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

    for (int column = 0; column < m_clip.width(); ++column)
        blendColumn(picture, column, color.rgb());
}

void CurveRaster::addEdge(QPointF from, QPointF to)
{
    // Above the clip an edge acts as if it ran along the top, below it along the bottom, so the
    // edge is cut where it crosses either.
    const double height = m_clip.height();
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
    const double left = std::max(from.x(), 0.0);
    const double right = std::min(to.x(), static_cast<double>(m_clip.width()));
    if (left >= right)
        return;
    const double slope = (to.y() - from.y()) / (to.x() - from.x());
    const auto y = [&](double x) { return from.y() + (x - from.x()) * slope; };
    for (double x = left; x < right;) {
        const int column = static_cast<int>(x);
        const double next = std::min(column + 1.0, right);
        addInColumn(column, sign * (next - x), y(x), y(next));
        x = next;
    }
}

void CurveRaster::addInColumn(int column, double width, double y0, double y1)
{
    const double top = std::clamp(std::min(y0, y1), 0.0, static_cast<double>(m_clip.height()));
    const double bottom = std::clamp(std::max(y0, y1), 0.0, static_cast<double>(m_clip.height()));
    Rows& touched = m_touched[static_cast<std::size_t>(column)];
    touched.first = std::min(touched.first, static_cast<int>(top));
    touched.last = std::max(touched.last, static_cast<int>(bottom));
    if (bottom <= static_cast<int>(top) + 1.0) {
        addInRow(column, width, (top + bottom) / 2.0);
        return;
    }
    for (double y = top; y < bottom;) {
        const double next = std::min(static_cast<int>(y) + 1.0, bottom);
        addInRow(column, width * (next - y) / (bottom - top), (y + next) / 2.0);
        y = next;
    }
}

void CurveRaster::addInRow(int column, double width, double y)
{
    const int row = std::min(static_cast<int>(y), m_clip.height() - 1);
    const double below = width * (row + 1 - y);
    float* cell = cells(column) + row;
    cell[0] += static_cast<float>(below);
    cell[1] += static_cast<float>(width - below);
}

void CurveRaster::blendColumn(QImage& picture, int column, QRgb color)
{
    Rows& touched = m_touched[static_cast<std::size_t>(column)];
    const int last = std::min(touched.last + 1, m_clip.height());
    float* cell = cells(column);
    const qsizetype stride = picture.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
    QRgb* pixel = reinterpret_cast<QRgb*>(picture.bits()) +
                  (m_clip.top() + touched.first) * stride + m_clip.left() + column;
    float covered = 0.0F;
    for (int row = touched.first; row <= last; ++row, pixel += stride) {
        covered += std::exchange(cell[row], 0.0F);
        const auto share =
            static_cast<unsigned int>(std::clamp(covered, 0.0F, 1.0F) * 255.0F + 0.5F);
        if (share > 0 && row < m_clip.height())
            *pixel = share == 255 ? color : blend(*pixel, color, share);
    }
    touched = {m_clip.height(), -1};
}

float* CurveRaster::cells(int column)
{
    return m_cells.data() +
           static_cast<std::size_t>(column) * (static_cast<std::size_t>(m_clip.height()) + 1);
}
