// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

/// Runs what may hang, one task after the other, each in a thread of its own that is left alone if
/// the task does not come back in time. For one thread.
class PatientTasks
{
public:
    /// \a patience is how long a task is waited for.
    explicit PatientTasks(std::chrono::milliseconds patience)
        : m_patience(patience)
    {}

    /// Whether a task that is not waited for any longer is still running.
    bool isBusy() const { return m_state->running > 0; }

    /// Runs \a task, which must own what it uses; whether it came back in time. While busy it runs
    /// once the others are back.
    template <typename Task> bool run(Task task)
    {
        ++m_state->running;
        std::packaged_task<void()> job([state = m_state, held = std::move(task)]() mutable {
            {
                const std::lock_guard lock(state->oneAtATime);
                Task owned = std::move(held);
                owned();
            }
            --state->running;
        });
        const std::future<void> done = job.get_future();
        std::thread(std::move(job)).detach();
        return done.wait_for(m_patience) == std::future_status::ready;
    }

private:
    struct State
    {
        std::mutex oneAtATime;
        std::atomic<int> running = 0;
    };

    std::chrono::milliseconds m_patience;
    std::shared_ptr<State> m_state = std::make_shared<State>();
};
