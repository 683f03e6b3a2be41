// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/BandChain.h"
#include "engine/Drive.h"
#include "engine/OuterBand.h"
#include "engine/PeakingBand.h"
#include "engine/Ramps.h"
#include "parameters/ChannelValues.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <span>

/// The equalizer of one channel as it processes samples: input level, six bands in the order low,
/// middle 1 to 4, high, drive, and output level. The filters are the ones that the editors draw,
/// and every setting sounds as its curve looks. Samples are full scale at 1. std only.
///
/// One can be assigned to another, which then goes on as the first one would, bit by bit.
///
/// No operation but the constructor allocates or locks, so all of them may be called on the audio
/// thread; an object is used by one thread at a time. How a signal is cut into blocks makes no
/// difference to what comes out, and settings at rest that change nothing let every bit through.
///
/// A changed setting is faded in within rampSeconds, one of the outer bands within twice that; a
/// setting that comes while its band still changes waits for that. Settings made before the first
/// sample, after reset() or after setSampleRate() are in force at once.
///
/// Samples that are NaN, infinite or beyond loudest count as 0. Above allBandsRate every band
/// is heard; at lower rates an outer band at or beyond half the rate is left out.
class ChannelProcessor
{
public:
    /// The raw values of the channel.
    using Values = ChannelValues;

    /// The largest magnitude of a sample that is taken for signal.
    static constexpr double loudest = 1e15;
    /// What \a sample counts as: 0 for what is not taken for signal, NaN included.
    static double heard(double sample) { return std::abs(sample) <= loudest ? sample : 0.0; }
    /// Twice the highest frequency that a band can have, in Hz.
    static constexpr double allBandsRate = 40000.0;

    /// Every parameter at its default, at 48000 Hz.
    ChannelProcessor();

    /// In Hz; a new rate designs every band and resets.
    void setSampleRate(double hertz);
    /// In Hz.
    double sampleRate() const { return m_sampleRate; }
    /// The channel's raw values; only bands whose values changed are designed.
    void setValues(const Values& values);
    /// Those that setValues() was given, the defaults at first.
    const Values& values() const { return m_values; }

    /// Processes \a block in place: applyInput(), then equalize().
    void process(std::span<double> block);
    /// The first part: the input level. What it leaves is what the send meter shows.
    void applyInput(std::span<double> block);
    /// The same for samples that are all signal and whose largest magnitude is \a peak; returns the
    /// largest one afterwards.
    double applyInputLevel(std::span<double> block, double peak);
    /// The second part: bands, drive and output level.
    void equalize(std::span<double> block);

    /// Whether equalize() would leave every bit as it is, with nothing to come of earlier samples.
    bool isTransparent() const;
    /// In place of equalize(), as long as that is so.
    void passBy(std::span<const double> block);

    /// What process() does, for two channels and their blocks, which are equally long. Each gets
    /// the bits that it would get alone, in little more than the time of one while both are at rest
    /// and cut in the same bands.
    static void processPair(ChannelProcessor* left, ChannelProcessor* right,
                            std::span<double> leftBlock, std::span<double> rightBlock);
    /// What equalize() does, for two channels.
    static void equalizePair(ChannelProcessor* left, ChannelProcessor* right,
                             std::span<double> leftBlock, std::span<double> rightBlock);

    /// How many samples later what goes in comes out: 0 when clean, Drive::latency with drive.
    double latency() const { return m_drive.isWanted() ? double{Drive::latency} : 0.0; }

    /// Clears what is left of the samples so far; the newest settings are in force at once.
    void reset();

private:
    static constexpr std::size_t middleCount = BandChain::middleCount;
    // Fewer bands are faster one after the other.
    static constexpr int minBandsForChain = 3;
    // After so many zeros in a row, and again after as many more, bands that hold next to nothing
    // are cleared: flushing keeps their last numbers from ever becoming zero.
    static constexpr std::size_t silenceLength = 1024;

    void apply(bool atOnce);
    void applyBand(int band, bool atOnce);

    bool isSettled() const;
    int presentBands() const;
    bool isChained() const { return isSettled() && presentBands() >= minBandsForChain; }
    void runBands(std::span<double> block);
    static void runBandsOfPair(ChannelProcessor* left, ChannelProcessor* right,
                               std::span<double> leftBlock, std::span<double> rightBlock);
    void runPart(std::span<double> block);
    void runSteady(std::span<double> block);
    void runChain(std::span<double> block);
    void runEach(std::span<double> block);
    bool wantsOwnPath(std::span<const double> block) const;
    bool reachesSilence(std::span<const double> block) const;
    void countZeros(std::span<const double> block);
    void clearFaintBands();
    void finish(std::span<double> block);
    unsigned int cuts() const;
    BandChain chain() const;
    void restore(const BandChain& chain);

    Values m_values;
    double m_sampleRate = 48000.0;
    bool m_fresh = true;     // nothing heard yet
    std::size_t m_zeros = 0; // in a row, of what the bands heard; fewer than silenceLength
    GainRamp m_input;
    OuterBand m_low{OuterBand::Side::Low};
    std::array<PeakingBand, middleCount> m_middle;
    OuterBand m_high{OuterBand::Side::High};
    Drive m_drive;
    GainRamp m_output;
};
