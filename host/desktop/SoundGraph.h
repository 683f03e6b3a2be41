// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstdint>
#include <memory>

struct pw_core;

/// What the desktop equalizer sees of PipeWire's graph: the sinks that there are, who plays to
/// them, and which of them is the default, which the session manager keeps. Follows the graph by
/// itself while its connection handles events, but for changes of the default: PipeWire keeps these
/// to itself while any program asks for them, and forever if that program goes without an answer.
class SoundGraph
{
public:
    struct Sink
    {
        QString name;        ///< as in "alsa_output.pci-0000_00_1f.3.analog-stereo"
        QString description; ///< what users know it by
    };

    /// \a core must outlive it.
    explicit SoundGraph(pw_core* core);
    ~SoundGraph();
    SoundGraph(const SoundGraph&) = delete;
    SoundGraph& operator=(const SoundGraph&) = delete;

    /// Whether there is a session manager, and what it keeps is known.
    bool hasManager() const;
    /// Whether the session manager has looked at all that there is: it has a default sink, or there
    /// is none to be it.
    bool isSettled() const;
    /// The name of the sink that programs play to unless they are told another one.
    QString defaultSink() const;
    /// The name of the sink that was chosen to be that, which need not exist; empty if none was.
    QString chosenSink() const;
    /// Only with a session manager. An empty name takes the choice back.
    void chooseSink(const QString& name);
    /// Moves what the node with the number \a node plays to the sink \a name. Likewise.
    void moveTo(std::uint32_t node, const QString& name);

    /// Asks PipeWire to say when all that was asked for before has been done, and whether it has.
    void sync();
    bool isSynced() const;
    /// Asks the session manager again for all that it keeps, and for a sync. Only with one.
    void refresh();
    /// Whether anything has come or gone since that was asked for, so that it may be out of date.
    bool isDoubtful() const;

    /// Lets each sink of an earlier session manager's time make its ports anew (SinkPorts), once
    /// and as soon as nothing is linked to it any more. The next session manager may be there
    /// already.
    void renewSinks();
    /// The session manager has linked what it should, so no sink needs that any more.
    void keepSinks();

    /// The sink that the node with the number \a node plays to; without names if it plays to none.
    Sink sinkBehind(std::uint32_t node) const;
    /// Whether anything plays to the node with the number \a node.
    bool isPlayedTo(std::uint32_t node) const;

private:
    class Watch;

    std::unique_ptr<Watch> m_watch;
};
