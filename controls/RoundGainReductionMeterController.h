// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/MeterController.h"
#include "widgets/Export.h"

namespace CommonController_MemAPI {

/// A round meter of a gain reduction: 0 is none, and the further the value lies below, the further
/// the bar reaches down from the top, to the mark that the same level has on a level meter beside
/// it. The bar is filled with the palette's Mid, the track with WindowText. There is no over
/// indicator.
class ZOLTA_EXPORT RoundGainReductionMeterController : public MeterController
{
    Q_OBJECT
    Q_PROPERTY(int meterWidth READ meterWidth WRITE setMeterWidth)

public:
    explicit RoundGainReductionMeterController(QWidget* parent = nullptr);

    /// Of the bar and its track.
    int meterWidth() const { return m_width; }
    void setMeterWidth(int pixels);

protected:
    void drawBackground(QPainter* painter) override;
    void drawOver(QPainter* painter) override;
    void drawMeter(QPainter* painter) override;
    QRegion changedRegion(int from, int to) const override;

private:
    QRectF trackRect() const;

    int m_width = 4;
};

} // namespace CommonController_MemAPI
