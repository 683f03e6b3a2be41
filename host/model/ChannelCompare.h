// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/HostMemory.h"

#include <QObject>

#include <array>

class EditHistory;

/// Two settings of each channel's equalizer, A and B, to switch between. The chosen one is what the
/// memory holds; the other one waits here. Every operation is one step of the history.
class ChannelCompare : public QObject
{
    Q_OBJECT

public:
    /// A channel's state: whether B is chosen, and the values of the one that is not.
    struct State
    {
        bool isB = false;
        HostMemory::Values other;
    };

    /// Both are the defaults and A is chosen. Memory and history must outlive it.
    ChannelCompare(HostMemory& memory, EditHistory& history);

    bool isB(int channel) const { return state(channel).isB; }
    const State& state(int channel) const { return m_states[static_cast<std::size_t>(channel)]; }
    /// Restores a state, which is no step.
    void setState(int channel, const State& state);

    /// Chooses A or B; nothing if it is chosen already.
    void choose(int channel, bool isB);
    /// Makes B what A is, or A what B is; the choice stays. Nothing if they are equal.
    void copy(int channel, bool toB);

Q_SIGNALS:
    /// Another one is chosen.
    void chosen(int channel);

private:
    HostMemory& m_memory;
    EditHistory& m_history;
    std::array<State, maxChannelCount> m_states;
};
