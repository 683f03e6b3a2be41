// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/HostMemory.h"

#include "hosting/ChangeListener.h"
#include "interfaces/IPrmObserver.h"
#include "parameters/ParameterText.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int done = 0;
constexpr int failed = -1;

HostMemory::StripValues stripDefaults()
{
    HostMemory::StripValues values{};
    std::transform(stripTable.begin(), stripTable.end(), values.begin(),
                   [](const StripEntry& entry) { return entry.defaultValue; });
    return values;
}

} // namespace

// What an id stands for in a channel: a parameter of the equalizer, or one of the strip.
struct HostMemory::Place
{
    Place(Channel& channel, const Parameter& parameter, std::size_t index)
        : entry(&parameter)
        , minimum(parameter.minimum)
        , maximum(parameter.maximum)
        , defaultValue(parameter.defaultValue)
        , value(&channel.values[index])
        , observers(&channel.observers[index])
    {}

    Place(Channel& channel, StripParameter parameter, std::size_t index)
        : strip(parameter)
        , minimum(stripTable[index].minimum)
        , maximum(stripTable[index].maximum)
        , defaultValue(stripTable[index].defaultValue)
        , value(&channel.strip[index])
        , observers(&channel.observers[parameterCount + index])
    {}

    Place(HostMemory& memory, MasterParameter parameter, std::size_t index)
        : master(parameter)
        , minimum(masterTable[index].minimum)
        , maximum(masterTable[index].maximum)
        , defaultValue(masterTable[index].defaultValue)
        , value(&memory.m_master[index])
        , observers(&memory.m_masterObservers[index])
    {}

    const Parameter* entry = nullptr; // null for one of the strip or the master
    StripParameter strip{};
    std::optional<MasterParameter> master;
    int minimum;
    int maximum;
    int defaultValue;
    int* value;
    ObserverList<IPrmObserver>* observers;

    std::optional<std::string> format(int number) const
    {
        if (master)
            return formatMaster(*master, number);
        return entry ? formatParameter(*entry, number) : formatStrip(strip, number);
    }

    std::optional<int> parse(const char* text) const
    {
        if (master)
            return parseMaster(*master, text);
        return entry ? parseParameter(*entry, text) : parseStrip(strip, text);
    }
};

HostMemory::HostMemory()
{
    for (Channel& channel : m_channels) {
        channel.values = defaultValues();
        channel.strip = stripDefaults();
    }
    std::transform(masterTable.begin(), masterTable.end(), m_master.begin(),
                   [](const StripEntry& entry) { return entry.defaultValue; });
}

int HostMemory::getValue(unsigned short parameter, unsigned short ch, int* value,
                         unsigned short element)
{
    const auto place = findExisting(parameter, ch);
    if (!place || element != 0 || !value)
        return failed;
    *value = *place->value;
    return done;
}

int HostMemory::setValue(unsigned short parameter, unsigned short ch, int value,
                         unsigned short element, int, int)
{
    const auto place = findExisting(parameter, ch);
    if (!place || element != 0)
        return failed;
    store(*place, parameter, ch, value);
    return done;
}

int HostMemory::getRange(unsigned short parameter, unsigned short ch, int* minimum, int* maximum)
{
    const auto place = findExisting(parameter, ch);
    if (!place || !minimum || !maximum)
        return failed;
    *minimum = place->minimum;
    *maximum = place->maximum;
    return done;
}

int HostMemory::getDefault(unsigned short parameter, unsigned short ch, int* value)
{
    const auto place = findExisting(parameter, ch);
    if (!place || !value)
        return failed;
    *value = place->defaultValue;
    return done;
}

int HostMemory::valueToString(unsigned short parameter, unsigned short ch, int value, char* buffer,
                              int size)
{
    const auto place = findExisting(parameter, ch);
    if (!place || !buffer)
        return failed;
    const std::optional<std::string> text = place->format(value);
    if (!text || size <= static_cast<int>(text->size()))
        return failed;
    std::copy(text->begin(), text->end(), buffer);
    buffer[text->size()] = '\0';
    return done;
}

int HostMemory::stringToValue(unsigned short parameter, unsigned short ch, const char* text,
                              int* value)
{
    const auto place = findExisting(parameter, ch);
    if (!place || !text || !value)
        return failed;
    const std::optional<int> parsed = place->parse(text);
    if (!parsed)
        return failed;
    *value = *parsed;
    return done;
}

int HostMemory::registerObserver(unsigned short parameter, unsigned short ch,
                                 IPrmObserver* observer)
{
    const auto place = findExisting(parameter, ch);
    return place && place->observers->add(observer) ? done : failed;
}

int HostMemory::unregisterObserver(unsigned short parameter, unsigned short ch,
                                   IPrmObserver* observer)
{
    const auto place = find(parameter, ch);
    return place && place->observers->remove(observer) ? done : failed;
}

int HostMemory::queryMeterNotifier(IMeterNotifier** notifier)
{
    if (!notifier)
        return failed;
    *notifier = &m_meters;
    return done;
}

int HostMemory::setChannelCount(int count)
{
    if (!isChannelCount(count))
        return failed;
    if (std::exchange(m_channelCount, count) != count)
        m_listeners.notify([count](ChangeListener& listener) { listener.countChanged(count); });
    return done;
}

void HostMemory::write(int ch, const Values& values)
{
    const auto channel = static_cast<unsigned short>(ch);
    for (std::size_t i = 0; i < parameterCount; ++i)
        store(*find(parameterId(i), channel), parameterId(i), channel, values[i]);
}

void HostMemory::reset(int ch) { write(ch, defaultValues()); }

int HostMemory::strip(int ch, StripParameter parameter) const
{
    return m_channels[static_cast<std::size_t>(ch)].strip[static_cast<std::size_t>(parameter)];
}

void HostMemory::setStrip(int ch, StripParameter parameter, int value)
{
    const auto channel = static_cast<unsigned short>(ch);
    store(*find(stripId(parameter), channel), stripId(parameter), channel, value);
}

int HostMemory::master(MasterParameter parameter) const
{
    return m_master[static_cast<std::size_t>(parameter)];
}

void HostMemory::setMaster(MasterParameter parameter, int value)
{
    setValue(masterId(parameter), 0, value, 0, 0, 1);
}

std::optional<HostMemory::Place> HostMemory::find(unsigned short parameter, unsigned short ch)
{
    if (ch >= maxChannelCount)
        return std::nullopt;
    const std::size_t index = findParameterById(parameter);
    if (index < parameterCount)
        return Place(m_channels[ch], parameterTable[index], index);
    const auto master = findMasterParameter(parameter);
    if (master && ch == 0)
        return Place(*this, *master, static_cast<std::size_t>(*master));
    const auto strip = findStripParameter(parameter);
    if (!strip)
        return std::nullopt;
    return Place(m_channels[ch], *strip, static_cast<std::size_t>(*strip));
}

std::optional<HostMemory::Place> HostMemory::findExisting(unsigned short parameter,
                                                          unsigned short ch)
{
    return ch < m_channelCount ? find(parameter, ch) : std::nullopt;
}

void HostMemory::store(const Place& place, unsigned short parameter, unsigned short ch, int value)
{
    const int after = std::clamp(value, place.minimum, place.maximum);
    const int before = std::exchange(*place.value, after);
    if (before != after) {
        m_listeners.notify(
            [=](ChangeListener& listener) { listener.changed(parameter, ch, before, after); });
    }
    notify(place, parameter, ch);
}

void HostMemory::notify(const Place& place, unsigned short parameter, unsigned short ch)
{
    std::optional<int> shown;
    std::string text;
    place.observers->notify([&](IPrmObserver& observer) {
        // An observer before this one may have written.
        const int value = *place.value;
        if (std::exchange(shown, value) != value)
            text = place.format(value).value_or(std::string());
        observer.Update(parameter, ch, value, text.c_str());
    });
}
