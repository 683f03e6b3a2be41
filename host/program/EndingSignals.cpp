// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/EndingSignals.h"

#include <array>
#include <csignal>

namespace {

constexpr std::array<int, 3> endingSignals = {SIGINT, SIGTERM, SIGHUP};

} // namespace

void EndingSignals::handle(void (*handler)(int))
{
    for (const int number : endingSignals) {
        // A program in the background keeps ignoring what it was started to ignore.
        if (std::signal(number, handler) == SIG_IGN)
            std::signal(number, SIG_IGN);
    }
}

void EndingSignals::release()
{
    for (const int number : endingSignals)
        std::signal(number, SIG_DFL);
}
