// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <array>

namespace CommonController_MemAPI {
class PeakMeterController;
} // namespace CommonController_MemAPI

class PeakDisplay;

/// The meters of a strip: a bar for each side, on it a peak that stays for a while, beside them the
/// scale of the editor's meters, and above them the highest level and whether it was too high.
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
    PeakDisplay& display() const { return *m_display; }

    /// How far below the top, in pixels, a bar ends that shows \a level, in tenths of a dB.
    double positionOf(int level) const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    class Bar;
    struct Side
    {
        Bar* bar = nullptr;
        CommonController_MemAPI::PeakMeterController* peak = nullptr;
        int held = 0; // readings for which the peak has stood
    };

    QRect well() const;
    void place();

    bool m_pair = false;
    std::array<Side, sides> m_sides;
    PeakDisplay* m_display;
};
