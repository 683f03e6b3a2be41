// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstring>
#include <span>

/// Whether a block has two samples or more that are all the same, bit by bit: silence, for one.
inline bool isSteady(std::span<const double> block)
{
    return block.size() > 1 &&
           std::memcmp(block.data(), block.data() + 1, (block.size() - 1) * sizeof(double)) == 0;
}
