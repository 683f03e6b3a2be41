// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

/// A stretch of sound: every channel's samples one after the other, full scale 1.
class AudioBlock
{
public:
    /// A block's length for \a channels: long enough to make the work on a file cheap, short enough
    /// for the processor's cache and for a file of very many channels.
    static std::size_t goodLength(std::size_t channels)
    {
        constexpr std::size_t samples = 1U << 14;
        return std::clamp<std::size_t>(samples / std::max<std::size_t>(channels, 1), 256, 8192);
    }

    explicit AudioBlock(std::size_t channels)
        : AudioBlock(channels, goodLength(channels))
    {}
    AudioBlock(std::size_t channels, std::size_t capacity)
        : m_channels(channels)
        , m_capacity(capacity)
        , m_samples(channels * capacity)
    {}

    std::size_t channels() const { return m_channels; }
    std::size_t capacity() const { return m_capacity; }
    /// How many frames are in use, at most the capacity.
    std::size_t frames() const { return m_frames; }
    void setFrames(std::size_t frames) { m_frames = frames; }

    /// Takes the first \a count frames in use away, or all there are; how many that was.
    std::size_t dropFront(std::size_t count)
    {
        const std::size_t dropped = std::min(count, m_frames);
        for (std::size_t c = 0; c < m_channels && dropped > 0; ++c) {
            const std::span<double> samples = channel(c);
            std::copy(samples.begin() + static_cast<std::ptrdiff_t>(dropped), samples.end(),
                      samples.begin());
        }
        m_frames -= dropped;
        return dropped;
    }

    /// The samples of a channel that are in use.
    std::span<double> channel(std::size_t index)
    {
        return {m_samples.data() + index * m_capacity, m_frames};
    }
    std::span<const double> channel(std::size_t index) const
    {
        return {m_samples.data() + index * m_capacity, m_frames};
    }

private:
    std::size_t m_channels;
    std::size_t m_capacity;
    std::size_t m_frames = 0;
    std::vector<double> m_samples;
};
