// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/EqualizerBands.h"
#include "equalizer/PlotAxes.h"
#include "graph/EditTarget.h"

#include <QPoint>
#include <QPointF>
#include <QRectF>
#include <QSize>

/// The bands in the plot of a widget: where their handles stand. Painting, hit testing and dragging
/// go through here. It refers to the bands and lives no longer; all lengths are in pixels.
class GraphView
{
public:
    /// The radius and the width of the ring around the focused handle, in units of the plot.
    static constexpr double MarkRadius = 5.5;
    static constexpr double MarkWidth = 1.5;

    /// \a size is the widget's, \a range the level in dB at the plot's top edge.
    GraphView(const EqualizerBands& bands, QSize size, double range);

    const EqualizerBands& bands() const { return m_bands; }
    QSize size() const { return m_size; }
    const PlotAxes& axes() const { return m_axes; }
    QRectF plotRect() const;

    /// False for what is no band.
    bool isOn(int band) const;
    /// Where the handle of \a band stands: on its gain, or on 0 dB for a pass filter; at (0, 0) for
    /// a low or high band of an unknown type and for what is no band.
    QPointF handle(int band) const;
    /// What the focus mark of \a band covers of the plot; nothing for a band that is off.
    QRectF markRect(int band) const;
    /// The band whose handle is nearest to \a point, among those that are on and less than 10000
    /// units away, the earlier of two; none outside the plot.
    EditTarget nearest(QPoint point) const;

private:
    const EqualizerBands& m_bands;
    QSize m_size;
    PlotAxes m_axes;
};
