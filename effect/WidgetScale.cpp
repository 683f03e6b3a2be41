// SPDX-License-Identifier: GPL-3.0-or-later
#include "effect/WidgetScale.h"

#include "controls/PullDownMenu.h"
#include "interfaces/IVaskEffectEditor2.h"

using CommonController_MemAPI::PullDownButtonControllerPrivate::Menu;

namespace {

/// By the name of the class, because an EffectEditor is made of a style that asks for its scale.
const IVaskEffectEditor2* effectEditor(const QWidget* widget)
{
    return widget->inherits("EffectEditor") ? static_cast<const IVaskEffectEditor2*>(widget)
                                            : nullptr;
}

} // namespace

double getWidgetScale(const QWidget* widget)
{
    while (widget) {
        if (const IVaskEffectEditor2* editor = effectEditor(widget))
            return editor->scale();
        const auto* menu = qobject_cast<const Menu*>(widget);
        widget = menu && menu->owner() ? menu->owner() : widget->parentWidget();
    }
    return 1.0;
}
