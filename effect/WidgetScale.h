// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

/// The zoom factor that applies to \a widget: the scale() of the EffectEditor that it is or that
/// contains it, 1.0 outside any editor and for null. Always a finite number.
///
/// The menu of a pull-down button belongs to the editor of its button, whatever its own parent is.
double getWidgetScale(const QWidget* widget);
