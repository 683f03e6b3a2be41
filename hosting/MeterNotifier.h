// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "interfaces/IMeterNotifier.h"

#include <vector>

/// Hands meter readings to the editors that asked for them.
///
/// An observer is held once, however often it is added; null is ignored. Observers may come and go
/// while a reading is being handed out: one that leaves is not called any more, one that comes is
/// called from the next reading on.
class MeterNotifier : public IMeterNotifier
{
public:
    void addMeterObserver(IMeterObserver* observer) override;
    void removeMeterObserver(IMeterObserver* observer) override;

    /// Hands \a levels, laid out as HostModel says and in tenths of a dB, to every observer.
    void notify(std::vector<int> levels);

    int observerCount() const;

private:
    void dropGaps();

    std::vector<IMeterObserver*> m_observers; // null where one left during a notification
    int m_depth = 0;
};
