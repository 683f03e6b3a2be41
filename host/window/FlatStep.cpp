// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/FlatStep.h"

#include <QEvent>
#include <QKeyEvent>
#include <QWidget>

namespace {

bool isRepeated(const QEvent& event) { return static_cast<const QKeyEvent&>(event).isAutoRepeat(); }

bool isPress(const QEvent& event)
{
    return event.type() == QEvent::MouseButtonPress ||
           event.type() == QEvent::MouseButtonDblClick ||
           (event.type() == QEvent::KeyPress && !isRepeated(event));
}

bool isEnd(const QEvent& event)
{
    return event.type() == QEvent::MouseButtonRelease || event.type() == QEvent::FocusOut ||
           event.type() == QEvent::Hide ||
           (event.type() == QEvent::KeyRelease && !isRepeated(event));
}

} // namespace

FlatStep::FlatStep(EditHistory& history, QWidget* button)
    : QObject(button)
    , m_history(history)
{
    button->installEventFilter(this);
    // Assistive technology sends no event; the value changes before the editor hears of the press.
    connect(button, SIGNAL(valueChanged(int)), this, SLOT(followValue(int)));
    connect(button, SIGNAL(released()), this, SLOT(end()));
}

bool FlatStep::eventFilter(QObject*, QEvent* event)
{
    if (isPress(*event))
        begin();
    else if (isEnd(*event))
        end();
    return false;
}

void FlatStep::followValue(int value)
{
    if (value != 0)
        begin();
}

void FlatStep::begin()
{
    if (!m_step)
        m_step.emplace(m_history, tr("Flat"));
}

void FlatStep::end() { m_step.reset(); }

#include "moc_FlatStep.cpp"
