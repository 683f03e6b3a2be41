// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/vst3/Vst3View.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace Steinberg {

// The SDK leaves the identifiers of its windows to those who use them.
DEF_CLASS_IID(IPlugView)
DEF_CLASS_IID(IPlugFrame)
DEF_CLASS_IID(IPlugViewContentScaleSupport)
namespace Linux {
DEF_CLASS_IID(IEventHandler)
DEF_CLASS_IID(IRunLoop)
} // namespace Linux

} // namespace Steinberg

using namespace Steinberg;

namespace {

int scaled(int extent, double factor) { return static_cast<int>(std::lround(extent * factor)); }

} // namespace

Vst3View::Vst3View(Vst3ViewOwner& owner)
    : m_owner(owner)
{
    m_owner.hold();
}

Vst3View::~Vst3View()
{
    close();
    m_owner.letGo();
}

tresult PLUGIN_API Vst3View::queryInterface(const TUID asked, void** obj)
{
    *obj = nullptr;
    const bool known =
        answerQuery<IPlugView>(asked, FUnknown_iid, this, obj) ||
        answerQuery<IPlugView>(asked, IPlugView_iid, this, obj) ||
        answerQuery<IPlugViewContentScaleSupport>(asked, IPlugViewContentScaleSupport_iid, this,
                                                  obj) ||
        answerQuery<Linux::IEventHandler>(asked, Linux::IEventHandler_iid, this, obj);
    return known ? kResultOk : kNoInterface;
}

uint32 PLUGIN_API Vst3View::release()
{
    const uint32 left = m_references.remove();
    if (left == 0)
        delete this;
    return left;
}

tresult PLUGIN_API Vst3View::isPlatformTypeSupported(FIDString type)
{
    const bool isX11 = type && std::strcmp(type, kPlatformTypeX11EmbedWindowID) == 0;
    return isX11 ? kResultTrue : kResultFalse;
}

tresult PLUGIN_API Vst3View::attached(void* parent, FIDString type)
{
    if (m_editor || !m_frame || isPlatformTypeSupported(type) != kResultTrue)
        return kResultFalse;
    m_parent = static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(parent));
    return open() ? kResultOk : kResultFalse;
}

tresult PLUGIN_API Vst3View::removed()
{
    close();
    return kResultOk;
}

bool Vst3View::open()
{
    void* runLoop = nullptr;
    if (m_frame->queryInterface(Linux::IRunLoop_iid, &runLoop) != kResultOk)
        return false;
    m_runLoop = owned(static_cast<Linux::IRunLoop*>(runLoop));
    EmbeddedEditor::Options options;
    options.parent = m_parent;
    options.width = m_width;
    options.height = m_height;
    options.pixelRatio = m_ratio;
    options.stereo = m_owner.isStereo();
    m_editor = std::make_unique<EmbeddedEditor>(m_owner, options);
    if (!m_editor->isOpen()) {
        m_editor.reset();
        return false;
    }
    m_runLoop->registerEventHandler(this, m_editor->descriptor());
    m_owner.editorOpened(*m_editor);
    return true;
}

void Vst3View::close()
{
    if (!m_editor)
        return;
    m_runLoop->unregisterEventHandler(this);
    m_owner.editorClosed(*m_editor);
    m_editor.reset();
    m_runLoop = nullptr;
}

tresult PLUGIN_API Vst3View::onWheel(float) { return kResultFalse; }

tresult PLUGIN_API Vst3View::onKeyDown(char16, int16, int16) { return kResultFalse; }

tresult PLUGIN_API Vst3View::onKeyUp(char16, int16, int16) { return kResultFalse; }

tresult PLUGIN_API Vst3View::getSize(ViewRect* size)
{
    if (!size)
        return kInvalidArgument;
    *size = ViewRect(0, 0, m_width, m_height);
    return kResultOk;
}

tresult PLUGIN_API Vst3View::onSize(ViewRect* newSize)
{
    if (!newSize)
        return kInvalidArgument;
    m_width = newSize->getWidth();
    m_height = newSize->getHeight();
    if (m_editor)
        m_editor->resize(m_width, m_height);
    return kResultOk;
}

tresult PLUGIN_API Vst3View::onFocus(TBool) { return kResultFalse; }

tresult PLUGIN_API Vst3View::setFrame(IPlugFrame* frame)
{
    m_frame = frame;
    return kResultOk;
}

tresult PLUGIN_API Vst3View::checkSizeConstraint(ViewRect* rect)
{
    if (!rect)
        return kInvalidArgument;
    const double fit = std::min(double(rect->getWidth()) / EmbeddedEditor::naturalWidth,
                                double(rect->getHeight()) / EmbeddedEditor::naturalHeight);
    const double scale =
        std::clamp(fit, EmbeddedEditor::minScale * m_ratio, EmbeddedEditor::maxScale * m_ratio);
    rect->right = rect->left + scaled(EmbeddedEditor::naturalWidth, scale);
    rect->bottom = rect->top + scaled(EmbeddedEditor::naturalHeight, scale);
    return kResultTrue;
}

tresult PLUGIN_API Vst3View::setContentScaleFactor(ScaleFactor factor)
{
    if (!(factor >= EmbeddedEditor::minScale && factor <= EmbeddedEditor::maxScale))
        return kInvalidArgument;
    const double change = double{factor} / m_ratio;
    if (change == 1.0)
        return kResultTrue;
    m_ratio = double{factor};
    m_width = scaled(m_width, change);
    m_height = scaled(m_height, change);
    if (!m_editor)
        return kResultTrue;
    close();
    const bool opened = open();
    ViewRect size(0, 0, m_width, m_height);
    m_frame->resizeView(this, &size);
    return opened ? kResultTrue : kResultFalse;
}

void PLUGIN_API Vst3View::onFDIsSet(Linux::FileDescriptor)
{
    if (m_editor)
        m_editor->relay();
}
