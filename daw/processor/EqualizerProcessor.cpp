// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/processor/EqualizerProcessor.h"

#include "daw/processor/SignalBlock.h"

#include <algorithm>

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
        for (std::size_t i = 0; i < m_channelCount; ++i) {
            const Sample* const input = i < inputs.size() ? inputs[i] : nullptr;
            read(input ? input + done : nullptr, &m_channels[i], count);
        }
        equalize(count);
        for (std::size_t i = 0; i < std::max(m_channelCount, outputs.size()); ++i) {
            Sample* const output = i < outputs.size() ? outputs[i] : nullptr;
            if (i < m_channelCount)
                write(&m_channels[i], output ? output + done : nullptr, count);
            else if (output)
                std::fill_n(output + done, count, Sample{});
        }
    }
    updateMeters(frames);
}

template <typename Sample>
void EqualizerProcessor::read(const Sample* from, Channel* channel, std::size_t count)
{
    const std::span<double> part = channel->first(count);
    double peak = 0.0;
    if (from)
        peak = readSignal(from, part);
    else
        std::fill(part.begin(), part.end(), 0.0);
    channel->bypass.addInput(part);
    peak = channel->equalizer.applyInputLevel(part, peak);
    channel->inputPeak = std::max(channel->inputPeak, peak);
}

template <typename Sample>
void EqualizerProcessor::write(Channel* channel, Sample* to, std::size_t count)
{
    const std::span<double> part = channel->first(count);
    channel->bypass.process(part);
    const double peak = to ? writeSignal(part, to) : peakOfSignal(part);
    channel->outputPeak = std::max(channel->outputPeak, peak);
}

void EqualizerProcessor::equalize(std::size_t count)
{
    Channel& left = m_channels[0];
    if (isTransparent()) {
        for (Channel& channel : channels())
            channel.equalizer.passBy(channel.first(count));
        return;
    }
    if (m_channelCount == 1)
        return left.equalizer.equalize(left.first(count));
    Channel& right = m_channels[1];
    ChannelProcessor::equalizePair(&left.equalizer, &right.equalizer, left.first(count),
                                   right.first(count));
}

bool EqualizerProcessor::isTransparent() const
{
    return std::all_of(m_channels.begin(), m_channels.begin() + m_channelCount,
                       [](const Channel& channel) { return channel.equalizer.isTransparent(); });
}

void EqualizerProcessor::updateMeters(std::size_t frames)
{
    const double seconds = static_cast<double>(frames) / m_sampleRate;
    for (Channel& channel : channels()) {
        channel.meters.take(channel.inputPeak, channel.outputPeak, seconds);
        channel.inputPeak = channel.outputPeak = 0.0;
    }
}
