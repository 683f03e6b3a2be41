// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/BandDesign.h"

#include <array>
#include <cstddef>
#include <random>
#include <span>

/// A signal to look at while no audio is connected: a sine sweep from 20 Hz to 20 kHz in ten
/// seconds, repeated, and bursts of pink-like noise. Samples lie within -1 and 1.
///
/// Channels differ: each begins elsewhere in the sweep, has noise of its own and bursts at a pace
/// of its own. A channel's signal is the same in every run. std only.
class TestSignal
{
public:
    static constexpr double sweepSeconds = 10.0;
    static constexpr double lowestFrequency = BandDesign::MinimumFrequency;
    static constexpr double highestFrequency = BandDesign::MaximumFrequency;
    static constexpr double sweepAmplitude = 0.125;
    static constexpr double noiseAmplitude = 0.875;

    explicit TestSignal(int channel);

    /// The next samples at \a sampleRate Hz. Sweep and bursts move on by \a seconds, which may be
    /// more than the samples last: a reader that only wants an impression need not take them all.
    void fill(std::span<double> block, double sampleRate, double seconds);

    /// Where the sweep is, in Hz.
    double frequency() const;

private:
    static constexpr std::size_t noiseRows = 12;

    void addSweep(std::span<double> block, double sampleRate, double seconds);
    void addBursts(std::span<double> block, double seconds);
    double noise();
    double random();

    double m_position; // of the sweep, 0 to 1
    double m_phase = 0.0;
    double m_beatSeconds;
    double m_beatTime = 0.0;
    std::minstd_rand m_generator;
    std::array<double, noiseRows> m_rows{};
    double m_rowSum = 0.0;
    unsigned int m_count = 0;
};
