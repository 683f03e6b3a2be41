// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

/// The grounds that the theme paints, from dark to light. Letters stand out from each of them.
namespace HostGrounds {

inline constexpr QColor base{0x16, 0x19, 0x1c};   ///< fields, tables, lists
inline constexpr QColor stripe{0x1b, 0x1e, 0x22}; ///< every other row of a table
inline constexpr QColor window{0x22, 0x26, 0x2b}; ///< windows and bars
inline constexpr QColor button{0x2a, 0x2e, 0x34};
inline constexpr QColor hovered{0x34, 0x3a, 0x41};
inline constexpr QColor chosen{0x03, 0x78, 0xa8}; ///< what is on or marked, under white letters

} // namespace HostGrounds
