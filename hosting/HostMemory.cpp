// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/HostMemory.h"

#include "hosting/WriteListener.h"
#include "interfaces/IPrmObserver.h"
#include "parameters/ParameterText.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int done = 0;
constexpr int failed = -1;

struct Range
{
    int minimum;
    int maximum;
    int defaultValue;
};

const Parameter& entryOf(unsigned short parameter)
{
    return parameterTable[findParameterById(parameter)];
}

Range rangeOf(unsigned short parameter)
{
    if (const auto strip = findStripParameter(parameter)) {
        const StripEntry& entry = stripEntry(*strip);
        return {entry.minimum, entry.maximum, entry.defaultValue};
    }
    const Parameter& entry = entryOf(parameter);
    return {entry.minimum, entry.maximum, entry.defaultValue};
}

std::optional<std::string> format(unsigned short parameter, int value)
{
    const auto strip = findStripParameter(parameter);
    return strip ? formatStrip(*strip, value) : formatParameter(entryOf(parameter), value);
}

std::optional<int> parse(unsigned short parameter, const char* text)
{
    const auto strip = findStripParameter(parameter);
    return strip ? parseStrip(*strip, text) : parseParameter(entryOf(parameter), text);
}

HostMemory::StripValues stripDefaults()
{
    HostMemory::StripValues values{};
    std::transform(stripTable.begin(), stripTable.end(), values.begin(),
                   [](const StripEntry& entry) { return entry.defaultValue; });
    return values;
}

} // namespace

HostMemory::HostMemory()
{
    for (Channel& channel : m_channels) {
        channel.values = defaultValues();
        channel.strip = stripDefaults();
    }
}

int HostMemory::getValue(unsigned short parameter, unsigned short ch, int* value,
                         unsigned short element)
{
    if (!exists(parameter, ch) || element != 0 || !value)
        return failed;
    *value = cell(parameter, ch);
    return done;
}

int HostMemory::setValue(unsigned short parameter, unsigned short ch, int value,
                         unsigned short element, int, int)
{
    if (!exists(parameter, ch) || element != 0)
        return failed;
    const Range range = rangeOf(parameter);
    const int after = std::clamp(value, range.minimum, range.maximum);
    const int before = std::exchange(cell(parameter, ch), after);
    if (m_listener && before != after)
        m_listener->written(parameter, ch, before, after);
    notify(parameter, ch);
    return done;
}

int HostMemory::getRange(unsigned short parameter, unsigned short ch, int* minimum, int* maximum)
{
    if (!exists(parameter, ch) || !minimum || !maximum)
        return failed;
    *minimum = rangeOf(parameter).minimum;
    *maximum = rangeOf(parameter).maximum;
    return done;
}

int HostMemory::getDefault(unsigned short parameter, unsigned short ch, int* value)
{
    if (!exists(parameter, ch) || !value)
        return failed;
    *value = rangeOf(parameter).defaultValue;
    return done;
}

int HostMemory::valueToString(unsigned short parameter, unsigned short ch, int value, char* buffer,
                              int size)
{
    if (!exists(parameter, ch) || !buffer)
        return failed;
    const std::optional<std::string> text = format(parameter, value);
    if (!text || size <= static_cast<int>(text->size()))
        return failed;
    std::copy(text->begin(), text->end(), buffer);
    buffer[text->size()] = '\0';
    return done;
}

int HostMemory::stringToValue(unsigned short parameter, unsigned short ch, const char* text,
                              int* value)
{
    if (!exists(parameter, ch) || !text || !value)
        return failed;
    const std::optional<int> parsed = parse(parameter, text);
    if (!parsed)
        return failed;
    *value = *parsed;
    return done;
}

int HostMemory::registerObserver(unsigned short parameter, unsigned short ch,
                                 IPrmObserver* observer)
{
    if (!exists(parameter, ch) || !observer)
        return failed;
    std::vector<IPrmObserver*>& list = observersOf(parameter, ch).list;
    if (std::find(list.begin(), list.end(), observer) != list.end())
        return failed;
    list.push_back(observer);
    return done;
}

int HostMemory::unregisterObserver(unsigned short parameter, unsigned short ch,
                                   IPrmObserver* observer)
{
    if (!exists(parameter, ch) || !observer)
        return failed;
    Observers& observers = observersOf(parameter, ch);
    const auto found = std::find(observers.list.begin(), observers.list.end(), observer);
    if (found == observers.list.end())
        return failed;
    *found = nullptr;
    observers.dropGaps();
    return done;
}

int HostMemory::queryMeterNotifier(IMeterNotifier** notifier)
{
    if (!notifier)
        return failed;
    *notifier = &m_meters;
    return done;
}

void HostMemory::write(int ch, const Values& values)
{
    for (std::size_t i = 0; i < parameterCount; ++i)
        setValue(parameterId(i), static_cast<unsigned short>(ch), values[i], 0, 0, 1);
}

void HostMemory::reset(int ch) { write(ch, defaultValues()); }

int HostMemory::strip(int ch, StripParameter parameter) const
{
    return m_channels[static_cast<std::size_t>(ch)].strip[static_cast<std::size_t>(parameter)];
}

void HostMemory::setStrip(int ch, StripParameter parameter, int value)
{
    setValue(stripId(parameter), static_cast<unsigned short>(ch), value, 0, 0, 1);
}

int HostMemory::observerCount(unsigned short parameter, unsigned short ch) const
{
    if (!exists(parameter, ch))
        return 0;
    const std::vector<IPrmObserver*>& list = m_channels[ch].observers[placeOf(parameter)].list;
    return static_cast<int>(
        std::count_if(list.begin(), list.end(), [](const IPrmObserver* o) { return o; }));
}

void HostMemory::Observers::dropGaps()
{
    if (depth == 0)
        std::erase(list, nullptr);
}

std::size_t HostMemory::placeOf(unsigned short parameter)
{
    if (const auto strip = findStripParameter(parameter))
        return parameterCount + static_cast<std::size_t>(*strip);
    const std::size_t index = findParameterById(parameter);
    return index < parameterCount ? index : placeCount;
}

bool HostMemory::exists(unsigned short parameter, unsigned short ch)
{
    return ch < channelCount && placeOf(parameter) < placeCount;
}

int& HostMemory::cell(unsigned short parameter, unsigned short ch)
{
    Channel& channel = m_channels[ch];
    const std::size_t place = placeOf(parameter);
    return place < parameterCount ? channel.values[place] : channel.strip[place - parameterCount];
}

HostMemory::Observers& HostMemory::observersOf(unsigned short parameter, unsigned short ch)
{
    return m_channels[ch].observers[placeOf(parameter)];
}

void HostMemory::notify(unsigned short parameter, unsigned short ch)
{
    Observers& observers = observersOf(parameter, ch);
    const int& value = cell(parameter, ch);
    const std::size_t count = observers.list.size();
    ++observers.depth;
    for (std::size_t i = 0; i < count; ++i) {
        if (!observers.list[i])
            continue;
        const std::string text = format(parameter, value).value_or("");
        observers.list[i]->Update(parameter, ch, value, text.c_str());
    }
    --observers.depth;
    observers.dropGaps();
}
