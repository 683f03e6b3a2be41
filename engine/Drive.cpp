// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/Drive.h"

#include <algorithm>
#include <array>
#include <cmath>

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
        processPart(block.first(count));
        block = block.subspan(count);
    }
}

double Drive::saturate(double sample) { return makeUp * sample / std::sqrt(1.0 + sample * sample); }

void Drive::processPart(std::span<double> block)
{
    std::array<double, maxBlock> driven;
    oversample(block.data(), block.size(), driven.data());
    for (std::size_t i = 0; i < block.size(); ++i) {
        if (m_unfilled > 0)
            --m_unfilled;
        else if (m_share.isMoving())
            block[i] += m_share.next() * (driven[i] - block[i]);
        else if (!m_share.isOut())
            block[i] = driven[i];
    }
}

void Drive::oversample(const double* in, std::size_t count, double* out)
{
    std::array<double, 2 * maxBlock> twice;
    std::array<double, 4 * maxBlock> fourTimes;
    m_up.process(in, count, outerTaps, twice.data());
    m_upAgain.process(twice.data(), 2 * count, innerTaps, fourTimes.data());
    for (std::size_t i = 0; i < 4 * count; ++i)
        fourTimes[i] = saturate(fourTimes[i]);
    m_down.process(fourTimes.data(), 2 * count, innerTaps, twice.data());
    m_downAgain.process(twice.data(), count, outerTaps, out);
}

void Drive::resetSamples()
{
    m_up.reset();
    m_upAgain.reset();
    m_down.reset();
    m_downAgain.reset();
}
