// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/AbstractController.h"
#include "controls/ModifierReport.h"

#include <QWidget>

#include <cstdint>

class QMouseEvent;

namespace CommonController_MemAPI {

/// How a user changes the value of a control that can be dragged: at once, by the wheel, a key or a
/// reset, or step by step, by a drag. A member of the control. Edits are balanced, and every change
/// that was made with modifiers held is reported.
///
/// Everything here may destroy the control and this with it. What answers a bool says whether the
/// control is still there; elsewhere the control guards itself where it goes on afterwards.
class EditGesture
{
public:
    /// Of \a control, which has the signals modifiersChange() and drag().
    template <class Control>
    explicit EditGesture(Control& control)
        : m_control(control)
        , m_widget(control)
        , m_emitModifiersChange([](AbstractController& which, Qt::KeyboardModifiers modifiers) {
            Q_EMIT static_cast<Control&>(which).modifiersChange(&which, modifiers);
        })
        , m_emitDrag([](AbstractController& which, bool on) {
            Q_EMIT static_cast<Control&>(which).drag(on);
        })
    {}

    /// One whole edit each, while \a modifiers are held.
    void edit(int value, Qt::KeyboardModifiers modifiers);
    void editBy(std::int64_t difference, Qt::KeyboardModifiers modifiers);
    void editString(const QString& text, Qt::KeyboardModifiers modifiers);
    void resetToDefault(Qt::KeyboardModifiers modifiers);

    /// Ends what is under way and opens the edit of a drag. False too if whoever was told of it
    /// ended the edit already; then there is no drag.
    bool open();
    /// From here on there is a drag: drag(true).
    void start();
    bool isDragging() const { return m_dragging; }
    /// Whether \a event, a move from \a last, belongs to the drag.
    bool isMove(const QMouseEvent& event, QPoint last) const;
    /// Changes inside an edit that is open.
    void setValue(int value, Qt::KeyboardModifiers modifiers,
                  ModifierReport::Of of = ModifierReport::Of::Value);
    void setNormalized(float normalized, Qt::KeyboardModifiers modifiers);
    /// Ends all edits and the drag, if there is one: drag(false).
    bool end();

private:
    template <class Change>
    void report(Qt::KeyboardModifiers modifiers, ModifierReport::Of of, Change change);

    AbstractController& m_control;
    QWidget& m_widget;
    void (*m_emitModifiersChange)(AbstractController&, Qt::KeyboardModifiers);
    void (*m_emitDrag)(AbstractController&, bool);
    bool m_dragging = false;
};

} // namespace CommonController_MemAPI
