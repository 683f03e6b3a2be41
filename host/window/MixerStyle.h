// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QString>

class QPainter;
class QWidget;

namespace CommonController_MemAPI {
class PushButtonController;
}

/// The colours, pictures and drawing that the mixer's parts share.
namespace MixerStyle {

inline constexpr QColor letters{0xd7, 0xdc, 0xe1};
inline constexpr QColor dimLetters{0x96, 0x9d, 0xa5};
inline constexpr QColor disabledLetters{0x75, 0x7d, 0x85};
inline constexpr QColor accent{0x03, 0x94, 0xd0}; ///< lines, not letters
inline constexpr QColor link{0x35, 0xb6, 0xee};
inline constexpr QColor warning{0xe8, 0xa5, 0x2b};

/// Meters, the editor's and the mixer's alike.
/// @{
inline constexpr QColor meterLow{0x39, 0xca, 0x74};
inline constexpr QColor meterHigh{0xf9, 0xe2, 0x43};
inline constexpr QColor meterClipped{0xfc, 0x67, 0x69};
/// @}

/// The font of \a widget as small as beside a plot.
QFont smallFont(const QWidget* widget);

/// The resource of a picture, by its name without ".svg".
QString image(const QString& name);

/// The graphite panel with its edges; a sunken glass.
void drawPanel(QPainter& painter, const QRectF& rect);
void drawWell(QPainter& painter, const QRectF& rect, double radius);

/// The line around what has the focus on a panel, for the panel's painting; panels whose focus is
/// followed are painted again whenever it changes.
/// @{
void followFocus(QWidget* panel);
void drawFocus(QPainter& painter, const QWidget& panel);
/// @}

/// Enables a key or disables it, which dims all of it.
void enableKey(CommonController_MemAPI::PushButtonController* key, bool enabled);

/// Gives a key its size, its pictures ("key" or "wide") and, when it has one, the colour that it
/// glows in while it is on, which makes it checkable. "red": nothing is heard of it; "amber":
/// something else is heard than the mix (solo, dim, listening to a part); "white": it works on the
/// sound; "blue": a choice between ways of working.
void styleKey(CommonController_MemAPI::PushButtonController* key, const QString& shape,
              const QString& color = QString());

} // namespace MixerStyle
