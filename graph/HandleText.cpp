// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/HandleText.h"

#include "equalizer/EqualizerBands.h"

#include <QCoreApplication>
#include <QStringList>

#include <array>
#include <cmath>

namespace {

constexpr std::array<const char*, EqualizerBands::Count> Names = {
    QT_TRANSLATE_NOOP("ZoltaEqualizerGraph", "Low band"),
    QT_TRANSLATE_NOOP("ZoltaEqualizerGraph", "Middle 1 band"),
    QT_TRANSLATE_NOOP("ZoltaEqualizerGraph", "Middle 2 band"),
    QT_TRANSLATE_NOOP("ZoltaEqualizerGraph", "Middle 3 band"),
    QT_TRANSLATE_NOOP("ZoltaEqualizerGraph", "Middle 4 band"),
    QT_TRANSLATE_NOOP("ZoltaEqualizerGraph", "High band"),
};

QString threeDigits(double number)
{
    const int decimals = number < 10.0 ? 2 : number < 100.0 ? 1 : 0;
    return QString::number(number, 'f', decimals);
}

} // namespace

QString HandleText::name(int band)
{
    if (band < 0 || band >= EqualizerBands::Count)
        return {};
    return QCoreApplication::translate("ZoltaEqualizerGraph",
                                       Names[static_cast<std::size_t>(band)]);
}

QString HandleText::value(const EqualizerBands& bands, int band)
{
    QStringList parts{frequency(bands[band].frequency)};
    if (bands.hasGain(band))
        parts << gain(bands[band].gain);
    if (EqualizerBands::isMiddle(band))
        parts << QStringLiteral("Q ") + QString::number(bands[band].quality, 'f', 1);
    return parts.join(QStringLiteral(", "));
}

double HandleText::number(const EqualizerBands& bands, int band)
{
    return bands.hasGain(band) ? bands[band].gain : bands[band].frequency;
}

QString HandleText::frequency(double hz)
{
    // Rounded first: what rounds up to the next power of ten loses a decimal or changes its unit.
    const double rounded = QString::number(hz, 'e', 2).toDouble();
    if (rounded < 1000.0)
        return threeDigits(rounded) + QStringLiteral(" Hz");
    return threeDigits(rounded / 1000.0) + QStringLiteral(" kHz");
}

QString HandleText::gain(double db)
{
    const QString size = QString::number(std::abs(db), 'f', 1);
    const bool isNegative = db < 0.0 && size != QLatin1String("0.0");
    return (isNegative ? QLatin1Char('-') : QLatin1Char('+')) + size + QStringLiteral(" dB");
}
