// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/BypassPath.h"
#include "engine/ChannelProcessor.h"
#include "engine/LoudnessMatch.h"
#include "engine/Ramps.h"

#include <array>
#include <cstddef>
#include <span>

/// What somebody who compares wants to hear of a channel. The settings stay as they are.
struct Audition
{
    bool measured = false; ///< the loudness is measured, as it is for either of the others
    bool bypassed = false; ///< the sound that goes past the equalizer, as loud as the equalized one
    int band = noBand;     ///< what this band alone changes; before bypassed
    bool linked = false;   ///< the channel and its neighbour are two sides of one sound: one gain

    bool operator==(const Audition&) const = default;
};

/// Lets a channel be heard as an Audition says, after its equalizer has run. std only; neither
/// allocates nor locks. Everything fades in and out within rampSeconds.
///
/// What a band changes is the difference between what the equalizer plays and what it would play
/// with that band off, to the last bit: by a copy of the equalizer, which has heard all that the
/// original has, so that the difference begins and ends without a click and holds for drive and
/// levels, too.
class ChannelAudition
{
public:
    /// The longest block that takeInput() takes.
    static constexpr std::size_t maxBlock = BypassPath::maxBlock;

    /// In Hz; what was heard is forgotten, and changes under way are over at once.
    void setSampleRate(double hertz);
    void set(const Audition& audition);
    const Audition& audition() const { return m_audition; }
    /// Whether a band is to be heard.
    bool isListening() const { return m_audition.band != noBand; }
    /// Whether blocks have to be taken and processed.
    bool isActive() const;

    /// Takes the samples that come in, before \a equalizer processes them.
    void takeInput(std::span<const float> block, const ChannelProcessor& equalizer);
    /// Takes what \a equalizer made of them, by the settings it has now. True if they are others
    /// than before.
    bool takeOutput(std::span<const float> block, const ChannelProcessor& equalizer);
    /// The energy of the block, which is asked once.
    MatchedEnergy energy();
    /// Replaces \a block, which was taken as output, by what is to be heard. \a gain in dB.
    void process(std::span<float> block, double gain);

private:
    using Buffer = std::array<double, maxBlock>;

    void followSettings(const ChannelProcessor& equalizer);
    void mixDifference(std::span<double> block);

    Audition m_audition;
    BypassPath m_bypass;
    FadeRamp m_difference; // its share in what is heard
    int m_band = noBand;   // that is or was listened to
    ChannelProcessor m_without;
    ChannelValues m_values = defaultValues(); // of the equalizer
    KWeighting m_weightedInput;
    KWeighting m_weightedOutput;
    std::size_t m_count = 0; // samples of the block under way
    Buffer m_input{};
    Buffer m_output{};
};
