// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

/// Mouse events as the window system delivers them to a widget, with exact positions.
class GraphMouse
{
public:
    explicit GraphMouse(QWidget* widget)
        : m_widget(widget)
    {}

    void press(QPointF at, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
               Qt::MouseButton button = Qt::LeftButton)
    {
        m_buttons |= button;
        send(QEvent::MouseButtonPress, at, button, modifiers);
    }
    void doubleClick(QPointF at)
    {
        m_buttons |= Qt::LeftButton;
        send(QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::NoModifier);
    }
    void move(QPointF to, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        send(QEvent::MouseMove, to, Qt::NoButton, modifiers);
    }
    void release(QPointF at, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                 Qt::MouseButton button = Qt::LeftButton)
    {
        m_buttons &= ~Qt::MouseButtons(button);
        send(QEvent::MouseButtonRelease, at, button, modifiers);
    }

private:
    void send(QEvent::Type type, QPointF at, Qt::MouseButton button,
              Qt::KeyboardModifiers modifiers)
    {
        QMouseEvent event(type, at, m_widget->mapToGlobal(at), button, m_buttons, modifiers);
        QApplication::sendEvent(m_widget, &event);
    }

    QWidget* m_widget;
    Qt::MouseButtons m_buttons;
};
