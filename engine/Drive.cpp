// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/Drive.h"

#include "engine/Steady.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

namespace {

// For 100 dB beyond the transition, which in the outer filter is from 20 to 24.1 kHz at 44.1 kHz.
constexpr double windowShape = 10.06;
constexpr auto outerTaps = HalfBand::taps<36>(windowShape);
constexpr auto innerTaps = HalfBand::taps<7>(windowShape);

// A sine of peak a has the mean square a^2 / 2, and behind x / sqrt(1 + x^2) 1 - 1 / sqrt(1 + a^2).
const double makeUp = [] {
    const double square = std::pow(10.0, Drive::matchedLevel / 10.0);
    return std::sqrt(0.5 * square / (1.0 - 1.0 / std::sqrt(1.0 + square)));
}();

[[gnu::always_inline]] inline void saturateAll(const double* in, std::size_t count, double* out)
{
    const double factor = makeUp;
    for (std::size_t i = 0; i < count; ++i)
        out[i] = factor * in[i] / std::sqrt(1.0 + in[i] * in[i]);
}

bool isSame(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

} // namespace

void Drive::setSampleRate(double hertz)
{
    m_share.setLength(rampSamples(hertz));
    reset();
}

void Drive::set(bool on)
{
    if (on == m_wanted)
        return;
    m_wanted = on;
    if (on && m_share.isOut()) {
        resetSamples();
        m_unfilled = latency;
    }
    if (!on)
        m_unfilled = 0;
    m_share.moveTo(on);
}

void Drive::reset()
{
    resetSamples();
    m_unfilled = 0;
    m_share.jumpTo(m_wanted);
}

void Drive::process(std::span<double> block)
{
    while (!block.empty() && !m_share.isOut()) {
        const std::size_t count = std::min(block.size(), maxBlock);
        const std::span<double> part = block.first(count);
        if (isSteadyOn(part))
            std::fill(part.begin(), part.end(), m_lastOut);
        else
            processPart(part);
        block = block.subspan(count);
    }
}

double Drive::saturate(double sample)
{
    saturateAll(&sample, 1, &sample);
    return sample;
}

// Whether the filters have heard nothing but the block's one sample for as long as they remember.
bool Drive::isSteadyOn(std::span<const double> block) const
{
    return m_steadyCount >= memory && !m_share.isMoving() && m_unfilled == 0 &&
           isSame(block.front(), m_lastIn) && (block.size() == 1 || isSteady(block));
}

void Drive::processPart(std::span<double> block)
{
    const bool steady = block.size() == 1 || isSteady(block);
    const bool same = steady && isSame(block.front(), m_lastIn);
    m_steadyCount = steady ? block.size() + (same ? m_steadyCount : 0) : 0;
    m_lastIn = block.back();
    std::array<double, maxBlock> driven;
    m_oversample(&m_filters, block.data(), block.size(), driven.data());
    m_lastOut = driven[block.size() - 1];
    for (std::size_t i = 0; i < block.size(); ++i) {
        if (m_unfilled > 0)
            --m_unfilled;
        else if (m_share.isMoving())
            block[i] += m_share.next() * (driven[i] - block[i]);
        else if (!m_share.isOut())
            block[i] = driven[i];
    }
}

template <std::size_t Lanes>
[[gnu::always_inline]] inline void Drive::Filters::oversample(const double* in, std::size_t count,
                                                              double* out)
{
    std::array<double, maxBlock> between;
    std::array<double, 2 * maxBlock> twice;
    std::copy_n(in, count, up.input());
    const double* middle = up.process<Lanes>(count, outerTaps, between.data());
    for (std::size_t i = 0; i < count; ++i) {
        upAgain.input()[2 * i] = middle[i];
        upAgain.input()[2 * i + 1] = between[i];
    }
    up.advance(count);
    middle = upAgain.process<Lanes>(2 * count, innerTaps, twice.data());
    saturateAll(middle, 2 * count, down.first());
    saturateAll(twice.data(), 2 * count, down.second());
    upAgain.advance(2 * count);
    down.process<Lanes>(2 * count, innerTaps, twice.data());
    for (std::size_t i = 0; i < count; ++i) {
        downAgain.first()[i] = twice[2 * i];
        downAgain.second()[i] = twice[2 * i + 1];
    }
    downAgain.process<Lanes>(count, outerTaps, out);
}

void Drive::Filters::reset()
{
    up.reset();
    upAgain.reset();
    down.reset();
    downAgain.reset();
}

// The same source for each size of registers; no bit depends on it.
void Drive::oversample(Filters* filters, const double* in, std::size_t count, double* out)
{
    filters->oversample<2>(in, count, out);
}

#ifdef __x86_64__
[[gnu::target("avx2")]] void Drive::oversampleWide(Filters* filters, const double* in,
                                                   std::size_t count, double* out)
{
    filters->oversample<4>(in, count, out);
}

[[gnu::target("avx512f")]] void Drive::oversampleWidest(Filters* filters, const double* in,
                                                        std::size_t count, double* out)
{
    filters->oversample<8>(in, count, out);
}

Drive::Oversample Drive::fastest()
{
    if (__builtin_cpu_supports("avx512f"))
        return oversampleWidest;
    return __builtin_cpu_supports("avx2") ? oversampleWide : oversample;
}
#else
Drive::Oversample Drive::fastest() { return oversample; }
#endif

void Drive::resetSamples()
{
    m_filters.reset();
    m_steadyCount = 0;
}
