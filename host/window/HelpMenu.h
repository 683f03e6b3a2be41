// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QMenu;
class Retranslator;

/// Fills a window's help menu: a short guide, the keys and mouse gestures, and what this program
/// is. \a texts must live as long as \a menu.
void fillHelpMenu(QMenu* menu, Retranslator& texts);
