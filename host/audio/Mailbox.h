// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <atomic>
#include <cstddef>

/// The newest of the values that one thread posts, for another thread to take. Neither waits for
/// the other: nothing locks or allocates, and older values that nobody took are forgotten.
template <typename Value> class Mailbox
{
public:
    /// The poster's.
    void post(const Value& value)
    {
        m_slots[m_writing] = value;
        m_writing = m_between.exchange(m_writing | fresh, std::memory_order_acq_rel) & index;
    }

    /// The taker's: whether there is a value that it has not taken yet; \a value then is it.
    bool take(Value* value)
    {
        if (!(m_between.load(std::memory_order_relaxed) & fresh))
            return false;
        m_reading = m_between.exchange(m_reading, std::memory_order_acq_rel) & index;
        *value = m_slots[m_reading];
        return true;
    }

private:
    static constexpr std::size_t fresh = 4;
    static constexpr std::size_t index = 3;

    std::array<Value, 3> m_slots{};
    std::size_t m_writing = 0;
    std::atomic<std::size_t> m_between = 1;
    std::size_t m_reading = 2;
};
