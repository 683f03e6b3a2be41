// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/model/ResponseComparison.h"

#include <QTimer>
#include <QWidget>

class MixerModel;
class PlotAxes;

/// What an equalizer's curve promises and what its sound does, over one another: the drawn response
/// as a line, and as points the response that an impulse measures in the signal processor, with the
/// largest difference between the two. Levels and drive, which the curve does not show, are left
/// out. While the equalizer is off the sound goes past it, and so do the points.
///
/// It measures when the channel is written and only while it is visible.
class ResponseView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int viewHeight = 232;

    /// \a mixerModel must outlive it. It measures so many milliseconds after the last of several
    /// writes, so that a drag is followed but not held up.
    ResponseView(MixerModel& mixerModel, int channel, QWidget* parent = nullptr, int delay = 30);

    /// In Hz.
    void setSampleRate(int hertz);

    QSize sizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void measure();
    bool isOn() const;
    QString verdict() const;
    double range() const;
    void drawLegend(QPainter& painter) const;
    void drawGrid(QPainter& painter, const PlotAxes& axes) const;
    void drawLine(QPainter& painter, const PlotAxes& axes) const;
    void drawPoints(QPainter& painter, const PlotAxes& axes) const;

    MixerModel& m_mixerModel;
    int m_channel;
    ResponseComparison m_comparison;
    QTimer m_delay;
};
