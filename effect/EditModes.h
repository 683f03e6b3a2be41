// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

/// The knobs' edit mode for the host's dial edit mode \a hostMode. The two number the modes
/// differently, on purpose: 1 is 2, 2 is 1, anything else is 0.
int knobEditMode(int hostMode);

/// The faders' edit mode for the host's slider edit mode \a hostMode: 0 is 3, 1 is 1, 2 is 0, 3
/// is 2, anything else is 0.
int faderEditMode(int hostMode);

/// Gives every knob of the tree of \a widget, itself included, the operation type that the host's
/// dial edit mode \a hostMode stands for.
void setDialEditMode(QWidget* widget, int hostMode);

/// The same for every fader and the host's slider edit mode.
void setSliderEditMode(QWidget* widget, int hostMode);
