// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/GraphAnnouncements.h"

#include "equalizer/EqualizerBands.h"
#include "graph/HandleText.h"

#include <QAccessible>
#include <QPointer>
#include <QWidget>

#include <tuple>

namespace {

void announce(QAccessibleEvent& event, int band)
{
    event.setChild(band);
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
    const QPointer<QWidget> alive(graph);
    QAccessibleValueChangeEvent number(graph, value);
    announce(number, band);
    if (!alive)
        return;
    QAccessibleEvent text(graph, QAccessible::DescriptionChanged);
    announce(text, band);
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
    if (!QAccessible::isActive())
        return;
    const QPointer<QWidget> alive(graph);
    if (before.on != bands[band].on)
        announceSwitch(graph, band);
    if (alive && bands[band].on && !haveSameSettings(before, bands[band]))
        announceValue(graph, band, HandleText::number(bands, band));
}

void GraphAnnouncements::focused(QWidget* graph, int band)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(graph, QAccessible::Focus);
    announce(event, band);
}
