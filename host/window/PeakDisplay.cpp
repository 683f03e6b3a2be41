// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/PeakDisplay.h"

#include "engine/ChannelMeters.h"
#include "host/window/MixerStyle.h"
#include "parameters/ParameterText.h"

#include <QPainter>

namespace {

constexpr int lampHeight = 4;
constexpr int peakFontSize = 10;
constexpr QColor litLamp = MixerStyle::meterClipped;
constexpr QColor darkLamp{0x6e, 0x2a, 0x2d};

QString textOf(int level)
{
    return level <= MeterLevels::lowest ? QStringLiteral("-\u221e")
                                        : QString::fromStdString(formatTenths(level));
}

} // namespace

PeakDisplay::PeakDisplay(QWidget* parent)
    : QAbstractButton(parent)
    , m_highest(MeterLevels::lowest)
{
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    retranslate();
    connect(this, &QAbstractButton::clicked, this, &PeakDisplay::clear);
}

void PeakDisplay::take(int level)
{
    if (level <= m_highest)
        return;
    m_highest = level;
    retranslate();
}

void PeakDisplay::clear()
{
    m_highest = MeterLevels::lowest;
    retranslate();
}

void PeakDisplay::retranslate()
{
    setText(textOf(m_highest));
    setAccessibleDescription(hasClipped() ? tr("%1 dB, clipped").arg(text())
                                          : tr("%1 dB").arg(text()));
}

void PeakDisplay::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    MixerStyle::drawWell(painter, rect(), 3);
    QFont digits = font();
    digits.setPixelSize(peakFontSize);
    painter.setFont(digits);
    painter.setPen(hasClipped() ? litLamp : MixerStyle::letters);
    painter.drawText(rect().adjusted(0, lampHeight, 0, 0), Qt::AlignCenter, text());
    painter.setPen(Qt::NoPen);
    painter.setBrush(hasClipped() ? litLamp : darkLamp);
    painter.drawRoundedRect(QRectF(3, 2, width() - 6, lampHeight - 1), 1, 1);
}

#include "moc_PeakDisplay.cpp"
