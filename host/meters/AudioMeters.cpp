// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/meters/AudioMeters.h"

#include <cstddef>

AudioMeters::AudioMeters(const AudioEngine& engine, double patience)
    : m_engine(engine)
    , m_patience(patience)
{
    for (Channel& channel : m_channels) {
        channel.blocks = engine.blocks();
        channel.idle = patience;
    }
}

MeterLevels AudioMeters::read(int channel, const std::array<int, parameterCount>&, int,
                              double seconds)
{
    Channel& c = m_channels[static_cast<std::size_t>(channel)];
    const std::uint64_t blocks = m_engine.blocks();
    c.idle = blocks == c.blocks ? c.idle + seconds : 0.0;
    c.blocks = blocks;
    if (c.idle < m_patience) {
        const MeterLevels levels = m_engine.levels(channel);
        c.send.setTenths(levels.send);
        c.returned.setTenths(levels.returned);
    } else {
        c.send.update(0.0, seconds);
        c.returned.update(0.0, seconds);
    }
    return {c.send.tenths(), c.returned.tenths()};
}
