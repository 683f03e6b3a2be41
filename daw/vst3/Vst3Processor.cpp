// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/vst3/Vst3Processor.h"

#include "daw/vst3/EditMessage.h"
#include "daw/vst3/Identifiers.h"
#include "daw/vst3/ParameterList.h"
#include "daw/vst3/StateStream.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

using namespace Steinberg;

namespace {

// A band of quality 16 at 20 Hz has fallen by 60 dB after 1.8 seconds.
constexpr double tailSeconds = 2.0;

std::vector<ChannelValues> allPrograms()
{
    std::vector<ChannelValues> programs;
    for (int32 program = 0; program < ParameterList::programCount(); ++program)
        programs.push_back(ParameterList::programValues(program));
    return programs;
}

uint32 latencyOf(const SavedState& state) { return isDriven(state.values) ? Drive::latency : 0; }

// The channels of a bus that is there, from the sample at first on.
template <typename Sample, typename Channels>
std::span<Sample> channelsFrom(Channels* channels, int32 count, int32 first,
                               std::array<Sample, EqualizerProcessor::maxChannels>* pointers)
{
    const auto used = std::min(pointers->size(), static_cast<std::size_t>(std::max(count, 0)));
    for (std::size_t i = 0; channels && i < used; ++i)
        (*pointers)[i] = channels[i] ? channels[i] + first : nullptr;
    return std::span(*pointers).first(channels ? used : 0);
}

float** channelsOf(const Vst::AudioBusBuffers& bus, float) { return bus.channelBuffers32; }
double** channelsOf(const Vst::AudioBusBuffers& bus, double) { return bus.channelBuffers64; }

} // namespace

Vst3Processor::Vst3Processor()
    : m_programs(allPrograms())
{
    m_told.fill(std::numeric_limits<int>::min());
}

tresult PLUGIN_API Vst3Processor::queryInterface(const TUID asked, void** obj)
{
    *obj = nullptr;
    const bool known =
        answerQuery<Vst::IComponent>(asked, FUnknown_iid, this, obj) ||
        answerQuery<Vst::IComponent>(asked, IPluginBase_iid, this, obj) ||
        answerQuery<Vst::IComponent>(asked, Vst::IComponent_iid, this, obj) ||
        answerQuery<Vst::IAudioProcessor>(asked, Vst::IAudioProcessor_iid, this, obj) ||
        answerQuery<Vst::IProcessContextRequirements>(asked, Vst::IProcessContextRequirements_iid,
                                                      this, obj) ||
        answerQuery<Vst::IConnectionPoint>(asked, Vst::IConnectionPoint_iid, this, obj);
    return known ? kResultOk : kNoInterface;
}

uint32 PLUGIN_API Vst3Processor::release()
{
    const uint32 left = m_references.remove();
    if (left == 0)
        delete this;
    return left;
}

tresult PLUGIN_API Vst3Processor::initialize(FUnknown*) { return kResultOk; }

tresult PLUGIN_API Vst3Processor::terminate() { return kResultOk; }

tresult PLUGIN_API Vst3Processor::getControllerClassId(TUID classId)
{
    controllerClassId().toTUID(classId);
    return kResultOk;
}

tresult PLUGIN_API Vst3Processor::setIoMode(Vst::IoMode) { return kNotImplemented; }

int32 PLUGIN_API Vst3Processor::getBusCount(Vst::MediaType type, Vst::BusDirection)
{
    return type == Vst::kAudio ? 1 : 0;
}

tresult PLUGIN_API Vst3Processor::getBusInfo(Vst::MediaType type, Vst::BusDirection dir,
                                             int32 index, Vst::BusInfo& bus)
{
    if (type != Vst::kAudio || index != 0)
        return kInvalidArgument;
    bus.mediaType = Vst::kAudio;
    bus.direction = dir;
    bus.channelCount = static_cast<int32>(m_processor.channelCount());
    ParameterList::write(dir == Vst::kInput ? "Input" : "Output", bus.name);
    bus.busType = Vst::kMain;
    bus.flags = Vst::BusInfo::kDefaultActive;
    return kResultOk;
}

tresult PLUGIN_API Vst3Processor::getRoutingInfo(Vst::RoutingInfo&, Vst::RoutingInfo&)
{
    return kNotImplemented;
}

tresult PLUGIN_API Vst3Processor::activateBus(Vst::MediaType type, Vst::BusDirection, int32 index,
                                              TBool)
{
    return type == Vst::kAudio && index == 0 ? kResultOk : kInvalidArgument;
}

tresult PLUGIN_API Vst3Processor::setActive(TBool state)
{
    if (!state)
        return kResultOk;
    takeState();
    applyState();
    m_processor.reset();
    return kResultOk;
}

tresult PLUGIN_API Vst3Processor::setState(IBStream* stream)
{
    const std::optional<SavedState> state = readState(stream);
    if (!state)
        return kResultFalse;
    known();
    m_known = {*state, m_known.revision + 1};
    m_set.publish(m_known);
    m_latency = latencyOf(*state);
    return kResultOk;
}

tresult PLUGIN_API Vst3Processor::getState(IBStream* stream)
{
    return writeState(stream, known()) ? kResultOk : kResultFalse;
}

tresult PLUGIN_API Vst3Processor::setBusArrangements(Vst::SpeakerArrangement* inputs,
                                                     int32 inputCount,
                                                     Vst::SpeakerArrangement* outputs,
                                                     int32 outputCount)
{
    if (inputCount != 1 || outputCount != 1 || inputs[0] != outputs[0])
        return kResultFalse;
    const Vst::SpeakerArrangement wanted = inputs[0];
    if (wanted != Vst::SpeakerArr::kMono && wanted != Vst::SpeakerArr::kStereo)
        return kResultFalse;
    m_processor.setChannelCount(wanted == Vst::SpeakerArr::kMono ? 1 : 2);
    return kResultOk;
}

tresult PLUGIN_API Vst3Processor::getBusArrangement(Vst::BusDirection, int32 index,
                                                    Vst::SpeakerArrangement& arrangement)
{
    if (index != 0)
        return kInvalidArgument;
    arrangement =
        m_processor.channelCount() == 1 ? Vst::SpeakerArr::kMono : Vst::SpeakerArr::kStereo;
    return kResultOk;
}

tresult PLUGIN_API Vst3Processor::canProcessSampleSize(int32 size)
{
    return size == Vst::kSample32 || size == Vst::kSample64 ? kResultOk : kResultFalse;
}

tresult PLUGIN_API Vst3Processor::setupProcessing(Vst::ProcessSetup& setup)
{
    if (!(setup.sampleRate > 0.0) || canProcessSampleSize(setup.symbolicSampleSize) != kResultOk)
        return kResultFalse;
    m_sampleRate = setup.sampleRate;
    m_processor.setSampleRate(m_sampleRate);
    return kResultOk;
}

tresult PLUGIN_API Vst3Processor::setProcessing(TBool) { return kResultOk; }

tresult PLUGIN_API Vst3Processor::process(Vst::ProcessData& data)
{
    takeState();
    PointReader points(data.inputParameterChanges);
    int32 done = 0;
    do {
        while (points.nextOffset().value_or(done + 1) <= done)
            apply(points.take());
        applyState();
        const int32 end = std::min(points.nextOffset().value_or(data.numSamples), data.numSamples);
        processPart(data, done, end);
        done = end;
    } while (done < data.numSamples);
    if (points.nextOffset()) {
        while (points.nextOffset())
            apply(points.take());
        applyState();
    }
    publish(data.outputParameterChanges);
    return kResultOk;
}

uint32 PLUGIN_API Vst3Processor::getTailSamples()
{
    return static_cast<uint32>(m_sampleRate * tailSeconds);
}

tresult PLUGIN_API Vst3Processor::connect(Vst::IConnectionPoint*) { return kResultOk; }

tresult PLUGIN_API Vst3Processor::disconnect(Vst::IConnectionPoint*) { return kResultOk; }

tresult PLUGIN_API Vst3Processor::notify(Vst::IMessage* message)
{
    const std::optional<EditMessage> edit = readEdit(message);
    if (!edit)
        return kResultFalse;
    known();
    applyTo(&m_known.state, edit->id, edit->value);
    m_latency = latencyOf(m_known.state);
    return kResultOk;
}

// What was set last, or what has become of it since.
const SavedState& Vst3Processor::known()
{
    const Snapshot* inForce = m_inForce.take();
    if (inForce && inForce->revision == m_known.revision)
        m_known = *inForce;
    return m_known.state;
}

void Vst3Processor::takeState()
{
    if (const Snapshot* set = m_set.take())
        m_current = *set;
}

void Vst3Processor::apply(const PointReader::Point& point)
{
    if (ParameterList::indexOf(point.id) == ParameterList::count())
        return;
    const int value = ParameterList::valueOf(ParameterList::rangeOf(point.id), point.value);
    const bool isProgram = point.id == ParameterList::programId;
    if (isProgram && value == m_program)
        return;
    if (isProgram)
        m_program = value;
    applyTo(&m_current.state, point.id, value);
}

void Vst3Processor::applyTo(SavedState* state, Vst::ParamID id, int value) const
{
    const std::size_t index = ParameterList::tableIndex(id);
    if (index < parameterCount)
        state->values[index] = value;
    else if (id == ParameterList::bypassId)
        state->isBypassed = value != 0;
    else if (id == ParameterList::programId)
        state->values = m_programs[static_cast<std::size_t>(value)];
}

void Vst3Processor::applyState()
{
    if (m_current.state.values != m_processor.values())
        m_processor.setValues(m_current.state.values);
    if (m_current.state.isBypassed != m_processor.isBypassed())
        m_processor.setBypassed(m_current.state.isBypassed);
    const uint32 latency = latencyOf(m_current.state);
    if (std::exchange(m_heardLatency, latency) != latency)
        m_latency = latency;
}

void Vst3Processor::processPart(const Vst::ProcessData& data, int32 first, int32 end)
{
    if (end <= first || data.numOutputs < 1)
        return;
    if (data.symbolicSampleSize == Vst::kSample64)
        processSamples<double>(data, first, end);
    else
        processSamples<float>(data, first, end);
    data.outputs[0].silenceFlags = 0;
}

template <typename Sample>
void Vst3Processor::processSamples(const Vst::ProcessData& data, int32 first, int32 end)
{
    std::array<const Sample*, EqualizerProcessor::maxChannels> inputs{};
    std::array<Sample*, EqualizerProcessor::maxChannels> outputs{};
    std::span<const Sample*> in;
    if (data.numInputs > 0)
        in = channelsFrom(channelsOf(data.inputs[0], Sample{}), data.inputs[0].numChannels, first,
                          &inputs);
    const std::span<Sample*> out = channelsFrom(channelsOf(data.outputs[0], Sample{}),
                                                data.outputs[0].numChannels, first, &outputs);
    m_processor.process(in, out, static_cast<std::size_t>(end - first));
}

// What the main thread and the workstation's controller get to know of this block.
void Vst3Processor::publish(Vst::IParameterChanges* changes)
{
    if (m_current != m_published) {
        m_published = m_current;
        m_inForce.publish(m_current);
    }
    if (!changes)
        return;
    tell(changes, ParameterList::latencyId, m_processor.latency());
    tell(changes, ParameterList::sampleRateId, static_cast<int>(m_sampleRate));
    tell(changes, ParameterList::channelCountId, static_cast<int>(m_processor.channelCount()));
    for (Vst::ParamID channel = 0; channel < m_processor.channelCount(); ++channel) {
        const MeterLevels levels = m_processor.levels(channel);
        tell(changes, ParameterList::inputMeterId + channel, levels.send);
        tell(changes, ParameterList::outputMeterId + channel, levels.returned);
    }
}

void Vst3Processor::tell(Vst::IParameterChanges* changes, Vst::ParamID id, int value)
{
    int& told = m_told[id - ParameterList::latencyId];
    if (told == value)
        return;
    int32 index = 0;
    Vst::IParamValueQueue* queue = changes->addParameterData(id, index);
    const double normalized = ParameterList::normalizedOf(ParameterList::rangeOf(id), value);
    if (queue && queue->addPoint(0, normalized, index) == kResultOk)
        told = value;
}
