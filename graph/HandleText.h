// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class EqualizerBands;

/// The curve's handles in words and numbers, for those who cannot see them. Numbers look the same
/// in every language.
namespace HandleText {

/// "Low band", "Middle 1 band" to "Middle 4 band", "High band", translated in the context
/// "ZoltaEqualizerGraph". Bands are numbered as in EqualizerBands; any other number has no name.
QString name(int band);

/// What the band is set to: "1.25 kHz, +3.0 dB, Q 1.4". Only a middle band has a Q, and a band
/// whose gain does not act has none.
QString value(const EqualizerBands& bands, int band);

/// The one number that stands for the handle: the gain in dB, or the frequency in Hz where no gain
/// acts.
double number(const EqualizerBands& bands, int band);

/// A frequency in Hz with three significant digits: "80.0 Hz", "1.25 kHz".
QString frequency(double hz);
/// A gain in dB with its sign and one decimal: "+3.0 dB", "-0.5 dB", "+0.0 dB".
QString gain(double db);

} // namespace HandleText
