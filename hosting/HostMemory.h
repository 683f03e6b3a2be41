// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/MeterNotifier.h"
#include "hosting/ObserverList.h"
#include "interfaces/IMemAPI.h"
#include "parameters/ChannelValues.h"
#include "parameters/StripTable.h"

#include <array>
#include <optional>

class ChangeListener;

/// The mixer's parameter memory: the equalizer's 27 parameters and the strip's parameters of each
/// channel, and the master's as channel 0's, each starting at its default. There are
/// defaultChannelCount channels at first.
///
/// A channel that is taken away keeps its values, and has them when it comes back; until then it
/// does not exist for IMemAPI, but for its observers, which may always leave.
///
/// Operations return 0, or -1 for a parameter, channel or element that does not exist, a null
/// pointer, a text that says nothing or a buffer that is too small; then nothing is changed. Must
/// outlive every editor and observer.
///
/// A write is clamped into the range and told at once to every observer of that parameter and
/// channel, in the order in which they registered, the writer's own included and also when the
/// value stays the same. Observers may write, register and unregister meanwhile: each is always
/// told the value that holds at that moment, one that leaves is not called any more, one that comes
/// is called from the next write on.
class HostMemory : public IMemAPI
{
public:
    using Values = ChannelValues;
    using StripValues = std::array<int, stripParameterCount>;

    HostMemory();

    int getValue(unsigned short parameter, unsigned short ch, int* value,
                 unsigned short element) override;
    int setValue(unsigned short parameter, unsigned short ch, int value, unsigned short element,
                 int, int) override;
    int getRange(unsigned short parameter, unsigned short ch, int* minimum, int* maximum) override;
    int getDefault(unsigned short parameter, unsigned short ch, int* value) override;
    int valueToString(unsigned short parameter, unsigned short ch, int value, char* buffer,
                      int size) override;
    int stringToValue(unsigned short parameter, unsigned short ch, const char* text,
                      int* value) override;
    /// Fails for an observer that is registered already: it is told of each write once.
    int registerObserver(unsigned short parameter, unsigned short ch,
                         IPrmObserver* observer) override;
    /// Fails for an observer that is not registered.
    int unregisterObserver(unsigned short parameter, unsigned short ch,
                           IPrmObserver* observer) override;
    int queryMeterNotifier(IMeterNotifier** notifier) override;

    MeterNotifier& meters() { return m_meters; }

    /// How many channels there are, from channel 0 on.
    int channelCount() const { return m_channelCount; }
    /// Fails for a number that isChannelCount() refuses. Tells the change listeners of another one.
    int setChannelCount(int count);

    /// Who is told of changes of any parameter, before the parameter's observers and only where the
    /// value became another. As observers, they may write, come and go meanwhile. Not owned.
    void addChangeListener(ChangeListener* listener) { m_listeners.add(listener); }
    void removeChangeListener(ChangeListener* listener) { m_listeners.remove(listener); }

    /// Every value of a channel's equalizer, by parameter index. Here and below, \a ch is any
    /// channel below maxChannelCount.
    const Values& values(int ch) const { return m_channels[static_cast<std::size_t>(ch)].values; }
    /// Writes every value of a channel's equalizer, notifying as setValue() does.
    void write(int ch, const Values& values);
    /// Writes every default of a channel's equalizer.
    void reset(int ch);
    /// A value of a channel's strip.
    int strip(int ch, StripParameter parameter) const;
    void setStrip(int ch, StripParameter parameter, int value);
    /// A value of the master's.
    int master(MasterParameter parameter) const;
    void setMaster(MasterParameter parameter, int value);

private:
    struct Place;
    static constexpr std::size_t placeCount = parameterCount + stripParameterCount;
    struct Channel
    {
        Values values;
        StripValues strip;
        std::array<ObserverList<IPrmObserver>, placeCount> observers;
    };

    std::optional<Place> find(unsigned short parameter, unsigned short ch);
    std::optional<Place> findExisting(unsigned short parameter, unsigned short ch);
    void store(const Place& place, unsigned short parameter, unsigned short ch, int value);
    static void notify(const Place& place, unsigned short parameter, unsigned short ch);

    int m_channelCount = defaultChannelCount;
    std::array<Channel, maxChannelCount> m_channels;
    std::array<int, masterParameterCount> m_master{};
    std::array<ObserverList<IPrmObserver>, masterParameterCount> m_masterObservers;
    ObserverList<ChangeListener> m_listeners;
    MeterNotifier m_meters;
};
