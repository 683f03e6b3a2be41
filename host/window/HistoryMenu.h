// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class EditHistory;
class LiveTexts;
class QMenu;

/// Adds to \a menu the actions that undo and redo the mixer's edits, which say what they do.
void addHistoryActions(QMenu* menu, EditHistory& history, LiveTexts& texts);
