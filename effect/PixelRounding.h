// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <algorithm>

/// \a pixels without its fraction, towards zero. Lengths beyond Qt's largest widget size are cut
/// down to it, so that no zoom factor can overflow a coordinate. \a pixels must be finite.
inline int truncateToPixel(double pixels)
{
    constexpr double limit = QWIDGETSIZE_MAX;
    return static_cast<int>(std::clamp(pixels, -limit, limit));
}

/// How every scaled length becomes a whole number of pixels: plus one half, without its fraction.
/// Negative lengths therefore round differently from positive ones: -1.2 becomes 0.
inline int roundToPixel(double pixels) { return truncateToPixel(pixels + 0.5); }

/// A scaled font size of \a size points or pixels: truncated, where lengths are rounded, and at
/// least 1, the smallest size that a font can have.
inline int truncateToFontSize(double size) { return std::max(truncateToPixel(size), 1); }
