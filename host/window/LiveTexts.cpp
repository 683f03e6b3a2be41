// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/LiveTexts.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>

void LiveTexts::add(std::function<void()> say)
{
    say();
    m_says.push_back(std::move(say));
}

void LiveTexts::retranslate() const
{
    for (const std::function<void()>& say : m_says)
        say();
}

QMenu* LiveTexts::menu(QMenuBar* bar, const Text& text)
{
    QMenu* menu = bar->addMenu(QString());
    add([menu, text] { menu->setTitle(text()); });
    return menu;
}

QMenu* LiveTexts::menu(QMenu* parent, const Text& text)
{
    QMenu* menu = parent->addMenu(QString());
    add([menu, text] { menu->setTitle(text()); });
    return menu;
}

QAction* LiveTexts::action(QMenu* menu, const Text& text)
{
    QAction* action = menu->addAction(QString());
    add([action, text] { action->setText(text()); });
    return action;
}

QLabel* LiveTexts::label(QWidget* parent, const Text& text)
{
    auto* label = new QLabel(parent);
    add([label, text] { label->setText(text()); });
    return label;
}

QComboBox* LiveTexts::choice(QWidget* parent, const std::function<QStringList()>& items)
{
    auto* box = new QComboBox(parent);
    box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    box->addItems(items());
    add([box, items] {
        const QStringList texts = items();
        for (int i = 0; i < box->count(); ++i)
            box->setItemText(i, texts[i]);
    });
    return box;
}
