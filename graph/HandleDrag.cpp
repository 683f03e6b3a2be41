// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/HandleDrag.h"

#include "equalizer/BandDesign.h"
#include "graph/GraphView.h"

#include <cmath>
#include <utility>

namespace {

/// A drag over the whole graph moves a quality by so many raw steps.
constexpr double QualitySteps = 181.0;

} // namespace

HandleDrag::DragMode HandleDrag::mode(Qt::KeyboardModifiers modifiers,
                                      const EqualizerBands& bands) const
{
    const int band = bandOf(m_target);
    if (!isRunning() || !bands[band].on)
        return DragModeNone;
    if (modifiers == Qt::ShiftModifier)
        return EqualizerBands::isMiddle(band) ? DragModeQuality : DragModeNone;
    if (modifiers == Qt::ControlModifier)
        return bands.hasGain(band) ? DragModeGain : DragModeNone;
    if (modifiers == Qt::AltModifier)
        return DragModeFrequency;
    return bands.hasGain(band) ? DragModeFrequencyGain : DragModeFrequency;
}

void HandleDrag::begin(EditTarget target, QPoint pointer, Qt::KeyboardModifiers modifiers,
                       const GraphView& view)
{
    m_target = target;
    m_offset = pointer - view.handle(bandOf(target));
    m_last = pointer;
    m_mode = mode(modifiers, view.bands());
}

std::vector<GraphBinding::Edit> HandleDrag::move(QPoint pointer, Qt::KeyboardModifiers modifiers,
                                                 const GraphView& view)
{
    const DragMode before = std::exchange(m_mode, mode(modifiers, view.bands()));
    if (m_mode != before) {
        m_offset = m_last - view.handle(bandOf(m_target));
        return {};
    }

    const QPointF handle = pointer - m_offset;
    const int up = std::exchange(m_last, pointer).y() - pointer.y();
    const int height = view.size().height();
    std::vector<GraphBinding::Edit> edits;
    if (m_mode == DragModeQuality && height != 0)
        edits.push_back({EqualizerField::Quality, std::round(up / (height / QualitySteps)), 0.0F});
    if (m_mode == DragModeFrequencyGain || m_mode == DragModeFrequency)
        edits.push_back({EqualizerField::Frequency, 0.0,
                         BandDesign::frequencyPosition(view.axes().frequency(handle.x()))});
    if (m_mode == DragModeFrequencyGain || m_mode == DragModeGain)
        edits.push_back(
            {EqualizerField::Gain, 0.0, BandDesign::gainPosition(view.axes().gain(handle.y()))});
    return edits;
}

bool HandleDrag::end() { return std::exchange(m_target, EditTargetNone) != EditTargetNone; }
