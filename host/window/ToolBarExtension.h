// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QToolBar;
class Retranslator;

/// Gives the button for what has no room on a tool bar a sign that is seen on the bar's ground, and
/// a name. \a texts must live no longer than the bar.
void styleExtension(QToolBar& bar, Retranslator& texts);
