// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

class SpectrumWindow;

/// The levels of a spectrum along a logarithmic frequency axis from 20 Hz to 20 kHz: one for each
/// of so many columns of the same width. Where bins are closer than columns the highest counts, so
/// that no tone is lost; where they are farther apart a smooth line leads from one to the next.
/// Smoothed, a column shows the mean around its middle.
class SpectrumColumns
{
public:
    /// In dB; what is quieter counts as this.
    static constexpr double faintest = -200.0;

    /// The columns' number, the rate in Hz, the samples of a transform.
    void setGrid(std::size_t columns, double rate, std::size_t size);
    /// 1/n octave; 0 for none.
    void setSmoothing(int parts) { m_parts = parts; }
    void setTilt(double decibelsPerOctave) { m_tilt = decibelsPerOctave; }

    std::size_t count() const { return m_middles.size(); }
    /// Of a column's middle, in Hz.
    double frequency(std::size_t column) const;
    /// Replaces \a levels by those of \a powers, in dB.
    void evaluate(std::span<const double> powers, const SpectrumWindow& window,
                  std::vector<float>* levels);

private:
    struct Point
    {
        double bin;
        double power;
    };

    void findPoints(std::span<const double> powers, const SpectrumWindow& window);
    Point pointOf(std::size_t bin, std::span<const double> powers,
                  const SpectrumWindow& window) const;
    std::optional<double> meanAround(double bin) const;
    void sum(std::span<const double> powers);
    double sumOfSums(double bin) const;
    double lineAt(std::size_t next, double bin) const;

    int m_parts = 0;
    double m_tilt = 0.0;
    double m_binWidth = 1.0;       // Hz
    double m_reach = 1.0;          // from a column's middle as far as it looks, as a ratio
    std::vector<double> m_middles; // bins
    std::vector<double> m_sums;
    std::vector<double> m_sumsOfSums;
    std::vector<Point> m_points;
};
