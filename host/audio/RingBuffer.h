// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <atomic>
#include <bit>
#include <cstddef>
#include <span>
#include <vector>

/// Samples on their way from one thread that writes to one that reads. Neither waits for the other:
/// nothing locks, and nothing but the constructor allocates.
class RingBuffer
{
public:
    /// Room for \a capacity samples at least.
    explicit RingBuffer(std::size_t capacity)
        : m_samples(std::bit_ceil(std::max<std::size_t>(capacity, 2)))
    {}

    std::size_t capacity() const { return m_samples.size(); }

    std::size_t readable() const
    {
        return m_written.load(std::memory_order_acquire) - m_read.load(std::memory_order_acquire);
    }
    std::size_t writable() const { return capacity() - readable(); }

    /// The writer's: appends as many as there is room for, and says how many.
    std::size_t write(std::span<const float> samples)
    {
        const std::size_t start = m_written.load(std::memory_order_relaxed);
        const std::size_t count = std::min(samples.size(), writable());
        for (std::size_t i = 0; i < count; ++i)
            m_samples[(start + i) & mask()] = samples[i];
        m_written.store(start + count, std::memory_order_release);
        return count;
    }

    /// The reader's: takes as many as there are, and says how many.
    std::size_t read(std::span<float> samples)
    {
        const std::size_t start = m_read.load(std::memory_order_relaxed);
        const std::size_t count = std::min(samples.size(), readable());
        for (std::size_t i = 0; i < count; ++i)
            samples[i] = m_samples[(start + i) & mask()];
        m_read.store(start + count, std::memory_order_release);
        return count;
    }

private:
    std::size_t mask() const { return m_samples.size() - 1; }

    std::vector<float> m_samples;
    // Counts that only grow; each on a cache line of its own, because two processors write them.
    alignas(64) std::atomic<std::size_t> m_written = 0;
    alignas(64) std::atomic<std::size_t> m_read = 0;
};
