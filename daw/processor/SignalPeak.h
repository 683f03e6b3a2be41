// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

/// The largest magnitude in \a block, whose samples are finite. std only.
double peakOfSignal(std::span<const double> block);
