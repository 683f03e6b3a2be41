// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/EqualizerBands.h"
#include "parameters/ChannelValues.h"

#include <vector>

/// What an equalizer's curve promises and what its signal processor does: the drawn response, and
/// the one that an impulse measures. Levels and drive, which the curve does not show, are left out.
class ResponseComparison
{
public:
    /// In Hz. What was measured before is void.
    void setSampleRate(int hertz);
    /// \a drawn are the values of the curve, \a heard those that the sound goes through.
    void measure(const ChannelValues& drawn, const ChannelValues& heard);

    /// Where the points are, in Hz: a tenth of an octave from one to the next, up to 20 kHz or 0.45
    /// of the rate. The levels there, in dB.
    const std::vector<double>& frequencies() const { return m_frequencies; }
    const std::vector<double>& drawn() const { return m_drawn; }
    const std::vector<double>& measured() const { return m_measured; }
    /// In dB, among the points above -100 dB; below that nothing can be heard.
    double largestDifference() const;
    /// What draws the curve.
    const EqualizerBands& bands() const { return m_bands; }

private:
    EqualizerBands m_bands;
    std::vector<double> m_frequencies;
    std::vector<double> m_drawn;
    std::vector<double> m_measured;
};
