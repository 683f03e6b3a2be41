// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cmath>
#include <complex>
#include <numbers>

/// The equalizer's response in closed form: the analog prototypes evaluated at s = j tan(pi f /
/// fs), where the bilinear transform takes a digital frequency to. No digital coefficient is
/// involved.
namespace AnalogModel {

using Complex = std::complex<double>;

struct BandSettings
{
    bool on = true;
    int type = 3;
    double q = 1.5;
    double f = 0.0;
    double g = 0.0;
};
using Settings = std::array<BandSettings, 6>;

inline double warped(double f, double fs) { return std::tan(std::numbers::pi * f / fs); }
inline double decibel(Complex h) { return 20.0 * std::log10(std::abs(h)); }

/// The quality that the hardware makes of q at 44.1, 48 and 96 kHz.
inline double hardwareQuality(double q, double f, double fs)
{
    double ratio = 1.0;
    if (fs < 48000 && f > 2000)
        ratio = 1.25513 - 0.0301 * std::log2(q) - 4.817e-05 * f;
    else if (fs == 48000 && f > 2000)
        ratio = 1.25686 - 0.02143 * std::log2(q) - 4.103e-05 * f;
    else if (fs == 96000 && f > 4000)
        ratio = 1.21531 - 0.02382 * std::log2(q) - 2.004e-05 * f;
    return ratio <= 1.0 ? std::max(q * ratio, 0.1) : q;
}

inline Complex bell(const BandSettings& band, double f, double fs)
{
    const double q = hardwareQuality(band.q, band.f, fs);
    const Complex s(0.0, warped(f, fs) / warped(band.f, fs));
    const Complex boost =
        1.0 + (std::pow(10.0, std::abs(band.g) / 20.0) - 1.0) * (s / q) / (s * s + s / q + 1.0);
    return band.g < 0.0 ? 1.0 / boost : boost;
}

inline double lowLevel(const BandSettings& band, double f, double fs)
{
    const Complex s(0.0, warped(f, fs));
    const double k = warped(band.f, fs);
    const double a = std::pow(10.0, std::abs(band.g) / 20.0);
    const double sign = band.g < 0.0 ? -1.0 : 1.0;
    const double k1 = 10.0 * k;
    const double k2 = std::sqrt(10.0) * k;
    switch (band.type) {
    case 0:
        return decibel(s * s / (s * s + std::numbers::sqrt2 * k * s + k * k));
    case 1:
        return decibel(s / (s + k));
    case 2:
        return sign * decibel((s + k1) / (s + k1 / a));
    default:
        return sign * decibel((s * s + std::numbers::sqrt2 * k2 * s + k2 * k2) /
                              (s * s + std::numbers::sqrt2 * k2 / std::sqrt(a) * s + k2 * k2 / a));
    }
}

inline double highLevel(const BandSettings& band, double f, double fs)
{
    const Complex s(0.0, warped(f, fs));
    const double k = warped(band.f, fs);
    const double a = std::pow(10.0, std::abs(band.g) / 20.0);
    const double sign = band.g < 0.0 ? -1.0 : 1.0;
    const double k1 = 0.1 * k;
    const double k2 = std::sqrt(0.1) * k;
    switch (band.type) {
    case 0:
        return decibel(k * k / (s * s + std::numbers::sqrt2 * k * s + k * k));
    case 1:
        return decibel(k / (s + k));
    case 2:
        return sign * decibel(a * (s + k1) / (s + a * k1));
    default:
        return sign * decibel(a * (s * s + std::numbers::sqrt2 * k2 * s + k2 * k2) /
                              (s * s + std::sqrt(2.0 * a) * k2 * s + a * k2 * k2));
    }
}

/// The level of one band in dB.
inline double level(const BandSettings& band, int number, double f, double fs)
{
    if (number == 0)
        return lowLevel(band, f, fs);
    return number == 5 ? highLevel(band, f, fs) : decibel(bell(band, f, fs));
}

/// The level of all bands that are on.
inline double total(const Settings& settings, double f, double fs)
{
    double sum = 0.0;
    for (int band = 0; band < 6; ++band)
        if (settings[static_cast<std::size_t>(band)].on)
            sum += level(settings[static_cast<std::size_t>(band)], band, f, fs);
    return sum;
}

} // namespace AnalogModel
