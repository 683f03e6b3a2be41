// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/window/Retranslator.h"

#include <QToolBar>

class EditorPresets;
class PresetMenu;
class QMenu;
class QToolButton;

/// Which preset an open editor has, marked while it is modified, with the presets' menu behind its
/// name; the ones before and after it; and saving.
class PresetBar : public QToolBar
{
    Q_OBJECT

public:
    /// \a menu fills \a entries. All of them must outlive its use.
    PresetBar(EditorPresets& presets, PresetMenu& menu, QMenu* entries, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;

private:
    QToolButton* addButton(const QString& picture, const Retranslator::Text& name);
    void addName(QMenu* entries);
    void addRoom();
    void follow();

    EditorPresets& m_presets;
    Retranslator m_texts;
    QToolButton* m_name = nullptr;
    QToolButton* m_save = nullptr;
};
