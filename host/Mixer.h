// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/EditorLibrary.h"
#include "host/HostMemory.h"
#include "host/HostModel.h"

/// What every editor of the mixer shares. Outlives all of them.
struct Mixer
{
    HostModel model;
    HostMemory memory;
    EditorLibrary library;
};
