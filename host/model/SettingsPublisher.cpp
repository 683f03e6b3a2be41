// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/model/SettingsPublisher.h"

#include "host/model/MixerModel.h"
#include "hosting/HostMemory.h"

#include <cmath>
#include <utility>

namespace {

MixBus::Master masterOf(const HostMemory& memory)
{
    if (memory.master(MasterParameter::Mute) != 0)
        return {0.0, memory.master(MasterParameter::Mono) != 0};
    const double dim = memory.master(MasterParameter::Dim) != 0 ? -dimDecibels : 0.0;
    return {stripGain(memory.master(MasterParameter::Level)) * std::pow(10.0, dim / 20.0),
            memory.master(MasterParameter::Mono) != 0};
}

} // namespace

SettingsPublisher::SettingsPublisher(MixerModel& mixerModel, MixBus& bus)
    : m_mixerModel(mixerModel)
    , m_bus(bus)
{
    m_publishedValues.fill(defaultValues());
    m_delay.setSingleShot(true);
    m_delay.callOnTimeout(this, &SettingsPublisher::publish);
    m_mixerModel.memory().addChangeListener(this);
    AuditionModel& auditions = m_mixerModel.auditions();
    connect(&auditions, &AuditionModel::changed, this, [this] { m_delay.start(0); });
    auditions.setMeter([&bus](int channel) { return bus.matchedGain(channel); });
    publish();
}

SettingsPublisher::~SettingsPublisher()
{
    m_mixerModel.memory().removeChangeListener(this);
    m_mixerModel.auditions().setMeter({});
}

void SettingsPublisher::changed(unsigned short, unsigned short, int, int) { m_delay.start(0); }

void SettingsPublisher::countChanged(int) { m_delay.start(0); }

void SettingsPublisher::publish()
{
    m_delay.stop();
    MixBus::Strips strips;
    strips.count = m_mixerModel.channelCount();
    for (int channel = 0; channel < strips.count; ++channel) {
        publishValues(channel);
        publishAudition(channel);
        strips[static_cast<std::size_t>(channel)] = stripOf(channel);
    }
    if (std::exchange(m_publishedStrips, strips) != strips)
        m_bus.publish(strips);
    const MixBus::Master master = masterOf(m_mixerModel.memory());
    if (std::exchange(m_publishedMaster, master) != master)
        m_bus.publish(master);
}

// The second channel of a pair runs with the settings of the first one.
void SettingsPublisher::publishValues(int channel)
{
    const ChannelValues values = m_mixerModel.soundingValues(channel);
    ChannelValues& published = m_publishedValues[static_cast<std::size_t>(channel)];
    if (values == published)
        return;
    published = values;
    m_bus.publish(channel, values);
}

void SettingsPublisher::publishAudition(int channel)
{
    Audition audition = m_mixerModel.auditions().of(m_mixerModel.leaderOf(channel));
    audition.linked = m_mixerModel.isPair(channel);
    Audition& published = m_publishedAuditions[static_cast<std::size_t>(channel)];
    if (std::exchange(published, audition) != audition)
        m_bus.publish(channel, audition);
}

MixBus::Strip SettingsPublisher::stripOf(int channel) const
{
    const int leader = m_mixerModel.leaderOf(channel);
    const HostMemory& memory = m_mixerModel.memory();
    const bool audible = m_mixerModel.isAudible(channel);
    const double gain = audible ? stripGain(memory.strip(leader, StripParameter::Level)) : 0.0;
    const BalanceGains sides = balanceGains(memory.strip(leader, StripParameter::Balance));
    const bool pair = m_mixerModel.isPair(channel);
    const double left = pair && channel != leader ? 0.0 : gain * sides.left;
    const double right = pair && channel == leader ? 0.0 : gain * sides.right;
    return {routeOf(channel), left, right};
}

MixBus::Route SettingsPublisher::routeOf(int channel) const
{
    const int leader = m_mixerModel.leaderOf(channel);
    const int source = m_mixerModel.memory().strip(leader, StripParameter::Source);
    MixBus::Route route;
    if (source == SourceFile) {
        route.source = MixBus::Source::File;
        route.number = channel % 2;
    } else if (source >= SourceInput1 && source < SourceOff) {
        route.source = MixBus::Source::Input;
        route.number = source - SourceInput1 + channel - leader;
    }
    return route;
}

#include "moc_SettingsPublisher.cpp"
