// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/EditGesture.h"

#include "controls/WideInteger.h"

#include <QMouseEvent>

#include <utility>

namespace CommonController_MemAPI {

template <class Change>
void EditGesture::report(Qt::KeyboardModifiers modifiers, ModifierReport::Of of, Change change)
{
    const ModifierReport report(m_control, modifiers, of);
    change();
    if (report.isDue())
        m_emitModifiersChange(m_control, modifiers);
}

void EditGesture::edit(int value, Qt::KeyboardModifiers modifiers)
{
    report(modifiers, ModifierReport::Of::Value, [&] { m_control.editValue(value); });
}

void EditGesture::editBy(std::int64_t difference, Qt::KeyboardModifiers modifiers)
{
    edit(saturateToInt(m_control.value() + difference), modifiers);
}

void EditGesture::editString(const QString& text, Qt::KeyboardModifiers modifiers)
{
    report(modifiers, ModifierReport::Of::Value, [&] { m_control.editString(text); });
}

void EditGesture::resetToDefault(Qt::KeyboardModifiers modifiers)
{
    report(modifiers, ModifierReport::Of::Value, [&] { m_control.editToDefault(); });
}

bool EditGesture::open()
{
    const Lifetime::Guard alive(m_control.lifetime());
    if (!end())
        return false;
    m_control.openEdit();
    return alive && m_control.isEditing();
}

void EditGesture::start()
{
    m_dragging = true;
    m_emitDrag(m_control, true);
}

bool EditGesture::isMove(const QMouseEvent& event, QPoint last) const
{
    return m_dragging && m_widget.isEnabled() && event.buttons().testFlag(Qt::LeftButton) &&
           event.position().toPoint() != last;
}

void EditGesture::setValue(int value, Qt::KeyboardModifiers modifiers, ModifierReport::Of of)
{
    report(modifiers, of, [&] { m_control.setValue(value); });
}

void EditGesture::setNormalized(float normalized, Qt::KeyboardModifiers modifiers)
{
    report(modifiers, ModifierReport::Of::Normalized, [&] { m_control.setNormalized(normalized); });
}

bool EditGesture::end()
{
    const Lifetime::Guard alive(m_control.lifetime());
    const bool wasDragging = std::exchange(m_dragging, false);
    m_control.closeEdits();
    if (alive && wasDragging)
        m_emitDrag(m_control, false);
    return bool(alive);
}

} // namespace CommonController_MemAPI
