// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "widgets/Export.h"

#include <QAccessibleWidget>

namespace CommonController_MemAPI {

class AbstractController;

/// A control as assistive technology sees it: a widget with a role, a name, a number in a range and
/// its display text, which can be increased and decreased. Changes go through the control's own
/// gestures, and only while it is enabled. Never offers a text interface.
///
/// A control with other actions derives from this and is registered with registerAccessible().
class ZOLTA_EXPORT ControlAccessible : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    /// Of a control, which is the widget \a control and \a controller in one, with \a role.
    ControlAccessible(QWidget* control, AbstractController* controller, QAccessible::Role role);

    void* interface_cast(QAccessible::InterfaceType type) override;
    /// Name: controlName(). Value: the display text with its unit ("1.25 kHz"), else the number.
    /// Description of what is set gradually: the same, since AT-SPI carries no other text of a
    /// value.
    QString text(QAccessible::Text text) const override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant& value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

    QStringList actionNames() const override;
    void doAction(const QString& actionName) override;

protected:
    ~ControlAccessible() override = default;

    /// The control's other base.
    AbstractController* controller() const { return m_controller; }
    /// Whether the user may change the control.
    bool isOperable() const;
    /// The text of the value, with its unit.
    virtual QString valueText() const;

private:
    void changeBy(int difference);

    AbstractController* m_controller;
};

/// Makes the interface of one control.
using AccessibleMaker = QAccessibleInterface* (*)(QWidget* control);

/// Makes the interface of a \a Control with \a role.
template <class Control, QAccessible::Role role>
QAccessibleInterface* makeAccessible(QWidget* control)
{
    return new ControlAccessible(control, static_cast<Control*>(control), role);
}

/// Lets \a make answer for the widgets of class \a control and of classes derived from it. For a
/// control's constructor; calling it again changes nothing. Taken back when the library that holds
/// the class is unloaded.
ZOLTA_EXPORT void registerAccessible(const QMetaObject& control, AccessibleMaker make);

/// What a control is called: its accessible name, else its label's, else its parameter's number in
/// the host's memory, else its object name.
ZOLTA_EXPORT QString controlName(QWidget* control, const AbstractController& controller);

/// \a text with \a unit, where it ends in a number: "80 Hz", "1.25 kHz" of "1.25k".
QString withUnit(const QString& text, const QString& unit);

/// Tells assistive technology, if any is listening, that \a control now has \a value.
ZOLTA_EXPORT void announceValue(QWidget* control, int value);

} // namespace CommonController_MemAPI
