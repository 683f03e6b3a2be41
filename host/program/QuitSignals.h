// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSocketNotifier>

/// While it lives, the signals that end a program (EndingSignals) only say so, in the event loop,
/// for the program to put its files in order. One at a time.
class QuitSignals : public QObject
{
    Q_OBJECT

public:
    QuitSignals();
    ~QuitSignals() override;

Q_SIGNALS:
    void arrived();

private:
    void tell();

    QSocketNotifier m_notifier;
};
