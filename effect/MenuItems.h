// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSize>

class QPainter;
class QStyleOptionMenuItem;
class QWidget;

/// Draws \a item of \a menu in the editors' look and the menu's zoom: in the menu of a pull-down
/// button an index column and a label, in any other a text and its shortcut, or a separator.
void drawMenuItem(const QStyleOptionMenuItem& item, QPainter* painter, const QWidget& menu);

/// The size that drawMenuItem() needs. Separators keep the width of \a contentsSize. The text is
/// measured without the sign of its mnemonic, or with the line under it if \a underlineShortcut.
QSize menuItemSize(const QStyleOptionMenuItem& item, const QSize& contentsSize, const QWidget& menu,
                   bool underlineShortcut);
