// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/window/MixerStrip.h"

#include <QAction>
#include <QDockWidget>
#include <QMainWindow>

/// How the tests find what users see in the mixer's windows.
namespace WindowTesting {

template <typename Widget> Widget* named(const QWidget* parent, const QString& name)
{
    for (Widget* widget : parent->findChildren<Widget*>()) {
        if (widget->accessibleName() == name)
            return widget;
    }
    qFatal("no widget %s", qPrintable(name));
}

inline MixerStrip* stripOf(const QMainWindow* window, int channel)
{
    for (MixerStrip* strip : window->findChildren<MixerStrip*>()) {
        if (strip->channel() == channel)
            return strip;
    }
    qFatal("no strip %d", channel);
}

/// Of the menus and tool bars: the one that is called \a text, or else one that begins so.
inline QAction* actionOf(const QMainWindow* window, const QString& text)
{
    QAction* beginning = nullptr;
    for (QAction* found : window->findChildren<QAction*>()) {
        const QString shown = found->text().remove(QLatin1Char('&'));
        if (qobject_cast<QDockWidget*>(found->parent()) || !shown.startsWith(text))
            continue;
        if (shown == text)
            return found;
        beginning = beginning ? beginning : found;
    }
    if (!beginning)
        qFatal("no action %s", qPrintable(text));
    return beginning;
}

} // namespace WindowTesting
