// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/LevelFader.h"

#include "controls/FaderController.h"
#include "host/window/MixerStyle.h"
#include "parameters/StripTable.h"

#include <QPainter>

using CommonController_MemAPI::FaderController;

namespace {

constexpr int labelWidth = 23;
constexpr int capHeight = 56;
constexpr int tickStep = 10;
constexpr double grooveWidth = 6.0;
constexpr int faderFontSize = 9;

struct ScaleMark
{
    int position;
    const char* text;
};
constexpr ScaleMark faderScale[] = {
    {400, "+10"}, {300, "0"}, {200, "-10"}, {100, "-30"}, {0, "-\u221e"}};

void drawTick(QPainter& painter, const QRectF& sides, double y, double length, float opacity)
{
    QColor color = MixerStyle::dimLetters;
    color.setAlphaF(opacity);
    painter.fillRect(QRectF(sides.left() + 1, y - 0.5, length, 1), color);
    painter.fillRect(QRectF(sides.right() - 1 - length, y - 0.5, length, 1), color);
}

} // namespace

LevelFader::LevelFader(QWidget* parent)
    : QWidget(parent)
    , m_fader(new FaderController(this))
{
    m_fader->setKnobSvg(MixerStyle::image(QStringLiteral("fader_cap")));
    m_fader->setShadowSvg(MixerStyle::image(QStringLiteral("fader_shadow")));
    m_fader->setEnableDoubleClick(true);
    m_fader->setOperationType(FaderController::Relative);
    m_fader->setFocusPolicy(Qt::StrongFocus);
}

void LevelFader::resizeEvent(QResizeEvent*)
{
    m_fader->setGeometry(labelWidth + 1, 0, faderWidth - labelWidth - 1, height());
}

void LevelFader::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF sides = m_fader->geometry();
    for (int position = 0; position <= highestLevel; position += tickStep)
        drawTick(painter, sides, yOf(position), 5, 0.32F);
    const QRectF groove(sides.center().x() - grooveWidth / 2, 4, grooveWidth, height() - 8);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x08, 0x09, 0x0b));
    painter.drawRoundedRect(groove, 3, 3);
    QFont font = painter.font();
    font.setPixelSize(faderFontSize);
    painter.setFont(font);
    for (const ScaleMark& mark : faderScale) {
        const double y = yOf(mark.position);
        drawTick(painter, sides, y, 9, 0.75F);
        painter.setPen(MixerStyle::dimLetters);
        painter.drawText(QRectF(0, y - 8, labelWidth, 16), Qt::AlignRight | Qt::AlignVCenter,
                         QString::fromUtf8(mark.text));
    }
}

double LevelFader::yOf(int position) const
{
    const double travel = height() - capHeight;
    return capHeight / 2.0 + travel * (1.0 - double(position) / highestLevel);
}

#include "moc_LevelFader.cpp"
