// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

/// The mixer's dark look: graphite like the editor's panel, its lettering, its type face and its
/// blue.
///
/// It is a style and a palette, never an application-wide style sheet: those would reach into the
/// editors, which bring a style of their own.
void applyHostTheme();

/// Styles a tool bar, dock widget, table or list whose children are the mixer's own.
void applyHostSheet(QWidget* widget);
