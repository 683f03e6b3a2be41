// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mixer/EqualizerThumbnail.h"

#include "graph/filters/BandDesign.h"
#include "host/mixer/Desk.h"
#include "host/mixer/MixerLook.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

constexpr double sampleRate = 48000.0;
constexpr double largestGain = 20.0;
constexpr std::size_t parametersPerBand = 4;

float position(const HostMemory::Values& values, std::size_t index)
{
    const Parameter& parameter = parameterTable[index];
    return static_cast<float>(values[index] - parameter.minimum) /
           static_cast<float>(parameter.maximum - parameter.minimum);
}

Band bandOf(const HostMemory::Values& values, int number)
{
    const std::size_t first = static_cast<std::size_t>(number) * parametersPerBand;
    Band band;
    if (EqualizerBands::isMiddle(number))
        band.quality = BandDesign::quality(position(values, first));
    else
        band.type = values[first];
    band.frequency = BandDesign::frequency(position(values, first + 1));
    band.gain = BandDesign::gain(position(values, first + 2));
    band.on = values[first + 3] != 0;
    return band;
}

} // namespace

EqualizerThumbnail::EqualizerThumbnail(Desk& desk, int channel, QWidget* parent)
    : QWidget(parent)
    , m_desk(desk)
    , m_channel(channel)
{
    setCursor(Qt::PointingHandCursor);
    m_bands.setSampleRate(sampleRate);
    connect(&desk.history(), &EditHistory::changed, this, [this](int changed) {
        if (changed == m_channel)
            update();
    });
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
    design();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF glass = QRectF(rect()).adjusted(0, 0, 0, -1);
    MixerLook::drawWell(painter, glass, 3);
    const QRectF plot = glass.adjusted(2, 2, -2, -2);
    painter.setClipRect(plot);
    painter.fillRect(QRectF(plot.left(), std::floor(plot.center().y()), plot.width(), 1),
                     QColor(255, 255, 255, 28));
    for (const double third : {1.0 / 3, 2.0 / 3})
        painter.fillRect(
            QRectF(std::floor(plot.left() + third * plot.width()), plot.top(), 1, plot.height()),
            QColor(255, 255, 255, 14));

    const EqualizerResponse response = m_bands.response();
    QPolygonF curve;
    for (double x = 0.0; x <= plot.width(); x += 1.0) {
        const double frequency = 20.0 * std::pow(1000.0, x / plot.width());
        const double level = std::clamp(response.levels(frequency, sampleRate).total,
                                        -1.5 * largestGain, 1.5 * largestGain);
        curve << QPointF(plot.left() + x,
                         plot.center().y() - level / largestGain * plot.height() / 2);
    }
    const bool on = m_desk.memory().strip(m_channel, StripParameter::EqualizerOn) != 0;
    const QColor color = on ? MixerLook::accent.lighter(125) : MixerLook::dimLetters.darker(150);
    QPolygonF area = curve;
    area << QPointF(curve.last().x(), plot.center().y())
         << QPointF(curve.first().x(), plot.center().y());
    QColor fill = color;
    fill.setAlpha(on ? 60 : 30);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawPolygon(area);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, 1.4));
    painter.drawPolyline(curve);
}

void EqualizerThumbnail::design()
{
    const HostMemory::Values& values = m_desk.memory().values(m_channel);
    for (int band = 0; band < EqualizerBands::Count; ++band)
        m_bands[band] = bandOf(values, band);
    m_bands.designAll();
}

#include "moc_EqualizerThumbnail.cpp"
