// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/PlotAxes.h"

#include "equalizer/BandDesign.h"

#include <cmath>

namespace {

constexpr double DesignHeight = 192.0;
constexpr double LnSpan = 6.907755278982137; // ln(1000)

} // namespace

PlotAxes::PlotAxes(double width, double height, double range)
    : m_unit(height / DesignHeight)
    , m_left(43.5 * m_unit)
    , m_top(9.5 * m_unit)
    , m_width(width - 58.0 * m_unit)
    , m_height(height - 38.0 * m_unit)
    , m_range(range)
{}

double PlotAxes::x(double frequency) const
{
    return right() - m_width * std::log(BandDesign::MaximumFrequency / frequency) / LnSpan;
}

double PlotAxes::y(double gain) const { return centre() - (m_height / 2.0) * gain / m_range; }

double PlotAxes::frequency(double x) const
{
    return BandDesign::MinimumFrequency *
           std::pow(10.0, BandDesign::FrequencyRatio * (x - m_left) / m_width);
}

double PlotAxes::gain(double y) const { return (centre() - y) / (m_height / 2.0) * m_range; }

bool PlotAxes::contains(double x, double y) const
{
    return x >= left() && x <= right() && y >= top() && y <= bottom();
}
