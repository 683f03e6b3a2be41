// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/ChannelProcessor.h"
#include "equalizer/EqualizerBands.h"

#include <QString>
#include <QStringList>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>
#include <span>
#include <vector>

/// Fails the running test unless |actual - expected| <= tolerance; NaN fails.
#define COMPARE_NEAR(actual, expected, tolerance)                                                  \
    do {                                                                                           \
        const double a_ = (actual);                                                                \
        const double e_ = (expected);                                                              \
        QVERIFY2(std::abs(a_ - e_) <= (tolerance), qPrintable(QStringLiteral("%1 is %2, not %3")   \
                                                                  .arg(QLatin1String(#actual))     \
                                                                  .arg(a_, 0, 'g', 17)             \
                                                                  .arg(e_, 0, 'g', 17)));          \
    } while (false)

/// Settings and signals that the tests of the signal processor share.
namespace EngineTesting {

using Block = std::vector<double>;
using Values = ChannelProcessor::Values;

inline Values defaults()
{
    Values values{};
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = parameterTable[i].defaultValue;
    return values;
}

/// "3=60 4=0": the parameters' numbers and raw values, the others at their defaults.
inline Values valuesFrom(const QString& settings)
{
    Values values = defaults();
    for (const QString& setting : settings.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QStringList sides = setting.split(QLatin1Char('='));
        values[static_cast<std::size_t>(sides[0].toInt() - 1)] = sides[1].toInt();
    }
    return values;
}

/// The bands as an editor's curve has them; raw values of the host's own ranges.
inline void setBands(EqualizerBands* bands, const Values& values, int rate)
{
    for (int band = 0; band < EqualizerBands::Count; ++band) {
        const int* raw = values.data() + 4 * band;
        Band& b = (*bands)[band];
        b.type = raw[0];
        b.quality = 0.5 * std::pow(2.0, raw[0] / 100.0);
        b.frequency = 20.0 * std::pow(10.0, raw[1] / 400.0);
        b.gain = raw[2] / 10.0;
        b.on = raw[3] != 0;
    }
    bands->setSampleRate(rate);
}

/// What an editor's curve shows in dB, with the levels that it does not show.
inline double drawnLevel(const EqualizerBands& bands, const Values& values, double frequency)
{
    const double levels = values[24] / 10.0 + values[25] / 10.0;
    return bands.response().levels(frequency, bands.sampleRate()).total + levels;
}

inline Block sine(double frequency, int rate, std::size_t count, double peak = 1.0)
{
    Block block(count);
    for (std::size_t i = 0; i < count; ++i)
        block[i] = peak * std::sin(2.0 * M_PI * frequency * double(i) / rate);
    return block;
}

/// What a click leaves: the peak above 6 kHz from a sample on.
inline double click(Block signal, std::size_t from, int rate)
{
    for (int i = 0; i < 3; ++i) {
        VEQ_Filter filter;
        filter.setCoefHPF(2, 6000.0, rate);
        filter.clear();
        filter.cal(std::span(signal));
    }
    double peak = 0.0;
    for (std::size_t i = from; i < signal.size(); ++i)
        peak = std::max(peak, std::abs(signal[i]));
    return peak;
}

/// White, within -peak and peak, the same every time.
inline Block noise(std::size_t count, double peak = 1.0)
{
    std::minstd_rand generator(7);
    std::uniform_real_distribution<double> random(-peak, peak);
    Block block(count);
    for (double& sample : block)
        sample = random(generator);
    return block;
}

} // namespace EngineTesting
