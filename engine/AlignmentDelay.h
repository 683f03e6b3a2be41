// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/Drive.h"
#include "engine/Ramps.h"

#include <array>
#include <cstddef>
#include <span>

/// Holds a channel without drive back by Drive::latency samples, so that it stays in step with one
/// that has drive. Switching cross-fades; off, every sample passes as it is. std only.
class AlignmentDelay
{
public:
    /// In Hz; a switching under way is over at once.
    void setSampleRate(double hertz);
    void set(bool on) { m_share.moveTo(on); }
    /// Clears the samples held back, and is off.
    void reset();

    /// Runs \a block in place.
    void process(std::span<float> block);
    /// Takes the place of running a block of zeros while nothing but zeros is held back: a
    /// switching under way is over at once.
    void skip() { m_share.finish(); }

private:
    FadeRamp m_share;
    std::array<float, Drive::latency> m_late{};
    std::size_t m_oldest = 0;
};
