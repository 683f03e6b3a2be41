// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/graph/GraphFixture.h"
#include "tests/support/AnnouncementListener.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QTest>

#include <vector>

/// A bound graph in the active window.
class ActiveGraph : public GraphFixture
{
public:
    explicit ActiveGraph(QSize size = DesignSize)
        : GraphFixture(size)
    {
        bind();
        activate();
    }

    void activate()
    {
        editor.show();
        editor.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&editor));
    }
    bool focus(int band) const { return graph->focusHandle(targetOf(band)); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(graph, key, modifiers);
    }
};

/// Counts the key presses that reach a widget while it lives, those of modifiers apart.
class KeyCounter : public QObject
{
public:
    explicit KeyCounter(QObject* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        count +=
            event->type() == QEvent::KeyPress && !isModifier(static_cast<QKeyEvent*>(event)->key());
        return false;
    }
    static bool isModifier(int key) { return key >= Qt::Key_Shift && key <= Qt::Key_Alt; }
    int count = 0;
};

/// Collects what is announced to assistive technology while it lives.
class Announcements
{
public:
    struct Item
    {
        QAccessible::Event type;
        int child;
        double value; ///< of a change of value, otherwise 0
        bool operator==(const Item&) const = default;
    };

    /// Since the last call.
    std::vector<Item> take() { return std::exchange(m_items, {}); }

private:
    void note(QAccessibleEvent* event)
    {
        // What a screen reader is led to has to be there.
        Q_ASSERT(event->accessibleInterface());
        double value = 0.0;
        if (event->type() == QAccessible::ValueChanged)
            value = static_cast<QAccessibleValueChangeEvent*>(event)->value().toDouble();
        m_items.push_back({event->type(), event->child(), value});
    }

    std::vector<Item> m_items;
    AnnouncementListener m_listener{[this](QAccessibleEvent* event) { note(event); }};
};
