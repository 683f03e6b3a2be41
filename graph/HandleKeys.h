// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/EqualizerParameters.h"

#include <Qt>

#include <optional>

/// What the keyboard does to the focused handle of the curve.
namespace HandleKeys {

/// A change of one field of the band by a number of raw steps.
struct Step
{
    EqualizerField field;
    int count;
};

/// Left and Right move the frequency, Down and Up the gain, Page Down and Page Up the quality, by
/// one step or, with Shift, by ten. Other keys and other modifiers mean nothing; the keypad's keys
/// count like the others.
std::optional<Step> step(int key, Qt::KeyboardModifiers modifiers);

} // namespace HandleKeys
