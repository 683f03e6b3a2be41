// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/EqualizerBands.h"

#include "equalizer/BandDesign.h"

namespace {

constexpr std::array<double, EqualizerBands::Count> InitialFrequencies = {80.0,   400.0,  800.0,
                                                                          2500.0, 5600.0, 12500.0};

bool isShelf(int type)
{
    return type == BandDesign::FirstOrderShelf || type == BandDesign::SecondOrderShelf;
}

bool isPassType(int type)
{
    return type == BandDesign::FirstOrderPass || type == BandDesign::SecondOrderPass;
}

} // namespace

EqualizerBands::EqualizerBands()
{
    for (std::size_t i = 0; i < m_bands.size(); ++i)
        m_bands[i].frequency = InitialFrequencies[i];
    m_low.clear();
    m_high.clear();
    designAll();
}

bool EqualizerBands::hasGain(int band) const
{
    return isMiddle(band) || isShelf((*this)[band].type);
}

bool EqualizerBands::isPass(int band) const
{
    return !isMiddle(band) && isPassType((*this)[band].type);
}

void EqualizerBands::setSampleRate(double sampleRate)
{
    m_sampleRate = sampleRate;
    designAll();
}

void EqualizerBands::design(int band)
{
    const Band& b = (*this)[band];
    if (band == Low)
        BandDesign::designLow(m_low, b.type, b.frequency, b.gain, m_sampleRate);
    else if (band == High)
        BandDesign::designHigh(m_high, b.type, b.frequency, b.gain, m_sampleRate);
    else
        BandDesign::designMiddle(m_middle[static_cast<std::size_t>(band - 1)], b.frequency,
                                 b.quality, b.gain, m_sampleRate);
}

void EqualizerBands::designAll()
{
    for (int band = 0; band < Count; ++band)
        design(band);
}

EqualizerResponse EqualizerBands::response() const
{
    EqualizerResponse response;
    if (m_bands[Low].on)
        response.low = &m_low;
    if (m_bands[High].on)
        response.high = &m_high;
    for (std::size_t i = 0; i < m_middle.size(); ++i) {
        const Band& band = m_bands[i + 1];
        if (band.on)
            response.middle[i].emplace(m_middle[i], band.gain);
    }
    return response;
}
