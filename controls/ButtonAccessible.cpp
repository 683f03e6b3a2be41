// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ButtonAccessible.h"

#include <QAbstractButton>

namespace CommonController_MemAPI {

ButtonAccessible::ButtonAccessible(QAbstractButton* button, AbstractController* controller)
    : ControlAccessible(button, controller, QAccessible::Button)
    , m_button(button)
{}

QAccessible::Role ButtonAccessible::role() const
{
    return m_button->isCheckable() ? QAccessible::CheckBox : QAccessible::Button;
}

QAccessible::State ButtonAccessible::state() const
{
    QAccessible::State state = ControlAccessible::state();
    state.checkable = m_button->isCheckable();
    state.checked = m_button->isChecked();
    state.pressed = m_button->isDown();
    return state;
}

QString ButtonAccessible::text(QAccessible::Text text) const
{
    const bool isShown = m_button->accessibleName().isEmpty() && !m_button->text().isEmpty();
    return text == QAccessible::Name && isShown ? m_button->text() : ControlAccessible::text(text);
}

void ButtonAccessible::setCurrentValue(const QVariant& value)
{
    if (m_button->isCheckable())
        ControlAccessible::setCurrentValue(value);
}

QStringList ButtonAccessible::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    if (isOperable() && m_button->isCheckable())
        names << toggleAction();
    if (isOperable())
        names << pressAction();
    return names;
}

void ButtonAccessible::doAction(const QString& actionName)
{
    const bool isToggle = actionName == toggleAction() && m_button->isCheckable();
    if (isToggle || actionName == pressAction())
        m_button->click();
    else
        QAccessibleWidget::doAction(actionName);
}

} // namespace CommonController_MemAPI
