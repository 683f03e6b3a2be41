// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "daw/vst3/ParameterList.h"
#include "daw/vst3/RefCount.h"
#include "daw/vst3/Vst3View.h"

#include <pluginterfaces/base/smartpointer.h>
#include <pluginterfaces/vst/ivstmessage.h>

#include <vector>

/// The half of the VST 3 plug-in that a workstation's window works with: the values as they are
/// shown, their texts, and the programs. All of it is the main thread's.
///
/// Workstations ask the processor for its latency as soon as a new one is announced. So that is
/// done once the processor knows: after a state, after an edit that it was told of, or else when it
/// says through a parameter that it has changed.
class Vst3Controller final : public Steinberg::Vst::IEditController,
                             public Steinberg::Vst::IUnitInfo,
                             public Steinberg::Vst::IConnectionPoint,
                             private Vst3ViewOwner
{
public:
    Vst3Controller();

    Steinberg::tresult PLUGIN_API queryInterface(const Steinberg::TUID asked, void** obj) override;
    Steinberg::uint32 PLUGIN_API addRef() override { return m_references.add(); }
    Steinberg::uint32 PLUGIN_API release() override;

    Steinberg::tresult PLUGIN_API initialize(Steinberg::FUnknown* context) override;
    Steinberg::tresult PLUGIN_API terminate() override;

    /// The processor's state.
    Steinberg::tresult PLUGIN_API setComponentState(Steinberg::IBStream* stream) override;
    /// The controller has no state of its own.
    Steinberg::tresult PLUGIN_API setState(Steinberg::IBStream* stream) override;
    Steinberg::tresult PLUGIN_API getState(Steinberg::IBStream* stream) override;

    Steinberg::int32 PLUGIN_API getParameterCount() override;
    Steinberg::tresult PLUGIN_API getParameterInfo(Steinberg::int32 index,
                                                   Steinberg::Vst::ParameterInfo& info) override;
    Steinberg::tresult PLUGIN_API getParamStringByValue(Steinberg::Vst::ParamID id,
                                                        Steinberg::Vst::ParamValue normalized,
                                                        Steinberg::Vst::String128 text) override;
    Steinberg::tresult PLUGIN_API
    getParamValueByString(Steinberg::Vst::ParamID id, Steinberg::Vst::TChar* text,
                          Steinberg::Vst::ParamValue& normalized) override;
    Steinberg::Vst::ParamValue PLUGIN_API normalizedParamToPlain(
        Steinberg::Vst::ParamID id, Steinberg::Vst::ParamValue normalized) override;
    Steinberg::Vst::ParamValue PLUGIN_API
    plainParamToNormalized(Steinberg::Vst::ParamID id, Steinberg::Vst::ParamValue plain) override;
    Steinberg::Vst::ParamValue PLUGIN_API getParamNormalized(Steinberg::Vst::ParamID id) override;
    Steinberg::tresult PLUGIN_API setParamNormalized(Steinberg::Vst::ParamID id,
                                                     Steinberg::Vst::ParamValue value) override;
    Steinberg::tresult PLUGIN_API
    setComponentHandler(Steinberg::Vst::IComponentHandler* handler) override;
    /// The editor; its program is started when the workstation has a window for it.
    Steinberg::IPlugView* PLUGIN_API createView(Steinberg::FIDString name) override;

    Steinberg::int32 PLUGIN_API getUnitCount() override;
    Steinberg::tresult PLUGIN_API getUnitInfo(Steinberg::int32 index,
                                              Steinberg::Vst::UnitInfo& info) override;
    Steinberg::int32 PLUGIN_API getProgramListCount() override { return 1; }
    Steinberg::tresult PLUGIN_API
    getProgramListInfo(Steinberg::int32 index, Steinberg::Vst::ProgramListInfo& info) override;
    Steinberg::tresult PLUGIN_API getProgramName(Steinberg::Vst::ProgramListID list,
                                                 Steinberg::int32 program,
                                                 Steinberg::Vst::String128 name) override;
    Steinberg::tresult PLUGIN_API getProgramInfo(Steinberg::Vst::ProgramListID list,
                                                 Steinberg::int32 program,
                                                 Steinberg::Vst::CString attribute,
                                                 Steinberg::Vst::String128 value) override;
    Steinberg::tresult PLUGIN_API hasProgramPitchNames(Steinberg::Vst::ProgramListID list,
                                                       Steinberg::int32 program) override;
    Steinberg::tresult PLUGIN_API getProgramPitchName(Steinberg::Vst::ProgramListID list,
                                                      Steinberg::int32 program,
                                                      Steinberg::int16 pitch,
                                                      Steinberg::Vst::String128 name) override;
    Steinberg::Vst::UnitID PLUGIN_API getSelectedUnit() override { return m_selectedUnit; }
    Steinberg::tresult PLUGIN_API selectUnit(Steinberg::Vst::UnitID unit) override;
    Steinberg::tresult PLUGIN_API getUnitByBus(Steinberg::Vst::MediaType type,
                                               Steinberg::Vst::BusDirection dir,
                                               Steinberg::int32 bus, Steinberg::int32 channel,
                                               Steinberg::Vst::UnitID& unit) override;
    Steinberg::tresult PLUGIN_API setUnitProgramData(Steinberg::int32 listOrUnit,
                                                     Steinberg::int32 program,
                                                     Steinberg::IBStream* data) override;

    /// To the processor, which is told of every value at once.
    Steinberg::tresult PLUGIN_API connect(Steinberg::Vst::IConnectionPoint* other) override;
    Steinberg::tresult PLUGIN_API disconnect(Steinberg::Vst::IConnectionPoint* other) override;
    Steinberg::tresult PLUGIN_API notify(Steinberg::Vst::IMessage* message) override;

private:
    ~Vst3Controller() = default;

    void beginEdit(std::size_t parameter) override;
    void edit(std::size_t parameter, int value) override;
    void endEdit(std::size_t parameter) override;
    bool isStereo() const override;
    void editorOpened(EmbeddedEditor& editor) override;
    void editorClosed(EmbeddedEditor& editor) override;
    void hold() override { addRef(); }
    void letGo() override { release(); }

    static bool isKnown(Steinberg::Vst::ParamID id);
    static bool isProgram(Steinberg::Vst::ProgramListID list, Steinberg::int32 program);
    int valueOf(Steinberg::Vst::ParamID id) const;
    void setValue(Steinberg::Vst::ParamID id, int value);
    void setValues(const ChannelValues& values);
    void applyEdit(Steinberg::Vst::ParamID id);
    void announceLatency(int latency);
    void announce(Steinberg::int32 flags);
    void show(Steinberg::Vst::ParamID id, EmbeddedEditor& editor) const;
    void show(Steinberg::Vst::ParamID id) const;

    RefCount m_references;
    Steinberg::IPtr<Steinberg::FUnknown> m_context;
    Steinberg::IPtr<Steinberg::Vst::IConnectionPoint> m_processor;
    Steinberg::IPtr<Steinberg::Vst::IComponentHandler> m_handler;
    std::vector<double> m_normalized; // by index in ParameterList
    std::vector<EmbeddedEditor*> m_editors;
    int m_announcedLatency = 0;
    Steinberg::Vst::UnitID m_selectedUnit = Steinberg::Vst::kRootUnitId;
};
