// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <span>

/// Weights a signal as hearing does: the K-weighting of Recommendation ITU-R BS.1770, whose table
/// for 48000 Hz is taken to other rates by the bilinear transform of its two filters. std only.
class KWeighting
{
public:
    KWeighting() { setSampleRate(48000.0); }

    /// In Hz; clears what was heard.
    void setSampleRate(double hertz);
    void clear();
    /// The sum of the squares of the weighted samples of \a block.
    double energy(std::span<const double> block);

private:
    struct Section
    {
        double process(double sample);

        double b0 = 1.0;
        double b1 = 0.0;
        double b2 = 0.0;
        double a1 = 0.0;
        double a2 = 0.0;
        double first = 0.0;
        double second = 0.0;
    };

    Section m_shelf;
    Section m_highPass;
};

/// The weighted energy of the same samples before and after an equalizer, summed over channels.
struct MatchedEnergy
{
    double before = 0.0;
    double after = 0.0;

    MatchedEnergy operator+(const MatchedEnergy& other) const
    {
        return {before + other.before, after + other.after};
    }
};

/// By how much an equalizer makes a signal louder, measured while it plays: the gain that the
/// signal before it needs to be as loud as the one after it. std only; neither allocates nor locks.
///
/// It is the ratio of the two mean squares over the last windowBlocks blocks with sound, gated as
/// in BS.1770: blocks quieter than silence before the equalizer do not count, nor do those that are
/// relativeGate below the mean of the others. Until minBlocks have been heard, and while it is
/// silent, the gain is that of the last measure; 0 dB at first. A new equalizer's first block, in
/// which its settings fade in, is left out.
class LoudnessMatch
{
public:
    static constexpr double blockSeconds = 0.1;
    static constexpr std::size_t windowBlocks = 60;
    static constexpr std::size_t minBlocks = 4;
    static constexpr double maxGain = 24.0;      ///< dB up and down
    static constexpr double silence = -70.0;     ///< LKFS
    static constexpr double relativeGate = 10.0; ///< dB

    /// In Hz; forgets what was heard, but not the gain.
    void setSampleRate(double hertz);
    /// The same at the rate it has: the equalizer is another one from now on.
    void forget();
    /// Takes the energy of the next \a frames samples. A block ends with the call that fills it.
    void take(const MatchedEnergy& energy, std::size_t frames);
    /// In dB.
    double gain() const { return m_gain; }

private:
    void endBlock();
    void measure();

    std::array<MatchedEnergy, windowBlocks> m_blocks{};
    std::size_t m_count = 0; // of the blocks kept
    std::size_t m_next = 0;
    MatchedEnergy m_block; // under way
    std::size_t m_frames = 0;
    bool m_isSettling = true; // in this block
    std::size_t m_blockLength = 4800;
    double m_gain = 0.0;
};
