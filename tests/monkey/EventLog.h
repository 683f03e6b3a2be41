// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

/// The last things that a monkey did, for the report of what they led to.
namespace EventLog {

/// Prints the seed and the last events where the program crashes, or where one event takes longer
/// than ten minutes.
void watch(std::uint32_t seed);
/// Prints every event from now on before it happens.
void trace();
/// Takes note of one more event.
void add(const char* name, int a = 0, int b = 0);
/// Prints the seed and the last events, the latest one last.
void print();

} // namespace EventLog
