// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/StateValue.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>

namespace {

static_assert(std::numeric_limits<float>::is_iec559 && sizeof(float) == 4);

// A NaN fails the first comparison, so that it becomes 0.
float clampedToUnit(float value)
{
    if (!(value > 0.0f))
        return 0.0f;
    return value > 1.0f ? 1.0f : value;
}

// Differences are formed in 64 bits: a range may be as wide as an int allows.
float span(int minimum, int maximum) { return static_cast<float>(std::int64_t{maximum} - minimum); }

} // namespace

// The bits travel as an integer: a float register need not keep those of every NaN.
StateValue::Word StateValue::toWord(float place)
{
    const auto bits = std::bit_cast<std::uint32_t>(place);
    Word word{};
    for (std::size_t i = 0; i < word.size(); ++i)
        word[i] = static_cast<unsigned char>(bits >> (24 - 8 * i) & 0xFF);
    return word;
}

float StateValue::fromWord(const Word& word)
{
    std::uint32_t bits = 0;
    for (const unsigned char byte : word)
        bits = bits << 8 | byte;
    return std::bit_cast<float>(bits);
}

float StateValue::toPlace(int value, int minimum, int maximum)
{
    return clampedToUnit(static_cast<float>(std::int64_t{value} - minimum) /
                         span(minimum, maximum));
}

// A wide span can round up on its way to float, hence the second clamp.
int StateValue::fromPlace(float place, int minimum, int maximum)
{
    const float steps = span(minimum, maximum) * clampedToUnit(place);
    const auto rounded = static_cast<std::int64_t>(static_cast<double>(steps) + 0.5);
    const auto [lowest, highest] = std::minmax(minimum, maximum);
    return static_cast<int>(std::clamp<std::int64_t>(minimum + rounded, lowest, highest));
}
