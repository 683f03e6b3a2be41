// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/FILTER2PEQ.h"
#include "equalizer/VEQ_Filter.h"

/// How the raw values of the equalizer's parameters become Hz, Q and dB and back, and how a band's
/// filter is designed from them.
///
/// A position is where a raw value stands in its range, 0 at the minimum and 1 at the maximum. It
/// is computed in single precision and always lies in [0, 1]; an undefined position (NaN) counts
/// as 0.
namespace BandDesign {

/// What a band can be set to, in Hz, in Q and, in both directions, in dB.
/// @{
inline constexpr double MinimumFrequency = 20.0;
inline constexpr double MaximumFrequency = 20000.0;
inline constexpr double MinimumQuality = 0.5;
inline constexpr double MaximumQuality = 16.0;
inline constexpr double MaximumGain = 20.0;
/// @}

/// Decades that a frequency spans: 20 Hz to 20 kHz.
inline constexpr double FrequencyRatio = 3.0;
/// Decades that a quality spans, log10(32): 0.5 to 16.
inline constexpr double QualityRatio = 1.505149978319906;

/// The types of the outer bands. A band of any other type keeps the filter it has.
enum BandType : int {
    SecondOrderPass = 0, ///< high-pass in the low band, low-pass in the high band
    FirstOrderPass = 1,
    FirstOrderShelf = 2,
    SecondOrderShelf = 3,
};

/// The position of a raw value; equal limits give 0 at the limit, otherwise the nearer end.
float position(int value, int minimum, int maximum);

/// 20 Hz to 20 kHz, logarithmic.
double frequency(float position);
/// 0.5 to 16, logarithmic.
double quality(float position);
/// -20 dB to +20 dB, linear.
double gain(float position);

/// The position of a frequency in Hz and of a gain in dB.
/// @{
float frequencyPosition(double hz);
float gainPosition(double db);
/// @}

/// The raw value nearest to a position, halves away from zero, never outside the range.
int rawValue(float position, int minimum, int maximum);

/// Design the low, high and middle bands for a frequency in Hz, a gain in dB (ignored by the pass
/// types) and a sample rate in Hz. The shelves are designed at a frequency moved, in the
/// pre-warped domain, by a factor of 10 (first order) or its root (second order), upward in the
/// low band and downward in the high band, so that the band's own frequency lies within the
/// shelf's transition as on the hardware.
/// @{
void designLow(VEQ_Filter& filter, int type, double frequency, double gain, double sampleRate);
void designHigh(VEQ_Filter& filter, int type, double frequency, double gain, double sampleRate);
void designMiddle(FILTER2PEQ& filter, double frequency, double quality, double gain,
                  double sampleRate);
/// @}

} // namespace BandDesign
