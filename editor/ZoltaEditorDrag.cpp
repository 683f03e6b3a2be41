// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/ZoltaEditor.h"

#include "graph/ZoltaEqualizerGraph.h"

using enum DragFlags::Source;

void ZoltaEditor::lowTypeKnobDrag(bool drag) { setDrag(LowTypeKnob, drag); }

void ZoltaEditor::lowFrequencyKnobDrag(bool drag) { setDrag(LowFrequencyKnob, drag); }

void ZoltaEditor::lowFrequencyTextDrag(bool drag) { setDrag(LowFrequencyText, drag); }

void ZoltaEditor::lowGainKnobDrag(bool drag) { setDrag(LowGainKnob, drag); }

void ZoltaEditor::lowGainTextDrag(bool drag) { setDrag(LowFrequencyText, drag); }

void ZoltaEditor::middle1QualityKnobDrag(bool drag) { setDrag(Middle1QualityKnob, drag); }

void ZoltaEditor::middle1QualityTextDrag(bool drag) { setDrag(Middle1QualityText, drag); }

void ZoltaEditor::middle1FrequencyKnobDrag(bool drag) { setDrag(Middle1FrequencyKnob, drag); }

void ZoltaEditor::middle1FrequencyTextDrag(bool drag) { setDrag(Middle1FrequencyText, drag); }

void ZoltaEditor::middle1GainKnobDrag(bool drag) { setDrag(Middle1GainKnob, drag); }

void ZoltaEditor::middle1GainTextDrag(bool drag) { setDrag(Middle1FrequencyText, drag); }

void ZoltaEditor::middle2QualityKnobDrag(bool drag) { setDrag(Middle2QualityKnob, drag); }

void ZoltaEditor::middle2QualityTextDrag(bool drag) { setDrag(Middle2QualityText, drag); }

void ZoltaEditor::middle2FrequencyKnobDrag(bool drag) { setDrag(Middle2FrequencyKnob, drag); }

void ZoltaEditor::middle2FrequencyTextDrag(bool drag) { setDrag(Middle2FrequencyText, drag); }

void ZoltaEditor::middle2GainKnobDrag(bool drag) { setDrag(Middle2GainKnob, drag); }

void ZoltaEditor::middle2GainTextDrag(bool drag) { setDrag(Middle2FrequencyText, drag); }

void ZoltaEditor::middle3QualityKnobDrag(bool drag) { setDrag(Middle3QualityKnob, drag); }

void ZoltaEditor::middle3QualityTextDrag(bool drag) { setDrag(Middle3QualityText, drag); }

void ZoltaEditor::middle3FrequencyKnobDrag(bool drag) { setDrag(Middle3FrequencyKnob, drag); }

void ZoltaEditor::middle3FrequencyTextDrag(bool drag) { setDrag(Middle3FrequencyText, drag); }

void ZoltaEditor::middle3GainKnobDrag(bool drag) { setDrag(Middle3GainKnob, drag); }

void ZoltaEditor::middle3GainTextDrag(bool drag) { setDrag(Middle3FrequencyText, drag); }

void ZoltaEditor::middle4QualityKnobDrag(bool drag) { setDrag(Middle4QualityKnob, drag); }

void ZoltaEditor::middle4QualityTextDrag(bool drag) { setDrag(Middle4QualityText, drag); }

void ZoltaEditor::middle4FrequencyKnobDrag(bool drag) { setDrag(Middle4FrequencyKnob, drag); }

void ZoltaEditor::middle4FrequencyTextDrag(bool drag) { setDrag(Middle4FrequencyText, drag); }

void ZoltaEditor::middle4GainKnobDrag(bool drag) { setDrag(Middle4GainKnob, drag); }

void ZoltaEditor::middle4GainTextDrag(bool drag) { setDrag(Middle4FrequencyText, drag); }

void ZoltaEditor::highTypeKnobDrag(bool drag) { setDrag(HighTypeKnob, drag); }

void ZoltaEditor::highFrequencyKnobDrag(bool drag) { setDrag(HighFrequencyKnob, drag); }

void ZoltaEditor::highFrequencyTextDrag(bool drag) { setDrag(HighFrequencyText, drag); }

void ZoltaEditor::highGainKnobDrag(bool drag) { setDrag(HighGainKnob, drag); }

void ZoltaEditor::highGainTextDrag(bool drag) { setDrag(HighFrequencyText, drag); }

void ZoltaEditor::setDrag(DragFlags::Source source, bool drag)
{
    m_dragFlags.set(source, drag);
    updateEditTarget();
}

void ZoltaEditor::updateEditTarget() { m_graph->setEditTarget(m_dragFlags.target()); }
