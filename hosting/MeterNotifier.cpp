// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/MeterNotifier.h"

#include "interfaces/IMeterObserver.h"

void MeterNotifier::notify(const std::vector<int>& levels)
{
    std::vector<unsigned int> words(levels.begin(), levels.end());
    m_observers.notify([&words](IMeterObserver& observer) {
        observer.notifyMeterDbUpdated(words.data(), static_cast<unsigned int>(words.size()));
    });
}
