// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/AbstractController.h"
#include "controls/ControlAccessible.h"
#include "tests/support/AnnouncementListener.h"
#include "tests/support/TestHost.h"

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QTest>
#include <QWidget>

#include <functional>
#include <utility>

/// What the tests of the buttons share.
namespace ButtonTesting {

/// How often a control's gestures began and ended, and what is done then; outlives the control.
struct Ledger
{
    int begun = 0;
    int ended = 0;
    std::function<void()> atBegin = [] {};
    std::function<void()> atEnd = [] {};

    bool isBalanced() const { return begun == ended; }
};

/// A control whose gestures are counted.
template <typename Control> class Counted : public Control
{
public:
    /// \a arguments are the control's further ones.
    template <typename... Arguments>
    explicit Counted(Ledger& ledger, QWidget* parent = nullptr, const Arguments&... arguments)
        : Control(parent, arguments...)
        , m_ledger(ledger)
    {}
    ~Counted() override { this->closeEdits(); }

protected:
    void beginEdit() override
    {
        ++m_ledger.begun;
        m_ledger.atBegin();
    }
    void endEdit() override
    {
        ++m_ledger.ended;
        m_ledger.atEnd();
    }

private:
    Ledger& m_ledger;
};

template <typename Control>
void bind(Control& control, TestHost& host, int number, unsigned short ch = 0)
{
    control.setMemAPIValue(host.memory(), host.id(TestHost::name(number)), ch, 0);
}

/// A mouse event as the window system hands it to \a widget: \a button changed, \a buttons are down
/// after it. False if the widget, which may be gone afterwards, did not accept it.
inline bool sendMouse(QWidget& widget, QEvent::Type type, const QPoint& position,
                      Qt::MouseButton button, Qt::MouseButtons buttons,
                      Qt::KeyboardModifiers modifiers = {})
{
    QMouseEvent event(type, position, widget.mapToGlobal(position), button, buttons, modifiers);
    QApplication::sendEvent(&widget, &event);
    return event.isAccepted();
}

inline bool press(QWidget& widget, Qt::KeyboardModifiers modifiers = {})
{
    return sendMouse(widget, QEvent::MouseButtonPress, widget.rect().center(), Qt::LeftButton,
                     Qt::LeftButton, modifiers);
}

inline bool drag(QWidget& widget, const QPoint& position)
{
    return sendMouse(widget, QEvent::MouseMove, position, Qt::NoButton, Qt::LeftButton);
}

inline bool release(QWidget& widget, Qt::KeyboardModifiers modifiers = {})
{
    return sendMouse(widget, QEvent::MouseButtonRelease, widget.rect().center(), Qt::LeftButton,
                     Qt::NoButton, modifiers);
}

inline void click(QWidget& widget, Qt::KeyboardModifiers modifiers = {})
{
    const QPointer<QWidget> alive(&widget);
    press(widget, modifiers);
    if (alive)
        release(widget, modifiers);
}

inline constexpr QPoint Outside = {-5, -5};

/// The widget's own pixels on a transparent ground.
inline QImage rendered(QWidget& widget, double devicePixelRatio = 1.0)
{
    QImage image(widget.size() * devicePixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::transparent);
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

/// The smallest rectangle of the pixels that are not transparent.
inline QRect inkBounds(const QImage& image)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 0)
                bounds |= QRect(x, y, 1, 1);
        }
    }
    return bounds;
}

/// "type name = default" of each property that the class itself declares, in order; enumerations
/// and flags by their number, lists by their length.
inline QStringList ownProperties(const QObject& object, const QMetaObject& meta)
{
    QStringList list;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        const QVariant value = property.read(&object);
        const bool isNumber = property.isEnumType() || property.isFlagType();
        const QString text = isNumber ? QString::number(value.toInt())
                             : value.typeId() == QMetaType::QStringList
                                 ? QString::number(value.toStringList().size())
                                 : value.toString();
        list.append(QLatin1String(property.typeName()) + QLatin1Char(' ') +
                    QLatin1String(property.name()) + QLatin1String(" = ") + text);
    }
    return list;
}

/// What every property of the class itself must be: writable, designable, without notify signal.
inline bool arePlain(const QMetaObject& meta)
{
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        if (!property.isReadable() || !property.isWritable() || !property.isDesignable() ||
            property.hasNotifySignal())
            return false;
    }
    return true;
}

/// "signal", "slot" or "private slot" and the signature of each method that the class itself
/// declares, in order.
inline QStringList ownMethods(const QMetaObject& meta)
{
    QStringList list;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        const char* kind = method.methodType() == QMetaMethod::Signal ? "signal "
                           : method.access() == QMetaMethod::Private  ? "private slot "
                                                                      : "slot ";
        list.append(QLatin1String(kind) + QString::fromLatin1(method.methodSignature()));
    }
    return list;
}

/// Collects the values announced to assistive technology while it lives.
class Announcements
{
public:
    /// Those of \a object, in order.
    QList<QVariant> values(const QObject& object) const
    {
        QList<QVariant> values;
        for (const auto& [source, value] : std::as_const(m_list)) {
            if (source == &object)
                values.append(value);
        }
        return values;
    }

private:
    void note(QAccessibleEvent* event)
    {
        if (event->type() == QAccessible::ValueChanged)
            m_list.append(
                {event->object(), static_cast<QAccessibleValueChangeEvent*>(event)->value()});
    }

    QList<std::pair<const QObject*, QVariant>> m_list;
    AnnouncementListener m_listener{[this](QAccessibleEvent* event) { note(event); }};
};

} // namespace ButtonTesting
