// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/MeterController.h"
#include "widgets/Export.h"

namespace CommonController_MemAPI {

/// A meter of rounded shapes: a bar with round ends in the middle of a track, and a round lamp for
/// overs. The unlit track and the unlit lamp are filled with the palette's WindowText.
class ZOLTA_EXPORT RoundMeterController : public MeterController
{
    Q_OBJECT
    Q_PROPERTY(int meterWidth READ meterWidth WRITE setMeterWidth)
    Q_PROPERTY(int meterOverWidth READ meterOverWidth WRITE setMeterOverWidth)
    Q_PROPERTY(int meterOverBackgroundWidth READ meterOverBackgroundWidth WRITE
                   setMeterOverBackgroundWidth)
    Q_PROPERTY(int meterOverBackgroundHeight READ meterOverBackgroundHeight WRITE
                   setMeterOverBackgroundHeight)

public:
    explicit RoundMeterController(QWidget* parent = nullptr);

    /// Of the bar and its track.
    int meterWidth() const { return m_width; }
    void setMeterWidth(int pixels);
    /// Of the lit lamp, whose height is meterOverHeight().
    int meterOverWidth() const { return m_overWidth; }
    void setMeterOverWidth(int pixels);
    /// Of the unlit lamp.
    int meterOverBackgroundWidth() const { return m_overBackgroundWidth; }
    void setMeterOverBackgroundWidth(int pixels);
    int meterOverBackgroundHeight() const { return m_overBackgroundHeight; }
    void setMeterOverBackgroundHeight(int pixels);

protected:
    void drawBackground(QPainter* painter) override;
    void drawOver(QPainter* painter) override;
    void drawMeter(QPainter* painter) override;
    QRegion changedRegion(int from, int to) const override;

private:
    QRectF trackRect() const;
    QRectF lampRect() const;

    int m_width = 4;
    int m_overWidth = 6;
    int m_overBackgroundWidth = 4;
    int m_overBackgroundHeight = 4;
};

} // namespace CommonController_MemAPI
