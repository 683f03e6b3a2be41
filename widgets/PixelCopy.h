// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>

class QImage;
class QPainter;
class QPoint;

/// Copies the part \a source of \a image, in its pixels, one to one to the pixels of the painter's
/// device, whatever the painter's scale, with its left top pixel at \a target and at \a opacity (0
/// to 1) in place of the painter's. The painter's clip holds; the pixels \a covered of the device
/// are left out.
///
/// A window that is repainted in several places at once clips its widgets to several rectangles.
/// Qt's rasteriser then cuts a picture up row by row, and hands many rows to other threads: waking
/// those takes longer than the copying. Here each of the rectangles gets a copy of its own instead.
void copyPixels(QPainter& painter, const QPoint& target, const QImage& image, const QRect& source,
                double opacity, const QRect& covered = {});
