// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

/// A half-band low-pass of linear phase, the step between a sample rate and its double. Every
/// second of its taps is zero but for the one in the middle, which is a half; what is left are
/// 2 Half taps, the same from both ends: an ideal low-pass under a Kaiser window (J. F. Kaiser,
/// "Nonrecursive digital filter design using the I0-sinh window function", 1974).
///
/// Taps are computed by the compiler, and an output depends on its own inputs only, not on how a
/// signal is cut into blocks.
namespace HalfBand {

/// Outputs computed together: as many registers, which hold what the processor has room for.
inline constexpr std::size_t registers = 4;
inline constexpr std::size_t longestGroup = 32;

namespace Detail {

constexpr double squareRoot(double x)
{
    double root = x > 1.0 ? x : 1.0;
    for (int i = 0; i < 60; ++i)
        root = 0.5 * (root + x / root);
    return root;
}

// The modified Bessel function I0.
constexpr double bessel(double x)
{
    double sum = 1.0;
    double term = 1.0;
    for (int n = 1; n < 60; ++n) {
        term *= x / (2.0 * n) * (x / (2.0 * n));
        sum += term;
    }
    return sum;
}

} // namespace Detail

/// The first half of the taps around the middle, outermost first, times two: an interpolator's.
/// They add up to a half.
template <std::size_t Half> constexpr std::array<double, Half> taps(double beta)
{
    std::array<double, Half> result{};
    double sum = 0.0;
    for (std::size_t j = 0; j < Half; ++j) {
        const double n = 2.0 * static_cast<double>(Half - j) - 1.0; // from the middle
        const double t = n / (2.0 * static_cast<double>(Half));
        const double window = Detail::bessel(beta * Detail::squareRoot(1.0 - t * t));
        result[j] = ((Half - j) % 2 == 1 ? 1.0 : -1.0) / n * window;
        sum += result[j];
    }
    for (double& tap : result)
        tap *= 0.5 / sum;
    return result;
}

/// The last inputs of a filter of 2 Half taps, with room for a block of up to Longest.
template <std::size_t Half, std::size_t Longest> class History
{
public:
    static_assert(Longest % longestGroup == 0);

    /// Where the next block goes; what has been there stays until then, so that reading beyond the
    /// block's end is safe.
    double* block() { return m_samples.data() + past; }
    const double* block() const { return m_samples.data() + past; }
    /// The block is dealt with: its end becomes the past of the next one.
    void advance(std::size_t count)
    {
        std::copy_n(m_samples.begin() + static_cast<std::ptrdiff_t>(count), past,
                    m_samples.begin());
    }
    void reset() { m_samples.fill(0.0); }

    /// The sums of taps and samples for a block of \a count that begins \a delay before block();
    /// \a out has room for whole groups. Lanes is how many doubles a register has, which makes no
    /// difference to any bit.
    template <std::size_t Lanes>
    [[gnu::always_inline]] void convolve(const std::array<double, Half>& taps, std::size_t delay,
                                         std::size_t count, double* out) const
    {
        static_assert(Lanes * registers <= longestGroup);
        for (std::size_t m = 0; m < count; m += Lanes * registers) {
            const double* newest = block() + m - delay;
            convolveGroup<Lanes>(taps, newest, newest - (2 * Half - 1), out + m);
        }
    }

private:
    static constexpr std::size_t past = 2 * Half;

    template <std::size_t Lanes>
    [[gnu::always_inline]] static void convolveGroup(const std::array<double, Half>& taps,
                                                     const double* newest, const double* oldest,
                                                     double* out)
    {
        using Register [[gnu::vector_size(Lanes * sizeof(double))]] = double;
        Register sums[registers] = {};
        for (std::size_t j = 0; j < Half; ++j, --newest, ++oldest) {
            for (std::size_t r = 0; r < registers; ++r) {
                Register early;
                Register late;
                std::memcpy(&late, newest + r * Lanes, sizeof late);
                std::memcpy(&early, oldest + r * Lanes, sizeof early);
                sums[r] += taps[j] * (late + early);
            }
        }
        for (std::size_t r = 0; r < registers; ++r)
            std::memcpy(out + r * Lanes, &sums[r], sizeof sums[r]);
    }

    std::array<double, past + Longest> m_samples{};
};

/// Doubles the sample rate of blocks of up to Longest, Half of its input samples late.
template <std::size_t Half, std::size_t Longest> class Interpolator
{
public:
    /// Where the next \a count inputs go.
    double* input() { return m_history.block(); }
    /// Of the outputs for each input the first one; the second ones go to \a between.
    template <std::size_t Lanes>
    [[gnu::always_inline]] const double*
    process(std::size_t count, const std::array<double, Half>& taps, double* between) const
    {
        m_history.template convolve<Lanes>(taps, 0, count, between);
        return m_history.block() - Half;
    }
    /// The inputs are dealt with, and with them what process() answered.
    void advance(std::size_t count) { m_history.advance(count); }
    void reset() { m_history.reset(); }

private:
    History<Half, Longest> m_history;
};

/// Halves the sample rate; blocks of up to Longest outputs, Delay of them late.
template <std::size_t Half, std::size_t Longest, std::size_t Delay> class Decimator
{
public:
    static_assert(Delay == Half || Delay == Half - 1);

    /// Where the first and the second one of each two inputs go.
    double* first() { return m_even.block(); }
    double* second() { return m_odd.block(); }
    /// The inputs for \a count outputs are there.
    template <std::size_t Lanes>
    [[gnu::always_inline]] void process(std::size_t count, const std::array<double, Half>& taps,
                                        double* out)
    {
        std::array<double, Longest> sums;
        m_odd.template convolve<Lanes>(taps, Delay - (Half - 1), count, sums.data());
        const double* middle = m_even.block() - Delay;
        for (std::size_t m = 0; m < count; ++m)
            out[m] = 0.5 * (middle[m] + sums[m]);
        m_even.advance(count);
        m_odd.advance(count);
    }
    void reset()
    {
        m_even.reset();
        m_odd.reset();
    }

private:
    History<Half, Longest> m_even;
    History<Half, Longest> m_odd;
};

} // namespace HalfBand
