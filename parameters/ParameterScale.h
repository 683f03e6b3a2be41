// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "parameters/ParameterTable.h"

/// Raw values as the numbers that they stand for: Hz, Q, dB, or the number of a choice. std only.

/// What the raw value \a step stands for.
double numberOf(ParameterKind kind, int step);

/// The raw value that is nearest to \a number; beyond the range, the nearest end. \a number is not
/// NaN.
int stepOf(ParameterKind kind, double number);
