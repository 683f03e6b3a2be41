// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/FocusMark.h"

#include "effect/PixelRounding.h"
#include "effect/WidgetScale.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>

namespace {

constexpr QColor MarkColor(0x03, 0x94, 0xD0);
constexpr double Margin = 2.0;
constexpr double LineWidth = 1.5;
constexpr double CornerRadius = 4.0;

} // namespace

FocusMark::FocusMark(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    connect(qApp, &QApplication::focusChanged, this, &FocusMark::follow);
}

void FocusMark::frame(QWidget* target)
{
    if (m_target)
        m_target->removeEventFilter(this);
    m_target = target;
    if (m_target)
        m_target->installEventFilter(this);
    follow();
}

bool FocusMark::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
        follow();
    return QWidget::eventFilter(watched, event);
}

void FocusMark::paintEvent(QPaintEvent*)
{
    const double scale = getWidgetScale(this);
    const double inset = LineWidth * scale / 2.0;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(MarkColor, LineWidth * scale));
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset),
                            CornerRadius * scale, CornerRadius * scale);
}

void FocusMark::follow()
{
    const bool framed = m_target && m_target->hasFocus();
    if (framed) {
        const int margin = roundToPixel(Margin * getWidgetScale(this));
        setGeometry(QRect(m_target->mapTo(parentWidget(), QPoint()), m_target->size())
                        .adjusted(-margin, -margin, margin, margin));
        raise();
    }
    setVisible(framed);
}

#include "moc_FocusMark.cpp"
