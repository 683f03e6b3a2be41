// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QLabel;

/// Moves the letters of \a label closer together where they are wider than the label, at every
/// zoom; the type face that is installed may be wider than the one that the label was made for.
void fitLetters(QLabel* label);
