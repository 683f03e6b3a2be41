// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/HalfBand.h"
#include "engine/Ramps.h"

#include <cstddef>
#include <span>

/// The drive stage: a soft, odd saturation
///
///     y = G x / sqrt(1 + x^2)
///
/// at four times the sample rate, between half-band filters of linear phase. G is so chosen that a
/// sine at matchedLevel comes out at the level it went in; above it the signal is compressed
/// towards G, which is full scale within 0.06 dB, below it raised by as little.
///
/// Off, it touches nothing and there is no delay. On, the signal comes `latency` samples later.
/// Switching cross-fades, on switching on after the filters have filled.
class Drive
{
public:
    /// In samples.
    static constexpr int latency = 78;
    /// The peak of the sine whose level the saturation keeps, in dB of full scale.
    static constexpr double matchedLevel = -18.0;

    /// In Hz; what was heard is forgotten.
    void setSampleRate(double hertz);
    void set(bool on);
    bool isWanted() const { return m_wanted; }
    /// Whether it touches nothing, and no switching is under way.
    bool isOff() const { return m_share.isOut(); }
    /// Clears what is left of the samples so far; a switching under way is over at once.
    void reset();

    /// Runs \a block in place.
    void process(std::span<double> block);

    /// What the saturation makes of one sample.
    static double saturate(double sample);

private:
    static constexpr std::size_t maxBlock = 128;
    static constexpr std::size_t outerHalf = 36;
    static constexpr std::size_t innerHalf = 7;
    static_assert(latency == 2 * outerHalf - 1 + innerHalf);
    // How many inputs an output depends on, at most.
    static constexpr std::size_t memory = 2 * latency + 4;

    struct Filters
    {
        template <std::size_t Lanes>
        void oversample(const double* in, std::size_t count, double* out);
        void reset();

        HalfBand::Interpolator<outerHalf, maxBlock> up;
        HalfBand::Interpolator<innerHalf, 2 * maxBlock> upAgain;
        HalfBand::Decimator<innerHalf, 2 * maxBlock, innerHalf> down;
        HalfBand::Decimator<outerHalf, maxBlock, outerHalf - 1> downAgain;
    };
    using Oversample = void (*)(Filters* filters, const double* in, std::size_t count, double* out);

    static void oversample(Filters* filters, const double* in, std::size_t count, double* out);
    static void oversampleWide(Filters* filters, const double* in, std::size_t count, double* out);
    static void oversampleWidest(Filters* filters, const double* in, std::size_t count,
                                 double* out);
    static Oversample fastest();

    bool isSteadyOn(std::span<const double> block) const;
    void processPart(std::span<double> block);
    void resetSamples();

    bool m_wanted = false;
    FadeRamp m_share;
    int m_unfilled = 0; // samples until the filters have filled
    Filters m_filters;
    Oversample m_oversample = fastest();
    std::size_t m_steadyCount = 0; // of inputs in a row that were m_lastIn
    double m_lastIn = 0.0;
    double m_lastOut = 0.0; // of the filters
};
