// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QSize>
#include <QString>

class QDockWidget;
class QMainWindow;
class QWidget;

/// Makes a window larger or smaller by so much, as far as its screen allows, and keeps it on the
/// screen. Returns how far it was; a maximized window stays as it is.
QSize growWindow(QWidget& window, const QSize& by);

/// Gives a widget and what it holds their looks now, so that their sizes can be asked for before
/// they are seen.
void polish(QWidget& widget);

/// The dock widgets around what a window shows. One that the user switches on makes the window
/// larger, and one that goes makes it smaller again, but not smaller than what it is about.
class WindowPanels
{
public:
    /// \a content stands in \a center, which is the window's central widget. All of them must
    /// outlive the panels' use.
    WindowPanels(QMainWindow& window, const QWidget& center, const QWidget& content);
    /// Ends a panel's drag.
    ~WindowPanels();
    WindowPanels(const WindowPanels&) = delete;
    WindowPanels& operator=(const WindowPanels&) = delete;

    /// Puts \a widget in a hidden dock widget, which users may move to the opposite side of the
    /// window. \a name is what the window's state calls it.
    QDockWidget* add(const QString& name, QWidget* widget, Qt::DockWidgetArea area);
    void setShown(QDockWidget* panel, bool shown);
    /// Gives a panel what the content leaves, within the panel's own smallest and best size.
    void fit(QDockWidget* panel) const;
    /// Gives the window the size that shows all of the content, as far as the screen allows; where
    /// it does not, panels become as small as they can be.
    void fitWindow() const;

private:
    void yield() const;
    void shrink(const QDockWidget* panel);
    Qt::Orientation orientationOf(const QDockWidget* panel) const;
    int separator() const;
    QSize room(const QDockWidget* panel, const QSize& size) const;

    QMainWindow& m_window;
    const QWidget& m_center;
    const QWidget& m_content;
    QHash<const QDockWidget*, QSize> m_rooms; // what the window has grown by for each
};
