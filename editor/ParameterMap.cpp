// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/ParameterMap.h"

#include "ui_ZoltaEditor.h"

using namespace CommonController_MemAPI;

namespace {

using Form = Ui_ZoltaEditor;

constexpr ParameterRow knobRow(int number, KnobController* Form::*knob,
                               TextEditController* Form::*text, QWidget* Form::*area,
                               const char* knobDrag, const char* textDrag)
{
    return {equalizerParameter(number), knob, text, nullptr, area, knobDrag, textDrag};
}

constexpr ParameterRow buttonRow(int number, PushButtonController* Form::*button)
{
    return {equalizerParameter(number), nullptr, nullptr, button, nullptr, nullptr, nullptr};
}

} // namespace

constexpr std::array<ParameterRow, parameterCount> ParameterMap = {{
    buttonRow(27, &Form::m_pDriveCleanSwitch),
    knobRow(25, &Form::m_pInputKnob, &Form::m_pInputTextEdit, &Form::m_pInputArea, nullptr,
            nullptr),
    knobRow(26, &Form::m_pOutputKnob, &Form::m_pOutputTextEdit, &Form::m_pOutputArea, nullptr,
            nullptr),
    knobRow(1, &Form::m_pLowTypeKnob, nullptr, &Form::m_pLowTypeArea, "lowTypeKnobDrag(bool)",
            nullptr),
    knobRow(2, &Form::m_pLowFrequencyKnob, &Form::m_pLowFrequencyTextEdit,
            &Form::m_pLowFrequencyArea, "lowFrequencyKnobDrag(bool)", "lowFrequencyTextDrag(bool)"),
    knobRow(3, &Form::m_pLowGainKnob, &Form::m_pLowGainTextEdit, &Form::m_pLowGainArea,
            "lowGainKnobDrag(bool)", "lowGainTextDrag(bool)"),
    buttonRow(4, &Form::m_pLowButton),
    knobRow(5, &Form::m_pMiddle1QualityKnob, &Form::m_pMiddle1QualityTextEdit,
            &Form::m_pMiddle1QualityArea, "middle1QualityKnobDrag(bool)",
            "middle1QualityTextDrag(bool)"),
    knobRow(6, &Form::m_pMiddle1FrequencyKnob, &Form::m_pMiddle1FrequencyTextEdit,
            &Form::m_pMiddle1FrequencyArea, "middle1FrequencyKnobDrag(bool)",
            "middle1FrequencyTextDrag(bool)"),
    knobRow(7, &Form::m_pMiddle1GainKnob, &Form::m_pMiddle1GainTextEdit, &Form::m_pMiddle1GainArea,
            "middle1GainKnobDrag(bool)", "middle1GainTextDrag(bool)"),
    buttonRow(8, &Form::m_pMiddle1Button),
    knobRow(9, &Form::m_pMiddle2QualityKnob, &Form::m_pMiddle2QualityTextEdit,
            &Form::m_pMiddle2QualityArea, "middle2QualityKnobDrag(bool)",
            "middle2QualityTextDrag(bool)"),
    knobRow(10, &Form::m_pMiddle2FrequencyKnob, &Form::m_pMiddle2FrequencyTextEdit,
            &Form::m_pMiddle2FrequencyArea, "middle2FrequencyKnobDrag(bool)",
            "middle2FrequencyTextDrag(bool)"),
    knobRow(11, &Form::m_pMiddle2GainKnob, &Form::m_pMiddle2GainTextEdit, &Form::m_pMiddle2GainArea,
            "middle2GainKnobDrag(bool)", "middle2GainTextDrag(bool)"),
    buttonRow(12, &Form::m_pMiddle2Button),
    knobRow(13, &Form::m_pMiddle3QualityKnob, &Form::m_pMiddle3QualityTextEdit,
            &Form::m_pMiddle3QualityArea, "middle3QualityKnobDrag(bool)",
            "middle3QualityTextDrag(bool)"),
    knobRow(14, &Form::m_pMiddle3FrequencyKnob, &Form::m_pMiddle3FrequencyTextEdit,
            &Form::m_pMiddle3FrequencyArea, "middle3FrequencyKnobDrag(bool)",
            "middle3FrequencyTextDrag(bool)"),
    knobRow(15, &Form::m_pMiddle3GainKnob, &Form::m_pMiddle3GainTextEdit, &Form::m_pMiddle3GainArea,
            "middle3GainKnobDrag(bool)", "middle3GainTextDrag(bool)"),
    buttonRow(16, &Form::m_pMiddle3Button),
    knobRow(17, &Form::m_pMiddle4QualityKnob, &Form::m_pMiddle4QualityTextEdit,
            &Form::m_pMiddle4QualityArea, "middle4QualityKnobDrag(bool)",
            "middle4QualityTextDrag(bool)"),
    knobRow(18, &Form::m_pMiddle4FrequencyKnob, &Form::m_pMiddle4FrequencyTextEdit,
            &Form::m_pMiddle4FrequencyArea, "middle4FrequencyKnobDrag(bool)",
            "middle4FrequencyTextDrag(bool)"),
    // The text field highlights middle 1, deliberately.
    knobRow(19, &Form::m_pMiddle4GainKnob, &Form::m_pMiddle4GainTextEdit, &Form::m_pMiddle4GainArea,
            "middle4GainKnobDrag(bool)", "middle1GainTextDrag(bool)"),
    buttonRow(20, &Form::m_pMiddle4Button),
    knobRow(21, &Form::m_pHighTypeKnob, nullptr, &Form::m_pHighTypeArea, "highTypeKnobDrag(bool)",
            nullptr),
    knobRow(22, &Form::m_pHighFrequencyKnob, &Form::m_pHighFrequencyTextEdit,
            &Form::m_pHighFrequencyArea, "highFrequencyKnobDrag(bool)",
            "highFrequencyTextDrag(bool)"),
    knobRow(23, &Form::m_pHighGainKnob, &Form::m_pHighGainTextEdit, &Form::m_pHighGainArea,
            "highGainKnobDrag(bool)", "highGainTextDrag(bool)"),
    buttonRow(24, &Form::m_pHighButton),
}};

QVarLengthArray<AbstractController*, 2> ParameterRow::controls(const Form& form) const
{
    QVarLengthArray<AbstractController*, 2> list;
    if (knob)
        list.append(form.*knob);
    if (text)
        list.append(form.*text);
    if (button)
        list.append(form.*button);
    return list;
}

QWidget* ParameterRow::area(const Form& form) const
{
    return button ? form.*button : form.*knobArea;
}
