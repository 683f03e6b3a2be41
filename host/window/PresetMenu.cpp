// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/PresetMenu.h"

#include "host/window/MessageDialog.h"
#include "parameters/FactoryPresets.h"

#include <QCoreApplication>
#include <QInputDialog>
#include <QMenu>

PresetMenu::PresetMenu(QMenu* menu, PresetFolder folder, Retranslator::Text suggestion,
                       Retranslator& texts)
    : QObject(menu)
    , m_menu(menu)
    , m_folder(std::move(folder))
    , m_suggestion(std::move(suggestion))
{
    fillFactory(texts);
    menu->addSeparator();
    QAction* save = texts.action(menu, [] { return tr("&Save as Preset..."); });
    connect(save, &QAction::triggered, this, &PresetMenu::askForName);
    m_deletion = texts.menu(menu, [] { return tr("&Delete"); });
    menu->addSeparator();
    fillUser();
    connect(menu, &QMenu::aboutToShow, this, &PresetMenu::fillUser);
}

void PresetMenu::fillFactory(Retranslator& texts)
{
    QMenu* factory = texts.menu(m_menu, [] { return tr("&Factory"); });
    factory->setToolTipsVisible(true);
    int index = 0;
    for (const FactoryPreset& preset : factoryPresets()) {
        QAction* action = texts.action(factory, [&preset] {
            return QCoreApplication::translate("FactoryPreset", preset.name);
        });
        texts.add([action, &preset] {
            action->setToolTip(QCoreApplication::translate("FactoryPreset", preset.hint));
        });
        connect(action, &QAction::triggered, this, [this, index] { Q_EMIT factoryChosen(index); });
        ++index;
    }
}

void PresetMenu::fillUser()
{
    qDeleteAll(m_users);
    m_users.clear();
    m_deletion->clear();
    for (const QString& name : m_folder.names()) {
        QString shown = name; // where an ampersand would mark a letter
        shown.replace(QLatin1Char('&'), QLatin1String("&&"));
        QAction* choose = m_menu->addAction(shown);
        connect(choose, &QAction::triggered, this, [this, name] { Q_EMIT userChosen(name); });
        m_users << choose;
        QAction* remove = m_deletion->addAction(shown);
        connect(remove, &QAction::triggered, this, [this, name] { askToDelete(name); });
    }
    m_deletion->setEnabled(!m_users.isEmpty());
}

void PresetMenu::askForName()
{
    const QString name = typedName();
    if (name.isEmpty())
        return;
    if (!m_folder.contains(name) ||
        MessageDialog::ask(m_menu->parentWidget(), tr("Save as Preset"),
                           tr("A preset named %1 already exists. Replace it?").arg(name)))
        Q_EMIT saveWanted(name);
}

// Asks until the name is a good one; empty if the user gives up.
QString PresetMenu::typedName()
{
    QString typed = m_suggestion();
    for (;;) {
        bool accepted = false;
        typed =
            QInputDialog::getText(m_menu->parentWidget(), tr("Save as Preset"),
                                  tr("Name of the preset"), QLineEdit::Normal, typed, &accepted);
        if (!accepted)
            return QString();
        const QString error = PresetFolder::checkName(typed.simplified()).error();
        if (error.isEmpty())
            return typed.simplified();
        if (!MessageDialog::warn(m_menu->parentWidget(), tr("Save as Preset"), error))
            return QString();
    }
}

void PresetMenu::askToDelete(const QString& name)
{
    if (MessageDialog::ask(m_menu->parentWidget(), tr("Delete Preset"),
                           tr("Delete the preset %1?").arg(name)))
        Q_EMIT deleteWanted(name);
}

#include "moc_PresetMenu.cpp"
