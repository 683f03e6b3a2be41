// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/desktop/DesktopProcessor.h"
#include "host/desktop/PipeWireConnection.h"
#include "host/desktop/SinkStreams.h"
#include "host/desktop/SoundGraph.h"
#include "hosting/Result.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

/// How long the desktop equalizer waits.
struct DesktopTimes
{
    std::chrono::milliseconds retry{1000};    ///< from one attempt to the next
    std::chrono::milliseconds patience{3000}; ///< for the session manager, before a message
    std::chrono::milliseconds step{300};      ///< at most, for each step of stop()
};

/// The equalizer for everything that the desktop plays: a sink of PipeWire that is the default one
/// for as long as it runs, and that plays on, equalized by the mix bus, to the sink that was it
/// before. Programs' inputs on the bus are 0 (left) and 1 (right).
///
/// A user who chooses another sink moves the equalizer's sound there. A server or a session manager
/// that goes is waited for. At the end everything is as it was. Needs an application object.
class DesktopEqualizer : public QObject
{
    Q_OBJECT

public:
    /// \a bus must outlive it, and nobody else may prepare it or let it process.
    explicit DesktopEqualizer(MixBus& bus, const DesktopTimes& times = {});
    /// Stops.
    ~DesktopEqualizer() override;

    void start();
    /// Fades out, gives the programs back to the output, and leaves PipeWire. Waits for that, but
    /// not long.
    void stop();

    /// In Hz, as of the sound that came last; 0 as long as none came.
    int rate() const { return m_rate; }
    /// What users know the sink by that it plays to; empty as long as there is none.
    QString output() const { return m_output.description; }

Q_SIGNALS:
    /// Rate or output are others.
    void changed();
    /// Why it does not play; it does as soon as that is over.
    void failed(const QString& sentence);

private:
    void connectToServer();
    void follow();
    void lose();
    void enter();
    void rememberChoice();
    void showState();
    void report(const Error& error);
    void reportMissingManager();
    void loseManager();
    bool isAsWanted() const;
    void refresh();
    void insist();
    void giveBack();
    void runUntil(const std::function<bool()>& isDone);

    DesktopTimes m_times;
    DesktopProcessor m_processor;
    PipeWireConnection m_connection;
    std::unique_ptr<SoundGraph> m_graph;
    std::unique_ptr<SinkStreams> m_streams;
    QTimer m_retry;
    QTimer m_patience;
    QTimer m_refresh;
    std::optional<QString> m_chosen; // what the user chose to play to; empty: nothing
    bool m_isDefault = false;        // asked for
    bool m_isRefreshing = false;     // what the session manager keeps
    bool m_stopping = false;
    int m_rate = 0;
    SoundGraph::Sink m_output;
    QString m_reported;
};
