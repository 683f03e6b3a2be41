// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "daw/vst3/RefCount.h"

#include <pluginterfaces/base/ipluginbase.h>

/// Makes the plug-in's two halves and says what they are.
class Vst3Factory final : public Steinberg::IPluginFactory2
{
public:
    /// The one that is handed out; it is never deleted.
    static Vst3Factory* instance();

    Steinberg::tresult PLUGIN_API queryInterface(const Steinberg::TUID asked, void** obj) override;
    Steinberg::uint32 PLUGIN_API addRef() override { return m_references.add(); }
    Steinberg::uint32 PLUGIN_API release() override { return m_references.remove(); }

    Steinberg::tresult PLUGIN_API getFactoryInfo(Steinberg::PFactoryInfo* info) override;
    Steinberg::int32 PLUGIN_API countClasses() override;
    Steinberg::tresult PLUGIN_API getClassInfo(Steinberg::int32 index,
                                               Steinberg::PClassInfo* info) override;
    Steinberg::tresult PLUGIN_API getClassInfo2(Steinberg::int32 index,
                                                Steinberg::PClassInfo2* info) override;
    Steinberg::tresult PLUGIN_API createInstance(Steinberg::FIDString classId,
                                                 Steinberg::FIDString asked, void** obj) override;

private:
    RefCount m_references;
};
