// SPDX-License-Identifier: GPL-3.0-or-later
#include "graph/GraphView.h"

#include <cmath>

namespace {

constexpr double Reach = 10000.0;

} // namespace

GraphView::GraphView(const EqualizerBands& bands, QSize size, double range)
    : m_bands(bands)
    , m_size(size)
    , m_axes(size.width(), size.height(), range)
{}

QRectF GraphView::plotRect() const
{
    return {m_axes.left(), m_axes.top(), m_axes.width(), m_axes.height()};
}

bool GraphView::isOn(int band) const { return isBand(targetOfBand(band)) && m_bands[band].on; }

QPointF GraphView::handle(int band) const
{
    if (!isBand(targetOfBand(band)))
        return {};
    const double x = m_axes.x(m_bands[band].frequency);
    if (m_bands.hasGain(band))
        return {x, m_axes.y(m_bands[band].gain)};
    if (m_bands.isPass(band))
        return {x, m_axes.centre()};
    return {};
}

QRectF GraphView::markRect(int band) const
{
    if (!isOn(band))
        return {};
    const double reach = (MarkRadius + MarkWidth / 2.0) * m_axes.unit();
    const QPointF centre = handle(band);
    return QRectF(centre - QPointF(reach, reach), QSizeF(2.0 * reach, 2.0 * reach)) & plotRect();
}

EditTarget GraphView::nearest(QPoint point) const
{
    if (!m_axes.contains(point.x(), point.y()))
        return EditTargetNone;
    EditTarget nearest = EditTargetNone;
    double best = Reach * m_axes.unit();
    for (int band = 0; band < EqualizerBands::Count; ++band) {
        const QPointF away = handle(band) - point;
        const double distance = std::hypot(away.x(), away.y());
        if (isOn(band) && distance < best) {
            best = distance;
            nearest = targetOfBand(band);
        }
    }
    return nearest;
}
