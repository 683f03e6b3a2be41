// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "parameters/ChannelValues.h"

#include <span>
#include <vector>

/// One setting of a preset: a parameter by its English title, and its text.
struct PresetSetting
{
    const char* title; ///< of the parameter
    const char* text;  ///< of its value
};

/// A preset that comes with the equalizer, in the mixer and in workstations. Parameters that it
/// does not name are at their defaults; bands that it does not name are flat. std only.
struct FactoryPreset
{
    const char* name; ///< in English; the translations' context is "FactoryPreset"
    const char* hint; ///< what it is for, likewise
    std::vector<PresetSetting> settings; ///< what it sets
};

/// All presets, in the order in which they are offered.
std::span<const FactoryPreset> factoryPresets();

/// The values of every parameter.
ChannelValues valuesOf(const FactoryPreset& preset);
