// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

class QLineEdit;
class QWindow;

/// Borrows the keyboard from the workstation while the user types into a field of an embedded
/// window, and no longer: its Space must go on to start and stop the sound.
///
/// Takes the display's input focus when a text field opens, and gives it back to the window that
/// had it when the field closes.
class KeyboardFocus : public QObject
{
    Q_OBJECT

public:
    /// Watches the text fields of \a window's application; X11 only, elsewhere does nothing.
    explicit KeyboardFocus(QWindow* window);
    ~KeyboardFocus() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void take();
    void giveBack();

    QWindow* m_window;
    QTimer m_again;
    quint32 m_lender = 0; // the display's window that had the focus
    bool m_taken = false;
};
