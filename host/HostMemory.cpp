// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/HostMemory.h"

#include "host/ParameterText.h"
#include "plugin/interfaces/IPrmObserver.h"

#include <algorithm>

namespace {

constexpr int done = 0;
constexpr int failed = -1;

const Parameter& entryOf(unsigned short parameter)
{
    return parameterTable[findParameterById(parameter)];
}

HostMemory::Values defaults()
{
    HostMemory::Values values{};
    std::transform(parameterTable.begin(), parameterTable.end(), values.begin(),
                   [](const Parameter& p) { return p.defaultValue; });
    return values;
}

} // namespace

HostMemory::HostMemory()
{
    for (Channel& channel : m_channels)
        channel.values = defaults();
}

int HostMemory::getValue(unsigned short parameter, unsigned short ch, int* value,
                         unsigned short element)
{
    if (!exists(parameter, ch) || element != 0 || !value)
        return failed;
    *value = m_channels[ch].values[findParameterById(parameter)];
    return done;
}

int HostMemory::setValue(unsigned short parameter, unsigned short ch, int value,
                         unsigned short element, int, int)
{
    if (!exists(parameter, ch) || element != 0)
        return failed;
    const Parameter& entry = entryOf(parameter);
    m_channels[ch].values[findParameterById(parameter)] =
        std::clamp(value, entry.minimum, entry.maximum);
    notify(parameter, ch);
    return done;
}

int HostMemory::getRange(unsigned short parameter, unsigned short ch, int* minimum, int* maximum)
{
    if (!exists(parameter, ch) || !minimum || !maximum)
        return failed;
    *minimum = entryOf(parameter).minimum;
    *maximum = entryOf(parameter).maximum;
    return done;
}

int HostMemory::getDefault(unsigned short parameter, unsigned short ch, int* value)
{
    if (!exists(parameter, ch) || !value)
        return failed;
    *value = entryOf(parameter).defaultValue;
    return done;
}

int HostMemory::valueToString(unsigned short parameter, unsigned short ch, int value, char* buffer,
                              int size)
{
    if (!exists(parameter, ch) || !buffer)
        return failed;
    const std::optional<std::string> text = formatParameter(entryOf(parameter), value);
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
    const std::optional<int> parsed = parseParameter(entryOf(parameter), text);
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

void HostMemory::reset(int ch) { write(ch, defaults()); }

int HostMemory::observerCount(unsigned short parameter, unsigned short ch) const
{
    if (!exists(parameter, ch))
        return 0;
    const std::vector<IPrmObserver*>& list =
        m_channels[ch].observers[findParameterById(parameter)].list;
    return static_cast<int>(
        std::count_if(list.begin(), list.end(), [](const IPrmObserver* o) { return o; }));
}

void HostMemory::Observers::dropGaps()
{
    if (depth == 0)
        std::erase(list, nullptr);
}

bool HostMemory::exists(unsigned short parameter, unsigned short ch)
{
    return ch < channelCount && findParameterById(parameter) < parameterCount;
}

HostMemory::Observers& HostMemory::observersOf(unsigned short parameter, unsigned short ch)
{
    return m_channels[ch].observers[findParameterById(parameter)];
}

void HostMemory::notify(unsigned short parameter, unsigned short ch)
{
    Observers& observers = observersOf(parameter, ch);
    const int& value = m_channels[ch].values[findParameterById(parameter)];
    const std::size_t count = observers.list.size();
    ++observers.depth;
    for (std::size_t i = 0; i < count; ++i) {
        if (!observers.list[i])
            continue;
        const std::string text = formatParameter(entryOf(parameter), value).value_or("");
        observers.list[i]->Update(parameter, ch, value, text.c_str());
    }
    --observers.depth;
    observers.dropGaps();
}
