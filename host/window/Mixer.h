// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/files/SettingsFile.h"
#include "host/meters/BuiltInSignal.h"
#include "host/meters/MeterSource.h"
#include "host/model/MixerModel.h"
#include "host/window/AnalyzerStore.h"
#include "host/window/Language.h"
#include "hosting/EditorLibrary.h"
#include "hosting/HostMemory.h"
#include "hosting/HostModel.h"

/// What every editor of the mixer shares. Outlives all of them; needs an application object.
struct Mixer
{
    HostMemory memory;
    HostModel model{memory};
    MixerModel mixerModel{memory};
    EditorLibrary library;
    MeterSource meters{memory, std::make_unique<BuiltInSignal>()};
    SettingsFile settings;
    LanguageSwitch language;
    AnalyzerStore analyzer;
};
