// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/monkey/Clock.h"

#include <ctime>

#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr long nanosecondsPerSecond = 1000000000;
constexpr long start = 1000; // s

long microseconds = 0;

} // namespace

// Taken for the system library's by everything that is loaded into this program.
extern "C" __attribute__((visibility("default"))) int clock_gettime(clockid_t clock,
                                                                    timespec* time) noexcept
{
    if (clock != CLOCK_MONOTONIC || ::getpid() != ::gettid())
        return static_cast<int>(::syscall(SYS_clock_gettime, clock, time));
    const long nanoseconds = ++microseconds * 1000;
    *time = {start + nanoseconds / nanosecondsPerSecond, nanoseconds % nanosecondsPerSecond};
    return 0;
}

int Clock::now() { return static_cast<int>(microseconds / 1000); }

void Clock::advance(int milliseconds) { microseconds += 1000L * milliseconds; }
