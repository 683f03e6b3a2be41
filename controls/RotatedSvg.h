// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>

class QPainter;
class SvgImage;

namespace CommonController_MemAPI {

/// SVG pictures drawn turned, from rasters of what was drawn before. A turned picture is a picture
/// of its own for each angle, so the rasters are kept for the whole process, one an angle and a way
/// of drawing, and the least recently used give way: a value that moves to and fro meets them
/// again, and so do other controls with the same picture. GUI thread only.
namespace RotatedSvg {

/// All rasters together never take more bytes than this.
constexpr qsizetype MaximumBytes = 64 * 1024 * 1024;

/// Draws \a image over \a rect, turned clockwise around the middle of \a rect by \a degrees, with
/// \a opacity (0 to 1) as one sheet. \a canvas is all that can be seen, in the painter's units as
/// \a rect is; the painter neither turns nor mirrors. The pixels are those of rendering the picture
/// with a turned painter, to within the rounding of the blending.
void draw(QPainter& painter, SvgImage& image, const QRectF& rect, double degrees, double opacity,
          const QRect& canvas);

/// Forgets all rasters of the picture at \a path, and all there are.
void drop(const QString& path);
void clear();
int count();

} // namespace RotatedSvg

} // namespace CommonController_MemAPI
