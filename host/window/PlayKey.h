// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QMenu;

/// Leaves the Space key, which plays and stops, to a button that the Tab key led to: there it
/// presses the button. Fields that take text keep it by themselves.
class PlayKey : public QObject
{
    Q_OBJECT

public:
    /// Belongs to \a menu and watches the application's events.
    explicit PlayKey(QMenu* menu);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool m_byTab = false;
};
