// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/meters/BuiltInSignal.h"

#include <algorithm>
#include <cmath>

namespace {

std::size_t blockLength(int sampleRate, double seconds)
{
    const double samples = std::round(sampleRate * seconds);
    return static_cast<std::size_t>(std::clamp(samples, 1.0, double{BuiltInSignal::maxBlock}));
}

} // namespace

BuiltInSignal::BuiltInSignal()
    : m_block(maxBlock)
{
    for (int channel = 0; channel < channelCount; ++channel)
        m_channels.push_back(std::make_unique<Channel>(channel));
}

MeterLevels BuiltInSignal::read(int channel, const ChannelProcessor::Values& values, int sampleRate,
                                double seconds)
{
    Channel& c = *m_channels[static_cast<std::size_t>(channel)];
    c.processor.setSampleRate(sampleRate);
    c.processor.setValues(values);
    const std::span<double> block(m_block.data(), blockLength(sampleRate, seconds));
    c.signal.fill(block, sampleRate, seconds);
    c.processor.applyInput(block);
    c.meters.takeSend(block, seconds);
    c.processor.equalize(block);
    c.meters.takeReturn(block, seconds);
    return c.meters.levels();
}
