// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/LoudnessMatch.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace {

// What a shelf and a high-pass of second order need for the Recommendation's table at 48000 Hz.
constexpr double shelfFrequency = 1681.974451; // Hz
constexpr double shelfGain = 3.99984385;       // dB
constexpr double shelfQuality = 0.70717524;
constexpr double shelfMiddle = 0.499666774; // of the gain, at the shelf's own frequency
constexpr double highPassFrequency = 38.13547088;
constexpr double highPassQuality = 0.50032704;
// Of a sine of full scale at 997 Hz the loudness is that of its level.
constexpr double loudnessOffset = -0.691; // dB

double warped(double frequency, double rate)
{
    // A rate that cannot carry the filter leaves it beside the highest frequency.
    return std::tan(std::numbers::pi * std::min(frequency / rate, 0.49));
}

} // namespace

double KWeighting::Section::process(double sample)
{
    const double result = b0 * sample + first;
    first = b1 * sample - a1 * result + second;
    second = b2 * sample - a2 * result;
    return result;
}

void KWeighting::setSampleRate(double hertz)
{
    const double k = warped(shelfFrequency, hertz);
    const double high = std::pow(10.0, shelfGain / 20.0);
    const double middle = std::pow(high, shelfMiddle);
    const double norm = 1.0 + k / shelfQuality + k * k;
    m_shelf = {(high + middle * k / shelfQuality + k * k) / norm, 2.0 * (k * k - high) / norm,
               (high - middle * k / shelfQuality + k * k) / norm, 2.0 * (k * k - 1.0) / norm,
               (1.0 - k / shelfQuality + k * k) / norm};
    const double p = warped(highPassFrequency, hertz);
    const double lowNorm = 1.0 + p / highPassQuality + p * p;
    m_highPass = {1.0, -2.0, 1.0, 2.0 * (p * p - 1.0) / lowNorm,
                  (1.0 - p / highPassQuality + p * p) / lowNorm};
}

void KWeighting::clear()
{
    for (Section* section : {&m_shelf, &m_highPass})
        section->first = section->second = 0.0;
}

double KWeighting::energy(std::span<const double> block)
{
    double sum = 0.0;
    for (const double sample : block) {
        const double weighted = m_highPass.process(m_shelf.process(sample));
        sum += weighted * weighted;
    }
    return sum;
}

void LoudnessMatch::setSampleRate(double hertz)
{
    m_blockLength = static_cast<std::size_t>(std::max(1.0, hertz * blockSeconds));
    forget();
}

void LoudnessMatch::forget()
{
    m_count = m_next = m_frames = 0;
    m_block = {};
    m_isSettling = true;
}

void LoudnessMatch::take(const MatchedEnergy& energy, std::size_t frames)
{
    m_block = m_block + energy;
    m_frames += frames;
    if (m_frames >= m_blockLength)
        endBlock();
}

void LoudnessMatch::endBlock()
{
    const auto frames = static_cast<double>(m_frames);
    const MatchedEnergy mean{m_block.before / frames, m_block.after / frames};
    m_block = {};
    m_frames = 0;
    const double gate = std::pow(10.0, (silence - loudnessOffset) / 10.0);
    const bool sounds = mean.before > gate && std::isfinite(mean.before + mean.after);
    if (std::exchange(m_isSettling, false) || !sounds)
        return;
    m_blocks[m_next] = mean;
    m_next = (m_next + 1) % windowBlocks;
    m_count = std::min(m_count + 1, windowBlocks);
    if (m_count >= minBlocks)
        measure();
}

void LoudnessMatch::measure()
{
    MatchedEnergy all;
    for (std::size_t i = 0; i < m_count; ++i)
        all = all + m_blocks[i];
    const double gate =
        all.before / static_cast<double>(m_count) * std::pow(10.0, -relativeGate / 10.0);
    MatchedEnergy gated;
    for (std::size_t i = 0; i < m_count; ++i) {
        if (m_blocks[i].before > gate)
            gated = gated + m_blocks[i];
    }
    m_gain = std::clamp(10.0 * std::log10(gated.after / gated.before), -maxGain, maxGain);
}
