// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/AssignableFilter.h"
#include "engine/Ramps.h"
#include "equalizer/EqualizerBands.h"
#include "equalizer/VEQ_Filter.h"

#include <cstdint>
#include <span>

/// The low or the high band of a channel. A shelf of 0 dB counts as off, so that it lets every bit
/// through; so does a band at or beyond half the sample rate, where its filter would run away.
///
/// Switching the band on or off fades between its input and its output. A new type, frequency or
/// gain comes in by VEQ_Filter's own cross-fade. The new design begins from silence, and its answer
/// to a signal that seems to begin there would be heard as a click; so a second filter first
/// listens for rampSeconds, and the cross-fade goes on from what that one has heard. A design that
/// comes meanwhile waits.
class OuterBand
{
public:
    enum class Side { Low, High };

    explicit OuterBand(Side side);

    /// Applies a setting: with \a atOnce from silence, otherwise faded in.
    void set(const Band& band, double sampleRate, bool atOnce);
    /// Clears what is left of the samples so far; changes that are under way are over at once.
    void reset();

    /// Runs \a block in place, with the changes under way.
    void process(std::span<double> block);

    /// Whether no change is under way.
    bool isSettled() const;
    bool isAbsent() const { return m_presence.isOut(); }
    /// Of a settled band, for a loop over several bands; an absent band leaves \a runner as it is.
    void saveState(VEQ_Filter::Runner* runner) const;
    void restoreState(const VEQ_Filter::Runner& runner);

private:
    bool isWanted() const;
    void design(VEQ_Filter* filter) const;
    void startFromSilence();
    double next(double sample);
    void listen(double sample);

    Side m_side;
    Band m_band;
    double m_sampleRate = 48000.0;
    AssignableFilter<VEQ_Filter> m_filter;
    FadeRamp m_presence;
    AssignableFilter<VEQ_Filter> m_listener;
    std::int64_t m_listening = 0; // samples left to listen to
    bool m_waiting = false;
};
