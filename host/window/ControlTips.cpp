// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/ControlTips.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QStatusTipEvent>
#include <QStringList>
#include <QToolTip>
#include <QWidget>

namespace {

bool hasValue(QAccessible::Role role)
{
    return role == QAccessible::Dial || role == QAccessible::SpinBox ||
           role == QAccessible::ProgressBar;
}

QString hints(const QWidget& control, QAccessible::Role role)
{
    // Named by the host's contract with the editor.
    if (control.objectName() == QLatin1String("m_pFlatButton"))
        return ControlTips::tr("Click: all gains to 0 dB, the outer bands to shelves\n"
                               "Hold for a second: everything but the drive to its default");
    switch (role) {
    case QAccessible::Dial:
        return ControlTips::tr("Drag, wheel or arrow keys: change (with Shift finely)\n"
                               "Double-click: type a value\n"
                               "Ctrl+click: default");
    case QAccessible::SpinBox:
        return ControlTips::tr("Double-click or Return: type a value, for example 1.25k or +3\n"
                               "Drag or wheel: change (with Shift finely)\n"
                               "Ctrl+click: default");
    case QAccessible::Grouping:
        return ControlTips::tr("Drag a handle: frequency and gain\n"
                               "with Shift the quality, with Ctrl only the gain, with Alt only the "
                               "frequency\n"
                               "Tab and arrow keys: the same by keyboard");
    case QAccessible::Button:
        return ControlTips::tr("Click: press");
    case QAccessible::CheckBox:
        return ControlTips::tr("Click: switch");
    default:
        return {};
    }
}

QString headline(const QAccessibleInterface& control)
{
    const QString name = control.text(QAccessible::Name);
    return hasValue(control.role())
               ? ControlTips::tr("%1: %2").arg(name, control.text(QAccessible::Value))
               : name;
}

bool hasTip(const QWidget& control, QAccessible::Role role)
{
    return hasValue(role) || !hints(control, role).isEmpty();
}

} // namespace

ControlTips::ControlTips(QWidget* stage, QWidget* editor)
    : QObject(editor)
    , m_stage(stage)
{
    stage->installEventFilter(this);
}

// Controls leave the event to their parents, and so in the end to the stage.
bool ControlTips::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_stage || event->type() != QEvent::ToolTip)
        return QObject::eventFilter(watched, event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const QWidget* control = m_stage->childAt(help.pos());
    for (; control && control != m_stage; control = control->parentWidget()) {
        const QAccessibleInterface* accessible =
            QAccessible::queryAccessibleInterface(const_cast<QWidget*>(control));
        const bool isNamed = accessible && !accessible->text(QAccessible::Name).isEmpty();
        if (!isNamed || !hasTip(*control, accessible->role()))
            continue;
        if (accessible->childAt(help.globalX(), help.globalY()))
            break; // a handle, of which a bubble says more
        const QString line = headline(*accessible);
        const QString text = hints(*control, accessible->role());
        QStatusTipEvent status(line);
        QCoreApplication::sendEvent(m_stage, &status);
        QToolTip::showText(help.globalPos(),
                           text.isEmpty() ? line : line + QLatin1Char('\n') + text, m_stage);
        return true;
    }
    QToolTip::hideText();
    return true;
}

#include "moc_ControlTips.cpp"
