// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAccessible>

class ZoltaEqualizerGraph;

/// Tells assistive technology, if any is listening, what happens to the curve's handles. Bands are
/// numbered as in EqualizerBands, and so are the graph's accessible children.
namespace GraphAnnouncements {

/// The handle's value is now \a value; see EqualizerGraphAccessible.
void valueChanged(ZoltaEqualizerGraph* graph, int band, double value);
/// The band was switched on or off.
void switched(ZoltaEqualizerGraph* graph, int band);
/// The keyboard's focus is on the handle of \a band; a negative number means the graph itself.
void focused(ZoltaEqualizerGraph* graph, int band);

/// Sends all announcements to \a announcer instead, whether or not anyone is listening; null
/// restores the usual way. For tests: on a platform without a screen nobody ever listens, and Qt
/// hands events to no one.
using Announcer = void (*)(QAccessibleEvent* event);
void setAnnouncer(Announcer announcer);

} // namespace GraphAnnouncements
