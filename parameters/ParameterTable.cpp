// SPDX-License-Identifier: GPL-3.0-or-later
#include "parameters/ParameterTable.h"

#include <QtGlobal>

#include <algorithm>

namespace {

constexpr Parameter lowType(const char* name, const char* title)
{
    return {name, title, ParameterKind::LowType, 0, 3, 3, ""};
}

constexpr Parameter highType(const char* name, const char* title)
{
    return {name, title, ParameterKind::HighType, 0, 3, 3, ""};
}

constexpr Parameter frequency(const char* name, const char* title, int defaultValue)
{
    return {name, title, ParameterKind::Frequency, 0, 1200, defaultValue, "Hz"};
}

constexpr Parameter quality(const char* name, const char* title)
{
    return {name, title, ParameterKind::Quality, 0, 500, 158, ""};
}

constexpr Parameter decibels(const char* name, const char* title)
{
    return {name, title, ParameterKind::Decibels, -200, 200, 0, "dB"};
}

constexpr Parameter onOff(const char* name, const char* title)
{
    return {name, title, ParameterKind::Switch, 0, 1, 1, ""};
}

} // namespace

// The default frequencies are the steps nearest to 80, 400, 800, 2500, 5600 and 12500 Hz, the
// default quality the one nearest to 1.5.
constinit const std::array<Parameter, parameterCount> parameterTable = {{
    lowType("fx_rackfx_prm_1", QT_TRANSLATE_NOOP("Parameter", "Low type")),
    frequency("fx_rackfx_prm_2", QT_TRANSLATE_NOOP("Parameter", "Low frequency"), 241),
    decibels("fx_rackfx_prm_3", QT_TRANSLATE_NOOP("Parameter", "Low gain")),
    onOff("fx_rackfx_prm_4", QT_TRANSLATE_NOOP("Parameter", "Low on")),
    quality("fx_rackfx_prm_5", QT_TRANSLATE_NOOP("Parameter", "Middle 1 quality")),
    frequency("fx_rackfx_prm_6", QT_TRANSLATE_NOOP("Parameter", "Middle 1 frequency"), 520),
    decibels("fx_rackfx_prm_7", QT_TRANSLATE_NOOP("Parameter", "Middle 1 gain")),
    onOff("fx_rackfx_prm_8", QT_TRANSLATE_NOOP("Parameter", "Middle 1 on")),
    quality("fx_rackfx_prm_9", QT_TRANSLATE_NOOP("Parameter", "Middle 2 quality")),
    frequency("fx_rackfx_prm_10", QT_TRANSLATE_NOOP("Parameter", "Middle 2 frequency"), 641),
    decibels("fx_rackfx_prm_11", QT_TRANSLATE_NOOP("Parameter", "Middle 2 gain")),
    onOff("fx_rackfx_prm_12", QT_TRANSLATE_NOOP("Parameter", "Middle 2 on")),
    quality("fx_rackfx_prm_13", QT_TRANSLATE_NOOP("Parameter", "Middle 3 quality")),
    frequency("fx_rackfx_prm_14", QT_TRANSLATE_NOOP("Parameter", "Middle 3 frequency"), 839),
    decibels("fx_rackfx_prm_15", QT_TRANSLATE_NOOP("Parameter", "Middle 3 gain")),
    onOff("fx_rackfx_prm_16", QT_TRANSLATE_NOOP("Parameter", "Middle 3 on")),
    quality("fx_rackfx_prm_17", QT_TRANSLATE_NOOP("Parameter", "Middle 4 quality")),
    frequency("fx_rackfx_prm_18", QT_TRANSLATE_NOOP("Parameter", "Middle 4 frequency"), 979),
    decibels("fx_rackfx_prm_19", QT_TRANSLATE_NOOP("Parameter", "Middle 4 gain")),
    onOff("fx_rackfx_prm_20", QT_TRANSLATE_NOOP("Parameter", "Middle 4 on")),
    highType("fx_rackfx_prm_21", QT_TRANSLATE_NOOP("Parameter", "High type")),
    frequency("fx_rackfx_prm_22", QT_TRANSLATE_NOOP("Parameter", "High frequency"), 1118),
    decibels("fx_rackfx_prm_23", QT_TRANSLATE_NOOP("Parameter", "High gain")),
    onOff("fx_rackfx_prm_24", QT_TRANSLATE_NOOP("Parameter", "High on")),
    decibels("fx_rackfx_prm_25", QT_TRANSLATE_NOOP("Parameter", "Input level")),
    decibels("fx_rackfx_prm_26", QT_TRANSLATE_NOOP("Parameter", "Output level")),
    {"fx_rackfx_prm_27", QT_TRANSLATE_NOOP("Parameter", "Clean/drive"), ParameterKind::Drive, 0, 1,
     0, ""},
}};

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
