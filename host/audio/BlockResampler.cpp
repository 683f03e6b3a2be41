// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/BlockResampler.h"

BlockResampler::BlockResampler(std::size_t channels, double fromRate, double toRate)
    : m_block(channels, 0)
{
    for (std::size_t c = 0; c < channels; ++c)
        m_resamplers.emplace_back(1, fromRate, toRate, Resampler::Quality::Best);
}

AudioBlock& BlockResampler::process(const AudioBlock& block, bool last)
{
    for (std::size_t c = 0; c < m_resamplers.size(); ++c) {
        m_samples.assign(block.channel(c).begin(), block.channel(c).end());
        const std::span<const float> converted = m_resamplers[c].process(m_samples, last);
        if (converted.size() > m_block.capacity())
            m_block = AudioBlock(m_resamplers.size(), converted.size());
        m_block.setFrames(converted.size());
        std::ranges::copy(converted, m_block.channel(c).begin());
    }
    return m_block;
}
