// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pluginterfaces/base/ibstream.h>
#include <pluginterfaces/vst/ivstcomponent.h>

#include <atomic>
#include <list>

class IMemAPI;
class IModelInfo;

/// Saves and restores an effect's settings: a VST 3 component of which only getState() and
/// setState() do work. It has no audio, no buses, no controller and no interfaces to query.
///
/// A saved state is the four bytes of getDataVersion(), then, for each entry of
/// getParameterList(), the place of the parameter's value in its range as an IEEE 754 single
/// (0.0 at the minimum, 1.0 at the maximum), most significant byte first. A null entry and a
/// parameter that the host does not have are saved as 0.0 and skipped on restore.
///
/// Results are the SDK's codes: kResultFalse for a null stream and as long as model information or
/// memory is missing (only the version is written or read then), else the result of the first
/// stream call that is not kResultOk, else kResultOk. What was moved before a failure stays.
/// Streams are never asked how much they moved; a byte that a read leaves out counts as zero.
///
/// The pointers handed in are not owned. The object starts with one reference, its creator's. It
/// is freed either by the last release() or by deleting the concrete class directly. There is no
/// virtual destructor, as in all interfaces of the SDK: a derived class is final, allocated with
/// the global new, and has no data, because release() runs this class's destructor alone. Apart
/// from the reference counter all calls come on one thread.
///
/// The host may free the object while setState() sets a value. setState() then touches neither the
/// object nor the host nor the stream again, and returns kResultFalse.
class EffectComponent : public Steinberg::Vst::IComponent
{
public:
    EffectComponent() = default;

    /// What resolves names to parameter ids; null clears it.
    void setModelInfo(IModelInfo* modelInfo);
    /// Where values and ranges are kept; null clears it.
    void setMemAPI(IMemAPI* memAPI);
    /// The channel whose parameters are moved, 0 at first. The host gets its low 16 bits.
    void setCh(int ch);

    /// Answers kNoInterface and a null pointer whatever is asked for.
    Steinberg::tresult PLUGIN_API queryInterface(const Steinberg::TUID, void** obj) override;
    Steinberg::uint32 PLUGIN_API addRef() override;
    Steinberg::uint32 PLUGIN_API release() override;

    Steinberg::tresult PLUGIN_API initialize(Steinberg::FUnknown*) override;
    Steinberg::tresult PLUGIN_API terminate() override;
    Steinberg::tresult PLUGIN_API getControllerClassId(Steinberg::TUID) override;
    Steinberg::tresult PLUGIN_API setIoMode(Steinberg::Vst::IoMode) override;
    /// Answers kNotImplemented (3) like its neighbours, deliberately, although a count is asked
    /// for.
    Steinberg::int32 PLUGIN_API getBusCount(Steinberg::Vst::MediaType,
                                            Steinberg::Vst::BusDirection) override;
    Steinberg::tresult PLUGIN_API getBusInfo(Steinberg::Vst::MediaType,
                                             Steinberg::Vst::BusDirection, Steinberg::int32,
                                             Steinberg::Vst::BusInfo&) override;
    Steinberg::tresult PLUGIN_API getRoutingInfo(Steinberg::Vst::RoutingInfo&,
                                                 Steinberg::Vst::RoutingInfo&) override;
    Steinberg::tresult PLUGIN_API activateBus(Steinberg::Vst::MediaType,
                                              Steinberg::Vst::BusDirection, Steinberg::int32,
                                              Steinberg::TBool) override;
    Steinberg::tresult PLUGIN_API setActive(Steinberg::TBool) override;
    Steinberg::tresult PLUGIN_API setState(Steinberg::IBStream* state) override;
    Steinberg::tresult PLUGIN_API getState(Steinberg::IBStream* state) override;

    /// The four bytes at the head of a saved state.
    virtual const unsigned char* getDataVersion() const = 0;
    /// The parameter names in the order of a state with the version \a dataVersion, which is null
    /// for the state that getState() writes. A null name stands for a value nobody has.
    virtual std::list<const char*> getParameterList(const unsigned char* dataVersion) const = 0;

protected:
    ~EffectComponent();

private:
    struct Target;
    class Restore;

    bool isBound() const;
    bool findTarget(const char* name, Target* target) const;
    float normalizedValue(const char* name) const;
    void restoreValue(const char* name, float normalized);

    std::atomic<Steinberg::int32> m_references = 1;
    IModelInfo* m_modelInfo = nullptr;
    IMemAPI* m_memAPI = nullptr;
    Steinberg::int32 m_ch = 0;
    Restore* m_restore = nullptr; ///< the innermost setState() that is running
};
