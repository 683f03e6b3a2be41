// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/model/EditHistory.h"

#include <QObject>

#include <optional>

class QWidget;

/// Makes what one press of an editor's Flat button does, held for however long, one step of the
/// history that is called so: by the mouse, by keys or by assistive technology.
class FlatStep : public QObject
{
    Q_OBJECT

public:
    /// \a button owns this.
    FlatStep(EditHistory& history, QWidget* button);

    bool eventFilter(QObject* button, QEvent* event) override;

private Q_SLOTS:
    void followValue(int value);
    void end();

private:
    EditHistory& m_history;
    std::optional<EditHistory::Step> m_step;
};
