// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/model/ChannelPresets.h"
#include "host/window/Retranslator.h"

#include <QObject>

class EditorPresets;
class QMenu;
class QWidget;

/// The menu of presets: those that come with the mixer, the user's own as they are found in the
/// folder whenever the menu opens, and what can be done with them. It asks the user for names and
/// whether to replace and delete.
class PresetMenu : public QObject
{
    Q_OBJECT

public:
    /// Fills \a menu, which becomes its parent. \a suggestion gives the name that a new preset is
    /// offered.
    PresetMenu(QMenu* menu, EditorPresets& presets, Retranslator::Text suggestion,
               Retranslator& texts);

    /// Saves the user's own preset again, or asks for the name of a new one.
    void save();

private:
    void fillFactory(Retranslator& texts);
    void fillActions(Retranslator& texts);
    void fillUser();
    QAction* addChoice(QMenu* menu, const PresetName& preset);
    void follow();
    void saveAs();
    void rename();
    void askToDelete(const QString& name);
    void showFolder();
    bool mayTake(const QString& name, const QString& title);
    QString typedName(const QString& title, const QString& suggestion);
    QWidget* window() const;

    QMenu* m_menu;
    QMenu* m_deletion = nullptr;
    QAction* m_save = nullptr;
    QAction* m_rename = nullptr;
    EditorPresets& m_presets;
    Retranslator::Text m_suggestion;
    QList<QAction*> m_factory; // in their order
    QList<QAction*> m_users;
};
