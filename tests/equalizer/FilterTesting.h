// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtTest>

#include <cmath>
#include <complex>
#include <vector>

/// Fails the running test unless |actual - expected| <= tolerance; NaN fails.
#define COMPARE_WITHIN(actual, expected, tolerance)                                                \
    do {                                                                                           \
        const double a_ = (actual);                                                                \
        const double e_ = (expected);                                                              \
        const double t_ = (tolerance);                                                             \
        QVERIFY2(std::abs(a_ - e_) <= t_, qPrintable(QStringLiteral("%1 is %2, not %3 +- %4")      \
                                                         .arg(QLatin1String(#actual))              \
                                                         .arg(a_, 0, 'g', 17)                      \
                                                         .arg(e_, 0, 'g', 17)                      \
                                                         .arg(t_)));                               \
    } while (false)

/// The value of a sampled signal's spectrum at a frequency, summed term by term.
inline std::complex<double> spectrumAt(const std::vector<double>& signal, double f, double fs)
{
    std::complex<double> sum;
    for (std::size_t n = 0; n < signal.size(); ++n)
        sum += signal[n] * std::polar(1.0, -2.0 * M_PI * f / fs * static_cast<double>(n));
    return sum;
}

inline double decibels(std::complex<double> value) { return 20.0 * std::log10(std::abs(value)); }
