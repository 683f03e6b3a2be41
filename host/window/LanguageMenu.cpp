// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/LanguageMenu.h"

#include "host/window/Language.h"
#include "host/window/Retranslator.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QMenu>

void addLanguageMenu(QMenu* parent, LanguageSwitch& choice, Retranslator& texts)
{
    QMenu* menu =
        texts.menu(parent, [] { return QCoreApplication::translate("LanguageMenu", "&Language"); });
    auto* group = new QActionGroup(menu);
    for (const Language language : languages) {
        QAction* action = menu->addAction(nameOf(language));
        action->setCheckable(true);
        group->addAction(action);
        texts.add(
            [action, language, &choice] { action->setChecked(choice.current() == language); });
        QObject::connect(action, &QAction::triggered, menu,
                         [language, &choice] { choice.choose(language); });
    }
}
