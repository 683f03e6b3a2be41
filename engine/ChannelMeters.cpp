// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ChannelMeters.h"

#include "equalizer/Decibels.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double lowest = MeterLevels::lowest / 10.0;
constexpr double highest = MeterLevels::highest / 10.0;

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
    double peak = 0.0;
    for (const double sample : block) {
        if (std::isnan(sample))
            return std::numeric_limits<double>::quiet_NaN();
        peak = std::max(peak, std::abs(sample));
    }
    return peak;
}
