// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/BandDesign.h"

#include <QRectF>

#include <cmath>

/// Where frequencies and levels stand in an analyzer: its axes, which painting and the cursor
/// share. The spectrum's levels are on the left, those of the equalizer's curve on the right, with
/// 0 dB in the middle; both have the same eight steps.
struct AnalyzerPlot
{
    static constexpr double highest = 12.0; ///< dB, of the spectrum
    static constexpr double lowest = -84.0;
    static constexpr int steps = 8;

    QRectF area;
    double curveRange = 12.0; ///< dB, in both directions

    double x(double frequency) const
    {
        const double decades = std::log10(frequency / BandDesign::MinimumFrequency);
        return area.left() + area.width() * decades / BandDesign::FrequencyRatio;
    }
    double frequency(double x) const
    {
        const double decades = BandDesign::FrequencyRatio * (x - area.left()) / area.width();
        return BandDesign::MinimumFrequency * std::pow(10.0, decades);
    }
    double y(double level) const
    {
        return area.top() + area.height() * (highest - level) / (highest - lowest);
    }
    double curveY(double level) const
    {
        return area.center().y() - area.height() / 2.0 * level / curveRange;
    }
};
