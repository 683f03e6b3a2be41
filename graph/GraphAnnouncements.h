// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class EqualizerBands;
class QWidget;
struct Band;

/// Tells assistive technology, if any is listening, what happens to the curve's handles. Bands are
/// numbered as in EqualizerBands, and so are the graph's accessible children.
namespace GraphAnnouncements {

/// The settings of \a band are no longer those of \a before: it was switched, or its number is
/// another. Who listens may delete the graph; \a bands, which are its own, are then left alone.
void changed(QWidget* graph, const EqualizerBands& bands, int band, const Band& before);
/// The keyboard's focus is on the handle of \a band; a negative number means the graph itself.
void focused(QWidget* graph, int band);

} // namespace GraphAnnouncements
