// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBrush>
#include <QRect>
#include <QString>

#include <functional>

class QPainter;

/// Texts that are drawn once and then copied, for as long as nothing about them changes: laying out
/// and blending a few letters takes ten times as long as comparing and copying their pixels.
///
/// What counts is the pixels beneath: only where they are those of the last time, pixel by pixel,
/// is a text copied together with them. So the result is always that of drawing. GUI thread only.
namespace TextPixels {

/// What decides how a text looks, besides its painter's font, hints and place.
struct Text
{
    QString text;
    QRect rect;
    int flags;    ///< of QPainter::drawText()
    QBrush brush; ///< of the painter's pen; only plain colours are copied
};

/// Has \a draw draw \a text by \a painter, or copies what it drew at the same place before.
void draw(QPainter& painter, const Text& text, const std::function<void()>& draw);

} // namespace TextPixels
