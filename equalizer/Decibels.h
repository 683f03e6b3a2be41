// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>

/// The factor that multiplies a sample for a gain in dB.
inline double amplitudeRatio(double decibels) { return std::pow(10.0, decibels / 20.0); }

/// The gain in dB of a factor above 0.
inline double decibelsOf(double ratio) { return 20.0 * std::log10(ratio); }
