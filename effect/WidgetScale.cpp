// SPDX-License-Identifier: GPL-3.0-or-later
#include "effect/WidgetScale.h"

#include "controls/PullDownButtonController.h"
#include "effect/EffectEditor.h"

using CommonController_MemAPI::PullDownButtonControllerPrivate::Menu;

double getWidgetScale(const QWidget* widget)
{
    while (widget) {
        if (const auto* editor = qobject_cast<const EffectEditor*>(widget))
            return editor->scale();
        const auto* menu = qobject_cast<const Menu*>(widget);
        widget = menu && menu->owner() ? menu->owner() : widget->parentWidget();
    }
    return 1.0;
}
