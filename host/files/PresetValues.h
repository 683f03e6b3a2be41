// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/model/ChannelPresets.h"
#include "parameters/FactoryPresets.h"

#include <optional>

class PresetFolder;

/// The preset of that English name that comes with the mixer; null if there is none.
const FactoryPreset* findFactoryPreset(const QString& name);

/// What \a preset sets, the user's own being in \a folder; nothing if it is not there or its file
/// is damaged.
std::optional<ChannelValues> presetValues(const PresetName& preset, const PresetFolder& folder);
