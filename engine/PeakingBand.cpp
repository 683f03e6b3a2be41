// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/PeakingBand.h"

#include "equalizer/BandDesign.h"
#include "equalizer/Decibels.h"

#include <cmath>

namespace {

constexpr double octave = 2.0;

double gainOf(const Band& band) { return band.on ? band.gain : 0.0; }

double run(FILTER2PEQ::Runner* filter, double ratio, double sample)
{
    const bool boost = ratio >= 1.0;
    filter->setGainFactor(boost ? ratio - 1.0 : 1.0 / ratio - 1.0);
    return boost ? filter->boost(sample) : filter->cut(sample);
}

bool areNear(double f, double g) { return f < octave * g && g < octave * f; }

} // namespace

void PeakingBand::set(const Band& band, double sampleRate, bool atOnce)
{
    const bool moved = band.frequency != m_band.frequency || band.quality != m_band.quality;
    m_band = band;
    m_gainFactor = amplitudeRatio(std::abs(gainOf(band))) - 1.0;
    if (atOnce) {
        m_sampleRate = sampleRate;
        m_fade.setLength(rampSamples(sampleRate));
        return reset();
    }
    if (isAbsent() && isSettled())
        designFromSilence();
    else if (moved)
        m_waiting = true;
    m_gain.moveTo(amplitudeRatio(gainOf(band)), rampSamples(m_sampleRate));
}

void PeakingBand::reset()
{
    m_fade.jumpTo(true);
    m_gain.jumpTo(amplitudeRatio(gainOf(m_band)));
    designFromSilence();
}

void PeakingBand::process(std::span<double> block)
{
    while (!block.empty() && !isSettled())
        block = processChange(block);
    if (isAbsent() || block.empty())
        return;
    if (isCut())
        filter().cut(block, m_gainFactor);
    else
        filter().boost(block, m_gainFactor);
}

void PeakingBand::saveState(FILTER2PEQ::Runner* runner) const
{
    if (!isAbsent())
        *runner = m_filters[m_used].runner(m_gainFactor);
}

void PeakingBand::restoreState(const FILTER2PEQ::Runner& runner)
{
    if (!isAbsent())
        filter().setDelay(runner);
}

void PeakingBand::design(FILTER2PEQ& filter)
{
    BandDesign::designMiddle(filter, m_band.frequency, m_band.quality, m_band.gain, m_sampleRate);
    m_designedFrequency = m_band.frequency;
    m_waiting = false;
}

void PeakingBand::designFromSilence()
{
    design(filter());
    filter().clearDelay();
}

void PeakingBand::startFade()
{
    const bool near = areNear(m_designedFrequency, m_band.frequency);
    m_used = 1 - m_used;
    design(filter());
    if (near)
        filter().setDelayByCopy(&fadedFilter());
    else
        filter().clearDelay();
    m_fade.jumpTo(false);
    m_fade.moveTo(true);
}

// Processes up to the end of the changes or to where a waiting design can start, and returns what
// is left.
std::span<double> PeakingBand::processChange(std::span<double> block)
{
    if (m_waiting && !m_fade.isMoving())
        startFade();
    FILTER2PEQ::Runner used = filter().runner(0.0);
    FILTER2PEQ::Runner faded = fadedFilter().runner(0.0);
    std::size_t count = 0;
    while (count < block.size() && (m_fade.isMoving() || (m_gain.isMoving() && !m_waiting))) {
        block[count] = next(block[count], &used, &faded);
        ++count;
    }
    filter().setDelay(used);
    fadedFilter().setDelay(faded);
    return block.subspan(count);
}

double PeakingBand::next(double sample, FILTER2PEQ::Runner* used, FILTER2PEQ::Runner* faded)
{
    const double ratio = m_gain.next();
    const double result = run(used, ratio, sample);
    if (!m_fade.isMoving())
        return result;
    const double before = run(faded, ratio, sample);
    return before + m_fade.next() * (result - before);
}
