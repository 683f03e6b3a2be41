// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

/// What the meters of one channel show, in tenths of a dB; 0 is full scale.
struct MeterLevels
{
    static constexpr int lowest = -1270; ///< silence
    static constexpr int highest = 1270; ///< the most that is shown

    int send = lowest;     ///< into the equalizer, after the input level
    int returned = lowest; ///< out of it, after the output level

    /// Whether both meters show the same.
    bool operator==(const MeterLevels&) const = default;
};

/// A level that follows the peaks of a signal: up at once, with the block that
/// a peak is in, and down by 20 dB a second.
class PeakLevel
{
public:
    /// How fast the level falls, in dB.
    static constexpr double releasePerSecond = 20.0;

    /// Follows a block that stands for \a seconds and whose samples reach \a peak (0 and above; 1
    /// is full scale). A NaN peak counts as the highest level.
    void update(double peak, double seconds);

    /// In tenths of a dB, MeterLevels::lowest to MeterLevels::highest.
    int tenths() const;
    /// Applies a level that was measured elsewhere.
    void setTenths(int tenths) { m_level = tenths / 10.0; }

private:
    double m_level = MeterLevels::lowest / 10.0; // dB
};

/// The two meters of one channel.
class ChannelMeters
{
public:
    /// Takes the samples that go into the equalizer.
    void takeSend(std::span<const double> block, double seconds);
    /// Takes the samples that come out of it.
    void takeReturn(std::span<const double> block, double seconds);
    /// The peaks of both points at once, as in PeakLevel::update().
    void take(double sendPeak, double returnPeak, double seconds);

    /// What both show now.
    MeterLevels levels() const { return {m_send.tenths(), m_return.tenths()}; }

private:
    PeakLevel m_send;
    PeakLevel m_return;
};

/// The largest magnitude in \a block; not a number if any sample is none.
double peakOf(std::span<const double> block);
