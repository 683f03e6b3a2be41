// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QToolBar;
class Retranslator;

/// Makes the choices on a tool bar as high as the buttons there.
void fitChoices(QToolBar& bar);

/// Lets Tab reach the buttons that are on a tool bar, fits its choices, and gives the button for
/// what has no room a sign that is seen on the bar's ground, and a name. \a texts must live no
/// longer than the bar.
void completeToolBar(QToolBar& bar, Retranslator& texts);
