// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/MixBus.h"
#include "hosting/ChangeListener.h"

#include <QObject>
#include <QTimer>

#include <array>

class MixerModel;

/// Publishes the mixer's settings to the mix bus: once for all writes to the memory that come
/// together, and only what has changed. GUI thread only.
///
/// A file's left side goes to the even channels, its right side to the odd ones; what comes in goes
/// by its number, to the second channel of a pair the input after the first one's. Of a pair the
/// even channel is heard on the left, the odd one on the right; a mono strip is heard on both
/// sides, at full level on each as long as it is in the middle. A strip whose equalizer is off lets
/// the sound past as it is. What is wanted of a pair's first channel to compare is wanted of both.
class SettingsPublisher : public QObject, private ChangeListener
{
    Q_OBJECT

public:
    /// Publishes all that \a mixerModel has; it and \a bus must outlive it.
    SettingsPublisher(MixerModel& mixerModel, MixBus& bus);
    ~SettingsPublisher() override;

    /// Publishes at once what the next turn of the event loop would.
    void publish();

private:
    void changed(unsigned short parameter, unsigned short ch, int before, int after) override;
    void countChanged(int channels) override;
    void publishValues(int channel);
    void publishAudition(int channel);
    MixBus::Strip stripOf(int channel) const;
    MixBus::Route routeOf(int channel) const;

    MixerModel& m_mixerModel;
    MixBus& m_bus;
    QTimer m_delay;
    std::array<ChannelValues, maxChannelCount> m_publishedValues;
    std::array<Audition, maxChannelCount> m_publishedAuditions;
    MixBus::Strips m_publishedStrips{};
    MixBus::Master m_publishedMaster;
};
