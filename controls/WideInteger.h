// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace CommonController_MemAPI {

/// Values are 32 bits wide and so are their ranges, whose width is not: everything that is computed
/// from them is computed in 64 bits and brought back by these.

/// The nearest 32-bit integer.
inline int saturateToInt(std::int64_t number)
{
    return static_cast<int>(std::clamp<std::int64_t>(number, std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

/// \a number without its fraction. Numbers beyond all values and their differences are cut down,
/// and what is not a number is 0.
inline std::int64_t truncateToInteger(double number)
{
    constexpr double limit = 1e15;
    return number == number ? static_cast<std::int64_t>(std::clamp(number, -limit, limit)) : 0;
}

/// \a number no larger than \a maximum, then no smaller than \a minimum: where a host's range is
/// upside down, the minimum wins.
inline int clampToRange(std::int64_t number, int minimum, int maximum)
{
    return saturateToInt(std::max<std::int64_t>(minimum, std::min<std::int64_t>(number, maximum)));
}

} // namespace CommonController_MemAPI
