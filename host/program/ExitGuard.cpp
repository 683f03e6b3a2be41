// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/ExitGuard.h"

#include <atomic>
#include <cstdlib>
#include <utility>

namespace {

std::atomic<ExitGuard*> current = nullptr;

} // namespace

ExitGuard::ExitGuard(std::function<void()> lastWork)
    : m_lastWork(std::move(lastWork))
{
    current = this;
    static_cast<void>(std::atexit(&ExitGuard::exiting));
}

ExitGuard::~ExitGuard() { current = nullptr; }

void ExitGuard::exiting()
{
    const ExitGuard* guard = current.exchange(nullptr);
    if (guard && guard->m_thread == std::this_thread::get_id())
        guard->m_lastWork();
}
