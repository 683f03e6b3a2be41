// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/EditorTraversal.h"

#include "editor/FocusMark.h"
#include "editor/ParameterMap.h"

#include "ui_ZoltaEditor.h"

#include <QPointer>

#include <algorithm>

namespace {

using Target = ZoltaEqualizerGraph::EditTarget;

/// The handle of a band, counted as in EqualizerParameter.
constexpr Target handleOf(int band) { return static_cast<Target>(Target::EditTargetLow + band); }

} // namespace

EditorTraversal::EditorTraversal(const Ui_ZoltaEditor& form, ZoltaEqualizerGraph& graph,
                                 FocusMark& mark)
    : m_graph(graph)
    , m_mark(mark)
{
    const auto add = [this](QWidget* widget, Target handle = Target::EditTargetNone) {
        m_stops.push_back({widget, handle});
    };
    add(form.m_pZoomPlusButton);
    add(form.m_pZoomMinusButton);
    add(form.m_pAboutButton);
    for (const ParameterRow& row : ParameterMap) {
        if (row.knob)
            add(form.*row.knob);
        if (row.text)
            add(form.*row.text);
        if (row.button)
            add(form.*row.button);
        if (row.parameter.field == EqualizerField::OutputLevel)
            add(form.m_pFlatButton);
        if (row.parameter.field == EqualizerField::On)
            add(&graph, handleOf(row.parameter.band));
    }
}

bool EditorTraversal::move(bool next)
{
    const auto step = [&](auto begin, auto end) {
        const auto current =
            std::find_if(begin, end, [this](const Stop& stop) { return hasFocus(stop); });
        return std::any_of(current == end ? begin : std::next(current), end,
                           [this](const Stop& stop) { return enter(stop); });
    };
    return next ? step(m_stops.begin(), m_stops.end()) : step(m_stops.rbegin(), m_stops.rend());
}

bool EditorTraversal::hasFocus(const Stop& stop) const
{
    if (stop.handle != Target::EditTargetNone)
        return stop.widget->hasFocus() && m_graph.focusedHandle() == stop.handle;
    // A text field's inline editor has the focus for it.
    const QWidget* focus = stop.widget->window()->focusWidget();
    return focus && (focus == stop.widget || stop.widget->isAncestorOf(focus));
}

bool EditorTraversal::enter(const Stop& stop)
{
    if (!stop.widget->isVisible() || !stop.widget->isEnabled())
        return false;
    // A text field that loses the focus ends its edit, which may delete the editor.
    const QPointer<FocusMark> mark = &m_mark;
    if (stop.handle != Target::EditTargetNone) {
        if (!m_graph.focusHandle(stop.handle))
            return false;
        if (mark)
            mark->frame(nullptr);
        return true;
    }
    QWidget* widget = stop.widget;
    widget->setFocus(Qt::TabFocusReason);
    if (mark)
        mark->frame(widget);
    return true;
}
