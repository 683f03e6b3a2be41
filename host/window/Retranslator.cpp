// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/Retranslator.h"

#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>

void Retranslator::add(std::function<void()> set)
{
    set();
    m_setters.push_back(std::move(set));
}

void Retranslator::retranslate() const
{
    for (const std::function<void()>& set : m_setters)
        set();
}

QMenu* Retranslator::menu(QMenuBar* bar, const Text& text)
{
    QMenu* menu = bar->addMenu(QString());
    add([menu, text] { menu->setTitle(text()); });
    return menu;
}

QMenu* Retranslator::menu(QMenu* parent, const Text& text)
{
    QMenu* menu = parent->addMenu(QString());
    add([menu, text] { menu->setTitle(text()); });
    return menu;
}

QAction* Retranslator::action(QMenu* menu, const Text& text)
{
    QAction* action = menu->addAction(QString());
    add([action, text] { action->setText(text()); });
    return action;
}

QLabel* Retranslator::label(QWidget* parent, const Text& text)
{
    auto* label = new QLabel(parent);
    add([label, text] { label->setText(text()); });
    return label;
}

QComboBox* Retranslator::choice(QWidget* parent, const std::function<QStringList()>& items)
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
