// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <zolta/interfaces/IMemAPI.h>

#include <array>
#include <vector>

/// The parameters of the panel.
enum ParameterId : unsigned short {
    Gain,  ///< tenths of a dB, -18.0 to +18.0
    Level, ///< tenths of a dB, -60.0 to +10.0
    Mode,  ///< 0 off, 1 listen, 2 record
    Input, ///< 0 to 3
    ParameterCount
};

/// A memory of one channel with four parameters: every write is brought into the parameter's range
/// and told to all who registered for it. Must outlive the controls that are bound to it.
class Memory : public IMemAPI
{
public:
    Memory();

    int value(ParameterId parameter) const { return m_entries[parameter].value; }
    void setValue(ParameterId parameter, int value);

    int getValue(unsigned short parameter, unsigned short ch, int* value, unsigned short) override;
    int setValue(unsigned short parameter, unsigned short ch, int value, unsigned short, int,
                 int) override;
    int getRange(unsigned short parameter, unsigned short ch, int* minimum, int* maximum) override;
    int getDefault(unsigned short parameter, unsigned short ch, int* value) override;
    int valueToString(unsigned short parameter, unsigned short ch, int value, char* buffer,
                      int size) override;
    int stringToValue(unsigned short parameter, unsigned short ch, const char* text,
                      int* value) override;
    int registerObserver(unsigned short parameter, unsigned short ch,
                         IPrmObserver* observer) override;
    int unregisterObserver(unsigned short parameter, unsigned short ch,
                           IPrmObserver* observer) override;
    /// There are no meters in this memory.
    int queryMeterNotifier(IMeterNotifier**) override;

private:
    struct Entry
    {
        int value = 0;
        std::vector<IPrmObserver*> observers;
    };

    std::array<Entry, ParameterCount> m_entries;
};
