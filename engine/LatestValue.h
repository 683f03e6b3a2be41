// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <atomic>

/// Hands the newest of many values from one writing thread to one reading thread. Neither ever
/// waits, allocates or locks: each has a slot of its own, and they trade it for the third.
template <typename T> class LatestValue
{
public:
    /// The writing thread's.
    void publish(const T& value)
    {
        m_slots[m_written] = value;
        m_written = m_spare.exchange(m_written | fresh, std::memory_order_acq_rel) & index;
    }

    /// The reading thread's: the newest value if one was published since the last call, else null.
    /// It stays as it is until the next call.
    const T* take()
    {
        if ((m_spare.load(std::memory_order_relaxed) & fresh) == 0)
            return nullptr;
        m_read = m_spare.exchange(m_read, std::memory_order_acq_rel) & index;
        return &m_slots[m_read];
    }

private:
    static constexpr unsigned int index = 3;
    static constexpr unsigned int fresh = 4;
    static_assert(std::atomic<unsigned int>::is_always_lock_free);

    std::array<T, 3> m_slots{};
    unsigned int m_written = 0;
    unsigned int m_read = 1;
    std::atomic<unsigned int> m_spare = 2;
};
