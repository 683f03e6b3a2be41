// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/RoundMeterController.h"

#include "controls/RoundShapes.h"

#include <QPainter>

#include <algorithm>

namespace CommonController_MemAPI {

RoundMeterController::RoundMeterController(QWidget* parent)
    : MeterController(parent)
{
    setMeterOverMargin(10);
    setMeterOverHeight(6);
}

void RoundMeterController::setMeterWidth(int pixels) { setAndRepaint(m_width, pixels); }

void RoundMeterController::setMeterOverWidth(int pixels) { setAndRepaint(m_overWidth, pixels); }

void RoundMeterController::setMeterOverBackgroundWidth(int pixels)
{
    setAndRepaint(m_overBackgroundWidth, pixels);
}

void RoundMeterController::setMeterOverBackgroundHeight(int pixels)
{
    setAndRepaint(m_overBackgroundHeight, pixels);
}

void RoundMeterController::drawBackground(QPainter* painter)
{
    const QSizeF size = QSizeF(m_overBackgroundWidth, m_overBackgroundHeight) * scale();
    const QRectF lamp = RoundShapes::centred(scaledOverRect(), size);
    const QBrush& unlit = brush(QPalette::WindowText);
    RoundShapes::fill(*painter, lamp, unlit);
    RoundShapes::fill(*painter, RoundShapes::snapped(*painter, trackRect()), unlit);
}

void RoundMeterController::drawOver(QPainter* painter)
{
    RoundShapes::fill(*painter, RoundShapes::snapped(*painter, lampRect()), brush(QPalette::Light));
}

void RoundMeterController::drawMeter(QPainter* painter)
{
    const QRectF track = RoundShapes::snapped(*painter, trackRect());
    const auto below = [&](double fraction) {
        QRectF part = track;
        part.setTop(RoundShapes::snapped(*painter, rectAbove(fraction)).bottom());
        return part;
    };
    const QRectF lit = below(convertNormalized(paintedValue()));
    const QRectF lower = below(upperZoneStart());
    const QRectF upper(track.topLeft(), lower.topRight());
    RoundShapes::fillPart(*painter, lit, track, lower, brush(QPalette::Dark));
    RoundShapes::fillPart(*painter, lit, track, upper, brush(QPalette::Mid));
}

QRegion RoundMeterController::changedRegion(int from, int to) const
{
    // Below lies the round end of the lower level, or all of it if it is short.
    QRectF bar = rectBetween(from, to);
    if (!bar.isEmpty())
        bar.adjust(0, 0, 0, 2.0 * std::max(0, m_width) * scale());
    const QRegion changed = touchedPixels(bar & trackRect());
    return (from > 0) == (to > 0) ? changed : changed | touchedPixels(lampRect());
}

QRectF RoundMeterController::trackRect() const
{
    const QRectF bar = scaledMeterRect();
    return RoundShapes::centred(bar, {m_width * scale(), bar.height()});
}

QRectF RoundMeterController::lampRect() const
{
    const QRectF over = scaledOverRect();
    return RoundShapes::centred(over, {m_overWidth * scale(), over.height()});
}

} // namespace CommonController_MemAPI

#include "moc_RoundMeterController.cpp"
