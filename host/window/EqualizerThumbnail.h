// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "equalizer/EqualizerBands.h"
#include "hosting/HostMemory.h"

#include <QPolygonF>
#include <QWidget>

class MixerModel;

/// A small picture of a channel's equalizer curve from 20 Hz to 20 kHz, -20 to +20 dB, behind
/// glass. It is what the filters answer at the rate of the sound, at 48 kHz while nothing plays.
/// Dim while the equalizer is off.
class EqualizerThumbnail : public QWidget
{
    Q_OBJECT

public:
    /// \a mixerModel must outlive it.
    EqualizerThumbnail(MixerModel& mixerModel, int channel, QWidget* parent = nullptr);

Q_SIGNALS:
    /// The user clicked it.
    void clicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QPolygonF curve(const QRectF& plot) const;
    void drawCurve(QPainter& painter, const QRectF& plot) const;

    MixerModel& m_mixerModel;
    int m_channel;
    EqualizerBands m_bands;
};
