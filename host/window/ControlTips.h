// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QObject>
#include <QPoint>
#include <QString>

class QAccessibleInterface;
class QWidget;

/// The tooltips of an editor's controls: what a control is called, what it is set to, and what
/// mouse, wheel and keys do with it. The first line stands in the window's status bar, too.
///
/// An editor brings no tooltips of its own, and its classes belong to the library: what is known of
/// a control is its accessible interface.
class ControlTips : public QObject
{
    Q_OBJECT

public:
    /// Answers for \a editor, which owns this and lies in \a stage.
    ControlTips(QWidget* stage, QWidget* editor);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* m_stage;
};
