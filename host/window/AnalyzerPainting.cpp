// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/AnalyzerPainting.h"

#include "host/window/MixerStyle.h"

#include <QPainter>

#include <algorithm>
#include <array>

namespace {

constexpr QColor thinLine(255, 255, 255, 15);
constexpr QColor mediumLine(255, 255, 255, 30);
constexpr QColor strongLine(255, 255, 255, 60);
constexpr double numberGap = 8.0;
constexpr double sampleWidth = 16.0;
constexpr double entryGap = 16.0;
constexpr double curveScaleWidth = 40.0;
constexpr double readoutWidth = 132.0;
constexpr double readoutStep = 20.0;

QString numberOf(double level)
{
    const QString number = QString::number(std::abs(level));
    return level == 0.0 ? number : QChar(level > 0.0 ? u'+' : u'-') + number;
}

QString numberOfFrequency(double frequency)
{
    return frequency < 1000.0 ? QString::number(frequency)
                              : QString::number(frequency / 1000.0) + QLatin1Char('k');
}

void write(QPainter& painter, const QRectF& where, int flags, const QString& text,
           const QColor& color = MixerStyle::dimLetters)
{
    painter.setPen(color);
    painter.drawText(where, flags | Qt::AlignVCenter, text);
}

void drawFrequencies(QPainter& painter, const AnalyzerPlot& plot)
{
    const QRectF& area = plot.area;
    for (int decade = 10; decade <= 10000; decade *= 10) {
        for (int digit = 1; digit < 10; ++digit) {
            const double frequency = digit * decade;
            if (frequency < 20.0 || frequency > 20000.0)
                continue;
            const bool named = digit == 1 || digit == 2 || digit == 5;
            const double x = std::min(std::round(plot.x(frequency)), area.right() - 1.0);
            painter.fillRect(QRectF(x, area.top(), 1, area.height()),
                             digit == 1 ? mediumLine : thinLine);
            if (named)
                write(painter, QRectF(x - 40, area.bottom() + 3, 80, 16), Qt::AlignHCenter,
                      numberOfFrequency(frequency));
        }
    }
}

// Both scales share the lines; 0 dB of the curve is in the middle.
void drawLevels(QPainter& painter, const AnalyzerPlot& plot, bool hasCurve)
{
    const QRectF& area = plot.area;
    for (int step = 0; step <= AnalyzerPlot::steps; ++step) {
        const double part = static_cast<double>(step) / AnalyzerPlot::steps;
        const double level = std::lerp(AnalyzerPlot::highest, AnalyzerPlot::lowest, part);
        const double curve = std::lerp(plot.curveRange, -plot.curveRange, part);
        const double y = std::round(area.top() + part * area.height());
        const bool edge = step == 0 || step == AnalyzerPlot::steps;
        if (!edge)
            painter.fillRect(QRectF(area.left(), y, area.width(), 1),
                             level == 0.0 ? mediumLine : thinLine);
        if (!edge)
            write(painter, QRectF(area.left() - numberGap - 60, y - 8, 60, 16), Qt::AlignRight,
                  numberOf(level));
        if (hasCurve && step % 2 == 0)
            write(painter, QRectF(area.right() + numberGap, y - 8, 60, 16), Qt::AlignLeft,
                  numberOf(curve));
    }
    if (hasCurve)
        painter.fillRect(QRectF(area.left(), std::round(area.center().y()), area.width(), 1),
                         mediumLine);
}

} // namespace

void AnalyzerPainting::drawGround(QPainter& painter, const QSize& size, const AnalyzerPlot& plot,
                                  bool hasCurve)
{
    painter.setRenderHint(QPainter::Antialiasing);
    MixerStyle::drawPanel(painter, QRectF(QPointF(), size));
    MixerStyle::drawWell(painter, QRectF(QPointF(), size).adjusted(8, 6, -8, -7), 4);
    painter.setRenderHint(QPainter::Antialiasing, false);
    drawFrequencies(painter, plot);
    drawLevels(painter, plot, hasCurve);
    painter.setPen(strongLine);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(plot.area.adjusted(-1, -1, 0, 0));
}

void AnalyzerPainting::drawLegend(QPainter& painter, const AnalyzerPlot& plot,
                                  const QList<Entry>& entries, double end)
{
    const QFontMetricsF metrics(painter.font());
    double x = plot.area.left();
    const double middle = plot.area.top() - 10.0;
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Entry& entry : entries) {
        const double width = metrics.horizontalAdvance(entry.text);
        if (x + sampleWidth + 6 + width > end)
            return;
        painter.setPen(entry.isDots ? QPen(Qt::NoPen) : QPen(entry.color, 2));
        painter.setBrush(entry.color);
        if (!entry.isDots)
            painter.drawLine(QPointF(x, middle), QPointF(x + sampleWidth, middle));
        for (double dot = x + 2; entry.isDots && dot < x + sampleWidth; dot += 6)
            painter.drawEllipse(QPointF(dot, middle), 1.6, 1.6);
        x += sampleWidth + 6;
        write(painter, QRectF(x, middle - 9, width + 1, 18), Qt::AlignLeft, entry.text,
              MixerStyle::letters);
        x += width + entryGap;
    }
}

void AnalyzerPainting::drawCursor(QPainter& painter, const AnalyzerPlot& plot, double frequency)
{
    painter.fillRect(QRectF(plot.x(frequency), plot.area.top(), 1, plot.area.height()),
                     QColor(255, 255, 255, 120));
}

void AnalyzerPainting::drawReadout(QPainter& painter, const QSize& size, const AnalyzerPlot& plot,
                                   const QList<Line>& lines)
{
    const double left = plot.area.right() + curveScaleWidth;
    const double width = std::min(size.width() - 24.0 - left, readoutWidth);
    if (width >= readoutWidth) {
        QRectF row(left, plot.area.top() + 2, width, readoutStep);
        for (const Line& line : lines) {
            write(painter, row, Qt::AlignLeft, line.label);
            write(painter, row, Qt::AlignRight, line.value, MixerStyle::letters);
            row.translate(0, readoutStep);
        }
        return;
    }
    QString text;
    for (const Line& line : lines)
        text += (text.isEmpty() ? QString() : QStringLiteral("   ")) + line.value;
    write(painter, QRectF(plot.area.left(), plot.area.top() - 19, plot.area.width(), 18),
          Qt::AlignRight, text, MixerStyle::letters);
}

void AnalyzerPainting::drawHint(QPainter& painter, const AnalyzerPlot& plot, const QString& text)
{
    const auto aboveCurves = plot.area.adjusted(0, 0, 0, -plot.area.height() / 2);
    write(painter, aboveCurves, Qt::AlignHCenter, text);
}

void AnalyzerPainting::drawFocus(QPainter& painter, const QSize& size)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(MixerStyle::accent);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(QPointF(), size).adjusted(8.5, 6.5, -8.5, -7.5), 4, 4);
}
