// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <cstdint>
#include <span>

/// How long every change of a setting takes, as long as VEQ_Filter's own cross-fade.
inline constexpr double rampSeconds = 0.010;

/// The samples that a change takes at a rate in Hz, 1 at least.
inline std::int64_t rampSamples(double sampleRate)
{
    const double samples = sampleRate * rampSeconds;
    return samples >= 1.0 ? static_cast<std::int64_t>(samples) : 1;
}

/// A factor above zero that moves to its target and then is exactly the target. On the way its
/// level in dB speeds up evenly for one half of the time and slows down for the other.
class GainRamp
{
public:
    double value() const { return m_value; }
    bool isMoving() const { return m_left > 0; }
    /// At rest and exactly 1.
    bool isOne() const { return m_value == 1.0 && !isMoving(); }

    void jumpTo(double target);
    /// In about \a samples steps from here; nothing happens where that is the target already.
    void moveTo(double target, std::int64_t samples);
    /// One sample onward.
    double next();
    /// Multiplies each sample of \a block; a factor of exactly 1 at rest leaves it as it is.
    void apply(std::span<double> block);

private:
    double m_value = 1.0;
    double m_target = 1.0;
    double m_step = 1.0;
    double m_acceleration = 1.0;
    std::int64_t m_half = 1;
    std::int64_t m_left = 0;
};

/// A factor that may be zero and moves to its target without a kink.
class LevelRamp
{
public:
    double value() const { return m_value; }
    bool isMoving() const { return m_left > 0; }
    /// At rest and zero.
    bool isSilent() const { return m_value == 0.0 && !isMoving(); }

    void jumpTo(double target);
    /// In \a samples steps from here; nothing happens where that is the target already.
    void moveTo(double target, std::int64_t samples);
    /// One sample onward.
    double next();

private:
    double m_value = 0.0;
    double m_from = 0.0;
    double m_target = 0.0;
    std::int64_t m_length = 1;
    std::int64_t m_left = 0;
};

/// The share, 0 to 1, of the later of two signals in a cross-fade that begins and ends without a
/// kink. It can turn back on its way.
class FadeRamp
{
public:
    bool isMoving() const { return m_position != m_target; }
    /// At rest and wholly the one or the other.
    bool isOut() const { return m_position == 0 && m_target == 0; }

    /// The whole way takes \a samples.
    void setLength(std::int64_t samples);
    void jumpTo(bool in) { m_position = m_target = in ? m_length : 0; }
    void moveTo(bool in) { m_target = in ? m_length : 0; }
    /// A change under way is over.
    void finish() { m_position = m_target; }
    /// One sample onward.
    double next();

private:
    std::int64_t m_length = 1;
    std::int64_t m_position = 0;
    std::int64_t m_target = 0;
};
