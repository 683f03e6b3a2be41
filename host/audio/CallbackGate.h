// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioCallback.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <thread>

/// A device's way to its callback, which can be taken away while the device goes on calling.
class CallbackGate
{
public:
    /// \a callback is in use until shut().
    void open(AudioCallback& callback) { m_callback = &callback; }
    /// Returns once the callback is not in use and will not be any more.
    void shut()
    {
        m_callback = nullptr;
        while (m_busy)
            std::this_thread::yield();
    }

    /// The device's thread: as AudioCallback::process(), silence while shut.
    void process(std::span<const float* const> inputs, std::span<float* const> outputs,
                 std::size_t frames)
    {
        m_calls.fetch_add(1, std::memory_order_relaxed);
        m_busy = true;
        if (AudioCallback* callback = m_callback) {
            callback->process(inputs, outputs, frames);
        } else {
            for (float* output : outputs)
                std::fill_n(output, frames, 0.0F);
        }
        m_busy = false;
    }

    /// How often process() was called.
    std::int64_t calls() const { return m_calls.load(std::memory_order_relaxed); }

private:
    std::atomic<AudioCallback*> m_callback = nullptr;
    std::atomic<bool> m_busy = false;
    std::atomic<std::int64_t> m_calls = 0;
};
