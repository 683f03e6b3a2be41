// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/RoundShapes.h"

#include "controls/ShapeRasters.h"
#include "widgets/PixelCopy.h"

#include <QBrush>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <initializer_list>

namespace CommonController_MemAPI::RoundShapes {

namespace {

/// Whether a raster gives the pixels that filling gives: the painter draws plainly and a clip edge
/// runs through no pixel.
bool takesRasters(const QPainter& painter, const QTransform& toDevice, const QBrush& brush)
{
    return brush.style() == Qt::SolidPattern &&
           painter.paintEngine()->type() == QPaintEngine::Raster && !painter.hasClipping() &&
           painter.compositionMode() == QPainter::CompositionMode_SourceOver &&
           painter.opacity() == 1.0 && painter.testRenderHint(QPainter::Antialiasing) &&
           toDevice.type() <= QTransform::TxScale && toDevice.m11() > 0.0 && toDevice.m22() > 0.0;
}

void fillClipped(QPainter& painter, const RoundShape& shape, std::initializer_list<QRectF> clips,
                 const QBrush& brush)
{
    painter.save();
    for (const QRectF& clip : clips) {
        if (!clip.isNull())
            painter.setClipRect(clip, Qt::IntersectClip);
    }
    painter.fillPath(shape.path(), brush);
    painter.restore();
}

/// Fills what of a shape lies in all of \a clips; one that is null clips nothing.
void fillShape(QPainter& painter, const RoundShape& shape, std::initializer_list<QRectF> clips,
               const QBrush& brush)
{
    const QTransform toDevice = painter.deviceTransform();
    PlacedRaster raster;
    if (takesRasters(painter, toDevice, brush))
        raster = ShapeRasters::raster(shape, brush.color(), toDevice);
    if (raster.image.isNull()) {
        fillClipped(painter, shape, clips, brush);
        return;
    }
    QRect pixels(raster.corner, raster.image.size());
    for (const QRectF& clip : clips) {
        if (!clip.isNull())
            pixels &= toDevice.mapRect(clip).toRect();
    }
    if (!pixels.isEmpty())
        copyPixels(painter, pixels.topLeft(), raster.image, pixels.translated(-raster.corner), 1.0);
}

} // namespace

QRectF centred(const QRectF& area, const QSizeF& size)
{
    return {area.center() - QPointF(size.width(), size.height()) * 0.5, size};
}

QRectF snapped(const QPainter& painter, const QRectF& rect)
{
    const QTransform toDevice = painter.deviceTransform();
    if (toDevice.type() > QTransform::TxScale || !toDevice.isInvertible())
        return rect;
    const QRectF device = toDevice.mapRect(rect);
    const QPointF corner(std::round(device.left()), std::round(device.top()));
    const QPointF opposite(std::round(device.right()), std::round(device.bottom()));
    return toDevice.inverted().mapRect(QRectF(corner, opposite));
}

void fill(QPainter& painter, const QRectF& rect, const QBrush& brush)
{
    if (!rect.isEmpty())
        fillShape(painter, {rect}, {}, brush);
}

void fillPart(QPainter& painter, const QRectF& lit, const QRectF& track, const QRectF& zone,
              const QBrush& brush)
{
    const double width = track.width();
    if (lit.isEmpty() || width <= 0.0)
        return;
    if (lit.height() >= track.height()) {
        if (!track.isEmpty())
            fillShape(painter, {track}, {zone}, brush);
        return;
    }
    if (lit.height() < 1.5 * width) {
        fillShape(painter, {track, lit}, {zone}, brush);
        return;
    }
    // The moving end is drawn by itself, so that neither end depends on where the other one is.
    const bool endsAbove = lit.top() > track.top();
    const double endStart = endsAbove ? lit.top() : lit.bottom() - 2.0 * width;
    const double restStart = endsAbove ? lit.top() + width : lit.top();
    const QRectF end(lit.x(), endsAbove ? lit.top() : lit.bottom() - width, width, width);
    const QRectF rest(lit.x(), restStart, width, lit.height() - width);
    fillShape(painter, {QRectF(lit.x(), endStart, width, 2.0 * width)}, {zone, end}, brush);
    fillShape(painter, {track}, {zone, rest}, brush);
}

} // namespace CommonController_MemAPI::RoundShapes
