// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace CommonController_MemAPI {

/// What the setters of numbers bring their argument into. NaN counts as the lower bound.
inline double atLeast(double minimum, double number) { return number > minimum ? number : minimum; }

inline double within(double minimum, double maximum, double number)
{
    return number < maximum ? atLeast(minimum, number) : number >= maximum ? maximum : minimum;
}

} // namespace CommonController_MemAPI
