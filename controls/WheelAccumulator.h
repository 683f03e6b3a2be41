// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

class QWheelEvent;

namespace CommonController_MemAPI {

/// Makes whole steps of wheel movements, in the unit of QWheelEvent::angleDelta() (eighths of a
/// degree). What is less than a step is kept for the next event, so that touchpads and fine wheels
/// arrive where a notched wheel does; turning back discards it.
class WheelAccumulator
{
public:
    /// One notch of a common wheel, and what one step of 1 costs with Shift.
    static constexpr int Notch = 120;
    static constexpr int FineNotch = 360;

    /// The larger component, with the sign of the wheel's own direction: positive away from the
    /// hand, whichever way the system is set to scroll.
    static int delta(const QWheelEvent& event);

    /// Adds \a event and takes the whole steps out: \a valueStep for each notch; with Shift 1 for
    /// each notch, or for each three where \a valueStep is 1 already.
    std::int64_t steps(const QWheelEvent& event, int valueStep);
    /// Adds \a delta and takes the multiples of \a divisor out, towards 0.
    std::int64_t take(int delta, int divisor);

private:
    int m_remainder = 0;
};

} // namespace CommonController_MemAPI
