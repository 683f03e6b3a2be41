// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/engine/OuterBand.h"

#include "graph/filters/BandDesign.h"

namespace {

bool isFlatShelf(const Band& band)
{
    const bool shelf =
        band.type == BandDesign::FirstOrderShelf || band.type == BandDesign::SecondOrderShelf;
    return shelf && band.gain == 0.0;
}

bool isSameDesign(const Band& a, const Band& b)
{
    return a.type == b.type && a.frequency == b.frequency && a.gain == b.gain;
}

} // namespace

OuterBand::OuterBand(Side side)
    : m_side(side)
{}

void OuterBand::set(const Band& band, double sampleRate, bool atOnce)
{
    const bool silent = atOnce || isAbsent();
    if (atOnce) {
        m_filter.SetSampleRate(sampleRate);
        m_presence.setLength(rampSamples(sampleRate));
    }
    if (atOnce || !m_designed || !isSameDesign(band, m_band))
        design(band, sampleRate);
    m_band = band;
    if (silent)
        m_filter.clear();
    m_presence.moveTo(band.on && !isFlatShelf(band));
    if (atOnce)
        forget();
}

void OuterBand::forget()
{
    m_filter.clear();
    m_presence.jumpTo(m_band.on && !isFlatShelf(m_band));
}

void OuterBand::process(std::span<double> block)
{
    auto sample = block.begin();
    for (; sample != block.end() && m_presence.isMoving(); ++sample) {
        const double share = m_presence.next();
        *sample += share * (m_filter.cal(*sample) - *sample);
    }
    if (!isAbsent())
        m_filter.cal({sample, block.end()});
}

void OuterBand::lend(VEQ_Filter::Runner* runner) const
{
    if (!isAbsent())
        *runner = m_filter.runner();
}

void OuterBand::takeBack(const VEQ_Filter::Runner& runner)
{
    if (!isAbsent())
        m_filter.setDelay(runner);
}

void OuterBand::design(const Band& band, double sampleRate)
{
    if (m_side == Side::Low)
        BandDesign::designLow(m_filter, band.type, band.frequency, band.gain, sampleRate);
    else
        BandDesign::designHigh(m_filter, band.type, band.frequency, band.gain, sampleRate);
    m_designed = true;
}
