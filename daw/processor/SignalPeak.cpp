// SPDX-License-Identifier: GPL-3.0-or-later
// Compiled with the knowledge that no sample is NaN or infinite, so that several are compared at a
// time. No template of the standard library's may be compiled that way, as others would get it,
// too.
#include "daw/processor/SignalPeak.h"

double peakOfSignal(std::span<const double> block)
{
    double peak = 0.0;
    for (const double sample : block) {
        const double magnitude = sample < 0.0 ? -sample : sample;
        peak = magnitude > peak ? magnitude : peak;
    }
    return peak;
}
