// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/RoundShapes.h"

#include <QBrush>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace CommonController_MemAPI::RoundShapes {

namespace {

QPainterPath outline(const QRectF& rect)
{
    const double radius = std::min(rect.width(), rect.height()) * 0.5;
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

void fillClipped(QPainter& painter, const QRectF& shape, const QRectF& clip, const QBrush& brush)
{
    painter.save();
    painter.setClipRect(clip, Qt::IntersectClip);
    painter.fillPath(outline(shape), brush);
    painter.restore();
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
        painter.fillPath(outline(rect), brush);
}

void fillPart(QPainter& painter, const QRectF& lit, const QRectF& track, const QBrush& brush)
{
    const double width = track.width();
    if (lit.isEmpty() || width <= 0.0)
        return;
    if (lit.height() >= track.height()) {
        fill(painter, track, brush);
        return;
    }
    if (lit.height() < 1.5 * width) {
        painter.fillPath(outline(track).intersected(outline(lit)), brush);
        return;
    }
    // The moving end is drawn by itself, so that neither end depends on where the other one is.
    const bool endsAbove = lit.top() > track.top();
    const double endStart = endsAbove ? lit.top() : lit.bottom() - 2.0 * width;
    const double restStart = endsAbove ? lit.top() + width : lit.top();
    const QRectF end(lit.x(), endsAbove ? lit.top() : lit.bottom() - width, width, width);
    fillClipped(painter, QRectF(lit.x(), endStart, width, 2.0 * width), end, brush);
    fillClipped(painter, track, QRectF(lit.x(), restStart, width, lit.height() - width), brush);
}

} // namespace CommonController_MemAPI::RoundShapes
