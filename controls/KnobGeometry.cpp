// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/KnobGeometry.h"

#include <cmath>

namespace CommonController_MemAPI {

namespace {

// Degrees to radians to this precision, on purpose; so are the turns.
constexpr double Radian = 0.017453292519888888;
constexpr double FullTurn = 6.28318530716;
constexpr double HalfTurn = 3.14159265358;

/// From 3 o'clock.
double screenAngle(QPoint point, QSize size)
{
    return std::atan2(point.y() - size.height() / 2, point.x() - size.width() / 2);
}

} // namespace

double KnobGeometry::span() const { return spanAngle * Radian; }

double KnobGeometry::positionAt(QPoint point, QSize size) const
{
    const double gap = (360.0 - spanAngle) * 0.5 * Radian;
    const double base = (startAngle - 90.0) * Radian - gap;
    double angle = screenAngle(point, size) - base;
    while (angle < 0.0)
        angle += FullTurn;
    return (angle - gap) / span();
}

double KnobGeometry::turn(QPoint from, QPoint to, QSize size)
{
    const double angle = screenAngle(to, size) - screenAngle(from, size);
    if (angle > HalfTurn)
        return angle - FullTurn;
    return angle < -HalfTurn ? angle + FullTurn : angle;
}

QLineF KnobGeometry::indexLine(double position, QSize size, double inside, double outside) const
{
    const double angle = (spanAngle * position + (startAngle - 90.0)) * Radian;
    const QPointF centre(size.width() * 0.5, size.height() * 0.5);
    const QPointF direction(std::cos(angle), std::sin(angle));
    return {centre + direction * inside, centre + direction * outside};
}

} // namespace CommonController_MemAPI
