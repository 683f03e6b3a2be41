// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/FileDrop.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace {

QString fileIn(const QDropEvent& event)
{
    const QList<QUrl> urls = event.mimeData()->urls();
    return urls.isEmpty() ? QString() : urls.constFirst().toLocalFile();
}

} // namespace

FileDrop::FileDrop(QWidget* window)
    : QObject(window)
{
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

bool FileDrop::eventFilter(QObject* window, QEvent* event)
{
    if (event->type() != QEvent::DragEnter && event->type() != QEvent::Drop)
        return QObject::eventFilter(window, event);
    auto* drop = static_cast<QDropEvent*>(event);
    const QString file = fileIn(*drop);
    if (file.isEmpty())
        return false;
    drop->setDropAction(Qt::CopyAction);
    drop->accept();
    if (event->type() == QEvent::Drop)
        Q_EMIT dropped(file);
    return true;
}

#include "moc_FileDrop.cpp"
