// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/HostMemory.h"

#include <QFont>
#include <QPalette>
#include <QSize>
#include <QString>
#include <QWidget>

#include <array>

namespace CommonController_MemAPI {
class AbstractController;
}

/// What the gallery's sections make their controls with.
namespace Gallery {

using CommonController_MemAPI::AbstractController;

/// The scales that every control is shown at.
inline constexpr std::array<double, 4> scales = {0.5, 1.0, 1.5, 2.0};
/// The positions in the range that controls with a value are shown at.
inline constexpr std::array<double, 5> positions = {0.0, 0.25, 0.5, 0.75, 1.0};

/// The opacity of pictures of disabled controls.
inline constexpr double disabledOpacity = 0.4;

/// A file of the editor's artwork, and one of the gallery's own.
QString artwork(const char* file);
QString image(const char* file);

/// The editor's lettering, \a pixels high.
QFont font(double pixels = 12.0);
/// Light letters on a dark ground: white with the focus, a little dimmer without, grey while
/// disabled.
QPalette textPalette();
/// The colours of the editor's level meters.
QPalette meterPalette();

/// Binds \a control to the parameter called \a name, which must exist.
void bind(AbstractController& control, HostMemory& memory, const char* name, int channel = 0);
/// The same, and writes the value that lies at \a position of the range.
void bindAt(AbstractController& control, HostMemory& memory, const char* name, int channel,
            double position);
/// Gives an unbound control a value by its position.
void setPosition(AbstractController& control, double position);

/// Sizes \a control, which is \a size large at scale 1.
template <class Control> Control* zoomed(Control* control, QSize size, double scale = 1.0)
{
    control->resize((QSizeF(size) * scale).toSize());
    control->setScale(scale);
    return control;
}

template <class Control> Control* disabled(Control* control)
{
    control->setEnabled(false);
    return control;
}

QString percent(double position);
QString times(double scale);
/// The level of a meter in words.
QString decibels(int tenths);

} // namespace Gallery
