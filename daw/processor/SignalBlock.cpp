// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/processor/SignalBlock.h"

#include "engine/ChannelProcessor.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

namespace {

/// A register of samples, the bits of its samples, and as many samples of the engine's.
template <typename Sample> struct Registers;

template <> struct Registers<float>
{
    using Samples [[gnu::vector_size(16)]] = float;
    using Bits [[gnu::vector_size(16)]] = std::int32_t;
    using Wide [[gnu::vector_size(32)]] = double;
    static constexpr std::int32_t withoutSign = std::numeric_limits<std::int32_t>::max();
};

template <> struct Registers<double>
{
    using Samples [[gnu::vector_size(16)]] = double;
    using Bits [[gnu::vector_size(16)]] = std::int64_t;
    using Wide [[gnu::vector_size(16)]] = double;
    static constexpr std::int64_t withoutSign = std::numeric_limits<std::int64_t>::max();
};

template <typename Sample> constexpr std::size_t laneCount = 16 / sizeof(Sample);

// As a float it is rounded down, so that no float lies between the two.
template <typename Sample> constexpr auto loudest = static_cast<Sample>(ChannelProcessor::loudest);
static_assert(double{loudest<float>} <= ChannelProcessor::loudest);

/// What a register's lanes have seen, each for itself. A NaN is never the peak.
template <typename Sample> class Peak
{
public:
    using Samples = typename Registers<Sample>::Samples;
    using Bits = typename Registers<Sample>::Bits;

    void take(Samples samples)
    {
        const auto magnitudes =
            reinterpret_cast<Samples>(reinterpret_cast<Bits>(samples) & withoutSign);
        m_isSignal &= magnitudes <= loudest<Sample>;
        m_peaks = magnitudes > m_peaks ? magnitudes : m_peaks;
    }
    void take(const Peak& other)
    {
        m_isSignal &= other.m_isSignal;
        m_peaks = other.m_peaks > m_peaks ? other.m_peaks : m_peaks;
    }
    bool isSignal() const
    {
        bool all = true;
        for (std::size_t i = 0; i < laneCount<Sample>; ++i)
            all = all && m_isSignal[i] != 0;
        return all;
    }
    double value() const
    {
        Sample peak{};
        for (std::size_t i = 0; i < laneCount<Sample>; ++i)
            peak = std::max(peak, m_peaks[i]);
        return double{peak};
    }

private:
    static constexpr auto withoutSign = Registers<Sample>::withoutSign;

    Samples m_peaks{};
    Bits m_isSignal = ~Bits{};
};

// Two registers a turn, of which neither waits for the other; the last one may not be full.
template <typename Sample, typename Take>
Peak<Sample> forEachRegister(std::size_t count, const Take& take)
{
    constexpr std::size_t lanes = laneCount<Sample>;
    Peak<Sample> even;
    Peak<Sample> odd;
    std::size_t i = 0;
    for (; i + 2 * lanes <= count; i += 2 * lanes) {
        take(i, lanes, &even);
        take(i + lanes, lanes, &odd);
    }
    for (; i < count; i += lanes)
        take(i, std::min(lanes, count - i), &even);
    even.take(odd);
    return even;
}

template <typename Sample> Peak<Sample> peakOf(const Sample* samples, std::size_t count)
{
    const auto take = [samples](std::size_t i, std::size_t lanes, Peak<Sample>* peak) {
        typename Peak<Sample>::Samples loaded{};
        std::memcpy(&loaded, samples + i, lanes * sizeof(Sample));
        peak->take(loaded);
    };
    return forEachRegister<Sample>(count, take);
}

template <typename Sample> double audible(Sample sample)
{
    return std::abs(sample) <= loudest<Sample> ? double{sample} : 0.0;
}

} // namespace

template <typename Sample> double readSignal(const Sample* from, std::span<double> to)
{
    const Peak<Sample> peak = peakOf(from, to.size());
    if (peak.isSignal()) {
        std::copy_n(from, to.size(), to.begin());
        return peak.value();
    }
    std::transform(from, from + to.size(), to.begin(), audible<Sample>);
    return peakOfSignal(to);
}

template <typename Sample> double writeSignal(std::span<const double> from, Sample* to)
{
    const auto take = [from, to](std::size_t i, std::size_t lanes, Peak<Sample>* peak) {
        typename Registers<Sample>::Wide wide{};
        std::memcpy(&wide, from.data() + i, lanes * sizeof(double));
        const auto samples = __builtin_convertvector(wide, typename Peak<Sample>::Samples);
        std::memcpy(to + i, &samples, lanes * sizeof(Sample));
        peak->take(samples);
    };
    return forEachRegister<Sample>(from.size(), take).value();
}

double peakOfSignal(std::span<const double> block)
{
    return peakOf(block.data(), block.size()).value();
}

template double readSignal(const float* from, std::span<double> to);
template double readSignal(const double* from, std::span<double> to);
template double writeSignal(std::span<const double> from, float* to);
template double writeSignal(std::span<const double> from, double* to);
