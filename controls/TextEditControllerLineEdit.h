// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>

#include <functional>

namespace CommonController_MemAPI::TextEditControllerPrivate {

/// The inline editor of a text field, which covers it. It keeps all keys to itself, so that nothing
/// happens in the window while the user types.
class LineEdit : public QLineEdit
{
public:
    /// A hidden child of \a field. Escape calls \a cancel, which may destroy the field.
    LineEdit(QWidget* field, std::function<void()> cancel);

    /// While held, losing the focus does not finish the edit.
    bool isHeld() const { return m_held; }
    void setHeld(bool held) { m_held = held; }

    /// For the field's destructor, instead of deleting: an event of the editor itself may be under
    /// way, or the focus on its way to it, and Qt's own handling does not survive its object. Then
    /// the editor leaves the field and goes as soon as Qt has done with it.
    void retire();

    /// The widget that the focus is on its way to while a text field ends its edit for that reason;
    /// else null.
    static QWidget* nextFocus();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    static int s_losingFocus; // how many do, within one another

    std::function<void()> m_cancel;
    int m_eventDepth = 0;
    bool m_held = false;
    bool m_retired = false;
};

} // namespace CommonController_MemAPI::TextEditControllerPrivate
