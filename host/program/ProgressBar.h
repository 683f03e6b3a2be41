// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <optional>

/// How far a long work has come, as one line on the standard error stream that is written over
/// again; nothing where that stream is no terminal.
class ProgressBar
{
public:
    ProgressBar();
    /// Clears the line.
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    /// \a done runs from 0 to 1; -1 where that is not known. Cheap enough to be called often.
    void show(double done);

private:
    using Clock = std::chrono::steady_clock;

    bool m_visible;
    std::optional<Clock::time_point> m_shown;
};
