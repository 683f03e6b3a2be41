// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "parameters/ChannelValues.h"

#include <QObject>
#include <QTimer>

class EditorSession;
class QAction;
class QActionGroup;
class QMenu;
class Retranslator;
struct Mixer;

/// The range of levels that an editor's graph shows: its menu, and the wider range that it gets
/// when a value leaves the one that is shown, unless the user chose otherwise. While a mouse button
/// is held everything stays where it is.
class GraphRange : public QObject
{
    Q_OBJECT

public:
    /// Mixer and session must outlive it.
    GraphRange(Mixer& mixer, EditorSession& session, QObject* parent);

    /// Fills \a menu, which must not outlive it.
    void fill(QMenu* menu, Retranslator& texts);

    /// The farthest that a gain of a band or the curve of all of them lies from 0 dB; pass filters
    /// are left out, which have no bottom.
    static double farthest(const ChannelValues& values, double sampleRate);

private:
    bool isAutomatic() const;
    void widen();
    void show();

    Mixer& m_mixer;
    EditorSession& m_session;
    QTimer m_due;
    QAction* m_automatic = nullptr;
    QActionGroup* m_choices = nullptr;
};
