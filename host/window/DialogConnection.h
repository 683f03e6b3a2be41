// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Qt>

/// How to connect a slot that may open a dialog to a menu's action or a button: it is called from
/// the event loop. The dialog's own loop may delete the window, and Qt's menus and tool buttons
/// would use what is left of themselves after a direct call.
constexpr Qt::ConnectionType opensDialog = Qt::QueuedConnection;
