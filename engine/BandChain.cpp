// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/BandChain.h"

#include <utility>

namespace {

using Indices = std::make_index_sequence<BandChain::middleCount>;
using Process = void (*)(BandChain* chain, std::span<double> block);

template <unsigned int Cuts, std::size_t... I>
inline double runMiddle(std::array<FILTER2PEQ::Runner, BandChain::middleCount>& bands,
                        double sample, std::index_sequence<I...>)
{
    ((sample = (Cuts >> I & 1U) != 0 ? bands[I].cut(sample) : bands[I].boost(sample)), ...);
    return sample;
}

// Works on a copy, which the compiler can keep out of memory.
template <unsigned int Cuts> void processWith(BandChain* chain, std::span<double> block)
{
    BandChain bands = *chain;
    for (double& sample : block) {
        const double outOfLow = bands.low.next(sample);
        sample = bands.high.next(runMiddle<Cuts>(bands.middle, outOfLow, Indices()));
    }
    *chain = bands;
}

template <std::size_t... Cuts>
constexpr std::array<Process, sizeof...(Cuts)> table(std::index_sequence<Cuts...>)
{
    return {processWith<static_cast<unsigned int>(Cuts)>...};
}

constexpr auto processes = table(std::make_index_sequence<1U << BandChain::middleCount>());

} // namespace

void BandChain::process(std::span<double> block) { processes[cuts](this, block); }
