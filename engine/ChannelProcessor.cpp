// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ChannelProcessor.h"

#include "engine/ChannelMeters.h"
#include "engine/DenormalGuard.h"
#include "engine/Steady.h"
#include "equalizer/Decibels.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

bool isZero(double sample) { return sample == 0.0; }

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
        sample = heard(sample);
    m_input.apply(block);
}

// Multiplied by a factor that stays, the largest sample is still the largest.
double ChannelProcessor::applyInputLevel(std::span<double> block, double peak)
{
    m_fresh = false;
    if (m_input.isOne())
        return peak;
    const DenormalGuard guard;
    const bool moves = m_input.isMoving();
    m_input.apply(block);
    return moves ? peakOf(block) : peak * m_input.value();
}

void ChannelProcessor::equalize(std::span<double> block)
{
    const DenormalGuard guard;
    for (std::size_t done = 0; done < block.size(); done += silenceLength)
        runBands(block.subspan(done, std::min(silenceLength, block.size() - done)));
    finish(block);
}

bool ChannelProcessor::isTransparent() const
{
    return m_drive.isOff() && m_output.isOne() && presentBands() == 0 && isSettled();
}

void ChannelProcessor::passBy(std::span<const double> block)
{
    m_fresh = false;
    countZeros(block);
    m_zeros %= silenceLength;
}

void ChannelProcessor::processPair(ChannelProcessor* left, ChannelProcessor* right,
                                   std::span<double> leftBlock, std::span<double> rightBlock)
{
    left->applyInput(leftBlock);
    right->applyInput(rightBlock);
    equalizePair(left, right, leftBlock, rightBlock);
}

void ChannelProcessor::equalizePair(ChannelProcessor* left, ChannelProcessor* right,
                                    std::span<double> leftBlock, std::span<double> rightBlock)
{
    const DenormalGuard guard;
    for (std::size_t done = 0; done < leftBlock.size(); done += silenceLength) {
        const std::size_t count = std::min(silenceLength, leftBlock.size() - done);
        runBandsOfPair(left, right, leftBlock.subspan(done, count),
                       rightBlock.subspan(done, count));
    }
    left->finish(leftBlock);
    right->finish(rightBlock);
}

void ChannelProcessor::reset()
{
    apply(true);
    m_fresh = true;
}

void ChannelProcessor::apply(bool atOnce)
{
    if (atOnce)
        m_zeros = 0;
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

// Of at most silenceLength samples.
void ChannelProcessor::runBands(std::span<double> block)
{
    if (!reachesSilence(block)) {
        countZeros(block);
        return runPart(block);
    }
    const std::size_t missing = silenceLength - m_zeros;
    runPart(block.first(missing));
    clearFaintBands();
    m_zeros = 0;
    countZeros(block.subspan(missing));
    runPart(block.subspan(missing));
}

void ChannelProcessor::runBandsOfPair(ChannelProcessor* left, ChannelProcessor* right,
                                      std::span<double> leftBlock, std::span<double> rightBlock)
{
    const bool alike = left->isChained() && right->isChained() && left->cuts() == right->cuts();
    if (!alike || left->wantsOwnPath(leftBlock) || right->wantsOwnPath(rightBlock)) {
        left->runBands(leftBlock);
        return right->runBands(rightBlock);
    }
    left->countZeros(leftBlock);
    right->countZeros(rightBlock);
    BandChain first = left->chain();
    BandChain second = right->chain();
    BandChain::processPair(&first, &second, leftBlock, rightBlock);
    left->restore(first);
    right->restore(second);
}

void ChannelProcessor::runPart(std::span<double> block)
{
    const bool settled = isSettled();
    if (settled && isSteady(block))
        runSteady(block);
    else if (settled && presentBands() >= minBandsForChain)
        runChain(block);
    else
        runEach(block);
}

// Where one sample leaves the bands as they were, the same sample again has the same answer.
void ChannelProcessor::runSteady(std::span<double> block)
{
    const BandChain before = chain();
    runPart(block.first(1));
    if (chain().isSameAs(before))
        std::fill(block.begin() + 1, block.end(), block.front());
    else if (isChained())
        runChain(block.subspan(1));
    else
        runEach(block.subspan(1));
}

void ChannelProcessor::runChain(std::span<double> block)
{
    BandChain bands = chain();
    bands.process(block);
    restore(bands);
}

void ChannelProcessor::runEach(std::span<double> block)
{
    m_low.process(block);
    for (PeakingBand& band : m_middle)
        band.process(block);
    m_high.process(block);
}

bool ChannelProcessor::wantsOwnPath(std::span<const double> block) const
{
    return isSteady(block) || reachesSilence(block);
}

bool ChannelProcessor::reachesSilence(std::span<const double> block) const
{
    const std::size_t missing = silenceLength - m_zeros;
    return block.size() >= missing && !block.empty() &&
           std::all_of(block.begin(), block.begin() + static_cast<std::ptrdiff_t>(missing), isZero);
}

void ChannelProcessor::countZeros(std::span<const double> block)
{
    const auto sound = std::find_if_not(block.rbegin(), block.rend(), isZero);
    const auto zeros = static_cast<std::size_t>(sound - block.rbegin());
    m_zeros = sound == block.rend() ? m_zeros + zeros : zeros;
}

void ChannelProcessor::clearFaintBands()
{
    if (!isSettled())
        return;
    BandChain bands = chain();
    if (bands.isFaint()) {
        bands.clear();
        restore(bands);
    }
}

void ChannelProcessor::finish(std::span<double> block)
{
    m_fresh = false;
    m_drive.process(block);
    m_output.apply(block);
}

unsigned int ChannelProcessor::cuts() const
{
    unsigned int cuts = 0;
    for (std::size_t i = 0; i < m_middle.size(); ++i)
        cuts |= (m_middle[i].isCut() ? 1U : 0U) << i;
    return cuts;
}

BandChain ChannelProcessor::chain() const
{
    BandChain chain;
    m_low.saveState(&chain.bands.low);
    m_high.saveState(&chain.bands.high);
    for (std::size_t i = 0; i < m_middle.size(); ++i)
        m_middle[i].saveState(&chain.bands.middle[i]);
    chain.cuts = cuts();
    return chain;
}

void ChannelProcessor::restore(const BandChain& chain)
{
    m_low.restoreState(chain.bands.low);
    m_high.restoreState(chain.bands.high);
    for (std::size_t i = 0; i < m_middle.size(); ++i)
        m_middle[i].restoreState(chain.bands.middle[i]);
}
