// SPDX-License-Identifier: GPL-3.0-or-later
// What the signal processor costs: how many channels one core keeps up with in real time (items a
// second over the sample rate), and the worst block while every parameter moves. What is said to be
// so many times something else is measured in turns with it: "ratio" beside its "limit".
#include "engine/AudioEngine.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <memory>
#include <random>
#include <span>
#include <vector>

namespace {

constexpr std::size_t blockLength = 256;

using Values = ChannelProcessor::Values;

Values defaults()
{
    Values values{};
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = parameterTable[i].defaultValue;
    return values;
}

// Every band does something; boosts and cuts in turn, or all boosts or all cuts.
Values busy(int drive, int sign = 0)
{
    Values values = defaults();
    for (std::size_t band = 0; band < 6; ++band) {
        const int alternating = band % 2 == 0 ? 1 : -1;
        values[4 * band + 2] = 60 * (sign == 0 ? alternating : sign);
    }
    values[24] = -10;
    values[25] = 15;
    values[26] = drive;
    return values;
}

Values random(std::minstd_rand* generator)
{
    Values values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        const Parameter& p = parameterTable[i];
        values[i] = std::uniform_int_distribution<int>(p.minimum, p.maximum)(*generator);
    }
    return values;
}

std::vector<double> noise(std::size_t count)
{
    std::minstd_rand generator(7);
    std::uniform_real_distribution<double> sample(-0.5, 0.5);
    std::vector<double> block(count);
    std::generate(block.begin(), block.end(), [&] { return sample(generator); });
    return block;
}

void report(benchmark::State& state, double rate)
{
    const double samples = static_cast<double>(state.iterations()) * double{blockLength};
    state.SetItemsProcessed(static_cast<std::int64_t>(samples));
    state.counters["channels"] = benchmark::Counter(samples / rate, benchmark::Counter::kIsRate);
}

void runChannel(benchmark::State& state, const Values& values)
{
    const auto rate = static_cast<double>(state.range(0));
    ChannelProcessor processor;
    processor.setSampleRate(rate);
    processor.setValues(values);
    const std::vector<double> in = noise(blockLength);
    std::vector<double> block = in;
    for (auto _ : state) {
        std::copy(in.begin(), in.end(), block.begin());
        processor.process(block);
        benchmark::DoNotOptimize(block.data());
        benchmark::ClobberMemory();
    }
    report(state, rate);
}

void channelClean(benchmark::State& state) { runChannel(state, busy(0)); }
void channelBoosts(benchmark::State& state) { runChannel(state, busy(0, 1)); }
void channelCuts(benchmark::State& state) { runChannel(state, busy(0, -1)); }
void channelDrive(benchmark::State& state) { runChannel(state, busy(1)); }
void channelFlat(benchmark::State& state) { runChannel(state, defaults()); }
BENCHMARK(channelClean)->Arg(48000)->Arg(192000);
BENCHMARK(channelBoosts)->Arg(48000);
BENCHMARK(channelCuts)->Arg(48000);
BENCHMARK(channelDrive)->Arg(48000)->Arg(192000);
BENCHMARK(channelFlat)->Arg(48000);

// The bands fade into silence: denormal numbers must not cost anything.
void channelSilence(benchmark::State& state)
{
    ChannelProcessor processor;
    processor.setValues(busy(1));
    std::vector<double> block = noise(blockLength);
    processor.process(block);
    for (int i = 0; i < 4000; ++i) {
        std::fill(block.begin(), block.end(), 1e-310);
        processor.process(block);
    }
    for (auto _ : state) {
        std::fill(block.begin(), block.end(), 1e-310);
        processor.process(block);
        benchmark::ClobberMemory();
    }
    report(state, 48000.0);
}
BENCHMARK(channelSilence);

// The time that this thread has had the processor, in seconds: interruptions by the system are not
// the engine's.
double processorTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

template <typename First, typename Second>
void compare(benchmark::State& state, First first, Second second, double limit)
{
    double firstTime = 0.0;
    double secondTime = 0.0;
    for (auto _ : state) {
        const double start = processorTime();
        for (int i = 0; i < 64; ++i)
            first();
        const double middle = processorTime();
        for (int i = 0; i < 64; ++i)
            second();
        const double end = processorTime();
        firstTime += middle - start;
        secondTime += end - middle;
        state.SetIterationTime(end - start);
    }
    state.counters["ratio"] = firstTime / secondTime;
    state.counters["limit"] = limit;
}

/// Two channels, and what they play again and again.
class Stereo
{
public:
    explicit Stereo(const Values& values)
    {
        for (ChannelProcessor& channel : m_channels)
            channel.setValues(values);
    }

    void runOne() { m_channels[0].process(freshBlock(0)); }
    void runEach()
    {
        for (std::size_t c = 0; c < m_channels.size(); ++c)
            m_channels[c].process(freshBlock(c));
    }
    void runPair()
    {
        ChannelProcessor::processPair(&m_channels[0], &m_channels[1], freshBlock(0), freshBlock(1));
    }
    /// Silence, until nothing is left of what was played.
    void fallSilent()
    {
        std::fill(m_in.begin(), m_in.end(), 0.0);
        for (int i = 0; i < 4000; ++i)
            runEach();
    }

private:
    std::span<double> freshBlock(std::size_t channel)
    {
        std::copy(m_in.begin(), m_in.end(), m_blocks[channel].begin());
        benchmark::ClobberMemory();
        return m_blocks[channel];
    }

    std::array<ChannelProcessor, 2> m_channels;
    std::vector<double> m_in = noise(blockLength);
    std::array<std::vector<double>, 2> m_blocks = {m_in, m_in};
};

// How many times the channels of one after the other a core has in pairs: at least the limit.
void pairGain(benchmark::State& state, const Values& values)
{
    Stereo each(values);
    Stereo pair(values);
    compare(
        state, [&each] { each.runEach(); }, [&pair] { pair.runPair(); }, 1.7);
}
BENCHMARK_CAPTURE(pairGain, mixed, busy(0))->UseManualTime();
BENCHMARK_CAPTURE(pairGain, boosts, busy(0, 1))->UseManualTime();
BENCHMARK_CAPTURE(pairGain, cuts, busy(0, -1))->UseManualTime();

// How many times a clean channel one with drive costs: at most the limit.
void driveCost(benchmark::State& state)
{
    Stereo drive(busy(1));
    Stereo clean(busy(0));
    compare(
        state, [&drive] { drive.runOne(); }, [&clean] { clean.runOne(); }, 3.0);
}
BENCHMARK(driveCost)->UseManualTime();

void pairDriveCost(benchmark::State& state)
{
    Stereo drive(busy(1));
    Stereo clean(busy(0));
    compare(
        state, [&drive] { drive.runPair(); }, [&clean] { clean.runPair(); }, 3.0);
}
BENCHMARK(pairDriveCost)->UseManualTime();

// Silence against a signal, both with drive: at most the limit.
void silenceCost(benchmark::State& state)
{
    Stereo silent(busy(1));
    Stereo playing(busy(1));
    silent.fallSilent();
    compare(
        state, [&silent] { silent.runPair(); }, [&playing] { playing.runPair(); }, 0.2);
}
BENCHMARK(silenceCost)->UseManualTime();

// Every parameter of every channel moves before each block; "worst" is the slowest of the blocks in
// microseconds, for eight channels, "limit" the time that a block lasts.
void engineMoving(benchmark::State& state)
{
    const auto rate = static_cast<double>(state.range(0));
    const auto engine = std::make_unique<AudioEngine>();
    engine->setSampleRate(rate);
    std::minstd_rand generator(3);
    std::vector<Values> settings(64);
    for (Values& values : settings)
        values = random(&generator);
    const std::vector<double> signal = noise(blockLength);
    const std::vector<float> in(signal.begin(), signal.end());
    std::array<std::vector<float>, defaultChannelCount> blocks;
    std::array<float*, defaultChannelCount> pointers{};
    double worst = 0.0;
    std::size_t step = 0;
    for (auto _ : state) {
        for (std::size_t i = 0; i < blocks.size(); ++i) {
            blocks[i] = in;
            pointers[i] = blocks[i].data();
            engine->publish(static_cast<int>(i), settings[(step + 7 * i) % settings.size()]);
        }
        ++step;
        const double start = processorTime();
        engine->process(pointers, blockLength);
        const double time = processorTime() - start;
        worst = std::max(worst, time);
        state.SetIterationTime(time);
    }
    state.counters["worst"] = worst * 1e6;
    state.counters["limit"] = double{blockLength} / rate * 1e6;
    report(state, rate / defaultChannelCount);
}
BENCHMARK(engineMoving)->Arg(48000)->Arg(192000)->UseManualTime()->Unit(benchmark::kMicrosecond);

void engineAtRest(benchmark::State& state)
{
    const auto rate = static_cast<double>(state.range(0));
    const auto engine = std::make_unique<AudioEngine>();
    engine->setSampleRate(rate);
    const std::vector<double> signal = noise(blockLength);
    const std::vector<float> in(signal.begin(), signal.end());
    std::array<std::vector<float>, defaultChannelCount> blocks;
    std::array<float*, defaultChannelCount> pointers{};
    for (int i = 0; i < defaultChannelCount; ++i)
        engine->publish(i, busy(0));
    for (auto _ : state) {
        for (std::size_t i = 0; i < blocks.size(); ++i) {
            blocks[i] = in;
            pointers[i] = blocks[i].data();
        }
        engine->process(pointers, blockLength);
        benchmark::ClobberMemory();
    }
    report(state, rate / defaultChannelCount);
}
BENCHMARK(engineAtRest)->Arg(48000)->Arg(192000)->Unit(benchmark::kMicrosecond);

} // namespace
