// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Receives the host's meter readings. Never deleted through this interface.
///
/// Both arrays hold \a count words, indexed by the positions that IModelInfo::getMeterRange()
/// gives. Calls come on the GUI thread.
class IMeterObserver
{
public:
    /// Levels in linear units.
    virtual void notifyMeterLvlUpdated(unsigned int* values, unsigned int count) = 0;
    /// Levels in tenths of a dB: the low 16 bits of each word, as a signed number.
    virtual void notifyMeterDbUpdated(unsigned int* values, unsigned int count) = 0;

protected:
    ~IMeterObserver() = default;
};
