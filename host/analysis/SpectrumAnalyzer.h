// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/analysis/PowerSpectrum.h"
#include "host/analysis/SpectrumColumns.h"

#include <array>
#include <memory>
#include <span>
#include <vector>

/// The spectra of a signal before and after an equalizer: levels in dB along a logarithmic axis
/// from 20 Hz to 20 kHz. A sine of full scale is at 0 dB, whatever its frequency, where nothing is
/// smoothed or tilted; noise is shown by its density, so that white noise is level, and pink noise
/// falls by 3 dB an octave.
class SpectrumAnalyzer
{
public:
    enum Point { Before, After };
    using Levels = std::vector<float>;

    /// The newest samples of one channel at both points, AnalyzerSettings::size() of each.
    struct Block
    {
        std::vector<float> before;
        std::vector<float> after;
    };

    SpectrumAnalyzer();

    /// Another size, window or speed begins the averages anew, another picture the peaks.
    void setSettings(const AnalyzerSettings& settings);
    const AnalyzerSettings& settings() const { return m_settings; }
    /// In Hz; another rate begins anew.
    void setSampleRate(double hertz);
    double sampleRate() const { return m_sampleRate; }
    /// Another number begins the peaks anew.
    void setColumns(std::size_t columns);
    /// Begins the averages and the peaks anew.
    void reset();
    void resetPeaks();

    /// Takes the mean of the channels' powers, so many seconds after the last time.
    void update(std::span<const Block> channels, double seconds);
    /// Whether there is a spectrum.
    bool hasLevels() const { return !m_levels[After].empty(); }

    /// Of every column; empty before the first update.
    const Levels& levels(Point point) const { return m_levels[point]; }
    /// The highest levels after the equalizer since peaks are kept; empty where they are not.
    const Levels& peaks() const { return m_peaks; }
    const SpectrumColumns& columns() const { return m_columns; }
    /// The column of a frequency in Hz.
    std::size_t columnOf(double frequency) const;

private:
    void plan();
    void placeColumns();
    void evaluate();
    double shareOf(double seconds);

    AnalyzerSettings m_settings;
    double m_sampleRate = 48000.0;
    std::size_t m_count = 600;
    SpectrumColumns m_columns;
    std::unique_ptr<PowerSpectrum> m_spectrum;
    std::array<std::vector<double>, 2> m_powers; // averaged; empty before the first update
    std::vector<double> m_newest;
    std::array<Levels, 2> m_levels;
    Levels m_peaks;
    double m_seconds = 0.0; // that are averaged
};
