// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QWheelEvent;
class QWidget;

/// Gives the wheel a hand's speed over an editor's knobs of many steps: a notch is a twelfth of an
/// octave of frequency or quality, or half a dB, and with Shift one step. Smaller movements, as of
/// a trackpad, are scaled alike and stay smooth.
class WheelSpeed : public QObject
{
    Q_OBJECT

public:
    /// For the knobs below \a editor that are there now. Belongs to \a editor.
    explicit WheelSpeed(QWidget* editor);

    bool eventFilter(QObject* knob, QEvent* event) override;

private:
    bool m_passing = false; // the scaled event
};
