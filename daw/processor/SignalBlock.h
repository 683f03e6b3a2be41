// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

/// The way of a workstation's samples, float or double, to the engine's and back. Each passage says
/// how loud the samples are, which costs next to nothing while they pass. std only.

/// Copies \a to.size() samples from \a from; those that ChannelProcessor takes for no signal become
/// 0. Returns the largest magnitude of the copies.
template <typename Sample> double readSignal(const Sample* from, std::span<double> to);

/// Rounds each sample of \a from, which are finite, to one of \a to. Returns the largest magnitude
/// of what is written.
template <typename Sample> double writeSignal(std::span<const double> from, Sample* to);

/// The largest magnitude in \a block, whose samples are finite.
double peakOfSignal(std::span<const double> block);
