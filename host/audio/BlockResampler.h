// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioBlock.h"
#include "host/audio/Resampler.h"

#include <vector>

/// Blocks of one rate as blocks of another, in single precision, with the first frame in its place.
class BlockResampler
{
public:
    BlockResampler(std::size_t channels, double fromRate, double toRate);

    /// The frames that \a block adds, any number of them; valid until the next call. \a last says
    /// that nothing follows.
    AudioBlock& process(const AudioBlock& block, bool last);

private:
    // One a channel, because the converter takes 128 channels at the most.
    std::vector<Resampler> m_resamplers;
    std::vector<float> m_samples;
    AudioBlock m_block;
};
