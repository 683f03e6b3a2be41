// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QHashFunctions>
#include <QImage>
#include <QPoint>
#include <QRectF>
#include <QTransform>

class QPainterPath;

namespace CommonController_MemAPI {

/// A rectangle whose ends are rounded to half circles, or what it shares with another one.
struct RoundShape
{
    QRectF rect;
    QRectF cut = QRectF(); ///< the other one; null if there is none

    QPainterPath path() const;
};

/// The pixels of a filled shape on an empty ground, and where on the device the first of them lies.
struct PlacedRaster
{
    QImage image; ///< null if the shape is not worth a raster
    QPoint corner;
};

/// The process's rasters of round shapes, shared by all meters that show the same one at another
/// place. The least recently used ones give way when all together exceed a few MiB. GUI thread
/// only.
namespace ShapeRasters {

/// \a toDevice neither turns nor mirrors.
PlacedRaster raster(const RoundShape& shape, const QColor& color, const QTransform& toDevice);

} // namespace ShapeRasters

} // namespace CommonController_MemAPI
