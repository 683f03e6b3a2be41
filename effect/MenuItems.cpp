// SPDX-License-Identifier: GPL-3.0-or-later
#include "effect/MenuItems.h"

#include "controls/PullDownMenu.h"
#include "effect/EditorFonts.h"
#include "effect/MenuColours.h"
#include "effect/PixelRounding.h"
#include "effect/WidgetScale.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <QPen>
#include <QStyleOptionMenuItem>
#include <QWidget>

#include <algorithm>

using CommonController_MemAPI::PullDownButtonControllerPrivate::Menu;

namespace {

constexpr int ItemFontSize = 11;
constexpr int ItemTextFlags =
    Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip | Qt::TextShowMnemonic;

constexpr int IndexTextFlags = Qt::AlignCenter | Qt::TextSingleLine;
constexpr int LabelTextFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine;

bool isEnabled(const QStyleOption& item) { return item.state.testFlag(QStyle::State_Enabled); }

bool isSunken(const QStyleOption& item) { return item.state.testFlag(QStyle::State_Sunken); }

bool isActive(const QStyleOption& item)
{
    return item.state.testAnyFlags(QStyle::State_Selected | QStyle::State_Sunken);
}

bool isChecked(const QStyleOptionMenuItem& item)
{
    return item.checkType != QStyleOptionMenuItem::NotCheckable && item.checked;
}

QColor textColor(const QStyleOptionMenuItem& item)
{
    if (!isEnabled(item))
        return MenuForegroundDisableColor;
    return isActive(item) || isChecked(item) ? MenuForegroundSelectedColor
                                             : MenuForegroundEnableColor;
}

QColor highlightColor(const QStyleOption& item)
{
    if (!isEnabled(item))
        return MenuItemBackgroundDisableColor;
    return isSunken(item) ? MenuItemBackgroundSelectColor : MenuItemBackgroundFocusColor;
}

/// The font of an ordinary item: the menu's, if it is one of the editor's.
QFont itemFont(const QWidget& menu, double scale)
{
    QFont font = menu.font();
    if (!isEditorFontFamily(font.family())) {
        font.setFamily(EditorDefaultFontFamily);
        font.setPixelSize(std::max(roundToPixel(ItemFontSize * scale), 1));
    }
    return font;
}

/// The width reserved for shortcuts, which Qt measured in \a measured, in the item font's size.
int shortcutWidth(const QStyleOptionMenuItem& item, const QFont& measured, double scale)
{
    const int size = measured.pixelSize() > 0 ? measured.pixelSize() : measured.pointSize();
    if (isEditorFontFamily(measured.family()) || size <= 0)
        return item.reservedShortcutWidth;
    return roundToPixel(scale * ItemFontSize / size * item.reservedShortcutWidth);
}

void drawItemBackground(const QStyleOptionMenuItem& item, QPainter* painter)
{
    painter->fillRect(item.rect, MenuBackgroundColor);
    if (isActive(item))
        painter->fillRect(item.rect, highlightColor(item));
}

void drawSeparator(const QRect& rect, QPainter* painter)
{
    const int y = static_cast<int>(rect.height() * 0.5 + rect.top());
    painter->drawLine(rect.left(), y, rect.right() + 1, y);
}

/// \a widget if it is the menu of a pull-down button that still exists; null for any other.
const Menu* pullDownMenu(const QWidget& widget)
{
    const auto* menu = qobject_cast<const Menu*>(&widget);
    return menu && menu->owner() ? menu : nullptr;
}

/// The items of a pull-down menu: an index column, if the button has one, and the label.
struct PullDownColumns
{
    PullDownColumns(const Menu& menu, double scale)
        : hasIndex(menu.indexWidth() > 0)
        , side(roundToPixel(4 * scale))
        , indexWidth(hasIndex ? roundToPixel(menu.indexWidth() * scale) : 0)
        , indexMargin(hasIndex ? roundToPixel(menu.indexMargin() * scale) : 0)
    {}

    QString index(const QString& text) const
    {
        return hasIndex ? text.section(QLatin1Char(' '), 0, 0) : QString();
    }
    QString label(const QString& text) const
    {
        return hasIndex ? text.section(QLatin1Char(' '), 1) : text;
    }

    bool hasIndex;
    int side;        // left of the index and right of the label
    int indexWidth;  // 0 without an index, as is the margin
    int indexMargin; // between index and label, around the line
};

/// The part of an item from \a left to \a right, both included and both counted in left to right
/// layouts, less a margin above and below.
QRect itemPart(const QStyleOptionMenuItem& item, double scale, int left, int right)
{
    const int margin = roundToPixel(scale);
    const QRect rect(QPoint(left, item.rect.top() + margin),
                     QPoint(right, item.rect.bottom() - margin));
    return QStyle::visualRect(item.direction, item.rect, rect);
}

void drawIndexLine(const QStyleOptionMenuItem& item, QPainter* painter,
                   const PullDownColumns& columns, double scale)
{
    const QPen itemPen = painter->pen();
    const int offset = columns.side + columns.indexWidth + item.rect.left();
    const QRect middle(static_cast<int>(columns.indexMargin * 0.5 + offset), item.rect.top(), 1, 1);
    const int x = QStyle::visualRect(item.direction, item.rect, middle).left();
    painter->setPen(
        QPen(MenuForegroundEnableColor, scale, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter->drawLine(x, item.rect.top(), x, item.rect.bottom() + 1);
    painter->setPen(itemPen);
}

void drawPullDownTexts(const QStyleOptionMenuItem& item, QPainter* painter, const Menu& menu,
                       double scale)
{
    const PullDownColumns columns(menu, scale);
    const int left = item.rect.left() + columns.side;
    const int right = item.rect.right() - columns.side;
    const int labelLeft = left + columns.indexMargin + columns.indexWidth;
    if (columns.hasIndex)
        painter->drawText(itemPart(item, scale, left, left + columns.indexWidth - 1),
                          IndexTextFlags, columns.index(item.text));
    if (columns.indexMargin > 0)
        drawIndexLine(item, painter, columns, scale);
    painter->drawText(itemPart(item, scale, labelLeft, right), LabelTextFlags,
                      columns.label(item.text));
}

/// Draws \a text from \a left to \a right, both included, of the item that is mirrored in right to
/// left layouts.
void drawItemText(const QStyleOptionMenuItem& item, QPainter* painter, double scale, int left,
                  int right, const QString& text)
{
    painter->drawText(itemPart(item, scale, left, right), ItemTextFlags, text);
}

void drawTexts(const QStyleOptionMenuItem& item, QPainter* painter, const QWidget& menu,
               double scale)
{
    if (!isEditorFontFamily(menu.font().family()))
        painter->setFont(itemFont(menu, scale));
    const int margin = roundToPixel(10 * scale);
    const int left = item.rect.left() + margin;
    const int right = item.rect.right() - margin;
    const qsizetype tab = item.text.indexOf(QLatin1Char('\t'));
    if (tab < 0) {
        drawItemText(item, painter, scale, left, right, item.text);
        return;
    }
    const int reserved = shortcutWidth(item, menu.font(), scale);
    drawItemText(item, painter, scale, left, right - reserved - margin, item.text.left(tab));
    drawItemText(item, painter, scale, right - reserved + 1, right, item.text.mid(tab + 1));
}

/// A pull-down list is never narrower than its button less the frame.
QSize pullDownItemSize(const QStyleOptionMenuItem& item, const Menu& menu, double scale)
{
    const PullDownColumns columns(menu, scale);
    const QSize text = item.fontMetrics.size(Qt::TextSingleLine, item.text);
    const QSize label = item.fontMetrics.size(Qt::TextSingleLine, columns.label(item.text));
    const int width = label.width() + columns.indexWidth + columns.indexMargin + 2 * columns.side;
    return {std::max(width, menu.owner()->width() - 2 * roundToPixel(scale)),
            text.height() + 2 * roundToPixel(scale)};
}

} // namespace

void drawMenuItem(const QStyleOptionMenuItem& item, QPainter* painter, const QWidget& menu)
{
    const double scale = getWidgetScale(&menu);
    const QColor color = textColor(item);
    painter->save();
    painter->setRenderHint(QPainter::TextAntialiasing, false);
    painter->setPen(QPen(color, scale, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter->setBrush(color);
    drawItemBackground(item, painter);
    if (const Menu* pullDown = pullDownMenu(menu))
        drawPullDownTexts(item, painter, *pullDown, scale);
    else if (item.menuItemType == QStyleOptionMenuItem::Separator)
        drawSeparator(item.rect, painter);
    else if (!item.text.isEmpty())
        drawTexts(item, painter, menu, scale);
    painter->restore();
}

QSize menuItemSize(const QStyleOptionMenuItem& item, const QSize& contentsSize, const QWidget& menu,
                   bool underlineShortcut)
{
    const double scale = getWidgetScale(&menu);
    if (const Menu* pullDown = pullDownMenu(menu))
        return pullDownItemSize(item, *pullDown, scale);
    if (item.menuItemType == QStyleOptionMenuItem::Separator)
        return {contentsSize.width(), roundToPixel(5 * scale)};
    const QFontMetrics metrics(itemFont(menu, scale));
    const int margin = roundToPixel(10 * scale);
    const qsizetype tab = item.text.indexOf(QLatin1Char('\t'));
    QSize size = metrics.size(Qt::TextSingleLine | Qt::TextDontClip |
                                  (underlineShortcut ? Qt::TextShowMnemonic : Qt::TextHideMnemonic),
                              item.text.left(tab));
    if (tab >= 0) {
        const QSize shortcut =
            metrics.size(Qt::TextSingleLine | Qt::TextShowMnemonic, item.text.mid(tab + 1));
        size = QSize(size.width() + margin + shortcut.width(),
                     std::max(size.height(), shortcut.height()));
    }
    return {size.width() + 2 * margin, std::max(size.height() + 2 * roundToPixel(scale), margin)};
}
