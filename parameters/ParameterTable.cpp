// SPDX-License-Identifier: GPL-3.0-or-later
#include "parameters/ParameterTable.h"

#include "equalizer/EqualizerBands.h"
#include "parameters/TranslationMark.h"

#include <algorithm>

namespace {

constexpr std::array<const char*, parameterCount> titles = {
    QT_TRANSLATE_NOOP("Parameter", "Low type"),
    QT_TRANSLATE_NOOP("Parameter", "Low frequency"),
    QT_TRANSLATE_NOOP("Parameter", "Low gain"),
    QT_TRANSLATE_NOOP("Parameter", "Low on"),
    QT_TRANSLATE_NOOP("Parameter", "Middle 1 quality"),
    QT_TRANSLATE_NOOP("Parameter", "Middle 1 frequency"),
    QT_TRANSLATE_NOOP("Parameter", "Middle 1 gain"),
    QT_TRANSLATE_NOOP("Parameter", "Middle 1 on"),
    QT_TRANSLATE_NOOP("Parameter", "Middle 2 quality"),
    QT_TRANSLATE_NOOP("Parameter", "Middle 2 frequency"),
    QT_TRANSLATE_NOOP("Parameter", "Middle 2 gain"),
    QT_TRANSLATE_NOOP("Parameter", "Middle 2 on"),
    QT_TRANSLATE_NOOP("Parameter", "Middle 3 quality"),
    QT_TRANSLATE_NOOP("Parameter", "Middle 3 frequency"),
    QT_TRANSLATE_NOOP("Parameter", "Middle 3 gain"),
    QT_TRANSLATE_NOOP("Parameter", "Middle 3 on"),
    QT_TRANSLATE_NOOP("Parameter", "Middle 4 quality"),
    QT_TRANSLATE_NOOP("Parameter", "Middle 4 frequency"),
    QT_TRANSLATE_NOOP("Parameter", "Middle 4 gain"),
    QT_TRANSLATE_NOOP("Parameter", "Middle 4 on"),
    QT_TRANSLATE_NOOP("Parameter", "High type"),
    QT_TRANSLATE_NOOP("Parameter", "High frequency"),
    QT_TRANSLATE_NOOP("Parameter", "High gain"),
    QT_TRANSLATE_NOOP("Parameter", "High on"),
    QT_TRANSLATE_NOOP("Parameter", "Input level"),
    QT_TRANSLATE_NOOP("Parameter", "Output level"),
    QT_TRANSLATE_NOOP("Parameter", "Clean/drive"),
};

// By band: the steps nearest to 80, 400, 800, 2500, 5600 and 12500 Hz.
constexpr std::array<int, EqualizerBands::Count> defaultFrequencies = {241, 520, 641,
                                                                       839, 979, 1118};
constexpr int defaultQuality = 158; // the step nearest to 1.5

constexpr Parameter described(std::size_t index, ParameterKind kind, int minimum, int maximum,
                              int defaultValue, const char* unit = "")
{
    const char* name = equalizerParameters[index].name;
    return {name, titles[index], kind, minimum, maximum, defaultValue, unit};
}

constexpr Parameter parameterAt(std::size_t index)
{
    const int band = equalizerParameters[index].band;
    switch (equalizerParameters[index].field) {
    case EqualizerField::Type:
        return described(
            index, band == EqualizerBands::Low ? ParameterKind::LowType : ParameterKind::HighType,
            0, 3, 3);
    case EqualizerField::Quality:
        return described(index, ParameterKind::Quality, 0, 500, defaultQuality);
    case EqualizerField::Frequency:
        return described(index, ParameterKind::Frequency, 0, 1200,
                         defaultFrequencies[static_cast<std::size_t>(band)], "Hz");
    case EqualizerField::On:
        return described(index, ParameterKind::Switch, 0, 1, 1);
    case EqualizerField::Drive:
        return described(index, ParameterKind::Drive, 0, 1, 0);
    default:
        return described(index, ParameterKind::Decibels, -200, 200, 0, "dB");
    }
}

constexpr std::array<Parameter, parameterCount> allParameters()
{
    std::array<Parameter, parameterCount> parameters{};
    for (std::size_t index = 0; index < parameterCount; ++index)
        parameters[index] = parameterAt(index);
    return parameters;
}

} // namespace

constinit const std::array<Parameter, parameterCount> parameterTable = allParameters();

std::size_t findParameterByName(std::string_view name)
{
    const auto found = std::find_if(parameterTable.begin(), parameterTable.end(),
                                    [name](const Parameter& p) { return name == p.name; });
    return static_cast<std::size_t>(found - parameterTable.begin());
}

std::size_t findParameterById(unsigned short id)
{
    const bool known = id >= parameterId(0) && id < parameterId(parameterCount);
    return known ? static_cast<std::size_t>(id - parameterId(0)) : parameterCount;
}
