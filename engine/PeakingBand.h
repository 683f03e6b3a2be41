// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/AssignableFilter.h"
#include "engine/Ramps.h"
#include "equalizer/EqualizerBands.h"
#include "equalizer/FILTER2PEQ.h"

#include <array>
#include <span>

/// A middle band of a channel. A new gain is reached evenly in dB, through 0 dB from boost to cut;
/// off is a gain of 0 dB. A new frequency or quality is cross-faded between two filters: the new
/// one has heard what the old one has where the two are less than an octave apart, and starts from
/// silence otherwise, as another centre would turn what is left of a high tone into a loud low one.
/// A design that comes during a cross-fade waits for its end.
class PeakingBand
{
public:
    /// Applies a setting: with \a atOnce from silence, otherwise gradually.
    void set(const Band& band, double sampleRate, bool atOnce);
    /// Clears what is left of the samples so far; changes that are under way are over at once.
    void reset();

    /// Runs \a block in place, with the changes under way.
    void process(std::span<double> block);

    /// Whether no change is under way.
    bool isSettled() const { return !m_gain.isMoving() && !m_fade.isMoving() && !m_waiting; }
    bool isAbsent() const { return m_gain.value() == 1.0 && !m_gain.isMoving(); }
    bool isCut() const { return m_gain.value() < 1.0; }
    /// Of a settled band, for a loop over several bands; an absent band leaves \a runner as it is.
    void saveState(FILTER2PEQ::Runner* runner) const;
    void restoreState(const FILTER2PEQ::Runner& runner);

private:
    FILTER2PEQ& filter() { return m_filters[m_used]; }
    FILTER2PEQ& fadedFilter() { return m_filters[1 - m_used]; }
    void design(FILTER2PEQ& filter);
    void designFromSilence();
    void startFade();
    double next(double sample, FILTER2PEQ::Runner* used, FILTER2PEQ::Runner* faded);
    std::span<double> processChange(std::span<double> block);

    std::array<AssignableFilter<FILTER2PEQ>, 2> m_filters;
    std::size_t m_used = 0;
    FadeRamp m_fade; // to the filter in use, from the other one
    GainRamp m_gain; // 10^(dB / 20)
    // 10^(|dB| / 20) - 1 of the band's own gain, even where a centre beyond half the sample rate
    // was clamped: as the curve is drawn.
    double m_gainFactor = 0.0;
    bool m_waiting = false;
    Band m_band;
    double m_designedFrequency = 0.0;
    double m_sampleRate = 48000.0;
};
