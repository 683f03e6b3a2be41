// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/ObserverList.h"
#include "interfaces/IMeterNotifier.h"

#include <vector>

/// Hands meter readings to the editors that asked for them.
///
/// An observer is held once, however often it is added; null is ignored. Observers may come and go
/// while a reading is being handed out, as in every ObserverList.
class MeterNotifier : public IMeterNotifier
{
public:
    void addMeterObserver(IMeterObserver* observer) override { m_observers.add(observer); }
    void removeMeterObserver(IMeterObserver* observer) override { m_observers.remove(observer); }

    bool hasObservers() const { return !m_observers.isEmpty(); }
    /// Hands \a levels, laid out as HostModel says and in tenths of a dB, to every observer.
    void notify(const std::vector<int>& levels);

private:
    ObserverList<IMeterObserver> m_observers;
};
