// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/Auditions.h"

#include <algorithm>
#include <utility>

void Auditions::prepare(double hertz)
{
    for (Channel& channel : m_channels) {
        channel.audition.setSampleRate(hertz);
        channel.match.setSampleRate(hertz);
    }
}

void Auditions::takeWanted(std::size_t count)
{
    const std::span<Channel> existing = std::span(m_channels).first(count);
    bool changed = std::exchange(m_count, count) != count;
    for (Channel& channel : existing) {
        if (const Audition* audition = channel.wanted.take()) {
            channel.audition.set(*audition);
            changed = true;
        }
    }
    if (changed)
        m_isListening = std::any_of(existing.begin(), existing.end(), [](const Channel& channel) {
            return channel.audition.isListening();
        });
}

void Auditions::takeInput(std::size_t channel, std::span<const float> part,
                          const ChannelProcessor& equalizer)
{
    Channel& taken = m_channels[channel];
    taken.isTaken = taken.audition.isActive();
    if (taken.isTaken)
        taken.audition.takeInput(part, equalizer);
}

void Auditions::process(std::size_t first, std::array<std::span<float>, 2> parts,
                        std::array<const ChannelProcessor*, 2> equalizers)
{
    const std::span<Channel> both = std::span(m_channels).subspan(first, 2);
    if (!both[0].isTaken && !both[1].isTaken)
        return;
    for (std::size_t i = 0; i < 2; ++i)
        both[i].takeOutput(parts[i], *equalizers[i]);
    const bool linked = both[0].audition.audition().linked;
    if (linked)
        both[0].energy = both[0].energy + both[1].energy;
    for (std::size_t i = 0; i < 2; ++i) {
        Channel& channel = both[i];
        if (i == 0 || !linked)
            channel.match.take(channel.energy, parts[i].size());
        channel.gain = both[linked ? 0 : i].match.gain();
        if (std::exchange(channel.isTaken, false))
            channel.audition.process(parts[i], channel.gain);
    }
}

// Without signal there is no energy, and no other settings are heard.
void Auditions::Channel::takeOutput(std::span<const float> part, const ChannelProcessor& equalizer)
{
    energy = {};
    if (!isTaken)
        return;
    if (audition.takeOutput(part, equalizer))
        match.forget();
    energy = audition.energy();
}
