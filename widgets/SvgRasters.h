// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHashFunctions>
#include <QImage>
#include <QPoint>
#include <QRect>

/// What decides every pixel of a raster: two pictures with equal keys look the same, moved by whole
/// device pixels. Lengths are device pixels times 2^32, so that rounding errors far below what the
/// rasteriser resolves do not make two keys of one.
struct SvgRasterKey
{
    quint64 document = 0;
    qint64 x = 0; ///< the left edge's place within its pixel
    qint64 y = 0;
    qint64 width = 0;
    qint64 height = 0;
    double opacity = 1.0; ///< of every shape by itself
    double blur = 0.0;    ///< radius in device pixels
    QRect part = QRect(); ///< what is kept of a picture that is blurred or turned; else null
    // Only of a turned picture; the scales of any other are 0.
    qint64 degrees = 0; ///< clockwise, times 2^32
    qint64 scaleX = 0;  ///< device pixels to one of the painter's units, times 2^32
    qint64 scaleY = 0;

    bool operator==(const SvgRasterKey&) const = default;
};

inline size_t qHash(const SvgRasterKey& key, size_t seed = 0)
{
    return qHashMulti(seed, key.document, key.x, key.y, key.width, key.height, key.opacity,
                      key.blur, key.part.x(), key.part.y(), key.part.width(), key.part.height(),
                      key.degrees, key.scaleX, key.scaleY);
}

/// The pixels of a picture, premultiplied, and where the first of them lies from the pixel that
/// holds the left top corner of the picture's rectangle.
struct SvgRaster
{
    QImage image;
    QPoint offset;
};

/// The rectangle around the pixels of \a image that show something; null if none does.
QRect inkOf(const QImage& image);

/// A raster of the same picture without its empty margins; a raster that shows nothing keeps one
/// pixel.
SvgRaster trimmed(const SvgRaster& raster);

/// The same raster in the format RGB32, which is copied without blending, if nothing of it is
/// translucent.
SvgRaster simplified(SvgRaster raster);

/// The process's rasters of SVG pictures, one for each way in which one is drawn (straight, turned,
/// blurred or translucent), whoever draws it. They belong to the document that was loaded, not to
/// its path. The least recently used ones give way when all together exceed the bound. GUI thread
/// only.
namespace SvgRasters {

/// All rasters together never take more bytes than this.
constexpr qsizetype MaximumBytes = 128 * 1024 * 1024;
/// A picture of more bytes is not worth a raster.
constexpr qsizetype MaximumBytesOfOne = MaximumBytes / 2;

/// Null if there is none. Valid until the next call of insert() or drop().
const SvgRaster* find(const SvgRasterKey& key);
/// Keeps \a raster, of at most MaximumBytesOfOne, and returns it as find() would.
const SvgRaster* insert(const SvgRasterKey& key, SvgRaster raster);
/// Forgets the rasters of a document.
void drop(quint64 document);

} // namespace SvgRasters
