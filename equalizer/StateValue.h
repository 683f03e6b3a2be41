// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

/// One value as a saved state holds it: its place in the parameter's range as an IEEE 754 single,
/// most significant byte first. std only.
namespace StateValue {

/// The four bytes of a value.
using Word = std::array<unsigned char, 4>;

/// The bits of a number, those of a NaN, too.
/// @{
Word toWord(float place);
float fromWord(const Word& word);
/// @}

/// 0 at the minimum, 1 at the maximum, always between; 0 where that is undefined.
float toPlace(int value, int minimum, int maximum);
/// The value nearest to \a place, which counts as 0 where it is NaN or below, and as 1 above. The
/// limits may be upside down.
int fromPlace(float place, int minimum, int maximum);

} // namespace StateValue
