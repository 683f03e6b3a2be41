// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/ChannelMeters.h"

#include <atomic>
#include <cstdint>

/// Two levels that one thread sets and any thread reads, always both of one moment.
class SharedLevels
{
public:
    void set(const MeterLevels& levels) { m_both.store(packed(levels), std::memory_order_relaxed); }
    MeterLevels get() const
    {
        const std::uint32_t both = m_both.load(std::memory_order_relaxed);
        return {static_cast<std::int16_t>(both >> 16), static_cast<std::int16_t>(both & 0xFFFF)};
    }

private:
    static std::uint32_t packed(const MeterLevels& levels)
    {
        const auto word = [](int level) {
            return std::uint32_t{static_cast<std::uint16_t>(level)};
        };
        return word(levels.send) << 16 | word(levels.returned);
    }

    std::atomic<std::uint32_t> m_both = packed({});
};
