// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "parameters/ChannelValues.h"

#include <span>
#include <vector>

/// What the bands of a channel do to sound, measured: the spectrum of an impulse that has gone
/// through a ChannelProcessor, as a level in dB for each of \a frequencies (Hz, up to half of
/// \a sampleRate). Input level, output level and drive are left out, as in the drawn curve. std
/// only.
///
/// The response is listened to until it has died away, for four seconds of sound at most; what the
/// rest would change is below 0.001 dB except at the quietest frequencies.
std::vector<double> measuredResponse(const ChannelValues& values, double sampleRate,
                                     std::span<const double> frequencies);
