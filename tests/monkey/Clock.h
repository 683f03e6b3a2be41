// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// The time that the program's own thread sees, in place of the system's: it stands still but for a
/// microsecond each time somebody looks, so that timers come in the same order however busy the
/// machine is. Other threads see the system's.
namespace Clock {

/// Milliseconds from the start.
int now();
void advance(int milliseconds);

} // namespace Clock
