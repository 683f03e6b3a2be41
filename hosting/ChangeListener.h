// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Is told of every write to the mixer's memory that changes a value, before the parameter's
/// observers are, and of another number of channels.
class ChangeListener
{
public:
    virtual void changed(unsigned short parameter, unsigned short ch, int before, int after) = 0;
    virtual void countChanged(int /*channels*/) {}

protected:
    ~ChangeListener() = default;
};
