// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "parameters/ParameterTable.h"

#include <optional>
#include <string>
#include <string_view>

/// Raw values as the texts that people read and type. The same in every locale.
///
/// Texts carry no unit: frequency "80" or "1.25k" (Hz), gain and level "+3.0" (dB), quality "0.50",
/// types "HPF 12", switches "On". A frequency or quality is written as the roundest number that
/// names its step (of the frequency 80.12 Hz that is 80), qualities with two decimals at least
/// below 10 and one above: parseParameter(formatParameter(value)) is value for every value of every
/// parameter, and a round number that was typed is what is shown.

/// The text of \a value; nothing if the parameter does not allow it.
std::optional<std::string> formatParameter(const Parameter& parameter, int value);

/// The raw value that is nearest to what \a text says; beyond the range, the nearest end.
///
/// Blanks around it, case, a decimal comma, a leading "+" and the unit ("1.25 kHz", "+6 dB") do not
/// matter. Anything else (nothing at all, words, "nan", something after the unit, more than 64
/// characters) is no value.
std::optional<int> parseParameter(const Parameter& parameter, std::string_view text);

/// Tenths of a dB as "+3.0", "0.0" or "-12.5".
std::string formatTenths(int tenths);

/// What may be typed, for a message: "20 to 20k Hz", "Off or On".
std::string describeValues(const Parameter& parameter);
