// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <thread>

/// While it lives, a library that ends the program by exit(3), as those of window systems do when
/// the display is gone, has something done first: no function returns, and no destructor of a local
/// object runs. Only on the thread that the guard was made on; elsewhere the program just ends. A
/// crash is not an exit. One at a time.
class ExitGuard
{
public:
    explicit ExitGuard(std::function<void()> lastWork);
    ~ExitGuard();
    ExitGuard(const ExitGuard&) = delete;
    ExitGuard& operator=(const ExitGuard&) = delete;

private:
    static void exiting();

    std::function<void()> m_lastWork;
    std::thread::id m_thread = std::this_thread::get_id();
};
