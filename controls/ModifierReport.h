// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/Lifetime.h"

#include <Qt>

namespace CommonController_MemAPI {

class AbstractController;

/// Decides whether a control reports the keyboard modifiers of a user's change: made before the
/// change, asked after it. Due when modifiers were held and the change had an effect, and never
/// once the change destroyed the control.
///
///     const ModifierReport report(*this, event->modifiers());
///     editValue(value() + 1);
///     if (report.isDue())
///         Q_EMIT modifiersChange(this, report.modifiers());
class ModifierReport
{
public:
    /// What has to differ: the value, or its position in the range.
    enum class Of { Value, Normalized };

    ModifierReport(const AbstractController& controller, Qt::KeyboardModifiers modifiers,
                   Of of = Of::Value);

    bool isDue() const;
    Qt::KeyboardModifiers modifiers() const { return m_modifiers; }

private:
    double read() const;

    const AbstractController& m_controller;
    Lifetime::Guard m_alive;
    Qt::KeyboardModifiers m_modifiers;
    Of m_of;
    double m_before;
};

} // namespace CommonController_MemAPI
