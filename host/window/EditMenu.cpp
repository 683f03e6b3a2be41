// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/EditMenu.h"

#include "host/model/MixerModel.h"
#include "hosting/HostMemory.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

EditMenu::EditMenu(QMenu* menu, MixerModel& mixerModel, std::function<int()> channel,
                   const Texts& texts, Retranslator& retranslator)
    : QObject(menu)
    , m_mixerModel(mixerModel)
    , m_channel(std::move(channel))
{
    addHistory(menu, retranslator);
    menu->addSeparator();
    retranslator.action(menu, texts.copy, QKeySequence::Copy, this,
                        [this] { m_mixerModel.copyToClipboard(m_channel()); });
    QAction* pasting =
        retranslator.action(menu, texts.paste, QKeySequence::Paste, this, [this] { paste(); });
    const auto follow = [this, pasting] { pasting->setEnabled(m_mixerModel.canPaste()); };
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, pasting, follow);
    follow();
    retranslator.action(menu, texts.reset, QKeySequence(), this, [this] { reset(); });
}

void EditMenu::addHistory(QMenu* menu, Retranslator& retranslator)
{
    const EditHistory& history = m_mixerModel.history();
    QUndoStack* stack = &m_mixerModel.history().stack();
    QAction* undo = retranslator.action(
        menu, [stack] { return undoText(stack->undoText()); }, QKeySequence(Qt::CTRL | Qt::Key_Z),
        stack,
        [&history, stack] {
            if (!history.isInStep())
                stack->undo();
        });
    undo->setEnabled(stack->canUndo());
    connect(stack, &QUndoStack::canUndoChanged, undo, &QAction::setEnabled);
    connect(stack, &QUndoStack::undoTextChanged, undo,
            [undo](const QString& step) { undo->setText(undoText(step)); });
    QAction* redo = retranslator.action(
        menu, [stack] { return redoText(stack->redoText()); },
        QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), stack,
        [&history, stack] {
            if (!history.isInStep())
                stack->redo();
        });
    redo->setEnabled(stack->canRedo());
    connect(stack, &QUndoStack::canRedoChanged, redo, &QAction::setEnabled);
    connect(stack, &QUndoStack::redoTextChanged, redo,
            [redo](const QString& step) { redo->setText(redoText(step)); });
}

QString EditMenu::undoText(const QString& step)
{
    return step.isEmpty() ? tr("&Undo") : tr("&Undo %1").arg(step);
}

QString EditMenu::redoText(const QString& step)
{
    return step.isEmpty() ? tr("&Redo") : tr("&Redo %1").arg(step);
}

void EditMenu::paste()
{
    const Status pasted = m_mixerModel.pasteFromClipboard(m_channel());
    Q_EMIT finished(pasted.isOk() ? tr("Pasted.") : pasted.error());
}

void EditMenu::reset()
{
    const EditHistory::Step step(m_mixerModel.history(), tr("Reset"));
    m_mixerModel.memory().reset(m_channel());
    Q_EMIT finished(tr("Every parameter is at its default."));
}

#include "moc_EditMenu.cpp"
