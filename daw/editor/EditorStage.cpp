// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/editor/EditorStage.h"

#include "daw/window/EmbeddedEditor.h"
#include "hosting/EditorLibrary.h"
#include "hosting/HostMemory.h"
#include "interfaces/IVaskEffectEditor2.h"

#include <algorithm>

namespace {

constexpr QColor ground(0x1e, 0x1e, 0x1e);
constexpr int linearDials = 2; // a click beside a knob's mark must not make it jump
constexpr QSize naturalSize(EmbeddedEditor::naturalWidth, EmbeddedEditor::naturalHeight);

} // namespace

EditorStage::EditorStage(const EditorLibrary& library, HostMemory& memory, bool stereo)
    : m_model(memory)
    , m_editor(library.create(this, 0, &m_model))
{
    setAutoFillBackground(true);
    setPalette(QPalette(ground));
    resize(naturalSize);
    if (!m_editor)
        return;
    m_editor->setMemAPI(&memory);
    m_editor->setCh(0, stereo ? 1 : -1);
    m_editor->setStereo(stereo);
    m_editor->setOn(true);
    m_editor->setDialEditMode(linearDials);
}

EditorStage::~EditorStage()
{
    if (m_editor)
        m_editor->setMemAPI(nullptr);
    delete m_editor;
}

void EditorStage::setSampleRate(int hertz)
{
    if (m_editor)
        m_editor->setFs(hertz);
}

void EditorStage::resizeEvent(QResizeEvent*)
{
    if (!m_editor)
        return;
    const double fit =
        std::min(double(width()) / naturalSize.width(), double(height()) / naturalSize.height());
    m_editor->setScale(std::clamp(fit, EmbeddedEditor::minScale, EmbeddedEditor::maxScale));
    m_editor->move((width() - m_editor->width()) / 2, (height() - m_editor->height()) / 2);
}

#include "moc_EditorStage.cpp"
