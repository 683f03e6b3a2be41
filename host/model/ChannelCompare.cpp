// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/model/ChannelCompare.h"

#include "host/model/EditHistory.h"

namespace {

QString letter(bool isB) { return isB ? QStringLiteral("B") : QStringLiteral("A"); }

} // namespace

ChannelCompare::ChannelCompare(HostMemory& memory, EditHistory& history)
    : m_memory(memory)
    , m_history(history)
{
    for (State& state : m_states)
        state.other = HostMemory().values(0);
}

void ChannelCompare::setState(int channel, const State& state)
{
    m_states[static_cast<std::size_t>(channel)] = state;
    Q_EMIT chosen(channel);
}

void ChannelCompare::choose(int channel, bool isB)
{
    const State before = state(channel);
    if (before.isB == isB)
        return;
    const State after{isB, m_memory.values(channel)};
    EditHistory::Step step(m_history, tr("Choose %1").arg(letter(isB)));
    step.setEffect([this, channel, before, after](bool forward) {
        setState(channel, forward ? after : before);
    });
    m_memory.write(channel, before.other);
    setState(channel, after);
}

void ChannelCompare::copy(int channel, bool toB)
{
    const State before = state(channel);
    if (before.other == m_memory.values(channel))
        return;
    EditHistory::Step step(m_history, tr("Copy %1 to %2").arg(letter(!toB), letter(toB)));
    if (before.isB == toB) {
        m_memory.write(channel, before.other);
        return;
    }
    const State after{before.isB, m_memory.values(channel)};
    step.setEffect([this, channel, before, after](bool forward) {
        setState(channel, forward ? after : before);
    });
    setState(channel, after);
}

#include "moc_ChannelCompare.cpp"
