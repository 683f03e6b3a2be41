// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/GraphAnnouncements.h"

#include "graph/ZoltaEqualizerGraph.h"

namespace {

GraphAnnouncements::Announcer& currentAnnouncer()
{
    static GraphAnnouncements::Announcer announcer = nullptr;
    return announcer;
}

bool isAnyoneListening() { return currentAnnouncer() || QAccessible::isActive(); }

void announce(QAccessibleEvent& event, int band)
{
    event.setChild(band);
    if (const auto announcer = currentAnnouncer())
        announcer(&event);
    else
        QAccessible::updateAccessibility(&event);
}

} // namespace

void GraphAnnouncements::valueChanged(ZoltaEqualizerGraph* graph, int band, double value)
{
    if (!isAnyoneListening())
        return;
    QAccessibleValueChangeEvent event(graph, value);
    announce(event, band);
}

void GraphAnnouncements::switched(ZoltaEqualizerGraph* graph, int band)
{
    if (!isAnyoneListening())
        return;
    QAccessible::State changed;
    changed.invisible = true;
    changed.disabled = true;
    changed.focusable = true;
    QAccessibleStateChangeEvent event(graph, changed);
    announce(event, band);
}

void GraphAnnouncements::focused(ZoltaEqualizerGraph* graph, int band)
{
    if (!isAnyoneListening())
        return;
    QAccessibleEvent event(graph, QAccessible::Focus);
    announce(event, band);
}

void GraphAnnouncements::setAnnouncer(Announcer announcer) { currentAnnouncer() = announcer; }
