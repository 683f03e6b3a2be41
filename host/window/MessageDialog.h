// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QWidget;

/// Message boxes whose window may be closed and deleted while they are open; they are gone with it
/// then. Whoever shows one returns at once where the answer is false.
namespace MessageDialog {

/// Waits until \a text has been read. Whether \a parent is still there.
bool warn(QWidget* parent, const QString& title, const QString& text);
/// Whether the user answers \a question by \a action, the button's text, and \a parent is still
/// there. The other button, which Return and Escape press, cancels.
bool ask(QWidget* parent, const QString& title, const QString& question, const QString& action);

} // namespace MessageDialog
