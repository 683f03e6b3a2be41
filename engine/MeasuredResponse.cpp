// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/MeasuredResponse.h"

#include "engine/ChannelMeters.h"
#include "engine/ChannelProcessor.h"
#include "equalizer/Decibels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numbers>

namespace {

using Complex = std::complex<double>;

constexpr double maxSeconds = 4.0;
constexpr std::size_t strandCount = 4;
constexpr std::size_t partSize = 4096;
constexpr double silence = 1e-10;     // of the largest sample
constexpr double lowestLevel = 1e-12; // a factor, for what is nothing at all

std::vector<double> impulseResponse(const ChannelValues& values, double sampleRate)
{
    ChannelProcessor processor;
    processor.setSampleRate(sampleRate);
    processor.setValues(values);
    const auto maxSize = static_cast<std::size_t>(maxSeconds * sampleRate);
    std::vector<double> response;
    double peak = 0.0;
    double last = 0.0;
    do {
        response.resize(response.size() + partSize);
        const std::span<double> part = std::span(response).last(partSize);
        part.front() = response.size() == partSize ? 1.0 : 0.0;
        processor.process(part);
        last = peakOf(part);
        peak = std::max(peak, last);
    } while (last > silence * peak && response.size() < maxSize);
    return response;
}

// Horner's rule from the last sample on, in strands that do not wait for one another.
Complex spectrumAt(std::span<const double> samples, Complex delay)
{
    const Complex leap = delay * delay * delay * delay;
    std::array<Complex, strandCount> strands{};
    for (std::size_t first = samples.size(); first > 0;) {
        first -= strandCount;
        for (std::size_t k = 0; k < strandCount; ++k) {
            const Complex sum = strands[k];
            strands[k] = {sum.real() * leap.real() - sum.imag() * leap.imag() + samples[first + k],
                          sum.real() * leap.imag() + sum.imag() * leap.real()};
        }
    }
    return strands[0] + delay * (strands[1] + delay * (strands[2] + delay * strands[3]));
}

} // namespace

std::vector<double> measuredResponse(const ChannelValues& values, double sampleRate,
                                     std::span<const double> frequencies)
{
    const std::vector<double> response = impulseResponse(bandsOnly(values), sampleRate);
    std::vector<double> levels;
    for (const double frequency : frequencies) {
        const Complex delay = std::polar(1.0, -2.0 * std::numbers::pi * frequency / sampleRate);
        const double magnitude = std::abs(spectrumAt(response, delay));
        levels.push_back(decibelsOf(std::max(magnitude, lowestLevel)));
    }
    return levels;
}
