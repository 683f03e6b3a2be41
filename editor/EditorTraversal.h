// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "graph/ZoltaEqualizerGraph.h"

#include <vector>

class FocusMark;
class Ui_ZoltaEditor;

/// Where Tab goes in the editor: the buttons of the whole, then band by band the knobs with their
/// text fields, the switch and the handle in the curve. The controls' own focus policies leave Tab
/// out; what is hidden or disabled is skipped.
class EditorTraversal
{
public:
    /// None of the three is owned; all must outlive the object.
    EditorTraversal(const Ui_ZoltaEditor& form, ZoltaEqualizerGraph& graph, FocusMark& mark);

    /// Moves the focus one stop on or back. Without a stop that has it, the first or the last takes
    /// it. False at the end, where the focus stays.
    bool move(bool next);

private:
    struct Stop
    {
        QWidget* widget;
        ZoltaEqualizerGraph::EditTarget handle;
    };

    bool hasFocus(const Stop& stop) const;
    bool enter(const Stop& stop);

    ZoltaEqualizerGraph& m_graph;
    FocusMark& m_mark;
    std::vector<Stop> m_stops;
};
