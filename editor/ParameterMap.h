// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/EqualizerParameters.h"

#include <QVarLengthArray>

#include <array>

class QWidget;
class Ui_ZoltaEditor;

namespace CommonController_MemAPI {
class AbstractController;
class KnobController;
class PushButtonController;
class TextEditController;
} // namespace CommonController_MemAPI

/// A parameter of the equalizer and what shows it: a knob that may have a text field, in an area of
/// their own, or a button.
struct ParameterRow
{
    EqualizerParameter parameter;
    CommonController_MemAPI::KnobController* Ui_ZoltaEditor::*knob;
    CommonController_MemAPI::TextEditController* Ui_ZoltaEditor::*text;
    CommonController_MemAPI::PushButtonController* Ui_ZoltaEditor::*button;
    QWidget* Ui_ZoltaEditor::*knobArea;
    /// The editor's slots for drag(bool) of the knob and of the text field; null for none.
    const char* knobDrag;
    const char* textDrag;

    QVarLengthArray<CommonController_MemAPI::AbstractController*, 2>
    controls(const Ui_ZoltaEditor& form) const;
    /// What is shown only if the host's model has the parameter.
    QWidget* area(const Ui_ZoltaEditor& form) const;
};

/// Every parameter of equalizerParameters, in the order in which they are bound.
extern const std::array<ParameterRow, parameterCount> ParameterMap;
