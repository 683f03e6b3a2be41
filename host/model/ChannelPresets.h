// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/model/EditHistory.h"
#include "parameters/ChannelValues.h"
#include "parameters/ParameterTable.h"

#include <QObject>
#include <QString>

#include <array>
#include <optional>

class HostMemory;

/// A preset by its name: one that comes with the mixer, which has its English one, or the user's.
struct PresetName
{
    QString name;
    bool isFactory = false;

    bool operator==(const PresetName&) const = default;
};

/// Which preset each channel's equalizer began with, and whether it has been changed since. GUI
/// thread only.
class ChannelPresets : public QObject
{
    Q_OBJECT

public:
    /// None at first. \a memory must outlive it.
    explicit ChannelPresets(const HostMemory& memory);

    /// Nothing where it began with none.
    std::optional<PresetName> preset(int channel) const;
    /// Whether the values are others than the preset's; false without a preset.
    bool isModified(int channel) const;

    /// The channel has the values of \a preset now, as part of \a step.
    void choose(int channel, const PresetName& preset, EditHistory::Step* step);
    /// It began with \a preset, whose values are \a values; no step.
    void adopt(int channel, const PresetName& preset, const ChannelValues& values);
    /// The preset of that name, which may be that of several channels, is called otherwise now, or
    /// with nothing is gone.
    void rename(const PresetName& preset, const std::optional<QString>& name);
    /// It begins with none.
    void clear(int channel);

Q_SIGNALS:
    /// Another preset, or another name.
    void changed(int channel);

private:
    struct Chosen
    {
        PresetName preset;
        ChannelValues values;
    };
    using Choice = std::optional<Chosen>;

    const Choice& of(int channel) const { return m_choices[static_cast<std::size_t>(channel)]; }
    void set(int channel, const Choice& choice);

    const HostMemory& m_memory;
    std::array<Choice, maxChannelCount> m_choices;
};
