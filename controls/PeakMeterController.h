// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/MeterController.h"
#include "widgets/Export.h"

namespace CommonController_MemAPI {

/// A meter that shows a thin segment at the level instead of a bar, and nothing but the over
/// indicator at an over.
class ZOLTA_EXPORT PeakMeterController : public MeterController
{
    Q_OBJECT
    Q_PROPERTY(int meterPeakHeight READ meterPeakHeight WRITE setMeterPeakHeight)

public:
    explicit PeakMeterController(QWidget* parent = nullptr);

    int meterPeakHeight() const { return m_peakHeight; }
    void setMeterPeakHeight(int pixels);

protected:
    QRegion changedRegion(int from, int to) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    QRectF peakRect(int value) const;
    QRectF shownRect(int value) const;

    int m_peakHeight = 2;
};

} // namespace CommonController_MemAPI
