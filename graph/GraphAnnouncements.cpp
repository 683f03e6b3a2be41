// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/GraphAnnouncements.h"

#include "equalizer/EqualizerBands.h"
#include "graph/HandleText.h"

#include <QPointer>
#include <QWidget>

#include <tuple>

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

void announceSwitch(QWidget* graph, int band)
{
    QAccessible::State changed;
    changed.invisible = true;
    changed.disabled = true;
    changed.focusable = true;
    QAccessibleStateChangeEvent event(graph, changed);
    announce(event, band);
}

void announceValue(QWidget* graph, int band, double value)
{
    QAccessibleValueChangeEvent event(graph, value);
    announce(event, band);
}

bool haveSameSettings(const Band& a, const Band& b)
{
    const auto settings = [](const Band& band) {
        return std::tie(band.type, band.quality, band.frequency, band.gain);
    };
    return settings(a) == settings(b);
}

} // namespace

void GraphAnnouncements::changed(QWidget* graph, const EqualizerBands& bands, int band,
                                 const Band& before)
{
    if (!isAnyoneListening())
        return;
    const QPointer<QWidget> alive(graph);
    if (before.on != bands[band].on)
        announceSwitch(graph, band);
    if (alive && bands[band].on && !haveSameSettings(before, bands[band]))
        announceValue(graph, band, HandleText::number(bands, band));
}

void GraphAnnouncements::focused(QWidget* graph, int band)
{
    if (!isAnyoneListening())
        return;
    QAccessibleEvent event(graph, QAccessible::Focus);
    announce(event, band);
}

void GraphAnnouncements::setAnnouncer(Announcer announcer) { currentAnnouncer() = announcer; }
