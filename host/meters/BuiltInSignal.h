// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/ChannelProcessor.h"
#include "host/meters/MeterProducer.h"
#include "host/meters/TestSignal.h"

#include <array>
#include <memory>
#include <vector>

/// Meter readings of a test signal that runs through each channel's equalizer. std only.
class BuiltInSignal : public MeterProducer
{
public:
    /// A reading takes no more samples than this; at high rates they are a part of the time that
    /// has passed, so that a reading costs the same at any rate and after any delay.
    static constexpr int maxBlock = 2048;

    BuiltInSignal();

    MeterLevels read(int channel, const ChannelProcessor::Values& values, int sampleRate,
                     double seconds) override;

private:
    struct Channel
    {
        TestSignal signal;
        ChannelProcessor processor;
        ChannelMeters meters;

        explicit Channel(int number)
            : signal(number)
        {}
    };

    std::array<std::unique_ptr<Channel>, maxChannelCount> m_channels; // those that were read
    std::vector<double> m_block;
};
