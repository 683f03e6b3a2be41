// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ShapeRasters.h"

#include <QCache>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>

namespace CommonController_MemAPI {

namespace {

constexpr qsizetype MaximumBytes = 8 * 1024 * 1024;
constexpr double MaximumPixelsOfOne = 256.0 * 1024.0;

/// What decides every pixel of a shape but its place: the colour, the scales, and the rectangles.
/// Lengths are times 2^32, places from the pixel that holds the shape's left top corner.
struct Key
{
    QRgba64 color;
    std::array<qint64, 10> lengths;

    bool operator==(const Key& other) const
    {
        return color == other.color && lengths == other.lengths;
    }
};

size_t qHash(const Key& key, size_t seed)
{
    return qHashRange(key.lengths.begin(), key.lengths.end(), seed ^ quint64(key.color));
}

qint64 toFixed(double number) { return std::llround(number * 4294967296.0); }

/// The whole pixels left of and above a place on the device.
QPoint pixelOf(const QPointF& place)
{
    return {static_cast<int>(toFixed(place.x()) >> 32), static_cast<int>(toFixed(place.y()) >> 32)};
}

Key keyOf(const RoundShape& shape, const QColor& color, const QTransform& toDevice)
{
    const QPointF corner = toDevice.map(shape.rect.topLeft());
    const QPointF part = corner - pixelOf(corner);
    const QPointF away = shape.cut.topLeft() - shape.rect.topLeft();
    return {color.rgba64(),
            {toFixed(part.x()), toFixed(part.y()), toFixed(shape.rect.width()),
             toFixed(shape.rect.height()), toFixed(away.x()), toFixed(away.y()),
             toFixed(shape.cut.width()), toFixed(shape.cut.height()), toFixed(toDevice.m11()),
             toFixed(toDevice.m22())}};
}

/// A raster whose corner counts from the pixel of the shape's corner.
PlacedRaster filled(const RoundShape& shape, const QColor& color, const QTransform& toDevice)
{
    const QRectF rect = toDevice.mapRect(shape.rect);
    const QRect pixels = rect.toAlignedRect().adjusted(-1, -1, 1, 1);
    QImage image(pixels.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setWorldTransform(toDevice * QTransform::fromTranslate(-pixels.x(), -pixels.y()));
    painter.fillPath(shape.path(), color);
    return {image, pixels.topLeft() - pixelOf(rect.topLeft())};
}

bool isWorthARaster(const RoundShape& shape, const QTransform& toDevice)
{
    constexpr double farthest = 1 << 24;
    const QRectF rect = toDevice.mapRect(shape.rect);
    return rect.width() * rect.height() <= MaximumPixelsOfOne &&
           QRectF(-farthest, -farthest, 2.0 * farthest, 2.0 * farthest).contains(rect);
}

QPainterPath outline(const QRectF& rect)
{
    const double radius = std::min(rect.width(), rect.height()) * 0.5;
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

} // namespace

QPainterPath RoundShape::path() const
{
    return cut.isNull() ? outline(rect) : outline(rect).intersected(outline(cut));
}

PlacedRaster ShapeRasters::raster(const RoundShape& shape, const QColor& color,
                                  const QTransform& toDevice)
{
    static QCache<Key, PlacedRaster> rasters(MaximumBytes);
    if (!isWorthARaster(shape, toDevice))
        return {};
    const Key key = keyOf(shape, color, toDevice);
    const QPoint pixel = pixelOf(toDevice.map(shape.rect.topLeft()));
    if (const PlacedRaster* known = rasters.object(key))
        return {known->image, pixel + known->corner};
    const PlacedRaster made = filled(shape, color, toDevice);
    rasters.insert(key, new PlacedRaster(made), made.image.sizeInBytes());
    return {made.image, pixel + made.corner};
}

} // namespace CommonController_MemAPI
