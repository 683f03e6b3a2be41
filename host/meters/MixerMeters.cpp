// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/meters/MixerMeters.h"

#include "host/model/MixerModel.h"

MixerMeters::MixerMeters(const MixerModel& mixerModel, const AudioEngine& engine)
    : m_mixerModel(mixerModel)
    , m_audio(engine)
{}

MeterLevels MixerMeters::read(int channel, const std::array<int, parameterCount>& values,
                              int sampleRate, double seconds)
{
    const MeterLevels audio = m_audio.read(channel, values, sampleRate, seconds);
    const int leader = m_mixerModel.leaderOf(channel);
    if (m_mixerModel.memory().strip(leader, StripParameter::Source) != SourceTestSignal)
        return audio;
    return m_signal.read(channel, m_mixerModel.soundingValues(channel), sampleRate, seconds);
}

bool MixerMeters::isResting() const
{
    for (int channel = 0; channel < m_mixerModel.channelCount(); ++channel) {
        const int leader = m_mixerModel.leaderOf(channel);
        if (m_mixerModel.memory().strip(leader, StripParameter::Source) == SourceTestSignal)
            return false;
    }
    return m_mixerModel.soundingRate() == 0;
}
