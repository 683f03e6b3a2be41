// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

/// Where an editor stands in a window. Its controls take no focus by Tab, and it walks them by
/// itself: the stage lets Tab in at either end, and out again.
class EditorStage : public QWidget
{
    Q_OBJECT

public:
    explicit EditorStage(QWidget* parent = nullptr);

protected:
    void focusInEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;
};
