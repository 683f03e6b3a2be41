// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/AudioEngine.h"

#include <algorithm>

namespace {

// Parts stay in the fastest cache from the first stage to the last.
constexpr std::size_t maxPart = 256;

} // namespace

void AudioEngine::setSampleRate(double hertz)
{
    m_sampleRate = hertz;
    for (Channel& channel : m_channels)
        channel.processor.setSampleRate(hertz);
}

void AudioEngine::reset()
{
    for (Channel& channel : m_channels) {
        channel.processor.reset();
        channel.meters = {};
        channel.levels.store(packed({}), std::memory_order_relaxed);
    }
}

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

MeterLevels AudioEngine::levels(int channel) const
{
    const std::uint32_t both = at(channel).levels.load(std::memory_order_relaxed);
    return {static_cast<std::int16_t>(both >> 16), static_cast<std::int16_t>(both & 0xFFFF)};
}

// Both levels change together.
std::uint32_t AudioEngine::packed(const MeterLevels& levels)
{
    const auto word = [](int level) { return std::uint32_t{static_cast<std::uint16_t>(level)}; };
    return word(levels.send) << 16 | word(levels.returned);
}

template <typename Sample>
void AudioEngine::processAll(std::span<Sample* const> channels, std::size_t frames) noexcept
{
    const double seconds = static_cast<double>(frames) / m_sampleRate;
    for (std::size_t i = 0; i < m_channels.size(); ++i) {
        Channel& channel = m_channels[i];
        if (const Values* values = channel.settings.take())
            channel.processor.setValues(*values);
        Peaks peaks;
        Sample* samples = i < channels.size() ? channels[i] : nullptr;
        for (std::size_t done = 0; samples && done < frames; done += maxPart) {
            const std::size_t count = std::min(maxPart, frames - done);
            const Peaks part = processPart(&channel, {samples + done, count});
            peaks.send = std::max(peaks.send, part.send);
            peaks.returned = std::max(peaks.returned, part.returned);
        }
        if (!samples)
            channel.tap.writeSilence(frames);
        channel.meters.take(peaks.send, peaks.returned, seconds);
        channel.levels.store(packed(channel.meters.levels()), std::memory_order_relaxed);
    }
    m_blocks.fetch_add(1, std::memory_order_relaxed);
}

AudioEngine::Peaks AudioEngine::processPart(Channel* channel, std::span<double> block)
{
    channel->processor.applyInput(block);
    const double send = peakOf(block);
    channel->tap.writeBefore(block);
    channel->processor.equalize(block);
    channel->tap.writeAfter(block);
    return {send, peakOf(block)};
}

AudioEngine::Peaks AudioEngine::processPart(Channel* channel, std::span<float> block)
{
    std::array<double, maxPart> samples;
    const std::span<double> part(samples.data(), block.size());
    std::copy(block.begin(), block.end(), part.begin());
    const Peaks peaks = processPart(channel, part);
    std::transform(part.begin(), part.end(), block.begin(),
                   [](double sample) { return static_cast<float>(sample); });
    return peaks;
}
