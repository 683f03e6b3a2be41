// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/ChannelStrip.h"

#include "graph/filters/BandDesign.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr std::size_t parametersPerBand = 4;
constexpr std::size_t inputLevel = 24;
constexpr std::size_t outputLevel = 25;

// Where a band's four parameters stand after its first: the type or the quality.
enum Field : std::size_t { TypeOrQuality, Frequency, Gain, OnOff };

constexpr std::size_t indexOf(std::size_t band, Field field)
{
    return band * parametersPerBand + field;
}

void multiply(std::span<double> block, double decibels)
{
    const double factor = std::pow(10.0, decibels / 20.0);
    for (double& sample : block)
        sample *= factor;
}

void boost(FILTER2PEQ& filter, std::span<double> block)
{
    const double k = filter.gainFactor();
    for (double& sample : block) {
        const double x = sample;
        sample = x + k * filter.cal_boost(x);
        filter.dlyupdate_bpf(x);
    }
}

void cut(FILTER2PEQ& filter, std::span<double> block)
{
    const double k = filter.gainFactor();
    for (double& sample : block) {
        sample = (sample - k * filter.cal_cut()) / (1.0 + filter.scaledGain());
        filter.dlyupdate_bpf(sample);
    }
}

void run(VEQ_Filter& filter, std::span<double> block)
{
    for (double& sample : block)
        sample = filter.cal(sample);
}

} // namespace

ChannelStrip::ChannelStrip()
{
    std::transform(parameterTable.begin(), parameterTable.end(), m_values.begin(),
                   [](const Parameter& p) { return p.defaultValue; });
    designAll();
}

void ChannelStrip::setSampleRate(int hertz)
{
    if (m_sampleRate == hertz)
        return;
    m_sampleRate = hertz;
    designAll();
}

void ChannelStrip::setValues(const Values& values)
{
    const Values before = std::exchange(m_values, values);
    for (std::size_t band = 0; band < bandCount; ++band) {
        if (differs(band, before))
            design(band);
    }
}

void ChannelStrip::applyInput(std::span<double> block) const
{
    multiply(block, gainOf(inputLevel));
}

void ChannelStrip::equalize(std::span<double> block)
{
    for (std::size_t band = 0; band < bandCount; ++band) {
        if (isOn(band))
            runBand(band, block);
    }
    multiply(block, gainOf(outputLevel));
}

void ChannelStrip::forget()
{
    m_low.clearDelay();
    m_high.clearDelay();
    for (FILTER2PEQ& filter : m_middle)
        filter.clearDelay();
}

bool ChannelStrip::isOn(std::size_t band) const { return m_values[indexOf(band, OnOff)] != 0; }

bool ChannelStrip::differs(std::size_t band, const Values& values) const
{
    const auto first = static_cast<std::ptrdiff_t>(indexOf(band, TypeOrQuality));
    return !std::equal(m_values.begin() + first,
                       m_values.begin() + first + std::ptrdiff_t{parametersPerBand},
                       values.begin() + first);
}

void ChannelStrip::design(std::size_t band)
{
    const std::size_t first = indexOf(band, TypeOrQuality);
    const int type = m_values[first];
    const double frequency = BandDesign::frequency(position(indexOf(band, Frequency)));
    const double gain = gainOf(indexOf(band, Gain));
    if (band == 0)
        return BandDesign::designLow(m_low, type, frequency, gain, m_sampleRate);
    if (band == highBand)
        return BandDesign::designHigh(m_high, type, frequency, gain, m_sampleRate);
    m_cut[band - 1] = gain < 0.0;
    BandDesign::designMiddle(m_middle[band - 1], frequency, BandDesign::quality(position(first)),
                             gain, m_sampleRate);
}

void ChannelStrip::designAll()
{
    for (VEQ_Filter* filter : {&m_low, &m_high})
        filter->SetSampleRate(m_sampleRate);
    for (std::size_t band = 0; band < bandCount; ++band)
        design(band);
    m_low.clear();
    m_high.clear();
    forget();
}

void ChannelStrip::runBand(std::size_t band, std::span<double> block)
{
    if (band == 0)
        run(m_low, block);
    else if (band == highBand)
        run(m_high, block);
    else if (m_cut[band - 1])
        cut(m_middle[band - 1], block);
    else
        boost(m_middle[band - 1], block);
}

float ChannelStrip::position(std::size_t parameter) const
{
    const Parameter& entry = parameterTable[parameter];
    return BandDesign::position(m_values[parameter], entry.minimum, entry.maximum);
}

double ChannelStrip::gainOf(std::size_t parameter) const
{
    return BandDesign::gain(position(parameter));
}
