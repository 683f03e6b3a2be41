// SPDX-License-Identifier: GPL-3.0-or-later
#include "effect/EffectStyle.h"

#include "effect/MenuColours.h"
#include "effect/MenuItems.h"
#include "effect/PixelRounding.h"
#include "effect/WidgetScale.h"
#include "widgets/TextPixels.h"

#include <QPainter>
#include <QStyleOptionMenuItem>
#include <QWidget>

namespace {

void drawFrame(const QRect& rect, QPainter* painter, double scale)
{
    const double width = rect.width();
    const double height = rect.height();
    // The right and the bottom strip are a tenth wider, deliberately.
    const QRectF strips[] = {{0.0, 0.0, width, scale},
                             {width - scale - 0.1, 0.0, scale + 0.1, height},
                             {0.0, height - scale - 0.1, width, scale + 0.1},
                             {0.0, 0.0, scale, height}};
    for (const QRectF& strip : strips)
        painter->fillRect(strip, QBrush(MenuForegroundSelectedColor));
}

} // namespace

EffectStyle::EffectStyle(QStyle* style)
    : QProxyStyle(style)
{}

void EffectStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const
{
    if (element == PE_PanelMenu && widget)
        painter->fillRect(0, 0, widget->width(), widget->height(), MenuBackgroundColor);
    else if (element == PE_FrameMenu)
        drawFrame(option->rect, painter, getWidgetScale(widget));
    else
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void EffectStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const
{
    if (element == CE_MenuEmptyArea)
        return;
    if (element != CE_MenuItem) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (item && painter && widget)
        drawMenuItem(*item, painter, *widget);
}

void EffectStyle::drawItemText(QPainter* painter, const QRect& rect, int flags,
                               const QPalette& palette, bool isEnabled, const QString& text,
                               QPalette::ColorRole role) const
{
    const auto draw = [&] {
        QProxyStyle::drawItemText(painter, rect, flags, palette, isEnabled, text, role);
    };
    if (isEnabled && role != QPalette::NoRole)
        TextPixels::draw(*painter, {text, rect, flags, palette.brush(role)}, draw);
    else
        draw();
}

int EffectStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                             const QWidget* widget) const
{
    switch (metric) {
    case PM_MenuScrollerHeight:
    case PM_MenuHMargin:
    case PM_MenuVMargin:
    case PM_MenuTearoffHeight:
        return 0;
    case PM_MenuPanelWidth:
        return roundToPixel(getWidgetScale(widget));
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QSize EffectStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                    const QSize& contentsSize, const QWidget* widget) const
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuItem || !item || !widget)
        return QProxyStyle::sizeFromContents(type, option, contentsSize, widget);
    const bool underlineShortcut = proxy()->styleHint(SH_UnderlineShortcut, option, widget) != 0;
    return menuItemSize(*item, contentsSize, *widget, underlineShortcut);
}

int EffectStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* returnData) const
{
    if (hint == SH_Menu_Mask)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

#include "moc_EffectStyle.cpp"
