// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/analysis/SpectrumAnalyzer.h"

#include "equalizer/BandDesign.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr std::array timeConstants = {0.08, 0.25, 1.0}; // s

} // namespace

SpectrumAnalyzer::SpectrumAnalyzer() { plan(); }

void SpectrumAnalyzer::setSettings(const AnalyzerSettings& settings)
{
    const AnalyzerSettings before = std::exchange(m_settings, settings);
    if (before.order != settings.order || before.window != settings.window)
        return plan();
    if (before.speed != settings.speed)
        m_seconds = 0.0;
    if (before.smoothing == settings.smoothing && before.tilt == settings.tilt &&
        before.peaks == settings.peaks)
        return;
    placeColumns();
}

void SpectrumAnalyzer::setSampleRate(double hertz)
{
    if (m_sampleRate == hertz)
        return;
    m_sampleRate = hertz;
    reset();
    placeColumns();
}

void SpectrumAnalyzer::setColumns(std::size_t columns)
{
    if (m_count == columns)
        return;
    m_count = columns;
    placeColumns();
}

void SpectrumAnalyzer::reset()
{
    m_seconds = 0.0;
    for (std::vector<double>& powers : m_powers)
        powers.clear();
    for (Levels& levels : m_levels)
        levels.clear();
    m_peaks.clear();
}

void SpectrumAnalyzer::resetPeaks() { m_peaks = m_settings.peaks ? m_levels[After] : Levels(); }

void SpectrumAnalyzer::update(std::span<const Block> channels, double seconds)
{
    const double share = shareOf(seconds);
    const double part = 1.0 / static_cast<double>(channels.size());
    for (const Point point : {Before, After}) {
        m_newest.assign(m_spectrum->bins(), 0.0);
        for (const Block& block : channels)
            m_spectrum->add(point == Before ? block.before : block.after, part, m_newest);
        std::vector<double>& powers = m_powers[point];
        powers.resize(m_newest.size());
        for (std::size_t k = 0; k < powers.size(); ++k)
            powers[k] += share * (m_newest[k] - powers[k]);
    }
    evaluate();
}

std::size_t SpectrumAnalyzer::columnOf(double frequency) const
{
    const double decades = std::log10(frequency / BandDesign::MinimumFrequency);
    const double place = decades / BandDesign::FrequencyRatio * static_cast<double>(m_count);
    return static_cast<std::size_t>(std::clamp(place, 0.0, static_cast<double>(m_count - 1)));
}

void SpectrumAnalyzer::plan()
{
    m_spectrum = std::make_unique<PowerSpectrum>(
        static_cast<AnalyzerSettings::Window>(m_settings.window), m_settings.size());
    reset();
    placeColumns();
}

// What was measured is seen in the new way at once.
void SpectrumAnalyzer::placeColumns()
{
    m_columns.setGrid(m_count, m_sampleRate, m_settings.size());
    m_columns.setSmoothing(m_settings.smoothingParts());
    m_columns.setTilt(m_settings.tiltPerOctave());
    m_peaks.clear();
    if (!m_powers[After].empty())
        evaluate();
}

void SpectrumAnalyzer::evaluate()
{
    for (const Point point : {Before, After})
        m_columns.evaluate(m_powers[point], m_spectrum->window(), &m_levels[point]);
    if (!m_settings.peaks)
        return m_peaks.clear();
    m_peaks.resize(m_count, static_cast<float>(SpectrumColumns::faintest));
    for (std::size_t i = 0; i < m_count; ++i)
        m_peaks[i] = std::max(m_peaks[i], m_levels[After][i]);
}

// What the newest spectrum counts in the average.
double SpectrumAnalyzer::shareOf(double seconds)
{
    const bool first = m_seconds == 0.0;
    m_seconds += seconds;
    if (first)
        return 1.0;
    if (m_settings.speed == AnalyzerSettings::Infinite)
        return seconds / m_seconds;
    return 1.0 - std::exp(-seconds / timeConstants[static_cast<std::size_t>(m_settings.speed)]);
}
