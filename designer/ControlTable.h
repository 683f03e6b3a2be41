// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSize>

#include <span>

struct QMetaObject;
class QWidget;

/// One control as Qt Designer offers it.
struct ControlEntry
{
    const QMetaObject* type;
    const char* header;     ///< what generated forms include
    const char* objectName; ///< of the first one on a form
    const char* title;      ///< in the widget box
    const char* toolTip;
    const char* icon; ///< a file of the plug-in's icons
    QSize size;       ///< of a new one; controls have no size of their own
    QWidget* (*make)(QWidget* parent);
    bool isContainer = false;
};

/// Every control and small widget of the library, in the widget box's order.
std::span<const ControlEntry> controlTable();
