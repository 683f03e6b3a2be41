// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/ToolBarExtension.h"

#include "host/window/Retranslator.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>

namespace {

const QString extension = QStringLiteral("qt_toolbar_ext_button");

} // namespace

void fitChoices(QToolBar& bar)
{
    int height = 0;
    for (const QToolButton* button : bar.findChildren<QToolButton*>()) {
        if (button->objectName() != extension && !button->text().isEmpty())
            height = std::max(height, button->sizeHint().height());
    }
    if (height == 0)
        return;
    for (QComboBox* choice : bar.findChildren<QComboBox*>())
        choice->setFixedHeight(height);
}

void completeToolBar(QToolBar& bar, Retranslator& texts)
{
    for (QToolButton* button : bar.findChildren<QToolButton*>())
        button->setFocusPolicy(Qt::TabFocus);
    fitChoices(bar);
    auto* key = bar.findChild<QToolButton*>(extension);
    if (!key)
        return;
    key->setText(QStringLiteral("\u00bb"));
    key->setToolButtonStyle(Qt::ToolButtonTextOnly);
    texts.add([key] {
        key->setToolTip(QCoreApplication::translate("ToolBarExtension", "More"));
        key->setAccessibleName(key->toolTip());
    });
}
