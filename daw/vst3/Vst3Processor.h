// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "daw/processor/EqualizerProcessor.h"
#include "daw/vst3/ParameterList.h"
#include "daw/vst3/PointReader.h"
#include "daw/vst3/RefCount.h"
#include "engine/LatestValue.h"
#include "parameters/SavedState.h"

#include <pluginterfaces/vst/ivstaudioprocessor.h>
#include <pluginterfaces/vst/ivstcomponent.h>
#include <pluginterfaces/vst/ivstmessage.h>

#include <atomic>
#include <vector>

/// The half of the VST 3 plug-in that makes sound. Its state is the one that the equalizer's
/// component saves, and its class is that of the component's presets.
///
/// process() is the audio thread's and neither allocates nor locks; all else is the workstation's
/// main thread's, also while process() runs, but for what must not be called then (setActive(),
/// setupProcessing(), setBusArrangements()). Automation acts at its sample: blocks are split at the
/// points. What the processor does on its own (latency, meters) it tells through parameters, after
/// it has done it.
class Vst3Processor final : public Steinberg::Vst::IComponent,
                            public Steinberg::Vst::IAudioProcessor,
                            public Steinberg::Vst::IProcessContextRequirements,
                            public Steinberg::Vst::IConnectionPoint
{
public:
    Vst3Processor();

    Steinberg::tresult PLUGIN_API queryInterface(const Steinberg::TUID asked, void** obj) override;
    Steinberg::uint32 PLUGIN_API addRef() override { return m_references.add(); }
    Steinberg::uint32 PLUGIN_API release() override;

    Steinberg::tresult PLUGIN_API initialize(Steinberg::FUnknown* context) override;
    Steinberg::tresult PLUGIN_API terminate() override;

    Steinberg::tresult PLUGIN_API getControllerClassId(Steinberg::TUID classId) override;
    Steinberg::tresult PLUGIN_API setIoMode(Steinberg::Vst::IoMode mode) override;
    Steinberg::int32 PLUGIN_API getBusCount(Steinberg::Vst::MediaType type,
                                            Steinberg::Vst::BusDirection dir) override;
    Steinberg::tresult PLUGIN_API getBusInfo(Steinberg::Vst::MediaType type,
                                             Steinberg::Vst::BusDirection dir,
                                             Steinberg::int32 index,
                                             Steinberg::Vst::BusInfo& bus) override;
    Steinberg::tresult PLUGIN_API getRoutingInfo(Steinberg::Vst::RoutingInfo& in,
                                                 Steinberg::Vst::RoutingInfo& out) override;
    Steinberg::tresult PLUGIN_API activateBus(Steinberg::Vst::MediaType type,
                                              Steinberg::Vst::BusDirection dir,
                                              Steinberg::int32 index,
                                              Steinberg::TBool state) override;
    Steinberg::tresult PLUGIN_API setActive(Steinberg::TBool state) override;
    Steinberg::tresult PLUGIN_API setState(Steinberg::IBStream* stream) override;
    Steinberg::tresult PLUGIN_API getState(Steinberg::IBStream* stream) override;

    /// Takes one bus in and one out, both mono or both stereo.
    Steinberg::tresult PLUGIN_API setBusArrangements(Steinberg::Vst::SpeakerArrangement* inputs,
                                                     Steinberg::int32 inputCount,
                                                     Steinberg::Vst::SpeakerArrangement* outputs,
                                                     Steinberg::int32 outputCount) override;
    Steinberg::tresult PLUGIN_API
    getBusArrangement(Steinberg::Vst::BusDirection dir, Steinberg::int32 index,
                      Steinberg::Vst::SpeakerArrangement& arrangement) override;
    Steinberg::tresult PLUGIN_API canProcessSampleSize(Steinberg::int32 size) override;
    Steinberg::uint32 PLUGIN_API getLatencySamples() override { return m_latency; }
    Steinberg::tresult PLUGIN_API setupProcessing(Steinberg::Vst::ProcessSetup& setup) override;
    Steinberg::tresult PLUGIN_API setProcessing(Steinberg::TBool state) override;
    Steinberg::tresult PLUGIN_API process(Steinberg::Vst::ProcessData& data) override;
    /// How long the lowest and narrowest band rings.
    Steinberg::uint32 PLUGIN_API getTailSamples() override;

    Steinberg::uint32 PLUGIN_API getProcessContextRequirements() override { return 0; }

    Steinberg::tresult PLUGIN_API connect(Steinberg::Vst::IConnectionPoint* other) override;
    Steinberg::tresult PLUGIN_API disconnect(Steinberg::Vst::IConnectionPoint* other) override;
    /// Takes an edit from the controller (EditMessage), so that a state that is saved and the
    /// latency hold it even where no block has been processed since.
    Steinberg::tresult PLUGIN_API notify(Steinberg::Vst::IMessage* message) override;

private:
    // A state and how many the main thread had set when it was in force.
    struct Snapshot
    {
        SavedState state;
        unsigned int revision = 0;

        bool operator==(const Snapshot&) const = default;
    };

    ~Vst3Processor() = default;

    const SavedState& known();
    void takeState();
    void apply(const PointReader::Point& point);
    void applyTo(SavedState* state, Steinberg::Vst::ParamID id, int value) const;
    void applyState();
    void processPart(const Steinberg::Vst::ProcessData& data, Steinberg::int32 first,
                     Steinberg::int32 end);
    template <typename Sample>
    void processSamples(const Steinberg::Vst::ProcessData& data, Steinberg::int32 first,
                        Steinberg::int32 end);
    void publish(Steinberg::Vst::IParameterChanges* changes);
    void tell(Steinberg::Vst::IParameterChanges* changes, Steinberg::Vst::ParamID id, int value);

    RefCount m_references;
    const std::vector<ChannelValues> m_programs;
    std::atomic<Steinberg::uint32> m_latency = 0; // of whatever came last, on either thread
    double m_sampleRate = 48000.0;

    // The main thread's.
    Snapshot m_known;
    LatestValue<Snapshot> m_set;
    LatestValue<Snapshot> m_inForce;

    // The audio thread's.
    EqualizerProcessor m_processor;
    Snapshot m_current;
    Snapshot m_published;
    int m_program = 0;
    Steinberg::uint32 m_heardLatency = 0;
    // By id from latencyId on.
    std::array<int, ParameterList::lastId - ParameterList::latencyId + 1> m_told{};
};
