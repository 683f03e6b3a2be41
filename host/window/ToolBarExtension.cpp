// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/ToolBarExtension.h"

#include "host/window/Retranslator.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QToolBar>
#include <QToolButton>

void completeToolBar(QToolBar& bar, Retranslator& texts)
{
    for (QToolButton* button : bar.findChildren<QToolButton*>())
        button->setFocusPolicy(Qt::TabFocus);
    for (QComboBox* choice : bar.findChildren<QComboBox*>()) // as high as the buttons
        choice->setSizePolicy(choice->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    auto* key = bar.findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"));
    if (!key)
        return;
    key->setText(QStringLiteral("\u00bb"));
    key->setToolButtonStyle(Qt::ToolButtonTextOnly);
    texts.add([key] {
        key->setToolTip(QCoreApplication::translate("ToolBarExtension", "More"));
        key->setAccessibleName(key->toolTip());
    });
}
