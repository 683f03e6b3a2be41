// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/audio/Interruption.h"

#include <array>
#include <csignal>

namespace {

constexpr std::array<int, 3> endingSignals = {SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t noted = 0;

} // namespace

Interruption::Interruption()
{
    noted = 0;
    for (const int number : endingSignals) {
        // A program in the background keeps ignoring what it was started to ignore.
        if (std::signal(number, [](int signal) { noted = signal; }) == SIG_IGN)
            std::signal(number, SIG_IGN);
    }
}

Interruption::~Interruption()
{
    for (const int number : endingSignals)
        std::signal(number, SIG_DFL);
}

bool Interruption::isWanted() { return noted != 0; }

void Interruption::obey()
{
    std::signal(noted, SIG_DFL);
    std::raise(noted);
}
