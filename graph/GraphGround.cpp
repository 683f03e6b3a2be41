// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/GraphGround.h"

#include "widgets/SvgLabel.h"

#include <QBackingStore>
#include <QPaintEngine>
#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace {

/// Whether a painter's places are the device's, times a whole \a pixelRatio.
bool isOneToOne(const QTransform& toDevice, double pixelRatio)
{
    const QPointF corner = toDevice.map(QPointF());
    return toDevice.type() <= QTransform::TxScale && toDevice.m11() == pixelRatio &&
           toDevice.m22() == pixelRatio && std::floor(pixelRatio) == pixelRatio &&
           QPointF(corner.toPoint()) == corner;
}

QRect deviceRect(const QPainter& painter, const QRect& rect)
{
    return painter.deviceTransform().mapRect(QRectF(rect)).toRect();
}

bool isPaintedIn(const QWidget& window, const QPainter& painter)
{
    QBackingStore* store = window.backingStore();
    return store && painter.paintEngine()->paintDevice() == store->paintDevice();
}

} // namespace

GraphGround::GraphGround(QWidget& widget)
    : m_widget(widget)
{}

GraphGround::~GraphGround() { set(nullptr); }

void GraphGround::set(SvgLabel* label)
{
    if (m_label)
        m_label->setCover({});
    m_label = label;
    if (!label)
        return;
    label->setCover([this](const QPainter& painter) { return coveredPixels(painter); });
}

QRect GraphGround::coveredPixels(const QPainter& painter) const
{
    const QPoint corner = m_widget.pos() - m_label->pos();
    const QRect place = deviceRect(painter, QRect(corner, m_widget.size()));
    const bool isPainted = painter.paintEngine()->systemClip().intersects(place);
    return isPainted && !pixelsAt(painter, corner).image.isNull() ? place : QRect();
}

SvgRaster GraphGround::pixels(const QPainter& painter) const { return pixelsAt(painter, {}); }

SvgRaster GraphGround::pixelsAt(const QPainter& painter, const QPoint& corner) const
{
    if (!m_label || !isPaintedIn(*m_widget.window(), painter) || !isBare() ||
        !isOneToOne(painter.deviceTransform(), m_widget.devicePixelRatioF()))
        return {};
    const SvgRaster ground =
        m_label->coveringPixels(painter, corner + m_label->pos() - m_widget.pos());
    const QRect place = deviceRect(painter, QRect(corner, m_widget.size()));
    if (!QRect(ground.offset, ground.image.size()).contains(place))
        return {};
    return {ground.image, ground.offset - place.topLeft()};
}

bool GraphGround::isBare() const
{
    const auto isBeneath = [](QWidget* widget, const QRect& place) {
        return widget && !widget->isHidden() && !widget->isWindow() &&
               widget->geometry().intersects(place);
    };
    if (m_widget.isHidden() || !m_widget.updatesEnabled() || m_widget.graphicsEffect() ||
        !m_widget.mask().isEmpty() || m_widget.internalWinId())
        return false;
    bool isAbove = false;
    for (QObject* sibling : m_widget.parentWidget()->children()) { // in the order of painting
        if (sibling == &m_widget)
            break;
        if (sibling == m_label)
            isAbove = true;
        else if (isBeneath(qobject_cast<QWidget*>(sibling), m_widget.geometry()))
            return false;
    }
    const QRect place = m_widget.geometry().translated(-m_label->pos());
    return isAbove && std::none_of(m_label->children().begin(), m_label->children().end(),
                                   [&](QObject* child) {
                                       return isBeneath(qobject_cast<QWidget*>(child), place);
                                   });
}
