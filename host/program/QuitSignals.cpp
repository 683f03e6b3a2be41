// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/QuitSignals.h"

#include "host/program/EndingSignals.h"

#include <cerrno>
#include <cstdint>

#include <sys/eventfd.h>
#include <unistd.h>

namespace {

volatile int eventFile = -1; // what a signal may write to

void note(int)
{
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

QuitSignals::QuitSignals()
    : m_notifier(openEventFile(), QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &QuitSignals::tell);
    EndingSignals::handle(note);
}

QuitSignals::~QuitSignals()
{
    EndingSignals::release();
    m_notifier.setEnabled(false);
    ::close(eventFile);
}

void QuitSignals::tell()
{
    std::uint64_t count = 0;
    if (::read(eventFile, &count, sizeof count) > 0)
        Q_EMIT arrived();
}

#include "moc_QuitSignals.cpp"
