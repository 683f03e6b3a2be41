// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "daw/vst3/RefCount.h"
#include "daw/window/EmbeddedEditor.h"

#include <pluginterfaces/base/smartpointer.h>
#include <pluginterfaces/gui/iplugview.h>
#include <pluginterfaces/gui/iplugviewcontentscalesupport.h>

#include <memory>

/// Whom a view shows: what the user edits goes there, and what changes there comes to the editor.
class Vst3ViewOwner : public EditorListener
{
public:
    /// Whether the editor shows two channels.
    virtual bool isStereo() const = 0;
    /// The editor is open until it is said to be closed.
    virtual void editorOpened(EmbeddedEditor& editor) = 0;
    virtual void editorClosed(EmbeddedEditor& editor) = 0;
    /// A view holds its owner.
    virtual void hold() = 0;
    virtual void letGo() = 0;

protected:
    ~Vst3ViewOwner() = default;
};

/// The editor in a window of a VST 3 workstation. It is opened when the window is there, and works
/// whenever the workstation's run loop finds something to read.
class Vst3View final : public Steinberg::IPlugView,
                       public Steinberg::IPlugViewContentScaleSupport,
                       public Steinberg::Linux::IEventHandler
{
public:
    explicit Vst3View(Vst3ViewOwner& owner);

    Steinberg::tresult PLUGIN_API queryInterface(const Steinberg::TUID asked, void** obj) override;
    Steinberg::uint32 PLUGIN_API addRef() override { return m_references.add(); }
    Steinberg::uint32 PLUGIN_API release() override;

    Steinberg::tresult PLUGIN_API isPlatformTypeSupported(Steinberg::FIDString type) override;
    Steinberg::tresult PLUGIN_API attached(void* parent, Steinberg::FIDString type) override;
    Steinberg::tresult PLUGIN_API removed() override;
    Steinberg::tresult PLUGIN_API onWheel(float distance) override;
    /// The editor has the keyboard while something is typed there, and the workstation otherwise.
    Steinberg::tresult PLUGIN_API onKeyDown(Steinberg::char16 key, Steinberg::int16 keyCode,
                                            Steinberg::int16 modifiers) override;
    Steinberg::tresult PLUGIN_API onKeyUp(Steinberg::char16 key, Steinberg::int16 keyCode,
                                          Steinberg::int16 modifiers) override;
    Steinberg::tresult PLUGIN_API getSize(Steinberg::ViewRect* size) override;
    Steinberg::tresult PLUGIN_API onSize(Steinberg::ViewRect* newSize) override;
    Steinberg::tresult PLUGIN_API onFocus(Steinberg::TBool state) override;
    Steinberg::tresult PLUGIN_API setFrame(Steinberg::IPlugFrame* frame) override;
    Steinberg::tresult PLUGIN_API canResize() override { return Steinberg::kResultTrue; }
    /// Keeps the proportion, and the scale from 0.5 to 4.
    Steinberg::tresult PLUGIN_API checkSizeConstraint(Steinberg::ViewRect* rect) override;

    /// An open editor is opened anew with the new factor.
    Steinberg::tresult PLUGIN_API setContentScaleFactor(ScaleFactor factor) override;

    void PLUGIN_API onFDIsSet(Steinberg::Linux::FileDescriptor descriptor) override;

private:
    ~Vst3View();

    bool open();
    void close();

    RefCount m_references;
    Vst3ViewOwner& m_owner;
    Steinberg::IPlugFrame* m_frame = nullptr; // the workstation's, which takes it back
    Steinberg::IPtr<Steinberg::Linux::IRunLoop> m_runLoop;
    std::unique_ptr<EmbeddedEditor> m_editor;
    std::uint32_t m_parent = 0;
    double m_ratio = 1.0;
    int m_width = EmbeddedEditor::naturalWidth;
    int m_height = EmbeddedEditor::naturalHeight;
};
