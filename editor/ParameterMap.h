// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

/// A parameter of the host and what shows it: a knob that may have a text field, in an area of
/// their own, or a button.
struct ParameterRow
{
    int number; ///< as in parameterName()
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

/// Every parameter, in the order in which they are bound.
extern const std::array<ParameterRow, 27> ParameterMap;

constexpr int DriveParameter = 27;

/// "fx_rackfx_prm_1" for 1, and so on to 27.
const char* parameterName(int number);
