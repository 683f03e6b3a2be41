// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/analysis/SpectrumWindow.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double pi = std::numbers::pi;
constexpr double tolerance = 2.0; // what noise may add

constexpr std::array<std::array<double, 5>, 3> allTerms = {
    {{0.5, 0.5, 0.0, 0.0, 0.0},
     {0.35875, 0.48829, 0.14128, 0.01168, 0.0},
     {0.21557895, 0.41663158, 0.277263158, 0.083578947, 0.006947368}}};

double sinc(double x) { return std::abs(x) < 1e-9 ? 1.0 : std::sin(pi * x) / (pi * x); }

} // namespace

SpectrumWindow::SpectrumWindow(AnalyzerSettings::Window window, std::size_t size)
    : m_terms(allTerms[static_cast<std::size_t>(window)])
    , m_weights(size)
{
    for (std::size_t i = 0; i < size; ++i) {
        const double phase = 2.0 * pi * static_cast<double>(i) / static_cast<double>(size);
        double weight = m_terms[0];
        for (std::size_t k = 1; k < maxTerms; ++k)
            weight += (k % 2 == 0 ? 1.0 : -1.0) * m_terms[k] * std::cos(phase * double(k));
        m_weights[i] = static_cast<float>(weight);
    }
    tabulate();
}

SpectrumWindow::Peak SpectrumWindow::peak(double left, double middle, double right) const
{
    const double ratio = middle > 0.0 ? std::sqrt(std::max(left, right) / middle) : 0.0;
    const auto step = static_cast<std::size_t>(std::lround(std::min(ratio, 1.0) * double{steps}));
    const Known& known = m_known[step];
    if (std::min(left, right) > tolerance * known.other * middle)
        return {0.0, middle};
    return {right > left ? known.peak.offset : -known.peak.offset, known.peak.power * middle};
}

// What a bin shows of a sine that lies so many bins beside it; 1 for one in its middle. The signs
// of the cosines and those of the shifted lobes cancel.
double SpectrumWindow::response(double offset) const
{
    double sum = m_terms[0] * sinc(offset);
    for (std::size_t k = 1; k < maxTerms; ++k)
        sum += 0.5 * m_terms[k] * (sinc(offset - double(k)) + sinc(offset + double(k)));
    return sum / m_terms[0];
}

// The nearer a sine is to the middle between two bins, the more alike they are.
void SpectrumWindow::tabulate()
{
    double offset = 0.0;
    for (std::size_t i = 0; i <= steps; ++i) {
        const double ratio = static_cast<double>(i) / double{steps};
        while (offset < 0.5 && std::abs(response(1.0 - offset) / response(offset)) < ratio)
            offset = std::min(offset + 1.0 / 4096.0, 0.5);
        const double shown = response(offset);
        const double other = response(1.0 + offset) / shown;
        m_known[i] = {{offset, 1.0 / (shown * shown)}, other * other};
    }
}
