// SPDX-License-Identifier: GPL-3.0-or-later
// Compiled with the knowledge that no sample is NaN or infinite, so that several are compared at a
// time. No template of the standard library's may be compiled that way, as others would get it,
// too.
#include "daw/processor/SignalPeak.h"

namespace {

// So many comparisons do not wait for each other's result.
constexpr int laneCount = 8;

void raise(double* peak, double sample)
{
    const double magnitude = sample < 0.0 ? -sample : sample;
    *peak = magnitude > *peak ? magnitude : *peak;
}

} // namespace

double peakOfSignal(std::span<const double> block)
{
    double peaks[laneCount] = {};
    const double* sample = block.data();
    const double* const end = sample + block.size();
    for (; end - sample >= laneCount; sample += laneCount) {
        for (int lane = 0; lane < laneCount; ++lane)
            raise(&peaks[lane], sample[lane]);
    }
    for (; sample != end; ++sample)
        raise(&peaks[0], *sample);
    for (int lane = 1; lane < laneCount; ++lane)
        raise(&peaks[0], peaks[lane]);
    return peaks[0];
}
