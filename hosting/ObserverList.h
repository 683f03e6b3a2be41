// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

/// Those who are told of something, in the order in which they came; each is in it once. Not owned.
///
/// They may come and go while they are being notified, also by a notification inside another: one
/// that leaves is not called any more, one that comes is called from the next notification on.
template <typename Observer> class ObserverList
{
public:
    /// Returns false and does nothing for null and for one that is in the list already.
    bool add(Observer* observer)
    {
        if (!observer || find(observer) != m_observers.end())
            return false;
        m_observers.push_back(observer);
        return true;
    }

    /// Returns false and does nothing for one that is not in the list.
    bool remove(Observer* observer)
    {
        const auto found = find(observer);
        if (!observer || found == m_observers.end())
            return false;
        *found = nullptr;
        dropGaps();
        return true;
    }

    bool isEmpty() const
    {
        return std::all_of(m_observers.begin(), m_observers.end(),
                           [](const Observer* observer) { return !observer; });
    }

    /// Calls \a call with each of them.
    template <typename Call> void notify(Call call)
    {
        const std::size_t count = m_observers.size();
        ++m_depth;
        for (std::size_t i = 0; i < count; ++i) {
            if (Observer* observer = m_observers[i])
                call(*observer);
        }
        --m_depth;
        dropGaps();
    }

private:
    auto find(Observer* observer)
    {
        return std::find(m_observers.begin(), m_observers.end(), observer);
    }

    void dropGaps()
    {
        if (m_depth == 0)
            std::erase(m_observers, nullptr);
    }

    std::vector<Observer*> m_observers; // null where one left during a notification
    int m_depth = 0;                    // notifications under way
};
