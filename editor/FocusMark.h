// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QWidget>

/// A thin frame around the control that the keyboard has reached. It lies above its siblings, takes
/// no mouse events, and is seen only while that control has the focus.
class FocusMark : public QWidget
{
    Q_OBJECT

public:
    explicit FocusMark(QWidget* parent);

    /// Frames \a target, a widget somewhere below the mark's parent; null frames nothing.
    void frame(QWidget* target);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void follow();

    QPointer<QWidget> m_target;
};
