// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace CommonController_MemAPI {

/// \a text with a unit letter at its end multiplied out: k is a thousand, M a million, G a thousand
/// million, in either case (a small m means a million too, on purpose). The result has six
/// significant digits, with an exponent where it needs one: "1.5k" is "1500", "2M" is "2e+06". Any
/// other text, and one whose rest is not a number, stays as it is.
QString unitExpanded(const QString& text);

} // namespace CommonController_MemAPI
