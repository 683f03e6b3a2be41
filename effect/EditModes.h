// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

/// Gives every knob of the tree of \a widget, itself included, the operation type that the host's
/// dial edit mode \a hostMode stands for. The two number the modes differently, on purpose: 1 is 2,
/// 2 is 1, anything else is 0.
void setDialEditMode(QWidget* widget, int hostMode);

/// The same for every fader and the host's slider edit mode: 0 is 3, 1 is 1, 2 is 0, 3 is 2,
/// anything else is 0.
void setSliderEditMode(QWidget* widget, int hostMode);
