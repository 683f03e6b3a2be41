// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstdint>
#include <memory>
#include <optional>

struct pw_core;
class DesktopProcessor;

/// The desktop equalizer in PipeWire's graph: a stereo sink for programs to play to, and behind it
/// a stream that plays on what the processor makes of their sound, in the same cycle of the graph.
/// The processor runs on PipeWire's audio thread, everything else on the connection's.
class SinkStreams
{
public:
    /// The sink's name in the graph.
    static const QString sinkName;

    /// Plays to the sink with the name \a output, or where the session manager likes if that is
    /// empty. \a core and \a processor must outlive it.
    SinkStreams(pw_core* core, DesktopProcessor& processor, const QString& output);
    ~SinkStreams();
    SinkStreams(const SinkStreams&) = delete;
    SinkStreams& operator=(const SinkStreams&) = delete;

    /// The numbers of the sink and of the stream behind it in the graph, as soon as they are there.
    std::optional<std::uint32_t> sink() const;
    std::optional<std::uint32_t> output() const;
    /// Whether sound runs through.
    bool isRunning() const;
    /// In Hz; 0 until sound ran through.
    int rate() const;
    /// Whether somebody has removed one of them from the graph.
    bool isGone() const;

private:
    class Pair;

    std::unique_ptr<Pair> m_pair;
};
