// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/HostTheme.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>
#include <QWidget>

namespace {

constexpr QRgb window = 0xFF22262B;
constexpr QRgb base = 0xFF16191C;
constexpr QRgb stripe = 0xFF1B1E22;
constexpr QRgb button = 0xFF2A2E34;
constexpr QRgb letters = 0xFFD7DCE1;
constexpr QRgb dimLetters = 0xFF6B737B;
constexpr QRgb accent = 0xFF0394D0;
constexpr QRgb white = 0xFFFFFFFF;

QPalette hostPalette()
{
    QPalette palette{QColor(button), QColor(window)};
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, stripe);
    palette.setColor(QPalette::ToolTipBase, button);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, white);
    palette.setColor(QPalette::Link, accent);
    palette.setColor(QPalette::PlaceholderText, dimLetters);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, letters);
        palette.setColor(QPalette::Disabled, role, dimLetters);
    }
    return palette;
}

} // namespace

void applyHostTheme()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(hostPalette());
}

void applyHostSheet(QWidget* widget)
{
    widget->setStyleSheet(QStringLiteral(
        "QToolBar { background: #22262b; border: 0; border-bottom: 1px solid #101214;"
        "  padding: 4px 8px; spacing: 6px; }"
        "QToolBar QToolButton { color: #d7dce1; background: #2a2e34; border: 1px solid #101214;"
        "  border-radius: 3px; padding: 3px 10px; }"
        "QToolBar QToolButton:hover { background: #343a41; }"
        "QToolBar QToolButton:checked { background: #0378a8; color: #ffffff; }"
        "QToolBar QToolButton:focus { border-color: #0394d0; }"
        "QToolBar QToolButton#qt_toolbar_ext_button { padding: 0; }"
        "QToolBar QLabel { color: #8a9199; padding-left: 10px; }"
        "QDockWidget { color: #8a9199; }"
        "QDockWidget::title { background: #22262b; border-bottom: 1px solid #101214;"
        "  padding: 5px 4px; }"
        "QTableView { background: #16191c; alternate-background-color: #1b1e22; border: 0;"
        "  gridline-color: #22262b; selection-background-color: #0b4f6e; }"
        "QTableView::item { padding: 0 6px; }"
        "QTableView::indicator { width: 10px; height: 10px; background: #0b0d10;"
        "  border: 1px solid #8a9199; border-radius: 2px; }"
        "QTableView::indicator:checked { background: #0378a8; border-color: #0394d0;"
        "  image: url(:/image/mixer/mark_on.svg); }"
        "QTreeView { background: #16191c; border: 0; }"
        "QTreeView::item { padding: 5px 8px; }"
        "QTreeView::item:hover { background: #22262b; }"
        "QTreeView::item:selected { background: #0b4f6e; color: #ffffff; }"
        "QHeaderView { background: #22262b; }"
        "QHeaderView::section { background: #22262b; color: #8a9199; border: 0;"
        "  border-bottom: 1px solid #101214; padding: 5px 6px; }"));
}
