// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "parameters/SavedState.h"

#include <pluginterfaces/base/ibstream.h>

/// Reads a state from a workstation's stream; nothing if it holds none.
std::optional<SavedState> readState(Steinberg::IBStream* stream);
/// Whether all of it was written.
bool writeState(Steinberg::IBStream* stream, const SavedState& state);
