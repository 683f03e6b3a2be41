// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pluginterfaces/vst/ivstcomponent.h>

class IMemAPI;
class IModelInfo;

/// The component of StandInEditor: it saves and restores a channel's 27 parameters as the host
/// expects it, "2620" and 28 big-endian floats.
class StandInComponent : public Steinberg::Vst::IComponent
{
public:
    virtual ~StandInComponent() = default;

    void setMemory(IMemAPI* memory) { m_memory = memory; }
    void setModel(IModelInfo* model) { m_model = model; }
    void setChannel(int channel) { m_channel = static_cast<unsigned short>(channel); }

    /// The id of "fx_rackfx_prm_<number>" and where its value lies in its range, 0 to 1.
    unsigned short parameterId(int number) const;
    float position(int number) const;

    Steinberg::tresult PLUGIN_API queryInterface(const Steinberg::TUID, void** obj) override;
    Steinberg::uint32 PLUGIN_API addRef() override { return 1; }
    Steinberg::uint32 PLUGIN_API release() override { return 1; }
    Steinberg::tresult PLUGIN_API initialize(Steinberg::FUnknown*) override { return 3; }
    Steinberg::tresult PLUGIN_API terminate() override { return 3; }
    Steinberg::tresult PLUGIN_API getControllerClassId(Steinberg::TUID) override { return 3; }
    Steinberg::tresult PLUGIN_API setIoMode(Steinberg::Vst::IoMode) override { return 3; }
    Steinberg::int32 PLUGIN_API getBusCount(Steinberg::Vst::MediaType,
                                            Steinberg::Vst::BusDirection) override
    {
        return 0;
    }
    Steinberg::tresult PLUGIN_API getBusInfo(Steinberg::Vst::MediaType,
                                             Steinberg::Vst::BusDirection, Steinberg::int32,
                                             Steinberg::Vst::BusInfo&) override
    {
        return 3;
    }
    Steinberg::tresult PLUGIN_API getRoutingInfo(Steinberg::Vst::RoutingInfo&,
                                                 Steinberg::Vst::RoutingInfo&) override
    {
        return 3;
    }
    Steinberg::tresult PLUGIN_API activateBus(Steinberg::Vst::MediaType,
                                              Steinberg::Vst::BusDirection, Steinberg::int32,
                                              Steinberg::TBool) override
    {
        return 3;
    }
    Steinberg::tresult PLUGIN_API setActive(Steinberg::TBool) override { return 3; }
    Steinberg::tresult PLUGIN_API setState(Steinberg::IBStream* state) override;
    Steinberg::tresult PLUGIN_API getState(Steinberg::IBStream* state) override;

private:
    IMemAPI* m_memory = nullptr;
    IModelInfo* m_model = nullptr;
    unsigned short m_channel = 0;
};
