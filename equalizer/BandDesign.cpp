// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/BandDesign.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace BandDesign {

namespace {

constexpr double Pi = 3.141592653589793;

constexpr double LowestFrequency = 20.0;
constexpr double HighestFrequency = 20000.0;
constexpr float MinusLn1000 = -6.9077554F;

constexpr double LowestQuality = 0.5;

constexpr double GainSpan = 40.0;
constexpr double HighestGain = 20.0;

float clampedPosition(float r) { return std::isnan(r) ? 0.0F : std::clamp(r, 0.0F, 1.0F); }

// The frequency whose pre-warped value is `factor` times that of `f`.
double movedFrequency(double f, double sampleRate, double factor)
{
    return sampleRate / Pi * std::atan(factor * std::tan(Pi * f / sampleRate));
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
    return LowestFrequency * std::pow(10.0, double{position} * FrequencyRatio);
}

double quality(float position)
{
    return LowestQuality * std::pow(10.0, double{position} * QualityRatio);
}

double gain(float position) { return double{position} * GainSpan - HighestGain; }

float frequencyPosition(double hz)
{
    const double f = std::clamp(hz, LowestFrequency, HighestFrequency);
    const float ratio = static_cast<float>(HighestFrequency / f);
    return clampedPosition(1.0F + std::log(ratio) / MinusLn1000);
}

float gainPosition(double db)
{
    const auto g = static_cast<float>(std::clamp(db, -HighestGain, HighestGain));
    return clampedPosition((g + static_cast<float>(HighestGain)) / static_cast<float>(GainSpan));
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
