// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/files/PresetFolder.h"
#include "host/window/Retranslator.h"

#include <QObject>

class QMenu;

/// The menu of presets: those that come with the mixer, the user's own as they are found in the
/// folder whenever the menu opens, and what can be done with these. It asks the user for names and
/// whether to replace and delete; the presets are read and written by whoever listens.
class PresetMenu : public QObject
{
    Q_OBJECT

public:
    /// Fills \a menu, which becomes its parent. \a suggestion gives the name that a new preset is
    /// offered.
    PresetMenu(QMenu* menu, PresetFolder folder, Retranslator::Text suggestion,
               Retranslator& texts);

    const PresetFolder& folder() const { return m_folder; }

Q_SIGNALS:
    /// An index into factoryPresets().
    void factoryChosen(int index);
    void userChosen(const QString& name);
    /// The user gave the name, and agreed to replace the preset that has it.
    void saveWanted(const QString& name);
    /// The user agreed.
    void deleteWanted(const QString& name);

private:
    void fillFactory(Retranslator& texts);
    void fillUser();
    void askForName();
    QString typedName();
    void askToDelete(const QString& name);

    QMenu* m_menu;
    QMenu* m_deletion;
    PresetFolder m_folder;
    Retranslator::Text m_suggestion;
    QList<QAction*> m_users;
};
