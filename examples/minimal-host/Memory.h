// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <zolta/interfaces/IMemAPI.h>
#include <zolta/interfaces/IMeterNotifier.h>
#include <zolta/interfaces/IMeterObserver.h>
#include <zolta/interfaces/IPrmObserver.h>
#include <zolta/parameters/ParameterText.h>

#include <QByteArray>

#include <algorithm>
#include <vector>

/// Hands readings to the editors that asked for them.
class Meters : public IMeterNotifier
{
public:
    void addMeterObserver(IMeterObserver* observer) override { m_observers.push_back(observer); }
    void removeMeterObserver(IMeterObserver* observer) override
    {
        std::erase(m_observers, observer);
    }

    /// Levels before and after the equalizer, in tenths of a dB.
    void show(int before, int after)
    {
        unsigned int words[] = {unsigned(before), unsigned(before), unsigned(after),
                                unsigned(after)};
        for (IMeterObserver* observer : m_observers)
            observer->notifyMeterDbUpdated(words, 4);
    }

private:
    std::vector<IMeterObserver*> m_observers;
};

/// The values of channel 0. Calls for anything else fail.
class Memory : public IMemAPI
{
public:
    Meters meters;

    int getValue(unsigned short id, unsigned short ch, int* value, unsigned short) override
    {
        return withParameter(id, ch, [&](Entry& entry, const Parameter&) { *value = entry.value; });
    }
    int setValue(unsigned short id, unsigned short ch, int value, unsigned short, int, int) override
    {
        return withParameter(id, ch, [&](Entry& entry, const Parameter& parameter) {
            entry.value = std::clamp(value, parameter.minimum, parameter.maximum);
            const auto observers = entry.observers; // they may leave while they are told
            for (IPrmObserver* observer : observers) {
                if (std::ranges::count(entry.observers, observer) > 0)
                    observer->Update(id, ch, entry.value, "");
            }
        });
    }
    int getRange(unsigned short id, unsigned short ch, int* minimum, int* maximum) override
    {
        return withParameter(id, ch, [&](Entry&, const Parameter& parameter) {
            *minimum = parameter.minimum;
            *maximum = parameter.maximum;
        });
    }
    int getDefault(unsigned short id, unsigned short ch, int* value) override
    {
        return withParameter(
            id, ch, [&](Entry&, const Parameter& parameter) { *value = parameter.defaultValue; });
    }
    int valueToString(unsigned short id, unsigned short, int value, char* buffer, int size) override
    {
        const std::size_t index = findParameterById(id);
        const auto text =
            index < parameterCount ? formatParameter(parameterTable[index], value) : std::nullopt;
        return text && qstrncpy(buffer, text->c_str(), std::size_t(size)) ? 0 : -1;
    }
    int stringToValue(unsigned short id, unsigned short, const char* text, int* value) override
    {
        const std::size_t index = findParameterById(id);
        const auto parsed =
            index < parameterCount ? parseParameter(parameterTable[index], text) : std::nullopt;
        *value = parsed.value_or(*value);
        return parsed ? 0 : -1;
    }
    int registerObserver(unsigned short id, unsigned short ch, IPrmObserver* observer) override
    {
        return withParameter(
            id, ch, [&](Entry& entry, const Parameter&) { entry.observers.push_back(observer); });
    }
    int unregisterObserver(unsigned short id, unsigned short ch, IPrmObserver* observer) override
    {
        return withParameter(
            id, ch, [&](Entry& entry, const Parameter&) { std::erase(entry.observers, observer); });
    }
    int queryMeterNotifier(IMeterNotifier** notifier) override
    {
        *notifier = &meters;
        return 0;
    }

private:
    struct Entry
    {
        int value = 0;
        std::vector<IPrmObserver*> observers;
    };

    template <class Use> int withParameter(unsigned short id, unsigned short ch, Use use)
    {
        const std::size_t index = findParameterById(id);
        if (index == parameterCount || ch != 0)
            return -1;
        use(m_entries[index], parameterTable[index]);
        return 0;
    }

    std::vector<Entry> m_entries = [] {
        std::vector<Entry> entries;
        for (const Parameter& parameter : parameterTable)
            entries.push_back({parameter.defaultValue, {}});
        return entries;
    }();
};
