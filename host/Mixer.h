// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/BuiltInSignal.h"
#include "host/EditorLibrary.h"
#include "host/HostMemory.h"
#include "host/HostModel.h"
#include "host/Language.h"
#include "host/MeterSource.h"
#include "host/SettingsFile.h"
#include "host/mixer/Desk.h"

/// What every editor of the mixer shares. Outlives all of them; needs an application object.
struct Mixer
{
    HostModel model;
    HostMemory memory;
    Desk desk{memory};
    EditorLibrary library;
    MeterSource meters{memory, std::make_unique<BuiltInSignal>()};
    SettingsFile settings;
    LanguageSwitch language;
};
