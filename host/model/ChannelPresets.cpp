// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/model/ChannelPresets.h"

#include "hosting/HostMemory.h"

ChannelPresets::ChannelPresets(const HostMemory& memory)
    : m_memory(memory)
{}

std::optional<PresetName> ChannelPresets::preset(int channel) const
{
    return of(channel) ? std::optional(of(channel)->preset) : std::nullopt;
}

bool ChannelPresets::isModified(int channel) const
{
    return of(channel) && of(channel)->values != m_memory.values(channel);
}

void ChannelPresets::choose(int channel, const PresetName& preset, EditHistory::Step* step)
{
    const Choice before = of(channel);
    const Choice after = Chosen{preset, m_memory.values(channel)};
    step->setEffect(
        [this, channel, before, after](bool forward) { set(channel, forward ? after : before); });
    set(channel, after);
}

void ChannelPresets::adopt(int channel, const PresetName& preset, const ChannelValues& values)
{
    set(channel, Chosen{preset, values});
}

void ChannelPresets::rename(const PresetName& preset, const std::optional<QString>& name)
{
    for (int channel = 0; channel < maxChannelCount; ++channel) {
        if (this->preset(channel) != preset)
            continue;
        Choice choice = of(channel);
        if (name)
            choice->preset.name = *name;
        set(channel, name ? choice : std::nullopt);
    }
}

void ChannelPresets::clear(int channel) { set(channel, std::nullopt); }

void ChannelPresets::set(int channel, const Choice& choice)
{
    m_choices[static_cast<std::size_t>(channel)] = choice;
    Q_EMIT changed(channel);
}

#include "moc_ChannelPresets.cpp"
