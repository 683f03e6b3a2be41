// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/analysis/SpectrumColumns.h"

#include "equalizer/BandDesign.h"
#include "host/analysis/SpectrumWindow.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double silence = 1e-20;     // SpectrumColumns::faintest as a power
constexpr double tiltCentre = 1000.0; // Hz
constexpr double overlap = 0.75;      // of a column, to either side of its middle
constexpr double leastBins = 1.5;     // that are worth a mean

double levelOf(double power) { return 10.0 * std::log10(std::max(power, silence)); }

// The slope of a line that does not swing beyond its points, by those on either side.
double slopeBetween(double before, double after)
{
    return before * after > 0.0 ? 2.0 * before * after / (before + after) : 0.0;
}

} // namespace

void SpectrumColumns::setGrid(std::size_t columns, double rate, std::size_t size)
{
    m_binWidth = rate / static_cast<double>(size);
    const double octaves = BandDesign::FrequencyRatio * std::log2(10.0);
    const double width = octaves / static_cast<double>(std::max<std::size_t>(columns, 1));
    m_reach = std::exp2(overlap * width);
    m_middles.resize(columns);
    for (std::size_t i = 0; i < columns; ++i)
        m_middles[i] = BandDesign::MinimumFrequency *
                       std::exp2(width * (static_cast<double>(i) + 0.5)) / m_binWidth;
}

double SpectrumColumns::frequency(std::size_t column) const
{
    return m_middles[column] * m_binWidth;
}

void SpectrumColumns::evaluate(std::span<const double> powers, const SpectrumWindow& window,
                               std::vector<float>* levels)
{
    findPoints(powers, window);
    levels->resize(count());
    std::size_t first = 0;
    for (std::size_t i = 0; i < count(); ++i) {
        const double middle = m_middles[i];
        while (first < m_points.size() && m_points[first].bin < middle / m_reach)
            ++first;
        double highest = -1.0;
        std::size_t next = first;
        for (; next < m_points.size() && m_points[next].bin <= middle * m_reach; ++next)
            highest = std::max(highest, m_points[next].power);
        const std::optional<double> mean = meanAround(middle);
        const double level = mean            ? levelOf(*mean)
                             : highest < 0.0 ? lineAt(first, middle)
                                             : levelOf(highest);
        const double tilt = m_tilt * std::log2(frequency(i) / tiltCentre);
        (*levels)[i] = static_cast<float>(level + tilt);
    }
}

void SpectrumColumns::findPoints(std::span<const double> powers, const SpectrumWindow& window)
{
    sum(powers);
    m_points.clear();
    for (std::size_t k = 1; k + 1 < powers.size(); ++k)
        m_points.push_back(pointOf(k, powers, window));
}

// The mean around a bin, or the tone in it.
SpectrumColumns::Point SpectrumColumns::pointOf(std::size_t bin, std::span<const double> powers,
                                                const SpectrumWindow& window) const
{
    const auto middle = static_cast<double>(bin);
    if (const std::optional<double> mean = meanAround(middle))
        return {middle, *mean};
    const double left = powers[bin - 1];
    const double right = powers[bin + 1];
    if (powers[bin] < left || powers[bin] <= right)
        return {middle, powers[bin]};
    const SpectrumWindow::Peak peak = window.peak(left, powers[bin], right);
    return {middle + peak.offset, peak.power};
}

// Weighted by a triangle that is 1/n octave wide at half its height; nothing where that is too
// narrow for the bins.
std::optional<double> SpectrumColumns::meanAround(double bin) const
{
    if (m_parts == 0)
        return {};
    const double reach = std::exp2(1.0 / m_parts);
    const double left = bin - bin / reach;
    const double right = std::min(bin * reach, static_cast<double>(m_sums.size()) - 1.5) - bin;
    if (left + right < 2.0 * leastBins || right <= 0.0)
        return {};
    const double middle = sumOfSums(bin);
    const double rise = (middle - sumOfSums(bin - left)) / left;
    const double fall = (sumOfSums(bin + right) - middle) / right;
    return std::max(fall - rise, 0.0) * 2.0 / (left + right);
}

// Of the bins before each one, and the same of these sums.
void SpectrumColumns::sum(std::span<const double> powers)
{
    m_sums.assign(1, 0.0);
    m_sumsOfSums.assign(1, 0.0);
    for (const double power : powers) {
        m_sumsOfSums.push_back(m_sumsOfSums.back() + m_sums.back() + 0.5 * power);
        m_sums.push_back(m_sums.back() + power);
    }
}

// A bin reaches half way to its neighbours.
double SpectrumColumns::sumOfSums(double bin) const
{
    const double place = std::clamp(bin + 0.5, 0.0, static_cast<double>(m_sums.size() - 1));
    const auto whole = std::min(static_cast<std::size_t>(place), m_sums.size() - 2);
    const double part = place - static_cast<double>(whole);
    const double power = m_sums[whole + 1] - m_sums[whole];
    return m_sumsOfSums[whole] + part * (m_sums[whole] + 0.5 * part * power);
}

// The level at a place before a point and behind the one before that.
double SpectrumColumns::lineAt(std::size_t next, double bin) const
{
    if (next == 0 || next >= m_points.size())
        return m_points.empty() || next > 0 ? faintest : levelOf(m_points.front().power);
    const auto bound = [this](std::size_t i) { return m_points[std::min(i, m_points.size() - 1)]; };
    const Point p[4] = {bound(next > 1 ? next - 2 : 0), bound(next - 1), bound(next),
                        bound(next + 1)};
    const double levels[4] = {levelOf(p[0].power), levelOf(p[1].power), levelOf(p[2].power),
                              levelOf(p[3].power)};
    double slopes[3];
    for (int i = 0; i < 3; ++i) {
        const double width = p[i + 1].bin - p[i].bin;
        slopes[i] = width > 0.0 ? (levels[i + 1] - levels[i]) / width : 0.0;
    }
    const double width = p[2].bin - p[1].bin;
    const double t = width > 0.0 ? (bin - p[1].bin) / width : 0.0;
    const double from = width * slopeBetween(slopes[0], slopes[1]);
    const double to = width * slopeBetween(slopes[1], slopes[2]);
    const double rise = levels[2] - levels[1];
    return levels[1] +
           t * (from + t * (3.0 * rise - 2.0 * from - to + t * (from + to - 2.0 * rise)));
}
