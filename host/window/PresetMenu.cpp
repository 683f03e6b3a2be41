// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/PresetMenu.h"

#include "host/files/FactoryPresets.h"

#include <QCoreApplication>
#include <QMenu>

PresetMenu::PresetMenu(QMenu* menu, PresetFolder folder, LiveTexts& texts)
    : QObject(menu)
    , m_menu(menu)
    , m_folder(std::move(folder))
{
    fillFactory(texts);
    menu->addSeparator();
    QAction* save = texts.action(menu, [] { return tr("&Save as Preset..."); });
    connect(save, &QAction::triggered, this, &PresetMenu::saveWanted);
    m_deletion = texts.menu(menu, [] { return tr("&Delete"); });
    menu->addSeparator();
    fillUser();
    connect(menu, &QMenu::aboutToShow, this, &PresetMenu::fillUser);
}

void PresetMenu::fillFactory(LiveTexts& texts)
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
        connect(remove, &QAction::triggered, this, [this, name] { Q_EMIT deleteWanted(name); });
    }
    m_deletion->setEnabled(!m_users.isEmpty());
}

#include "moc_PresetMenu.cpp"
