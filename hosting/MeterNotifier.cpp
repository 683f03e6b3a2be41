// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/MeterNotifier.h"

#include "interfaces/IMeterObserver.h"

#include <algorithm>

void MeterNotifier::addMeterObserver(IMeterObserver* observer)
{
    const bool known =
        std::find(m_observers.begin(), m_observers.end(), observer) != m_observers.end();
    if (observer && !known)
        m_observers.push_back(observer);
}

void MeterNotifier::removeMeterObserver(IMeterObserver* observer)
{
    std::replace(m_observers.begin(), m_observers.end(), observer,
                 static_cast<IMeterObserver*>(nullptr));
    dropGaps();
}

void MeterNotifier::notify(std::vector<int> levels)
{
    std::vector<unsigned int> words(levels.begin(), levels.end());
    const std::size_t count = m_observers.size();
    ++m_depth;
    for (std::size_t i = 0; i < count; ++i) {
        if (m_observers[i])
            m_observers[i]->notifyMeterDbUpdated(words.data(),
                                                 static_cast<unsigned int>(words.size()));
    }
    --m_depth;
    dropGaps();
}

int MeterNotifier::observerCount() const
{
    const auto gaps = std::count(m_observers.begin(), m_observers.end(), nullptr);
    return static_cast<int>(static_cast<std::ptrdiff_t>(m_observers.size()) - gaps);
}

void MeterNotifier::dropGaps()
{
    if (m_depth == 0)
        std::erase(m_observers, nullptr);
}
