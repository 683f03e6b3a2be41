// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/window/Mixer.h"
#include "host/window/MixerStrip.h"
#include "interfaces/IMeterObserver.h"

#include <QAction>
#include <QCoreApplication>
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

/// The library that makes stand-ins for the editor.
inline void loadStandIn(Mixer& mixer)
{
    const Status loaded =
        mixer.library.load(QStringLiteral(HOST_TEST_PLUGINS "/libhost_stand_in.so"));
    if (!loaded.isOk())
        qFatal("%s", qPrintable(loaded.error()));
}

/// The channels whose meters one reading takes, with somebody who observes them.
inline QList<int> metersRead(Mixer& mixer)
{
    struct Producer : MeterProducer
    {
        MeterLevels read(int channel, const HostMemory::Values&, int, double) override
        {
            *seen << channel;
            return {};
        }
        QList<int>* seen = nullptr;
    };
    struct Observer : IMeterObserver
    {
        void notifyMeterLvlUpdated(unsigned int*, unsigned int) override {}
        void notifyMeterDbUpdated(unsigned int*, unsigned int) override {}
    };
    QList<int> channels;
    Observer observer;
    mixer.memory.meters().addMeterObserver(&observer);
    auto producer = std::make_unique<Producer>();
    producer->seen = &channels;
    mixer.meters.setProducer(std::move(producer));
    mixer.meters.advance(0.1);
    mixer.meters.setProducer(std::make_unique<BuiltInSignal>());
    mixer.memory.meters().removeMeterObserver(&observer);
    return channels;
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

/// As from its menu, and waits for what comes after the menu.
inline void choose(QAction* action)
{
    action->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
}

} // namespace WindowTesting
