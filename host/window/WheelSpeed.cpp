// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/WheelSpeed.h"

#include "parameters/ParameterScale.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QPointer>
#include <QVariant>
#include <QWheelEvent>
#include <QWidget>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double noteRatio = 1.0594630943592953; // a twelfth of an octave
constexpr int fineNotches = 3;                   // that a knob wants for a step with Shift

// The knob's class may be the editor library's own.
bool isKnob(const QObject* object)
{
    return object->inherits("CommonController_MemAPI::KnobController");
}

int stepsOf(ParameterKind kind)
{
    switch (kind) {
    case ParameterKind::Frequency:
        return stepOf(kind, 1000.0 * noteRatio) - stepOf(kind, 1000.0);
    case ParameterKind::Quality:
        return stepOf(kind, noteRatio) - stepOf(kind, 1.0);
    case ParameterKind::Decibels:
        return stepOf(kind, 0.5) - stepOf(kind, 0.0);
    default:
        return 1;
    }
}

// By the knob's range, which is that of its parameter.
int notchOf(QObject* knob)
{
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(knob);
    QAccessibleValueInterface* value = accessible ? accessible->valueInterface() : nullptr;
    for (const Parameter& parameter : parameterTable) {
        if (value && value->minimumValue().toInt() == parameter.minimum &&
            value->maximumValue().toInt() == parameter.maximum)
            return stepsOf(parameter.kind);
    }
    return 1;
}

int factorOf(QObject* knob, const QWheelEvent& event)
{
    if (!(event.modifiers() & Qt::ShiftModifier))
        return notchOf(knob);
    return knob->property("valueChangeStep").toInt() == 1 ? fineNotches : 1;
}

// A delta may be any number.
QPoint multiplied(const QPoint& delta, int factor)
{
    const int limit = std::numeric_limits<int>::max() / factor;
    return QPoint(std::clamp(delta.x(), -limit, limit), std::clamp(delta.y(), -limit, limit)) *
           factor;
}

} // namespace

WheelSpeed::WheelSpeed(QWidget* editor)
    : QObject(editor)
{
    for (QWidget* widget : editor->findChildren<QWidget*>()) {
        if (isKnob(widget))
            widget->installEventFilter(this);
    }
}

bool WheelSpeed::eventFilter(QObject* knob, QEvent* event)
{
    if (m_passing || event->type() != QEvent::Wheel)
        return false;
    const auto* wheel = static_cast<QWheelEvent*>(event);
    QWheelEvent scaled(wheel->position(), wheel->globalPosition(), wheel->pixelDelta(),
                       multiplied(wheel->angleDelta(), factorOf(knob, *wheel)), wheel->buttons(),
                       wheel->modifiers(), wheel->phase(), wheel->inverted(), wheel->source(),
                       wheel->pointingDevice());
    scaled.setTimestamp(wheel->timestamp());
    m_passing = true;
    const QPointer<WheelSpeed> guard(this);
    QCoreApplication::sendEvent(knob, &scaled);
    if (guard)
        m_passing = false;
    event->setAccepted(scaled.isAccepted());
    return true;
}

#include "moc_WheelSpeed.cpp"
