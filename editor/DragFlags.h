// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/ZoltaEqualizerGraph.h"

#include <array>

/// Which controls of the bands are being dragged, and which band the graph highlights for it.
class DragFlags
{
public:
    /// The controls, band by band; the order within a band does not matter.
    enum Source {
        LowTypeKnob,
        LowFrequencyKnob,
        LowFrequencyText,
        LowGainKnob,
        LowGainText,
        Middle1QualityKnob,
        Middle1QualityText,
        Middle1FrequencyKnob,
        Middle1FrequencyText,
        Middle1GainKnob,
        Middle1GainText,
        Middle2QualityKnob,
        Middle2QualityText,
        Middle2FrequencyKnob,
        Middle2FrequencyText,
        Middle2GainKnob,
        Middle2GainText,
        Middle3QualityKnob,
        Middle3QualityText,
        Middle3FrequencyKnob,
        Middle3FrequencyText,
        Middle3GainKnob,
        Middle3GainText,
        Middle4QualityKnob,
        Middle4QualityText,
        Middle4FrequencyKnob,
        Middle4FrequencyText,
        Middle4GainKnob,
        Middle4GainText,
        HighTypeKnob,
        HighFrequencyKnob,
        HighFrequencyText,
        HighGainKnob,
        HighGainText,
        SourceCount
    };

    void set(Source source, bool drag) { m_flags[source] = drag; }
    /// The lowest band with a control that is being dragged.
    ZoltaEqualizerGraph::EditTarget target() const;

private:
    std::array<bool, SourceCount> m_flags = {};
};
