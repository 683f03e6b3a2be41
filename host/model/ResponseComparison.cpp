// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/model/ResponseComparison.h"

#include "engine/MeasuredResponse.h"
#include "equalizer/BandDesign.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double pointsPerOctave = 10.0;
constexpr double faintest = -100.0; // dB

} // namespace

void ResponseComparison::setSampleRate(int hertz)
{
    m_bands.setSampleRate(hertz);
    const double top = std::min(BandDesign::MaximumFrequency, 0.45 * hertz);
    m_frequencies.clear();
    m_drawn.clear();
    m_measured.clear();
    for (int i = 0; m_frequencies.empty() || m_frequencies.back() < top; ++i)
        m_frequencies.push_back(
            std::min(top, BandDesign::MinimumFrequency * std::pow(2.0, i / pointsPerOctave)));
}

void ResponseComparison::measure(const ChannelValues& drawn, const ChannelValues& heard)
{
    setBands(m_bands, drawn);
    const EqualizerResponse response = m_bands.response();
    m_drawn.clear();
    for (const double frequency : m_frequencies)
        m_drawn.push_back(response.levels(frequency, m_bands.sampleRate()).total);
    m_measured = measuredResponse(heard, m_bands.sampleRate(), m_frequencies);
}

double ResponseComparison::largestDifference() const
{
    double largest = 0.0;
    for (std::size_t i = 0; i < m_measured.size(); ++i) {
        if (m_drawn[i] > faintest || m_measured[i] > faintest)
            largest = std::max(largest, std::abs(m_measured[i] - m_drawn[i]));
    }
    return largest;
}
