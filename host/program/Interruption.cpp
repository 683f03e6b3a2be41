// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/Interruption.h"

#include "host/program/EndingSignals.h"

#include <csignal>

namespace {

volatile std::sig_atomic_t noted = 0;

} // namespace

Interruption::Interruption()
{
    noted = 0;
    EndingSignals::handle([](int signal) { noted = signal; });
}

Interruption::~Interruption() { EndingSignals::release(); }

bool Interruption::isWanted() { return noted != 0; }

void Interruption::obey()
{
    std::signal(noted, SIG_DFL);
    std::raise(noted);
}
