// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/AudioEngine.h"

#include <algorithm>

namespace {

// Parts stay in the fastest cache from the first stage to the last.
constexpr std::size_t maxPart = 256;
using Buffer = std::array<double, maxPart>;

std::span<double> widened(std::span<double> block, Buffer*) { return block; }

std::span<double> widened(std::span<float> block, Buffer* buffer)
{
    std::copy(block.begin(), block.end(), buffer->begin());
    return std::span(*buffer).first(block.size());
}

void narrow(std::span<const double>, std::span<double>) {}

void narrow(std::span<const double> part, std::span<float> block)
{
    std::transform(part.begin(), part.end(), block.begin(),
                   [](double sample) { return static_cast<float>(sample); });
}

} // namespace

void AudioEngine::setSampleRate(double hertz)
{
    m_sampleRate = hertz;
    for (Channel& channel : m_channels)
        channel.processor.setSampleRate(hertz);
}

void AudioEngine::reset()
{
    for (Channel& channel : m_channels)
        channel.reset();
}

void AudioEngine::reset(int channel) noexcept { at(channel).reset(); }

void AudioEngine::publish(int channel, const Values& values)
{
    at(channel).settings.publish(values);
}

void AudioEngine::process(std::span<double* const> channels, std::size_t frames) noexcept
{
    processAll(channels, frames);
}

void AudioEngine::process(std::span<float* const> channels, std::size_t frames) noexcept
{
    processAll(channels, frames);
}

template <typename Sample>
void AudioEngine::processAll(std::span<Sample* const> channels, std::size_t frames) noexcept
{
    const std::span<Channel> all(m_channels);
    const std::span<Channel> running =
        all.first(std::min(all.size(), channels.size() + channels.size() % 2));
    for (Channel& channel : running) {
        if (const Values* values = channel.settings.take())
            channel.processor.setValues(*values);
        channel.peaks = {};
    }
    const auto samplesOf = [channels](std::size_t i) {
        return i < channels.size() ? channels[i] : nullptr;
    };
    for (std::size_t i = 0; i < running.size(); i += 2)
        processBoth(&running[i], samplesOf(i), samplesOf(i + 1), frames);
    const double seconds = static_cast<double>(frames) / m_sampleRate;
    for (std::size_t i = 0; i < running.size(); ++i) {
        Channel& channel = running[i];
        if (!samplesOf(i))
            channel.tap.writeSilence(frames);
        channel.meters.take(channel.peaks.send, channel.peaks.returned, seconds);
        channel.levels.set(channel.meters.levels());
    }
    m_blocks.fetch_add(1, std::memory_order_relaxed);
}

// Of two neighbours, which are the two sides of a stereo strip, if there is one.
template <typename Sample>
void AudioEngine::processBoth(Channel* first, Sample* left, Sample* right, std::size_t frames)
{
    for (std::size_t done = 0; done < frames; done += maxPart) {
        const std::size_t count = std::min(maxPart, frames - done);
        if (left && right)
            processPair<Sample>(first, {left + done, count}, {right + done, count});
        else if (left)
            processOne<Sample>(first, {left + done, count});
        else if (right)
            processOne<Sample>(first + 1, {right + done, count});
    }
}

template <typename Sample>
void AudioEngine::processPair(Channel* first, std::span<Sample> left, std::span<Sample> right)
{
    Channel* const second = first + 1;
    Buffer leftBuffer;
    Buffer rightBuffer;
    const std::span<double> leftPart = widened(left, &leftBuffer);
    const std::span<double> rightPart = widened(right, &rightBuffer);
    first->takeInput(leftPart);
    second->takeInput(rightPart);
    ChannelProcessor::equalizePair(&first->processor, &second->processor, leftPart, rightPart);
    first->takeOutput(leftPart);
    second->takeOutput(rightPart);
    narrow(leftPart, left);
    narrow(rightPart, right);
}

template <typename Sample> void AudioEngine::processOne(Channel* channel, std::span<Sample> block)
{
    Buffer buffer;
    const std::span<double> part = widened(block, &buffer);
    channel->takeInput(part);
    channel->processor.equalize(part);
    channel->takeOutput(part);
    narrow(part, block);
}

void AudioEngine::Channel::reset()
{
    processor.reset();
    meters = {};
    levels.set({});
}

void AudioEngine::Channel::takeInput(std::span<double> block)
{
    processor.applyInput(block);
    peaks.send = std::max(peaks.send, peakOf(block));
    tap.writeBefore(block);
}

void AudioEngine::Channel::takeOutput(std::span<const double> block)
{
    peaks.returned = std::max(peaks.returned, peakOf(block));
    tap.writeAfter(block);
}
