// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QPalette;
class QStyle;
class QWidget;

/// Sets \a style, which the caller keeps, on \a widget and on every widget below it. Does nothing
/// for a null widget.
void initializeStyle(QWidget* widget, QStyle* style);

/// Hands disabled colours down the tree of \a widget: of the roles from WindowText to ToolTipBase,
/// each that the widget's own palette leaves unset in the disabled group is taken from
/// \a parentPalette. Children inherit from the merged palette.
void initializePalette(QWidget* widget, const QPalette& parentPalette);
