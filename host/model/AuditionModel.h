// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/ChannelAudition.h"
#include "parameters/ParameterTable.h"

#include <QObject>

#include <array>
#include <functional>

/// What the user wants to hear of the channels for the moment, to compare: past the equalizer, or
/// what one of its bands changes. It is no setting: no history, session or saved state knows it.
/// GUI thread only.
///
/// Only of a channel that is watched anything can be wanted, so that nothing stays once nobody
/// sees it any more.
class AuditionModel : public QObject
{
    Q_OBJECT

public:
    using GainMeter = std::function<double(int channel)>;

    /// Between the two the loudness of a channel is measured. Calls are counted.
    void watch(int channel);
    void unwatch(int channel);

    void setBypassed(int channel, bool bypassed);
    bool isBypassed(int channel) const { return of(channel).bypassed; }
    /// The band that is listened to, 0 (low) to 5 (high); noBand for none.
    void setBand(int channel, int band);
    int band(int channel) const { return of(channel).band; }
    /// All of it, as of a channel that is not linked to another one.
    const Audition& of(int channel) const { return m_auditions[static_cast<std::size_t>(channel)]; }

    /// The gain in dB of a channel's bypassed sound; 0 where nothing mixes.
    double matchedGain(int channel) const { return m_meter ? m_meter(channel) : 0.0; }
    /// What reads it.
    void setMeter(GainMeter meter) { m_meter = std::move(meter); }

Q_SIGNALS:
    void changed(int channel);

private:
    void set(int channel, const Audition& audition);

    std::array<Audition, maxChannelCount> m_auditions;
    std::array<int, maxChannelCount> m_watchers{};
    GainMeter m_meter;
};
