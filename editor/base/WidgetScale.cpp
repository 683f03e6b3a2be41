// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/base/WidgetScale.h"

#include "editor/base/EffectEditor.h"

double getWidgetScale(const QWidget* widget)
{
    for (; widget; widget = widget->parentWidget()) {
        if (const auto* editor = qobject_cast<const EffectEditor*>(widget))
            return editor->scale();
    }
    return 1.0;
}
