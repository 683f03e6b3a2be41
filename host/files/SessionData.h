// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/files/SettingsFile.h"
#include "host/model/ChannelCompare.h"
#include "host/model/ChannelPresets.h"
#include "hosting/HostMemory.h"
#include "hosting/Result.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <array>
#include <optional>
#include <vector>

/// Everything that a session brings back.
struct SessionData
{
    struct Channel
    {
        QString name;
        HostMemory::StripValues strip;
        HostMemory::Values equalizer;
        ChannelCompare::State compare;
        std::optional<PresetName> preset; ///< that its equalizer began with
        SettingsFile::Map editor;         ///< what its editor wants to find again
    };
    struct Editor
    {
        int channel = 0;
        bool stereo = true;
        double scale = 1.0;
        bool measured = false; ///< shows the measured response; in sessions without a state
        QByteArray geometry;   ///< of its window; empty where it was not known
        QByteArray state;      ///< of its window's panels; empty where it was not known
    };

    struct Audio
    {
        QString file;          ///< that is open; empty for none
        double position = 0.0; ///< seconds
        bool loop = false;
    };

    int channelCount = defaultChannelCount;
    std::array<Channel, maxChannelCount> channels; ///< those beyond channelCount are not kept
    Audio audio;
    std::array<int, masterParameterCount> master;
    QByteArray mixerGeometry;
    QJsonObject analyzer;        ///< how spectra are shown; empty where it was not said
    std::vector<Editor> editors; ///< that are open

    /// A new mixer: everything at its default.
    SessionData();

    /// What rules the sound of a channel: its own settings, or those of the pair's first channel.
    const Channel& heardBy(int channel) const;

    /// As JSON, over \a base: what \a base holds that this program does not know stays.
    QJsonObject toJson(const QJsonObject& base) const;
    /// Reads what \a root says over this; what it does not say stays as it is, and what this
    /// program does not know is ignored. An error names its place in the file
    /// ("channels[3].strip.level must be text."); this is void then.
    Status read(const QJsonObject& root);
    /// Whether a later version of this program wrote \a root, which is no damage.
    static bool isLater(const QJsonObject& root);
};
