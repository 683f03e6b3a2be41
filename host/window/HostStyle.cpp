// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/HostStyle.h"

#include "host/window/MixerStyle.h"

#include <QIcon>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

namespace {

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
    if (element != PE_FrameFocusRect)
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(MixerStyle::accent);
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    painter->restore();
}

#include "moc_HostStyle.cpp"
