// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/AudioEngine.h"
#include "host/meters/MeterProducer.h"

#include <array>
#include <cstdint>

/// Meter readings of the audio that runs through the engine. Where no block has come for a while,
/// no audio runs, and the levels fall as they do in silence. std only.
class AudioMeters : public MeterProducer
{
public:
    /// \a engine must outlive it. \a patience, in seconds, is longer than the blocks of any device.
    explicit AudioMeters(const AudioEngine& engine, double patience = 0.5);

    /// The values and the sample rate are the engine's own matter.
    MeterLevels read(int channel, const std::array<int, parameterCount>& values, int sampleRate,
                     double seconds) override;

private:
    struct Channel
    {
        std::uint64_t blocks = 0; // at the last reading
        double idle = 0.0;        // seconds without a block
        PeakLevel send;
        PeakLevel returned;
    };

    const AudioEngine& m_engine;
    double m_patience;
    std::array<Channel, maxChannelCount> m_channels;
};
