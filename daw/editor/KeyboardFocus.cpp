// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/editor/KeyboardFocus.h"

#include <QGuiApplication>
#include <QLineEdit>
#include <QWindow>

#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

namespace {

// Some workstations take the focus back while they handle the press that opened the field.
constexpr int again = 120; // ms

xcb_connection_t* display()
{
    const auto* native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return native ? native->connection() : nullptr;
}

xcb_window_t focusedWindow(xcb_connection_t* connection)
{
    const std::unique_ptr<xcb_get_input_focus_reply_t, decltype(&std::free)> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr),
        &std::free);
    return reply ? reply->focus : 0;
}

void focus(xcb_window_t window)
{
    xcb_set_input_focus(display(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    xcb_flush(display());
}

} // namespace

KeyboardFocus::KeyboardFocus(QWindow* window)
    : m_window(window)
{
    m_again.setInterval(again);
    m_again.setSingleShot(true);
    connect(&m_again, &QTimer::timeout, this, [this] {
        if (m_taken)
            focus(static_cast<xcb_window_t>(m_window->winId()));
    });
    if (display())
        qGuiApp->installEventFilter(this);
}

KeyboardFocus::~KeyboardFocus() { giveBack(); }

bool KeyboardFocus::eventFilter(QObject* watched, QEvent* event)
{
    const auto* field = qobject_cast<QLineEdit*>(watched);
    if (!field || field->focusPolicy() == Qt::NoFocus)
        return false;
    if (event->type() == QEvent::Show || event->type() == QEvent::MouseButtonPress)
        take();
    else if (event->type() == QEvent::Hide || event->type() == QEvent::FocusOut)
        giveBack();
    return false;
}

void KeyboardFocus::take()
{
    if (!m_taken)
        m_lender = focusedWindow(display());
    m_taken = true;
    focus(static_cast<xcb_window_t>(m_window->winId()));
    m_again.start();
}

void KeyboardFocus::giveBack()
{
    if (!m_taken)
        return;
    m_taken = false;
    if (m_lender != 0)
        focus(m_lender);
}

#include "moc_KeyboardFocus.cpp"
