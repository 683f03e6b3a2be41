// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/monkey/Dice.h"

#include <QEvent>
#include <QPoint>
#include <QPointer>
#include <QString>
#include <QWidget>

class QWindow;

/// Random mouse, keys, wheel, focus and drops, as the window system sends them to a window.
class UserInput
{
public:
    explicit UserInput(Dice& dice)
        : m_dice(dice)
    {}

    /// Does one thing to \a window, or to the popup that is open above it. \a window may be gone
    /// afterwards.
    void act(QWidget* window);
    /// Lets go of the mouse and presses Escape, which ends drags and closes popups.
    void letGo(QWidget* window);
    /// A point in \a window or near it, mostly near the last one or in the middle of something.
    QPoint anyPoint(const QWidget* window);
    /// Something that people type, or that nobody would.
    QString anyText();
    bool isHolding() const { return m_buttons != Qt::NoButton; }
    /// Where files that are dropped lie.
    void setFiles(const QStringList& files) { m_files = files; }

private:
    Qt::KeyboardModifiers anyModifiers();
    void pointer(QWidget* window);
    void click(QWindow* window, Qt::MouseButton button, int times);
    void send(QWindow* window, QEvent::Type type, Qt::MouseButton button);
    void key(QWidget* window);
    void wheel(QWidget* window);
    void focus(QWidget* window);
    void drop(QWidget* window);

    Dice& m_dice;
    QPoint m_point;
    Qt::MouseButtons m_buttons = Qt::NoButton;
    Qt::KeyboardModifiers m_modifiers = Qt::NoModifier;
    QStringList m_files;
};
