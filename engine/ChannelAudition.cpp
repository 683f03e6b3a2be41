// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ChannelAudition.h"

#include "engine/DenormalGuard.h"
#include "equalizer/Decibels.h"

#include <algorithm>

namespace {

ChannelValues withoutBand(ChannelValues values, int band)
{
    values[parameterIndex(band, EqualizerField::On)] = 0;
    return values;
}

// Both rounded as they would be played, so that a band that does nothing leaves nothing.
double difference(double with, double without)
{
    return with - double{static_cast<float>(without)};
}

} // namespace

void ChannelAudition::setSampleRate(double hertz)
{
    m_bypass.setSampleRate(hertz);
    m_bypass.addInput({}); // a choice that comes now fades in
    m_difference.setLength(rampSamples(hertz));
    m_without.setSampleRate(hertz);
    m_without.reset();
    m_weightedInput.setSampleRate(hertz);
    m_weightedOutput.setSampleRate(hertz);
}

void ChannelAudition::set(const Audition& audition)
{
    if (!isActive()) {
        m_weightedInput.clear();
        m_weightedOutput.clear();
        m_bypass.clear();
    }
    m_audition = audition;
    m_bypass.set(audition.bypassed);
}

bool ChannelAudition::isActive() const
{
    return m_audition.measured || m_audition.bypassed || isListening() || m_bypass.isUsed() ||
           !m_difference.isOut();
}

void ChannelAudition::takeInput(std::span<const float> block, const ChannelProcessor& equalizer)
{
    m_count = block.size();
    std::transform(block.begin(), block.end(), m_input.begin(), ChannelProcessor::heard);
    if (isListening() && m_difference.isOut())
        m_without = equalizer;
}

bool ChannelAudition::takeOutput(std::span<const float> block, const ChannelProcessor& equalizer)
{
    std::copy(block.begin(), block.end(), m_output.begin());
    m_bypass.setLate(equalizer.latency() > 0.0);
    m_bypass.addInput(std::span(m_input).first(m_count));
    if (isListening())
        m_band = m_audition.band;
    m_difference.moveTo(isListening());
    if (!m_difference.isOut())
        followSettings(equalizer);
    const bool changed = m_values != equalizer.values();
    m_values = equalizer.values();
    return changed;
}

MatchedEnergy ChannelAudition::energy()
{
    const DenormalGuard guard;
    return {m_weightedInput.energy(std::span(m_input).first(m_count)),
            m_weightedOutput.energy(std::span(m_output).first(m_count))};
}

void ChannelAudition::process(std::span<float> block, double gain)
{
    m_bypass.setGain(amplitudeRatio(gain));
    if (!m_bypass.isUsed() && m_difference.isOut())
        return;
    const std::span<double> heard = std::span(m_output).first(m_count);
    mixDifference(heard);
    std::transform(heard.begin(), heard.end(), block.begin(),
                   [](double sample) { return static_cast<float>(sample); });
}

void ChannelAudition::followSettings(const ChannelProcessor& equalizer)
{
    const ChannelValues values = withoutBand(equalizer.values(), m_band);
    if (m_without.values() != values)
        m_without.setValues(values);
}

void ChannelAudition::mixDifference(std::span<double> block)
{
    if (m_difference.isOut())
        return m_bypass.process(block);
    std::span<double> without = std::span(m_input).first(m_count);
    m_without.process(without);
    std::transform(block.begin(), block.end(), without.begin(), without.begin(), difference);
    m_bypass.process(block);
    for (std::size_t i = 0; i < block.size(); ++i) {
        if (m_difference.isMoving())
            block[i] += m_difference.next() * (without[i] - block[i]);
        else
            block[i] = m_difference.isOut() ? block[i] : without[i];
    }
}
