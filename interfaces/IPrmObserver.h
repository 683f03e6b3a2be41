// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Is told by the host when a parameter changes. Never deleted through this interface.
///
/// The order of the operations is the host's binary contract. Calls come on the GUI thread.
class IPrmObserver
{
public:
    /// Parameter id \a parameter of channel \a ch now holds \a value. The result is not used.
    virtual int Update(unsigned short parameter, unsigned short ch, int value,
                       const char* text) = 0;
    /// A property of the parameter (range, name, ...) changed. The result is not used.
    virtual int UpdateProperty(unsigned short parameter, unsigned short ch, int, int, int, bool,
                               const char* text) = 0;

protected:
    ~IPrmObserver() = default;
};
