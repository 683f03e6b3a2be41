// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/ChannelAudition.h"
#include "engine/LatestValue.h"
#include "engine/LoudnessMatch.h"
#include "parameters/ParameterTable.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <span>

/// The auditions of all channels, between the equalizers and the mix. std only.
///
/// Whoever sets audio up calls prepare(); the audio thread calls takeWanted(), takeInput() and
/// process() for every part of a block, which neither allocate nor lock nor wait. The GUI thread
/// publishes, and any thread reads. A channel of which nothing is wanted costs next to nothing, and
/// its samples stay as they are.
class Auditions
{
public:
    /// The longest part.
    static constexpr std::size_t maxPart = ChannelAudition::maxBlock;

    /// The GUI thread's.
    void publish(int channel, const Audition& audition) { at(channel).wanted.publish(audition); }
    /// The gain in dB, as of the last block, that a channel's bypassed sound has or would have.
    double matchedGain(int channel) const { return at(channel).gain; }

    /// In Hz; what was heard is forgotten, but not the gains.
    void prepare(double hertz);
    /// Takes what is published of the first \a count channels, the only ones there are.
    void takeWanted(std::size_t count);
    /// Whether only another channel is to be heard: one that is listened to.
    bool isHushed(std::size_t channel) const
    {
        return m_isListening && !m_channels[channel].audition.isListening();
    }
    /// Takes what a channel plays, before its equalizer processes it. A channel without signal is
    /// left out.
    void takeInput(std::size_t channel, std::span<const float> part,
                   const ChannelProcessor& equalizer);
    /// Of two neighbours, what their equalizers made of it: replaces it by what is to be heard.
    /// \a first is even.
    void process(std::size_t first, std::array<std::span<float>, 2> parts,
                 std::array<const ChannelProcessor*, 2> equalizers);

private:
    struct Channel
    {
        void takeOutput(std::span<const float> part, const ChannelProcessor& equalizer);

        LatestValue<Audition> wanted;
        ChannelAudition audition;
        LoudnessMatch match;
        MatchedEnergy energy;
        bool isTaken = false; // the part under way
        std::atomic<double> gain = 0.0;
    };
    static_assert(std::atomic<double>::is_always_lock_free);

    Channel& at(int channel) { return m_channels[static_cast<std::size_t>(channel)]; }
    const Channel& at(int channel) const { return m_channels[static_cast<std::size_t>(channel)]; }

    std::array<Channel, maxChannelCount> m_channels;
    std::size_t m_count = 0;
    bool m_isListening = false; // to any channel
};
