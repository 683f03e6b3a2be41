// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class MixerModel;
class QMenu;
class Retranslator;

/// Fills a window's menu that drives the transport: play and stop, back to the start, loop. Both
/// must live as long as \a menu.
void fillTransportMenu(QMenu* menu, MixerModel& mixerModel, Retranslator& texts);
