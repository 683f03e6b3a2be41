// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <complex>
#include <numbers>

/// Complex arithmetic of a filter's frequency response. The products and quotients here are the
/// textbook ones: std::complex's own * and / spend most of their time on a recovery from overflow
/// that no filter response comes near to.
namespace ZPlane {

/// A point of the z plane, or a response.
using Complex = std::complex<double>;

/// The level of a response of exactly zero, in dB.
inline constexpr double SilenceLevel = -100.0;

/// z^-1 at a frequency: e^(-j 2 pi f / fs). Both in the same unit, usually Hz.
inline Complex unitDelay(double frequency, double sampleRate)
{
    const double w = 2.0 * std::numbers::pi * frequency / sampleRate;
    return {std::cos(w), -std::sin(w)};
}

/// a b.
inline Complex product(Complex a, Complex b)
{
    return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

/// |a|^2.
inline double squaredMagnitude(Complex a) { return a.real() * a.real() + a.imag() * a.imag(); }

/// a / b.
inline Complex quotient(Complex a, Complex b)
{
    return product(a, std::conj(b)) / squaredMagnitude(b);
}

/// 10 / ln(10): log10() itself takes three times as long as log().
inline constexpr double DecibelsPerLn = 4.342944819032518;

/// The level of a response in dB: 10 log10 of its squared magnitude, SilenceLevel for zero.
inline double level(Complex response)
{
    const double m = squaredMagnitude(response);
    return m <= 0.0 ? SilenceLevel : DecibelsPerLn * std::log(m);
}

} // namespace ZPlane
