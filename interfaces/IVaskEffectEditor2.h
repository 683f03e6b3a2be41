// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "interfaces/IVaskEffectEditor.h"

/// The editor interface of hosts that zoom editors and keep settings for them.
class IVaskEffectEditor2 : public IVaskEffectEditor
{
public:
    using IVaskEffectEditor::IVaskEffectEditor;

    /// Zooms the editor; 1.0 is the size it was designed at.
    virtual void setScale(double scale) = 0;
    /// What the host should keep for this editor between sessions.
    virtual QMap<QString, QVariant> getEditorSettings() const = 0;
    /// Takes back what getEditorSettings() gave; what is not in it stays as it is.
    virtual void setEditorSettings(const QMap<QString, QVariant>& settings) = 0;
    /// The factor last given to setScale().
    virtual double scale() const = 0;
};
