// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QImage>
#include <QPointF>

#include <span>
#include <vector>

/// Draws curves that have one value in every column of pixels, over a picture that stays: many
/// times a second, and much faster than a painter draws paths. All sizes are pixels of the picture;
/// a curve has a y for each column, from the left one on, which may lie outside.
class SpectrumRaster
{
public:
    /// What is drawn over, and the colour of what is filled, which fades downwards.
    void setGround(const QImage& ground, const QColor& fill);
    QSize size() const { return m_image.size(); }

    /// Begin a picture: with the ground alone, or with all filled that is below a curve.
    void clear();
    void fill(std::span<const float> curve);

    void drawLine(std::span<const float> curve, float width, const QColor& color);
    void drawDots(std::span<const QPointF> dots, float radius, const QColor& color);

    /// The picture so far.
    const QImage& image() const { return m_image; }

private:
    QImage m_ground;
    QImage m_filled;
    QImage m_image;
    std::vector<int> m_tops;
};
