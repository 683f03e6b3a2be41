// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

/// Calls \a function for each child of \a widget that is a widget, in child order. The list of
/// children is the one at the call; \a function must not delete any of them.
template <typename Function> void forEachChildWidget(const QWidget* widget, Function function)
{
    const QObjectList children = widget->children();
    for (QObject* child : children) {
        if (child->isWidgetType())
            function(static_cast<QWidget*>(child));
    }
}
