// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/files/PresetFolder.h"
#include "host/window/LiveTexts.h"

#include <QObject>

class QMenu;

/// The menu of presets: those that come with the mixer, the user's own as they are found in the
/// folder whenever the menu opens, and what can be done with these.
class PresetMenu : public QObject
{
    Q_OBJECT

public:
    /// Fills \a menu, which becomes its parent.
    PresetMenu(QMenu* menu, PresetFolder folder, LiveTexts& texts);

    const PresetFolder& folder() const { return m_folder; }

Q_SIGNALS:
    /// An index into factoryPresets().
    void factoryChosen(int index);
    void userChosen(const QString& name);
    void saveWanted();
    void deleteWanted(const QString& name);

private:
    void fillFactory(LiveTexts& texts);
    void fillUser();

    QMenu* m_menu;
    QMenu* m_deletion;
    PresetFolder m_folder;
    QList<QAction*> m_users;
};
