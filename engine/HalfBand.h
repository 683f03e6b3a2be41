// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

/// A half-band low-pass of linear phase, the step between a sample rate and its double. Every
/// second of its taps is zero but for the one in the middle, which is a half; what is left are
/// 2 Half taps, the same from both ends: an ideal low-pass under a Kaiser window (J. F. Kaiser,
/// "Nonrecursive digital filter design using the I0-sinh window function", 1974).
///
/// Taps are computed by the compiler, and an output depends on its own inputs only, not on how a
/// signal is cut into blocks.
namespace HalfBand {

/// Outputs computed together.
inline constexpr std::size_t group = 8;

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
    static_assert(Longest % group == 0);

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
    /// \a out has room for whole groups.
    void convolve(const std::array<double, Half>& taps, std::size_t delay, std::size_t count,
                  double* out) const
    {
        for (std::size_t m = 0; m < count; m += group) {
            const double* newest = block() + m - delay;
            const double* oldest = newest - (2 * Half - 1);
            std::array<double, group> sums{};
            for (std::size_t j = 0; j < Half; ++j) {
                const double tap = taps[j];
                for (std::size_t i = 0; i < group; ++i)
                    sums[i] += tap * (*(newest + i - j) + oldest[i + j]);
            }
            std::copy(sums.begin(), sums.end(), out + m);
        }
    }

private:
    static constexpr std::size_t past = 2 * Half;

    std::array<double, past + Longest> m_samples{};
};

/// Doubles the sample rate of blocks of up to Longest, Half of its input samples late.
template <std::size_t Half, std::size_t Longest> class Interpolator
{
public:
    void process(const double* in, std::size_t count, const std::array<double, Half>& taps,
                 double* out)
    {
        std::copy_n(in, count, m_history.block());
        std::array<double, Longest> between;
        m_history.convolve(taps, 0, count, between.data());
        const double* middle = m_history.block() - Half;
        for (std::size_t m = 0; m < count; ++m) {
            out[2 * m] = middle[m];
            out[2 * m + 1] = between[m];
        }
        m_history.advance(count);
    }
    void reset() { m_history.reset(); }

private:
    History<Half, Longest> m_history;
};

/// Halves the sample rate; blocks of up to Longest outputs, Delay of them late.
template <std::size_t Half, std::size_t Longest, std::size_t Delay> class Decimator
{
public:
    static_assert(Delay == Half || Delay == Half - 1);

    void process(const double* in, std::size_t count, const std::array<double, Half>& taps,
                 double* out)
    {
        for (std::size_t m = 0; m < count; ++m) {
            m_even.block()[m] = in[2 * m];
            m_odd.block()[m] = in[2 * m + 1];
        }
        std::array<double, Longest> sums;
        m_odd.convolve(taps, Delay - (Half - 1), count, sums.data());
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
