// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/RotatedSvg.h"

#include "widgets/SvgImage.h"
#include "widgets/SvgRasters.h"

#include <QCache>
#include <QHashFunctions>
#include <QPainter>

#include <cmath>

namespace CommonController_MemAPI::RotatedSvg {

namespace {

/// Device pixels and parts of a turn times 2^32, where rounding errors no longer make two keys of
/// what is one drawing.
struct Key
{
    QString path;
    qint64 scaleX = 0;
    qint64 scaleY = 0;
    qint64 phaseX = 0;
    qint64 phaseY = 0;
    qint64 x = 0;
    qint64 y = 0;
    qint64 width = 0;
    qint64 height = 0;
    qint64 degrees = 0;
    QSize pixels;

    bool operator==(const Key&) const = default;
};

size_t qHash(const Key& key, size_t seed = 0)
{
    return qHashMulti(seed, key.path, key.scaleX, key.scaleY, key.phaseX, key.phaseY, key.x, key.y,
                      key.width, key.height, key.degrees, key.pixels.width(), key.pixels.height());
}

QCache<Key, SvgRaster>& rasters()
{
    static QCache<Key, SvgRaster> cache(MaximumBytes);
    return cache;
}

qint64 toFixed(double number) { return std::llround(number * 4294967296.0); }

/// The canvas on the pixels of a painter's device.
struct Sheet
{
    Sheet(const QPainter& painter, const QRect& canvas)
        : toDevice(painter.deviceTransform())
        , pixels(toDevice.mapRect(QRectF(canvas)).toAlignedRect())
    {}

    QTransform toPixels() const
    {
        return toDevice * QTransform::fromTranslate(-pixels.x(), -pixels.y());
    }

    QTransform toDevice;
    QRect pixels;
};

Key keyOf(const SvgImage& image, const Sheet& sheet, const QRectF& rect, double degrees)
{
    const QTransform transform = sheet.toPixels();
    return {.path = image.path(),
            .scaleX = toFixed(transform.m11()),
            .scaleY = toFixed(transform.m22()),
            .phaseX = toFixed(transform.dx()),
            .phaseY = toFixed(transform.dy()),
            .x = toFixed(rect.x()),
            .y = toFixed(rect.y()),
            .width = toFixed(rect.width()),
            .height = toFixed(rect.height()),
            .degrees = toFixed(std::remainder(degrees, 360.0)),
            .pixels = sheet.pixels.size()};
}

SvgRaster rendered(SvgImage& image, const Sheet& sheet, const QRectF& rect, double degrees)
{
    QImage raster(sheet.pixels.size(), QImage::Format_ARGB32_Premultiplied);
    raster.fill(Qt::transparent);
    QPainter painter(&raster);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setWorldTransform(sheet.toPixels());
    painter.translate(rect.center());
    painter.rotate(degrees);
    image.draw(painter, rect.translated(-rect.center()));
    return trimmed({raster, QPoint()});
}

SvgRaster raster(SvgImage& image, const Sheet& sheet, const QRectF& rect, double degrees)
{
    if (image.isAnimated())
        return rendered(image, sheet, rect, degrees);
    const Key key = keyOf(image, sheet, rect, degrees);
    if (const SvgRaster* known = rasters().object(key))
        return *known;
    const SvgRaster made = rendered(image, sheet, rect, degrees);
    rasters().insert(key, new SvgRaster(made), made.image.sizeInBytes());
    return made;
}

} // namespace

void draw(QPainter& painter, SvgImage& image, const QRectF& rect, double degrees, double opacity,
          const QRect& canvas)
{
    const Sheet sheet(painter, canvas);
    if (!image.isValid() || rect.isEmpty() || sheet.pixels.isEmpty())
        return;
    const SvgRaster picture = raster(image, sheet, rect, degrees);
    painter.save();
    painter.setWorldTransform(sheet.toDevice.inverted() * painter.worldTransform());
    painter.setOpacity(painter.opacity() * opacity);
    painter.drawImage(sheet.pixels.topLeft() + picture.offset, picture.image);
    painter.restore();
}

void drop(const QString& path)
{
    const QList<Key> keys = rasters().keys();
    for (const Key& key : keys) {
        if (key.path == path)
            rasters().remove(key);
    }
}

void clear() { rasters().clear(); }

int count() { return static_cast<int>(rasters().size()); }

} // namespace CommonController_MemAPI::RotatedSvg
