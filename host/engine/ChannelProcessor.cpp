// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/engine/ChannelProcessor.h"

#include "graph/filters/BandDesign.h"
#include "host/engine/BandChain.h"
#include "host/engine/DenormalGuard.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr std::size_t parametersPerBand = 4;
constexpr std::size_t inputLevel = 24;
constexpr std::size_t outputLevel = 25;
constexpr std::size_t drive = 26;

// Far beyond what the bands can make of the loudest signal.
constexpr double runaway = 1e30;

// Fewer bands are faster one after the other.
constexpr int fewestForChain = 3;

// Where a band's four parameters stand after its first: the type or the quality.
enum Field : std::size_t { TypeOrQuality, Frequency, Gain, OnOff };

constexpr std::size_t indexOf(std::size_t band, Field field)
{
    return band * parametersPerBand + field;
}

bool differ(const ChannelProcessor::Values& a, const ChannelProcessor::Values& b, std::size_t band)
{
    const auto first = static_cast<std::ptrdiff_t>(indexOf(band, TypeOrQuality));
    return !std::equal(a.begin() + first, a.begin() + first + std::ptrdiff_t{parametersPerBand},
                       b.begin() + first);
}

double ratioOf(double decibels) { return std::pow(10.0, decibels / 20.0); }

// False for what is no number, too.
bool isWithin(double sample, double limit) { return std::abs(sample) <= limit; }

} // namespace

ChannelProcessor::ChannelProcessor()
{
    std::transform(parameterTable.begin(), parameterTable.end(), m_values.begin(),
                   [](const Parameter& p) { return p.defaultValue; });
    takeOver(true);
}

void ChannelProcessor::setSampleRate(double hertz)
{
    if (m_sampleRate == hertz)
        return;
    m_sampleRate = hertz;
    takeOver(true);
    m_fresh = true;
}

void ChannelProcessor::setValues(const Values& values)
{
    const Values before = std::exchange(m_values, values);
    if (m_fresh && before != values)
        return takeOver(true);
    for (std::size_t band = 0; band < bandCount; ++band) {
        if (differ(values, before, band))
            takeOverBand(band, false);
    }
    const std::int64_t samples = rampSamples(m_sampleRate);
    m_input.moveTo(ratioOf(gainOf(inputLevel)), samples);
    m_output.moveTo(ratioOf(gainOf(outputLevel)), samples);
    m_drive.set(values[drive] != 0);
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
        sample = isWithin(sample, loudest) ? sample : 0.0;
    m_input.apply(block);
}

void ChannelProcessor::equalize(std::span<double> block)
{
    const DenormalGuard guard;
    m_fresh = false;
    runBands(block);
    const auto lost = std::find_if_not(block.begin(), block.end(),
                                       [](double sample) { return isWithin(sample, runaway); });
    if (lost != block.end()) {
        std::fill(lost, block.end(), 0.0);
        forgetBands();
    }
    m_drive.process(block);
    m_output.apply(block);
}

void ChannelProcessor::forget()
{
    takeOver(true);
    m_fresh = true;
}

void ChannelProcessor::takeOver(bool atOnce)
{
    for (std::size_t band = 0; band < bandCount; ++band)
        takeOverBand(band, atOnce);
    m_input.jumpTo(ratioOf(gainOf(inputLevel)));
    m_output.jumpTo(ratioOf(gainOf(outputLevel)));
    m_drive.setSampleRate(m_sampleRate);
    m_drive.set(m_values[drive] != 0);
    m_drive.forget();
}

void ChannelProcessor::takeOverBand(std::size_t band, bool atOnce)
{
    if (band == EqualizerBands::Low)
        m_low.set(bandOf(band), m_sampleRate, atOnce);
    else if (band == EqualizerBands::High)
        m_high.set(bandOf(band), m_sampleRate, atOnce);
    else
        m_middle[band - 1].set(bandOf(band), m_sampleRate, atOnce);
}

Band ChannelProcessor::bandOf(std::size_t band) const
{
    const std::size_t first = indexOf(band, TypeOrQuality);
    Band settings;
    settings.on = m_values[indexOf(band, OnOff)] != 0;
    settings.type = m_values[first];
    settings.quality = BandDesign::quality(position(first));
    settings.frequency = BandDesign::frequency(position(indexOf(band, Frequency)));
    settings.gain = gainOf(indexOf(band, Gain));
    return settings;
}

float ChannelProcessor::position(std::size_t parameter) const
{
    const Parameter& entry = parameterTable[parameter];
    return BandDesign::position(m_values[parameter], entry.minimum, entry.maximum);
}

double ChannelProcessor::gainOf(std::size_t parameter) const
{
    return BandDesign::gain(position(parameter));
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
    if (isSettled() && presentBands() >= fewestForChain)
        return runChain(block);
    m_low.process(block);
    for (PeakingBand& band : m_middle)
        band.process(block);
    m_high.process(block);
}

void ChannelProcessor::runChain(std::span<double> block)
{
    BandChain chain;
    m_low.lend(&chain.low);
    m_high.lend(&chain.high);
    for (std::size_t i = 0; i < m_middle.size(); ++i) {
        m_middle[i].lend(&chain.middle[i]);
        chain.cuts |= (m_middle[i].isCut() ? 1U : 0U) << i;
    }
    chain.process(block);
    m_low.takeBack(chain.low);
    m_high.takeBack(chain.high);
    for (std::size_t i = 0; i < m_middle.size(); ++i)
        m_middle[i].takeBack(chain.middle[i]);
}

void ChannelProcessor::forgetBands()
{
    m_low.forget();
    m_high.forget();
    for (PeakingBand& band : m_middle)
        band.forget();
}
