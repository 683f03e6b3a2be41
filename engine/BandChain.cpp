// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/BandChain.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <utility>

namespace {

using SamplePair [[gnu::vector_size(16)]] = double;
using Single = BandChain::Runners<double>;
using Pair = BandChain::Runners<SamplePair>;

// Samples in one turn of the loop, from one of which to the next delay lines stay in registers.
constexpr std::size_t stride = 4;

// Far above what flushing leaves behind in the slowest band.
constexpr double faintest = 1e-290;

constexpr std::size_t numberCount = sizeof(Single) / sizeof(double);
static_assert(sizeof(Pair) == 2 * sizeof(Single));
using Numbers = std::array<double, numberCount>;
using NumberPairs = std::array<double, 2 * numberCount>;

using Indices = std::make_index_sequence<BandChain::middleCount>;
using Process = void (*)(Single* chain, std::span<double> block);
using ProcessPair = void (*)(Pair* chain, double* left, double* right, std::size_t count);

template <unsigned int Cuts, typename Sample, std::size_t... I>
inline Sample runMiddle(BandChain::Runners<Sample>* chain, Sample sample, std::index_sequence<I...>)
{
    auto& bands = chain->middle;
    ((sample = (Cuts >> I & 1U) != 0 ? bands[I].cut(sample) : bands[I].boost(sample)), ...);
    return sample;
}

template <unsigned int Cuts, typename Sample>
inline Sample run(BandChain::Runners<Sample>* chain, Sample sample)
{
    const Sample outOfLow = chain->low.next(sample);
    return chain->high.next(runMiddle<Cuts>(chain, outOfLow, Indices()));
}

// Works on a copy, which the compiler can keep out of memory.
template <unsigned int Cuts> void processWith(Single* chain, std::span<double> block)
{
    Single bands = *chain;
    for (double& sample : block)
        sample = run<Cuts>(&bands, sample);
    *chain = bands;
}

template <unsigned int Cuts>
void processPairWith(Pair* chain, double* left, double* right, std::size_t count)
{
    Pair bands = *chain;
    const auto runOne = [&](std::size_t i) {
        const SamplePair sample = run<Cuts>(&bands, SamplePair{left[i], right[i]});
        left[i] = sample[0];
        right[i] = sample[1];
    };
    std::size_t i = 0;
    for (; i + stride <= count; i += stride) {
        for (std::size_t k = 0; k < stride; ++k)
            runOne(i + k);
    }
    for (; i < count; ++i)
        runOne(i);
    *chain = bands;
}

using Patterns = std::make_index_sequence<1U << BandChain::middleCount>;

template <std::size_t... Cuts>
constexpr std::array<Process, sizeof...(Cuts)> singles(std::index_sequence<Cuts...>)
{
    return {processWith<static_cast<unsigned int>(Cuts)>...};
}

template <std::size_t... Cuts>
constexpr std::array<ProcessPair, sizeof...(Cuts)> pairs(std::index_sequence<Cuts...>)
{
    return {processPairWith<static_cast<unsigned int>(Cuts)>...};
}

constexpr auto processes = singles(Patterns());
constexpr auto pairProcesses = pairs(Patterns());

Pair joined(const Single& left, const Single& right)
{
    const auto first = std::bit_cast<Numbers>(left);
    const auto second = std::bit_cast<Numbers>(right);
    NumberPairs both;
    for (std::size_t i = 0; i < numberCount; ++i) {
        both[2 * i] = first[i];
        both[2 * i + 1] = second[i];
    }
    return std::bit_cast<Pair>(both);
}

void separate(const Pair& pair, Single* left, Single* right)
{
    const auto both = std::bit_cast<NumberPairs>(pair);
    Numbers first;
    Numbers second;
    for (std::size_t i = 0; i < numberCount; ++i) {
        first[i] = both[2 * i];
        second[i] = both[2 * i + 1];
    }
    *left = std::bit_cast<Single>(first);
    *right = std::bit_cast<Single>(second);
}

template <typename Chain, typename Visit> void forEachHeard(Chain& chain, Visit visit)
{
    for (auto* band : {&chain.low, &chain.high}) {
        for (auto* heard : {&band->x1, &band->x2, &band->y1, &band->y2})
            visit(*heard);
    }
    for (auto& band : chain.middle) {
        for (auto* heard : {&band.y1, &band.y2, &band.u1, &band.u2})
            visit(*heard);
    }
}

} // namespace

void BandChain::process(std::span<double> block) { processes[cuts](&bands, block); }

void BandChain::processPair(BandChain* left, BandChain* right, std::span<double> leftBlock,
                            std::span<double> rightBlock)
{
    Pair pair = joined(left->bands, right->bands);
    pairProcesses[left->cuts](&pair, leftBlock.data(), rightBlock.data(), leftBlock.size());
    separate(pair, &left->bands, &right->bands);
}

bool BandChain::isSameAs(const BandChain& other) const
{
    using Bits = std::array<std::uint64_t, numberCount>;
    return std::bit_cast<Bits>(bands) == std::bit_cast<Bits>(other.bands) && cuts == other.cuts;
}

bool BandChain::isFaint() const
{
    bool faint = true;
    forEachHeard(bands, [&faint](double heard) { faint = faint && std::abs(heard) < faintest; });
    return faint;
}

void BandChain::clear()
{
    forEachHeard(bands, [](double& heard) { heard = 0.0; });
}
