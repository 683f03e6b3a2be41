// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/analysis/AnalyzerSettings.h"

#include <array>
#include <cstddef>
#include <span>
#include <vector>

/// The window that samples are weighted by before their transform: a sum of cosines. It knows what
/// it does to the level of a sine that lies between two bins, and takes that back.
///
/// Coefficients: F. Harris, "On the Use of Windows for Harmonic Analysis with the Discrete Fourier
/// Transform", 1978 (the four terms of 92 dB); G. D'Antona and A. Ferrero, "Digital Signal
/// Processing for Measurement Systems", 2006 (the five terms of the flat top).
class SpectrumWindow
{
public:
    SpectrumWindow(AnalyzerSettings::Window window, std::size_t size);

    std::span<const float> weights() const { return m_weights; }
    /// The mean of the weights, which a sine's amplitude is multiplied by.
    double gain() const { return m_terms[0]; }

    /// Where a sine is that shows as a maximum in the powers of three bins, and its power; the
    /// middle bin as it is where the three are not those of a sine.
    struct Peak
    {
        double offset; ///< from the middle bin, -0.5 to 0.5
        double power;
    };
    Peak peak(double left, double middle, double right) const;

private:
    static constexpr std::size_t maxTerms = 5;
    static constexpr std::size_t steps = 256;
    using Terms = std::array<double, maxTerms>;

    double response(double offset) const;
    void tabulate();

    struct Known
    {
        Peak peak;    // of 1 in the middle bin
        double other; // the power in the weaker neighbour
    };

    Terms m_terms;
    std::vector<float> m_weights;
    std::array<Known, steps + 1> m_known; // by the ratio of the amplitudes of two neighbours
};
