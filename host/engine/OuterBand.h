// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/filters/EqualizerBands.h"
#include "graph/filters/VEQ_Filter.h"
#include "host/engine/Ramps.h"

#include <span>

/// The low or the high band of a channel. A new type, frequency or gain is faded in by VEQ_Filter
/// itself; switching the band on or off fades between its input and its output. A shelf of 0 dB
/// counts as off, so that it lets every bit through.
class OuterBand
{
public:
    enum class Side { Low, High };

    explicit OuterBand(Side side);

    /// Takes a setting over: with \a atOnce from silence, otherwise faded in.
    void set(const Band& band, double sampleRate, bool atOnce);
    /// Forgets the samples heard so far; changes that are under way are over at once.
    void forget();

    /// Runs \a block in place, with the changes under way.
    void process(std::span<double> block);

    /// Whether no change is under way.
    bool isSettled() const
    {
        return !m_presence.isMoving() && (isAbsent() || m_filter.isSettled());
    }
    bool isAbsent() const { return m_presence.isOut(); }
    /// Of a settled band, for a loop over several bands; an absent band leaves \a runner as it is.
    void lend(VEQ_Filter::Runner* runner) const;
    void takeBack(const VEQ_Filter::Runner& runner);

private:
    void design(const Band& band, double sampleRate);

    Side m_side;
    VEQ_Filter m_filter;
    FadeRamp m_presence;
    Band m_band;
    bool m_designed = false;
};
