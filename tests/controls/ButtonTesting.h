// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/controls/ControlTesting.h"

#include <QImage>

/// What the tests of the buttons share.
namespace ButtonTesting {

using ControlTesting::Announcements;
using ControlTesting::Ledger;
using ControlTesting::Ledgered;
using ControlTesting::sendMouse;

inline constexpr QPoint Outside = {-5, -5};

inline void bind(ControlTesting::AbstractController& control, const TestHost& host, int number,
                 unsigned short ch = 0)
{
    ControlTesting::bind(control, host, TestHost::name(number), ch);
}

/// The values that were written to \a host.
inline QList<int> written(const TestHost& host)
{
    QList<int> values;
    for (const TestHost::Write& write : host.writes())
        values.append(write.value);
    return values;
}

/// False if the widget, which may be gone afterwards, did not accept it.
inline bool press(QWidget& widget, Qt::KeyboardModifiers modifiers = {})
{
    return sendMouse(widget, QEvent::MouseButtonPress, widget.rect().center(), Qt::LeftButton,
                     Qt::LeftButton, modifiers);
}

inline void drag(QWidget& widget, QPoint point) { ControlTesting::moveTo(widget, point); }

inline void release(QWidget& widget, Qt::KeyboardModifiers modifiers = {})
{
    ControlTesting::release(widget, widget.rect().center(), modifiers);
}

inline void click(QWidget& widget, Qt::KeyboardModifiers modifiers = {})
{
    press(widget, modifiers);
    release(widget, modifiers);
}

/// The widget's own pixels on a transparent ground.
inline QImage rendered(QWidget& widget)
{
    return ControlTesting::painted(widget, 1.0, Qt::transparent);
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

} // namespace ButtonTesting
