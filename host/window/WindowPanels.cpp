// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/WindowPanels.h"

#include "host/window/HostTheme.h"

#include <QCoreApplication>
#include <QDockWidget>
#include <QLayout>
#include <QMainWindow>
#include <QMouseEvent>
#include <QScreen>
#include <QStyle>

namespace {

int along(Qt::Orientation orientation, const QSize& size)
{
    return orientation == Qt::Horizontal ? size.width() : size.height();
}

void keepOnScreen(QWidget& window)
{
    const QRect room = window.screen()->availableGeometry();
    const QRect frame = window.frameGeometry();
    const QPoint last = room.bottomRight() - QPoint(frame.width() - 1, frame.height() - 1);
    const QPoint place(qMax(room.left(), qMin(frame.left(), last.x())),
                       qMax(room.top(), qMin(frame.top(), last.y())));
    if (place != frame.topLeft())
        window.move(place);
}

} // namespace

QSize growWindow(QWidget& window, const QSize& by)
{
    if (window.isMaximized() || window.isFullScreen())
        return {0, 0};
    const QSize before = window.size();
    const QSize room = window.screen()->availableSize() - (window.frameSize() - before);
    window.resize((before + by).boundedTo(room.expandedTo(before)));
    if (window.isVisible())
        keepOnScreen(window);
    return window.size() - before;
}

void polish(QWidget& widget)
{
    widget.ensurePolished();
    for (QWidget* part : widget.findChildren<QWidget*>()) {
        part->ensurePolished();
        part->updateGeometry();
    }
}

WindowPanels::WindowPanels(QMainWindow& window, const QWidget& center, const QWidget& content)
    : m_window(window)
    , m_center(center)
    , m_content(content)
{
    m_window.setAnimated(false); // sizes are asked for as soon as a panel has come or gone
}

// A dock widget that goes in the middle of its drag loses what it keeps of it.
WindowPanels::~WindowPanels()
{
    for (QDockWidget* panel : m_window.findChildren<QDockWidget*>(Qt::FindDirectChildrenOnly)) {
        QMouseEvent release(QEvent::MouseButtonRelease, QPointF(), QPointF(), Qt::LeftButton,
                            Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(panel, &release);
    }
}

QDockWidget* WindowPanels::add(const QString& name, QWidget* widget, Qt::DockWidgetArea area)
{
    auto* panel = new QDockWidget(&m_window);
    panel->setObjectName(name);
    panel->setWidget(widget);
    panel->setFeatures(QDockWidget::DockWidgetMovable);
    const bool beside = area == Qt::LeftDockWidgetArea || area == Qt::RightDockWidgetArea;
    panel->setAllowedAreas(beside ? Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea
                                  : Qt::TopDockWidgetArea | Qt::BottomDockWidgetArea);
    applyHostSheet(panel);
    polish(*panel);
    m_window.addDockWidget(area, panel);
    panel->hide();
    return panel;
}

void WindowPanels::setShown(QDockWidget* panel, bool shown)
{
    if (panel->isHidden() != shown)
        return;
    if (shown)
        m_rooms[panel] = growWindow(m_window, room(panel, panel->sizeHint()));
    panel->setVisible(shown);
    if (shown)
        fit(panel);
    else
        shrink(panel);
}

void WindowPanels::fit(QDockWidget* panel) const
{
    const Qt::Orientation orientation = orientationOf(panel);
    m_window.layout()->activate();
    const int both = along(orientation, m_center.size() + panel->size());
    const int size =
        qBound(along(orientation, panel->minimumSizeHint()),
               both - along(orientation, m_content.size()), along(orientation, panel->sizeHint()));
    m_window.resizeDocks({panel}, {size}, orientation);
    m_window.layout()->activate();
}

void WindowPanels::fitWindow() const
{
    growWindow(m_window, m_content.size() - m_center.size());
    yield();
    // A scroll bar along one side takes room on the other.
    const QSize missing = m_content.size() - m_center.size();
    const int bar = m_window.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &m_center);
    const auto room = [bar](int here, int there) {
        return there > 0 && here <= 0 ? bar + here : 0;
    };
    growWindow(m_window,
               {room(missing.width(), missing.height()), room(missing.height(), missing.width())});
}

void WindowPanels::yield() const
{
    m_window.layout()->activate();
    for (QDockWidget* panel : m_window.findChildren<QDockWidget*>(Qt::FindDirectChildrenOnly)) {
        const Qt::Orientation orientation = orientationOf(panel);
        const int missing = along(orientation, m_content.size() - m_center.size());
        if (panel->isHidden() || missing <= 0)
            continue;
        const int smallest = along(orientation, panel->minimumSizeHint());
        const int size = qMax(smallest, along(orientation, panel->size()) - missing);
        m_window.resizeDocks({panel}, {size}, orientation);
    }
    m_window.layout()->activate();
}

void WindowPanels::shrink(const QDockWidget* panel)
{
    m_window.layout()->activate();
    const QSize spare = (m_center.size() - m_content.size()).expandedTo({0, 0});
    const QSize grown = m_rooms.value(panel, room(panel, panel->size()));
    growWindow(m_window, -1 * grown.boundedTo(spare));
}

Qt::Orientation WindowPanels::orientationOf(const QDockWidget* panel) const
{
    return panel->isAreaAllowed(Qt::LeftDockWidgetArea) ? Qt::Horizontal : Qt::Vertical;
}

int WindowPanels::separator() const
{
    return m_window.style()->pixelMetric(QStyle::PM_DockWidgetSeparatorExtent, nullptr, &m_window);
}

// What a panel of a size takes from the window.
QSize WindowPanels::room(const QDockWidget* panel, const QSize& size) const
{
    const Qt::Orientation orientation = orientationOf(panel);
    const int extent = along(orientation, size) + separator();
    return orientation == Qt::Horizontal ? QSize(extent, 0) : QSize(0, extent);
}
