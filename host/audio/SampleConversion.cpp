// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/SampleConversion.h"

#include <bit>
#include <cmath>
#include <limits>

namespace {

constexpr double largestFloat = std::numeric_limits<float>::max();

// Whole numbers up to 2^51 stand in the lowest bits of a double that this number is added to,
// rounded to the nearest; unlike a call to round(), the compiler does several at once.
constexpr double rounder = 6755399441055744.0;

int rounded(double value)
{
    return static_cast<int>(
        static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(value + rounder)));
}

double clamped(double value, double lowest, double highest)
{
    const double raised = value >= lowest ? value : lowest;
    return raised <= highest ? raised : highest;
}

template <typename Sample> void spread(const Sample* samples, double factor, AudioBlock* block)
{
    const std::size_t channels = block->channels();
    for (std::size_t c = 0; c < channels; ++c) {
        const std::span<double> out = block->channel(c);
        const Sample* in = samples + c;
        for (std::size_t i = 0; i < out.size(); ++i)
            out[i] = static_cast<double>(in[i * channels]) * factor;
    }
}

// The two most common layouts get loops whose strides the compiler knows.
template <typename Sample> void spreadFast(const Sample* samples, double factor, AudioBlock* block)
{
    if (block->channels() == 2) {
        double* left = block->channel(0).data();
        double* right = block->channel(1).data();
        for (std::size_t i = 0; i < block->frames(); ++i) {
            left[i] = static_cast<double>(samples[2 * i]) * factor;
            right[i] = static_cast<double>(samples[2 * i + 1]) * factor;
        }
        return;
    }
    spread(samples, factor, block);
}

struct Range
{
    double factor;
    double lowest;
    double highest;
    double tolerance; // what rounding takes off without a loss
};

constexpr Range wholeNumbers(int bits)
{
    const double scale = static_cast<double>(std::int64_t{1} << (bits - 1));
    return {scale, -scale, scale - 1.0, 0.5};
}

constexpr Range floats = {1.0, -largestFloat, largestFloat, 0.0};
constexpr Range doubles = {1.0, -std::numeric_limits<double>::max(),
                           std::numeric_limits<double>::max(), 0.0};

template <std::size_t stride, typename Sample, typename Convert>
std::int64_t gatherChannel(const double* in, std::size_t count, std::size_t step,
                           const Range& range, Sample* out, Convert convert)
{
    const std::size_t distance = stride ? stride : step;
    std::int64_t clipped = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const double value = in[i] * range.factor;
        const double kept = clamped(value, range.lowest, range.highest);
        clipped += std::abs(value - kept) <= range.tolerance ? 0 : 1;
        out[i * distance] = convert(kept);
    }
    return clipped;
}

template <typename Sample, typename Convert>
std::int64_t gather(const AudioBlock& block, const Range& range, Sample* samples, Convert convert)
{
    const std::size_t channels = block.channels();
    const std::size_t count = block.frames();
    std::int64_t clipped = 0;
    for (std::size_t c = 0; c < channels; ++c) {
        const double* in = block.channel(c).data();
        clipped += channels == 2
                       ? gatherChannel<2>(in, count, channels, range, samples + c, convert)
                       : gatherChannel<0>(in, count, channels, range, samples + c, convert);
    }
    return clipped;
}

} // namespace

void SampleConversion::toBlock(const short* samples, AudioBlock* block)
{
    spreadFast(samples, 1.0 / 32768.0, block);
}

void SampleConversion::toBlock(const int* samples, AudioBlock* block)
{
    spreadFast(samples, 1.0 / 2147483648.0, block);
}

void SampleConversion::toBlock(const float* samples, AudioBlock* block)
{
    spreadFast(samples, 1.0, block);
}

void SampleConversion::toBlock(const double* samples, AudioBlock* block)
{
    spreadFast(samples, 1.0, block);
}

std::int64_t SampleConversion::fromBlock(const AudioBlock& block, short* samples)
{
    return gather(block, wholeNumbers(16), samples,
                  [](double value) { return static_cast<short>(rounded(value)); });
}

std::int64_t SampleConversion::fromBlock(const AudioBlock& block, int bits, int* samples)
{
    const int shift = 32 - bits;
    return gather(block, wholeNumbers(bits), samples, [shift](double value) {
        return static_cast<int>(static_cast<std::uint32_t>(rounded(value)) << shift);
    });
}

std::int64_t SampleConversion::fromBlock(const AudioBlock& block, float* samples)
{
    return gather(block, floats, samples, [](double value) { return static_cast<float>(value); });
}

std::int64_t SampleConversion::fromBlock(const AudioBlock& block, double* samples)
{
    return gather(block, doubles, samples, [](double value) { return value; });
}

bool SampleConversion::isWithin(const AudioBlock& block, double limit)
{
    bool within = true;
    for (std::size_t c = 0; c < block.channels(); ++c) {
        for (const double sample : block.channel(c))
            within &= std::abs(sample) <= limit;
    }
    return within;
}
