// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/HostStyle.h"

#include "host/window/HostGrounds.h"
#include "host/window/MixerStyle.h"

#include <QIcon>
#include <QPainter>
#include <QPolygonF>
#include <QStyleFactory>
#include <QStyleOption>

#include <iterator>

namespace {

constexpr double boxSize = 12.0;

QString symbolOf(QStyle::StandardPixmap symbol)
{
    switch (symbol) {
    case QStyle::SP_MessageBoxWarning:
        return QStringLiteral("notice_warning");
    case QStyle::SP_MessageBoxCritical:
        return QStringLiteral("notice_error");
    case QStyle::SP_MessageBoxQuestion:
        return QStringLiteral("notice_question");
    case QStyle::SP_MessageBoxInformation:
        return QStringLiteral("notice_information");
    default:
        return {};
    }
}

void drawFrame(QPainter& painter, const QRectF& rect, const QColor& line, const QBrush& inside)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(line);
    painter.setBrush(inside);
    painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    painter.restore();
}

void drawBox(QPainter& painter, const QStyleOption& option)
{
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool on = option.state & QStyle::State_On;
    QRectF box(0, 0, boxSize, boxSize);
    box.moveCenter(QRectF(option.rect).center());
    box.moveTopLeft(box.topLeft().toPoint());
    drawFrame(painter, box,
              !enabled ? MixerStyle::disabledLetters
              : on     ? MixerStyle::accent
                       : MixerStyle::dimLetters,
              on && enabled ? HostGrounds::chosen : HostGrounds::base);
    if (!on)
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(enabled ? QColor(Qt::white) : MixerStyle::disabledLetters, 1.6,
                        Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF mark[] = {{3.2, 6.3}, {5.4, 8.7}, {9.0, 3.8}};
    const QPolygonF line(QList<QPointF>(std::begin(mark), std::end(mark)));
    painter.drawPolyline(line.translated(box.topLeft()));
    painter.restore();
}

} // namespace

HostStyle::HostStyle()
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
{}

int HostStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* data) const
{
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

QIcon HostStyle::standardIcon(StandardPixmap symbol, const QStyleOption* option,
                              const QWidget* widget) const
{
    const QString own = symbolOf(symbol);
    return own.isEmpty() ? QProxyStyle::standardIcon(symbol, option, widget)
                         : QIcon(MixerStyle::image(own));
}

void HostStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const
{
    switch (element) {
    case PE_FrameFocusRect:
        return drawFrame(*painter, option->rect, MixerStyle::accent, Qt::NoBrush);
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        return drawBox(*painter, *option);
    default:
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

#include "moc_HostStyle.cpp"
