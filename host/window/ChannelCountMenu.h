// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class MixerModel;
class QMenu;
class Retranslator;

/// Adds a menu to \a parent in which the number of the mixer's channels is chosen. \a mixerModel
/// and \a texts must outlive the menu.
void addChannelCountMenu(QMenu* parent, MixerModel& mixerModel, Retranslator& texts);
