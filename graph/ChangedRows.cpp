// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/ChangedRows.h"

#include <algorithm>

namespace {

constexpr QRgb OddBytes = 0x00ff00ff;

/// \a top over \a bottom, where \a share of 255 parts are covered; two channels at a time.
QRgb blend(QRgb bottom, QRgb top, unsigned int share)
{
    const auto mix = [&](QRgb b, QRgb t) {
        const QRgb mixed = (t & OddBytes) * share + (b & OddBytes) * (255 - share) + 0x00800080;
        return (mixed + (mixed >> 8 & OddBytes)) >> 8 & OddBytes;
    };
    return mix(bottom, top) | mix(bottom >> 8, top >> 8) << 8;
}

/// What Qt's rasteriser makes of a premultiplied pixel over an opaque one.
QRgb over(QRgb top, QRgb bottom)
{
    const auto fade = [share = 255 - static_cast<unsigned int>(qAlpha(top))](QRgb part) {
        const QRgb faded = (part & OddBytes) * share;
        return (faded + (faded >> 8 & OddBytes) + 0x00800080) >> 8 & OddBytes;
    };
    return top + (fade(bottom) | fade(bottom >> 8) << 8);
}

QRgb* pixels(QImage& picture) { return reinterpret_cast<QRgb*>(picture.bits()); }

const QRgb* pixels(const QImage& picture)
{
    return reinterpret_cast<const QRgb*>(picture.constBits());
}

qsizetype stride(const QImage& picture)
{
    return picture.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
}

} // namespace

void ChangedRows::reset(int columns)
{
    m_columns.resize(static_cast<std::size_t>(columns));
    for (Column& column : m_columns)
        column.count = 0;
}

void ChangedRows::add(const CurveStroke& before, const CurveStroke& after)
{
    auto old = before.runs.begin();
    auto now = after.runs.begin();
    while (old != before.runs.end() || now != after.runs.end()) {
        const bool isGone =
            now == after.runs.end() || (old != before.runs.end() && old->column < now->column);
        const bool isNew = !isGone && (old == before.runs.end() || now->column < old->column);
        const CurveStroke::Run& a = isGone ? *old : *now;
        const CurveStroke::Run& b = isNew || isGone ? a : *old;
        insert(a.column,
               {std::min(a.first, b.first), std::max(a.first + a.count, b.first + b.count)});
        old += isNew ? 0 : 1;
        now += isGone ? 0 : 1;
    }
}

std::span<const ChangedRows::Range> ChangedRows::column(int column) const
{
    const Column& ranges = m_columns[static_cast<std::size_t>(column)];
    return {ranges.ranges.data(), ranges.count};
}

void ChangedRows::draw(const CurveStroke& stroke, QColor color, QImage& picture) const
{
    QRgb* const bits = pixels(picture);
    const qsizetype line = stride(picture);
    const QRgb rgb = color.rgb();
    const unsigned char* coverage = stroke.coverage.data();
    for (const CurveStroke::Run& run : stroke.runs) {
        for (const Range& range : column(run.column)) {
            const int first = std::max(range.first, run.first);
            const int end = std::min(range.end, run.first + run.count);
            QRgb* pixel = bits + first * line + run.column;
            const unsigned char* share = coverage + (first - run.first);
            for (int row = first; row < end; ++row, pixel += line, ++share)
                *pixel = *share == 255 ? rgb : blend(*pixel, rgb, *share);
        }
        coverage += run.count;
    }
}

void ChangedRows::copy(const QImage& from, QImage& to) const
{
    const QRgb* const source = pixels(from);
    QRgb* const target = pixels(to);
    const qsizetype line = stride(to);
    for (std::size_t x = 0; x < m_columns.size(); ++x) {
        for (const Range& range : column(static_cast<int>(x))) {
            qsizetype pixel = range.first * line + static_cast<qsizetype>(x);
            for (int row = range.first; row < range.end; ++row, pixel += line)
                target[pixel] = source[pixel];
        }
    }
}

void ChangedRows::lay(const QImage& picture, const QImage& ground, const QPoint& corner,
                      QImage& to) const
{
    const QRgb* const top = pixels(picture);
    const QRgb* const bottom = pixels(ground) + corner.y() * stride(ground) + corner.x();
    QRgb* const target = pixels(to);
    const qsizetype line = stride(to);
    for (std::size_t x = 0; x < m_columns.size(); ++x) {
        const auto at = static_cast<qsizetype>(x);
        for (const Range& range : column(static_cast<int>(x))) {
            for (int row = range.first; row < range.end; ++row)
                target[row * line + at] =
                    over(top[row * line + at], bottom[row * stride(ground) + at]);
        }
    }
}

void ChangedRows::insert(int column, Range range)
{
    Column& list = m_columns[static_cast<std::size_t>(column)];
    for (std::size_t i = 0; i < list.count;) {
        const Range other = list.ranges[i];
        if (range.first > other.end || other.first > range.end) {
            ++i;
            continue;
        }
        range = {std::min(range.first, other.first), std::max(range.end, other.end)};
        list.ranges[i] = list.ranges[--list.count];
        i = 0;
    }
    list.ranges[list.count++] = range;
}
