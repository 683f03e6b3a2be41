// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/model/NoteName.h"

#include <array>
#include <cmath>

QString noteName(double frequency)
{
    static constexpr std::array names = {"C",  "C#", "D",  "D#", "E",  "F",
                                         "F#", "G",  "G#", "A",  "A#", "B"};
    const double semitones = 12.0 * std::log2(frequency / 440.0) + 57.0; // above C0
    const auto nearest = static_cast<int>(std::lround(semitones));
    const auto cents = static_cast<int>(std::lround(100.0 * (semitones - nearest)));
    const QString name = QLatin1String(names[static_cast<std::size_t>(nearest % 12)]) +
                         QString::number(nearest / 12);
    if (cents == 0)
        return name;
    return QStringLiteral("%1 %2%3 ct")
        .arg(name, QChar(cents > 0 ? u'+' : u'\u2212'))
        .arg(std::abs(cents));
}
