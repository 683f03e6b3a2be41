// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/graph/GraphFixture.h"

#include <algorithm>
#include <functional>
#include <vector>

/// The colours of the bands, low to high, and the darker ones of bands that are not edited.
inline const std::array<QColor, 6> FullColors = {
    QColor(0xED, 0x1C, 0x24), QColor(0xED, 0x6B, 0x1C), QColor(0xFE, 0xBA, 0x24),
    QColor(0x11, 0xB5, 0x19), QColor(0x14, 0xA8, 0xAD), QColor(0x95, 0x19, 0xD0)};
inline const QColor FrameColor(0x67, 0x77, 0x84);

inline QColor fullColor(int band) { return FullColors[static_cast<std::size_t>(band)]; }
inline QColor dimColor(int band) { return fullColor(band).darker(150); }

/// The pixel at a place of the widget.
inline QRgb colorAt(const QImage& picture, QPointF place)
{
    const QPointF pixel = place * picture.devicePixelRatio();
    return picture.pixel(static_cast<int>(std::floor(pixel.x())),
                         static_cast<int>(std::floor(pixel.y())));
}

/// How much of a pixel of a picture on black is white, from 0 to 1, in the least of its channels;
/// what the darkened colours of the bands leave there is less than a tenth and counts as nothing.
inline double whiteness(QRgb pixel)
{
    const int least = std::min({qRed(pixel), qGreen(pixel), qBlue(pixel)});
    return std::max(0, least - 30) / 225.0;
}

/// A drawn curve as the points between which it is straight, in the picture's pixels.
class DrawnCurve
{
public:
    /// \a level gives the level in dB at a frequency. The curve is followed in steps of 3 units of
    /// the plot, whole pixels of the widget and at least one.
    DrawnCurve(const Plot& plot, double ratio, const std::function<double(double)>& level)
    {
        const int step = std::max(static_cast<int>(3.0 * plot.u), 1);
        for (int x = -step; x <= plot.width + step; x += step) {
            const double f = 20.0 * std::pow(1000.0, x / plot.width);
            m_points.push_back(QPointF(plot.left + x, plot.y(level(f))) * ratio);
        }
    }

    /// The curve in white on black, drawn by QPainter and clipped to the plot.
    QImage picture(const GraphFixture& f, double width) const
    {
        const double ratio = f.graph->devicePixelRatioF();
        const QRectF plot = f.plot().rect();
        QImage image((QSizeF(f.graph->size()) * ratio).toSize(), QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setClipRect(QRectF(plot.topLeft() * ratio, plot.size() * ratio).toRect());
        painter.setPen(
            QPen(Qt::white, width * f.plot().u * ratio, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin));
        painter.drawPolyline(m_points.data(), static_cast<int>(m_points.size()));
        return image;
    }

private:
    std::vector<QPointF> m_points;
};
