// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/ResponseView.h"

#include "equalizer/PlotAxes.h"
#include "host/model/MixerModel.h"
#include "host/window/MixerStyle.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr double finest = 0.0001;  // dB
constexpr double tolerated = 0.01; // dB
constexpr int smallestPlotWidth = 240;
constexpr int legendHeight = 30;
constexpr int legendGap = 20;
constexpr int legendSampleWidth = 25;
constexpr double pointRadius = 2.0;

QString labelOf(double frequency)
{
    return frequency < 1000.0 ? QString::number(frequency)
                              : QString::number(frequency / 1000.0) + QLatin1Char('k');
}

} // namespace

ResponseView::ResponseView(MixerModel& mixerModel, int channel, QWidget* parent, int delay)
    : QWidget(parent)
    , m_mixerModel(mixerModel)
    , m_channel(channel)
{
    setMinimumSize(smallestPlotWidth, viewHeight);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setSampleRate(48000);
    m_delay.setSingleShot(true);
    m_delay.setInterval(delay);
    m_delay.callOnTimeout(this, &ResponseView::measure);
    connect(&mixerModel, &MixerModel::channelChanged, this, [this](int changed) {
        if (isVisible() && (changed == m_channel || changed == m_mixerModel.leaderOf(m_channel)))
            m_delay.start();
    });
}

void ResponseView::setSampleRate(int hertz)
{
    m_comparison.setSampleRate(hertz);
    if (isVisible())
        measure();
}

void ResponseView::measure()
{
    m_comparison.measure(m_mixerModel.memory().values(m_channel),
                         m_mixerModel.soundingValues(m_channel));
    setAccessibleDescription(verdict());
    update();
}

bool ResponseView::isOn() const
{
    return m_mixerModel.memory().strip(m_mixerModel.leaderOf(m_channel),
                                       StripParameter::EqualizerOn) != 0;
}

QString ResponseView::verdict() const
{
    if (!isOn())
        return tr("The equalizer is off");
    const double difference = m_comparison.largestDifference();
    const QString text = difference < finest ? QStringLiteral("< %1").arg(finest)
                                             : QString::number(difference, 'f', 4);
    return tr("Largest difference: %1 dB").arg(text);
}

QSize ResponseView::sizeHint() const { return {600, viewHeight}; }

void ResponseView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        setAccessibleDescription(verdict());
        update();
    }
}

void ResponseView::showEvent(QShowEvent*) { measure(); }

void ResponseView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(MixerStyle::smallFont(this));
    MixerStyle::drawPanel(painter, rect());
    MixerStyle::drawWell(painter, QRectF(rect()).adjusted(8, legendHeight, -8, -9), 4);
    drawLegend(painter);
    painter.translate(0, legendHeight);
    const PlotAxes axes(width(), height() - legendHeight, range());
    drawGrid(painter, axes);
    painter.setClipRect(QRectF(axes.left(), axes.top(), axes.width(), axes.height()));
    drawLine(painter, axes);
    drawPoints(painter, axes);
}

// All boosts are in the picture, and cuts as far down.
double ResponseView::range() const
{
    double boost = 0.0;
    for (const double level : m_comparison.drawn())
        boost = std::max(boost, level);
    for (const double range : {12.0, 24.0})
        if (boost <= range)
            return range;
    return 48.0;
}

// The legend gets the room that the verdict leaves.
void ResponseView::drawLegend(QPainter& painter) const
{
    const QFontMetrics metrics(painter.font());
    const QRect line(16, 0, width() - 32, legendHeight);
    const QString shown = metrics.elidedText(verdict(), Qt::ElideRight, line.width());
    const bool alarming = isOn() && m_comparison.largestDifference() > tolerated;
    painter.setPen(alarming ? QColor(0xff, 0xb0, 0x30) : MixerStyle::dimLetters);
    painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, shown);

    const double middle = legendHeight / 2.0;
    int x = line.left();
    const int end = line.right() - metrics.horizontalAdvance(shown) - legendGap;
    const auto entry = [&](const QString& text, const auto& drawSample) {
        const int width = legendSampleWidth + metrics.horizontalAdvance(text);
        if (x + width > end)
            return;
        drawSample();
        painter.setPen(MixerStyle::letters);
        painter.drawText(QRect(x + legendSampleWidth, 0, width, legendHeight),
                         Qt::AlignLeft | Qt::AlignVCenter, text);
        x += width + legendGap;
    };
    entry(tr("Drawn"), [&] {
        painter.setPen(QPen(MixerStyle::accent, 2));
        painter.drawLine(QPointF(x, middle), QPointF(x + 18, middle));
    });
    entry(tr("Measured"), [&] {
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::white);
        for (const int step : {3, 10, 17})
            painter.drawEllipse(QPointF(x + step, middle), pointRadius, pointRadius);
    });
}

void ResponseView::drawGrid(QPainter& painter, const PlotAxes& axes) const
{
    const QColor thin(255, 255, 255, 20);
    const QColor strong(255, 255, 255, 50);
    const auto text = [&painter](double x, double y, int flags, const QString& label) {
        painter.setPen(MixerStyle::dimLetters);
        painter.drawText(QRectF(x - 40, y - 8, 80, 16), flags | Qt::AlignVCenter, label);
    };
    for (int step = -4; step <= 4; ++step) {
        const double level = step * axes.range() / 4;
        const double y = std::round(axes.y(level));
        painter.fillRect(QRectF(axes.left(), y, axes.width(), 1), step == 0 ? strong : thin);
        if (step % 2 == 0)
            text(axes.left() - 48, y, Qt::AlignRight,
                 (level > 0 ? QStringLiteral("+") : QString()) + QString::number(level));
    }
    for (const double frequency :
         {20.0, 50.0, 100.0, 200.0, 500.0, 1000.0, 2000.0, 5000.0, 10000.0, 20000.0}) {
        const double x = std::round(axes.x(frequency));
        painter.fillRect(QRectF(x, axes.top(), 1, axes.height()), thin);
        text(std::min(x, axes.right() - 4), axes.bottom() + 12, Qt::AlignHCenter,
             labelOf(frequency));
    }
}

void ResponseView::drawLine(QPainter& painter, const PlotAxes& axes) const
{
    const EqualizerBands& bands = m_comparison.bands();
    const EqualizerResponse response = bands.response();
    const double farthest = 1.2 * axes.range();
    QPolygonF line;
    for (double x = axes.left(); x <= axes.right(); x += 1.0) {
        const double level = response.levels(axes.frequency(x), bands.sampleRate()).total;
        line << QPointF(x, axes.y(std::clamp(level, -farthest, farthest)));
    }
    painter.setPen(QPen(isOn() ? MixerStyle::accent : MixerStyle::dimLetters.darker(150), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(line);
}

void ResponseView::drawPoints(QPainter& painter, const PlotAxes& axes) const
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    const std::vector<double>& levels = m_comparison.measured();
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const QPointF point(axes.x(m_comparison.frequencies()[i]), axes.y(levels[i]));
        painter.drawEllipse(point, pointRadius, pointRadius);
    }
}

#include "moc_ResponseView.cpp"
