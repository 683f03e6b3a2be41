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
{}

MeterLevels BuiltInSignal::read(int channel, const ChannelProcessor::Values& values, int sampleRate,
                                double seconds)
{
    std::unique_ptr<Channel>& kept = m_channels[static_cast<std::size_t>(channel)];
    if (!kept)
        kept = std::make_unique<Channel>(channel);
    Channel& c = *kept;
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
