// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/LinearDrag.h"

#include "controls/WideInteger.h"

namespace CommonController_MemAPI {

int LinearDrag::pixelsPerStep(int minimum, int maximum)
{
    const std::int64_t count = std::int64_t{maximum} - minimum + 1;
    return count > 0 ? static_cast<int>(std::clamp<std::int64_t>(200 / count, 1, 20)) : 1;
}

void LinearDrag::begin(QPoint point, int value, bool fine)
{
    m_last = point;
    reanchor(value, fine);
}

void LinearDrag::reanchor(int value, bool fine)
{
    m_press = m_last;
    m_startValue = value;
    m_fine = fine;
}

int LinearDrag::valueAt(QPoint point, int minimum, int maximum, double scale, int valueStep) const
{
    const double distance = double(point.x()) - m_press.x() + m_press.y() - point.y();
    const double pixels = scale * pixelsPerStep(minimum, maximum) * (m_fine ? FineDivisor : 1.0);
    const std::int64_t steps = truncateToInteger(distance / pixels);
    return saturateToInt(m_startValue + (m_fine ? steps : steps * valueStep));
}

} // namespace CommonController_MemAPI
