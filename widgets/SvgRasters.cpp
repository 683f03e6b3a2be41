// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/SvgRasters.h"

#include <QCache>

#include <algorithm>

namespace {

const QRgb* rowOf(const QImage& image, int y)
{
    return reinterpret_cast<const QRgb*>(image.constScanLine(y));
}

} // namespace

QRect inkOf(const QImage& image)
{
    const int width = image.width();
    const auto shows = [](QRgb pixel) { return pixel != 0; };
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        const QRgb* row = rowOf(image, y);
        const auto left = static_cast<int>(std::find_if(row, row + width, shows) - row);
        if (left == width)
            continue;
        int right = width - 1;
        while (!shows(row[right]))
            --right;
        ink |= QRect(QPoint(left, y), QPoint(right, y));
    }
    return ink;
}

SvgRaster trimmed(const SvgRaster& raster)
{
    const QRect shown = inkOf(raster.image);
    const QRect ink = shown.isNull() ? QRect(0, 0, 1, 1) : shown;
    return {raster.image.copy(ink), raster.offset + ink.topLeft()};
}

SvgRaster simplified(SvgRaster raster)
{
    const QImage& image = raster.image;
    for (int y = 0; y < image.height(); ++y) {
        const QRgb* row = rowOf(image, y);
        if (!std::all_of(row, row + image.width(), [](QRgb pixel) { return qAlpha(pixel) == 255; }))
            return raster;
    }
    raster.image.reinterpretAsFormat(QImage::Format_RGB32);
    return raster;
}

namespace SvgRasters {

namespace {

using Cache = QCache<SvgRasterKey, SvgRaster>;

// Documents that outlive the cache at the end of the process still ask it to drop their rasters.
bool isAlive = false;

struct Guarded
{
    Guarded() { isAlive = true; }
    ~Guarded() { isAlive = false; }

    Cache cache = Cache(MaximumBytes);
};

Cache& rasters()
{
    static Guarded guarded;
    return guarded.cache;
}

} // namespace

const SvgRaster* find(const SvgRasterKey& key) { return rasters().object(key); }

const SvgRaster* insert(const SvgRasterKey& key, SvgRaster raster)
{
    const qsizetype size = raster.image.sizeInBytes();
    auto* kept = new SvgRaster(std::move(raster));
    return rasters().insert(key, kept, size) ? kept : nullptr;
}

void drop(quint64 document)
{
    if (!isAlive)
        return;
    const QList<SvgRasterKey> keys = rasters().keys();
    for (const SvgRasterKey& key : keys) {
        if (key.document == document)
            rasters().remove(key);
    }
}

} // namespace SvgRasters
