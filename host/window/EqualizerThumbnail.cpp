// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/EqualizerThumbnail.h"

#include "equalizer/BandDesign.h"
#include "host/model/MixerModel.h"
#include "host/window/MixerStyle.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int silentRate = 48000;
constexpr double largestGain = BandDesign::MaximumGain;

// 0 dB, and the decades.
void drawGrid(QPainter& painter, const QRectF& plot)
{
    painter.fillRect(QRectF(plot.left(), std::floor(plot.center().y()), plot.width(), 1),
                     QColor(255, 255, 255, 28));
    for (const double part : {1.0 / 3, 2.0 / 3}) {
        const double x = std::floor(plot.left() + part * plot.width());
        painter.fillRect(QRectF(x, plot.top(), 1, plot.height()), QColor(255, 255, 255, 14));
    }
}

} // namespace

EqualizerThumbnail::EqualizerThumbnail(MixerModel& mixerModel, int channel, QWidget* parent)
    : QWidget(parent)
    , m_mixerModel(mixerModel)
    , m_channel(channel)
{
    setCursor(Qt::PointingHandCursor);
    connect(&mixerModel, &MixerModel::channelChanged, this, [this](int changed) {
        if (changed == m_channel)
            update();
    });
    connect(&mixerModel, &MixerModel::soundingRateChanged, this, qOverload<>(&QWidget::update));
}

void EqualizerThumbnail::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        QWidget::mousePressEvent(event);
}

void EqualizerThumbnail::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Q_EMIT clicked();
}

void EqualizerThumbnail::paintEvent(QPaintEvent*)
{
    const int rate = m_mixerModel.soundingRate();
    m_bands.setSampleRate(rate > 0 ? rate : silentRate);
    setBands(m_bands, m_mixerModel.memory().values(m_channel));
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF glass = QRectF(rect()).adjusted(0, 0, 0, -1);
    MixerStyle::drawWell(painter, glass, 3);
    const QRectF plot = glass.adjusted(2, 2, -2, -2);
    painter.setClipRect(plot);
    drawGrid(painter, plot);
    drawCurve(painter, plot);
}

QPolygonF EqualizerThumbnail::curve(const QRectF& plot) const
{
    constexpr double farthest = 1.5 * largestGain; // beyond the glass
    const EqualizerResponse response = m_bands.response();
    QPolygonF points;
    for (double x = 0.0; x <= plot.width(); x += 1.0) {
        const double frequency = BandDesign::frequency(static_cast<float>(x / plot.width()));
        const double level =
            std::clamp(response.levels(frequency, m_bands.sampleRate()).total, -farthest, farthest);
        points << QPointF(plot.left() + x,
                          plot.center().y() - level / largestGain * plot.height() / 2);
    }
    return points;
}

void EqualizerThumbnail::drawCurve(QPainter& painter, const QRectF& plot) const
{
    const bool on = m_mixerModel.memory().strip(m_channel, StripParameter::EqualizerOn) != 0;
    const QColor color = on ? MixerStyle::accent.lighter(125) : MixerStyle::dimLetters.darker(150);
    const QPolygonF line = curve(plot);
    QPolygonF area = line;
    area << QPointF(line.last().x(), plot.center().y())
         << QPointF(line.first().x(), plot.center().y());
    QColor fill = color;
    fill.setAlpha(on ? 60 : 30);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawPolygon(area);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, 1.4));
    painter.drawPolyline(line);
}

#include "moc_EqualizerThumbnail.cpp"
