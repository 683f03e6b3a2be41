// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/FlatStep.h"

#include <QEvent>
#include <QWidget>

FlatStep::FlatStep(EditHistory& history, QWidget* button)
    : QObject(button)
    , m_history(history)
{
    button->installEventFilter(this);
    // However it is pressed, its value changes before the editor hears of the press.
    connect(button, SIGNAL(valueChanged(int)), this, SLOT(followValue(int)));
    connect(button, SIGNAL(released()), this, SLOT(end()));
}

bool FlatStep::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::FocusOut || event->type() == QEvent::Hide)
        end();
    return false;
}

void FlatStep::followValue(int value)
{
    if (value != 0 && !m_step)
        m_step.emplace(m_history, tr("Flat"));
}

void FlatStep::end() { m_step.reset(); }

#include "moc_FlatStep.cpp"
