// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/FILTER2PEQ.h"
#include "equalizer/VEQ_Filter.h"

#include <array>
#include <cstddef>
#include <span>

/// Six settled bands in one loop. Each sample goes through the bands as it would one band after the
/// other, with the same result bit by bit; but while the last bands are at one sample, the
/// processor has begun the next ones, instead of waiting for each band's own feedback.
///
/// A band that is absent keeps the runner it is made with, which lets samples through.
struct BandChain
{
    static constexpr std::size_t middleCount = 4;

    VEQ_Filter::Runner low;
    std::array<FILTER2PEQ::Runner, middleCount> middle;
    VEQ_Filter::Runner high;
    unsigned int cuts = 0; ///< bit i: middle band i cuts, instead of boosting

    void process(std::span<double> block);
};
