// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ModifierReport.h"

#include "controls/AbstractController.h"

#include <cmath>

namespace CommonController_MemAPI {

ModifierReport::ModifierReport(const AbstractController& controller,
                               Qt::KeyboardModifiers modifiers, Of of)
    : m_controller(controller)
    , m_alive(controller.lifetime())
    , m_modifiers(modifiers)
    , m_of(of)
    , m_before(read())
{}

bool ModifierReport::isDue() const
{
    if (!m_alive || !m_modifiers)
        return false;
    const double now = read();
    const bool bothUndefined = std::isnan(now) && std::isnan(m_before);
    return now != m_before && !bothUndefined;
}

double ModifierReport::read() const
{
    return m_of == Of::Value ? m_controller.value() : double{m_controller.normalized()};
}

} // namespace CommonController_MemAPI
