// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <array>

namespace CommonController_MemAPI {
class MeterController;
class PeakMeterController;
} // namespace CommonController_MemAPI

/// The meters of a strip: a bar for each side, and on it a peak that stays for a while.
class StripMeters : public QWidget
{
    Q_OBJECT

public:
    /// Readings for which a peak stays.
    static constexpr int peakHold = 45;
    static constexpr int sides = 2;

    explicit StripMeters(QWidget* parent = nullptr);

    /// Whether both sides are shown, or the first one alone over the whole width.
    void setPair(bool pair);
    /// A new reading of a side, in tenths of a dB.
    void show(int side, int level);
    void setNames(int side, const QString& bar, const QString& peak);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Side
    {
        CommonController_MemAPI::MeterController* bar = nullptr;
        CommonController_MemAPI::PeakMeterController* peak = nullptr;
        int held = 0; // readings for which the peak has stood
    };

    void place();

    bool m_pair = false;
    std::array<Side, sides> m_sides;
};
