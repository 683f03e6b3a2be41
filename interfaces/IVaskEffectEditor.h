// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>
#include <QVariant>
#include <QWidget>

#include <vector>

class IMemAPI;
class IModelInfo;

// Of the VST 3 SDK, whose headers only those need who use a component.
namespace Steinberg {
class FUID;
namespace Vst {
class IComponent;
}
} // namespace Steinberg

/// An effect's editor widget, as the mixer host drives it. All calls come on the GUI thread.
///
/// The order of the operations is the host's binary contract; it goes on in IVaskEffectEditor2.
class IVaskEffectEditor : public QWidget
{
public:
    using QWidget::QWidget;

    /// The class identifier of the editor's component; the reference lives as long as the editor.
    virtual Steinberg::FUID& uid() = 0;
    /// Appends a copy of the editor's identifier to \a uids.
    virtual void loadUids(std::vector<Steinberg::FUID>& uids) = 0;
    /// The component that saves and restores the effect's state; the editor keeps ownership.
    virtual Steinberg::Vst::IComponent* getVstComponent() const = 0;
    /// Hands over the host's parameter memory, null to detach. Not owned.
    virtual void setMemAPI(IMemAPI* memAPI) = 0;
    /// Hands over the host's description of the hardware. Not owned.
    virtual void setModelInfo(IModelInfo* modelInfo) = 0;
    /// The channel \a ch and, for a stereo pair, its second channel \a ch2 (negative: mono).
    virtual void setCh(int ch, int ch2) = 0;
    /// Whether the channel is one of a stereo pair.
    virtual void setStereo(bool stereo) = 0;
    /// The sampling rate in Hz.
    virtual void setFs(int fs) = 0;
    /// Whether the effect is switched on.
    virtual void setOn(bool on) = 0;
    /// How knobs are dragged, in the host's numbering.
    virtual void setDialEditMode(int mode) = 0;
    /// How faders are dragged, in the host's numbering.
    virtual void setSliderEditMode(int mode) = 0;
};
