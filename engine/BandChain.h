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

    /// What runs, for one signal or for as many as a register holds.
    template <typename Sample> struct Runners
    {
        VEQ_Filter::BasicRunner<Sample> low;
        std::array<FILTER2PEQ::BasicRunner<Sample>, middleCount> middle;
        VEQ_Filter::BasicRunner<Sample> high;
    };

    Runners<double> bands;
    unsigned int cuts = 0; ///< bit i: middle band i cuts, instead of boosting

    void process(std::span<double> block);

    /// Two channels side by side in registers of two doubles, each with the bits that its own
    /// process() gives. Both cut in the same bands, and their blocks are equally long.
    static void processPair(BandChain* left, BandChain* right, std::span<double> leftBlock,
                            std::span<double> rightBlock);

    /// Whether coefficients and what the bands have heard are the same, bit by bit.
    bool isSameAs(const BandChain& other) const;
    /// Whether all that the bands have heard is below any number that is heard, however amplified.
    bool isFaint() const;
    /// Clears what the bands have heard.
    void clear();
};
