// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <climits>
#include <cstdint>
#include <initializer_list>
#include <random>

/// Random choices that a seed fixes.
class Dice
{
public:
    explicit Dice(std::uint32_t seed)
        : m_engine(seed)
    {}

    /// From \a low to \a high, both included.
    int between(int low, int high)
    {
        return std::uniform_int_distribution<int>(low, high)(m_engine);
    }
    /// True in one of \a n cases.
    bool oneIn(int n) { return between(1, n) == 1; }
    template <typename Value> Value pick(std::initializer_list<Value> values)
    {
        return values.begin()[between(0, static_cast<int>(values.size()) - 1)];
    }
    /// Mostly small numbers, now and then the largest that there are.
    int anyInt()
    {
        if (oneIn(8))
            return pick({INT_MIN, INT_MIN + 1, -1, 0, 1, INT_MAX - 1, INT_MAX});
        return between(-2000, 2000);
    }

private:
    std::mt19937 m_engine;
};
