// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class LanguageSwitch;
class Retranslator;
class QMenu;

/// Adds a menu to \a parent in which the language is chosen, each under its own name. \a choice and
/// \a texts must outlive the menu.
void addLanguageMenu(QMenu* parent, LanguageSwitch& choice, Retranslator& texts);
