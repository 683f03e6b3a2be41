// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

class QWidget;

/// Lets a window take files that are dropped on it.
class FileDrop : public QObject
{
    Q_OBJECT

public:
    /// Belongs to \a window.
    explicit FileDrop(QWidget* window);

Q_SIGNALS:
    /// The first of them.
    void dropped(const QString& file);

protected:
    bool eventFilter(QObject* window, QEvent* event) override;
};
