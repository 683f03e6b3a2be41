// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRectF>

class QBrush;
class QPainter;

namespace CommonController_MemAPI {

/// The shapes of the round meters. A shape that was drawn before is copied from memory, to the
/// pixels that filling it gives, as long as its brush is a colour and its painter neither turns,
/// clips nor fades.
namespace RoundShapes {

/// A rectangle of \a size in the middle of \a area.
QRectF centred(const QRectF& area, const QSizeF& size);

/// \a rect with every edge on the nearest pixel edge of the painter's device: a moving end keeps
/// its outline there instead of shimmering.
QRectF snapped(const QPainter& painter, const QRectF& rect);

/// Fills \a rect with its ends rounded to half circles.
void fill(QPainter& painter, const QRectF& rect, const QBrush& brush);

/// Fills the part \a lit of the rounded shape \a track, with ends as round as those of the track,
/// as far as it lies in \a zone; a zone that is null is everywhere.
void fillPart(QPainter& painter, const QRectF& lit, const QRectF& track, const QRectF& zone,
              const QBrush& brush);

} // namespace RoundShapes

} // namespace CommonController_MemAPI
