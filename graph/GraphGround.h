// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "widgets/SvgRasters.h"

#include <QPointer>

class QPainter;
class QPoint;
class QRect;
class QWidget;
class SvgLabel;

/// The label beneath a widget that paints the label's pixels together with its own, as long as it
/// lies on nothing else in its window: the label leaves them out then.
class GraphGround
{
public:
    /// Owned by \a widget, a sibling of the label.
    explicit GraphGround(QWidget& widget);
    ~GraphGround();
    GraphGround(const GraphGround&) = delete;
    GraphGround& operator=(const GraphGround&) = delete;

    /// Null for none.
    void set(SvgLabel* label);

    /// What lies beneath all of the widget on the device of its \a painter, pixel by pixel, and
    /// where its first pixel lies from the widget's. The image is opaque, or null if that is not
    /// known.
    SvgRaster pixels(const QPainter& painter) const;

private:
    /// What the widget paints of the pixels that the label's painter is about to paint; empty if
    /// it does not paint the label's.
    QRect coveredPixels(const QPainter& painter) const;
    /// As pixels(), with the widget's corner at \a corner of the painter.
    SvgRaster pixelsAt(const QPainter& painter, const QPoint& corner) const;
    bool isBare() const;

    QWidget& m_widget;
    QPointer<SvgLabel> m_label;
};
