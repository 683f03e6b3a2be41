// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

class QPainter;

namespace CommonController_MemAPI {
class PushButtonController;
}

/// The colours, pictures and drawing that the mixer's parts share.
namespace MixerStyle {

inline constexpr QColor letters{0xd7, 0xdc, 0xe1};
inline constexpr QColor dimLetters{0x8a, 0x91, 0x99};
inline constexpr QColor accent{0x03, 0x94, 0xd0};
inline constexpr QColor warning{0xe8, 0xa5, 0x2b};

/// The resource of a picture, by its name without ".svg".
QString image(const QString& name);

/// The graphite panel with its edges; a sunken glass.
void drawPanel(QPainter& painter, const QRectF& rect);
void drawWell(QPainter& painter, const QRectF& rect, double radius);

/// Enables a key or disables it, which dims all of it.
void enableKey(CommonController_MemAPI::PushButtonController* key, bool enabled);

/// Gives a key its size, its pictures ("key" or "wide") and, when it has one, the colour that it
/// glows in while it is on ("blue", "red", "amber", "white"), which makes it checkable.
void styleKey(CommonController_MemAPI::PushButtonController* key, const QString& shape,
              const QString& color = QString());

} // namespace MixerStyle
