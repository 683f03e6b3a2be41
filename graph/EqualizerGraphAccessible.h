// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/EqualizerBands.h"

#include <QAccessibleWidget>

#include <array>

class HandleModel;

/// The equalizer graph as assistive technology sees it: a group, "Equalizer curve", whose children
/// are the handles of all bands in their order. A band that is off keeps its place, as an invisible
/// and disabled child.
///
/// A handle is a slider. Its text is HandleText::value(), its number HandleText::number(). It can
/// be increased and decreased by one raw step, set, and focused. Changes go to the host, and only
/// while the graph is enabled and the band on.
class EqualizerGraphAccessible : public QAccessibleWidget
{
public:
    /// The handles belong to \a graph and live as long.
    EqualizerGraphAccessible(QWidget* graph, HandleModel& handles);

    QString text(QAccessible::Text text) const override;
    /// Not focused while one of the handles is.
    QAccessible::State state() const override;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    /// The handle that a press at a point of the screen would grab, if the point is on it.
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;

protected:
    ~EqualizerGraphAccessible() override;

private:
    HandleModel& m_handles;
    mutable std::array<QAccessible::Id, EqualizerBands::Count> m_ids{};
};
