// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/meters/MixerMeters.h"

#include "host/model/Desk.h"

MixerMeters::MixerMeters(const Desk& desk, const AudioEngine& engine)
    : m_desk(desk)
    , m_audio(engine)
{}

MeterLevels MixerMeters::read(int channel, const std::array<int, parameterCount>& values,
                              int sampleRate, double seconds)
{
    const MeterLevels audio = m_audio.read(channel, values, sampleRate, seconds);
    const int leader = m_desk.leaderOf(channel);
    if (m_desk.memory().strip(leader, StripParameter::Source) != SourceTestSignal)
        return audio;
    return m_signal.read(channel, m_desk.soundingValues(channel), sampleRate, seconds);
}
