// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/EqualizerBands.h"
#include "parameters/ParameterTable.h"

#include <array>

/// The raw values of one channel's equalizer, by parameter index, and what they mean. std only.
using ChannelValues = std::array<int, parameterCount>;

/// Every parameter at its default.
ChannelValues defaultValues();
/// \a values with the bands alone: both levels 0 dB, no drive.
ChannelValues bandsOnly(ChannelValues values);
/// \a values so changed that the equalizer lets every sample through as it is: no band either.
ChannelValues bypassed(ChannelValues values);

/// The settings of band 0 (low) to 5 (high), as the editor reads them.
Band bandOf(const ChannelValues& values, int band);
/// Gives \a bands the settings and designs them.
void setBands(EqualizerBands& bands, const ChannelValues& values);
/// Whether a band has the same values in both.
bool isSameBand(const ChannelValues& a, const ChannelValues& b, int band);
/// The input level in dB.
double inputLevelOf(const ChannelValues& values);
/// The output level in dB.
double outputLevelOf(const ChannelValues& values);
/// Whether there is drive.
bool isDriven(const ChannelValues& values);
