// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

class QAction;
class QComboBox;
class QLabel;
class QMenu;
class QMenuBar;
class QWidget;

/// The texts of a window that are said again when the language changes. A text is a function that
/// translates; what it is said to must live as long as this.
class LiveTexts
{
public:
    using Text = std::function<QString()>;

    /// Says something now and whenever retranslate() is called.
    void add(std::function<void()> say);
    void retranslate() const;

    /// New widgets and actions that show a text.
    QMenu* menu(QMenuBar* bar, const Text& text);
    QMenu* menu(QMenu* parent, const Text& text);
    QAction* action(QMenu* menu, const Text& text);
    QLabel* label(QWidget* parent, const Text& text);
    QComboBox* choice(QWidget* parent, const std::function<QStringList()>& items);

private:
    std::vector<std::function<void()>> m_says;
};
