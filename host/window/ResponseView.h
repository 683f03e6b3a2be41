// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/EqualizerBands.h"

#include <QTimer>
#include <QWidget>

#include <vector>

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

    /// \a mixerModel must outlive it.
    ResponseView(MixerModel& mixerModel, int channel, QWidget* parent = nullptr);

    /// In Hz.
    void setSampleRate(int hertz);

    /// Where the points are, in Hz: a tenth of an octave from one to the next, up to 20 kHz or 0.45
    /// of the rate. The levels there, in dB.
    const std::vector<double>& frequencies() const { return m_frequencies; }
    const std::vector<double>& drawn() const { return m_drawn; }
    const std::vector<double>& measured() const { return m_measured; }
    /// In dB, among the points above -100 dB; below that nothing can be heard.
    double largestDifference() const;
    /// The sentence about it.
    QString verdict() const;

    QSize sizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void measure();
    bool isOn() const;
    double range() const;
    void drawLegend(QPainter& painter) const;
    void drawGrid(QPainter& painter, const PlotAxes& axes) const;
    void drawLine(QPainter& painter, const PlotAxes& axes) const;
    void drawPoints(QPainter& painter, const PlotAxes& axes) const;

    MixerModel& m_mixerModel;
    int m_channel;
    EqualizerBands m_bands;
    std::vector<double> m_frequencies;
    std::vector<double> m_drawn;
    std::vector<double> m_measured;
    QTimer m_delay;
};
