// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/AbstractController.h"
#include "controls/ControlAccessible.h"
#include "interfaces/IMemAPI.h"
#include "tests/support/AnnouncementListener.h"
#include "tests/support/TestHost.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QStringList>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>

#include <cmath>
#include <cstring>
#include <memory>
#include <utility>

/// What the tests of the controls share: events as a user's hand makes them and a ledger of the
/// edits.
namespace ControlTesting {

using CommonController_MemAPI::AbstractController;

constexpr Qt::KeyboardModifiers NoKeys = Qt::NoModifier;

// Events -------------------------------------------------------------------------------------

inline bool sendMouse(QWidget& widget, QEvent::Type type, QPointF point, Qt::MouseButton button,
                      Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers = NoKeys)
{
    QMouseEvent event(type, point, widget.mapToGlobal(point), button, buttons, modifiers);
    QCoreApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

inline void press(QWidget& widget, QPointF point, Qt::KeyboardModifiers modifiers = NoKeys,
                  Qt::MouseButton button = Qt::LeftButton)
{
    sendMouse(widget, QEvent::MouseButtonPress, point, button, button, modifiers);
}

inline void moveTo(QWidget& widget, QPointF point, Qt::KeyboardModifiers modifiers = NoKeys,
                   Qt::MouseButtons held = Qt::LeftButton)
{
    sendMouse(widget, QEvent::MouseMove, point, Qt::NoButton, held, modifiers);
}

inline void release(QWidget& widget, QPointF point, Qt::KeyboardModifiers modifiers = NoKeys,
                    Qt::MouseButton button = Qt::LeftButton)
{
    sendMouse(widget, QEvent::MouseButtonRelease, point, button, Qt::NoButton, modifiers);
}

/// As the window system reports it: press, release, double click, release.
inline void doubleClick(QWidget& widget, QPointF point, Qt::KeyboardModifiers modifiers = NoKeys,
                        Qt::MouseButton button = Qt::LeftButton)
{
    press(widget, point, modifiers, button);
    release(widget, point, modifiers, button);
    sendMouse(widget, QEvent::MouseButtonDblClick, point, button, button, modifiers);
    release(widget, point, modifiers, button);
}

/// Whether the control accepted it.
inline bool wheel(QWidget& widget, QPoint angle, Qt::KeyboardModifiers modifiers = NoKeys,
                  bool inverted = false)
{
    const QPointF point(widget.width() / 2, widget.height() / 2);
    QWheelEvent event(point, widget.mapToGlobal(point), {}, angle, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, inverted);
    event.setAccepted(false);
    QCoreApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

inline bool key(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = NoKeys,
                QEvent::Type type = QEvent::KeyPress)
{
    QKeyEvent event(type, key, modifiers);
    return QCoreApplication::sendEvent(&widget, &event) && event.isAccepted();
}

/// Takes the keys that its children leave.
class Window : public QWidget
{
public:
    QList<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { keys << event->key(); }
    void keyReleaseEvent(QKeyEvent* event) override { keys << event->key(); }
};

// Host ---------------------------------------------------------------------------------------

inline const QByteArray Parameter = "test_parameter";

inline void bind(AbstractController& control, const TestHost& host,
                 const QByteArray& name = Parameter, unsigned short ch = 0)
{
    control.setMemAPIValue(host.memory(), host.id(name), ch, 0);
}

inline void unbind(AbstractController& control) { control.setMemAPIValue(nullptr, 0, 0, 0); }

// Edits --------------------------------------------------------------------------------------

struct Ledger
{
    int begun = 0;
    int ended = 0;
    int open() const { return begun - ended; }
    /// Whether there were \a count edits, each begun and ended.
    bool has(int count) const { return begun == count && ended == count; }
};

/// \a Control with its edits counted in a ledger that outlives it.
template <class Control> class Ledgered : public Control
{
public:
    /// \a arguments are the control's further ones.
    template <class... Arguments>
    explicit Ledgered(Ledger& ledger, QWidget* parent = nullptr, const Arguments&... arguments)
        : Control(parent, arguments...)
        , m_ledger(ledger)
    {}
    ~Ledgered() override { this->closeEdits(); }

protected:
    void beginEdit() override { ++m_ledger.begun; }
    void endEdit() override { ++m_ledger.ended; }

private:
    Ledger& m_ledger;
};

/// A move of a drag and the value after it; the first of a list is the press.
struct Move
{
    QPointF to;
    int value;
    Qt::KeyboardModifiers modifiers = {};
};
using Moves = QList<Move>;

inline void dragThrough(QWidget& control, const Moves& moves)
{
    for (qsizetype i = 0; i < moves.size(); ++i) {
        if (i == 0)
            press(control, moves[i].to, moves[i].modifiers);
        else
            moveTo(control, moves[i].to, moves[i].modifiers);
        QCOMPARE(dynamic_cast<AbstractController&>(control).value(), moves[i].value);
    }
    release(control, moves.last().to);
}

/// What can come between the press and the release of a drag.
inline const QStringList Interruptions = {
    QStringLiteral("disabled"),     QStringLiteral("parent disabled"),
    QStringLiteral("hidden"),       QStringLiteral("parent hidden"),
    QStringLiteral("rebound"),      QStringLiteral("unbound"),
    QStringLiteral("destroyed"),    QStringLiteral("parent destroyed"),
    QStringLiteral("pressed again")};

/// Does one of them to \a control, which is bound to Parameter on channel 0 and a child of
/// \a parent; what is destroyed is null afterwards.
template <class Control>
void interrupt(const QString& how, std::unique_ptr<QWidget>& parent, QPointer<Control>& control,
               const TestHost& host)
{
    QWidget& target = how.startsWith(QLatin1String("parent")) ? *parent : *control;
    if (how.endsWith(QLatin1String("disabled")))
        target.setEnabled(false);
    else if (how.endsWith(QLatin1String("hidden")))
        target.hide();
    else if (how == QLatin1String("rebound"))
        bind(dynamic_cast<AbstractController&>(*control), host, Parameter, 3);
    else if (how == QLatin1String("unbound"))
        unbind(dynamic_cast<AbstractController&>(*control));
    else if (how == QLatin1String("destroyed"))
        delete control.data();
    else if (how == QLatin1String("parent destroyed"))
        parent.reset();
    else
        press(*control, {20, 5});
}

// Accessibility ------------------------------------------------------------------------------

/// Collects the announcements of value changes while it lives.
class Announcements
{
public:
    /// Those of \a object, in order.
    QList<QVariant> values(const QObject& object) const
    {
        QList<QVariant> values;
        for (const auto& [source, value] : m_values) {
            if (source == &object)
                values.append(value);
        }
        return values;
    }

private:
    void note(QAccessibleEvent* event)
    {
        if (event->type() == QAccessible::ValueChanged)
            m_values.append(
                {event->object(), static_cast<QAccessibleValueChangeEvent*>(event)->value()});
    }

    QList<std::pair<const QObject*, QVariant>> m_values;
    AnnouncementListener m_listener{[this](QAccessibleEvent* event) { note(event); }};
};

// Virtual functions --------------------------------------------------------------------------

/// Calls the virtual function at \a slot of the object at \a object.
template <class Result, class... Arguments>
Result callSlot(void* object, int slot, Arguments... arguments)
{
    const auto* table = *static_cast<void***>(object);
    return reinterpret_cast<Result (*)(void*, Arguments...)>(table[slot])(object, arguments...);
}

/// How many virtual functions come before those of a class derived from \a Base.
template <class Base> int firstSlotAfter()
{
    struct Probe : Base
    {
        virtual void first() {}
    };
    const auto member = &Probe::first;
    std::ptrdiff_t offset = 0;
    std::memcpy(&offset, &member, sizeof offset);
    return static_cast<int>((offset - 1) / static_cast<std::ptrdiff_t>(sizeof(void*)));
}

// Pictures -----------------------------------------------------------------------------------

/// \a widget as it paints itself on \a ground at a device pixel ratio of \a ratio.
inline QImage painted(QWidget& widget, double ratio = 1.0, QColor ground = Qt::black)
{
    QImage image(QSize(static_cast<int>(std::ceil(widget.width() * ratio)),
                       static_cast<int>(std::ceil(widget.height() * ratio))),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(ground);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

} // namespace ControlTesting
