// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ChannelMeters.h"

#include "equalizer/Decibels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace {

constexpr double lowest = MeterLevels::lowest / 10.0;
constexpr double highest = MeterLevels::highest / 10.0;
constexpr std::size_t laneCount = 8; // compared together

double levelOf(double peak)
{
    if (std::isnan(peak))
        return highest;
    return peak > 0.0 ? std::clamp(decibelsOf(peak), lowest, highest) : lowest;
}

} // namespace

void PeakLevel::update(double peak, double seconds)
{
    m_level = std::max(levelOf(peak), m_level - releasePerSecond * seconds);
}

int PeakLevel::tenths() const { return static_cast<int>(std::lround(m_level * 10.0)); }

void ChannelMeters::takeSend(std::span<const double> block, double seconds)
{
    m_send.update(peakOf(block), seconds);
}

void ChannelMeters::takeReturn(std::span<const double> block, double seconds)
{
    m_return.update(peakOf(block), seconds);
}

void ChannelMeters::take(double sendPeak, double returnPeak, double seconds)
{
    m_send.update(sendPeak, seconds);
    m_return.update(returnPeak, seconds);
}

double peakOf(std::span<const double> block)
{
    std::array<double, laneCount> peaks{};
    std::array<double, laneCount> sums{}; // NaN if a sample is
    std::size_t i = 0;
    for (; i + laneCount <= block.size(); i += laneCount) {
        for (std::size_t k = 0; k < laneCount; ++k) {
            const double magnitude = std::abs(block[i + k]);
            peaks[k] = magnitude > peaks[k] ? magnitude : peaks[k];
            sums[k] += magnitude;
        }
    }
    for (; i < block.size(); ++i) {
        peaks[0] = std::max(peaks[0], std::abs(block[i]));
        sums[0] += std::abs(block[i]);
    }
    const double sum = std::accumulate(sums.begin(), sums.end(), 0.0);
    return std::isnan(sum) ? sum : *std::max_element(peaks.begin(), peaks.end());
}
