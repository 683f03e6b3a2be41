// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/PixelCopy.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QRegion>

#include <optional>

namespace {

/// By how many whole pixels a painter moves what it draws, if it does nothing else with it.
std::optional<QPoint> wholePixels(const QTransform& toDevice)
{
    const QPoint shift(static_cast<int>(toDevice.dx()), static_cast<int>(toDevice.dy()));
    if (toDevice.type() > QTransform::TxTranslate || QPointF(shift) != toDevice.map(QPointF()))
        return {};
    return shift;
}

void countInPixels(QPainter& painter, const QTransform& toDevice)
{
    const QTransform world = painter.worldMatrixEnabled() ? painter.worldTransform() : QTransform();
    painter.setWorldTransform((world.inverted() * toDevice).inverted());
}

void copyByRects(QPainter& painter, const QPoint& target, const QImage& image, const QRect& source,
                 const QRegion& clip)
{
    const bool isClipped = painter.hasClipping();
    for (const QRect& rect : clip) {
        if (!rect.intersects(QRect(target, source.size())))
            continue;
        if (isClipped)
            painter.save();
        painter.setClipRect(rect, isClipped ? Qt::IntersectClip : Qt::ReplaceClip);
        painter.drawImage(target, image, source);
        if (isClipped)
            painter.restore();
    }
}

} // namespace

void copyPixels(QPainter& painter, const QPoint& target, const QImage& image, const QRect& source,
                double opacity, const QRect& covered)
{
    const QTransform toDevice = painter.deviceTransform();
    const QRegion whole = painter.paintEngine()->systemClip();
    const QRegion clip = covered.isEmpty() ? whole : whole - covered;
    if (clip.isEmpty() && !whole.isEmpty())
        return;
    const bool isInPieces = clip.rectCount() > 1 || clip != whole;
    const std::optional<QPoint> shift = wholePixels(toDevice);
    if (shift && !isInPieces && opacity == painter.opacity()) {
        painter.drawImage(target - *shift, image, source);
        return;
    }
    painter.save();
    countInPixels(painter, toDevice);
    painter.setOpacity(opacity);
    if (isInPieces)
        copyByRects(painter, target, image, source, clip);
    else
        painter.drawImage(target, image, source);
    painter.restore();
}
