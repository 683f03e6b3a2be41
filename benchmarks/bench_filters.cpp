// SPDX-License-Identifier: GPL-3.0-or-later
// What the equalizer's curve costs, and the filters one by one.
#include "equalizer/BandDesign.h"
#include "equalizer/Response.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <utility>

namespace {

constexpr double Fs = 48000.0;

// A plot 690 pixels wide, sampled every third pixel and one sample beyond each edge.
constexpr int PlotWidth = 690;
constexpr int Step = 3;

struct Equalizer
{
    Equalizer()
    {
        BandDesign::designLow(low, BandDesign::SecondOrderShelf, 80.0, 6.0, Fs);
        BandDesign::designHigh(high, BandDesign::SecondOrderShelf, 12500.0, -6.0, Fs);
        constexpr std::array frequencies = {400.0, 800.0, 2500.0, 5600.0};
        for (std::size_t i = 0; i < middle.size(); ++i) {
            const double gain = i % 2 == 0 ? 9.0 : -9.0;
            BandDesign::designMiddle(middle[i], frequencies[i], 1.5, gain, Fs);
            response.middle[i].emplace(middle[i], gain);
        }
        response.low = &low;
        response.high = &high;
    }

    VEQ_Filter low;
    std::array<FILTER2PEQ, 4> middle;
    VEQ_Filter high;
    EqualizerResponse response;
};

// Items are evaluations: six bands and the total at each frequency.
void repaintResponse(benchmark::State& state)
{
    const Equalizer equalizer;
    std::int64_t evaluations = 0;
    for (auto _ : state) {
        for (int x = -Step; x <= PlotWidth + Step; x += Step) {
            const double f = 20.0 * std::pow(10.0, 3.0 * x / PlotWidth);
            benchmark::DoNotOptimize(equalizer.response.levels(f, Fs));
            evaluations += 7;
        }
    }
    state.SetItemsProcessed(evaluations);
}
BENCHMARK(repaintResponse)->Unit(benchmark::kMicrosecond);

void shelfPower(benchmark::State& state)
{
    const Equalizer equalizer;
    double f = 20.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(equalizer.low.power(f, Fs));
        f = f < 20000.0 ? f * 1.01 : 20.0;
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(shelfPower);

void peakPower(benchmark::State& state)
{
    const Equalizer equalizer;
    const FILTER2PEQ& band = equalizer.middle[1];
    const double k = band.gainFactor();
    double f = 20.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(band.power_cut(f, Fs, k));
        f = f < 20000.0 ? f * 1.01 : 20.0;
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(peakPower);

void designEveryBand(benchmark::State& state)
{
    for (auto _ : state) {
        const Equalizer equalizer;
        benchmark::DoNotOptimize(&equalizer);
    }
    state.SetItemsProcessed(state.iterations() * 6);
}
BENCHMARK(designEveryBand);

void sectionSample(benchmark::State& state)
{
    Equalizer equalizer;
    equalizer.low.clear();
    double x = 1.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(equalizer.low.cal(x));
        x = -x;
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(sectionSample);

// A fade that does not end within the measurement.
void crossFadeSample(benchmark::State& state)
{
    Equalizer equalizer;
    equalizer.low.SetSampleRate(1e15);
    equalizer.low.ChangeCoef();
    double x = 1.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(equalizer.low.cal(x));
        x = -x;
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(crossFadeSample);

void peakSample(benchmark::State& state)
{
    Equalizer equalizer;
    FILTER2PEQ& band = equalizer.middle[0];
    double x = 1.0;
    double before = 1.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(x + band.gainFactor() * band.cal_boost(x));
        band.dlyupdate_bpf(x);
        // 1, -1, -1, 1: a quarter of the rate, which the band-pass never shuts out.
        x = -std::exchange(before, x);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(peakSample);

} // namespace
