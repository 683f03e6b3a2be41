// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/monkey/UserInput.h"

#include "tests/monkey/Clock.h"
#include "tests/monkey/EventLog.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QUrl>
#include <QWheelEvent>
#include <QWindow>
#include <QtTest>

namespace {

constexpr int outside = 20; // pixels around a window that are hit, too

struct Key
{
    Qt::Key key;
    const char* text = "";
};

constexpr Key keys[] = {
    {Qt::Key_Tab},       {Qt::Key_Backtab},    {Qt::Key_Space, " "},  {Qt::Key_Return, "\r"},
    {Qt::Key_Enter},     {Qt::Key_Escape},     {Qt::Key_Up},          {Qt::Key_Down},
    {Qt::Key_Left},      {Qt::Key_Right},      {Qt::Key_PageUp},      {Qt::Key_PageDown},
    {Qt::Key_Home},      {Qt::Key_End},        {Qt::Key_Delete},      {Qt::Key_Backspace},
    {Qt::Key_1, "1"},    {Qt::Key_2, "2"},     {Qt::Key_0, "0"},      {Qt::Key_Minus, "-"},
    {Qt::Key_Plus, "+"}, {Qt::Key_Equal, "="}, {Qt::Key_Period, "."}, {Qt::Key_K, "k"},
    {Qt::Key_A, "a"},    {Qt::Key_B, "b"},     {Qt::Key_C, "c"},      {Qt::Key_E, "e"},
    {Qt::Key_F, "f"},    {Qt::Key_L, "l"},     {Qt::Key_M, "m"},      {Qt::Key_O, "o"},
    {Qt::Key_R, "r"},    {Qt::Key_S, "s"},     {Qt::Key_V, "v"},      {Qt::Key_W, "w"},
    {Qt::Key_X, "x"},    {Qt::Key_Z, "z"},     {Qt::Key_F2},          {Qt::Key_F4},
    {Qt::Key_F10},       {Qt::Key_Menu},       {Qt::Key_Alt},         {Qt::Key_Shift}};

QWidget* targetOf(QWidget* window, Dice& dice)
{
    QWidget* popup = QApplication::activePopupWidget();
    return popup && !dice.oneIn(4) ? popup : window;
}

} // namespace

void UserInput::act(QWidget* window)
{
    QWidget* target = targetOf(window, m_dice);
    const int choice = m_dice.between(1, 20);
    m_modifiers = anyModifiers();
    if (choice <= 11)
        pointer(target);
    else if (choice <= 15)
        key(target);
    else if (choice <= 17)
        wheel(target);
    else if (choice <= 19)
        focus(target);
    else
        drop(target);
}

void UserInput::letGo(QWidget* window)
{
    EventLog::add("let go");
    const QPointer<QWindow> target = window->windowHandle();
    m_modifiers = Qt::NoModifier;
    send(target, QEvent::MouseButtonRelease, Qt::LeftButton);
    if (target)
        qt_handleKeyEvent(target, QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
}

QPoint UserInput::anyPoint(const QWidget* window)
{
    const int choice = m_dice.between(1, 4);
    if (choice == 1)
        return {m_dice.between(-outside, window->width() + outside),
                m_dice.between(-outside, window->height() + outside)};
    const QPoint near(m_dice.between(-30, 30), m_dice.between(-30, 30));
    if (choice <= 3)
        return m_point + near;
    const QList<QWidget*> widgets = window->findChildren<QWidget*>();
    if (widgets.isEmpty())
        return m_point;
    const QWidget* widget = widgets[m_dice.between(0, static_cast<int>(widgets.size()) - 1)];
    return widget->mapTo(widget->window(), widget->rect().center()) + near / 8;
}

QString UserInput::anyText()
{
    static const QStringList texts = {QString(),
                                      QStringLiteral("Vocals"),
                                      QStringLiteral("  two  words "),
                                      QStringLiteral("a/b:c*?\"<>|"),
                                      QStringLiteral("../.."),
                                      QStringLiteral(".hidden"),
                                      QStringLiteral("<b>bold</b> & \n\t"),
                                      QStringLiteral(u"\u65e5\u672c\u8a9e \U0001F3B5 \u202e"),
                                      QString(QChar(0xD800)),
                                      QString(QChar(0)),
                                      QString(300, QLatin1Char('x')),
                                      QStringLiteral("%1 %2 %n"),
                                      QStringLiteral("-3.5 dB"),
                                      QStringLiteral("1e9"),
                                      QStringLiteral("nan")};
    return texts[m_dice.between(0, static_cast<int>(texts.size()) - 1)];
}

Qt::KeyboardModifiers UserInput::anyModifiers()
{
    return m_dice.pick({Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier,
                        Qt::ControlModifier, Qt::AltModifier});
}

void UserInput::pointer(QWidget* window)
{
    m_point = anyPoint(window);
    const Qt::MouseButton button = m_dice.oneIn(10) ? Qt::RightButton : Qt::LeftButton;
    const int choice = m_dice.between(1, 11);
    EventLog::add(choice <= 5 ? "move" : "button", m_point.x(), m_point.y());
    QWindow* target = window->windowHandle();
    if (choice <= 5)
        send(target, QEvent::MouseMove, Qt::NoButton);
    else if (choice <= 7)
        send(target, QEvent::MouseButtonPress, button);
    else if (choice <= 9)
        send(target, QEvent::MouseButtonRelease, button);
    else
        click(target, button, choice - 9);
}

void UserInput::click(QWindow* window, Qt::MouseButton button, int times)
{
    const QPointer<QWindow> guard = window;
    Clock::advance(QApplication::doubleClickInterval());
    for (int i = 0; i < times; ++i) {
        send(guard, QEvent::MouseButtonPress, button);
        send(guard, QEvent::MouseButtonRelease, button);
    }
}

void UserInput::send(QWindow* window, QEvent::Type type, Qt::MouseButton button)
{
    if (type == QEvent::MouseButtonPress)
        m_buttons |= button;
    else if (type == QEvent::MouseButtonRelease)
        m_buttons &= ~Qt::MouseButtons(button);
    if (window)
        qt_handleMouseEvent(window, m_point, window->mapToGlobal(m_point), m_buttons, button, type,
                            m_modifiers, Clock::now());
}

void UserInput::key(QWidget* window)
{
    const Key& key = keys[m_dice.between(0, static_cast<int>(std::size(keys)) - 1)];
    EventLog::add("key", key.key, static_cast<int>(m_modifiers.toInt()));
    const QPointer<QWindow> target = window->windowHandle();
    const QString text =
        m_modifiers.testFlag(Qt::ControlModifier) ? QString() : QString::fromLatin1(key.text);
    const bool repeats = m_dice.oneIn(5);
    const bool released = m_dice.oneIn(2);
    if (target)
        qt_handleKeyEvent(target, QEvent::KeyPress, key.key, m_modifiers, text, repeats);
    if (target && released)
        qt_handleKeyEvent(target, QEvent::KeyRelease, key.key, m_modifiers, text);
}

void UserInput::wheel(QWidget* window)
{
    EventLog::add("wheel", m_point.x(), m_point.y());
    QWidget* target = window->childAt(m_point);
    const int delta = m_dice.oneIn(10) ? m_dice.anyInt() : m_dice.pick({-120, -15, 15, 120});
    const bool inverted = m_dice.oneIn(4);
    if (!target)
        return;
    const QPoint place = target->mapFrom(window, m_point);
    QWheelEvent event(place, target->mapToGlobal(place), QPoint(), QPoint(0, delta), Qt::NoButton,
                      m_modifiers, Qt::NoScrollPhase, inverted);
    QCoreApplication::sendEvent(target, &event);
}

void UserInput::focus(QWidget* window)
{
    const QList<QWidget*> widgets = window->findChildren<QWidget*>();
    EventLog::add("focus", static_cast<int>(widgets.size()));
    if (widgets.isEmpty())
        return;
    if (m_dice.oneIn(4))
        window->clearFocus();
    else
        widgets[m_dice.between(0, static_cast<int>(widgets.size()) - 1)]->setFocus();
}

void UserInput::drop(QWidget* window)
{
    QMimeData data;
    const QString text = anyText();
    if (m_files.isEmpty() || m_dice.oneIn(3))
        data.setText(text);
    else
        data.setUrls({QUrl::fromLocalFile(
            m_files[m_dice.between(0, static_cast<int>(m_files.size()) - 1)])});
    const QPointer<QWidget> target = window->childAt(m_point);
    EventLog::add("drop", data.hasUrls() ? 1 : 0);
    if (!target || !target->acceptDrops())
        return;
    const QPoint place = target->mapFrom(window, m_point);
    QDragEnterEvent enter(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                          m_modifiers);
    QCoreApplication::sendEvent(target, &enter);
    if (!target || !enter.isAccepted())
        return;
    QDropEvent event(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, m_modifiers);
    QCoreApplication::sendEvent(target, &event);
}
