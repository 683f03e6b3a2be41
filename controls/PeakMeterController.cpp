// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PeakMeterController.h"

#include <QPainter>

namespace CommonController_MemAPI {

PeakMeterController::PeakMeterController(QWidget* parent)
    : MeterController(parent)
{}

void PeakMeterController::setMeterPeakHeight(int pixels) { setAndRepaint(m_peakHeight, pixels); }

QRegion PeakMeterController::changedRegion(int from, int to) const
{
    const QRectF before = shownRect(from);
    const QRectF after = shownRect(to);
    return before == after ? QRegion() : touchedPixels(before) | touchedPixels(after);
}

void PeakMeterController::paintEvent(QPaintEvent*)
{
    const int level = readPaintedValue();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (level < 1) {
        painter.setClipRect(peakRect(level), Qt::ReplaceClip);
        drawMeter(&painter);
    } else {
        drawOver(&painter);
    }
}

QRectF PeakMeterController::peakRect(int value) const
{
    const QRectF dark = rectAbove(convertNormalized(value));
    return {dark.x() - 1, dark.bottom(), dark.width() + 2, m_peakHeight * scale()};
}

QRectF PeakMeterController::shownRect(int value) const
{
    return value < 1 ? peakRect(value) : scaledOverRect();
}

} // namespace CommonController_MemAPI

#include "moc_PeakMeterController.cpp"
