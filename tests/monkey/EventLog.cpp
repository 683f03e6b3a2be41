// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/monkey/EventLog.h"

#include <array>
#include <csignal>
#include <cstddef>
#include <cstdio>

#include <unistd.h>

// Sanitizers end a program in their own way.
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());

namespace {

constexpr std::size_t kept = 40;
constexpr unsigned patience = 600; // s, since the machine may be busy

struct Entry
{
    const char* name = "";
    int a = 0;
    int b = 0;
};

std::array<Entry, kept> entries;
unsigned long count = 0;
std::uint32_t usedSeed = 0;
bool tracing = false;

void show(unsigned long number)
{
    const Entry& entry = entries[number % kept];
    std::printf("  %lu %s %d %d\n", number, entry.name, entry.a, entry.b);
}

void die(int signal)
{
    EventLog::print();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

} // namespace

void EventLog::watch(std::uint32_t seed)
{
    usedSeed = seed;
    std::signal(SIGALRM, die);
    if (__sanitizer_set_death_callback)
        return __sanitizer_set_death_callback(print);
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT})
        std::signal(signal, die);
}

void EventLog::trace() { tracing = true; }

void EventLog::add(const char* name, int a, int b)
{
    entries[count % kept] = {name, a, b};
    if (tracing)
        show(count);
    ++count;
    ::alarm(patience);
}

void EventLog::print()
{
    std::printf("Seed %u, after %lu events, of which the last were:\n", usedSeed, count);
    for (unsigned long i = count < kept ? 0 : count - kept; i < count; ++i)
        show(i);
    std::fflush(stdout);
}
