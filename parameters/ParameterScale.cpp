// SPDX-License-Identifier: GPL-3.0-or-later
#include "parameters/ParameterScale.h"

#include "equalizer/BandDesign.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double stepsPerDecade = 400.0;
constexpr double stepsPerOctave = 100.0;
constexpr double stepsPerDecibel = 10.0;

int rounded(double step) { return static_cast<int>(std::lround(step)); }

int frequencyStep(double hertz)
{
    const double inside =
        std::clamp(hertz, BandDesign::MinimumFrequency, BandDesign::MaximumFrequency);
    return rounded(stepsPerDecade * std::log10(inside / BandDesign::MinimumFrequency));
}

int qualityStep(double quality)
{
    const double inside =
        std::clamp(quality, BandDesign::MinimumQuality, BandDesign::MaximumQuality);
    return rounded(stepsPerOctave * std::log2(inside / BandDesign::MinimumQuality));
}

int decibelStep(double decibels)
{
    return rounded(stepsPerDecibel *
                   std::clamp(decibels, -BandDesign::MaximumGain, BandDesign::MaximumGain));
}

double lastChoice(ParameterKind kind)
{
    return kind == ParameterKind::LowType || kind == ParameterKind::HighType ? 3.0 : 1.0;
}

} // namespace

double numberOf(ParameterKind kind, int step)
{
    switch (kind) {
    case ParameterKind::Frequency:
        return BandDesign::MinimumFrequency * std::pow(10.0, step / stepsPerDecade);
    case ParameterKind::Quality:
        return BandDesign::MinimumQuality * std::exp2(step / stepsPerOctave);
    case ParameterKind::Decibels:
        return step / stepsPerDecibel;
    default:
        return step;
    }
}

int stepOf(ParameterKind kind, double number)
{
    switch (kind) {
    case ParameterKind::Frequency:
        return frequencyStep(number);
    case ParameterKind::Quality:
        return qualityStep(number);
    case ParameterKind::Decibels:
        return decibelStep(number);
    default:
        return rounded(std::clamp(number, 0.0, lastChoice(kind)));
    }
}
