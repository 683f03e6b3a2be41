// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <QRectF>

namespace CommonController_MemAPI {

/// Where a fader's knob lies for each position, 0 to 1. Lengths are pixels.
struct FaderGeometry
{
    QSizeF size; ///< of the fader
    QSizeF knob; ///< of its knob; empty without a picture
    bool vertical = true;
    bool reverse = false; ///< the position 0 is at the top or at the right

    /// How far the knob can travel; not positive if it cannot.
    double travel() const;
    /// A position outside 0 to 1 counts as the nearer end, NaN as 0.
    QRectF knobRect(double position) const;
    /// The position that puts the knob's middle at \a point; may lie outside 0 to 1. Only where the
    /// knob can travel.
    double positionAt(QPoint point) const;
    /// How much the position changes when the knob moves by \a distance.
    double change(QPointF distance) const;
};

} // namespace CommonController_MemAPI
