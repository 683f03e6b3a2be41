// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/audio/AudioBlock.h"

#include <cstdint>

/// Conversions between the interleaved samples of sound files (frame after frame) and blocks.
namespace SampleConversion {

/// Fills the block's frames in use from \a samples, whose full scale is that of their type: 2^15,
/// 2^31 and 1.
void toBlock(const short* samples, AudioBlock* block);
void toBlock(const int* samples, AudioBlock* block);
void toBlock(const float* samples, AudioBlock* block);
void toBlock(const double* samples, AudioBlock* block);

/// Writes the block's frames in use to \a samples; the result is how many did not fit in and were
/// set to the nearest limit (a NaN to the lower one). Whole numbers are rounded to the nearest,
/// ties to even, without dither. Integers keep their upper \a bits bits, the others are 0.
std::int64_t fromBlock(const AudioBlock& block, short* samples);
std::int64_t fromBlock(const AudioBlock& block, int bits, int* samples);
std::int64_t fromBlock(const AudioBlock& block, float* samples);
std::int64_t fromBlock(const AudioBlock& block, double* samples);

/// Whether all samples in use are numbers of at most \a limit in magnitude.
bool isWithin(const AudioBlock& block, double limit);

} // namespace SampleConversion
