// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/Drive.h"
#include "engine/Ramps.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

/// The way around the equalizer of one channel: the samples as they came in, as late as the
/// equalizer would be, by a gain. A workstation compensates the delay that it was told of, and a
/// mixer keeps its strips in step by it, so the bypass has to keep it. Switching cross-fades.
/// Samples that the equalizer takes for silence are silence here, too. std only.
class BypassPath
{
public:
    /// The longest block that addInput() takes.
    static constexpr std::size_t maxBlock = 256;

    /// How long a new gain takes to come in.
    static constexpr double gainSeconds = 0.050;

    /// In Hz; what was heard is forgotten, and changes under way are over at once.
    void setSampleRate(double hertz);
    /// The same at the rate it has.
    void reset();
    /// Clears the samples held back; changes under way go on.
    void clear() { m_past.fill(0.0); }
    /// Whether the sound goes this way.
    void set(bool on);
    /// Whether samples are held back by Drive::latency.
    void setLate(bool late);
    /// The factor of its samples, above 0 and 1 at first; at once while nothing goes this way.
    void setGain(double factor);
    /// Whether anything of this way is heard.
    bool isUsed() const { return !m_share.isOut(); }

    /// Takes the samples that come in, before the equalizer changes them.
    void addInput(std::span<const double> block);
    /// Mixes what addInput() took into what the equalizer made of it.
    void process(std::span<double> block);

private:
    double nextOf(double now, double late);

    bool m_isFresh = true;
    FadeRamp m_share; // of this way in what is heard
    GainRamp m_gain;
    std::int64_t m_gainLength = 1;
    FadeRamp m_lateShare;                        // of the samples held back in this way
    std::array<double, Drive::latency> m_past{}; // the last samples, the oldest first
    std::array<double, maxBlock> m_block{};      // what process() mixes in
};
