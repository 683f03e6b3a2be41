// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/WideInteger.h"

#include <QRectF>
#include <Qt>

namespace CommonController_MemAPI {

/// A margin of \a pixels at scale 1, in whole pixels.
inline int scaledMargin(int pixels, double scale)
{
    return saturateToInt(truncateToInteger(pixels * scale + 0.5));
}

/// A rectangle of \a size in or around one of \a outer, at the left and the top where \a alignment
/// does not say otherwise.
inline QRectF alignedRect(QSizeF size, QSizeF outer, Qt::Alignment alignment)
{
    const auto before = [&](Qt::AlignmentFlag centre, Qt::AlignmentFlag far, double space) {
        if (alignment.testFlag(centre))
            return space * 0.5;
        return alignment.testFlag(far) ? space : 0.0;
    };
    const QSizeF space = outer - size;
    return {QPointF(before(Qt::AlignHCenter, Qt::AlignRight, space.width()),
                    before(Qt::AlignVCenter, Qt::AlignBottom, space.height())),
            size};
}

} // namespace CommonController_MemAPI
