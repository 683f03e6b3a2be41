// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// The note of the equal temperament (A4 is 440 Hz) that is nearest to a frequency in Hz, and how
/// far it is off in cents: "A4", "C#5 +12 ct".
QString noteName(double frequency);
