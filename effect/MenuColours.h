// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

inline constexpr QColor MenuBackgroundColor(51, 51, 51);
inline constexpr QColor MenuForegroundSelectedColor(255, 255, 255);
inline constexpr QColor MenuForegroundEnableColor(153, 153, 153);
inline constexpr QColor MenuForegroundDisableColor(32, 32, 32);
inline constexpr QColor MenuItemBackgroundDisableColor(72, 72, 72);
/// Pressed, and under the pointer: the same on purpose.
inline constexpr QColor MenuItemBackgroundSelectColor(3, 148, 208);
inline constexpr QColor MenuItemBackgroundFocusColor(3, 148, 208);
