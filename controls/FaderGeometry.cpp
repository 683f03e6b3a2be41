// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FaderGeometry.h"

#include "controls/PropertyBounds.h"

namespace CommonController_MemAPI {

double FaderGeometry::travel() const
{
    return vertical ? size.height() - knob.height() : size.width() - knob.width();
}

QRectF FaderGeometry::knobRect(double position) const
{
    const double bounded = within(0.0, 1.0, position);
    const double n = reverse ? 1.0 - bounded : bounded;
    const QPointF corner = vertical
                               ? QPointF(0.5 * (size.width() - knob.width()), (1.0 - n) * travel())
                               : QPointF(n * travel(), 0.5 * (size.height() - knob.height()));
    return {corner, knob};
}

double FaderGeometry::positionAt(QPoint point) const
{
    const double n = vertical ? 1.0 - (point.y() - 0.5 * knob.height()) / travel()
                              : (point.x() - 0.5 * knob.width()) / travel();
    return reverse ? 1.0 - n : n;
}

double FaderGeometry::change(QPointF distance) const
{
    const double n = (vertical ? -distance.y() : distance.x()) / travel();
    return reverse ? -n : n;
}

} // namespace CommonController_MemAPI
