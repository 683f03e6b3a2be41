// SPDX-License-Identifier: GPL-3.0-or-later
// Six bands, designed, evaluated and run; standard library only.
//
//   response            prints frequency, level and phase of the whole equalizer as CSV
//   response --sine HZ  sends a sine through the filters, and compares its level with the curve
#include <zolta/equalizer/BandDesign.h>
#include <zolta/equalizer/Decibels.h>
#include <zolta/equalizer/Response.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <numbers>
#include <string_view>
#include <vector>

namespace {

constexpr double sampleRate = 48000.0;

struct Peak
{
    double frequency; // Hz
    double quality;
    double gain; // dB
};

constexpr std::array<Peak, 4> peaks = {
    {{250.0, 1.5, -4.0}, {800.0, 2.0, 3.0}, {2500.0, 1.0, 2.5}, {6000.0, 4.0, -6.0}}};

/// A high-pass, four peaks and a high shelf: what the six bands of a channel are made of.
struct Bands
{
    VEQ_Filter low;
    std::array<FILTER2PEQ, peaks.size()> middle;
    VEQ_Filter high;

    Bands()
    {
        BandDesign::designLow(low, BandDesign::SecondOrderPass, 60.0, 0.0, sampleRate);
        for (std::size_t i = 0; i < peaks.size(); ++i)
            BandDesign::designMiddle(middle[i], peaks[i].frequency, peaks[i].quality, peaks[i].gain,
                                     sampleRate);
        BandDesign::designHigh(high, BandDesign::SecondOrderShelf, 10000.0, 3.0, sampleRate);
        low.clear(); // the designs are in force at once, instead of after a cross-fade
        high.clear();
    }

    /// What an editor draws from these filters. It refers to them.
    EqualizerResponse response() const
    {
        EqualizerResponse response;
        response.low = &low;
        for (std::size_t i = 0; i < peaks.size(); ++i)
            response.middle[i].emplace(middle[i], peaks[i].gain);
        response.high = &high;
        return response;
    }

    void process(std::span<double> block)
    {
        low.cal(block);
        for (std::size_t i = 0; i < peaks.size(); ++i) {
            const double k = middle[i].gainFactor();
            peaks[i].gain < 0.0 ? middle[i].cut(block, k) : middle[i].boost(block, k);
        }
        high.cal(block);
    }
};

/// In degrees.
double phase(const EqualizerResponse& response, double frequency)
{
    const ZPlane::Complex unitDelay = ZPlane::unitDelay(frequency, sampleRate);
    ZPlane::Complex product =
        response.low->response(unitDelay) * response.high->response(unitDelay);
    for (const auto& middle : response.middle)
        product *= middle->response(unitDelay);
    return std::arg(product) * 180.0 / std::numbers::pi;
}

void printCurve(const EqualizerResponse& response)
{
    std::puts("frequency,level,phase");
    for (int step = 0; step <= 60; ++step) {
        const double frequency = 20.0 * std::pow(10.0, step / 20.0);
        std::printf("%.2f,%.4f,%.3f\n", frequency, response.levels(frequency, sampleRate).total,
                    phase(response, frequency));
    }
}

/// The level in dB that a sine of full scale comes out with, after a second to settle.
double levelOfSine(Bands& bands, double frequency)
{
    std::vector<double> signal(static_cast<std::size_t>(2.0 * sampleRate));
    for (std::size_t i = 0; i < signal.size(); ++i)
        signal[i] = std::sin(2.0 * std::numbers::pi * frequency / sampleRate * double(i));
    bands.process(signal);
    double power = 0.0;
    for (const double sample : std::span(signal).last(signal.size() / 2))
        power += sample * sample;
    return decibelsOf(std::sqrt(4.0 * power / double(signal.size())));
}

} // namespace

int main(int argc, char* argv[])
{
    Bands bands;
    if (argc == 1) {
        printCurve(bands.response());
        return 0;
    }
    const double frequency = argc == 3 ? std::atof(argv[2]) : 0.0;
    if (argc != 3 || std::string_view(argv[1]) != "--sine" || !(frequency > 0.0)) {
        std::fprintf(stderr, "usage: response [--sine HZ]\n");
        return 2;
    }
    const double curve = bands.response().levels(frequency, sampleRate).total;
    std::printf("%g Hz: %.3f dB heard, %.3f dB drawn\n", frequency, levelOfSine(bands, frequency),
                curve);
    return 0;
}
