// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class IMeterObserver;

/// Hands the host's meter readings to observers. Owned by the host.
///
/// The order of the operations is the host's binary contract: the reserved ones are the host's own
/// and are never called by the library.
class IMeterNotifier
{
public:
    virtual void reserved0() {}
    virtual void reserved1() {}
    /// From now on \a observer is given every reading. Not owned.
    virtual void addMeterObserver(IMeterObserver* observer) = 0;
    virtual void reserved3() {}
    /// Undoes addMeterObserver().
    virtual void removeMeterObserver(IMeterObserver* observer) = 0;

protected:
    ~IMeterNotifier() = default;
};
