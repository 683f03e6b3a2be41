// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "widgets/SvgRasters.h"

#include <QPoint>
#include <QRect>
#include <QRectF>
#include <QTransform>

class QPainter;

/// A picture laid out on the pixels of a painter's device. Pixels are counted from the one that
/// holds the left top corner of the picture's rectangle, the origin.
struct SvgPlacement
{
    SvgPlacement(const QPainter& painter, const QRectF& pictureRect);

    /// Whether the painter neither turns nor mirrors.
    bool isUpright() const;
    /// Whether there is something to draw, at coordinates that integers can count.
    bool isSane() const;

    /// The origin's place on the device.
    QPoint origin() const;
    /// The pixels that \a area of the painter touches.
    QRect pixels(const QRectF& area) const;
    /// The pixels that the picture touches; those of its rectangle if \a extent is empty.
    QRect inkPixels(const QRectF& extent) const;
    /// What maps the painter's units to an image of \a pixels.
    QTransform toPixels(const QRect& pixels) const;
    /// The length of one of the painter's units in pixels.
    double pixelSize() const;

    /// The picture's size in pixels if its edges lie between them; else an empty one.
    QSize wholePixels() const;
    /// What decides the pixels of \a document here, drawn plainly.
    SvgRasterKey key(quint64 document) const;
    /// The same for its part \a part when it is turned by \a degrees.
    SvgRasterKey turnedKey(quint64 document, double degrees, const QRect& part) const;

    QTransform toDevice;
    QRectF rect;
    QRectF deviceRect;
};
