// SPDX-License-Identifier: GPL-3.0-or-later
#include "effect/EditorSetup.h"

#include "effect/WidgetTree.h"

#include <QPalette>

void initializeStyle(QWidget* widget, QStyle* style)
{
    if (!widget)
        return;
    widget->setStyle(style);
    forEachChildWidget(widget, [=](QWidget* child) { initializeStyle(child, style); });
}

void initializePalette(QWidget* widget, const QPalette& parentPalette)
{
    QPalette merged = widget->palette();
    for (int index = QPalette::WindowText; index <= QPalette::ToolTipBase; ++index) {
        const auto role = static_cast<QPalette::ColorRole>(index);
        if (!merged.isBrushSet(QPalette::Disabled, role))
            merged.setBrush(QPalette::Disabled, role,
                            parentPalette.brush(QPalette::Disabled, role));
    }
    forEachChildWidget(widget, [&](QWidget* child) { initializePalette(child, merged); });
    widget->setPalette(merged);
}
