// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ChannelProcessor.h"

#include "engine/BandChain.h"
#include "engine/DenormalGuard.h"
#include "equalizer/Decibels.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

// Fewer bands are faster one after the other.
constexpr int minBandsForChain = 3;

// False for NaN, too.
bool isSignal(double sample) { return std::abs(sample) <= ChannelProcessor::loudest; }

} // namespace

ChannelProcessor::ChannelProcessor()
    : m_values(defaultValues())
{
    apply(true);
}

void ChannelProcessor::setSampleRate(double hertz)
{
    if (m_sampleRate == hertz)
        return;
    m_sampleRate = hertz;
    apply(true);
    m_fresh = true;
}

void ChannelProcessor::setValues(const Values& values)
{
    const Values before = std::exchange(m_values, values);
    if (m_fresh && before != values)
        return apply(true);
    for (int band = 0; band < EqualizerBands::Count; ++band) {
        if (!isSameBand(values, before, band))
            applyBand(band, false);
    }
    const std::int64_t samples = rampSamples(m_sampleRate);
    m_input.moveTo(amplitudeRatio(inputLevelOf(m_values)), samples);
    m_output.moveTo(amplitudeRatio(outputLevelOf(m_values)), samples);
    m_drive.set(isDriven(m_values));
}

void ChannelProcessor::process(std::span<double> block)
{
    applyInput(block);
    equalize(block);
}

void ChannelProcessor::applyInput(std::span<double> block)
{
    const DenormalGuard guard;
    m_fresh = false;
    for (double& sample : block)
        sample = isSignal(sample) ? sample : 0.0;
    m_input.apply(block);
}

void ChannelProcessor::equalize(std::span<double> block)
{
    const DenormalGuard guard;
    m_fresh = false;
    runBands(block);
    m_drive.process(block);
    m_output.apply(block);
}

void ChannelProcessor::reset()
{
    apply(true);
    m_fresh = true;
}

void ChannelProcessor::apply(bool atOnce)
{
    for (int band = 0; band < EqualizerBands::Count; ++band)
        applyBand(band, atOnce);
    m_input.jumpTo(amplitudeRatio(inputLevelOf(m_values)));
    m_output.jumpTo(amplitudeRatio(outputLevelOf(m_values)));
    m_drive.setSampleRate(m_sampleRate);
    m_drive.set(isDriven(m_values));
    m_drive.reset();
}

void ChannelProcessor::applyBand(int band, bool atOnce)
{
    const Band settings = bandOf(m_values, band);
    if (band == EqualizerBands::Low)
        m_low.set(settings, m_sampleRate, atOnce);
    else if (band == EqualizerBands::High)
        m_high.set(settings, m_sampleRate, atOnce);
    else
        m_middle[static_cast<std::size_t>(band - 1)].set(settings, m_sampleRate, atOnce);
}

bool ChannelProcessor::isSettled() const
{
    return m_low.isSettled() && m_high.isSettled() &&
           std::all_of(m_middle.begin(), m_middle.end(),
                       [](const PeakingBand& band) { return band.isSettled(); });
}

int ChannelProcessor::presentBands() const
{
    int count = (m_low.isAbsent() ? 0 : 1) + (m_high.isAbsent() ? 0 : 1);
    for (const PeakingBand& band : m_middle)
        count += band.isAbsent() ? 0 : 1;
    return count;
}

void ChannelProcessor::runBands(std::span<double> block)
{
    if (isSettled() && presentBands() >= minBandsForChain)
        return runChain(block);
    m_low.process(block);
    for (PeakingBand& band : m_middle)
        band.process(block);
    m_high.process(block);
}

void ChannelProcessor::runChain(std::span<double> block)
{
    BandChain chain;
    m_low.saveState(&chain.low);
    m_high.saveState(&chain.high);
    for (std::size_t i = 0; i < m_middle.size(); ++i) {
        m_middle[i].saveState(&chain.middle[i]);
        chain.cuts |= (m_middle[i].isCut() ? 1U : 0U) << i;
    }
    chain.process(block);
    m_low.restoreState(chain.low);
    m_high.restoreState(chain.high);
    for (std::size_t i = 0; i < m_middle.size(); ++i)
        m_middle[i].restoreState(chain.middle[i]);
}
