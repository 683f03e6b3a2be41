// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/EditorStage.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>

EditorStage::EditorStage(QWidget* parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::TabFocus);
}

// With the focus on itself an editor begins at its first control, or goes back to its last one.
void EditorStage::focusInEvent(QFocusEvent* event)
{
    const QPointer<QWidget> editor = findChild<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    if (!editor)
        return QWidget::focusInEvent(event);
    const bool back = event->reason() == Qt::BacktabFocusReason;
    editor->setFocus(event->reason());
    if (!editor)
        return;
    QKeyEvent key(QEvent::KeyPress, back ? Qt::Key_Backtab : Qt::Key_Tab,
                  back ? Qt::ShiftModifier : Qt::NoModifier);
    QCoreApplication::sendEvent(editor, &key);
}

// Out of the editor, and not back into it.
bool EditorStage::focusNextPrevChild(bool next)
{
    setFocusPolicy(Qt::NoFocus);
    const bool moved = QWidget::focusNextPrevChild(next);
    setFocusPolicy(Qt::TabFocus);
    return moved;
}

#include "moc_EditorStage.cpp"
