// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/GestureWatch.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>

namespace {

// The keys that change a value step by step, as opposed to typing one.
bool isSteppingKey(int key)
{
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Plus:
    case Qt::Key_Minus:
        return true;
    default:
        return false;
    }
}

bool isModifier(int key)
{
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt ||
           key == Qt::Key_Meta;
}

} // namespace

GestureWatch::GestureWatch(QObject* parent)
    : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool GestureWatch::eventFilter(QObject* watched, QEvent* event)
{
    if (!watched->isWidgetType())
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        press();
        break;
    case QEvent::MouseButtonRelease:
        release(*static_cast<QMouseEvent*>(event));
        break;
    case QEvent::Wheel:
        burst(Wheel, *static_cast<QInputEvent*>(event), true);
        break;
    case QEvent::KeyPress:
        key(*static_cast<QKeyEvent*>(event));
        break;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        // What a field that loses the focus writes is apart from what took the focus away. The
        // wheel, too, gives the focus to what it turns.
        if (m_kind != Wheel)
            ++m_number;
        break;
    default:
        break;
    }
    return false;
}

void GestureWatch::press()
{
    if (!m_held)
        begin(Mouse);
    m_held = true;
}

// The release itself still belongs to the gesture: it is what switches a button.
void GestureWatch::release(const QMouseEvent& event)
{
    if (event.buttons() != Qt::NoButton)
        return;
    m_held = false;
    endLater();
}

void GestureWatch::key(const QKeyEvent& event)
{
    if (!isModifier(event.key()))
        burst(Keys, event, isSteppingKey(event.key()));
}

void GestureWatch::burst(Kind kind, const QInputEvent& event, bool mayGoOn)
{
    if (m_held)
        return;
    const quint64 time = event.timestamp();
    const bool goesOn = mayGoOn && kind == m_kind && time - m_time <= maxPause;
    if (!goesOn)
        begin(kind);
    m_active = true;
    m_time = time;
    endLater();
}

void GestureWatch::begin(Kind kind)
{
    ++m_number;
    m_kind = kind;
    m_active = kind != None;
}

void GestureWatch::endLater()
{
    QMetaObject::invokeMethod(
        this,
        [this, number = m_number] {
            if (number == m_number && !m_held)
                m_active = false;
        },
        Qt::QueuedConnection);
}

#include "moc_GestureWatch.cpp"
