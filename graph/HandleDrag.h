// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/EditTarget.h"
#include "graph/GraphBinding.h"

#include <QPoint>
#include <QPointF>

#include <vector>

class GraphView;

/// A drag of one band's handle: which band, what the modifiers let it change, and where the handle
/// goes as the pointer moves. Its owner writes what it moves.
class HandleDrag
{
public:
    enum DragMode {
        DragModeNone,
        DragModeQuality,
        DragModeFrequency,
        DragModeGain,
        DragModeFrequencyGain
    };

    bool isRunning() const { return isBand(m_target); }
    /// The band that is grabbed.
    EditTarget target() const { return m_target; }
    /// What \a modifiers let the drag change; DragModeNone unless a band is grabbed that is on.
    DragMode mode(Qt::KeyboardModifiers modifiers, const EqualizerBands& bands) const;

    /// Grabs the handle of \a target.
    void begin(EditTarget target, QPoint pointer, Qt::KeyboardModifiers modifiers,
               const GraphView& view);
    /// What a move of the pointer changes, in the order of writing. A move with other modifiers
    /// than the one before changes nothing: it anchors the handle anew, where it now stands.
    std::vector<GraphBinding::Edit> move(QPoint pointer, Qt::KeyboardModifiers modifiers,
                                         const GraphView& view);
    /// False if no drag is running.
    bool end();

private:
    EditTarget m_target = EditTargetNone;
    DragMode m_mode = DragModeNone;
    QPointF m_offset; ///< from the handle to the pointer
    QPoint m_last;
};
