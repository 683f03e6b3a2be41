// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSocketNotifier>

/// While it lives, the signals that end a program (Control-C, terminate, hang-up) only say so, for
/// the program to put its files in order first; those that the program was started to ignore stay
/// ignored. One at a time. Needs an application object.
class EndingSignals : public QObject
{
    Q_OBJECT

public:
    EndingSignals();
    ~EndingSignals() override;

    /// For work without an event loop: whether one arrived since the last object was made.
    static bool hasArrived();
    /// Ends this program by the signal that arrived, as whoever sent it expects. Only where there
    /// is no object any more.
    static void endProgram();

Q_SIGNALS:
    /// For work in an event loop.
    void arrived();

private:
    void readEvents();

    QSocketNotifier m_notifier;
};
