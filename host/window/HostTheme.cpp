// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/HostTheme.h"

#include "host/window/HostGrounds.h"
#include "host/window/HostStyle.h"
#include "host/window/MixerStyle.h"

#include <QApplication>
#include <QFontDatabase>
#include <QIcon>
#include <QPalette>
#include <QWidget>

namespace {

const QString typeFace = QStringLiteral("M+ 1c"); // the editor's

QPalette hostPalette()
{
    QPalette palette{HostGrounds::button, HostGrounds::window};
    palette.setColor(QPalette::Base, HostGrounds::base);
    palette.setColor(QPalette::AlternateBase, HostGrounds::stripe);
    palette.setColor(QPalette::ToolTipBase, HostGrounds::button);
    palette.setColor(QPalette::Highlight, HostGrounds::chosen);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, MixerStyle::link);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, MixerStyle::letters);
        palette.setColor(QPalette::Disabled, role, MixerStyle::disabledLetters);
    }
    palette.setColor(QPalette::PlaceholderText, MixerStyle::dimLetters);
    return palette;
}

// The size stays the desktop's.
void applyTypeFace()
{
    if (!QFontDatabase::hasFamily(typeFace))
        return;
    QFont font = QApplication::font();
    font.setFamilies({typeFace});
    font.setWeight(QFont::Medium);
    QApplication::setFont(font);
}

} // namespace

void applyHostTheme()
{
    QApplication::setStyle(new HostStyle);
    QApplication::setPalette(hostPalette());
    applyTypeFace();
    QApplication::setWindowIcon(QIcon(MixerStyle::image(QStringLiteral("zolta-host"))));
}

void applyHostSheet(QWidget* widget)
{
    widget->setStyleSheet(
        QStringLiteral(
            "QToolBar { background: %1; border: 0; border-bottom: 1px solid #101214;"
            "  padding: 4px 8px; spacing: 6px; }"
            "QToolBar QToolButton { color: %4; background: %2; border: 1px solid #101214;"
            "  border-radius: 3px; padding: 3px 10px; }"
            "QToolBar QToolButton:hover { background: %6; }"
            "QToolBar QToolButton:pressed { background: #0b4f6e; color: #ffffff; }"
            "QToolBar QToolButton:disabled { color: %9; }"
            "QToolBar QToolButton:checked { background: %5; color: #ffffff; }"
            "QToolBar QToolButton:focus { border-color: #0394d0; }"
            "QToolBar QToolButton#qt_toolbar_ext_button { padding: 0; }"
            "QToolBar QToolButton::menu-indicator { subcontrol-origin: padding;"
            "  subcontrol-position: right center; right: 5px; }"
            "QToolBar QLabel { color: %3; padding-left: 10px; }"
            "QDockWidget { color: %3; }"
            "QDockWidget::title { background: %1; border-bottom: 1px solid #101214;"
            "  padding: 5px 4px; }"
            "QTableView { background: %7; alternate-background-color: %8; border: 0;"
            "  gridline-color: %1; selection-background-color: #0b4f6e; }"
            "QTableView::item { padding: 0 6px; }"
            "QTreeView { background: %7; border: 0; }"
            "QTreeView::item { padding: 5px 8px; }"
            "QTreeView::item:hover { background: %1; }"
            "QTreeView::item:selected { background: #0b4f6e; color: #ffffff; }"
            "QHeaderView { background: %1; }"
            "QHeaderView::section { background: %1; color: %3; border: 0;"
            "  border-bottom: 1px solid #101214; padding: 5px 6px; }")
            .arg(HostGrounds::window.name(), HostGrounds::button.name(),
                 MixerStyle::dimLetters.name(), MixerStyle::letters.name(),
                 HostGrounds::chosen.name(), HostGrounds::hovered.name(), HostGrounds::base.name(),
                 HostGrounds::stripe.name(), MixerStyle::disabledLetters.name()));
}
