// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAction>
#include <QKeySequence>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

class QComboBox;
class QLabel;
class QMenu;
class QMenuBar;
class QWidget;

/// Sets the texts of a window, and sets them again when the language changes. A text is a function
/// that translates; the widgets and actions that show it must live as long as this.
class Retranslator
{
public:
    using Text = std::function<QString()>;

    /// Calls \a set now and whenever retranslate() is called.
    void add(std::function<void()> set);
    void retranslate() const;

    /// New widgets and actions that show a text.
    QMenu* menu(QMenuBar* bar, const Text& text);
    QMenu* menu(QMenu* parent, const Text& text);
    QAction* action(QMenu* menu, const Text& text);
    /// An action with a shortcut that calls \a slot of or in \a receiver.
    template <typename Receiver, typename Slot>
    QAction* action(QMenu* menu, const Text& text, const QKeySequence& keys, Receiver* receiver,
                    Slot slot, Qt::ConnectionType type = Qt::AutoConnection);
    QLabel* label(QWidget* parent, const Text& text);
    QComboBox* choice(QWidget* parent, const std::function<QStringList()>& items);

private:
    std::vector<std::function<void()>> m_setters;
};

template <typename Receiver, typename Slot>
QAction* Retranslator::action(QMenu* menu, const Text& text, const QKeySequence& keys,
                              Receiver* receiver, Slot slot, Qt::ConnectionType type)
{
    QAction* added = action(menu, text);
    added->setShortcut(keys);
    QObject::connect(added, &QAction::triggered, receiver, slot, type);
    return added;
}
