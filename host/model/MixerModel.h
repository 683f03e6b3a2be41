// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/model/AuditionModel.h"
#include "host/model/ChannelCompare.h"
#include "host/model/ChannelPresets.h"
#include "host/model/EditHistory.h"
#include "hosting/ChangeListener.h"
#include "hosting/Result.h"
#include "parameters/ChannelValues.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <array>

class AudioSession;

/// What people call a channel by: they count from 1, files and options from 0.
constexpr int shownNumber(int channel) { return channel + 1; }

/// What the mixer keeps besides the parameters' values: the channels' names, the A and B settings,
/// and the history of all edits. One for all windows. Needs an application object.
///
/// A channel that is taken away keeps all of this, and has it when it comes back.
class MixerModel : public QObject, private ChangeListener
{
    Q_OBJECT

public:
    /// \a memory must outlive it.
    explicit MixerModel(HostMemory& memory);
    ~MixerModel() override;

    HostMemory& memory() { return m_memory; }
    const HostMemory& memory() const { return m_memory; }
    EditHistory& history() { return m_history; }
    ChannelCompare& compare() { return m_compare; }
    ChannelPresets& presets() { return m_presets; }
    AuditionModel& auditions() { return m_auditions; }
    const AuditionModel& auditions() const { return m_auditions; }

    int channelCount() const { return m_memory.channelCount(); }
    /// Gives the mixer another number of channels, one that isChannelCount() allows, as a step of
    /// the history.
    void chooseChannelCount(int count);
    /// Restores a number, which is no step.
    void setChannelCount(int count);

    /// The name that the user gave a channel; empty if none.
    QString name(int channel) const { return m_names[static_cast<std::size_t>(channel)]; }
    /// The same, or what a channel without a name is called.
    QString shownName(int channel) const;
    /// Renames a channel as a step of the history. Blanks around the name do not count.
    void rename(int channel, const QString& name);
    /// Restores a name, which is no step.
    void setName(int channel, const QString& name);

    /// Whether a channel and its partner are one strip.
    bool isPair(int channel) const;
    /// The channel whose strip and equalizer rule \a channel: the first one of a pair.
    int leaderOf(int channel) const { return isPair(channel) ? channel & ~1 : channel; }
    /// What a channel's sound goes through: its leader's equalizer, or past it where that is off.
    ChannelValues soundingValues(int channel) const;
    /// Whether a channel can be heard, by its own mute and everybody's solo.
    bool isAudible(int channel) const;

    void copyToClipboard(int channel) const;
    bool canPaste() const;
    /// Fails if the clipboard holds no equalizer settings.
    Status pasteFromClipboard(int channel);

    /// Lets a channel's strip play the file, or with \a live what comes in, unless some strip does
    /// already. No step of the history.
    void feed(int channel, bool live);

    /// What plays sound through the mixer; null as long as nothing does. Not owned.
    AudioSession* transport() const;
    void setTransport(AudioSession* transport);
    /// The rate in Hz that the sound is equalized at; 0 while nothing plays.
    int soundingRate() const { return m_soundingRate; }

Q_SIGNALS:
    /// A channel's equalizer or strip has another value, whoever wrote it. The history has heard of
    /// it before.
    void channelChanged(int channel);
    void nameChanged(int channel);
    /// There are more channels or fewer.
    void channelCountChanged(int count);
    /// There is another transport.
    void transportChanged();
    void soundingRateChanged(int hertz);

private:
    void followRate();
    void changed(unsigned short parameter, unsigned short ch, int before, int after) override;
    void countChanged(int channels) override;

    HostMemory& m_memory;
    EditHistory m_history;
    ChannelCompare m_compare;
    ChannelPresets m_presets;
    AuditionModel m_auditions;
    std::array<QString, maxChannelCount> m_names;
    QPointer<AudioSession> m_transport;
    int m_soundingRate = 0;
};
