// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// "440.0 Hz", "1.25 kHz".
QString frequencyText(double hertz);

/// "+3.0 dB", "0.0 dB"; with the sign of infinity for what cannot be told from silence.
QString levelText(double decibels);

/// The note of the equal temperament (A4 is 440 Hz) that is nearest to a frequency in Hz, and how
/// far it is off in cents: "A4", "C#5 +12 ct".
QString noteName(double hertz);
