// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/HostMemory.h"

/// A mixer's memory that counts who observes it.
class CountingMemory : public HostMemory
{
public:
    int observers() const { return m_observers; }

    int registerObserver(unsigned short parameter, unsigned short ch,
                         IPrmObserver* observer) override
    {
        const int result = HostMemory::registerObserver(parameter, ch, observer);
        m_observers += result == 0 ? 1 : 0;
        return result;
    }

    int unregisterObserver(unsigned short parameter, unsigned short ch,
                           IPrmObserver* observer) override
    {
        const int result = HostMemory::unregisterObserver(parameter, ch, observer);
        m_observers -= result == 0 ? 1 : 0;
        return result;
    }

private:
    int m_observers = 0;
};
