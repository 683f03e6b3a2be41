// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/RoundGainReductionMeterController.h"

#include "controls/RoundShapes.h"

#include <QPainter>

#include <algorithm>

namespace CommonController_MemAPI {

RoundGainReductionMeterController::RoundGainReductionMeterController(QWidget* parent)
    : MeterController(parent)
{
    setValue(0);
    setMeterOverMargin(0);
    setMeterOverHeight(0);
}

void RoundGainReductionMeterController::setMeterWidth(int pixels)
{
    setAndRepaint(m_width, pixels);
}

void RoundGainReductionMeterController::drawBackground(QPainter* painter)
{
    RoundShapes::fill(*painter, RoundShapes::snapped(*painter, trackRect()),
                      brush(QPalette::WindowText));
}

void RoundGainReductionMeterController::drawOver(QPainter*) {}

void RoundGainReductionMeterController::drawMeter(QPainter* painter)
{
    const QRectF track = RoundShapes::snapped(*painter, trackRect());
    const QRectF above = rectAbove(convertNormalized(paintedValue()));
    QRectF lit = track;
    lit.setBottom(RoundShapes::snapped(*painter, above).bottom());
    RoundShapes::fillPart(*painter, lit, track, QRectF(), brush(QPalette::Mid));
}

QRegion RoundGainReductionMeterController::changedRegion(int from, int to) const
{
    // Above lies the round end of the smaller reduction, or all of it if it is short.
    QRectF bar = rectBetween(from, to);
    if (!bar.isEmpty())
        bar.adjust(0, -2.0 * std::max(0, m_width) * scale(), 0, 0);
    return touchedPixels(bar & trackRect());
}

QRectF RoundGainReductionMeterController::trackRect() const
{
    const QRectF bar = scaledMeterRect();
    return RoundShapes::centred(bar, {m_width * scale(), bar.height()});
}

} // namespace CommonController_MemAPI

#include "moc_RoundGainReductionMeterController.cpp"
