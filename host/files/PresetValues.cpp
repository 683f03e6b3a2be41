// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/files/PresetValues.h"

#include "host/files/PresetFolder.h"
#include "hosting/RestoredValues.h"
#include "hosting/StateFile.h"

#include <algorithm>

const FactoryPreset* findFactoryPreset(const QString& name)
{
    const auto presets = factoryPresets();
    const auto found =
        std::find_if(presets.begin(), presets.end(), [&name](const FactoryPreset& preset) {
            return QLatin1String(preset.name) == name;
        });
    return found != presets.end() ? &*found : nullptr;
}

std::optional<ChannelValues> presetValues(const PresetName& preset, const PresetFolder& folder)
{
    if (preset.isFactory) {
        const FactoryPreset* factory = findFactoryPreset(preset.name);
        return factory ? std::optional(valuesOf(*factory)) : std::nullopt;
    }
    const Result<QByteArray> state = StateFile(folder.fileOf(preset.name)).read();
    return state.isOk() ? std::optional(restoredValues(state.value())) : std::nullopt;
}
