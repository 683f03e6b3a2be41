// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <chrono>
#include <memory>

struct pw_core;

/// This program's connections to PipeWire, one for streams and one for the graph, whose events are
/// part of the application's event loop: what PipeWire calls back, it calls on the thread of the
/// connection, which needs an application object. Sound runs on a thread of PipeWire's own.
///
/// Whoever asks the session manager has to wait for it, and so do the answers of the streams on the
/// same connection. The session manager may wait for these, and then all wait for ever: hence two.
class PipeWireConnection : public QObject
{
    Q_OBJECT

public:
    PipeWireConnection();
    ~PipeWireConnection() override;

    /// Whether there is a server that takes the connections. What was made by an earlier one must
    /// be gone already.
    bool open();
    /// What was made by it must be gone already.
    void close();
    /// False once the server has gone, too.
    bool isOpen() const;
    /// Null while it was never open, or is closed.
    pw_core* streamCore() const;
    /// Likewise; no stream may be made with it.
    pw_core* graphCore() const;

    /// Handles what has happened, which is waited for no longer than \a limit.
    void run(std::chrono::milliseconds limit);

Q_SIGNALS:
    /// Something has been handled; PipeWire's own calls are over.
    void handled();

private:
    class Line;

    std::unique_ptr<Line> m_line;
    std::unique_ptr<QSocketNotifier> m_notifier;
};
