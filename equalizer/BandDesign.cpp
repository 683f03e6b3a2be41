// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/BandDesign.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace BandDesign {

namespace {

constexpr float MinusLn1000 = -6.9077554F;
constexpr double GainSpan = 2.0 * MaximumGain;

float clampedPosition(float r) { return std::isnan(r) ? 0.0F : std::clamp(r, 0.0F, 1.0F); }

// The frequency whose pre-warped value is `factor` times that of `f`.
double movedFrequency(double f, double sampleRate, double factor)
{
    return sampleRate / std::numbers::pi *
           std::atan(factor * std::tan(std::numbers::pi * f / sampleRate));
}

} // namespace

float position(int value, int minimum, int maximum)
{
    const std::int64_t offset = std::int64_t{value} - minimum;
    const std::int64_t span = std::int64_t{maximum} - minimum;
    return clampedPosition(static_cast<float>(offset) / static_cast<float>(span));
}

double frequency(float position)
{
    return MinimumFrequency * std::pow(10.0, double{position} * FrequencyRatio);
}

double quality(float position)
{
    return MinimumQuality * std::pow(10.0, double{position} * QualityRatio);
}

double gain(float position) { return double{position} * GainSpan - MaximumGain; }

float frequencyPosition(double hz)
{
    const double f = std::clamp(hz, MinimumFrequency, MaximumFrequency);
    const float ratio = static_cast<float>(MaximumFrequency / f);
    return clampedPosition(1.0F + std::log(ratio) / MinusLn1000);
}

float gainPosition(double db)
{
    const auto g = static_cast<float>(std::clamp(db, -MaximumGain, MaximumGain));
    return clampedPosition((g + static_cast<float>(MaximumGain)) / static_cast<float>(GainSpan));
}

int rawValue(float position, int minimum, int maximum)
{
    const std::int64_t span = std::int64_t{maximum} - minimum;
    const double steps = static_cast<double>(span) * double{clampedPosition(position)};
    const auto [lowest, highest] = std::minmax(minimum, maximum);
    const std::int64_t raw = std::llround(steps) + minimum;
    return static_cast<int>(std::clamp<std::int64_t>(raw, lowest, highest));
}

void designLow(VEQ_Filter& filter, int type, double frequency, double gain, double sampleRate)
{
    switch (type) {
    case SecondOrderPass:
        filter.setCoefHPF(2, frequency, sampleRate);
        break;
    case FirstOrderPass:
        filter.setCoefHPF(1, frequency, sampleRate);
        break;
    case FirstOrderShelf:
        filter.setCoefLOWS(movedFrequency(frequency, sampleRate, 10.0), gain, sampleRate);
        break;
    case SecondOrderShelf:
        filter.setCoefLOWS_2(movedFrequency(frequency, sampleRate, 3.1622776601683795), gain,
                             sampleRate);
        break;
    default:
        break;
    }
}

void designHigh(VEQ_Filter& filter, int type, double frequency, double gain, double sampleRate)
{
    switch (type) {
    case SecondOrderPass:
        filter.setCoefLPF(2, frequency, sampleRate);
        break;
    case FirstOrderPass:
        filter.setCoefLPF(1, frequency, sampleRate);
        break;
    case FirstOrderShelf:
        filter.setCoefHIGS(movedFrequency(frequency, sampleRate, 0.1), gain, sampleRate);
        break;
    case SecondOrderShelf:
        filter.setCoefHIGS_2(movedFrequency(frequency, sampleRate, 0.31622776601683794), gain,
                             sampleRate);
        break;
    default:
        break;
    }
}

void designMiddle(FILTER2PEQ& filter, double frequency, double quality, double gain,
                  double sampleRate)
{
    filter.setCoefBPF_C(frequency, sampleRate, quality, gain, true);
}

} // namespace BandDesign
