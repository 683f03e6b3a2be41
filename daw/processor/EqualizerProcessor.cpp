// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/processor/EqualizerProcessor.h"

#include "daw/processor/SignalPeak.h"

#include <algorithm>

namespace {

template <typename Sample>
void copyPart(const Sample* from, std::size_t first, std::span<double> part)
{
    if (from)
        std::copy_n(from + first, part.size(), part.begin());
    else
        std::fill(part.begin(), part.end(), 0.0);
}

template <typename Sample>
void writePart(std::span<const double> part, Sample* to, std::size_t first)
{
    if (to)
        std::transform(part.begin(), part.end(), to + first,
                       [](double sample) { return static_cast<Sample>(sample); });
}

} // namespace

EqualizerProcessor::EqualizerProcessor(std::size_t channels)
    : m_channelCount(channels)
{
    setSampleRate(m_sampleRate);
}

void EqualizerProcessor::setChannelCount(std::size_t channels)
{
    m_channelCount = channels;
    reset();
}

void EqualizerProcessor::setSampleRate(double hertz)
{
    m_sampleRate = hertz;
    for (Channel& channel : m_channels) {
        channel.equalizer.setSampleRate(hertz);
        channel.bypass.setSampleRate(hertz);
    }
    reset();
}

void EqualizerProcessor::reset()
{
    for (Channel& channel : m_channels) {
        channel.equalizer.setValues(m_values);
        channel.equalizer.reset();
        channel.bypass.reset();
        channel.meters = {};
    }
    setBypassed(m_isBypassed);
    setValues(m_values);
}

void EqualizerProcessor::setValues(const Values& values)
{
    m_values = values;
    for (Channel& channel : channels()) {
        channel.equalizer.setValues(values);
        channel.bypass.setLate(latency() > 0);
    }
}

void EqualizerProcessor::setBypassed(bool bypassed)
{
    m_isBypassed = bypassed;
    for (Channel& channel : channels())
        channel.bypass.set(bypassed);
}

void EqualizerProcessor::process(std::span<const float* const> inputs,
                                 std::span<float* const> outputs, std::size_t frames) noexcept
{
    processBlock(inputs, outputs, frames);
}

void EqualizerProcessor::process(std::span<const double* const> inputs,
                                 std::span<double* const> outputs, std::size_t frames) noexcept
{
    processBlock(inputs, outputs, frames);
}

// A part of every channel is read before any is written.
template <typename Sample>
void EqualizerProcessor::processBlock(std::span<const Sample* const> inputs,
                                      std::span<Sample* const> outputs, std::size_t frames) noexcept
{
    for (std::size_t done = 0; done < frames; done += maxPart) {
        const std::size_t count = std::min(maxPart, frames - done);
        for (std::size_t i = 0; i < m_channelCount; ++i)
            copyPart(i < inputs.size() ? inputs[i] : nullptr, done, m_channels[i].first(count));
        processPart(count);
        for (std::size_t i = 0; i < outputs.size(); ++i) {
            if (i < m_channelCount)
                writePart<Sample>(m_channels[i].first(count), outputs[i], done);
            else if (outputs[i])
                std::fill_n(outputs[i] + done, count, Sample{});
        }
    }
    updateMeters(frames);
}

void EqualizerProcessor::processPart(std::size_t count)
{
    for (Channel& channel : channels()) {
        const std::span<double> part = channel.first(count);
        channel.bypass.addInput(part);
        channel.equalizer.applyInput(part);
        channel.inputPeak = std::max(channel.inputPeak, peakOfSignal(part));
    }
    equalize(count);
    for (Channel& channel : channels()) {
        const std::span<double> part = channel.first(count);
        channel.bypass.process(part);
        channel.outputPeak = std::max(channel.outputPeak, peakOfSignal(part));
    }
}

void EqualizerProcessor::equalize(std::size_t count)
{
    Channel& left = m_channels[0];
    if (m_channelCount == 1)
        return left.equalizer.equalize(left.first(count));
    Channel& right = m_channels[1];
    ChannelProcessor::equalizePair(&left.equalizer, &right.equalizer, left.first(count),
                                   right.first(count));
}

void EqualizerProcessor::updateMeters(std::size_t frames)
{
    const double seconds = static_cast<double>(frames) / m_sampleRate;
    for (Channel& channel : channels()) {
        channel.meters.take(channel.inputPeak, channel.outputPeak, seconds);
        channel.inputPeak = channel.outputPeak = 0.0;
    }
}
