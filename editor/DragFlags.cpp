// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/DragFlags.h"

#include <algorithm>

namespace {

struct BandSources
{
    ZoltaEqualizerGraph::EditTarget target;
    DragFlags::Source first;
    DragFlags::Source last;
};

constexpr std::array<BandSources, 6> Bands = {{
    {ZoltaEqualizerGraph::EditTargetLow, DragFlags::LowTypeKnob, DragFlags::LowGainText},
    {ZoltaEqualizerGraph::EditTargetMiddle1, DragFlags::Middle1QualityKnob,
     DragFlags::Middle1GainText},
    {ZoltaEqualizerGraph::EditTargetMiddle2, DragFlags::Middle2QualityKnob,
     DragFlags::Middle2GainText},
    {ZoltaEqualizerGraph::EditTargetMiddle3, DragFlags::Middle3QualityKnob,
     DragFlags::Middle3GainText},
    {ZoltaEqualizerGraph::EditTargetMiddle4, DragFlags::Middle4QualityKnob,
     DragFlags::Middle4GainText},
    {ZoltaEqualizerGraph::EditTargetHigh, DragFlags::HighTypeKnob, DragFlags::HighGainText},
}};

} // namespace

ZoltaEqualizerGraph::EditTarget DragFlags::target() const
{
    for (const BandSources& band : Bands) {
        const auto* first = m_flags.data() + band.first;
        const auto* end = m_flags.data() + band.last + 1;
        if (std::find(first, end, true) != end)
            return band.target;
    }
    return ZoltaEqualizerGraph::EditTargetNone;
}
