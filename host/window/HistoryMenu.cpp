// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/HistoryMenu.h"

#include "host/model/EditHistory.h"
#include "host/window/LiveTexts.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>

namespace {

QString undoWords(const QString& step)
{
    return step.isEmpty() ? QCoreApplication::translate("HistoryMenu", "&Undo")
                          : QCoreApplication::translate("HistoryMenu", "&Undo %1").arg(step);
}

QString redoWords(const QString& step)
{
    return step.isEmpty() ? QCoreApplication::translate("HistoryMenu", "&Redo")
                          : QCoreApplication::translate("HistoryMenu", "&Redo %1").arg(step);
}

} // namespace

void addHistoryActions(QMenu* menu, EditHistory& history, LiveTexts& texts)
{
    QUndoStack* stack = &history.stack();
    QAction* undo = texts.action(menu, [stack] { return undoWords(stack->undoText()); });
    undo->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
    undo->setEnabled(stack->canUndo());
    QObject::connect(undo, &QAction::triggered, stack, &QUndoStack::undo);
    QObject::connect(stack, &QUndoStack::canUndoChanged, undo, &QAction::setEnabled);
    QObject::connect(stack, &QUndoStack::undoTextChanged, undo,
                     [undo](const QString& step) { undo->setText(undoWords(step)); });
    QAction* redo = texts.action(menu, [stack] { return redoWords(stack->redoText()); });
    redo->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
    redo->setEnabled(stack->canRedo());
    QObject::connect(redo, &QAction::triggered, stack, &QUndoStack::redo);
    QObject::connect(stack, &QUndoStack::canRedoChanged, redo, &QAction::setEnabled);
    QObject::connect(stack, &QUndoStack::redoTextChanged, redo,
                     [redo](const QString& step) { redo->setText(redoWords(step)); });
}
