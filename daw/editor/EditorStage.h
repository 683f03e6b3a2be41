// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/HostModel.h"

#include <QWidget>

class EditorLibrary;
class HostMemory;
class IVaskEffectEditor2;

/// The editor of channel 0, as large as fits into a window of any size in its own proportions, in
/// the middle of a dark ground.
class EditorStage : public QWidget
{
    Q_OBJECT

public:
    /// \a memory must outlive it; \a stereo shows channels 0 and 1 as a pair.
    EditorStage(const EditorLibrary& library, HostMemory& memory, bool stereo);
    ~EditorStage() override;

    /// Whether the library made an editor.
    bool hasEditor() const { return m_editor; }
    void setSampleRate(int hertz);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    HostModel m_model;
    IVaskEffectEditor2* m_editor;
};
