// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/MixerStyle.h"

#include "controls/PushButtonController.h"

#include <QApplication>
#include <QLinearGradient>
#include <QPainter>

using CommonController_MemAPI::PushButtonController;

namespace {

constexpr int keyHeight = 22;
constexpr int keyWidth = 38;
constexpr int wideWidth = 80;
constexpr int keyFontSize = 11;
constexpr double disabledOpacity = 0.4;

void setLetters(QWidget* widget, const QColor& color)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Active, QPalette::Text, color);
    palette.setColor(QPalette::Inactive, QPalette::Text, color);
    widget->setPalette(palette);
}

void glow(PushButtonController* key, const QString& shape, const QString& color)
{
    const QString name = shape + QLatin1Char('_') + color;
    key->setCheckable(true);
    key->setOnButtonSvg(MixerStyle::image(name + QLatin1String("_up")));
    key->setOnPushButtonSvg(MixerStyle::image(name + QLatin1String("_dw")));
    const bool bright = color == QLatin1String("amber") || color == QLatin1String("white");
    const QColor lit = bright ? QColor(0x10, 0x12, 0x14) : QColor(Qt::white);
    QObject::connect(key, &QAbstractButton::toggled, key,
                     [key, lit](bool on) { setLetters(key, on ? lit : MixerStyle::letters); });
}

} // namespace

QFont MixerStyle::smallFont(const QWidget* widget)
{
    QFont font = widget->font();
    font.setPixelSize(11);
    return font;
}

QString MixerStyle::image(const QString& name)
{
    return QStringLiteral(":/image/mixer/%1.svg").arg(name);
}

void MixerStyle::drawPanel(QPainter& painter, const QRectF& rect)
{
    QLinearGradient face(rect.topLeft(), rect.bottomLeft());
    face.setColorAt(0, QColor(0x2a, 0x2e, 0x34));
    face.setColorAt(1, QColor(0x1b, 0x1e, 0x22));
    painter.fillRect(rect, face);
    const QColor light(0x3b, 0x40, 0x47);
    const QColor dark(0x10, 0x12, 0x14);
    painter.fillRect(QRectF(rect.left(), rect.top(), rect.width(), 1), light);
    painter.fillRect(QRectF(rect.left(), rect.top(), 1, rect.height()), light);
    painter.fillRect(QRectF(rect.right() - 1, rect.top(), 1, rect.height()), dark);
    painter.fillRect(QRectF(rect.left(), rect.bottom() - 1, rect.width(), 1), dark);
}

void MixerStyle::drawWell(QPainter& painter, const QRectF& rect, double radius)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x3b, 0x40, 0x47));
    painter.drawRoundedRect(rect.translated(0, 1), radius, radius);
    painter.setBrush(QColor(0x05, 0x06, 0x07));
    painter.drawRoundedRect(rect, radius, radius);
    const QRectF inner = rect.adjusted(1, 1, -1, -1);
    QLinearGradient glass(inner.topLeft(), inner.bottomLeft());
    glass.setColorAt(0, QColor(0x08, 0x0a, 0x0c));
    glass.setColorAt(1, QColor(0x12, 0x15, 0x19));
    painter.setBrush(glass);
    painter.drawRoundedRect(inner, radius - 1, radius - 1);
}

void MixerStyle::followFocus(QWidget* panel)
{
    QObject::connect(qApp, &QApplication::focusChanged, panel, [panel](QWidget* old, QWidget* now) {
        if ((old && panel->isAncestorOf(old)) || (now && panel->isAncestorOf(now)))
            panel->update();
    });
}

void MixerStyle::drawFocus(QPainter& painter, const QWidget& panel)
{
    const QWidget* focused = QApplication::focusWidget();
    if (!focused || !panel.isAncestorOf(focused))
        return;
    const QRect place(focused->mapTo(&panel, QPoint()), focused->size());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(accent, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(place).adjusted(-2.5, -2.5, 2.5, 2.5), 4, 4);
}

void MixerStyle::enableKey(PushButtonController* key, bool enabled)
{
    key->setEnabled(enabled);
    key->setOpacity(enabled ? 1.0 : disabledOpacity);
}

void MixerStyle::styleKey(PushButtonController* key, const QString& shape, const QString& color)
{
    key->setFixedSize(shape == QLatin1String("wide") ? wideWidth : keyWidth, keyHeight);
    key->setButtonSvg(image(shape + QLatin1String("_up")));
    key->setPushButtonSvg(image(shape + QLatin1String("_dw")));
    key->setFocusPolicy(Qt::TabFocus);
    QFont font = key->font();
    font.setPixelSize(keyFontSize);
    key->setFont(font);
    setLetters(key, letters);
    if (!color.isEmpty())
        glow(key, shape, color);
}
