// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/EndingSignals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>

#include <sys/eventfd.h>
#include <unistd.h>

namespace {

constexpr std::array<int, 3> endingSignals = {SIGINT, SIGTERM, SIGHUP};

// What a signal's handler may write to.
volatile std::sig_atomic_t lastSignal = 0;
volatile int eventFile = -1;

void handle(int number)
{
    lastSignal = number;
    const int error = errno;
    const std::uint64_t one = 1;
    static_cast<void>(!::write(eventFile, &one, sizeof one));
    errno = error;
}

int openEventFile()
{
    eventFile = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    return eventFile;
}

} // namespace

EndingSignals::EndingSignals()
    : m_notifier(openEventFile(), QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &EndingSignals::readEvents);
    lastSignal = 0;
    for (const int number : endingSignals) {
        // A program in the background keeps ignoring what it was started to ignore.
        if (std::signal(number, handle) == SIG_IGN)
            std::signal(number, SIG_IGN);
    }
}

EndingSignals::~EndingSignals()
{
    for (const int number : endingSignals)
        std::signal(number, SIG_DFL);
    m_notifier.setEnabled(false);
    ::close(eventFile);
}

bool EndingSignals::hasArrived() { return lastSignal != 0; }

void EndingSignals::endProgram()
{
    std::signal(lastSignal, SIG_DFL);
    std::raise(lastSignal);
}

void EndingSignals::readEvents()
{
    std::uint64_t count = 0;
    if (::read(eventFile, &count, sizeof count) > 0)
        Q_EMIT arrived();
}

#include "moc_EndingSignals.cpp"
