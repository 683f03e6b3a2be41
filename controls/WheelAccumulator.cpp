// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/WheelAccumulator.h"

#include "controls/WideInteger.h"

#include <QWheelEvent>

#include <cstdlib>

namespace CommonController_MemAPI {

int WheelAccumulator::delta(const QWheelEvent& event)
{
    const std::int64_t x = event.angleDelta().x();
    const std::int64_t y = event.angleDelta().y();
    const std::int64_t larger = std::abs(x) > std::abs(y) ? x : y;
    return saturateToInt(event.inverted() ? -larger : larger);
}

std::int64_t WheelAccumulator::steps(const QWheelEvent& event, int valueStep)
{
    if (event.modifiers() & Qt::ShiftModifier)
        return take(delta(event), valueStep == 1 ? FineNotch : Notch);
    return take(delta(event), Notch) * valueStep;
}

std::int64_t WheelAccumulator::take(int delta, int divisor)
{
    const bool reversed = (m_remainder < 0 && delta > 0) || (m_remainder > 0 && delta < 0);
    const std::int64_t sum = std::int64_t{reversed ? 0 : m_remainder} + delta;
    m_remainder = static_cast<int>(sum % divisor);
    return sum / divisor;
}

} // namespace CommonController_MemAPI
