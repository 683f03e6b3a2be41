// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/ControlAccessible.h"

class QAbstractButton;

namespace CommonController_MemAPI {

/// A button over a parameter as assistive technology sees it: a check box or a button, named by its
/// accessible name, its text or its parameter, and pressed by a click.
class ButtonAccessible final : public ControlAccessible
{
public:
    ButtonAccessible(QAbstractButton* button, AbstractController* controller);

    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text text) const override;
    /// Only a switch keeps a value; a momentary button would be left held.
    void setCurrentValue(const QVariant& value) override;
    QStringList actionNames() const override;
    void doAction(const QString& actionName) override;

private:
    QAbstractButton* m_button;
};

} // namespace CommonController_MemAPI
