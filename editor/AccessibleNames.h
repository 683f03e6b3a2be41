// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class Ui_ZoltaEditor;

/// Names every control of the form for assistive technology, in the language of the moment: "Middle
/// 2 frequency" for the knob and for the text field of that parameter alike. To be called again
/// when the language changes. Their numbers get the units in which they count.
void nameControls(const Ui_ZoltaEditor& form);
