// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/Ramps.h"

#include <atomic>
#include <cstddef>
#include <span>

class MixBus;

/// What the desktop equalizer does on the audio thread: runs the mix bus on what comes in, and
/// fades what goes out in and out. It is silent until it has been given a rate, and begins with a
/// fade after each change of it. std only.
///
/// One thread calls process(), which neither allocates nor locks nor waits; everything else is for
/// any thread at any time.
class DesktopProcessor
{
public:
    /// How long a fade takes.
    static constexpr double fadeSeconds = 0.020;

    /// \a bus must outlive it, and nobody else may prepare it or let it process.
    explicit DesktopProcessor(MixBus& bus);

    /// In Hz, above 0; from the next block on.
    void setSampleRate(int hertz) { m_wantedRate = hertz; }
    /// Whether it is to be heard, as it is at first.
    void setAudible(bool audible) { m_audible = audible; }
    /// Whether the last block ended in silence because it is not to be heard.
    bool isFadedOut() const { return m_fadedOut; }

    /// Fills \a frames samples of each of \a outputs, full scale 1, from as many of each of
    /// \a inputs; there may be none.
    void process(std::span<const float* const> inputs, std::span<float* const> outputs,
                 std::size_t frames) noexcept;

private:
    void prepare(int rate);
    void fade(std::span<float* const> outputs, std::size_t frames);

    MixBus& m_bus;
    std::atomic<int> m_wantedRate = 0;
    std::atomic<bool> m_audible = true;
    std::atomic<bool> m_fadedOut = false;
    int m_rate = 0;
    LevelRamp m_level;
};
