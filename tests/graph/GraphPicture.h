// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/graph/AnalogModel.h"
#include "tests/graph/GraphFixture.h"
#include "tests/support/ImageDifference.h"

#include <array>
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

/// What the graph shows in its plot, drawn by QPainter from the analog filters.
struct PaintedGraph
{
    AnalogModel::Settings bands;
    int edited = -1;  ///< a band, or negative
    int focused = -1; ///< the band whose handle has the keyboard's focus, or negative
    double rate = 44100.0;

    const AnalogModel::BandSettings& band(int number) const
    {
        return bands[static_cast<std::size_t>(number)];
    }
    /// Where a band's handle stands; its type is a known one.
    QPointF handle(int number, const Plot& plot) const
    {
        const bool isPass = (number == 0 || number == 5) && band(number).type < 2;
        return {plot.x(band(number).f), isPass ? plot.centre : plot.y(band(number).g)};
    }

    QImage picture(const GraphFixture& f) const
    {
        const double ratio = f.graph->devicePixelRatioF();
        QImage image((QSizeF(f.graph->size()) * ratio).toSize(), QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        const Plot plot = f.plot();
        painter.scale(ratio, ratio);
        drawGrid(painter, plot);
        const QRectF clip = plot.rect();
        painter.resetTransform();
        painter.setClipRect(QRectF(clip.topLeft() * ratio, clip.size() * ratio).toRect());
        painter.scale(ratio, ratio);
        drawCurves(painter, plot);
        painter.setClipRect(clip);
        drawHandles(painter, plot);
        return image;
    }

private:
    static void drawGrid(QPainter& painter, const Plot& plot)
    {
        painter.setPen(QPen(FrameColor, plot.u));
        const auto vertical = [&](double x) {
            painter.drawLine(QLineF(x, plot.top, x, plot.bottom));
        };
        for (int row = 0; row <= 8; ++row) {
            const double y = plot.top + plot.height * row / 8;
            painter.drawLine(QLineF(plot.left, y, plot.right, y));
        }
        vertical(plot.left);
        vertical(plot.right);
        for (const double decade : {10.0, 100.0, 1000.0})
            for (int digit = 1; digit < 10; ++digit)
                if (digit * decade > 20)
                    vertical(plot.x(digit * decade));
        vertical(plot.x(10000));
    }

    /// In steps of 3 units of the plot, whole pixels of the widget and at least one.
    static void drawCurve(QPainter& painter, const Plot& plot, const QPen& pen,
                          const std::function<double(double)>& level)
    {
        QPolygonF points;
        const int step = std::max(static_cast<int>(3.0 * plot.u), 1);
        for (int x = -step; x <= plot.width + step; x += step)
            points << QPointF(plot.left + x,
                              plot.y(level(20.0 * std::pow(1000.0, x / plot.width))));
        painter.setPen(pen);
        painter.drawPolyline(points);
    }

    void drawCurves(QPainter& painter, const Plot& plot) const
    {
        const auto draw = [&](int number, const QColor& color, double width) {
            if (number >= 0 && band(number).on)
                drawCurve(painter, plot, QPen(color, width * plot.u), [&](double hz) {
                    return AnalogModel::level(band(number), number, hz, rate);
                });
        };
        for (int number = 0; number < 6; ++number)
            if (number != edited)
                draw(number, dimColor(number), 1.0);
        drawCurve(painter, plot, QPen(Qt::white, 1.5 * plot.u),
                  [&](double hz) { return AnalogModel::total(bands, hz, rate); });
        if (edited >= 0)
            draw(edited, fullColor(edited), 1.5);
    }

    void drawHandles(QPainter& painter, const Plot& plot) const
    {
        painter.setPen(Qt::NoPen);
        const auto draw = [&](int number, const QColor& color) {
            painter.setBrush(color);
            if (band(number).on)
                painter.drawEllipse(handle(number, plot), 3.0 * plot.u, 3.0 * plot.u);
        };
        for (int number = 0; number < 6; ++number)
            if (number != edited)
                draw(number, dimColor(number));
        if (edited >= 0)
            draw(edited, fullColor(edited));
        if (focused < 0)
            return;
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(fullColor(focused), 1.5 * plot.u));
        painter.drawEllipse(handle(focused, plot), 5.5 * plot.u, 5.5 * plot.u);
    }
};
