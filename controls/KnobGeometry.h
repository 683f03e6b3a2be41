// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineF>
#include <QPoint>
#include <QSize>

namespace CommonController_MemAPI {

/// Where a knob's positions, 0 to 1, lie around its middle.
struct KnobGeometry
{
    double startAngle = 210.0; ///< of the position 0, in degrees clockwise from 12 o'clock
    double spanAngle = 300.0;  ///< from there to the position 1, in degrees

    /// spanAngle in radians.
    double span() const;
    /// The position that \a point of a knob of \a size lies at; between the ends, below 0 or above
    /// 1, towards the nearer one.
    double positionAt(QPoint point, QSize size) const;
    /// How far a pointer turns around the middle of a knob of \a size, in radians, clockwise; never
    /// more than half a turn.
    static double turn(QPoint from, QPoint to, QSize size);
    /// From \a inside to \a outside pixels off the middle of a knob of \a size.
    QLineF indexLine(double position, QSize size, double inside, double outside) const;
};

} // namespace CommonController_MemAPI
