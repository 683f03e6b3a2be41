// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/BuiltInSignal.h"

#include <algorithm>
#include <cmath>

namespace {

std::size_t blockLength(int sampleRate, double seconds)
{
    const double samples = std::round(sampleRate * seconds);
    return static_cast<std::size_t>(std::clamp(samples, 1.0, double{BuiltInSignal::longestBlock}));
}

} // namespace

BuiltInSignal::BuiltInSignal()
    : m_block(longestBlock)
{
    for (int channel = 0; channel < channelCount; ++channel)
        m_channels.push_back(std::make_unique<Channel>(channel));
}

MeterLevels BuiltInSignal::read(int channel, const ChannelStrip::Values& values, int sampleRate,
                                double seconds)
{
    Channel& c = *m_channels[static_cast<std::size_t>(channel)];
    c.strip.setSampleRate(sampleRate);
    c.strip.setValues(values);
    const std::span<double> block(m_block.data(), blockLength(sampleRate, seconds));
    c.signal.fill(block, sampleRate, seconds);
    c.strip.applyInput(block);
    c.meters.takeSend(block, seconds);
    c.strip.equalize(block);
    c.meters.takeReturn(block, seconds);
    // A corner beyond half the sampling rate can make a filter run away; it starts afresh.
    if (!std::isfinite(block.back()))
        c.strip.forget();
    return c.meters.levels();
}
