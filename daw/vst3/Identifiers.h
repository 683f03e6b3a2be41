// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/EqualizerParameters.h"

#include <pluginterfaces/base/funknown.h>

/// The class of the processor: that of the equalizer's presets, so that they are the same for the
/// mixer and for workstations.
inline Steinberg::FUID processorClassId()
{
    return {equalizerClassId[0], equalizerClassId[1], equalizerClassId[2], equalizerClassId[3]};
}

/// The class of the controller. Sessions hold it, so it never changes.
inline Steinberg::FUID controllerClassId()
{
    return {0x5A6F6C74, 0x61457143, 0x6F6E7472, 0x6F6C6C72};
}

inline constexpr const char* pluginName = "Zolta Equalizer";
inline constexpr const char* vendorName = "Zolta";
