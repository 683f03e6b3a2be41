// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "parameters/ChannelValues.h"

#include <QByteArray>

/// The raw values that the equalizer's own component restores from a checked \a state (StateFile):
/// the same as through an open editor.
ChannelValues restoredValues(const QByteArray& state);
