// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/SpectrumRaster.h"

#include <QLinearGradient>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

constexpr double fadedTo = 0.25; // of the fill's opacity, at the bottom

int mixed(int below, int above, int share) { return below + (above - below) * share / 256; }

struct Ink
{
    explicit Ink(const QColor& color)
        : solid(color.rgb())
        , opacity(static_cast<float>(256.0 * color.alphaF()))
    {}

    void draw(quint32& pixel, float coverage) const
    {
        const int share = static_cast<int>(coverage * opacity);
        pixel =
            qRgb(mixed(qRed(pixel), qRed(solid), share), mixed(qGreen(pixel), qGreen(solid), share),
                 mixed(qBlue(pixel), qBlue(solid), share));
    }

    QRgb solid;
    float opacity;
};

// How much of the pixel from a place on lies between two others.
float covered(float place, float from, float to)
{
    return std::min(to, place + 1.0F) - std::max(from, place);
}

quint32* line(QImage& image, int y) { return reinterpret_cast<quint32*>(image.scanLine(y)); }

const quint32* line(const QImage& image, int y)
{
    return reinterpret_cast<const quint32*>(image.constScanLine(y));
}

} // namespace

void SpectrumRaster::setGround(const QImage& ground, const QColor& fill)
{
    m_ground = ground.convertToFormat(QImage::Format_RGB32);
    m_ground.setDevicePixelRatio(1.0);
    m_filled = m_ground.copy();
    QLinearGradient fade(0, 0, 0, m_filled.height());
    QColor faded = fill;
    faded.setAlphaF(static_cast<float>(fill.alphaF() * fadedTo));
    fade.setColorAt(0, fill);
    fade.setColorAt(1, faded);
    QPainter(&m_filled).fillRect(m_filled.rect(), fade);
    m_image = m_ground.copy();
}

void SpectrumRaster::clear()
{
    std::memcpy(m_image.bits(), m_ground.constBits(),
                static_cast<std::size_t>(m_image.sizeInBytes()));
}

void SpectrumRaster::fill(std::span<const float> curve)
{
    const int width = std::min(m_image.width(), static_cast<int>(curve.size()));
    m_tops.resize(static_cast<std::size_t>(width));
    for (std::size_t x = 0; x < m_tops.size(); ++x)
        m_tops[x] = static_cast<int>(std::ceil(curve[x]));
    for (int y = 0; y < m_image.height(); ++y) {
        const quint32* ground = line(std::as_const(m_ground), y);
        const quint32* filled = line(std::as_const(m_filled), y);
        quint32* pixels = line(m_image, y);
        const int* tops = m_tops.data();
        for (int x = 0; x < width; ++x)
            pixels[x] = tops[x] <= y ? filled[x] : ground[x];
    }
}

// In each column from half way to the neighbour on the left to half way to that on the right.
void SpectrumRaster::drawLine(std::span<const float> curve, float width, const QColor& color)
{
    const std::size_t count = std::min(curve.size(), static_cast<std::size_t>(m_image.width()));
    const auto height = static_cast<float>(m_image.height());
    const Ink ink(color);
    quint32* pixels = line(m_image, 0);
    const qsizetype stride = m_image.bytesPerLine() / qsizetype{sizeof(quint32)};
    for (std::size_t x = 0; x < count; ++x) {
        const float middle = curve[x];
        const float left = x > 0 ? (curve[x - 1] + middle) / 2.0F : middle;
        const float right = x + 1 < count ? (middle + curve[x + 1]) / 2.0F : middle;
        const auto [low, high] = std::minmax({left, middle, right});
        const float from = std::max(low - width / 2.0F, 0.0F);
        const float to = std::min(high + width / 2.0F, height);
        for (float y = std::floor(from); y < to; y += 1.0F)
            ink.draw(pixels[static_cast<qsizetype>(y) * stride + static_cast<qsizetype>(x)],
                     covered(y, from, to));
    }
}

void SpectrumRaster::drawDots(std::span<const QPointF> dots, float radius, const QColor& color)
{
    const int reach = static_cast<int>(std::ceil(radius)) + 1;
    const Ink ink(color);
    for (const QPointF& dot : dots) {
        const QPoint centre = dot.toPoint();
        for (int y = centre.y() - reach; y <= centre.y() + reach; ++y) {
            for (int x = centre.x() - reach; x <= centre.x() + reach; ++x) {
                const double distance = std::hypot(x + 0.5 - dot.x(), y + 0.5 - dot.y());
                const auto inside = static_cast<float>(double{radius} + 0.5 - distance);
                if (inside > 0.0F && m_image.valid(x, y))
                    ink.draw(line(m_image, y)[x], std::min(inside, 1.0F));
            }
        }
    }
}
