// SPDX-License-Identifier: GPL-3.0-or-later
#include "Memory.h"

#include <zolta/interfaces/IPrmObserver.h>

#include <QByteArray>

#include <algorithm>
#include <cmath>

namespace {

constexpr int done = 0;
constexpr int failed = -1;

struct Range
{
    int minimum;
    int maximum;
    int defaultValue;
    bool isDecibels;
};

constexpr std::array<Range, ParameterCount> ranges = {
    {{-180, 180, 0, true}, {-600, 100, 0, true}, {0, 2, 0, false}, {0, 3, 0, false}}};

bool exists(unsigned short parameter, unsigned short ch)
{
    return parameter < ParameterCount && ch == 0;
}

} // namespace

Memory::Memory()
{
    for (std::size_t i = 0; i < ParameterCount; ++i)
        m_entries[i].value = ranges[i].defaultValue;
}

void Memory::setValue(ParameterId parameter, int value) { setValue(parameter, 0, value, 0, 0, 1); }

int Memory::getValue(unsigned short parameter, unsigned short ch, int* value, unsigned short)
{
    if (!exists(parameter, ch))
        return failed;
    *value = m_entries[parameter].value;
    return done;
}

int Memory::setValue(unsigned short parameter, unsigned short ch, int value, unsigned short, int,
                     int)
{
    if (!exists(parameter, ch))
        return failed;
    Entry& entry = m_entries[parameter];
    entry.value = std::clamp(value, ranges[parameter].minimum, ranges[parameter].maximum);
    const auto observers = entry.observers; // whoever is told may leave, or make others leave
    for (IPrmObserver* observer : observers) {
        if (std::ranges::count(entry.observers, observer) > 0)
            observer->Update(parameter, ch, entry.value, "");
    }
    return done;
}

int Memory::getRange(unsigned short parameter, unsigned short ch, int* minimum, int* maximum)
{
    if (!exists(parameter, ch))
        return failed;
    *minimum = ranges[parameter].minimum;
    *maximum = ranges[parameter].maximum;
    return done;
}

int Memory::getDefault(unsigned short parameter, unsigned short ch, int* value)
{
    if (!exists(parameter, ch))
        return failed;
    *value = ranges[parameter].defaultValue;
    return done;
}

int Memory::valueToString(unsigned short parameter, unsigned short ch, int value, char* buffer,
                          int size)
{
    if (!exists(parameter, ch))
        return failed;
    const QByteArray text = ranges[parameter].isDecibels ? QByteArray::number(value / 10.0, 'f', 1)
                                                         : QByteArray::number(value);
    qstrncpy(buffer, text.constData(), static_cast<std::size_t>(size));
    return done;
}

int Memory::stringToValue(unsigned short parameter, unsigned short ch, const char* text, int* value)
{
    bool isNumber = false;
    const double number = QByteArray(text).toDouble(&isNumber);
    if (!exists(parameter, ch) || !isNumber || std::abs(number) > 1e6)
        return failed;
    *value = static_cast<int>(std::lround(ranges[parameter].isDecibels ? 10.0 * number : number));
    return done;
}

int Memory::registerObserver(unsigned short parameter, unsigned short ch, IPrmObserver* observer)
{
    if (!exists(parameter, ch))
        return failed;
    m_entries[parameter].observers.push_back(observer);
    return done;
}

int Memory::unregisterObserver(unsigned short parameter, unsigned short ch, IPrmObserver* observer)
{
    return exists(parameter, ch) && std::erase(m_entries[parameter].observers, observer) > 0
               ? done
               : failed;
}

int Memory::queryMeterNotifier(IMeterNotifier**) { return failed; }
