// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/SignalTap.h"

#include <algorithm>

void SignalTap::listen()
{
    if (m_listeners++ > 0)
        return;
    if (!m_samples)
        m_samples = std::make_unique<Samples>();
    m_first = m_written.load(std::memory_order_acquire);
    m_wanted.store(true, std::memory_order_release);
}

void SignalTap::ignore()
{
    if (--m_listeners == 0)
        m_wanted.store(false, std::memory_order_relaxed);
}

// A sample that has been overwritten brings the count of its writer along: there is no need for a
// fence.
bool SignalTap::read(std::span<float> before, std::span<float> after) const
{
    const std::uint64_t end = m_written.load(std::memory_order_acquire);
    const std::size_t frames = before.size();
    if (!m_samples || frames > capacity / 2 || end - m_first < frames)
        return false;
    const std::uint64_t start = end - frames;
    for (std::size_t i = 0; i < frames; ++i) {
        const std::size_t place = (start + i) & mask;
        before[i] = m_samples->before[place].load(std::memory_order_acquire);
        after[i] = m_samples->after[place].load(std::memory_order_acquire);
    }
    return m_begun.load(std::memory_order_relaxed) <= start + capacity;
}

bool SignalTap::begin(std::size_t frames) noexcept
{
    m_writing = m_wanted.load(std::memory_order_acquire);
    if (m_writing)
        m_begun.store(m_written.load(std::memory_order_relaxed) + frames,
                      std::memory_order_relaxed);
    return m_writing;
}

void SignalTap::writeBefore(std::span<const double> block) noexcept
{
    if (!begin(block.size()))
        return;
    const std::uint64_t start = m_written.load(std::memory_order_relaxed);
    for (std::size_t i = 0; i < block.size(); ++i)
        m_samples->before[(start + i) & mask].store(static_cast<float>(block[i]),
                                                    std::memory_order_release);
}

void SignalTap::writeAfter(std::span<const double> block) noexcept
{
    if (!m_writing)
        return;
    const std::uint64_t start = m_written.load(std::memory_order_relaxed);
    for (std::size_t i = 0; i < block.size(); ++i)
        m_samples->after[(start + i) & mask].store(static_cast<float>(block[i]),
                                                   std::memory_order_release);
    m_written.store(start + block.size(), std::memory_order_release);
}

void SignalTap::writeSilence(std::size_t frames) noexcept
{
    if (!begin(frames))
        return;
    const std::uint64_t start = m_written.load(std::memory_order_relaxed);
    for (std::size_t i = 0; i < frames; ++i) {
        m_samples->before[(start + i) & mask].store(0.0F, std::memory_order_release);
        m_samples->after[(start + i) & mask].store(0.0F, std::memory_order_release);
    }
    m_written.store(start + frames, std::memory_order_release);
}
