// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/analysis/ReadoutText.h"

#include <array>
#include <cmath>

namespace {

constexpr double faintest = -150.0; // dB

} // namespace

QString frequencyText(double hertz)
{
    return hertz < 1000.0 ? QStringLiteral("%1 Hz").arg(hertz, 0, 'f', 1)
                          : QStringLiteral("%1 kHz").arg(hertz / 1000.0, 0, 'f', 2);
}

QString levelText(double decibels)
{
    if (decibels < faintest)
        return QStringLiteral("-\u221e dB");
    const QString number = QString::number(std::abs(decibels), 'f', 1);
    const bool isZero = number == QLatin1String("0.0");
    const QString sign = isZero ? QString() : QString(QChar(decibels > 0.0 ? u'+' : u'-'));
    return sign + number + QLatin1String(" dB");
}

QString noteName(double hertz)
{
    static constexpr std::array names = {"C",  "C#", "D",  "D#", "E",  "F",
                                         "F#", "G",  "G#", "A",  "A#", "B"};
    const double semitones = 12.0 * std::log2(hertz / 440.0) + 57.0; // above C0
    const auto nearest = static_cast<int>(std::lround(semitones));
    const auto cents = static_cast<int>(std::lround(100.0 * (semitones - nearest)));
    const QString name = QLatin1String(names[static_cast<std::size_t>(nearest % 12)]) +
                         QString::number(nearest / 12);
    const QLatin1String sign(cents > 0 ? "+" : "");
    return cents == 0 ? name : QStringLiteral("%1 %2%3 ct").arg(name, sign).arg(cents);
}
