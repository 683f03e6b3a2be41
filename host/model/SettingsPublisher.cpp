// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/model/SettingsPublisher.h"

#include "host/model/MixerModel.h"
#include "hosting/HostMemory.h"

SettingsPublisher::SettingsPublisher(MixerModel& mixerModel, MixBus& bus)
    : m_mixerModel(mixerModel)
    , m_bus(bus)
{
    m_publishedValues.fill(defaultValues());
    m_delay.setSingleShot(true);
    m_delay.callOnTimeout(this, &SettingsPublisher::publish);
    m_mixerModel.memory().addChangeListener(this);
    publish();
}

SettingsPublisher::~SettingsPublisher() { m_mixerModel.memory().removeChangeListener(this); }

void SettingsPublisher::changed(unsigned short, unsigned short, int, int) { m_delay.start(0); }

void SettingsPublisher::publish()
{
    m_delay.stop();
    MixBus::Strips strips;
    for (int channel = 0; channel < channelCount; ++channel) {
        publishValues(channel);
        strips[static_cast<std::size_t>(channel)] = stripOf(channel);
    }
    if (strips == m_publishedStrips)
        return;
    m_publishedStrips = strips;
    m_bus.publish(strips);
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

MixBus::Strip SettingsPublisher::stripOf(int channel) const
{
    const int leader = m_mixerModel.leaderOf(channel);
    const int level = m_mixerModel.memory().strip(leader, StripParameter::Level);
    return {routeOf(channel), m_mixerModel.isAudible(channel) ? stripGain(level) : 0.0};
}

MixBus::Route SettingsPublisher::routeOf(int channel) const
{
    const int leader = m_mixerModel.leaderOf(channel);
    const bool pair = m_mixerModel.isPair(channel);
    const int source = m_mixerModel.memory().strip(leader, StripParameter::Source);
    MixBus::Route route;
    route.left = !pair || channel % 2 == 0;
    route.right = !pair || channel % 2 == 1;
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
