// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/PlayKey.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenu>

PlayKey::PlayKey(QMenu* menu)
    : QObject(menu)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool PlayKey::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<const QFocusEvent*>(event)->reason();
        m_byTab = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
    }
    if (event->type() != QEvent::ShortcutOverride || !m_byTab)
        return false;
    const auto* key = static_cast<const QKeyEvent*>(event);
    const bool pressesButton = key->key() == Qt::Key_Space && key->modifiers() == Qt::NoModifier &&
                               qobject_cast<QAbstractButton*>(watched);
    if (pressesButton)
        event->accept();
    return pressesButton;
}

#include "moc_PlayKey.cpp"
