// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/meters/AudioMeters.h"
#include "host/meters/BuiltInSignal.h"
#include "hosting/HostMemory.h"

class MixerModel;

/// Meter readings of each strip by its source: the built-in signal where it is the test signal,
/// otherwise the audio that runs through the engine, and silence where none does.
class MixerMeters : public MeterProducer
{
public:
    /// \a mixerModel and \a engine must outlive it.
    MixerMeters(const MixerModel& mixerModel, const AudioEngine& engine);

    MeterLevels read(int channel, const std::array<int, parameterCount>& values, int sampleRate,
                     double seconds) override;
    /// No strip shows the test signal, and nothing plays.
    bool isResting() const override;

private:
    const MixerModel& m_mixerModel;
    BuiltInSignal m_signal;
    AudioMeters m_audio;
};
