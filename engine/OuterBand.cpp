// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/OuterBand.h"

#include "equalizer/BandDesign.h"

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
    const bool redesigned = !isSameDesign(band, m_band);
    m_band = band;
    if (atOnce) {
        m_sampleRate = sampleRate;
        m_filter.SetSampleRate(sampleRate);
        m_presence.setLength(rampSamples(sampleRate));
        return reset();
    }
    if (isAbsent())
        startFromSilence();
    else if (redesigned && isWanted())
        m_waiting = true;
    m_presence.moveTo(isWanted());
}

void OuterBand::reset()
{
    startFromSilence();
    m_presence.jumpTo(isWanted());
}

void OuterBand::process(std::span<double> block)
{
    auto sample = block.begin();
    for (; sample != block.end() && !isSettled(); ++sample)
        *sample = next(*sample);
    if (!isAbsent())
        m_filter.cal({sample, block.end()});
}

bool OuterBand::isSettled() const
{
    if (m_presence.isMoving())
        return false;
    return isAbsent() || (!m_waiting && m_listening == 0 && m_filter.isSettled());
}

void OuterBand::saveState(VEQ_Filter::Runner* runner) const
{
    if (!isAbsent())
        *runner = m_filter.runner();
}

void OuterBand::restoreState(const VEQ_Filter::Runner& runner)
{
    if (!isAbsent())
        m_filter.setDelay(runner);
}

bool OuterBand::isWanted() const
{
    return m_band.on && !isFlatShelf(m_band) && 2.0 * m_band.frequency < m_sampleRate;
}

void OuterBand::design(VEQ_Filter* filter) const
{
    const auto design = m_side == Side::Low ? BandDesign::designLow : BandDesign::designHigh;
    design(*filter, m_band.type, m_band.frequency, m_band.gain, m_sampleRate);
}

void OuterBand::startFromSilence()
{
    design(&m_filter);
    m_filter.clear();
    m_listening = 0;
    m_waiting = false;
}

double OuterBand::next(double sample)
{
    if (m_waiting && m_listening == 0 && m_filter.isSettled()) {
        design(&m_listener);
        m_listener.clear();
        m_listening = rampSamples(m_sampleRate);
        m_waiting = false;
    }
    const double result = m_filter.cal(sample);
    listen(sample);
    return m_presence.isMoving() ? sample + m_presence.next() * (result - sample) : result;
}

void OuterBand::listen(double sample)
{
    if (m_listening == 0)
        return;
    m_listener.cal(sample);
    if (--m_listening > 0)
        return;
    const VEQ_Filter::Runner heard = m_listener.runner();
    m_filter.setCoefByCopy(&m_listener);
    m_filter.ChangeCoef();
    m_filter.setDelay(heard);
}
