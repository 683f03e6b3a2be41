// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QInputEvent;
class QKeyEvent;
class QMouseEvent;

/// Tells which of the user's gestures is under way, from the events that the application's widgets
/// get: everything between pressing a mouse button and the next input is one gesture, and so is a
/// burst of wheel movements or of stepping keys. Nothing here looks at a clock: the pauses that end
/// a burst are those between the events' own times.
class GestureWatch : public QObject
{
    Q_OBJECT

public:
    enum Kind { None, Mouse, Wheel, Keys };

    /// Events of a burst come within so many milliseconds of each other.
    static constexpr quint64 maxPause = 1000;

    /// Watches the application object's events.
    explicit GestureWatch(QObject* parent = nullptr);

    /// The number of the newest gesture; another one for every gesture.
    quint64 number() const { return m_number; }
    /// What is under way; None once the program has gone back to waiting for events.
    Kind kind() const { return m_active ? m_kind : None; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void press();
    void release(const QMouseEvent& event);
    void key(const QKeyEvent& event);
    void burst(Kind kind, const QInputEvent& event, bool mayGoOn);
    void begin(Kind kind);
    void endLater();

    quint64 m_number = 0;
    Kind m_kind = None;
    bool m_active = false;
    bool m_held = false; // a mouse button
    quint64 m_time = 0;  // of the newest event of a burst
};
